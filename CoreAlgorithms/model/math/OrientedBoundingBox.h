// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QList>
#include <QMatrix4x4>

namespace primitives {

/// Represents a box with a placement: the axis-aligned box in a local frame, and the matrix that
/// maps that frame into the outer one.
class COREALGORITHMS_MODEL_EXPORT OrientedBoundingBox
{
public:
    /// Constructs a box that is placed by the identity.
    explicit OrientedBoundingBox(const BoundingBox& localBox);

    /// Returns the same box with the matrix applied after its placement.
    OrientedBoundingBox transformed(const QMatrix4x4& matrix) const;

    /// Returns true if the point is inside or on a face, tested in the local frame. A null box
    /// contains nothing, nor does a box whose placement cannot be inverted.
    bool isInside(const QVector3D& point) const;
    /// Returns the axis-aligned box around the placed corners, or the null box for a null box.
    BoundingBox getAABBOfTransformedBoundingBox() const;
    /// Returns the eight placed corners; corner i has the local maximum along x, y and z where bit
    /// 0, 1 and 2 of i is set.
    QList<QVector3D> getCornerPoints() const;

private:
    OrientedBoundingBox(const BoundingBox& localBox, const QMatrix4x4& placement);

    BoundingBox box;
    QMatrix4x4 outerFromLocal;
    bool invertible = true; // before localFromOuter, whose initializer sets it
    QMatrix4x4 localFromOuter;
};

} // namespace primitives
