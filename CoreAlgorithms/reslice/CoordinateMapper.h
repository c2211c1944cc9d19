// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/math/Plane.h>
#include <CoreAlgorithms/model/math/Range.h>

#include <QLineF>
#include <QList>
#include <QMatrix4x4>
#include <QPointF>
#include <QVector3D>

#include <tuple>
#include <utility>

class CephReslice;
class PanoramicReslice;
class PlanarReslice;
class Reslice;

/// Whether a 3-D point lies within the slab that a reslice shows.
enum class PointInPlane { InPlane = 0, OutOfPlane = 1 };
/// Whether it lies within the slab and inside the reslice's rectangle.
enum class PointInSlice { InSlice = 0, OutOfSlice = 1 };
/// Whether some part of a 3-D segment lies within the slab.
enum class LineInPlane { InPlane = 0, OutOfPlane = 1 };

/// Where does a position of the planning scene appear in a reslice view, and where in the scene is
/// a point of the view?
///
/// World points are in mm of the CT volume's frame, view points in the reslice's length unit (mm)
/// from the upper-left corner. In the local frame of a planar reslice the plane is z = 0, the
/// rectangle 0 <= x <= width, 0 <= y <= height, and the slab |z| <= h with h half the sample size
/// along z; all bounds are inclusive. The view point of a local (x, y) is
///     x2D = mirrored horizontally ? width - x : x
///     y2D = mirrored vertically ? y : height - y
/// A view that is not mirrored thus has its y axis pointing down while the local one points up.
///
/// A panoramic reslice is a ribbon along a path p(0) .. p(n - 1) of samples that count as one
/// column, sx (sample size x), apart. Segment i runs from p(i) to p(i + 1); in its frame, with axes
/// along the segment, up (the guiding line's upper direction) and their cross product, a point has
/// the coordinates along, height (from the lower end of the vertical range) and depth. Its view
/// point is
///     x2D = i sx + along         (width - that if mirrored horizontally)
///     y2D = (max - min) - height (height of the view - that if mirrored vertically)
/// Here y2D points down without mirroring. The slab is |depth| <= h, with h half the thickness for
/// a reslice of type 1 and 0.5 for others; "in slice" is |depth| <= sx.
///
/// (1) _2D_To_3D_Planar(r, _3D_To_2D_PlanarPoint(r, p)) is the foot of p on the plane of r, for all
/// mirrorings. (2) _2D_To_3D_Ceph and _3D_To_2D_Ceph are inverse to each other in the plane of the
/// projection. (3) Element i of mapAllPointsOntoReslice has the bits of _3D_To_2D_Planar or
/// _3D_To_2D_Panoramic of point i. (4) _3D_To_2D_PanoramicPoint(r, _2D_To_3D_Panoramic(r, q), true)
/// is q for the inner columns, all mirrorings. Laws 1 and 2 hold within single-precision rounding:
/// for rigid placements and coordinates below 512 mm, within 32 * 2^-16 mm. Law 4 needs samples one
/// column apart and an upper direction of unit length, square to the path; for paths that bend by
/// up to 0.04 radians a column, columns of 0.25 mm or more and heights below 64 mm it holds within
/// 2^-8 mm.
///
/// Every operation asks the reslice for its current geometry and keeps nothing. A null reslice
/// gives (0, 0), (0, 0, 0) or the null line, and "outside". A transformation without inverse is
/// inverted to the identity, as QMatrix4x4::inverted() does. A local z that is NaN, or infinite
/// where the slab is finite, is outside the slab, an x or y that is NaN outside the rectangle. A
/// segment with NaN at both ends gives the null line; one that starts in the slab and ends at
/// infinity gives a line whose second point has no meaning. Panoramic mapping needs a guiding line
/// and a path of two samples; without them it finds nothing: (0, 0) and outside, no lines, the
/// identity. So it does for a point that is not finite.
class COREALGORITHMS_EXPORT CoordinateMapper
{
public:
    CoordinateMapper() = default;
    CoordinateMapper(const CoordinateMapper&) = default;
    CoordinateMapper& operator=(const CoordinateMapper&) = default;
    virtual ~CoordinateMapper();

    /// View point of a world point, whatever the flags say: outside the slab it is that of the
    /// perpendicular foot.
    static QPointF _3D_To_2D_Planar(const PlanarReslice* reslice, QVector3D point, bool& inPlane,
                                    bool& inSlice);
    static std::tuple<QPointF, PointInPlane, PointInSlice>
    _3D_To_2D_Planar(const PlanarReslice* reslice, QVector3D point);
    static QPointF _3D_To_2D_PlanarPoint(const PlanarReslice* reslice, QVector3D point);

    /// The part of the segment from p1 to p2 that lies within the slab, in view coordinates; it may
    /// leave the rectangle. It starts at the end that lies inside, also if that is p2; a segment
    /// through the whole slab starts at the upper face (z = h). Null line and false if no part lies
    /// within.
    static QLineF _3D_To_2D_Line_Planar(const PlanarReslice* reslice, QVector3D p1, QVector3D p2,
                                        bool& inPlane);
    static std::pair<QLineF, LineInPlane> _3D_To_2D_Line_Planar(const PlanarReslice* reslice,
                                                                QVector3D p1, QVector3D p2);

