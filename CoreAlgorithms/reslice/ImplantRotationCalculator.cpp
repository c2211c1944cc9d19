// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/ImplantRotationCalculator.h>

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

#include <QQuaternion>

#include <cmath>

QMatrix4x4 implantRotationCalculator::calculatePerpendicularRotation(
    GuidingLine& line, const QVector3D& position, const QMatrix4x4& implantTransform)
{
    const int index = ComputeIndexOnGuidingLine::getIndexOf(position, line.getOriginalPath());
    if (index < 0)
        return {};
    const QVector3D acrossArch = line.getPerpendicularDirection(index);

    QMatrix4x4 orientation = implantTransform;
    for (int row = 0; row < 3; ++row)
        orientation(row, 3) = 0.0F;
    const QVector3D local = orientation.inverted().map(acrossArch);
    if (!std::isfinite(local.x()) || !std::isfinite(local.y()))
        return {};

    const QVector3D target(local.x(), local.y(), 0.0F);
    QMatrix4x4 rotation;
    rotation.rotate(QQuaternion::rotationTo(QVector3D(0.0F, 1.0F, 0.0F), target.normalized()));
    return rotation;
}
