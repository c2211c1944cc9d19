// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Implants.h>

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

#include <utility>

namespace dataobject {

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
