// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/math/Plane.h>

#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/math/QRay3D.h>

#include <QMatrix4x4>

#include <cmath>

namespace primitives {

Plane::Plane(const QVector3D& a, const QVector3D& b, const QVector3D& c)
    : Plane(a, QVector3D::crossProduct(b - a, c - a))
{}

Plane::Plane(const QVector3D& pointOnPlane, const QVector3D& normalDirection)
    : point(pointOnPlane), normal(normalDirection.normalized())
{}

float Plane::getSignedDistance(const QVector3D& position) const
{
    return QVector3D::dotProduct(normal, position - point);
}

bool Plane::intersect(const QRay3D& ray, QVector3D& meetingPoint) const
{
    const float approach = QVector3D::dotProduct(normal, ray.direction());
    if (approach == 0.0F)
        return false;
    const float way = -getSignedDistance(ray.origin()) / approach;
    if (!std::isfinite(way))
        return false;
    const QVector3D candidate = ray.origin() + ray.direction() * way;
    if (!finiteness::isFinite(candidate))
        return false;
    meetingPoint = candidate;
    return true;
}

QVector3D Plane::project(const QVector3D& position, const QVector3D& direction) const
{
    QVector3D projected = position;
    intersect(QRay3D(position, direction), projected);
    return projected;
}

void Plane::transform(const QMatrix4x4& matrix)
{
    point = matrix.map(point);
    normal = matrix.inverted().transposed().mapVector(normal).normalized();
}

} // namespace primitives
