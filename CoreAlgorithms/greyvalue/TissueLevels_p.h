// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Tissues.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <utility>

/// The eleven tissue levels, from two or three peaks and the proportions of the default levels.
namespace greyvalue {

/// Returns the levels from the peak of air (T0) and the two peaks on the surface of the skull, soft
/// tissue (T3) and dense bone (T9). Returns nothing if the three do not ascend strictly.
utility::Optional<colormap::Tissues> tissuesFromLandmarks(int air,
                                                          const std::pair<int, int>& skull);

/// Returns the levels from the two peaks at the teeth, soft tissue (T3) and dentine (T7). Returns
/// nothing if the two do not ascend strictly.
utility::Optional<colormap::Tissues> tissuesFromTeeth(const std::pair<int, int>& teeth);

} // namespace greyvalue
