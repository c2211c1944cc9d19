// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>

#include <QQuaternion>

class QVector3D;

namespace math {

/// Computes rotations between directions.
class COREALGORITHMS_MODEL_EXPORT Operations
{
public:
    /// Returns the shortest rotation that turns the direction `from` into the direction `to`;
    /// lengths are ignored. Opposite directions (within 1e-6 rad) are turned by exactly 180 degrees
    /// about `axis`, which should be perpendicular to them. Returns the identity if a vector that
    /// is needed has no direction (Qt's normalized() gives zero) or is not finite.
    static QQuaternion getRotationTo(const QVector3D& from, const QVector3D& to,
                                     const QVector3D& axis);
};

} // namespace math
