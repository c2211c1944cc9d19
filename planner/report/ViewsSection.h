// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>
#include <planner/report/Report.h>

namespace planner {

class Progress;

/// Axial, oblique and cephalometric view with the landmarks mapped into them and back.
Section createViewsSection(const Case& planned, Progress& progress);

} // namespace planner