    /// World point, on the reslice's plane, of a view point.
    static QVector3D _2D_To_3D_Planar(const PlanarReslice* reslice, QPointF point);

    /// View point in a cephalometric projection: (x, height - y), with width - x if the point of
    /// view has the value 1. The mirroring of the reslice plays no part.
    static QPointF _3D_To_2D_Ceph(const CephReslice* reslice, QVector3D point);
    static QVector3D _2D_To_3D_Ceph(const CephReslice* reslice, QPointF point);

    /// World point of a view point, moved onto a plane of the world along direction 0 x direction 1
    /// of the reslice. The direction is taken in world coordinates although the point is moved in
    /// the local frame, so the result is the projection along the view only for reslices whose
    /// normal runs along the world's z axis. A plane parallel to the direction leaves the point on
    /// the reslice.
    static QVector3D map2DPointTo3DPointOnPlane(const PlanarReslice& reslice, QPointF point,
                                                primitives::Plane plane);

    /// View point and slab verdict of every point, in order; none is left out. Linear in the number
    /// of points, the transformation is inverted once.
    static QList<std::pair<QPointF, PointInPlane>>
    mapAllPointsOntoReslice(const QList<QVector3D>& points, const PlanarReslice& reslice);

    /// View point of a world point. Of the two segments at the sample nearest to it, the one with
    /// the smaller depth counts, and that before the sample if both are as deep. Outside the slab
    /// the view point is (0, 0) and the point is out of slice, unless `keepOutside` is set; "in
    /// slice" is then told by the column width alone.
    static QPointF _3D_To_2D_Panoramic(const PanoramicReslice* reslice, QVector3D point,
                                       bool& inPlane, bool& inSlice, bool keepOutside);
    static std::tuple<QPointF, PointInPlane, PointInSlice>
    _3D_To_2D_Panoramic(const PanoramicReslice* reslice, QVector3D point, bool keepOutside);
    static QPointF _3D_To_2D_PanoramicPoint(const PanoramicReslice* reslice, QVector3D point,
                                            bool keepOutside);

    /// View point in the frame of a segment, whatever the depth; the index is limited to the
    /// segments there are.
    static QPointF _3D_To_2D_PanoramicIntersection(const PanoramicReslice* reslice,
                                                   const QVector3D& point, int segmentIndex);

    /// The segment from p1 to p2, sampled every `step` mm and at p2, as a chain of lines between
    /// neighbouring samples that are both in slice. Empty for a step that is not positive, or so
    /// small that there are 2^24 samples or more. Takes at most the time of mapping its samples one
    /// by one.
    static QList<QLineF> _3D_To_2D_Line_Panoramic(const PanoramicReslice* reslice, QVector3D p1,
                                                  QVector3D p2, bool keepOutside, float step);

    /// World point, on the ribbon, of a view point. Left of the path the first segment goes on
    /// straight. Right of it the last one does, but one column late: column c lies c - n columns
    /// from the last sample, so that the columns from n - 1 to n lie between the last two samples
    /// once more. A path of one sample has no place but column 0. (0, 0, 0) where the view point,
    /// the column width or the path gives a position that is not finite.
    static QVector3D _2D_To_3D_Panoramic(const PanoramicReslice* reslice, QPointF point);
    static QVector3D _2D_To_3D_Panoramic_Helper(const QList<QVector3D>& path, const QVector3D& up,
                                                const math::Range<float>& range, float sx,
                                                QPointF point);

    /// By the reslice's run-time type: panoramic, planar or cephalometric; (0, 0, 0) for any other.
    static QVector3D _2D_To_3D(const Reslice* reslice, QPointF point);

    static QList<std::pair<QPointF, PointInPlane>>
    mapAllPointsOntoReslice(const QList<QVector3D>& points, const PanoramicReslice& reslice);

    /// The ribbon's frame at a view position: columns tangent (unit length), up (as the line has
    /// it), tangent x up (unit length) and the world point. Heights count from the middle of the
    /// view, and mirroring is not undone. From column n - 1 on, the world point is that of column c
    /// - n beyond the last sample. The identity where the frame is not finite.
    static QMatrix4x4 getPanoramicOrthonormalBasisAtPosition(const PanoramicReslice* reslice,
                                                             const QPointF& pos);

private:
    friend struct CoordinateMapperTestAccess;

    /// Where the line from a towards b meets the upper (z = h) or lower (z = -h) face of the slab.
    /// (0, 0, 0) if the line is parallel to the face, unless the host's plane writes something else
    /// then.
    static QVector3D intersectWithUpperPlane(const PlanarReslice* reslice, QVector3D a,
                                             QVector3D b);
    static QVector3D intersectWithLowerPlane(const PlanarReslice* reslice, QVector3D a,
                                             QVector3D b);

    /// The distance of a point from the upright plane through a and b, and its foot in the frame (b
    /// - a, up) at a. -1 farther than half the thickness, with `out` left alone unless
    /// `keepOutside` is set. Nothing in the library calls it.
    static float panoramicProjection(QVector3D a, QVector3D up, QVector3D b, QVector3D point,
                                     QPointF& out, float thickness, bool keepOutside);
};
