// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/Case.h>
#include <planner/Report.h>

namespace planner {

class Progress;

/// A plan in the lower jaw of the built-in patient with all that collides in it. For another CT, of which the course
/// of the nerves is not known, a sentence that says so.
Section createCollisionSection(const Case& planned, Progress& progress);

} // namespace planner
