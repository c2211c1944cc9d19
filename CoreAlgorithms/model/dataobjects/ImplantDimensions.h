// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

namespace dataobject {

/// Holds the outer measures of an implant in mm.
struct ImplantDimensions
{
    float diameter = 0.0F;
    float length = 0.0F;

    friend bool operator==(const ImplantDimensions&, const ImplantDimensions&) = default;
};

} // namespace dataobject
