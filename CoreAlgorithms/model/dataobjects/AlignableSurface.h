// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScanAlignment.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QMatrix4x4>

class Surface3DModel;

/// Represents a surface with an alignment. Its mesh is where the alignment in force has put it: a
/// caller that changes a matrix moves the mesh too, because the setters here do not.
class COREALGORITHMS_MODEL_EXPORT AlignableSurface
{
public:
    AlignableSurface() = default;
    AlignableSurface(const AlignableSurface&) = delete;
    AlignableSurface& operator=(const AlignableSurface&) = delete;
    virtual ~AlignableSurface();

    /// Returns the surface, or null if there is none yet.
    virtual const Surface3DModel* getSurfaceModel() const = 0;
    /// Returns the surface, or null if there is none yet.
    virtual Surface3DModel* getSurfaceModel() = 0;

    /// Replaces all four matrices and the flag.
    virtual void setSurfaceScanAlignment(const SurfaceScanAlignment& newAlignment) = 0;
    /// Returns the planning transform that was in force when the alignment was stored.
    virtual QMatrix4x4 getReferenceTransform() const = 0;
    /// Returns the placement that was given at import.
    virtual QMatrix4x4 getInitialTransform() const = 0;
    /// Returns the result of the automatic registration.
    virtual QMatrix4x4 getRegistrationTransform() const = 0;
    /// Returns true if the freehand transform is in force, and false if the registration is.
    virtual bool isFreehandAligned() const = 0;
    /// Selects the freehand transform or, with false, the registration.
    virtual void setFreehandAligned(bool aligned) = 0;
    /// Returns the alignment by hand, which follows the initial transform.
    virtual QMatrix4x4 getFreehandTransform() const = 0;
    /// Replaces the alignment by hand.
    virtual void setFreehandTransform(const QMatrix4x4& matrix) = 0;

    /// Returns the jaw that the surface shows, or NoJaw.
    virtual JawType getJawType() const = 0;
};
