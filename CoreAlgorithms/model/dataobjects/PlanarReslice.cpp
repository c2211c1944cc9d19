// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/PlanarReslice.h>

QMatrix4x4 PlanarReslice::getTransformationFromResliceToWorld() const
{
    return transformation;
}

void PlanarReslice::setTransformationFromResliceToWorld(const QMatrix4x4& worldFromReslice)
{
    transformation = worldFromReslice;
    changed();
}

QVector3D PlanarReslice::getOrigin() const
{
    return transformation.column(3).toVector3D();
}

QVector3D PlanarReslice::getDirection0(bool perSample) const
{
    const QVector3D direction = transformation.column(0).toVector3D();
    return perSample ? direction * getSampleSize().x() : direction;
}

QVector3D PlanarReslice::getDirection1(bool perSample) const
{
    const QVector3D direction = transformation.column(1).toVector3D();
    return perSample ? direction * getSampleSize().y() : direction;
}
