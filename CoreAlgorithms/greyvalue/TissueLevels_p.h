// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Tissues.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <utility>

/// The eleven levels from two or three peaks, in the proportions of the default levels. Nothing if
/// the peaks do not ascend strictly.
namespace greyvalue {

/// From air, T0, and the two peaks on the surface of the skull: soft tissue, T3, and dense bone,
/// T9.
utility::Optional<colormap::Tissues> tissuesFromLandmarks(int air,
                                                          const std::pair<int, int>& skull);

/// From the two peaks at the teeth: soft tissue, T3, and dentine, T7.
utility::Optional<colormap::Tissues> tissuesFromTeeth(const std::pair<int, int>& teeth);

} // namespace greyvalue
