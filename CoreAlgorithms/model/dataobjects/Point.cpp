// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Point.h>

QVector3D Point::getPosition() const
{
    return position;
}

void Point::setPosition(const QVector3D& positionMm)
{
    position = positionMm;
    changed();
}
