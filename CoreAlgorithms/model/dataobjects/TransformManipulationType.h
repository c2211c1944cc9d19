// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// Says why an object was placed.
enum class TransformManipulationType : int {
    Unspecified = 0,
    Translation = 1,
    Rotation = 2,
    ScannerTransformation = 3 ///< the plan was moved into a new scanner frame
};
