// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

namespace math {

/// Holds three counts or indices, for instance voxels along x, y and z.
struct Ivec3
{
    int x = 0;
    int y = 0;
    int z = 0;

    friend bool operator==(const Ivec3&, const Ivec3&) = default;
};

} // namespace math
