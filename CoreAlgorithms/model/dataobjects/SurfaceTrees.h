// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <QMatrix4x4>

#include <memory>

/// A surface that is made of several shapes, each with a place of its own in a tree.
///
/// Trees are moved as surface models are, relatively, but nothing is left to commit: the meshes
/// stay as they are, the placement alone changes.
class COREALGORITHMS_MODEL_EXPORT SurfaceTree : public dataobject::SurfaceObject
{
    COREALGORITHMS_TYPE(SurfaceTree, SurfaceObject)

public:
    /// Owned by the tree; null for one that has no shapes yet.
    virtual geometry::ShapeNode* getShapeNode() const;
    virtual void setShapeNode(std::unique_ptr<geometry::ShapeNode> tree);

    /// From the frame of the root into the scene.
    virtual const QMatrix4x4& getObjectTransform() const;
    /// Moves the tree relative to where it stands: the object transform becomes matrix * object
    /// transform.
    virtual void setObjectTransform(const QMatrix4x4& matrix);

    /// Round the placed box of the root; null for a tree without shapes.
    primitives::BoundingBox getSceneBoundingBox() const override;

private:
    std::unique_ptr<geometry::ShapeNode> shapeNode;
    QMatrix4x4 objectTransform;
};
