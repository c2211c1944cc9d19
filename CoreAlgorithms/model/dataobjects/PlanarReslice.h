// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/Reslice.h>

#include <QMatrix4x4>
#include <QVector3D>

/// Represents a flat reslice. In its local frame the plane is z = 0, and the rectangle is 0 <= x <=
/// width, 0 <= y <= height, in mm. The columns of the transformation into the world are direction
/// 0, direction 1, the normal and the origin.
class COREALGORITHMS_MODEL_EXPORT PlanarReslice : public Reslice
{
    COREALGORITHMS_TYPE(PlanarReslice, Reslice)

public:
    /// Returns the matrix from the local frame into the world; the identity at first.
    virtual QMatrix4x4 getTransformationFromResliceToWorld() const;
    /// Sets the matrix from the local frame into the world. Notifies the observers.
    virtual void setTransformationFromResliceToWorld(const QMatrix4x4& worldFromReslice);

    /// Returns the local origin, a corner of the rectangle, in world mm.
    virtual QVector3D getOrigin() const;
    /// Returns the world direction of the local x axis as the transformation holds it, or with
    /// `perSample` the step of one sample.
    virtual QVector3D getDirection0(bool perSample) const;
    /// Returns the world direction of the local y axis, as getDirection0() does for x.
    virtual QVector3D getDirection1(bool perSample) const;

private:
    QMatrix4x4 transformation;
};
