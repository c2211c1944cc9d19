// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <utility>

namespace dental {

/// Returns the tooth nearest to an identifier, half away from zero, and the one on the other side
/// of the identifier, clamped between the smallest and the largest tooth. Both are 0 for an
/// identifier that is NaN or beyond the range of int.
std::pair<ToothChart::Tooth, ToothChart::Tooth>
teethAround(double toothId, ToothChart::Tooth smallest, ToothChart::Tooth largest);

} // namespace dental
