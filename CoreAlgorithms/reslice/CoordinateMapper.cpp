// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/math/QRay3D.h>
#include <CoreAlgorithms/reslice/PathSearch_p.h>

#include <QVector4D>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

namespace {

// From how many points on, and from how many samples of the path on, building a search tree takes
// less time than the tree saves.
constexpr qsizetype kPointsWorthATree = 64;
constexpr qsizetype kSamplesWorthATree = 64;

// How many frames of segments are kept while points are mapped: those of the two segments at a
// sample at least, so that the next point near it finds them; 300 KiB at most, for the columns of
// several views.
constexpr qsizetype kFewestFrames = 2;
constexpr qsizetype kMostFrames = 4096;

PointInPlane toPointInPlane(bool inPlane)
{
    return inPlane ? PointInPlane::InPlane : PointInPlane::OutOfPlane;
}

// QMatrix4x4::map for many points, with the bits of that operation.
//
// Qt works out a fourth coordinate for every point and divides by it. For an affine matrix it is 1
// if the point is finite. A coordinate that is not finite makes all three results infinite or NaN
// (0 times infinity is NaN), so that a finite x tells that the fourth coordinate is 1. Without it,
// a list of points takes 1.3 instead of 1.5 times as long as a loop over an Eigen affine transform.
class PointMapping
{
public:
    explicit PointMapping(const QMatrix4x4& pointMatrix)
        : matrix(pointMatrix),
          isAffine(matrix.flags().toInt() >= QMatrix4x4::Rotation &&
                   matrix.row(3) == QVector4D(0.0F, 0.0F, 0.0F, 1.0F))
    {}

    QVector3D map(const QVector3D& point) const
    {
        if (isAffine) {
            const float* m = matrix.constData(); // by columns
            const float x = point.x() * m[0] + point.y() * m[4] + point.z() * m[8] + m[12];
            const float y = point.x() * m[1] + point.y() * m[5] + point.z() * m[9] + m[13];
            const float z = point.x() * m[2] + point.y() * m[6] + point.z() * m[10] + m[14];
            if (std::isfinite(x))
                return {x, y, z};
        }
        return matrix.map(point);
    }

private:
    QMatrix4x4 matrix;
    bool isAffine;
};

// How a view lays its rectangle over the x and y of its reslice. Each rule is its own inverse, so
// the same two functions serve both ways.
struct Mirroring
{
    // Intended: the view that is mirrored vertically is the one whose y is the local y. The local y
    // points up, the view's y points down; the application draws all its views that way.
    explicit Mirroring(const PlanarReslice& reslice)
        : Mirroring(reslice, !reslice.isMirroredVerticallyIn2D())
    {}

    // Intended: the vertical rule is opposite to that of a planar reslice. The y of a panoramic
    // reslice points down already.
    explicit Mirroring(const PanoramicReslice& reslice)
        : Mirroring(reslice, reslice.isMirroredVerticallyIn2D())
    {}

    double mapX(double x) const { return turnsX ? double(width) - x : x; }
    double mapY(double y) const { return turnsY ? double(height) - y : y; }

    // The local point on the plane of a view point.
    QVector3D unmap(const QPointF& point) const
    {
        return {static_cast<float>(mapX(point.x())), static_cast<float>(mapY(point.y())), 0.0F};
    }

    float width;
    float height;
    bool turnsX;
    bool turnsY;

private:
    Mirroring(const Reslice& reslice, bool yTurns)
        : width(reslice.getWidth()),
          height(reslice.getHeight()),
          turnsX(reslice.isMirroredHorizontallyIn2D()),
          turnsY(yTurns)
    {}
};

// A point in the view of a planar or panoramic reslice.
struct Image
{
    QPointF point;
    bool inPlane = false;
    bool inSlice = false;
};

// A planar reslice's geometry of this moment, for mapping any number of world points into its view.
class PlanarView
{
public:
    explicit PlanarView(const PlanarReslice& reslice)
        : localFromWorld(reslice.getTransformationFromResliceToWorld().inverted()),
          // Intended: a slice stands for one sample, whatever slab getThickness() tells the view to
          // show.
          halfThickness(reslice.getSampleSize().z() * 0.5F),
          mirroring(reslice)
    {}

