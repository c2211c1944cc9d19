// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/SurfaceTrees.h>

#include <utility>

geometry::ShapeNode* SurfaceTree::getShapeNode() const
{
    return shapeNode.get();
}

void SurfaceTree::setShapeNode(std::unique_ptr<geometry::ShapeNode> tree)
{
    shapeNode = std::move(tree);
    changed();
}

const QMatrix4x4& SurfaceTree::getObjectTransform() const
{
    return objectTransform;
}

void SurfaceTree::setObjectTransform(const QMatrix4x4& matrix)
{
    objectTransform = matrix * objectTransform;
    changed();
}

primitives::BoundingBox SurfaceTree::getSceneBoundingBox() const
{
    const geometry::ShapeNode* root = getShapeNode();
    return root ? root->getBoundingBox().transformed(getObjectTransform() * root->getTransform())
                : primitives::BoundingBox();
}
