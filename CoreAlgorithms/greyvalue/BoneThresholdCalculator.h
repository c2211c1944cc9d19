// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QPointF>

class VexelImage3D;
class VolumeObject;

namespace colormap {
class PulpFunction;
class ThresholdFunction;
} // namespace colormap

/// Turns a drag over the view, or the value of a slider, into new parameters of a display function.
///
/// A drag runs between two points of the screen, in pixels, y downward:
///
///     dx = to.x - from.x      truncated toward zero, positive to the right
///     dy = from.y - to.y      truncated toward zero, positive upward
///
/// Parameters are computed from the values that the volume has at the moment of the call. Nothing
/// is changed; BoneThresholdModifier applies the results. The volume must outlive the calculator.
///
/// A coordinate that is NaN counts as no movement. Movements, and thresholds that are whole
/// numbers, are limited to the range of int.
class COREALGORITHMS_EXPORT BoneThresholdCalculator
{
public:
    /// Holds the middle and the width, in grey values, of what a maximum-intensity projection
    /// shows. Such a projection shows the brightest voxel along each line of sight.
    struct LevelWindow
    {
        float level = 0.0F;
        float window = 0.0F;
    };
    /// Holds the thresholds for pulp (the soft tissue inside a tooth) and for restoration material
    /// (fillings and crowns). Both are normalized: 0 is the smallest grey value of the image, 1 the
    /// largest.
    struct Pulp
    {
        float pulpThreshold = 0.0F;
        float restorationMaterialThreshold = 0.0F;
    };
    /// Holds the changes of a transfer function, in grey values.
    struct Transfer
    {
        float stretch = 0.0F;
        float pan = 0.0F;
    };

    /// Creates a calculator for a volume, which it reads at each call.
    explicit BoneThresholdCalculator(const VolumeObject& shownVolume);
    /// Refuses a temporary, which the calculator would outlive.
    explicit BoneThresholdCalculator(const VolumeObject&& shownVolume) = delete;
    BoneThresholdCalculator(const BoneThresholdCalculator&) = default;
    BoneThresholdCalculator& operator=(const BoneThresholdCalculator&) = delete;
    virtual ~BoneThresholdCalculator();

    /// Returns the level raised by dy and the window widened by dx. Neither is bounded.
    LevelWindow calculateMIPLevelWindowFunction(const QPointF& from, const QPointF& to);
    /// Returns the level raised by ten times the value of the slider, and the window unchanged.
    LevelWindow calculateMIPLevelWindowFunction(int value);

    /// Returns the function's threshold, lowered by dx if |dx| > |dy|, or else raised by dy.
    int calculateThresholdFunction(const colormap::ThresholdFunction& function, const QPointF& from,
                                   const QPointF& to) const;
    /// Returns the value of the slider, which is the threshold itself.
    int calculateThresholdFunction(int value) const;

    /// Returns dx as the stretch and dy as the pan.
    Transfer calculateTransferFunction(const QPointF& from, const QPointF& to);
    /// Returns ten times the value of the slider as the pan, and no stretch.
    Transfer calculateTransferFunction(int value);

    /// Returns the function's two thresholds, one of them moved: the threshold for pulp by dx grey
    /// values if |dx| > |dy|, or else the threshold for restoration material by dy grey values. The
    /// one that moves is limited to 0 to 1. It is 0 in an image of one grey value or without
    /// voxels.
    Pulp calculatePulpFunction(const colormap::PulpFunction& function, const QPointF& from,
                               const QPointF& to);
    /// Returns the grey value of the slider as the threshold for pulp, normalized and limited in
    /// the same way, and the threshold for restoration material unchanged.
    Pulp calculatePulpFunction(const colormap::PulpFunction& function, int value);

private:
    const VexelImage3D& getVolume() const;

    const VolumeObject& volume;
};