    const QMatrix4x4& transformation() const { return localFromWorld; }

    Image map(const QVector3D& worldPoint) const { return imageOf(localFromWorld.map(worldPoint)); }

    Image imageOf(const QVector3D& local) const
    {
        const bool inPlane = halfThickness >= std::abs(local.z());
        const bool inRectangle = local.x() >= 0.0F && local.y() >= 0.0F &&
                                 mirroring.width >= local.x() && mirroring.height >= local.y();
        return {{mirroring.mapX(local.x()), mirroring.mapY(local.y())},
                inPlane,
                inPlane && inRectangle};
    }

private:
    QMatrix4x4 localFromWorld;
    float halfThickness;
    Mirroring mirroring;
};

// Calls mapPoint (world point to view point and verdict) for every point, in order.
template <typename MapPoint>
QList<std::pair<QPointF, PointInPlane>> mapAllPoints(const QList<QVector3D>& points,
                                                     const MapPoint& mapPoint)
{
    QList<std::pair<QPointF, PointInPlane>> images(points.size());
    std::transform(points.begin(), points.end(), images.begin(), mapPoint);
    return images;
}

// A panoramic reslice's geometry of this moment: a ribbon of flat segments, one column wide each,
// along a path.
//
//     up                      Segment i runs from sample i to sample i + 1.
//      |   depth              Its local coordinates are the way along it,
//      |  /                   the height above its lower edge,
//      | /                    and the depth, the distance from its plane.
//      o-------- along        o = sample i + up * (lowest height)
class PanoramicView
{
public:
    // Nothing without a reslice, a guiding line or a segment.
    static std::optional<PanoramicView> of(const PanoramicReslice* reslice)
    {
        if (!reslice)
            return std::nullopt;
        const auto line = reslice->getGuidingLine();
        const QList<QVector3D> samples = reslice->getPath();
        if (!line || samples.size() < 2)
            return std::nullopt;
        return PanoramicView(*reslice, samples, line->getUpperDirection());
    }

    const QList<QVector3D>& path() const { return samples; }

    int clampedSegment(int index) const
    {
        const auto last = std::min<qsizetype>(samples.size() - 2, std::numeric_limits<int>::max());
        return std::clamp(index, 0, static_cast<int>(last));
    }

    // Maps into the local coordinates (along, height, depth) of a segment, which must be a clamped
    // one.
    QMatrix4x4 localFromWorld(int segment) const
    {
        const QVector3D& start = samples[segment];
        QVector3D e = samples[segment + 1] - start;
        e.normalize();
        QVector3D u = up;
        u.normalize();
        const QVector3D w = QVector3D::crossProduct(e, u);
        const QVector3D o = start + up * heights.min;
        return QMatrix4x4(e.x(), u.x(), w.x(), o.x(), //
                          e.y(), u.y(), w.y(), o.y(), //
                          e.z(), u.z(), w.z(), o.z(), //
                          0.0F, 0.0F, 0.0F, 1.0F)
            .inverted();
    }

    QPointF viewPoint(int segment, const QVector3D& local) const
    {
        const float x = static_cast<float>(segment) * columnWidth + local.x();
        const float y = (heights.max - heights.min) - local.y();
        return {mirroring.mapX(x), mirroring.mapY(y)};
    }

