// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

namespace math {

/// Holds a range from min to max, both inclusive. Does not keep min below max.
template <typename T>
struct Range
{
    T min{};
    T max{};

    friend bool operator==(const Range&, const Range&) = default;
};

} // namespace math
