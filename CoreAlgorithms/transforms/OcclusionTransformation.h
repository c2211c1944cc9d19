// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QMatrix4x4>

/// Holds the placements of a scan setup's scans in occlusion (the bite, in which the teeth of both
/// jaws meet), in mm. All three matrices are the identity by default.
struct COREALGORITHMS_EXPORT OcclusionTransformation
{
    QMatrix4x4 upperTransformation;      ///< places the upper jaw scan
    QMatrix4x4 lowerTransformation;      ///< places the lower jaw scan
    QMatrix4x4 vestibularTransformation; ///< places the vestibular scan: the closed bite, seen from
                                         ///< the cheek

    /// Returns true if all three matrices are equal, number by number: -0 equals 0, NaN equals
    /// nothing.
    bool operator==(const OcclusionTransformation& other) const;
    /// Returns the negation of operator==.
    bool operator!=(const OcclusionTransformation& other) const;
};