    // Of a world point whose nearest sample is known. localIn(segment) tells the point's local
    // coordinates.
    template <typename LocalIn>
    Image imageOf(int nearestSample, bool keepOutside, const LocalIn& localIn) const
    {
        // Intended: where the two segments at the nearest sample are equally deep, the one before
        // it; the columns of existing drawings rely on it.
        int segment = clampedSegment(nearestSample - 1);
        QVector3D local = localIn(segment);
        const int next = clampedSegment(nearestSample);
        if (next != segment) {
            const QVector3D localInNext = localIn(next);
            if (std::abs(localInNext.z()) < std::abs(local.z())) {
                segment = next;
                local = localInNext;
            }
        }
        const float depth = std::abs(local.z());
        Image image;
        if (!finiteness::isFinite(local))
            return image;
        image.inPlane = halfThickness >= depth;
        if (!image.inPlane && !keepOutside)
            return image;
        // Intended: the depth is held against the width of a column, not the point against the
        // view's rectangle; the drawing of segments relies on "in slice" meaning close to the
        // curved surface.
        image.inSlice = columnWidth >= depth;
        image.point = viewPoint(segment, local);
        return image;
    }

private:
    PanoramicView(const PanoramicReslice& reslice, const QList<QVector3D>& path,
                  const QVector3D& upperDirection)
        : samples(path),
          up(upperDirection),
          heights(reslice.getVerticalRange()),
          columnWidth(reslice.getSampleSize().x()),
          halfThickness(reslice.isType(static_cast<ResliceType>(kThickSlab))
                            ? reslice.getThickness() * 0.5F
                            : 0.5F),
          mirroring(reslice)
    {}

    QList<QVector3D> samples;
    QVector3D up;
    math::Range<float> heights;
    float columnWidth;
    float halfThickness;
    Mirroring mirroring;
};

// Maps a number of points into one panoramic view, with the bits of mapping each by itself. The
// inverted matrices of the segments that were needed last are kept; for many points, the nearest
// sample is searched in a tree. Without the two, 100,000 points on 1,000 columns take about ten
// times as long.
class PanoramicPointMapper
{
public:
    PanoramicPointMapper(const PanoramicView& panoramicView, qsizetype numPoints)
        : view(panoramicView),
          frames(std::bit_ceil(static_cast<std::size_t>(std::clamp(
              std::min(numPoints, panoramicView.path().size()), kFewestFrames, kMostFrames))))
    {
        if (numPoints >= kPointsWorthATree && view.path().size() >= kSamplesWorthATree)
            tree.emplace(view.path());
    }
    PanoramicPointMapper(PanoramicView&&, qsizetype) = delete; // the view must outlive the mapper

    Image map(const QVector3D& point, bool keepOutside)
    {
        const int nearest = tree ? tree->nearestTo(point)
                                 : ComputeIndexOnGuidingLine::getIndexOf(point, view.path());
        return view.imageOf(nearest, keepOutside,
                            [&](int segment) { return frame(segment).map(point); });
    }

private:
    struct Frame
    {
        int segment = -1;
        PointMapping localFromWorld{QMatrix4x4()};
    };

    const PointMapping& frame(int segment)
    {
        Frame& kept = frames[static_cast<std::size_t>(segment) & (frames.size() - 1)];
        if (kept.segment != segment)
            kept = {segment, PointMapping(view.localFromWorld(segment))};
        return kept.localFromWorld;
    }

    const PanoramicView& view;
    std::vector<Frame> frames; // a power of two, each segment has its place
    std::optional<PathSearch> tree;
};

// The world position of a column on the path, and how the path runs there.
struct PathPosition
{
    QVector3D position;
    QVector3D tangent;
};

// On the line from one sample towards another.
PathPosition onLine(const QVector3D& from, const QVector3D& towards, const QVector3D& start,
                    float steps)
{
    const QVector3D tangent = towards - from;
    return {start + tangent * steps, tangent};
}

PathPosition leftOfPath(const QList<QVector3D>& path, float column)
{
    return onLine(path[0], path[1], path[0], column);
}

PathPosition rightOfPath(const QList<QVector3D>& path, float column)
{
    // Intended: column - n, where going on straight would take column - (n - 1): the first column
    // beyond the last sample lies one step back on the path. Positions that were stored by the
    // application rely on it.
    const qsizetype n = path.size();
    return onLine(path[n - 2], path[n - 1], path[n - 1], column - static_cast<float>(n));
}

// Where the line from a towards b meets the face of the slab that lies `height` along the normal.
QVector3D intersectWithFace(const PlanarReslice& reslice, float height, const QVector3D& a,
                            const QVector3D& b)
{
    const QVector3D direction0 = reslice.getDirection0(false);
    const QVector3D direction1 = reslice.getDirection1(false);
    QVector3D normal = QVector3D::crossProduct(direction0, direction1);
    normal.normalize();

    const QVector3D corner = reslice.getOrigin() + normal * height;
    const primitives::Plane face(corner, corner + direction0, corner + direction1);

    // Intended: normalize() leaves a vector of up to 1e-5 as it is, where normalized() would make
    // it zero: a segment of a few nanometres still meets the face.
    QVector3D towards = b - a;
    towards.normalize();

    QVector3D meetingPoint;
    face.intersect(primitives::QRay3D(a, towards), meetingPoint);
    return meetingPoint;
}

} // namespace

