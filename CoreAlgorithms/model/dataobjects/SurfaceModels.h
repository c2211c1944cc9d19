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

/// Whatever has a surface in the scene: one mesh, or a tree of shapes.
class COREALGORITHMS_MODEL_EXPORT SurfaceObject : public DataObject
{
    COREALGORITHMS_TYPE(SurfaceObject, DataObject)

public:
    /// The smallest box round the surface as it stands in the scene; null for none.
    virtual primitives::BoundingBox getSceneBoundingBox() const = 0;
};

} // namespace dataobject

/// A surface of the scene, for instance a nerve or a scan.
///
/// Surfaces are moved relatively: setObjectTransform() composes a matrix onto the placement, and
/// refresh() commits it, moving the vertices. Between the two the object transform tells what is
/// not committed yet, so that the surface in the scene is getObjectTransform() of getMesh() at any
/// time.
class COREALGORITHMS_MODEL_EXPORT Surface3DModel : public dataobject::SurfaceObject
{
    COREALGORITHMS_TYPE(Surface3DModel, SurfaceObject)

public:
    virtual const geometry::Mesh& getMesh() const;
    /// A new surface, where it stands: the object transform becomes the identity.
    virtual void setMesh(const geometry::Mesh& surface);

    /// From the frame of the mesh into the scene: the moves that refresh() has not committed.
    virtual const QMatrix4x4& getObjectTransform() const;
    /// Moves the surface relative to where it stands: the object transform becomes matrix * object
    /// transform.
    virtual void setObjectTransform(const QMatrix4x4& matrix);
    /// Moves the vertices by the object transform, which becomes the identity.
    virtual void refresh();

    /// The mean of the mesh's vertices, in the frame of the mesh; (0, 0, 0) for none. Linear in
    /// their number.
    virtual QVector3D getCenterOfMass() const;
    /// The smallest box round the vertices as they stand in the scene; null for none. Linear in
    /// their number.
    primitives::BoundingBox getSceneBoundingBox() const override;

private:
    geometry::Mesh mesh;
    QMatrix4x4 objectTransform;
};
