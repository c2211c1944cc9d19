// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <QMatrix4x4>

#include <memory>

/// Represents a surface that consists of several shapes, each with its own place in a tree.
///
/// Trees are moved relatively, as surface models are, but there is nothing to commit: only the
/// placement changes, not the meshes.
class COREALGORITHMS_MODEL_EXPORT SurfaceTree : public dataobject::SurfaceObject
{
    COREALGORITHMS_TYPE(SurfaceTree, dataobject::SurfaceObject)

public:
    /// Returns the root of the shapes, which the tree owns, or null until one is set.
    virtual geometry::ShapeNode* getShapeNode() const;
    /// Replaces the shapes; null removes them. Notifies the observers.
    virtual void setShapeNode(std::unique_ptr<geometry::ShapeNode> tree);

    /// Returns the matrix from the frame of the root into the scene; the identity at first.
    virtual const QMatrix4x4& getObjectTransform() const;
    /// Moves the tree relative to its placement: the object transform becomes
    /// matrix * object transform. Notifies the observers.
    virtual void setObjectTransform(const QMatrix4x4& matrix);

    /// Returns the box around the placed box of the root, or the null box without shapes.
    primitives::BoundingBox getSceneBoundingBox() const override;

private:
    std::unique_ptr<geometry::ShapeNode> shapeNode;
    QMatrix4x4 objectTransform;
};
