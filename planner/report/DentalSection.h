// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>
#include <planner/report/Report.h>

namespace planner {

class Progress;

/// The arches with their control points and tooth labels, a missing tooth found and created, and
/// the nerves proposed from the foramina over the canals, as far as these are known.
Section createDentalSection(const Case& planned, Progress& progress);

} // namespace planner
