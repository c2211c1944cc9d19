// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <utility>

namespace toothlocator {

/// The tooth nearest to an identifier, half away from zero, and the one on the other side of the
/// identifier, held between the smallest and the largest tooth. Zeros for an identifier that is NaN
/// or beyond the range of int.
std::pair<ToothChart::Tooth, ToothChart::Tooth>
teethAround(double toothId, ToothChart::Tooth smallest, ToothChart::Tooth largest);

} // namespace toothlocator
