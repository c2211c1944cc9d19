// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/VexelImage3D.h>

#include <map>

/// Represents a volume as the clinic shows it. Display functions have numbers.
struct VolumeObject
{
    VexelImage3D image;
    float level;
    float window;
    std::map<int, int> thresholds;

    const VexelImage3D& getImage() const { return image; }
    float getMIPLevel() const { return level; }
    float getMIPWindow() const { return window; }
    int getThreshold(int function) const { return thresholds.at(function); }
};
