// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceTrees.h>

#include <QMatrix4x4>
#include <QVector3D>

#include <memory>

/// A shell that is made to be worn for a while, as a tree of shapes. Moved relatively, as
/// SurfaceTree says.
class COREALGORITHMS_MODEL_EXPORT TempShell : public SurfaceTree
{
    COREALGORITHMS_TYPE(TempShell, SurfaceTree)
};

/// A device that pulls two pieces of bone apart: where it is mounted, and its shapes, which are
/// moved on their own.
class COREALGORITHMS_MODEL_EXPORT Distractor : public DataObject
{
    COREALGORITHMS_TYPE(Distractor, DataObject)

public:
    /// Null until one is set.
    virtual std::shared_ptr<SurfaceTree> getSurfaceTree() const;
    virtual void setSurfaceTree(std::shared_ptr<SurfaceTree> tree);

    /// From the device's own frame into the scene; the fourth column is its position.
    virtual QMatrix4x4 getTransform() const;
    virtual void setTransform(const QMatrix4x4& sceneFromDevice);
    /// Replaces the position in the transform, in world mm. The shapes stay where they are.
    virtual void moveTo(const QVector3D& positionMm);

private:
    std::shared_ptr<SurfaceTree> surfaceTree;
    QMatrix4x4 transform;
};
