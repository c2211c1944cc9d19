// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/JawParts.h>

QVector3D RotatableSurgeryPlanningPart::getRotationPosition() const
{
    return rotationPosition;
}

void RotatableSurgeryPlanningPart::setRotationPosition(const QVector3D& positionMm)
{
    rotationPosition = positionMm;
    changed();
}

std::pair<QVector3D, QVector3D> Mandibula::getCondylePositions() const
{
    return condylePositions;
}

void Mandibula::setCondylePositions(const std::pair<QVector3D, QVector3D>& leftAndRightMm,
                                    bool placeAutoRotationPoints)
{
    condylePositions = leftAndRightMm;
    if (placeAutoRotationPoints) {
        leftAutoRotationPoint->setPosition(leftAndRightMm.first);
        rightAutoRotationPoint->setPosition(leftAndRightMm.second);
    }
    changed();
}

std::shared_ptr<Point> Mandibula::getLeftAutoRotationPoint() const
{
    return leftAutoRotationPoint;
}

std::shared_ptr<Point> Mandibula::getRightAutoRotationPoint() const
{
    return rightAutoRotationPoint;
}

QList<QVector3D> Mandibula::getOcclusalPlanePositions() const
{
    return occlusalPlanePositions;
}

void Mandibula::setOcclusalPlanePositions(const QList<QVector3D>& positionsMm)
{
    occlusalPlanePositions = positionsMm;
    changed();
}
