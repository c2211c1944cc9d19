// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>
#include <QVector3D>

#include <algorithm>
#include <cmath>
#include <span>

/// The checks of vectors and matrices for NaN and infinity, for the library and the bundled model.
namespace finiteness {

/// Returns true if no coordinate is NaN or infinite.
inline bool isFinite(const QVector3D& vector)
{
    return std::isfinite(vector.x()) && std::isfinite(vector.y()) && std::isfinite(vector.z());
}

/// Returns true if no entry is NaN or infinite.
inline bool isFinite(const QMatrix4x4& matrix)
{
    return std::ranges::all_of(std::span(matrix.constData(), 16),
                               [](float entry) { return std::isfinite(entry); });
}

/// Returns the matrix, or the identity for a matrix that is not finite.
inline QMatrix4x4 finiteOrIdentity(const QMatrix4x4& matrix)
{
    return isFinite(matrix) ? matrix : QMatrix4x4();
}

} // namespace finiteness
