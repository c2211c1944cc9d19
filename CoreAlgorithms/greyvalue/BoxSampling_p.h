// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QMatrix4x4>

#include <vector>

class VexelImage3D;

namespace greyvalue {

/// The voxels whose centres lie inside the boxes, box after box, each with z before y before x; a
/// voxel inside several boxes comes several times. The matrix maps the frame of the boxes to voxel
/// indices.
///
/// A box is placed by the host's primitives::OrientedBoundingBox, whose isInside() has the last
/// word; it is asked at the two ends of a row of voxels, not at every voxel, since a row cuts a box
/// in one piece. Beyond the result only its spare capacity is allocated, a few voxels a row of a
/// box.
///
/// Element types 0, 1 and 2 are read; 3 to 6 give nothing and a warning for each box, others
/// nothing. A box that would bring the result beyond 2^27 values is left out, and may be from a few
/// values less on.
std::vector<int> sampleBoxes(const VexelImage3D& image,
                             const std::vector<primitives::BoundingBox>& boxes,
                             const QMatrix4x4& voxelFromBoxes);

} // namespace greyvalue
