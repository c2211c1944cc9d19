// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <Eigen/Core>

#include <vector>

namespace algebra {

/// Holds a plane in double precision. The normal comes first; in primitives::Plane(point, normal)
/// it comes second.
struct Plane
{
    /// Has unit length; its component of largest magnitude is positive.
    Eigen::Vector3d normal = Eigen::Vector3d::Zero();
    Eigen::Vector3d point = Eigen::Vector3d::Zero();
};

/// Returns the plane of least squared distances to the points, through their centroid. Empty for
/// fewer than three points, for points that are not finite, and for points in a line or in one
/// place (if the spread across the line is below 1e-9 of the spread along it).
COREALGORITHMS_MODEL_EXPORT utility::Optional<Plane>
fitPlane(const std::vector<Eigen::Vector3d>& points);

} // namespace algebra
