// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineF>
#include <QMatrix4x4>
#include <QPointF>
#include <QVector3D>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>

namespace test {

/// Returns whether two numbers have equal bits. Any two NaN are equal: their signs and payloads are
/// not specified.
inline bool sameBits(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) ||
           std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

/// Returns whether two points have equal bits.
inline bool sameBits(const QPointF& a, const QPointF& b)
{
    return sameBits(a.x(), b.x()) && sameBits(a.y(), b.y());
}

/// Returns whether two points have equal bits.
inline bool sameBits(const QVector3D& a, const QVector3D& b)
{
    return sameBits(double(a.x()), double(b.x())) && sameBits(double(a.y()), double(b.y())) &&
           sameBits(double(a.z()), double(b.z()));
}

/// Expects exactly this point. operator== of QPointF and QVector3D would allow a small difference.
inline void expectPoint(const QPointF& point, double x, double y)
{
    EXPECT_TRUE(point.x() == x && point.y() == y)
        << "(" << point.x() << ", " << point.y() << ") is not (" << x << ", " << y << ")";
}

/// Expects exactly this point.
inline void expectPoint(const QVector3D& point, float x, float y, float z)
{
    EXPECT_TRUE(point.x() == x && point.y() == y && point.z() == z)
        << "(" << point.x() << ", " << point.y() << ", " << point.z() << ") is not (" << x << ", "
        << y << ", " << z << ")";
}

/// Expects exactly these ends of a line.
inline void expectLine(const QLineF& line, double x1, double y1, double x2, double y2)
{
    expectPoint(line.p1(), x1, y1);
    expectPoint(line.p2(), x2, y2);
}

/// Expects exactly these axes and origin as the columns of the matrix, and 0, 0, 0, 1 as its last
/// row.
inline void expectFrame(const QMatrix4x4& matrix, const QVector3D& x, const QVector3D& y,
                        const QVector3D& z, const QVector3D& origin)
{
    const QVector3D columns[4] = {x, y, z, origin};
    for (int i = 0; i < 4; ++i) {
        SCOPED_TRACE(testing::Message() << "column " << i);
        expectPoint(matrix.column(i).toVector3D(), columns[i].x(), columns[i].y(), columns[i].z());
        EXPECT_EQ(matrix.column(i).w(), i == 3 ? 1.0F : 0.0F);
    }
}

} // namespace test