CoordinateMapper::~CoordinateMapper() = default;

QPointF CoordinateMapper::_3D_To_2D_Planar(const PlanarReslice* reslice, QVector3D point,
                                           bool& inPlane, bool& inSlice)
{
    inPlane = false;
    inSlice = false;
    if (!reslice)
        return {};
    const Image image = PlanarView(*reslice).map(point);
    inPlane = image.inPlane;
    inSlice = image.inSlice;
    return image.point;
}

std::tuple<QPointF, PointInPlane, PointInSlice>
CoordinateMapper::_3D_To_2D_Planar(const PlanarReslice* reslice, QVector3D point)
{
    bool inPlane = false;
    bool inSlice = false;
    const QPointF image = _3D_To_2D_Planar(reslice, point, inPlane, inSlice);
    return {image, toPointInPlane(inPlane),
            inSlice ? PointInSlice::InSlice : PointInSlice::OutOfSlice};
}

QPointF CoordinateMapper::_3D_To_2D_PlanarPoint(const PlanarReslice* reslice, QVector3D point)
{
    bool inPlane = false;
    bool inSlice = false;
    return _3D_To_2D_Planar(reslice, point, inPlane, inSlice);
}

QLineF CoordinateMapper::_3D_To_2D_Line_Planar(const PlanarReslice* reslice, QVector3D p1,
                                               QVector3D p2, bool& inPlane)
{
    inPlane = false;
    if (!reslice)
        return {};

    const QVector3D origin = reslice->getOrigin();
    const primitives::Plane plane(origin, origin + reslice->getDirection0(false),
                                  origin + reslice->getDirection1(false));
    const double distance1 = plane.getSignedDistance(p1);
    const double distance2 = plane.getSignedDistance(p2);
    const double halfThickness = reslice->getSampleSize().z() * 0.5;
    const bool inside1 = std::abs(distance1) <= halfThickness;
    const bool inside2 = std::abs(distance2) <= halfThickness;

    const auto crossingOnSideOf = [&](double distance) {
        return distance > 0.0 ? intersectWithUpperPlane(reslice, p1, p2)
                              : intersectWithLowerPlane(reslice, p1, p2);
    };
    const auto lineBetween = [reslice](const QVector3D& start, const QVector3D& end) {
        const PlanarView view(*reslice);
        return QLineF(view.map(start).point, view.map(end).point);
    };

    if (inside1) {
        inPlane = true;
        return lineBetween(p1, inside2 ? p2 : crossingOnSideOf(distance2));
    }
    if (inside2) {
        // Intended: the line starts at the end that lies inside, against the caller's order;
        // whoever draws the line relies on its second end being the clipped one.
        inPlane = true;
        return lineBetween(p2, crossingOnSideOf(distance1));
    }
    if ((distance1 > 0.0 && distance2 < 0.0) || (distance1 < 0.0 && distance2 > 0.0)) {
        // Intended: the upper face first, whichever end lies above, so that a line does not depend
        // on the direction of its segment.
        inPlane = true;
        return lineBetween(intersectWithUpperPlane(reslice, p1, p2),
                           intersectWithLowerPlane(reslice, p1, p2));
    }
    return {};
}

std::pair<QLineF, LineInPlane> CoordinateMapper::_3D_To_2D_Line_Planar(const PlanarReslice* reslice,
                                                                       QVector3D p1, QVector3D p2)
{
    bool inPlane = false;
    const QLineF line = _3D_To_2D_Line_Planar(reslice, p1, p2, inPlane);
    return {line, inPlane ? LineInPlane::InPlane : LineInPlane::OutOfPlane};
}

