// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector3D>

namespace primitives {

struct QRay3D
{
    QRay3D(const QVector3D& o, const QVector3D& d) : origin(o), direction(d) {}

    QVector3D origin;
    QVector3D direction;
};

} // namespace primitives
