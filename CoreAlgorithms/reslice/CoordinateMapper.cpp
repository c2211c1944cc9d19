// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/reslice/PanoramicView_p.h>
#include <CoreAlgorithms/reslice/PlanarView_p.h>

#include <QVector4D>

#include <algorithm>
#include <cmath>

using namespace reslice;

namespace {

PointInPlane toPointInPlane(bool inPlane)
{
    return inPlane ? PointInPlane::InPlane : PointInPlane::OutOfPlane;
}

PointInSlice toPointInSlice(bool inSlice)
{
    return inSlice ? PointInSlice::InSlice : PointInSlice::OutOfSlice;
}

// Calls mapPoint (world point to view point and verdict) for every point, in order.
template <typename MapPoint>
QList<std::pair<QPointF, PointInPlane>> mapAllPoints(const QList<QVector3D>& points,
                                                     const MapPoint& mapPoint)
{
    QList<std::pair<QPointF, PointInPlane>> images(points.size());
    std::ranges::transform(points, images.begin(), mapPoint);
    return images;
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
    return {image, toPointInPlane(inPlane), toPointInSlice(inSlice)};
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
        // Intended: the line starts at the end that is inside, against the caller's order; the
        // application's drawings rely on its second end being the clipped one.
        inPlane = true;
        return lineBetween(p2, crossingOnSideOf(distance1));
    }
    if ((distance1 > 0.0 && distance2 < 0.0) || (distance1 < 0.0 && distance2 > 0.0)) {
        // Intended: the upper face comes first, whichever end is above, so that a line does not
        // depend on the direction of its segment.
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
    return reslice->getTransformationFromResliceToWorld().map(localOnPlane(*reslice, point));
}

QPointF CoordinateMapper::_3D_To_2D_Ceph(const CephReslice* reslice, QVector3D point)
{
    if (!reslice)
        return {};
    const QVector3D local = reslice->getTransformation().inverted().map(point);
    const float y = reslice->getHeight() - local.y();
    const bool mirrored =
        static_cast<int>(reslice->getPointOfView()) == hostvalues::kMirroringPointOfView;
    const float x = mirrored ? reslice->getWidth() - local.x() : local.x();
    return {x, y};
}

QVector3D CoordinateMapper::_2D_To_3D_Ceph(const CephReslice* reslice, QPointF point)
{
    if (!reslice)
        return {};
    // Intended: y is subtracted in double and x in single precision; the bits of existing plans
    // rely on it. The mirroring of the reslice is ignored in both directions: the point of view
    // takes its place.
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
    // Intended: the direction is in world coordinates and not of unit length, although the
    // projection happens in the local frame; existing plans rely on it.
    const QVector3D direction =
        QVector3D::crossProduct(reslice.getDirection0(false), reslice.getDirection1(false));
    return worldFromLocal.map(plane.project(localOnPlane(reslice, point), direction));
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
    return {image, toPointInPlane(inPlane), toPointInSlice(inSlice)};
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
    // Samples are counted in single precision, which cannot count beyond 2^24.
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

    // Compared as floating-point numbers: a column may be NaN or beyond the range of int.
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
    // belongs to the picture as it is sampled. Applications that place objects rely on both.
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
    const bool frameIsFinite = std::all_of(frame.constData(), frame.constData() + 16,
                                           [](float entry) { return std::isfinite(entry); });
    return frameIsFinite ? frame : QMatrix4x4();
}

float CoordinateMapper::panoramicProjection(QVector3D a, QVector3D up, QVector3D b, QVector3D point,
                                            QPointF& out, float thickness, bool keepOutside)
{
    return projectOntoSegment(a, up, b, point, out, thickness, keepOutside);
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
