// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/PlacedSurfaces.h>

QString PlacedSurfaceModel::getClassTypeId()
{
    return QStringLiteral("PlacedSurfaceModel");
}

bool PlacedSurfaceModel::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || Surface3DModel::isOfType(classTypeId);
}

const QMatrix4x4& PlacedSurfaceModel::getObjectTransform() const
{
    return placement;
}

void PlacedSurfaceModel::setObjectTransform(const QMatrix4x4& sceneFromMesh)
{
    placement = sceneFromMesh;
    changed();
}

void PlacedSurfaceModel::refresh()
{
    changed();
}

QString VirtualTooth::getClassTypeId()
{
    return QStringLiteral("VirtualTooth");
}

bool VirtualTooth::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || PlacedSurfaceModel::isOfType(classTypeId);
}

namespace dataobject {

QString SurgicalTemplate3D::getClassTypeId()
{
    return QStringLiteral("SurgicalTemplate3D");
}

bool SurgicalTemplate3D::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || PlacedSurfaceModel::isOfType(classTypeId);
}

QString PreviewSurgicalTemplate::getClassTypeId()
{
    return QStringLiteral("PreviewSurgicalTemplate");
}

bool PreviewSurgicalTemplate::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || PlacedSurfaceModel::isOfType(classTypeId);
}

} // namespace dataobject
