// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <CoreAlgorithms/model/Finite_p.h>

#include <QMatrix4x4>

#include <cmath>

namespace primitives {
namespace {

// Returns `bound` if `candidate` is NaN.
float smaller(float bound, float candidate)
{
    return candidate < bound ? candidate : bound;
}

float larger(float bound, float candidate)
{
    return candidate > bound ? candidate : bound;
}

bool isNan(const QVector3D& v)
{
    return std::isnan(v.x()) || std::isnan(v.y()) || std::isnan(v.z());
}

} // namespace

BoundingBox::BoundingBox(float minX, float minY, float minZ, float maxX, float maxY, float maxZ)
    : minimumCorner(minX, minY, minZ), maximumCorner(maxX, maxY, maxZ)
{}

BoundingBox::BoundingBox(const QVector3D& minimum, const QVector3D& maximum)
    : minimumCorner(minimum), maximumCorner(maximum)
{}

bool BoundingBox::isNull() const
{
    return minimumCorner == QVector3D() && maximumCorner == QVector3D();
}

bool BoundingBox::isValid() const
{
    if (!finiteness::isFinite(minimumCorner) || !finiteness::isFinite(maximumCorner))
        return false;
    for (int axis = 0; axis < 3; ++axis) {
        if (minimumCorner[axis] > maximumCorner[axis])
            return false;
    }
    return true;
}

bool BoundingBox::contains(const QVector3D& point) const
{
    if (isNull())
        return false;
    for (int axis = 0; axis < 3; ++axis) {
        if (!(point[axis] >= minimumCorner[axis] && point[axis] <= maximumCorner[axis]))
            return false;
    }
    return true;
}

bool BoundingBox::intersects(const BoundingBox& other) const
{
    for (int axis = 0; axis < 3; ++axis) {
        if (!(minimumCorner[axis] <= other.maximumCorner[axis] &&
              other.minimumCorner[axis] <= maximumCorner[axis]))
            return false;
    }
    return true;
}

void BoundingBox::includePoint(const QVector3D& point)
{
    if (isNull()) {
        if (!isNan(point))
            *this = BoundingBox(point, point);
        return;
    }
    for (int axis = 0; axis < 3; ++axis) {
        minimumCorner[axis] = smaller(minimumCorner[axis], point[axis]);
        maximumCorner[axis] = larger(maximumCorner[axis], point[axis]);
    }
}

BoundingBox BoundingBox::transformed(const QMatrix4x4& matrix) const
{
    if (isNull())
        return {};
    const QVector3D first = matrix.map(minimumCorner);
    BoundingBox result(first, first);
    for (int number = 1; number < 8; ++number) {
        const QVector3D mapped = matrix.map(corner(number));
        for (int axis = 0; axis < 3; ++axis) {
            result.minimumCorner[axis] = smaller(result.minimumCorner[axis], mapped[axis]);
            result.maximumCorner[axis] = larger(result.maximumCorner[axis], mapped[axis]);
        }
    }
    return result;
}

BoundingBox BoundingBox::createUnionOf(const BoundingBox& a, const BoundingBox& b)
{
    if (a.isNull())
        return b;
    if (b.isNull())
        return a;
    BoundingBox result = a;
    for (int axis = 0; axis < 3; ++axis) {
        result.minimumCorner[axis] = smaller(a.minimumCorner[axis], b.minimumCorner[axis]);
        result.maximumCorner[axis] = larger(a.maximumCorner[axis], b.maximumCorner[axis]);
    }
    return result;
}

QVector3D BoundingBox::corner(int number) const
{
    return {(number & 1) != 0 ? maximumCorner.x() : minimumCorner.x(),
            (number & 2) != 0 ? maximumCorner.y() : minimumCorner.y(),
            (number & 4) != 0 ? maximumCorner.z() : minimumCorner.z()};
}

QVector3D BoundingBox::center() const
{
    return (minimumCorner + maximumCorner) * 0.5F;
}

float BoundingBox::centerZ() const
{
    return center().z();
}

float BoundingBox::deltaX() const
{
    return maximumCorner.x() - minimumCorner.x();
}

float BoundingBox::deltaY() const
{
    return maximumCorner.y() - minimumCorner.y();
}

float BoundingBox::deltaZ() const
{
    return maximumCorner.z() - minimumCorner.z();
}

} // namespace primitives
