// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>

#include <QQuaternion>

class QVector3D;

namespace math {

/// Rotations between directions.
class COREALGORITHMS_MODEL_EXPORT Operations
{
public:
    /// The shortest rotation that takes the direction `from` onto the direction `to`; lengths play
    /// no part. Opposite directions (within 1e-6 rad) are turned by exactly 180 degrees about
    /// `axis`, which should stand square to them. The identity if a vector that is needed has no
    /// direction (Qt's normalized() gives zero) or is not finite.
    static QQuaternion getRotationTo(const QVector3D& from, const QVector3D& to,
                                     const QVector3D& axis);
};

} // namespace math
