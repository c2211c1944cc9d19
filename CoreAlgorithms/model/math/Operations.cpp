// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/math/Operations.h>

#include <CoreAlgorithms/model/Finite_p.h>

#include <QVector3D>

#include <Eigen/Geometry>

namespace math {
namespace {

// The sine of the angle from exactly opposite up to which two directions count as opposite.
// Directions that a caller computed in single precision are off by 1e-7 rad.
constexpr double kOppositeTolerance = 1e-6;

bool hasDirection(const QVector3D& vector)
{
    const QVector3D unit = vector.normalized();
    return finiteness::isFinite(unit) && !unit.isNull();
}

// Returns a vector of unit length; QVector3D::normalized() keeps lengths within 1e-5 of 1.
Eigen::Vector3d unitVector(const QVector3D& vector)
{
    return Eigen::Vector3d(vector.x(), vector.y(), vector.z()).stableNormalized();
}

} // namespace

QQuaternion Operations::getRotationTo(const QVector3D& from, const QVector3D& to,
                                      const QVector3D& axis)
{
    if (!hasDirection(from) || !hasDirection(to))
        return {};
    const Eigen::Vector3d start = unitVector(from);
    const Eigen::Vector3d end = unitVector(to);
    const Eigen::Vector3d normal = start.cross(end);
    const double sine = normal.norm();
    if (sine < kOppositeTolerance && start.dot(end) < 0.0)
        return hasDirection(axis) ? QQuaternion(0.0F, axis.normalized()) : QQuaternion();

    // These are sine and cosine of half the angle, each computed without cancellation.
    const double halfSine = 0.5 * (end - start).norm();
    const double halfCosine = 0.5 * (end + start).norm();
    const Eigen::Vector3d vector =
        sine > 0.0 ? Eigen::Vector3d(normal * (halfSine / sine)) : Eigen::Vector3d::Zero();
    return {static_cast<float>(halfCosine), static_cast<float>(vector.x()),
            static_cast<float>(vector.y()), static_cast<float>(vector.z())};
}

} // namespace math
