// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/BoneThresholdModifier.h>

#include <CoreAlgorithms/greyvalue/BoneThresholdCalculator.h>
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

namespace {

using Calculator = BoneThresholdCalculator;

constexpr float kPanPerPixel = 0.5F;

// Returns the function as one of the kind, or null if it is of another.
template <typename Function>
Function* as(colormap::ColormapFunction& function)
{
    return function.isOfType(Function::getClassTypeId()) ? dynamic_cast<Function*>(&function)
                                                         : nullptr;
}

// The input is either the two points of a drag or the value of a slider.
template <typename... Input>
void applyInput(VolumeObject& volume, const Input&... input)
{
    Calculator calculator(volume);
    const auto active = volume.getActiveVisualizationFunction();
    if (!active)
        return;
    // Intended: the kinds are tested in this order, on which hosts with functions of two kinds
    // rely.
    if (as<colormap::LevelWindowFunction>(*active)) {
        const Calculator::LevelWindow result = calculator.calculateMIPLevelWindowFunction(input...);
        volume.setMIPLevelWindow(result.level, result.window);
    } else if (const auto* threshold = as<colormap::ThresholdFunction>(*active)) {
        if constexpr (sizeof...(input) == 1)
            volume.setThreshold(threshold->getUUID(),
                                calculator.calculateThresholdFunction(input...));
        else
            volume.setThreshold(threshold->getUUID(),
                                calculator.calculateThresholdFunction(*threshold, input...));
    } else if (auto* pulp = as<colormap::PulpFunction>(*active)) {
        const Calculator::Pulp result = calculator.calculatePulpFunction(*pulp, input...);
        pulp->setNormalizedPulpThreshold(result.pulpThreshold);
        pulp->setNormalizedRestorationMaterialThreshold(result.restorationMaterialThreshold);
    } else if (auto* transfer = as<colormap::TransferFunction>(*active)) {
        const Calculator::Transfer result = calculator.calculateTransferFunction(input...);
        transfer->startEditing();
        // Intended: the pan is halved here, not in the calculator, whose results other callers
        // apply whole.
        transfer->panFunction(result.pan * kPanPerPixel);
        transfer->stretchFunction(result.stretch);
        transfer->stopEditing();
        volume.visualizationChanged(true);
    }
}

} // namespace

BoneThresholdModifier::BoneThresholdModifier(VolumeObject& shownVolume) : volume(shownVolume) {}

BoneThresholdModifier::~BoneThresholdModifier() = default;

void BoneThresholdModifier::update(const QPointF& from, const QPointF& to)
{
    applyInput(volume, from, to);
}

void BoneThresholdModifier::update(int value)
{
    applyInput(volume, value);
}

void BoneThresholdModifier::setPreviewUpdateEnabledState(bool enabled)
{
    for (const auto& function : volume.getAllVisualizationFunctions()) {
        if (function)
            function->setPreviewUpdateEnabledState(enabled, true);
    }
}
