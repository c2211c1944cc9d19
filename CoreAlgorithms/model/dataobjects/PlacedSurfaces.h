// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

/// Represents a surface that is placed absolutely: unlike that of Surface3DModel,
/// setObjectTransform() replaces the placement. To move such a surface by a matrix M, set
/// M * getObjectTransform().
class COREALGORITHMS_MODEL_EXPORT PlacedSurfaceModel : public Surface3DModel
{
    COREALGORITHMS_TYPE(PlacedSurfaceModel, Surface3DModel)

public:
    /// Returns the matrix from the frame of the mesh into the scene; the identity at first.
    const QMatrix4x4& getObjectTransform() const override;
    /// Replaces the placement; the mesh stays in its frame. Notifies the observers.
    void setObjectTransform(const QMatrix4x4& sceneFromMesh) override;
    /// Notifies the observers; there is nothing to commit.
    void refresh() override;

private:
    QMatrix4x4 placement;
};

/// Represents a tooth that is planned but does not exist.
class COREALGORITHMS_MODEL_EXPORT VirtualTooth : public PlacedSurfaceModel
{
    COREALGORITHMS_TYPE(VirtualTooth, PlacedSurfaceModel)
};

namespace dataobject {

/// Represents a template that guides the drill, in its final form.
class COREALGORITHMS_MODEL_EXPORT SurgicalTemplate3D : public PlacedSurfaceModel
{
    COREALGORITHMS_TYPE(SurgicalTemplate3D, PlacedSurfaceModel)
};

/// Represents a template during its design. It is not a SurgicalTemplate3D.
class COREALGORITHMS_MODEL_EXPORT PreviewSurgicalTemplate : public PlacedSurfaceModel
{
    COREALGORITHMS_TYPE(PreviewSurgicalTemplate, PlacedSurfaceModel)
};

} // namespace dataobject
