// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>

#include <QVector3D>

class QMatrix4x4;

namespace primitives {

class QRay3D;

/// A plane as a point on it and its unit normal, all in single precision.
///
/// The normal is normalised by QVector3D::normalized(), whose tests are fuzzy: a length within 1e-5
/// of 1 is kept, a length of at most 1e-5 gives the zero normal. A plane with the zero normal is
/// degenerate: every signed distance is zero, every direction is parallel to it.
class COREALGORITHMS_MODEL_EXPORT Plane
{
public:
    /// Through three points, normal along (b - a) x (c - a), point a. Points in a line give a
    /// degenerate plane where the product comes out as zero; else its rounding gives the normal.
    Plane(const QVector3D& a, const QVector3D& b, const QVector3D& c);
    Plane(const QVector3D& pointOnPlane, const QVector3D& normalDirection);

    QVector3D getPoint() const { return point; }
    QVector3D getNormal() const { return normal; }

    /// normal . (position - point): positive on the side that the normal points to.
    float getSignedDistance(const QVector3D& position) const;

    /// Where the whole line of the ray, before and behind its origin, meets the plane. False, with
    /// `meetingPoint` left alone, if the line is parallel (normal . direction is zero) or the way
    /// to the plane or the meeting point is not finite.
    bool intersect(const QRay3D& ray, QVector3D& meetingPoint) const;

    /// The position moved along the direction onto the plane; the position itself where intersect()
    /// finds nothing.
    QVector3D project(const QVector3D& position, const QVector3D& direction) const;

    /// Maps the point by the matrix and the normal by its inverse transpose, then normalises the
    /// normal again. A matrix without inverse leaves the normal as it is; one that magnifies 1e5
    /// times or more makes the plane degenerate (see above).
    void transform(const QMatrix4x4& matrix);

private:
    QVector3D point;
    QVector3D normal;
};

} // namespace primitives
