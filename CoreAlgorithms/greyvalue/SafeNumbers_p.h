// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

/// Conversions to int that are defined for every input.
namespace greyvalue {

/// Returns the nearest int.
inline int limitedToInt(std::int64_t value)
{
    return static_cast<int>(std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

/// Returns the value truncated toward zero and limited to the range of int, or 0 for NaN.
inline int truncatedToInt(double value)
{
    if (std::isnan(value))
        return 0;
    return static_cast<int>(std::clamp(value, static_cast<double>(std::numeric_limits<int>::min()),
                                       static_cast<double>(std::numeric_limits<int>::max())));
}

/// Returns the value rounded to the nearest whole number, halves away from zero, and limited to the
/// range of int, or 0 for NaN.
inline int roundedToInt(float value)
{
    return truncatedToInt(static_cast<double>(std::round(value)));
}

} // namespace greyvalue
