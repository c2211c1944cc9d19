// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>

#include <QVector3D>

class QMatrix4x4;

namespace primitives {

/// Represents an axis-aligned box from a minimum to a maximum corner in single precision, in the
/// frame and unit of the caller.
///
/// The box of six zeros is the null box, which stands for nothing. Default construction gives it,
/// and the first point or box that is added replaces it. The box of a single point elsewhere is not
/// null. The null box is valid, because its corners are in order. A box that holds only the origin
/// therefore cannot be distinguished from nothing.
class COREALGORITHMS_MODEL_EXPORT BoundingBox
{
public:
    /// Constructs the null box.
    BoundingBox() = default;
    /// Constructs a box from its bounds, which are stored as given.
    BoundingBox(float minX, float minY, float minZ, float maxX, float maxY, float maxZ);
    /// Constructs a box from its corners, which are stored as given.
    BoundingBox(const QVector3D& minimum, const QVector3D& maximum);

    /// Returns true if all six bounds are exactly zero.
    bool isNull() const;
    /// Returns true if all bounds are finite and no minimum exceeds its maximum, as in the null
    /// box.
    bool isValid() const;

    /// Returns true if the point is inside or on a face. The null box contains nothing.
    bool contains(const QVector3D& point) const;
    /// Returns true if the boxes overlap or touch. A null box counts as the point at the origin.
    bool intersects(const BoundingBox& other) const;

    /// Extends the box to the point; a null box becomes the box of the point. Ignores coordinates
    /// that are NaN, and leaves a null box unchanged if there is one.
    void includePoint(const QVector3D& point);
    /// Returns the smallest box around the eight mapped corners, or the null box for a null box.
    BoundingBox transformed(const QMatrix4x4& matrix) const;
    /// Returns the smallest box around both boxes. Ignores a null box.
    static BoundingBox createUnionOf(const BoundingBox& a, const BoundingBox& b);

    /// Returns the minimum corner.
    QVector3D min() const { return minimumCorner; }
    /// Returns the maximum corner.
    QVector3D max() const { return maximumCorner; }
    /// Returns a corner by its number, 0 to 7: it has the maximum along x, y and z where bit 0, 1
    /// and 2 of the number is set. Ignores higher bits.
    QVector3D corner(int number) const;
    /// Returns the center.
    QVector3D center() const;
    /// Returns the z coordinate of the center.
    float centerZ() const;

    /// Returns deltaX().
    float width() const { return deltaX(); }
    /// Returns deltaY().
    float depth() const { return deltaY(); }
    /// Returns deltaZ().
    float height() const { return deltaZ(); }
    /// Returns the extent along x, maximum minus minimum.
    float deltaX() const;
    /// Returns the extent along y, maximum minus minimum.
    float deltaY() const;
    /// Returns the extent along z, maximum minus minimum.
    float deltaZ() const;

    friend bool operator==(const BoundingBox& a, const BoundingBox& b)
    {
        return a.minimumCorner == b.minimumCorner && a.maximumCorner == b.maximumCorner;
    }

private:
    QVector3D minimumCorner;
    QVector3D maximumCorner;
};

} // namespace primitives
