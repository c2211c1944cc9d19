// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

namespace math {

template <typename Number>
struct Range
{
    Number min;
    Number max;
};

} // namespace math

/// The clinic keeps its voxels on a server; here is what it knows of them.
struct VexelImage3D
{
    math::Range<float> getValueRange() const { return {darkest, brightest}; }

    float darkest;
    float brightest;
};