QVector3D CoordinateMapper::_2D_To_3D_Planar(const PlanarReslice* reslice, QPointF point)
{
    if (!reslice)
        return {};
    return reslice->getTransformationFromResliceToWorld().map(Mirroring(*reslice).unmap(point));
}

QPointF CoordinateMapper::_3D_To_2D_Ceph(const CephReslice* reslice, QVector3D point)
{
    if (!reslice)
        return {};
    const QVector3D local = reslice->getTransformation().inverted().map(point);
    const float y = reslice->getHeight() - local.y();
    const bool mirrored = static_cast<int>(reslice->getPointOfView()) == hostvalues::kMirroringPointOfView;
    const float x = mirrored ? reslice->getWidth() - local.x() : local.x();
    return {x, y};
}

QVector3D CoordinateMapper::_2D_To_3D_Ceph(const CephReslice* reslice, QPointF point)
{
    if (!reslice)
        return {};
    // Intended: y is subtracted in double and x in single precision; the bits of existing plans
    // rely on it. The mirroring of the reslice plays no part, here and on the way to the view: the
    // point of view takes its place.
    auto x = static_cast<float>(point.x());
    const auto y = static_cast<float>(double(reslice->getHeight()) - point.y());
    if (static_cast<int>(reslice->getPointOfView()) == hostvalues::kMirroringPointOfView)
        x = reslice->getWidth() - x;
    return reslice->getTransformation().map(QVector3D(x, y, 0.0F));
}

QVector3D CoordinateMapper::map2DPointTo3DPointOnPlane(const PlanarReslice& reslice, QPointF point,
                                                       primitives::Plane plane)
{
    const QMatrix4x4 worldFromLocal = reslice.getTransformationFromResliceToWorld();
    plane.transform(worldFromLocal.inverted());
    // Intended: the direction stands in world coordinates and has no unit length, although the
    // projection happens in the local frame; existing plans rely on it.
    const QVector3D direction =
        QVector3D::crossProduct(reslice.getDirection0(false), reslice.getDirection1(false));
    return worldFromLocal.map(plane.project(Mirroring(reslice).unmap(point), direction));
}

QList<std::pair<QPointF, PointInPlane>>
CoordinateMapper::mapAllPointsOntoReslice(const QList<QVector3D>& points,
                                          const PlanarReslice& reslice)
{
    const PlanarView view(reslice);
    return mapAllPoints(points, [view, localFromWorld = PointMapping(view.transformation())](
                                    const QVector3D& point) {
        const Image image = view.imageOf(localFromWorld.map(point));
        return std::pair(image.point, toPointInPlane(image.inPlane));
    });
}

QPointF CoordinateMapper::_3D_To_2D_Panoramic(const PanoramicReslice* reslice, QVector3D point,
                                              bool& inPlane, bool& inSlice, bool keepOutside)
{
    inPlane = false;
    inSlice = false;
    const auto view = PanoramicView::of(reslice);
    if (!view)
        return {};
    const int nearest = ComputeIndexOnGuidingLine::getIndexOf(point, view->path());
    const Image image = view->imageOf(nearest, keepOutside, [&](int segment) {
        return view->localFromWorld(segment).map(point);
    });
    inPlane = image.inPlane;
    inSlice = image.inSlice;
    return image.point;
}

std::tuple<QPointF, PointInPlane, PointInSlice>
CoordinateMapper::_3D_To_2D_Panoramic(const PanoramicReslice* reslice, QVector3D point,
                                      bool keepOutside)
{
    bool inPlane = false;
    bool inSlice = false;
    const QPointF image = _3D_To_2D_Panoramic(reslice, point, inPlane, inSlice, keepOutside);
    return {image, toPointInPlane(inPlane),
            inSlice ? PointInSlice::InSlice : PointInSlice::OutOfSlice};
}

QPointF CoordinateMapper::_3D_To_2D_PanoramicPoint(const PanoramicReslice* reslice, QVector3D point,
                                                   bool keepOutside)
{
    bool inPlane = false;
    bool inSlice = false;
    return _3D_To_2D_Panoramic(reslice, point, inPlane, inSlice, keepOutside);
}

