// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>

namespace test {

/// Returns a translation in mm.
inline QMatrix4x4 translation(float x, float y, float z)
{
    QMatrix4x4 matrix;
    matrix.translate(x, y, z);
    return matrix;
}

} // namespace test
