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

/// Which parameters should a volume's display function get when the user drags over the view, or
/// moves a slider?
///
/// A drag runs between two points of the screen, in pixels, y downward: dx = to.x - from.x and dy =
/// from.y - to.y, each truncated towards zero, so that right and up are positive. It is an
/// increment of the volume's values at the moment of the call. Nothing is changed; see
/// BoneThresholdModifier. The volume must outlive the calculator.
///
/// Coordinates that are NaN count as no movement; movements, and thresholds that are whole numbers,
/// are limited to the range of int.
class COREALGORITHMS_EXPORT BoneThresholdCalculator
{
public:
    /// Grey values: the middle and the width of what a maximum-intensity projection shows.
    struct LevelWindow
    {
        float level = 0.0F;
        float window = 0.0F;
    };
    /// Normalised to the image's grey values: 0 is the smallest, 1 the largest.
    struct Pulp
    {
        float pulpThreshold = 0.0F;
        float restorationMaterialThreshold = 0.0F;
    };
    /// Grey values.
    struct Transfer
    {
        float stretch = 0.0F;
        float pan = 0.0F;
    };

    explicit BoneThresholdCalculator(const VolumeObject& shownVolume);
    /// Refuses a temporary, which the calculator would outlive.
    explicit BoneThresholdCalculator(const VolumeObject&& shownVolume) = delete;
    BoneThresholdCalculator(const BoneThresholdCalculator&) = default;
    BoneThresholdCalculator& operator=(const BoneThresholdCalculator&) = delete;
    virtual ~BoneThresholdCalculator();

    /// The level rises by dy, the window widens by dx; nothing bounds them.
    LevelWindow calculateMIPLevelWindowFunction(const QPointF& from, const QPointF& to);
    /// The level rises by ten times the value.
    LevelWindow calculateMIPLevelWindowFunction(int value);

    /// Falls by dx if |dx| > |dy|, else rises by dy.
    int calculateThresholdFunction(const colormap::ThresholdFunction& function, const QPointF& from,
                                   const QPointF& to) const;
    /// The value itself.
    int calculateThresholdFunction(int value) const;

    /// Stretch dx, pan dy.
    Transfer calculateTransferFunction(const QPointF& from, const QPointF& to);
    /// Pan by ten times the value, no stretch.
    Transfer calculateTransferFunction(int value);

    /// The threshold for pulp moves by dx grey values if |dx| > |dy|, else that for restoration
    /// material by dy; the one that moves is limited to 0 to 1. In an image of one grey value it is
    /// 0.
    Pulp calculatePulpFunction(const colormap::PulpFunction& function, const QPointF& from,
                               const QPointF& to);
    /// The threshold for pulp is the grey value `value`, normalised and limited as above.
    Pulp calculatePulpFunction(const colormap::PulpFunction& function, int value);

private:
    const VexelImage3D& getVolume() const;

    const VolumeObject& volume;
};
