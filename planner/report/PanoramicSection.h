// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>
#include <planner/report/Report.h>

namespace planner {

class Progress;

/// The panoramic view with teeth, nerves and implants, an implant turned square to the arch, and
/// where the views cut each other. Without the points that a panoramic view needs, a sentence that
/// says so takes its place.
Section createPanoramicSection(const Case& planned, Progress& progress);

} // namespace planner
