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

/// Says whether a 3-D point is within the slab that a reslice shows.
enum class PointInPlane { InPlane = 0, OutOfPlane = 1 };
/// Says whether a 3-D point is within the slab and inside the reslice's rectangle.
enum class PointInSlice { InSlice = 0, OutOfSlice = 1 };
/// Says whether some part of a 3-D segment is within the slab.
enum class LineInPlane { InPlane = 0, OutOfPlane = 1 };

/// Maps between positions of the planning scene and points of the 2-D views of its reslices.
///
/// A reslice is a picture computed from a CT volume: a flat slice (planar), a surface along the
/// dental arch, unrolled (panoramic), or a projection through the whole head as in an X-ray from
/// the side (cephalometric). Use this class to draw 3-D objects into such a view, and to turn a
/// click into a position. World points are in mm of the CT volume's frame, view points in mm from
/// the upper-left corner of the view. Every operation reads the reslice's current geometry; nothing
/// is stored between calls. docs/reslice.md has drawings of the frames.
///
/// Example (examples/draw_into_a_slice.cpp):
/// \code
/// const auto [inView, inPlane, inSlice] = CoordinateMapper::_3D_To_2D_Planar(&slice, foramen);
/// if (inSlice == PointInSlice::InSlice)
///     markers.append(inView);
/// const auto [axis, axisInPlane] =
///     CoordinateMapper::_3D_To_2D_Line_Planar(&slice, apex, shoulder);
/// if (axisInPlane == LineInPlane::InPlane)
///     lines.append(axis);
/// const QVector3D clicked = CoordinateMapper::_2D_To_3D(&slice, QPointF(30.0, 20.0));
/// \endcode
///
/// A planar reslice has a local frame in which the plane is z = 0, the rectangle is 0 <= x <=
/// width, 0 <= y <= height, and the slab is |z| <= h, where h is half the sample size along z. All
/// bounds are inclusive. The view point of a local (x, y) is
///     x2D = mirrored horizontally ? width - x : x
///     y2D = mirrored vertically ? y : height - y
/// so the y axis of a view points down unless the view is mirrored vertically.
///
/// A panoramic reslice is a ribbon along a path p(0) .. p(n - 1) of samples, which count as one
/// column (sx, the sample size along x) apart. Segment i runs from p(i) to p(i + 1). In its frame,
/// whose axes run along the segment, along the guiding line's upper direction, and along their
/// cross product, a point has the coordinates along, height (from the lower end of the vertical
/// range, min to max) and depth. Its view point is
///     x2D = i sx + along,              mirrored horizontally: width - (i sx + along)
///     y2D = (max - min) - height,      mirrored vertically: view height - ((max - min) - height)
/// so this y axis points down unless mirrored. The slab is |depth| <= h, where h is half the
/// thickness for a reslice of type 1 and 0.5 for others; "in slice" means |depth| <= sx.
///
/// A null reslice gives (0, 0), (0, 0, 0), the null line, no lines or the identity, and "outside".
/// So do panoramic reslices without a guiding line or with fewer than two samples (except for
/// column 0 of _2D_To_3D_Panoramic()), and points that are not finite in panoramic views. A
/// transformation without inverse is inverted to the identity, as by QMatrix4x4::inverted().
///
/// (1) _2D_To_3D_Planar(r, _3D_To_2D_PlanarPoint(r, p)) is the foot of p on the plane of r, for all
///     mirrorings.
/// (2) _2D_To_3D_Ceph and _3D_To_2D_Ceph are inverse to each other in the plane of the projection.
/// (3) Element i of mapAllPointsOntoReslice has the bits of _3D_To_2D_Planar or _3D_To_2D_Panoramic
///     of point i.
/// (4) _3D_To_2D_PanoramicPoint(r, _2D_To_3D_Panoramic(r, q), true) is q for the inner columns, for
///     all mirrorings.
///
/// Laws 1 and 2 hold within 32 * 2^-16 mm for rigid placements and coordinates below 512 mm. Law 4
/// needs samples one column apart and an upper direction of unit length, perpendicular to the path.
/// It holds within 2^-8 mm for paths that bend by up to 0.04 radians a column, columns of 0.25 mm
/// or more and heights below 64 mm.
class COREALGORITHMS_EXPORT CoordinateMapper
{
public:
    CoordinateMapper() = default;
    CoordinateMapper(const CoordinateMapper&) = default;
    CoordinateMapper& operator=(const CoordinateMapper&) = default;
    virtual ~CoordinateMapper();

