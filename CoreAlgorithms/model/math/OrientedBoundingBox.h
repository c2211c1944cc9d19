// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QList>
#include <QMatrix4x4>

namespace primitives {

/// A box with a placement: the axis-aligned box of a local frame, and the matrix that maps that
/// frame out.
class COREALGORITHMS_MODEL_EXPORT OrientedBoundingBox
{
public:
    /// Placed by the identity.
    explicit OrientedBoundingBox(const BoundingBox& localBox);

    /// The same box with the matrix applied after its placement.
    OrientedBoundingBox transformed(const QMatrix4x4& matrix) const;

    /// Closed, tested in the local frame. A null box contains nothing, nor does one whose
    /// placement cannot be inverted.
    bool isInside(const QVector3D& point) const;
    /// The axis-aligned box round the placed corners; of a null box, the null box.
    BoundingBox getAABBOfTransformedBoundingBox() const;
    /// The eight placed corners; corner i has the local maximum along x, y, z where bit 0, 1, 2 of
    /// i is set.
    QList<QVector3D> getCornerPoints() const;

private:
    OrientedBoundingBox(const BoundingBox& localBox, const QMatrix4x4& placement);

    BoundingBox box;
    QMatrix4x4 outerFromLocal;
    bool invertible = true; // before localFromOuter, whose initialiser sets it
    QMatrix4x4 localFromOuter;
};

} // namespace primitives
