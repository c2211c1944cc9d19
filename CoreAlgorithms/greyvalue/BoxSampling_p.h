// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QMatrix4x4>

#include <vector>

class VexelImage3D;

namespace greyvalue {

/// Returns the values of the voxels whose centers lie inside the boxes or on a face of them, box
/// after box, each with z before y before x. A voxel inside several boxes is returned for each of
/// them. The matrix maps the frame of the boxes to voxel indices.
///
/// Beyond the result only its spare capacity is allocated, a few voxels for each row of a box. The
/// element types 0, 1 and 2 are read. The types 3 to 6 give nothing and a warning for each box,
/// others nothing. The result has at most 2^27 values: a box is left out if the boxes before it and
/// its own upper bound, see PlacedBox::mostVoxels(), would exceed that.
std::vector<int> sampleBoxes(const VexelImage3D& image,
                             const std::vector<primitives::BoundingBox>& boxes,
                             const QMatrix4x4& voxelFromBoxes);

} // namespace greyvalue
