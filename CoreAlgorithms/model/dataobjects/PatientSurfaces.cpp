// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/PatientSurfaces.h>

QString SoftTissueModel::getClassTypeId()
{
    return QStringLiteral("SoftTissueModel");
}

bool SoftTissueModel::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || Surface3DModel::isOfType(classTypeId);
}

QString Skin::getClassTypeId()
{
    return QStringLiteral("Skin");
}

bool Skin::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || Surface3DModel::isOfType(classTypeId);
}

QString OsteotomySurface::getClassTypeId()
{
    return QStringLiteral("OsteotomySurface");
}

bool OsteotomySurface::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || Surface3DModel::isOfType(classTypeId);
}

QString ShowObject::getClassTypeId()
{
    return QStringLiteral("ShowObject");
}

bool ShowObject::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || Surface3DModel::isOfType(classTypeId);
}

namespace dataobject {

QString SurgicalSplint::getClassTypeId()
{
    return QStringLiteral("SurgicalSplint");
}

bool SurgicalSplint::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || Surface3DModel::isOfType(classTypeId);
}

QString Airway::getClassTypeId()
{
    return QStringLiteral("Airway");
}

bool Airway::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || Surface3DModel::isOfType(classTypeId);
}

QString PatientSurfaceModel::getClassTypeId()
{
    return QStringLiteral("PatientSurfaceModel");
}

bool PatientSurfaceModel::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || Surface3DModel::isOfType(classTypeId);
}

} // namespace dataobject
