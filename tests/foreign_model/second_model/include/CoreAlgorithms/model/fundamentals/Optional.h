// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace utility {

/// Is the standard optional, which the clinic uses.
template <typename T>
class Optional : public std::optional<T>
{
public:
    using std::optional<T>::optional;
};

} // namespace utility
