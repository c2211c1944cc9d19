// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector3D>

namespace dental {

/// Returns the index of the first sample of least squared distance to a point, in single precision:
/// x * x + y * y + z * z. A distance that is NaN is not less than another, and no distance is less
/// than NaN. The size must be positive.
///
/// Compares eight samples at a time on machines with AVX2, one after the other on others.
int findNearestSample(const QVector3D& point, const QVector3D* samples, int size);

/// Does the same one sample after the other on every machine, with the same index for every input.
int findNearestSamplePlain(const QVector3D& point, const QVector3D* samples, int size);

} // namespace dental
