// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>
#include <planner/report/Report.h>

namespace planner {

class Progress;

/// Shows a plan in the lower jaw and all that collides in it: the demonstration on the built-in
/// patient, and in a CT whose canals are known the implants that its landmarks lead to. Without
/// canals or implants, a sentence says so.
Section createCollisionSection(const Case& planned, Progress& progress);

} // namespace planner
