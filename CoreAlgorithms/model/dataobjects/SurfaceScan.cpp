// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/SurfaceScan.h>

const Surface3DModel* SurfaceScan::getSurfaceModel() const
{
    return this;
}

Surface3DModel* SurfaceScan::getSurfaceModel()
{
    return this;
}

const SurfaceScanAlignment& SurfaceScan::getSurfaceScanAlignment() const
{
    return alignment;
}

void SurfaceScan::setSurfaceScanAlignment(const SurfaceScanAlignment& newAlignment)
{
    alignment = newAlignment;
    changed();
}

QMatrix4x4 SurfaceScan::getReferenceTransform() const
{
    return alignment.referenceTransform;
}

QMatrix4x4 SurfaceScan::getInitialTransform() const
{
    return alignment.initialTransform;
}

void SurfaceScan::setInitialTransform(const QMatrix4x4& matrix)
{
    alignment.initialTransform = matrix;
    changed();
}

QMatrix4x4 SurfaceScan::getRegistrationTransform() const
{
    return alignment.registrationTransform;
}

bool SurfaceScan::isFreehandAligned() const
{
    return alignment.freehandAligned;
}

void SurfaceScan::setFreehandAligned(bool aligned)
{
    alignment.freehandAligned = aligned;
    changed();
}

QMatrix4x4 SurfaceScan::getFreehandTransform() const
{
    return alignment.freehandTransform;
}

void SurfaceScan::setFreehandTransform(const QMatrix4x4& matrix)
{
    alignment.freehandTransform = matrix;
    changed();
}

JawType SurfaceScan::getJawType() const
{
    return jaw;
}

void SurfaceScan::setJawType(JawType type)
{
    jaw = type;
    changed();
}
