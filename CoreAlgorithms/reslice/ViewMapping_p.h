// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <QMatrix4x4>
#include <QPointF>
#include <QVector3D>
#include <QVector4D>

#include <cmath>

namespace reslice {

/// Holds a point in the view of a planar or panoramic reslice, and whether the world point is
/// within the slab and the slice.
struct Image
{
    QPointF point;
    bool inPlane = false;
    bool inSlice = false;
};

/// Lays the rectangle of a view over the x and y of its reslice. Each rule is its own inverse, so
/// the same two functions map both ways.
struct Mirroring
{
    // Intended: the view that is mirrored vertically is the one whose y is the local y. The local y
    // points up, the view's y points down; the application draws all its views that way.
    explicit Mirroring(const PlanarReslice& reslice)
        : Mirroring(reslice, !reslice.isMirroredVerticallyIn2D())
    {}

    // Intended: the vertical rule is opposite to that of a planar reslice. The y of a panoramic
    // reslice points down already.
    explicit Mirroring(const PanoramicReslice& reslice)
        : Mirroring(reslice, reslice.isMirroredVerticallyIn2D())
    {}

    double mapX(double x) const { return mirrorsX ? double(width) - x : x; }
    double mapY(double y) const { return mirrorsY ? double(height) - y : y; }

    float width;
    float height;
    bool mirrorsX;
    bool mirrorsY;

private:
    Mirroring(const Reslice& reslice, bool yIsMirrored)
        : width(reslice.getWidth()),
          height(reslice.getHeight()),
          mirrorsX(reslice.isMirroredHorizontallyIn2D()),
          mirrorsY(yIsMirrored)
    {}
};

/// Applies QMatrix4x4::map to many points, with the bits of that operation.
///
/// Qt computes a fourth coordinate for every point and divides by it. For an affine matrix it is 1
/// if the point is finite. A coordinate that is not finite makes all three results infinite or NaN
/// (0 times infinity is NaN), so a finite x shows that the fourth coordinate is 1 and need not be
/// computed.
class PointMapping
{
public:
    explicit PointMapping(const QMatrix4x4& pointMatrix)
        : matrix(pointMatrix),
          isAffine(matrix.flags().toInt() >= QMatrix4x4::Rotation &&
                   matrix.row(3) == QVector4D(0.0F, 0.0F, 0.0F, 1.0F))
    {}

    QVector3D map(const QVector3D& point) const
    {
        if (isAffine) {
            const float* m = matrix.constData(); // by columns
            const float x = point.x() * m[0] + point.y() * m[4] + point.z() * m[8] + m[12];
            const float y = point.x() * m[1] + point.y() * m[5] + point.z() * m[9] + m[13];
            const float z = point.x() * m[2] + point.y() * m[6] + point.z() * m[10] + m[14];
            if (std::isfinite(x))
                return {x, y, z};
        }
        return matrix.map(point);
    }

private:
    QMatrix4x4 matrix;
    bool isAffine;
};

} // namespace reslice
