// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QPointF>

class VolumeObject;

/// Applies a drag over the view, or the value of a slider, to the active display function of a
/// volume.
///
/// BoneThresholdCalculator computes the new parameters and explains their units and signs. The
/// modifier sets level, window and thresholds on the volume. It sets the thresholds for pulp and
/// restoration material, the pan and the stretch on the function. The volume must outlive the
/// modifier.
///
/// Example (examples/drag_a_bone_threshold.cpp):
/// \code
/// BoneThresholdModifier modifier(volume);
/// modifier.setPreviewUpdateEnabledState(true); // while the mouse button is down
/// QPointF last = path.front();
/// for (const QPointF& point : path) {
///     modifier.update(last, point); // each part of the drag starts where the last one ended
///     last = point;
/// }
/// modifier.setPreviewUpdateEnabledState(false);
/// \endcode
class COREALGORITHMS_EXPORT BoneThresholdModifier
{
public:
    /// Creates a modifier for a volume.
    explicit BoneThresholdModifier(VolumeObject& shownVolume);
    BoneThresholdModifier(const BoneThresholdModifier&) = default;
    BoneThresholdModifier& operator=(const BoneThresholdModifier&) = delete;
    virtual ~BoneThresholdModifier();

    /// Applies a drag between two points of the screen, in pixels, y downward. A drag of less than
    /// a pixel sets the present values again. Does nothing if the active function is of another
    /// kind, or if there is none.
    void update(const QPointF& from, const QPointF& to);
    /// Applies the value of a slider. Does nothing if the active function is of another kind, or if
    /// there is none.
    void update(int value);

    /// Sets for all functions of the volume whether changes show in the preview only, as during a
    /// drag, and notifies the observers of each function whose state changes.
    void setPreviewUpdateEnabledState(bool enabled);

private:
    VolumeObject& volume;
};
