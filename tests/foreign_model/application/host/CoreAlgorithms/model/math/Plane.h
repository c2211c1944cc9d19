// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/math/QRay3D.h>

#include <QMatrix4x4>

namespace primitives {

/// The level plane through the first point: all that this application has.
class Plane
{
public:
    Plane(const QVector3D& a, const QVector3D& /*b*/, const QVector3D& /*c*/) : level(a.z()) {}

    float getSignedDistance(const QVector3D& point) const { return point.z() - level; }
    bool intersect(const QRay3D& ray, QVector3D& meetingPoint) const
    {
        meetingPoint = ray.origin;
        meetingPoint.setZ(level);
        return true;
    }
    QVector3D project(const QVector3D& point, const QVector3D& /*direction*/) const
    {
        return {point.x(), point.y(), level};
    }
    void transform(const QMatrix4x4& matrix) { level = matrix.map(QVector3D(0.0F, 0.0F, level)).z(); }

private:
    float level;
};

} // namespace primitives
