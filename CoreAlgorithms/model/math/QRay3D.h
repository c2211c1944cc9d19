// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector3D>

namespace primitives {

/// A ray as two vectors of single precision; the direction need not have unit length.
class QRay3D
{
public:
    QRay3D(const QVector3D& rayOrigin, const QVector3D& rayDirection)
        : start(rayOrigin), along(rayDirection)
    {}

    QVector3D origin() const { return start; }
    QVector3D direction() const { return along; }

private:
    QVector3D start;
    QVector3D along;
};

} // namespace primitives
