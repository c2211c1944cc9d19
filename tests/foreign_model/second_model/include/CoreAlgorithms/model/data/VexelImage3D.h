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

/// Describes an image whose voxels the clinic keeps on a server.
struct VexelImage3D
{
    math::Range<float> getValueRange() const { return {darkest, brightest}; }

    float darkest;
    float brightest;
};
