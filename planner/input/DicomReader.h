// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Volume.h>

#include <QString>

#include <functional>

namespace planner {

/// Returns whether a file begins as DICOM files do, behind a preamble.
bool isDicomFile(const QString& path);

/// Reads a DICOM series: of a folder with its subfolders, or of a file that holds all slices as
/// frames. Failure if there is none that makes a volume.
///
/// Files that are not DICOM are ignored; pictures that are not slices, or are damaged, are left
/// out, and the volume says so. Slices belong together if they have the same series and
/// orientation. If there are several such stacks of more than one slice, `series` chooses one: by
/// its number in the list that the Failure without a choice gives, or by its UID. Slices are
/// ordered by their position along the normal, whatever their files are called, and must be evenly
/// spaced. Values are scaled by each slice's slope and intercept; the volume holds 16-bit integers
/// if these can hold every value exactly, else single precision. `progress`, if given, receives the
/// fraction done, 0 to 1.
Volume readDicom(const QString& path, const QString& series = {},
                 const std::function<void(double)>& progress = {});

} // namespace planner
