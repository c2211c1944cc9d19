// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/math/OrientedBoundingBox.h>

namespace primitives {

OrientedBoundingBox::OrientedBoundingBox(const BoundingBox& localBox) : box(localBox) {}

OrientedBoundingBox::OrientedBoundingBox(const BoundingBox& localBox, const QMatrix4x4& placement)
    : box(localBox), outerFromLocal(placement), localFromOuter(placement.inverted(&invertible))
{}

OrientedBoundingBox OrientedBoundingBox::transformed(const QMatrix4x4& matrix) const
{
    return {box, matrix * outerFromLocal};
}

bool OrientedBoundingBox::isInside(const QVector3D& point) const
{
    return invertible && box.contains(localFromOuter.map(point));
}

BoundingBox OrientedBoundingBox::getAABBOfTransformedBoundingBox() const
{
    return box.transformed(outerFromLocal);
}

QList<QVector3D> OrientedBoundingBox::getCornerPoints() const
{
    QList<QVector3D> corners;
    corners.reserve(8);
    for (int corner = 0; corner < 8; ++corner)
        corners.append(outerFromLocal.map(box.corner(corner)));
    return corners;
}

} // namespace primitives
