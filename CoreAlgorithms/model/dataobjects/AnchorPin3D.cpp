// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/AnchorPin3D.h>

#include <utility>

namespace dataobject {

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

} // namespace dataobject
