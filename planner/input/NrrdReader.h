// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Volume.h>

#include <QString>

namespace planner {

/// Reads an NRRD volume: .nrrd, or .nhdr with its voxels in another file in the same folder or
/// below it, raw or compressed with gzip. Failure if it cannot be read as such or is not a plain
/// 3-D volume of numbers.
///
/// Positions follow the header's space, which may be LPS, RAS or LAS. Without one of these, or
/// without directions, the voxel axes are taken to point to left, posterior and superior, and the
/// volume says that its orientation is unknown.
Volume readNrrd(const QString& path);

} // namespace planner
