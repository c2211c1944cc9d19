// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/Reslice.h>

#include <QMatrix4x4>

namespace meta {

/// Says from where a cephalometric projection is seen. FromLeft mirrors its x axis.
enum PointOfView : int { FromRight = 0, FromLeft = 1, FromFront = 2 };

} // namespace meta

/// Represents a projection through the whole head, as in a cephalogram.
class COREALGORITHMS_MODEL_EXPORT CephReslice : public Reslice
{
    COREALGORITHMS_TYPE(CephReslice, Reslice)

public:
    /// Returns the matrix that maps the local (x, y, 0) into the world; the identity at first.
    virtual QMatrix4x4 getTransformation() const;
    /// Sets the matrix from the local frame into the world. Notifies the observers.
    virtual void setTransformation(const QMatrix4x4& worldFromReslice);

    /// Returns the point of view; FromRight at first.
    virtual meta::PointOfView getPointOfView() const;
    /// Sets the point of view. Notifies the observers.
    virtual void setPointOfView(meta::PointOfView view);

private:
    QMatrix4x4 transformation;
    meta::PointOfView pointOfView = meta::FromRight;
};
