// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

/// A surface with a placement of its own, which is replaced instead of composed: unlike that of
/// Surface3DModel, setObjectTransform() is absolute here. Whoever moves such a surface by a matrix
/// M sets M * getObjectTransform().
class COREALGORITHMS_MODEL_EXPORT PlacedSurfaceModel : public Surface3DModel
{
    COREALGORITHMS_TYPE(PlacedSurfaceModel, Surface3DModel)

public:
    /// From the frame of the mesh into the scene; the mesh stays in its frame.
    const QMatrix4x4& getObjectTransform() const override;
    /// Replaces the placement.
    void setObjectTransform(const QMatrix4x4& sceneFromMesh) override;
    /// Announces a change; there is nothing to commit.
    void refresh() override;

private:
    QMatrix4x4 placement;
};

/// A tooth that is planned but not there.
class COREALGORITHMS_MODEL_EXPORT VirtualTooth : public PlacedSurfaceModel
{
    COREALGORITHMS_TYPE(VirtualTooth, PlacedSurfaceModel)
};

namespace dataobject {

/// A template that guides the drill, as it will be made. Placed absolutely.
class COREALGORITHMS_MODEL_EXPORT SurgicalTemplate3D : public PlacedSurfaceModel
{
    COREALGORITHMS_TYPE(SurgicalTemplate3D, PlacedSurfaceModel)
};

/// A template while it is being designed; no SurgicalTemplate3D. Placed absolutely.
class COREALGORITHMS_MODEL_EXPORT PreviewSurgicalTemplate : public PlacedSurfaceModel
{
    COREALGORITHMS_TYPE(PreviewSurgicalTemplate, PlacedSurfaceModel)
};

} // namespace dataobject
