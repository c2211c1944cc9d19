// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QPointF>

class VolumeObject;

/// Applies a drag or a slider to the active display function of a volume.
///
/// What it becomes, BoneThresholdCalculator tells; units and signs are explained there. Level and
/// window, and thresholds, are set on the volume; thresholds for pulp and restoration material, pan
/// and stretch on the function. A function of another kind, or none, is left alone. A drag of less
/// than a pixel still sets the values that there are. The volume must outlive the modifier.
class COREALGORITHMS_EXPORT BoneThresholdModifier
{
public:
    explicit BoneThresholdModifier(VolumeObject& shownVolume);
    BoneThresholdModifier(const BoneThresholdModifier&) = default;
    BoneThresholdModifier& operator=(const BoneThresholdModifier&) = delete;
    virtual ~BoneThresholdModifier();

    /// Applies a drag.
    void update(const QPointF& from, const QPointF& to);
    /// Applies a slider's value.
    void update(int value);

    /// For all functions of the volume: whether changes show in the preview only, as during a drag.
    void setPreviewUpdateEnabledState(bool enabled);

private:
    VolumeObject& volume;
};
