// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Volume.h>

#include <QString>

namespace planner {

/// Reads a MetaImage volume: .mha, or .mhd with its voxels in another file in the same folder or
/// below it, compressed or not. Failure if it cannot be read as such or is not a plain 3-D volume
/// of numbers.
///
/// Positions are LPS, as the programs take them that write this format. Without a matrix of
/// directions, the voxel axes are taken to point to left, posterior and superior, and the volume
/// says that its orientation is unknown.
Volume readMetaImage(const QString& path);

} // namespace planner
