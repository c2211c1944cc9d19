// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QMatrix4x4>
#include <QVector3D>

#include <gtest/gtest.h>

#include <string>

namespace test {

/// Counts the notifications of objects.
class ChangeCounter : public patterns::Observer<DataObject, std::nullptr_t>
{
public:
    int changes = 0;

private:
    void changedEvent(DataObject* /*subject*/) override { ++changes; }
};

/// Returns a matrix that maps (x, y, z) to (10 - y, 20 + x, 30 + z), exactly for small whole
/// numbers.
inline QMatrix4x4 quarterTurnAndShift()
{
    // clang-format off
    return {0.0F, -1.0F, 0.0F, 10.0F,
            1.0F,  0.0F, 0.0F, 20.0F,
            0.0F,  0.0F, 1.0F, 30.0F,
            0.0F,  0.0F, 0.0F,  1.0F};
    // clang-format on
}

/// Expects exactly these coordinates. Unlike the comparison of two vectors, it prints them.
inline void expectVector(const QVector3D& vector, float x, float y, float z)
{
    EXPECT_TRUE(vector.x() == x && vector.y() == y && vector.z() == z)
        << "(" << vector.x() << ", " << vector.y() << ", " << vector.z() << ") is not (" << x
        << ", " << y << ", " << z << ")";
}

} // namespace test
