// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>
#include <planner/report/Report.h>

namespace planner {

class Progress;

/// The regions in which grey values are sampled, their histograms, the tissue levels and the window
/// estimated from them, and what drags do to the display functions. Without landmarks of the skull
/// the teeth must do; for a CT without either, or without grey values, it says so.
Section createGreyValuesSection(const Case& planned, Progress& progress);

} // namespace planner
