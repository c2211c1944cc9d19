// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceTrees.h>

#include <QMatrix4x4>
#include <QVector3D>

#include <memory>

/// Represents a shell that is worn for a limited time, as a tree of shapes. It is moved relatively,
/// as SurfaceTree describes.
class COREALGORITHMS_MODEL_EXPORT TempShell : public SurfaceTree
{
    COREALGORITHMS_TYPE(TempShell, SurfaceTree)
};

/// Represents a device that pulls two pieces of bone apart: where it is mounted, and its shapes,
/// which are moved separately. Setters notify the observers.
class COREALGORITHMS_MODEL_EXPORT Distractor : public DataObject
{
    COREALGORITHMS_TYPE(Distractor, DataObject)

public:
    /// Returns the shapes, or null until they are set.
    virtual std::shared_ptr<SurfaceTree> getSurfaceTree() const;
    /// Sets the shapes, which may be null.
    virtual void setSurfaceTree(std::shared_ptr<SurfaceTree> tree);

    /// Returns the matrix from the device's own frame into the scene; its fourth column is the
    /// position of the device.
    virtual QMatrix4x4 getTransform() const;
    /// Sets the matrix from the device's own frame into the scene.
    virtual void setTransform(const QMatrix4x4& sceneFromDevice);
    /// Replaces the position in the transform, in world mm. Does not move the shapes.
    virtual void moveTo(const QVector3D& positionMm);

private:
    std::shared_ptr<SurfaceTree> surfaceTree;
    QMatrix4x4 transform;
};
