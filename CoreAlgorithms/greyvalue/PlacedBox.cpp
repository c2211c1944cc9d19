// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/PlacedBox_p.h>

#include <CoreAlgorithms/model/Finite_p.h>

#include <QVector3D>
#include <QVector4D>

#include <algorithm>
#include <cmath>

namespace greyvalue {
namespace {

// Some hundred roundings in single precision.
constexpr double kRelativeMargin = 1e-5;

// Returns the voxels along one axis between two bounds, each rounded to the nearest, halves away
// from zero. NaN gives none.
Interval voxelsBetween(float lower, float upper, int size)
{
    const double first = std::max(0.0, std::round(double(lower)));
    const double last = std::min(double(size) - 1.0, std::round(double(upper)));
    if (std::isnan(lower) || std::isnan(upper) || first > last)
        return {};
    return {int(first), int(last)};
}

bool isAffine(const QMatrix4x4& matrix)
{
    return finiteness::isFinite(matrix) && matrix.row(3) == QVector4D(0.0F, 0.0F, 0.0F, 1.0F);
}

// Returns how far a corner of the box moves along one axis of the box, at most, when it is mapped
// to the voxels and back.
double roundTripError(int axis, const primitives::BoundingBox& upright,
                      const QMatrix4x4& voxelFromBox, const QMatrix4x4& boxFromVoxel)
{
    double error = 0.0;
    for (int column = 0; column < 4; ++column) {
        double product = axis == column ? -1.0 : 0.0;
        for (int k = 0; k < 4; ++k)
            product += double(boxFromVoxel(axis, k)) * double(voxelFromBox(k, column));
        const double reach = column == 3 ? 1.0
                                         : std::max(std::abs(double(upright.min()[column])),
                                                    std::abs(double(upright.max()[column])));
        error += std::abs(product) * reach;
    }
    return error;
}

} // namespace

PlacedBox::PlacedBox(const primitives::BoundingBox& upright, const QMatrix4x4& voxelFromBox,
                     const math::Ivec3& imageSize)
    : placed(primitives::OrientedBoundingBox(upright).transformed(voxelFromBox))
{
    const primitives::BoundingBox hull = placed.getAABBOfTransformedBoundingBox();
    hullX = voxelsBetween(hull.min().x(), hull.max().x(), imageSize.x);
    hullY = voxelsBetween(hull.min().y(), hull.max().y(), imageSize.y);
    hullZ = voxelsBetween(hull.min().z(), hull.max().z(), imageSize.z);

    const QMatrix4x4 boxFromVoxel = voxelFromBox.inverted();
    if (upright.isValid() && isAffine(voxelFromBox) && isAffine(boxFromVoxel))
        slabs = std::array{slabAlong(0, upright, voxelFromBox, boxFromVoxel),
                           slabAlong(1, upright, voxelFromBox, boxFromVoxel),
                           slabAlong(2, upright, voxelFromBox, boxFromVoxel)};
}

std::size_t PlacedBox::mostVoxels() const
{
    if (!slabs)
        return hullX.count() * hullY.count() * hullZ.count();
    std::size_t count = 0;
    for (int z = hullZ.first; z <= hullZ.last; ++z) {
        for (int y = hullY.first; y <= hullY.last; ++y)
            count += rowBounds(y, z).count();
    }
    return count;
}

// The slab is thicker than the box by what isInside() may be off in single precision.
PlacedBox::Slab PlacedBox::slabAlong(int axis, const primitives::BoundingBox& upright,
                                     const QMatrix4x4& voxelFromBox,
                                     const QMatrix4x4& boxFromVoxel) const
{
    const double reach = std::abs(double(boxFromVoxel(axis, 0))) * hullX.last +
                         std::abs(double(boxFromVoxel(axis, 1))) * hullY.last +
                         std::abs(double(boxFromVoxel(axis, 2))) * hullZ.last +
                         std::abs(double(boxFromVoxel(axis, 3)));
    const double margin =
        kRelativeMargin * reach + 4.0 * roundTripError(axis, upright, voxelFromBox, boxFromVoxel);
    return {boxFromVoxel(axis, 0),
            boxFromVoxel(axis, 1),
            boxFromVoxel(axis, 2),
            boxFromVoxel(axis, 3),
            double(upright.min()[axis]) - margin,
            double(upright.max()[axis]) + margin};
}

Interval PlacedBox::rowBounds(int y, int z) const
{
    if (!slabs)
        return hullX;
    double first = hullX.first;
    double last = hullX.last;
    for (const Slab& slab : *slabs) {
        const double atZeroX = slab.perY * y + slab.perZ * z + slab.offset;
        if (slab.perX == 0.0) {
            if (atZeroX < slab.lower || atZeroX > slab.upper)
                return {};
            continue;
        }
        const double a = (slab.lower - atZeroX) / slab.perX;
        const double b = (slab.upper - atZeroX) / slab.perX;
        first = std::max(first, std::min(a, b));
        last = std::min(last, std::max(a, b));
    }
    if (!(first <= last))
        return {};
    return {int(std::ceil(first)), int(std::floor(last))};
}

bool PlacedBox::isInside(int x, int y, int z) const
{
    return placed.isInside({static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)});
}

} // namespace greyvalue
