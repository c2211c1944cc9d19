// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QMatrix4x4>
#include <QVector3D>

namespace dataobject {

/// Represents an object with a surface in the scene: one mesh, or a tree of shapes.
class COREALGORITHMS_MODEL_EXPORT SurfaceObject : public DataObject
{
    COREALGORITHMS_TYPE(SurfaceObject, DataObject)

public:
    /// Returns the smallest box around the surface in the scene, or the null box if there is no
    /// surface.
    virtual primitives::BoundingBox getSceneBoundingBox() const = 0;
};

} // namespace dataobject

/// Represents a surface of the scene, for instance a nerve or a scan.
///
/// Surfaces are moved relatively: setObjectTransform() composes a matrix with the placement, and
/// refresh() commits it by moving the vertices. Between the two calls, the object transform holds
/// the moves that are not committed. The surface in the scene is always getMesh() moved by
/// getObjectTransform().
class COREALGORITHMS_MODEL_EXPORT Surface3DModel : public dataobject::SurfaceObject
{
    COREALGORITHMS_TYPE(Surface3DModel, dataobject::SurfaceObject)

public:
    /// Returns the mesh without the moves that are not committed.
    virtual const geometry::Mesh& getMesh() const;
    /// Replaces the mesh by one in scene coordinates; the object transform becomes the identity.
    /// Notifies the observers.
    virtual void setMesh(const geometry::Mesh& surface);

    /// Returns the matrix from the frame of the mesh into the scene: the moves that refresh() has
    /// not committed.
    virtual const QMatrix4x4& getObjectTransform() const;
    /// Moves the surface relative to its placement: the object transform becomes
    /// matrix * object transform. Notifies the observers.
    virtual void setObjectTransform(const QMatrix4x4& matrix);
    /// Moves the vertices by the object transform, which becomes the identity. Notifies the
    /// observers.
    virtual void refresh();

    /// Returns the mean of the mesh's vertices in the frame of the mesh, or (0, 0, 0) if there are
    /// none. Linear in their number.
    virtual QVector3D getCenterOfMass() const;
    /// Returns the smallest box around the vertices in the scene, or the null box if there are
    /// none. Linear in their number.
    primitives::BoundingBox getSceneBoundingBox() const override;

private:
    geometry::Mesh mesh;
    QMatrix4x4 objectTransform;
};