    // Planar reslices

    /// Returns the view point of a world point, whatever the flags are: a point outside the slab
    /// has the view point of its perpendicular foot. Sets `inPlane` and `inSlice`. A local z that
    /// is NaN, or infinite where the slab is finite, is outside the slab; an x or y that is NaN is
    /// outside the rectangle.
    static QPointF _3D_To_2D_Planar(const PlanarReslice* reslice, QVector3D point, bool& inPlane,
                                    bool& inSlice);
    /// Does the same and returns the flags as enumerators.
    static std::tuple<QPointF, PointInPlane, PointInSlice>
    _3D_To_2D_Planar(const PlanarReslice* reslice, QVector3D point);
    /// Does the same without the flags.
    static QPointF _3D_To_2D_PlanarPoint(const PlanarReslice* reslice, QVector3D point);

    /// Maps every point and returns its view point and slab verdict, in order; points outside the
    /// slab are kept. Inverts the transformation once and takes time linear in the number of
    /// points.
    static QList<std::pair<QPointF, PointInPlane>>
    mapAllPointsOntoReslice(const QList<QVector3D>& points, const PlanarReslice& reslice);

    /// Returns the part of the segment from p1 to p2 that is within the slab, in view coordinates;
    /// it may leave the rectangle. The line starts at the end that is inside, also if that is p2;
    /// the line of a segment through the whole slab starts at the upper face (z = h). Returns the
    /// null line and sets `inPlane` to false if no part is within the slab. A segment with NaN at
    /// both ends gives the null line; one that starts in the slab and ends at infinity gives a line
    /// whose second point has no meaning.
    static QLineF _3D_To_2D_Line_Planar(const PlanarReslice* reslice, QVector3D p1, QVector3D p2,
                                        bool& inPlane);
    /// Does the same and returns the flag as an enumerator.
    static std::pair<QLineF, LineInPlane> _3D_To_2D_Line_Planar(const PlanarReslice* reslice,
                                                                QVector3D p1, QVector3D p2);

    /// Returns the world point, on the reslice's plane, of a view point.
    static QVector3D _2D_To_3D_Planar(const PlanarReslice* reslice, QPointF point);

    /// Returns the world point of a view point, moved onto a plane of the world along direction 0 x
    /// direction 1 of the reslice. The direction is taken in world coordinates although the point
    /// is moved in the local frame, so the result is the projection along the view only for
    /// reslices whose normal runs along the world's z axis. A plane parallel to the direction
    /// leaves the point on the reslice.
    static QVector3D map2DPointTo3DPointOnPlane(const PlanarReslice& reslice, QPointF point,
                                                primitives::Plane plane);

    // Cephalometric reslices

    /// Returns the view point of a world point: (x, height - y) for the local (x, y), with width -
    /// x instead of x if the point of view has the value 1. Computes in single precision and
    /// ignores the mirroring of the reslice.
    static QPointF _3D_To_2D_Ceph(const CephReslice* reslice, QVector3D point);
    /// Returns the world point, in the plane of the projection (local z = 0), of a view point.
    static QVector3D _2D_To_3D_Ceph(const CephReslice* reslice, QPointF point);

    // Panoramic reslices

