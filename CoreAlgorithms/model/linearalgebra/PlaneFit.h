// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <Eigen/Core>

#include <vector>

namespace algebra {

/// A plane in double precision. The normal comes first: `primitives::Plane(point, normal)` swaps
/// the two.
struct Plane
{
    /// Unit length; the component of largest magnitude is positive.
    Eigen::Vector3d normal = Eigen::Vector3d::Zero();
    Eigen::Vector3d point = Eigen::Vector3d::Zero();
};

/// The plane of least squared distances to the points, through their centroid. Empty for fewer than
/// three points, for points in a line or in one place (spread across the line below 1e-9 of the
/// spread along it), and for points that are not finite.
COREALGORITHMS_MODEL_EXPORT utility::Optional<Plane>
fitPlane(const std::vector<Eigen::Vector3d>& points);

} // namespace algebra
