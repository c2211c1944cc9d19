// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector3D>

#include <Eigen/Core>

/// Between the vectors of Qt, in which positions are kept, and those of Eigen, for arithmetic in
/// double precision.
namespace planner {

inline Eigen::Vector3d toEigen(const QVector3D& v)
{
    return {static_cast<double>(v.x()), static_cast<double>(v.y()), static_cast<double>(v.z())};
}

inline QVector3D toQt(const Eigen::Vector3d& v)
{
    return {static_cast<float>(v.x()), static_cast<float>(v.y()), static_cast<float>(v.z())};
}

} // namespace planner
