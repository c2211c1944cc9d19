// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace planner {

struct LandmarkFile;

/// Returns a sentence for each way in which landmarks contradict one another or what is known of
/// every jaw: left and right exchanged, canals that do not start and end at their foramina, arch
/// points that do not run along the teeth or span no jaw. Empty if there is nothing to doubt.
QStringList findContradictions(const LandmarkFile& file);

} // namespace planner
