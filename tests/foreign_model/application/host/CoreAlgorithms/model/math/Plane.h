// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/math/QRay3D.h>

#include <QMatrix4x4>

namespace primitives {

/// A plane by its equation, normal . x = offset: nothing of the bundled one's layout.
class Plane
{
public:
    Plane(const QVector3D& a, const QVector3D& b, const QVector3D& c) : Plane(a, QVector3D::normal(a, b, c))
    {}
    Plane(const QVector3D& point, const QVector3D& direction)
        : normal(direction.normalized()), offset(QVector3D::dotProduct(normal, point))
    {}

    QVector3D getNormal() const { return normal; }
    float getSignedDistance(const QVector3D& point) const
    {
        return QVector3D::dotProduct(normal, point) - offset;
    }
    bool intersect(const QRay3D& ray, QVector3D& meetingPoint) const
    {
        meetingPoint = project(ray.origin, ray.direction);
        return QVector3D::dotProduct(normal, ray.direction) != 0.0F;
    }
    QVector3D project(const QVector3D& point, const QVector3D& direction) const
    {
        const float along = QVector3D::dotProduct(normal, direction);
        return along == 0.0F ? point : point - direction * (getSignedDistance(point) / along);
    }
    void transform(const QMatrix4x4& matrix)
    {
        *this = Plane(matrix.map(normal * offset), matrix.mapVector(normal));
    }

private:
    QVector3D normal;
    float offset;
};

} // namespace primitives
