// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/BoxSampling_p.h>

#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/math/OrientedBoundingBox.h>

#include <QMessageLogger>
#include <QVector3D>
#include <QVector4D>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace greyvalue {
namespace {

// 512 MiB of grey values; sixty boxes of 10 mm at 0.1 mm a voxel hold less than half of it.
constexpr std::size_t kMostValues = std::size_t(1) << 27U;

// Whole numbers from first to last, both inclusive; none if last is smaller.
struct Interval
{
    int first = 0;
    int last = -1;

    std::size_t count() const { return last < first ? 0 : std::size_t(last - first) + 1; }
};

// The voxels along one axis between two bounds, each rounded to the nearest, halves away from zero.
// NaN gives none.
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

// A box laid into an image: which voxels of a row are inside.
class PlacedBox
{
public:
    PlacedBox(const primitives::BoundingBox& upright, const QMatrix4x4& voxelFromBox,
              const math::Ivec3& size)
        : placed(primitives::OrientedBoundingBox(upright).transformed(voxelFromBox))
    {
        const primitives::BoundingBox hull = placed.getAABBOfTransformedBoundingBox();
        const QVector3D lower = hull.min();
        const QVector3D upper = hull.max();
        x = voxelsBetween(lower.x(), upper.x(), size.x);
        y = voxelsBetween(lower.y(), upper.y(), size.y);
        z = voxelsBetween(lower.z(), upper.z(), size.z);
        foreseeRows(upright, voxelFromBox);
    }

    Interval ys() const { return y; }
    Interval zs() const { return z; }

    // At least those voxels of the row that are inside.
    Interval foreseen(int atY, int atZ) const
    {
        Interval result = x;
        if (!rowsAreForeseen)
            return result;
        double first = x.first;
        double last = x.last;
        for (const Slab& slab : slabs) {
            const double start = slab.perY * atY + slab.perZ * atZ + slab.offset; // at x = 0
            if (slab.perX == 0.0) {
                if (start < slab.lower || start > slab.upper)
                    return {};
                continue;
            }
            const double a = (slab.lower - start) / slab.perX;
            const double b = (slab.upper - start) / slab.perX;
            first = std::max(first, std::min(a, b));
            last = std::min(last, std::max(a, b));
        }
        if (!(first <= last))
            return {};
        return {int(std::ceil(first)), int(std::floor(last))};
    }

    // An upper bound of the number of voxels inside, near to it.
    std::size_t foreseenCount() const
    {
        if (!rowsAreForeseen)
            return x.count() * y.count() * z.count();
        std::size_t count = 0;
        for (int atZ = z.first; atZ <= z.last; ++atZ) {
            for (int atY = y.first; atY <= y.last; ++atY)
                count += foreseen(atY, atZ).count();
        }
        return count;
    }

    // Calls visit(first, last) for each piece of the row that is inside.
    template <typename Visit>
    void forEachPiece(int atY, int atZ, Visit visit) const
    {
        Interval row = foreseen(atY, atZ);
        if (!rowsAreForeseen) {
            for (int atX = row.first; atX <= row.last; ++atX) {
                if (isInside(atX, atY, atZ))
                    visit(atX, atX);
            }
            return;
        }
        // Along x every local coordinate of an affine map rises or falls throughout, also after
        // rounding: the voxels inside are one piece.
        while (row.first <= row.last && !isInside(row.first, atY, atZ))
            ++row.first;
        while (row.first < row.last && !isInside(row.last, atY, atZ))
            --row.last;
        if (row.first <= row.last)
            visit(row.first, row.last);
    }

private:
    // lower <= perX * x + perY * y + perZ * z + offset <= upper
    struct Slab
    {
        double perX;
        double perY;
        double perZ;
        double offset;
        double lower;
        double upper;
    };

    bool isInside(int atX, int atY, int atZ) const
    {
        return placed.isInside(
            {static_cast<float>(atX), static_cast<float>(atY), static_cast<float>(atZ)});
    }

    // The three slabs that the box is made of, each thicker by what isInside() may be off in single
    // precision.
    void foreseeRows(const primitives::BoundingBox& upright, const QMatrix4x4& voxelFromBox)
    {
        const QMatrix4x4 boxFromVoxel = voxelFromBox.inverted();
        if (!upright.isValid() || !isAffine(voxelFromBox) || !isAffine(boxFromVoxel))
            return;
        const QVector3D lower = upright.min();
        const QVector3D upper = upright.max();
        for (int axis = 0; axis < 3; ++axis) {
            const double reach = std::abs(double(boxFromVoxel(axis, 0))) * x.last +
                                 std::abs(double(boxFromVoxel(axis, 1))) * y.last +
                                 std::abs(double(boxFromVoxel(axis, 2))) * z.last +
                                 std::abs(double(boxFromVoxel(axis, 3)));
            const double margin = RELATIVE_MARGIN * reach +
                                  4.0 * errorOfInverse(boxFromVoxel, voxelFromBox, upright, axis);
            slabs[std::size_t(axis)] = {boxFromVoxel(axis, 0),        boxFromVoxel(axis, 1),
                                        boxFromVoxel(axis, 2),        boxFromVoxel(axis, 3),
                                        double(lower[axis]) - margin, double(upper[axis]) + margin};
        }
        rowsAreForeseen = true;
    }

