// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace colormap {

/// The grey values at which a colour map places its tissues, in ascending order where they come
/// from a scan.
struct Tissues
{
    int air = 0;
    int skin = 0;
    int fat = 0;
    int softTissue = 0;
    int cancellousBone = 0;
    int boneSurface = 0;
    int bone = 0;
    int dentine = 0;
    int corticalBone = 0;
    int denseBone = 0;
    int enamel = 0;

    /// The eleven levels in the order of the fields.
    std::vector<int> toVector() const
    {
        return {air,  skin,    fat,          softTissue, cancellousBone, boneSurface,
                bone, dentine, corticalBone, denseBone,  enamel};
    }

    friend bool operator==(const Tissues&, const Tissues&) = default;
};

} // namespace colormap
