// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes tissue levels, display functions and the volume that they show.

#include <CoreAlgorithms/model/contract/Requirements.h>

#include <concepts>
#include <vector>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes colormap::Tissues: eleven levels, from air to enamel, in this order and under these
/// names.
template <typename Tissues>
concept TissuesValue = std::copyable<Tissues> && std::default_initializable<Tissues> &&
    BracedFrom<Tissues, int, int, int, int, int, int, int, int, int, int, int> &&
    requires(const Tissues& tissues, Tissues& changeable)
{
    { tissues.toVector() } -> Exactly<std::vector<int>>;
    changeable.air = changeable.skin = changeable.fat = changeable.softTissue = 0;
    changeable.cancellousBone = changeable.boneSurface = changeable.bone = changeable.dentine = 0;
    changeable.corticalBone = changeable.denseBone = changeable.enamel = 0;
};

/// Describes colormap::ColormapFunction and the functions derived from it.
template <typename Function>
concept ColormapFunctionFamily = TypedObject<Function> &&
    requires(const Function& function, Function& changeable)
{
    function.getUUID();
    changeable.startEditing();
    changeable.stopEditing();
    changeable.setPreviewUpdateEnabledState(true, true);
};

/// Describes colormap::PulpFunction.
template <typename Function>
concept PulpFunctionFamily = ColormapFunctionFamily<Function> &&
    requires(const Function& function, Function& changeable, float threshold)
{
    { function.getNormalizedPulpThreshold() } -> Exactly<float>;
    { function.getNormalizedRestorationMaterialThreshold() } -> Exactly<float>;
    changeable.setNormalizedPulpThreshold(threshold);
    changeable.setNormalizedRestorationMaterialThreshold(threshold);
};

/// Describes colormap::TransferFunction.
template <typename Function>
concept TransferFunctionFamily = ColormapFunctionFamily<Function> &&
    requires(Function& changeable, float greyValues)
{
    changeable.panFunction(greyValues);
    changeable.stretchFunction(greyValues);
};

/// Describes VolumeObject. Its functions may be null pointers. The image is a reference to what the
/// volume shows.
template <typename Volume, typename Function, typename Image>
concept VolumeObjectFamily =
    requires(const Volume& volume, Volume& changeable, const Function& function)
{
    { volume.getMIPLevel() } -> Exactly<float>;
    { volume.getMIPWindow() } -> Exactly<float>;
    { volume.getActiveVisualizationFunction() } -> SharedPointerTo<Function>;
    { *changeable.getAllVisualizationFunctions().begin() } -> SharedPointerTo<Function>;
    { volume.getThreshold(function.getUUID()) } -> std::convertible_to<int>;
    { volume.getImage() } -> ReferenceTo<Image>;
    changeable.setThreshold(function.getUUID(), 0);
    changeable.setMIPLevelWindow(0.0F, 0.0F);
    changeable.visualizationChanged(true);
};

// clang-format on

} // namespace hostcontract
