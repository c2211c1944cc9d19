// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>

#include <QVector3D>

class QMatrix4x4;

namespace primitives {

class QRay3D;

/// Represents a plane by a point on it and its unit normal, all in single precision.
///
/// The normal is normalized by QVector3D::normalized(), whose tests are fuzzy: a length within 1e-5
/// of 1 is kept, and a length of at most 1e-5 gives the zero normal. A plane with the zero normal
/// is degenerate: every signed distance is zero, and every direction is parallel to it.
class COREALGORITHMS_MODEL_EXPORT Plane
{
public:
    /// Constructs the plane through three points with the normal along (b - a) x (c - a) and the
    /// point a. Points in a line give a degenerate plane if the product is exactly zero; otherwise
    /// its rounding gives the normal.
    Plane(const QVector3D& a, const QVector3D& b, const QVector3D& c);
    /// Constructs the plane through a point. The direction is normalized.
    Plane(const QVector3D& pointOnPlane, const QVector3D& normalDirection);

    /// Returns the point on the plane with which it was constructed, as transform() moved it.
    QVector3D getPoint() const { return point; }
    /// Returns the unit normal, or zero for a degenerate plane.
    QVector3D getNormal() const { return normal; }

    /// Returns normal . (position - point), which is positive on the side of the normal.
    float getSignedDistance(const QVector3D& position) const;

    /// Computes where the line of the ray, before and behind its origin, meets the plane. Returns
    /// false and does not change `meetingPoint` if the line is parallel (normal . direction is
    /// zero), or if the distance to the plane or the meeting point is not finite.
    bool intersect(const QRay3D& ray, QVector3D& meetingPoint) const;

    /// Returns the position moved along the direction onto the plane, or unchanged where
    /// intersect() returns false.
    QVector3D project(const QVector3D& position, const QVector3D& direction) const;

    /// Maps the point by the matrix and the normal by its inverse transpose, and normalizes the
    /// normal again. Keeps the normal if the matrix has no inverse. A matrix that magnifies by 1e5
    /// or more makes the plane degenerate.
    void transform(const QMatrix4x4& matrix);

private:
    QVector3D point;
    QVector3D normal;
};

} // namespace primitives
