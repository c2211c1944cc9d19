// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

namespace colormap {

struct ThresholdFunction
{
    int number;
    int getUUID() const { return number; }
};

struct PulpFunction
{
    float pulp;
    float material;
    float getNormalizedPulpThreshold() const { return pulp; }
    float getNormalizedRestorationMaterialThreshold() const { return material; }
};

} // namespace colormap
