// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/linearalgebra/PlaneFit.h>

#include <Eigen/SVD>

namespace algebra {
namespace {

// The ratio of the second singular value to the first below which the points count as a line.
// Rounding of the centroid leaves 1e-16, and control points in single precision leave 1e-7.
constexpr double kLineTolerance = 1e-9;

} // namespace

utility::Optional<Plane> fitPlane(const std::vector<Eigen::Vector3d>& points)
{
    const auto count = static_cast<Eigen::Index>(points.size());
    if (count < 3)
        return {};

    Eigen::Vector3d centroid = Eigen::Vector3d::Zero();
    for (const Eigen::Vector3d& point : points)
        centroid += point - points.front();
    centroid /= static_cast<double>(count);

    Eigen::MatrixX3d spread(count, 3);
    for (Eigen::Index i = 0; i < count; ++i)
        spread.row(i) =
            (points[static_cast<std::size_t>(i)] - points.front() - centroid).transpose();
    if (!spread.allFinite())
        return {};

    const Eigen::JacobiSVD<Eigen::MatrixX3d> decomposition(spread, Eigen::ComputeFullV);
    const Eigen::Vector3d extents = decomposition.singularValues();
    if (!(extents[1] > kLineTolerance * extents[0]))
        return {};

    Eigen::Vector3d normal = decomposition.matrixV().col(2);
    Eigen::Index largest = 0;
    normal.cwiseAbs().maxCoeff(&largest);
    if (normal[largest] < 0.0)
        normal = -normal;
    return Plane{normal, points.front() + centroid};
}

} // namespace algebra
