// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector3D>

namespace primitives {

/// Represents a ray by two vectors in single precision. The direction need not have unit length.
class QRay3D
{
public:
    /// Constructs a ray from vectors that are stored as given.
    QRay3D(const QVector3D& rayOrigin, const QVector3D& rayDirection)
        : start(rayOrigin), along(rayDirection)
    {}

    /// Returns the start of the ray.
    QVector3D origin() const { return start; }
    /// Returns the direction of the ray.
    QVector3D direction() const { return along; }

private:
    QVector3D start;
    QVector3D along;
};

} // namespace primitives
