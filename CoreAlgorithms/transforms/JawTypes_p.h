// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

namespace transforms {

/// The jaws are stated by value, since each host has its own names for them.
inline constexpr auto kLowerJaw = JawType(1);
inline constexpr auto kUpperJaw = JawType(2);

} // namespace transforms
