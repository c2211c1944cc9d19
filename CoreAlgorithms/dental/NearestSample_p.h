// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector3D>

/// The index of the first sample of least squared distance to a point, in single precision: x * x +
/// y * y + z * z. A distance that is NaN is not less than another, and no distance is less than
/// NaN.
///
/// Every version gives the same index for every input. The size must be positive.
namespace nearestsample {

/// Eight samples at a time on machines with AVX2, elsewhere one after the other.
int find(const QVector3D& point, const QVector3D* samples, int size);

/// One sample after the other.
int findPlain(const QVector3D& point, const QVector3D* samples, int size);

} // namespace nearestsample
