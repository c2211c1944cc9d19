// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/AttachablePoint.h>

namespace dataobject {

QVector3D AttachablePoint::getPosition() const
{
    return position;
}

void AttachablePoint::setPosition(const QVector3D& positionMm)
{
    position = positionMm;
    changed();
}

void AttachablePoint::applyTransform(const QMatrix4x4& matrix)
{
    position = matrix.map(position);
    changed();
}

} // namespace dataobject
