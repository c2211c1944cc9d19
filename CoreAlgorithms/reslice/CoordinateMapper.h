// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/math/Plane.h>

#include <QLineF>
#include <QList>
#include <QPointF>
#include <QVector3D>

#include <tuple>
#include <utility>

class CephReslice;
class PlanarReslice;

/// Whether a 3-D point lies within the slab that a reslice shows.
enum class PointInPlane { InPlane = 0, OutOfPlane = 1 };
/// Whether it lies within the slab and inside the reslice's rectangle.
enum class PointInSlice { InSlice = 0, OutOfSlice = 1 };
/// Whether some part of a 3-D segment lies within the slab.
enum class LineInPlane { InPlane = 0, OutOfPlane = 1 };

/// Where does a position of the planning scene appear in a reslice view, and where in the scene is a point of
/// the view?
///
/// World points are in mm of the CT volume's frame, view points in the reslice's length unit (mm) from the
/// upper-left corner. In the local frame of a planar reslice the plane is z = 0, the rectangle 0 <= x <=
/// width, 0 <= y <= height, and the slab |z| <= h with h half the sample size along z; all bounds are
/// inclusive. The view point of a local (x, y) is
///     x2D = mirrored horizontally ? width - x : x,      y2D = mirrored vertically ? y : height - y.
/// A view that is not mirrored thus has its y axis pointing down while the local one points up.
///
/// (1) _2D_To_3D_Planar(r, _3D_To_2D_PlanarPoint(r, p)) is the foot of p on the plane of r, for all mirrorings.
/// (2) _2D_To_3D_Ceph and _3D_To_2D_Ceph are inverse to each other in the plane of the projection.
/// (3) Element i of mapAllPointsOntoReslice has the bits of _3D_To_2D_Planar of point i.
/// Laws 1 and 2 hold within single-precision rounding: for rigid placements and coordinates below 512 mm,
/// within 32 * 2^-16 mm.
///
/// Every operation asks the reslice for its current geometry and keeps nothing. A null reslice gives (0, 0),
/// (0, 0, 0) or the null line, and "outside". A transformation without inverse is inverted to the identity, as
/// QMatrix4x4::inverted() does. A local z that is NaN, or infinite where the slab is finite, is outside the slab,
/// an x or y that is NaN outside the rectangle. A segment with NaN at both ends gives the null line; one that
/// starts in the slab and ends at infinity gives a line whose second point has no meaning.
class COREALGORITHMS_EXPORT CoordinateMapper
{
public:
    CoordinateMapper() = default;
    CoordinateMapper(const CoordinateMapper&) = default;
    CoordinateMapper& operator=(const CoordinateMapper&) = default;
    virtual ~CoordinateMapper();

    /// View point of a world point, whatever the flags say: outside the slab it is that of the perpendicular
    /// foot.
    static QPointF _3D_To_2D_Planar(const PlanarReslice* reslice, QVector3D point, bool& inPlane,
                                    bool& inSlice);
    static std::tuple<QPointF, PointInPlane, PointInSlice> _3D_To_2D_Planar(const PlanarReslice* reslice,
                                                                            QVector3D point);
    static QPointF _3D_To_2D_PlanarPoint(const PlanarReslice* reslice, QVector3D point);

    /// The part of the segment from p1 to p2 that lies within the slab, in view coordinates; it may leave the
    /// rectangle. It starts at the end that lies inside, also if that is p2; a segment through the whole slab
    /// starts at the upper face (z = h). Null line and false if no part lies within.
    static QLineF _3D_To_2D_Line_Planar(const PlanarReslice* reslice, QVector3D p1, QVector3D p2,
                                        bool& inPlane);
    static std::pair<QLineF, LineInPlane> _3D_To_2D_Line_Planar(const PlanarReslice* reslice, QVector3D p1,
                                                                QVector3D p2);

    /// World point, on the reslice's plane, of a view point.
    static QVector3D _2D_To_3D_Planar(const PlanarReslice* reslice, QPointF point);

    /// View point in a cephalometric projection: (x, height - y), with width - x if the point of view has the
    /// value 1. The mirroring of the reslice plays no part.
    static QPointF _3D_To_2D_Ceph(const CephReslice* reslice, QVector3D point);
    static QVector3D _2D_To_3D_Ceph(const CephReslice* reslice, QPointF point);

    /// World point of a view point, moved onto a plane of the world along direction 0 x direction 1 of the
    /// reslice. The direction is taken in world coordinates although the point is moved in the local frame,
    /// so the result is the projection along the view only for reslices whose normal runs along the world's z
    /// axis. A plane parallel to the direction leaves the point on the reslice.
    static QVector3D map2DPointTo3DPointOnPlane(const PlanarReslice& reslice, QPointF point,
                                                primitives::Plane plane);

    /// View point and slab verdict of every point, in order; none is left out. Linear in the number of
    /// points, the transformation is inverted once.
    static QList<std::pair<QPointF, PointInPlane>> mapAllPointsOntoReslice(const QList<QVector3D>& points,
                                                                           const PlanarReslice& reslice);

private:
    friend struct CoordinateMapperTestAccess;

    /// Where the line from a towards b meets the upper (z = h) or lower (z = -h) face of the slab. (0, 0, 0)
    /// if the line is parallel to the face, unless the host's plane writes something else then.
    static QVector3D intersectWithUpperPlane(const PlanarReslice* reslice, QVector3D a, QVector3D b);
    static QVector3D intersectWithLowerPlane(const PlanarReslice* reslice, QVector3D a, QVector3D b);
};
