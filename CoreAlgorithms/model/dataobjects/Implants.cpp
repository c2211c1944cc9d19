// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Implants.h>

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

#include <utility>

namespace dataobject {

QString Implant3D::getClassTypeId()
{
    return QStringLiteral("Implant3D");
}

bool Implant3D::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || DataObject::isOfType(classTypeId);
}

const ImplantDimensions& Implant3D::getDimensions() const
{
    return dimensions;
}

void Implant3D::setDimensions(const ImplantDimensions& measures)
{
    dimensions = measures;
    changed();
}

const QMatrix4x4& Implant3D::getObjectTransform() const
{
    return objectTransform;
}

void Implant3D::setObjectTransform(const QMatrix4x4& sceneFromImplant,
                                   TransformManipulationType manipulation)
{
    objectTransform = sceneFromImplant;
    lastManipulation = manipulation;
    changed();
}

QString AnchorPin3D::getClassTypeId()
{
    return QStringLiteral("AnchorPin3D");
}

bool AnchorPin3D::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || DataObject::isOfType(classTypeId);
}

geometry::ShapeNode* AnchorPin3D::getShapeNode()
{
    return shapeNode.get();
}

void AnchorPin3D::setShapeNode(std::unique_ptr<geometry::ShapeNode> tree)
{
    shapeNode = std::move(tree);
    changed();
}

const QMatrix4x4& AnchorPin3D::getObjectTransform() const
{
    return objectTransform;
}

void AnchorPin3D::setObjectTransform(const QMatrix4x4& sceneFromPin,
                                     TransformManipulationType manipulation)
{
    objectTransform = sceneFromPin;
    lastManipulation = manipulation;
    changed();
}

QString Nerve::getClassTypeId()
{
    return QStringLiteral("Nerve");
}

bool Nerve::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || Surface3DModel::isOfType(classTypeId);
}

std::shared_ptr<GuidingSpline> Nerve::getGuidingLine() const
{
    return line;
}

void Nerve::setGuidingLine(std::shared_ptr<GuidingSpline> guidingLine)
{
    line = std::move(guidingLine);
    changed();
}

} // namespace dataobject
