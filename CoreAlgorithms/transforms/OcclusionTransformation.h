// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QMatrix4x4>

/// Where the scans of a scan setup stand in occlusion. All three are the identity by default.
struct COREALGORITHMS_EXPORT OcclusionTransformation
{
    QMatrix4x4 upperTransformation;      ///< of the upper jaw scan
    QMatrix4x4 lowerTransformation;      ///< of the lower jaw scan
    QMatrix4x4 vestibularTransformation; ///< of the vestibular (bite) scan

    /// True if all three matrices are equal, number by number: -0 equals 0, NaN equals nothing.
    bool operator==(const OcclusionTransformation& other) const;
    bool operator!=(const OcclusionTransformation& other) const;
};
