// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/GuidingSpline.h>

#include <memory>

class PlanarReslice;

/// Represents a guiding spline that is drawn in a planar reslice.
class COREALGORITHMS_MODEL_EXPORT PlanarGuidingSpline : public GuidingSpline
{
    COREALGORITHMS_TYPE(PlanarGuidingSpline, GuidingSpline)

public:
    /// Returns the reslice, or null until one is set.
    virtual std::shared_ptr<PlanarReslice> getPlane() const;
    /// Sets the reslice, which may be null. Notifies the observers of data objects.
    virtual void setPlane(std::shared_ptr<PlanarReslice> reslice);

private:
    std::shared_ptr<PlanarReslice> plane;
};