    /// Returns the view point of a world point. Of the two segments at the sample nearest to the
    /// point, the one with the smaller depth is used, and the one before the sample if both are
    /// equally deep. For a point outside the slab the result is (0, 0) and `inSlice` is false,
    /// unless `keepOutside` is set; then the view point is computed and `inSlice` depends on the
    /// column width alone.
    static QPointF _3D_To_2D_Panoramic(const PanoramicReslice* reslice, QVector3D point,
                                       bool& inPlane, bool& inSlice, bool keepOutside);
    /// Does the same and returns the flags as enumerators.
    static std::tuple<QPointF, PointInPlane, PointInSlice>
    _3D_To_2D_Panoramic(const PanoramicReslice* reslice, QVector3D point, bool keepOutside);
    /// Does the same without the flags.
    static QPointF _3D_To_2D_PanoramicPoint(const PanoramicReslice* reslice, QVector3D point,
                                            bool keepOutside);

    /// Maps every point, as _3D_To_2D_Panoramic() without `keepOutside`, and returns its view point
    /// and slab verdict, in order. Searches long lists on long paths in a tree of the path's
    /// samples.
    static QList<std::pair<QPointF, PointInPlane>>
    mapAllPointsOntoReslice(const QList<QVector3D>& points, const PanoramicReslice& reslice);

    /// Returns the view point in the frame of a segment, whatever the depth. The index is limited
    /// to the segments of the path.
    static QPointF _3D_To_2D_PanoramicIntersection(const PanoramicReslice* reslice,
                                                   const QVector3D& point, int segmentIndex);

    /// Returns the segment from p1 to p2, sampled every `step` mm and at p2, as a chain of lines
    /// between neighboring samples that are both in slice. Empty for a step that is not positive,
    /// or so small that there are 2^24 samples or more. Takes at most the time of mapping its
    /// samples one by one.
    static QList<QLineF> _3D_To_2D_Line_Panoramic(const PanoramicReslice* reslice, QVector3D p1,
                                                  QVector3D p2, bool keepOutside, float step);

    /// Returns the world point, on the ribbon, of a view point. Left of the path, the first segment
    /// continues straight. Right of it, the last one does, but one column late: column c is c - n
    /// columns from the last sample, so that the columns from n - 1 to n show the last segment once
    /// more. A path of one sample has a position at column 0 only. (0, 0, 0) where the position is
    /// not finite.
    static QVector3D _2D_To_3D_Panoramic(const PanoramicReslice* reslice, QPointF point);
    /// Does the same for the geometry of a reslice: its path, the upper direction, the vertical
    /// range and the column width `sx` in mm. The view point is that of a view without mirroring.
    static QVector3D _2D_To_3D_Panoramic_Helper(const QList<QVector3D>& path, const QVector3D& up,
                                                const math::Range<float>& range, float sx,
                                                QPointF point);

    /// Returns the ribbon's frame at a view position: columns tangent (unit length), up (as the
    /// line has it), tangent x up (unit length) and the world point. Heights count from the middle
    /// of the view, and mirroring is not undone. From column n - 1 on, the world point is that of
    /// column c - n beyond the last sample. The identity where the frame is not finite.
    static QMatrix4x4 getPanoramicOrthonormalBasisAtPosition(const PanoramicReslice* reslice,
                                                             const QPointF& pos);

    // Any reslice

    /// Returns the world point of a view point by the reslice's run-time type, which is tested in
    /// the order panoramic, planar, cephalometric. (0, 0, 0) for any other type.
    static QVector3D _2D_To_3D(const Reslice* reslice, QPointF point);

private:
    /// Returns the point where the line from a towards b meets the upper face (z = h) of the slab,
    /// or (0, 0, 0) if the line is parallel to the face.
    static QVector3D intersectWithUpperPlane(const PlanarReslice* reslice, QVector3D a,
                                             QVector3D b);
    /// Does the same for the lower face (z = -h).
    static QVector3D intersectWithLowerPlane(const PlanarReslice* reslice, QVector3D a,
                                             QVector3D b);

    /// Returns the distance of a point from the upright plane through a and b, and writes its foot
    /// to `out`, as reslice::projectOntoSegment(). The library does not call it.
    static float panoramicProjection(QVector3D a, QVector3D up, QVector3D b, QVector3D point,
                                     QPointF& out, float thickness, bool keepOutside);
};
