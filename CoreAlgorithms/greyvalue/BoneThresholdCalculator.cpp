// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/BoneThresholdCalculator.h>

#include <CoreAlgorithms/greyvalue/SafeNumbers_p.h>
#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

constexpr double kGreyValuesPerSliderStep = 10.0;

// The movement of a drag, right and up positive, in whole pixels.
struct Movement
{
    Movement(const QPointF& from, const QPointF& to)
        : dx(greyvalue::truncatedToInt(to.x() - from.x())),
          dy(greyvalue::truncatedToInt(from.y() - to.y()))
    {}

    // Intended: a tie counts as vertical; users drag diagonally to raise a threshold.
    bool isHorizontal() const { return std::abs(std::int64_t(dx)) > std::abs(std::int64_t(dy)); }

    int dx;
    int dy;
};

// Returns the threshold limited to 0 to 1. It is NaN in an image without voxels.
float limited(float normalized)
{
    return std::isnan(normalized) ? 0.0F : std::clamp(normalized, 0.0F, 1.0F);
}

// The grey values of an image, to which thresholds are normalized.
class GreyRange
{
public:
    explicit GreyRange(const math::Range<float>& values)
        : min(values.min), span(values.max - values.min)
    {}

    float moved(float normalized, int greyValues) const
    {
        if (span == 0.0F)
            return 0.0F;
        return limited((span * normalized + min + static_cast<float>(greyValues) - min) / span);
    }

    float normalized(int greyValue) const
    {
        if (span == 0.0F)
            return 0.0F;
        return limited((static_cast<float>(greyValue) - min) / span);
    }

private:
    float min;
    float span;
};

} // namespace

BoneThresholdCalculator::BoneThresholdCalculator(const VolumeObject& shownVolume)
    : volume(shownVolume)
{}

BoneThresholdCalculator::~BoneThresholdCalculator() = default;

BoneThresholdCalculator::LevelWindow
BoneThresholdCalculator::calculateMIPLevelWindowFunction(const QPointF& from, const QPointF& to)
{
    const Movement movement(from, to);
    return {volume.getMIPLevel() + static_cast<float>(movement.dy),
            volume.getMIPWindow() + static_cast<float>(movement.dx)};
}

BoneThresholdCalculator::LevelWindow
BoneThresholdCalculator::calculateMIPLevelWindowFunction(int value)
{
    return {static_cast<float>(volume.getMIPLevel() + value * kGreyValuesPerSliderStep),
            volume.getMIPWindow()};
}

int BoneThresholdCalculator::calculateThresholdFunction(const colormap::ThresholdFunction& function,
                                                        const QPointF& from,
                                                        const QPointF& to) const
{
    const Movement movement(from, to);
    const std::int64_t current = volume.getThreshold(function.getUUID());
    // Intended: a drag to the right lowers the threshold and a drag upward raises it. Users rely on
    // these directions.
    return greyvalue::limitedToInt(movement.isHorizontal() ? current - movement.dx
                                                           : current + movement.dy);
}

int BoneThresholdCalculator::calculateThresholdFunction(int value) const
{
    return value;
}

BoneThresholdCalculator::Transfer
BoneThresholdCalculator::calculateTransferFunction(const QPointF& from, const QPointF& to)
{
    const Movement movement(from, to);
    return {static_cast<float>(movement.dx), static_cast<float>(movement.dy)};
}

BoneThresholdCalculator::Transfer BoneThresholdCalculator::calculateTransferFunction(int value)
{
    return {0.0F, static_cast<float>(value * kGreyValuesPerSliderStep)};
}

BoneThresholdCalculator::Pulp
BoneThresholdCalculator::calculatePulpFunction(const colormap::PulpFunction& function,
                                               const QPointF& from, const QPointF& to)
{
    const Movement movement(from, to);
    const GreyRange range(getVolume().getValueRange());
    Pulp pulp{function.getNormalizedPulpThreshold(),
              function.getNormalizedRestorationMaterialThreshold()};
    if (movement.isHorizontal())
        pulp.pulpThreshold = range.moved(pulp.pulpThreshold, movement.dx);
    else
        pulp.restorationMaterialThreshold =
            range.moved(pulp.restorationMaterialThreshold, movement.dy);
    return pulp;
}

BoneThresholdCalculator::Pulp
BoneThresholdCalculator::calculatePulpFunction(const colormap::PulpFunction& function, int value)
{
    return {GreyRange(getVolume().getValueRange()).normalized(value),
            function.getNormalizedRestorationMaterialThreshold()};
}

const VexelImage3D& BoneThresholdCalculator::getVolume() const
{
    return volume.getImage();
}
