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

QString Maxilla::getClassTypeId()
{
    return QStringLiteral("Maxilla");
}

bool Maxilla::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || SurgeryPlanningPart::isOfType(classTypeId);
}

QString Mandibula::getClassTypeId()
{
    return QStringLiteral("Mandibula");
}

bool Mandibula::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || SurgeryPlanningPart::isOfType(classTypeId);
}

QString FrontSegment::getClassTypeId()
{
    return QStringLiteral("FrontSegment");
}

bool FrontSegment::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || SurgeryPlanningPart::isOfType(classTypeId);
}

QString LeftSegment::getClassTypeId()
{
    return QStringLiteral("LeftSegment");
}

bool LeftSegment::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || SurgeryPlanningPart::isOfType(classTypeId);
}

QString RightSegment::getClassTypeId()
{
    return QStringLiteral("RightSegment");
}

bool RightSegment::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || SurgeryPlanningPart::isOfType(classTypeId);
}
