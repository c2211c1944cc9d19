// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>

QString OcclusionBase::getClassTypeId()
{
    return QStringLiteral("OcclusionBase");
}

bool OcclusionBase::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || DataObject::isOfType(classTypeId);
}

const std::map<QString, QMatrix4x4>& OcclusionBase::getTransformations() const
{
    return transformations;
}

void OcclusionBase::setTransformations(const std::map<QString, QMatrix4x4>& matrices)
{
    transformations = matrices;
    changed();
}

bool OcclusionBase::isSegmental() const
{
    return segmental;
}

void OcclusionBase::setSegmental(bool isCut)
{
    segmental = isCut;
    changed();
}

QString Occlusion::getClassTypeId()
{
    return QStringLiteral("Occlusion");
}

bool Occlusion::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || OcclusionBase::isOfType(classTypeId);
}

namespace dataobject {

QString VirtualOcclusion::getClassTypeId()
{
    return QStringLiteral("VirtualOcclusion");
}

bool VirtualOcclusion::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || OcclusionBase::isOfType(classTypeId);
}

} // namespace dataobject
