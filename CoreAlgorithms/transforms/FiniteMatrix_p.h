// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>

#include <algorithm>
#include <cmath>

namespace transforms {

/// True if no entry is NaN or infinite.
inline bool isFinite(const QMatrix4x4& matrix)
{
    return std::all_of(matrix.constData(), matrix.constData() + 16,
                       [](float entry) { return std::isfinite(entry); });
}

/// The matrix, or the identity for one that is not finite.
inline QMatrix4x4 finiteOrIdentity(const QMatrix4x4& matrix)
{
    return isFinite(matrix) ? matrix : QMatrix4x4();
}

} // namespace transforms