QPointF CoordinateMapper::_3D_To_2D_PanoramicIntersection(const PanoramicReslice* reslice,
                                                          const QVector3D& point, int segmentIndex)
{
    const auto view = PanoramicView::of(reslice);
    if (!view)
        return {};
    const int segment = view->clampedSegment(segmentIndex);
    const QVector3D local = view->localFromWorld(segment).map(point);
    return finiteness::isFinite(local) ? view->viewPoint(segment, local) : QPointF();
}

QList<QLineF> CoordinateMapper::_3D_To_2D_Line_Panoramic(const PanoramicReslice* reslice,
                                                         QVector3D p1, QVector3D p2,
                                                         bool keepOutside, float step)
{
    const auto view = PanoramicView::of(reslice);
    if (!view)
        return {};
    QVector3D direction = p2 - p1;
    const float samples = std::floor(direction.length() / step);
    direction.normalize();
    // Samples are counted in single precision, which goes no further than 2^24.
    if (!(step > 0.0F) || !(samples < 0x1p24F))
        return {};

    const int count = static_cast<int>(samples);
    QList<QLineF> lines;
    PanoramicPointMapper mapper(*view, qsizetype{count} + 2); // with both ends
    Image previous = mapper.map(p1, keepOutside);
    for (int i = 1; i <= count; ++i) {
        const Image current =
            mapper.map(p1 + direction * (static_cast<float>(i) * step), keepOutside);
        if (previous.inSlice && current.inSlice)
            lines.append({previous.point, current.point});
        previous = current;
    }
    if (!previous.inSlice)
        return lines;
    const Image end = mapper.map(p2, keepOutside);
    if (end.inSlice)
        lines.append({previous.point, end.point});
    return lines;
}

QVector3D CoordinateMapper::_2D_To_3D_Panoramic(const PanoramicReslice* reslice, QPointF point)
{
    if (!reslice)
        return {};
    const auto line = reslice->getGuidingLine();
    const QList<QVector3D> path = reslice->getPath();
    if (!line || path.isEmpty())
        return {};
    const Mirroring mirroring(*reslice);
    return _2D_To_3D_Panoramic_Helper(path, line->getUpperDirection(), reslice->getVerticalRange(),
                                      reslice->getSampleSize().x(),
                                      {mirroring.mapX(point.x()), mirroring.mapY(point.y())});
}

QVector3D CoordinateMapper::_2D_To_3D_Panoramic_Helper(const QList<QVector3D>& path,
                                                       const QVector3D& up,
                                                       const math::Range<float>& range, float sx,
                                                       QPointF point)
{
    const float fromMin = range.max - range.min;
    const auto height = static_cast<float>(double(range.min) + (double(fromMin) - point.y()));
    const auto column = static_cast<float>(point.x() / double(sx));

    // Compared as numbers: a column may lie beyond what an int holds, or be NaN.
    const float left = std::floor(column);
    const bool isInner =
        left >= 0.0F && double(std::ceil(column)) < static_cast<double>(path.size());
    if (!isInner && path.size() < 2)
        return {};
    PathPosition place;
    if (isInner) {
        const QVector3D& start = path[static_cast<qsizetype>(left)];
        const QVector3D& end = path[static_cast<qsizetype>(std::ceil(column))];
        place = onLine(start, end, start, column - left);
    } else {
        place = left < 0.0F ? leftOfPath(path, column) : rightOfPath(path, column);
    }
    const QVector3D position = place.position + up * height;
    return finiteness::isFinite(position) ? position : QVector3D();
}

QVector3D CoordinateMapper::_2D_To_3D(const Reslice* reslice, QPointF point)
{
    if (!reslice)
        return {};
    if (reslice->isOfType(PanoramicReslice::getClassTypeId()))
        return _2D_To_3D_Panoramic(static_cast<const PanoramicReslice*>(reslice), point);
    if (reslice->isOfType(PlanarReslice::getClassTypeId()))
        return _2D_To_3D_Planar(static_cast<const PlanarReslice*>(reslice), point);
    if (reslice->isOfType(CephReslice::getClassTypeId()))
        return _2D_To_3D_Ceph(static_cast<const CephReslice*>(reslice), point);
    return {};
}

