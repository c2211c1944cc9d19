// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>

#include <QVector3D>

class QMatrix4x4;

namespace primitives {

/// Axis-aligned box from a minimum to a maximum corner, single precision, frame and unit of whoever
/// fills it.
///
/// The box of six zeros is the null box: it stands for "nothing", is what default construction
/// gives, and is replaced, not extended, by the first point or box that is added. A point box
/// elsewhere is not null. The null box is valid: its corners are in order. It follows that a box
/// that holds the origin alone cannot be told from nothing.
class COREALGORITHMS_MODEL_EXPORT BoundingBox
{
public:
    BoundingBox() = default;
    BoundingBox(float minX, float minY, float minZ, float maxX, float maxY, float maxZ);
    BoundingBox(const QVector3D& minimum, const QVector3D& maximum);

    /// True if all six bounds are exactly zero.
    bool isNull() const;
    /// True if no bound is NaN or infinite and no minimum exceeds its maximum; the null box is
    /// valid.
    bool isValid() const;

    /// Closed: points on a face are inside. The null box contains nothing.
    bool contains(const QVector3D& point) const;
    /// Closed: touching boxes intersect. A null box takes part as the point at the origin.
    bool intersects(const BoundingBox& other) const;

    /// Extends the box to the point; a null box becomes the box of the point. NaN coordinates
    /// extend nothing, and leave a null box null.
    void includePoint(const QVector3D& point);
    /// The smallest box round the eight mapped corners; of a null box, the null box.
    BoundingBox transformed(const QMatrix4x4& matrix) const;
    /// The smallest box round both; a null box adds nothing.
    static BoundingBox createUnionOf(const BoundingBox& a, const BoundingBox& b);

    QVector3D min() const { return minimumCorner; }
    QVector3D max() const { return maximumCorner; }
    /// Corner 0 to 7: the maximum along x, y, z where bit 0, 1, 2 of the number is set. Higher bits
    /// are ignored.
    QVector3D corner(int number) const;
    QVector3D center() const;
    float centerZ() const;

    /// Extents, maximum minus minimum: width along x, depth along y, height along z.
    float width() const { return deltaX(); }
    float depth() const { return deltaY(); }
    float height() const { return deltaZ(); }
    float deltaX() const;
    float deltaY() const;
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
