// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QMatrix4x4>

/// Where a surface scan was put, step by step. Each matrix moves the scan on from where the one
/// before left it.
struct SurfaceScanAlignment
{
    QMatrix4x4 initialTransform;      ///< the placement given at import
    QMatrix4x4 freehandTransform;     ///< the user's alignment by hand, after the initial one
    QMatrix4x4 registrationTransform; ///< the result of the automatic registration
    QMatrix4x4
        referenceTransform; ///< the planning transform in force when the alignment was stored
    bool freehandAligned =
        false; ///< the freehand result is in force; else that of the registration

    /// All fields compare exactly.
    friend bool operator==(const SurfaceScanAlignment&, const SurfaceScanAlignment&) = default;
};

/// A surface with an alignment. The mesh of its model always stands where the alignment in force
/// has put it; whoever changes a matrix here moves the model too.
class COREALGORITHMS_MODEL_EXPORT AlignableSurface
{
public:
    AlignableSurface() = default;
    AlignableSurface(const AlignableSurface&) = delete;
    AlignableSurface& operator=(const AlignableSurface&) = delete;
    virtual ~AlignableSurface();

    /// Null for a surface whose model is not there (yet).
    virtual const Surface3DModel* getSurfaceModel() const = 0;
    virtual Surface3DModel* getSurfaceModel() = 0;

    /// Replaces all four matrices and the flag; the mesh stays where it is.
    virtual void setSurfaceScanAlignment(const SurfaceScanAlignment& newAlignment) = 0;
    virtual QMatrix4x4 getReferenceTransform() const = 0;
    virtual QMatrix4x4 getInitialTransform() const = 0;
    virtual QMatrix4x4 getRegistrationTransform() const = 0;
    virtual bool isFreehandAligned() const = 0;
    virtual void setFreehandAligned(bool aligned) = 0;
    virtual QMatrix4x4 getFreehandTransform() const = 0;
    /// The mesh stays where it is.
    virtual void setFreehandTransform(const QMatrix4x4& matrix) = 0;

    virtual JawType getJawType() const = 0;
};

/// A scan of a surface, for instance of a jaw with its teeth or of a plaster cast: model and
/// alignment in one. A new one has identity matrices, the registration in force and no jaw.
class COREALGORITHMS_MODEL_EXPORT SurfaceScan : public Surface3DModel, public AlignableSurface
{
    COREALGORITHMS_TYPE(SurfaceScan, Surface3DModel)

public:
    const Surface3DModel* getSurfaceModel() const override;
    Surface3DModel* getSurfaceModel() override;

    virtual const SurfaceScanAlignment& getSurfaceScanAlignment() const;
    void setSurfaceScanAlignment(const SurfaceScanAlignment& newAlignment) override;
    QMatrix4x4 getReferenceTransform() const override;
    QMatrix4x4 getInitialTransform() const override;
    /// The mesh stays where it is.
    virtual void setInitialTransform(const QMatrix4x4& matrix);
    QMatrix4x4 getRegistrationTransform() const override;
    bool isFreehandAligned() const override;
    void setFreehandAligned(bool aligned) override;
    QMatrix4x4 getFreehandTransform() const override;
    void setFreehandTransform(const QMatrix4x4& matrix) override;

    JawType getJawType() const override;
    virtual void setJawType(JawType type);

private:
    SurfaceScanAlignment alignment;
    JawType jaw = NoJaw;
};

/// A surface scan of one jaw's teeth, from which bites are set up.
class COREALGORITHMS_MODEL_EXPORT DentalScan : public SurfaceScan
{
    COREALGORITHMS_TYPE(DentalScan, SurfaceScan)
};