QList<std::pair<QPointF, PointInPlane>>
CoordinateMapper::mapAllPointsOntoReslice(const QList<QVector3D>& points,
                                          const PanoramicReslice& reslice)
{
    const auto view = PanoramicView::of(&reslice);
    if (!view || points.isEmpty())
        return QList<std::pair<QPointF, PointInPlane>>(points.size(),
                                                       {QPointF(), PointInPlane::OutOfPlane});
    PanoramicPointMapper mapper(*view, points.size());
    return mapAllPoints(points, [&mapper](const QVector3D& point) {
        const Image image = mapper.map(point, false);
        return std::pair(image.point, toPointInPlane(image.inPlane));
    });
}

QMatrix4x4 CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(const PanoramicReslice* reslice,
                                                                    const QPointF& pos)
{
    if (!reslice)
        return {};
    const auto line = reslice->getGuidingLine();
    const QList<QVector3D> path = reslice->getPath();
    if (!line || path.size() < 2)
        return {};
    const QVector3D sampleSize = reslice->getSampleSize();
    // Intended: heights count from the middle of the view, and mirroring is not undone: the frame
    // belongs to the picture as it is sampled. Whoever places an object with it relies on both.
    const float halfHeight =
        static_cast<float>(reslice->getDimensions().height() * double(sampleSize.y())) * 0.5F;
    const auto height = static_cast<float>(double(halfHeight) - pos.y());
    const auto column = static_cast<float>(pos.x() / double(sampleSize.x()));

    const float left = std::floor(column);
    PathPosition place;
    if (left < 0.0F) {
        place = leftOfPath(path, column);
    } else if (double(left) + 1.0 < static_cast<double>(path.size())) {
        const auto start = static_cast<qsizetype>(left);
        place = onLine(path[start], path[start + 1], path[start], column - left);
    } else {
        place = rightOfPath(path, column);
    }

    const QVector3D up = line->getUpperDirection();
    QMatrix4x4 frame;
    frame.setColumn(0, QVector4D(place.tangent.normalized(), 0.0F));
    frame.setColumn(1, QVector4D(up, 0.0F));
    frame.setColumn(2, QVector4D(QVector3D::crossProduct(place.tangent, up).normalized(), 0.0F));
    frame.setColumn(3, QVector4D(place.position + up * height, 1.0F));
    return finiteness::finiteOrIdentity(frame);
}

float CoordinateMapper::panoramicProjection(QVector3D a, QVector3D up, QVector3D b, QVector3D point,
                                            QPointF& out, float thickness, bool keepOutside)
{
    const primitives::Plane plane(a, a + up, b);
    float distance = std::abs(plane.getSignedDistance(point));
    if (distance > thickness * 0.5F) {
        distance = -1.0F;
        if (!keepOutside)
            return distance;
    }
    QVector3D foot;
    plane.intersect(primitives::QRay3D(point, plane.getNormal().normalized()), foot);

    QVector3D along = b - a;
    along.normalize();
    const QVector3D across = QVector3D::crossProduct(along, up);
    const QMatrix4x4 frameByRows(along.x(), along.y(), along.z(), 0.0F,    //
                                 up.x(), up.y(), up.z(), 0.0F,             //
                                 across.x(), across.y(), across.z(), 0.0F, //
                                 a.x(), a.y(), a.z(), 1.0F);
    const QVector3D local = frameByRows.transposed().inverted().map(foot);
    out = QPointF(local.x(), local.y());
    return distance;
}

QVector3D CoordinateMapper::intersectWithUpperPlane(const PlanarReslice* reslice, QVector3D a,
                                                    QVector3D b)
{
    return reslice ? intersectWithFace(*reslice, reslice->getSampleSize().z() * 0.5F, a, b)
                   : QVector3D();
}

QVector3D CoordinateMapper::intersectWithLowerPlane(const PlanarReslice* reslice, QVector3D a,
                                                    QVector3D b)
{
    return reslice ? intersectWithFace(*reslice, -(reslice->getSampleSize().z() * 0.5F), a, b)
                   : QVector3D();
}
