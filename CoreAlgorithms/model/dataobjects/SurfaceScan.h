// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/AlignableSurface.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

/// Represents a scan of a surface, for instance of a jaw with its teeth or of a plaster cast. It is
/// both the surface and its alignment. In a new scan all matrices are the identity, the
/// registration is in force and there is no jaw.
///
/// The setters change the alignment only, not the mesh, and notify the observers.
class COREALGORITHMS_MODEL_EXPORT SurfaceScan : public Surface3DModel, public AlignableSurface
{
    COREALGORITHMS_TYPE(SurfaceScan, Surface3DModel)

public:
    /// Returns the scan itself.
    const Surface3DModel* getSurfaceModel() const override;
    /// Returns the scan itself.
    Surface3DModel* getSurfaceModel() override;

    /// Returns the four matrices and the flag.
    virtual const SurfaceScanAlignment& getSurfaceScanAlignment() const;
    void setSurfaceScanAlignment(const SurfaceScanAlignment& newAlignment) override;
    QMatrix4x4 getReferenceTransform() const override;
    QMatrix4x4 getInitialTransform() const override;
    /// Replaces the placement that was given at import.
    virtual void setInitialTransform(const QMatrix4x4& matrix);
    QMatrix4x4 getRegistrationTransform() const override;
    bool isFreehandAligned() const override;
    void setFreehandAligned(bool aligned) override;
    QMatrix4x4 getFreehandTransform() const override;
    void setFreehandTransform(const QMatrix4x4& matrix) override;

    JawType getJawType() const override;
    /// Sets the jaw that the scan shows.
    virtual void setJawType(JawType type);

private:
    SurfaceScanAlignment alignment;
    JawType jaw = NoJaw;
};
