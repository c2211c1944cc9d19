// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Volume.h>

#include <QString>

namespace planner {

/// Reads a NIfTI-1 volume from one file, .nii or .nii.gz; Failure if it cannot be read as such or
/// is not a plain 3-D volume of numbers.
///
/// The position of a voxel is that of the header's sform, without one that of its qform. With
/// neither, the voxel axes are taken to point to right, anterior and superior as NIfTI's do, and
/// the volume says that its orientation is unknown. Values are scaled by the header's slope and
/// intercept; a scaled volume holds 16-bit integers if these can hold every value exactly, else
/// single precision.
Volume readNifti(const QString& path);

} // namespace planner
