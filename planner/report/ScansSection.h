// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>
#include <planner/report/Report.h>

namespace planner {

class Progress;

/// Scans of the built-in patient's crowns: one is moved through its placements and back, then the
/// jaws are brought into the bite. For another CT, of which there are no scans, a sentence that
/// says so.
Section createScansSection(const Case& planned, Progress& progress);

} // namespace planner
