// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>
#include <QVector3D>
#include <QVector4D>

#include <Eigen/Core>

/// Positions are kept in the vectors of Qt; those of Eigen serve arithmetic in double precision.
namespace planner {

inline Eigen::Vector3d toEigen(const QVector3D& v)
{
    return {v.x(), v.y(), v.z()};
}

inline QVector3D toQt(const Eigen::Vector3d& v)
{
    return {static_cast<float>(v.x()), static_cast<float>(v.y()), static_cast<float>(v.z())};
}

inline Eigen::Matrix4d toEigen(const QMatrix4x4& matrix)
{
    return Eigen::Map<const Eigen::Matrix4f>(matrix.constData()).cast<double>(); // both by columns
}

/// Returns the matrix with the axes and the origin as its columns.
inline QMatrix4x4 frameOf(const QVector3D& x, const QVector3D& y, const QVector3D& z,
                          const QVector3D& origin)
{
    QMatrix4x4 matrix;
    matrix.setColumn(0, QVector4D(x, 0.0F));
    matrix.setColumn(1, QVector4D(y, 0.0F));
    matrix.setColumn(2, QVector4D(z, 0.0F));
    matrix.setColumn(3, QVector4D(origin, 1.0F));
    return matrix;
}

} // namespace planner
