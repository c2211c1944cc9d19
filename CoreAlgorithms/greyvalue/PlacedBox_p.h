// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/math/BoundingBox.h>
#include <CoreAlgorithms/model/math/Ivec3.h>
#include <CoreAlgorithms/model/math/OrientedBoundingBox.h>

#include <QMatrix4x4>

#include <array>
#include <cstddef>
#include <optional>

namespace greyvalue {

/// Whole numbers from first to last, both inclusive; none if last is smaller.
struct Interval
{
    int first = 0;
    int last = -1;

    std::size_t count() const { return last < first ? 0 : std::size_t(last - first) + 1; }
};

/// A box placed in an image. It finds the voxels whose centers are inside, row by row along x.
///
/// The isInside() of the host's primitives::OrientedBoundingBox decides. If the map to the voxels
/// is affine, the box is the intersection of three slabs, one between each pair of its faces:
///
///             ╱╲
///     ○  ○  ╱●  ●╲  ○  ○
///           ╲    ╱
///             ╲╱
///
/// A row of voxels then cuts the box in one piece, between two bounds that follow from the slabs.
/// isInside() is called from both bounds inward until it is true, and not for the voxels between.
/// Otherwise it is called for every voxel of the upright hull.
class PlacedBox
{
public:
    /// Places an upright box in an image of a size in voxels. The matrix maps the frame of the box
    /// to voxel indices.
    PlacedBox(const primitives::BoundingBox& upright, const QMatrix4x4& voxelFromBox,
              const math::Ivec3& imageSize);

    /// Returns the y of the rows that the hull reaches in the image.
    Interval ySpan() const { return hullY; }
    /// Returns the z of the rows that the hull reaches in the image.
    Interval zSpan() const { return hullZ; }

    /// Returns an upper bound of the number of voxels inside, a few for each row too high.
    std::size_t mostVoxels() const;

    /// Calls visit(first, last) for each piece of the row (y, z) that is inside.
    template <typename Visit>
    void forEachPiece(int y, int z, Visit visit) const
    {
        Interval row = rowBounds(y, z);
        if (!slabs) {
            for (int x = row.first; x <= row.last; ++x) {
                if (isInside(x, y, z))
                    visit(x, x);
            }
            return;
        }
        // Along x, every local coordinate of an affine map rises throughout or falls throughout,
        // also after rounding: the voxels inside are one piece.
        while (row.first <= row.last && !isInside(row.first, y, z))
            ++row.first;
        while (row.first < row.last && !isInside(row.last, y, z))
            --row.last;
        if (row.first <= row.last)
            visit(row.first, row.last);
    }

private:
    /// The voxels with lower <= perX * x + perY * y + perZ * z + offset <= upper.
    struct Slab
    {
        double perX;
        double perY;
        double perZ;
        double offset;
        double lower;
        double upper;
    };

    Slab slabAlong(int axis, const primitives::BoundingBox& upright, const QMatrix4x4& voxelFromBox,
                   const QMatrix4x4& boxFromVoxel) const;
    /// Returns bounds that contain every voxel of the row that is inside.
    Interval rowBounds(int y, int z) const;
    bool isInside(int x, int y, int z) const;

    primitives::OrientedBoundingBox placed;
    Interval hullX;
    Interval hullY;
    Interval hullZ;
    std::optional<std::array<Slab, 3>> slabs; // none if a map is not affine or the box is invalid
};

} // namespace greyvalue
