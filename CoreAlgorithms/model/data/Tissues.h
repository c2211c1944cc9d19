// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace colormap {

/// Holds the grey values at which a color map places its tissues. Those that come from a scan are
/// in ascending order.
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

    /// Returns the eleven levels in the order of the fields.
    std::vector<int> toVector() const
    {
        return {air,  skin,    fat,          softTissue, cancellousBone, boneSurface,
                bone, dentine, corticalBone, denseBone,  enamel};
    }

    friend bool operator==(const Tissues&, const Tissues&) = default;
};

} // namespace colormap
