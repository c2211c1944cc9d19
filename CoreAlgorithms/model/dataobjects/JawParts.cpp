// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/JawParts.h>

QString SurgeryPlanningPart::getClassTypeId()
{
    return QStringLiteral("SurgeryPlanningPart");
}

bool SurgeryPlanningPart::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || Surface3DModel::isOfType(classTypeId);
}

QString RotatableSurgeryPlanningPart::getClassTypeId()
{
    return QStringLiteral("RotatableSurgeryPlanningPart");
}

bool RotatableSurgeryPlanningPart::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || SurgeryPlanningPart::isOfType(classTypeId);
}

QVector3D RotatableSurgeryPlanningPart::getRotationPosition() const
{
    return rotationPosition;
}

void RotatableSurgeryPlanningPart::setRotationPosition(const QVector3D& positionMm)
{
    rotationPosition = positionMm;
    changed();
}

QString Maxilla::getClassTypeId()
{
    return QStringLiteral("Maxilla");
}

bool Maxilla::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || RotatableSurgeryPlanningPart::isOfType(classTypeId);
}

QString Mandibula::getClassTypeId()
{
    return QStringLiteral("Mandibula");
}

bool Mandibula::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || RotatableSurgeryPlanningPart::isOfType(classTypeId);
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

QString FrontSegment::getClassTypeId()
{
    return QStringLiteral("FrontSegment");
}

bool FrontSegment::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || RotatableSurgeryPlanningPart::isOfType(classTypeId);
}

QString LeftSegment::getClassTypeId()
{
    return QStringLiteral("LeftSegment");
}

bool LeftSegment::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || RotatableSurgeryPlanningPart::isOfType(classTypeId);
}

QString RightSegment::getClassTypeId()
{
    return QStringLiteral("RightSegment");
}

bool RightSegment::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || RotatableSurgeryPlanningPart::isOfType(classTypeId);
}
