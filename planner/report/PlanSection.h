// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>
#include <planner/report/Report.h>

namespace planner {

class Progress;

/// A whole plan on the built-in patient moved into a new scanner frame and back, object by object,
/// and a bite that is applied, undone and applied again. For another CT, for which there is no such
/// plan, a sentence that says so.
Section createPlanSection(const Case& planned, Progress& progress);

} // namespace planner
