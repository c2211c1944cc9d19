// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>

/// Holds the steps by which a surface scan was placed. Each matrix moves the scan on from where the
/// previous one put it.
struct SurfaceScanAlignment
{
    /// Places the scan as given at import.
    QMatrix4x4 initialTransform;
    /// Aligns the scan by hand, after the initial transform.
    QMatrix4x4 freehandTransform;
    /// Holds the result of the automatic registration.
    QMatrix4x4 registrationTransform;
    /// Holds the planning transform that was in force when the alignment was stored.
    QMatrix4x4 referenceTransform;
    /// Selects the freehand transform, or the registration if false.
    bool freehandAligned = false;

    /// Compares all fields exactly.
    friend bool operator==(const SurfaceScanAlignment&, const SurfaceScanAlignment&) = default;
};
