// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/ToothAnnotation3D.h>

ToothChart::Tooth ToothAnnotation3D::getToothType() const
{
    return tooth ? tooth->getToothType() : typeWithoutTooth;
}

void ToothAnnotation3D::setToothType(ToothChart::Tooth toothType)
{
    typeWithoutTooth = toothType;
    changed();
}

std::shared_ptr<dataobject::Tooth> ToothAnnotation3D::getTooth() const
{
    return tooth;
}

void ToothAnnotation3D::setTooth(const std::shared_ptr<dataobject::Tooth>& linkedTooth)
{
    tooth = linkedTooth;
    if (tooth)
        typeWithoutTooth = tooth->getToothType();
    changed();
}

QVector3D ToothAnnotation3D::getPosition() const
{
    return position;
}

void ToothAnnotation3D::setPosition(const QVector3D& positionMm)
{
    position = positionMm;
    changed();
}

QVector3D ToothAnnotation3D::getDirection() const
{
    return direction;
}

void ToothAnnotation3D::setDirection(const QVector3D& alongArch)
{
    direction = alongArch;
    changed();
}

CreationType ToothAnnotation3D::getCreationType() const
{
    return creationType;
}

void ToothAnnotation3D::setCreationType(CreationType type)
{
    creationType = type;
    changed();
}

void ToothAnnotation3D::applyTransform(const QMatrix4x4& matrix)
{
    position = matrix.map(position);
    direction = matrix.mapVector(direction);
    changed();
}
