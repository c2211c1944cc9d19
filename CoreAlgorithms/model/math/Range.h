// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

namespace math {

/// From min to max, both inclusive; nothing keeps min below max.
template <typename T>
struct Range
{
    T min{};
    T max{};

    friend bool operator==(const Range&, const Range&) = default;
};

} // namespace math
