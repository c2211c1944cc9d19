// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Endodontics.h>

namespace dataobject {

QVector3D Apex::getPosition() const
{
    return position;
}

void Apex::setPosition(const QVector3D& positionMm)
{
    position = positionMm;
    changed();
}

QVector3D RootCanal::getBasePosition() const
{
    return basePosition;
}

void RootCanal::setBasePosition(const QVector3D& positionMm)
{
    basePosition = positionMm;
    changed();
}

} // namespace dataobject