    // How far, in the frame of the box, its corners come back elsewhere from their way to the
    // voxels.
    static double errorOfInverse(const QMatrix4x4& inverse, const QMatrix4x4& matrix,
                                 const primitives::BoundingBox& upright, int row)
    {
        double error = 0.0;
        for (int column = 0; column < 4; ++column) {
            double product = row == column ? -1.0 : 0.0;
            for (int k = 0; k < 4; ++k)
                product += double(inverse(row, k)) * double(matrix(k, column));
            const double reach = column == 3 ? 1.0
                                             : std::max(std::abs(double(upright.min()[column])),
                                                        std::abs(double(upright.max()[column])));
            error += std::abs(product) * reach;
        }
        return error;
    }

    // Some hundred roundings in single precision.
    static constexpr double RELATIVE_MARGIN = 1e-5;

    primitives::OrientedBoundingBox placed;
    Interval x;
    Interval y;
    Interval z;
    bool rowsAreForeseen = false; // false: every voxel of the hull is asked for
    std::array<Slab, 3> slabs{};
};

// The boxes that are read, with an upper bound of their values together.
struct Selection
{
    std::vector<bool> isRead;
    std::size_t count = 0;
};

Selection select(const std::vector<primitives::BoundingBox>& boxes,
                 const QMatrix4x4& voxelFromBoxes, const math::Ivec3& size)
{
    Selection selection;
    selection.isRead.reserve(boxes.size());
    for (const primitives::BoundingBox& box : boxes) {
        const std::size_t count = PlacedBox(box, voxelFromBoxes, size).foreseenCount();
        const bool fits = count <= kMostValues - selection.count;
        selection.isRead.push_back(fits);
        selection.count += fits ? count : 0;
    }
    return selection;
}

template <typename Element>
std::vector<int> collect(const VexelImage3D& image,
                         const std::vector<primitives::BoundingBox>& boxes,
                         const QMatrix4x4& voxelFromBoxes)
{
    std::vector<int> values;
    const auto* voxels = static_cast<const Element*>(image.dataPtr());
    if (!voxels)
        return values;
    const math::Ivec3 size = image.imageSize();
    const auto sizeX = static_cast<std::size_t>(size.x);
    const auto sizeY = static_cast<std::size_t>(size.y);
    const Selection selection = select(boxes, voxelFromBoxes, size);
    values.reserve(selection.count);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (!selection.isRead[i])
            continue;
        const PlacedBox box(boxes[i], voxelFromBoxes, size);
        for (int z = box.zs().first; z <= box.zs().last; ++z) {
            for (int y = box.ys().first; y <= box.ys().last; ++y) {
                const Element* row = voxels + static_cast<std::size_t>(z) * (sizeX * sizeY) +
                                     static_cast<std::size_t>(y) * sizeX;
                box.forEachPiece(y, z, [&values, row](int first, int last) {
                    values.insert(values.end(), row + first, row + last + 1);
                });
            }
        }
    }
    return values;
}

} // namespace

std::vector<int> sampleBoxes(const VexelImage3D& image,
                             const std::vector<primitives::BoundingBox>& boxes,
                             const QMatrix4x4& voxelFromBoxes)
{
    const auto type = static_cast<int>(image.dataType());
    if (type == hostvalues::kUnsigned16)
        return collect<std::uint16_t>(image, boxes, voxelFromBoxes);
    if (type == hostvalues::kSigned16)
        return collect<std::int16_t>(image, boxes, voxelFromBoxes);
    if (type == hostvalues::kUnsigned8)
        return collect<std::uint8_t>(image, boxes, voxelFromBoxes);
    if (type >= hostvalues::kFirstUnreadElement && type <= hostvalues::kLastUnreadElement) {
        for (std::size_t i = 0; i < boxes.size(); ++i)
            QMessageLogger().warning(
                "TissueEstimationHistogramCreator : not implemented for this data type.");
    }
    // Intended: types from 7 on pass in silence; hosts number their other kinds of images from
    // there.
    return {};
}

} // namespace greyvalue
