// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/Volume.h>

#include <QString>

#include <functional>

namespace planner {

/// Reads the DICOM series in a folder, without its subfolders; Failure if there is none that makes a volume.
///
/// Files that are not DICOM or hold no slice with a position are passed over. Slices belong together if they
/// have the same series and orientation; of several such stacks the one with the most slices is taken, and
/// the volume says so. Slices are ordered by their position along the normal, whatever their files are
/// called, and must be evenly spaced. Values are scaled by each slice's slope and intercept; the volume holds
/// 16-bit integers if these can hold every value exactly, else single precision. `progress`, if given, is
/// told the fraction done, 0 to 1.
Volume readDicomFolder(const QString& folder, const std::function<void(double)>& progress = {});

} // namespace planner
