// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/math/QRay3D.h>

#include <QVector4D>

#include <algorithm>
#include <cmath>

namespace {

// The view that turns the x axis of a cephalometric projection round.
constexpr int kMirroringPointOfView = 1;

PointInPlane toPointInPlane(bool inPlane)
{
    return inPlane ? PointInPlane::InPlane : PointInPlane::OutOfPlane;
}

// QMatrix4x4::map for many points, with the bits of that operation.
//
// Qt works out a fourth coordinate for every point and divides by it. For an affine matrix it is 1 if the
// point is finite. A coordinate that is not finite makes all three results infinite or NaN (0 times infinity
// is NaN), so that a finite x tells that the fourth coordinate is 1. Without it, a list of points takes 1.3 instead of
// 1.5 times as long as a loop over an Eigen affine transform.
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

// How a planar view lays its rectangle over the local x and y. Each rule is its own inverse, so the same two
// functions serve both ways.
struct Mirroring
{
    explicit Mirroring(const PlanarReslice& reslice)
        : width(reslice.getWidth()),
          height(reslice.getHeight()),
          horizontally(reslice.isMirroredHorizontallyIn2D()),
          vertically(reslice.isMirroredVerticallyIn2D())
    {}

    // The local point on the plane of a view point.
    QVector3D unmap(const QPointF& point) const
    {
        return {static_cast<float>(mapX(point.x())), static_cast<float>(mapY(point.y())), 0.0F};
    }

    double mapX(double x) const { return horizontally ? double(width) - x : x; }

    // Intended: the view that is mirrored vertically is the one whose y is the local y. The local y points
    // up, the view's y points down; the application draws all its views that way.
    double mapY(double y) const { return vertically ? y : double(height) - y; }

    float width;
    float height;
    bool horizontally;
    bool vertically;
};

// A planar reslice's geometry of this moment, for mapping any number of world points into its view.
class PlanarView
{
public:
    explicit PlanarView(const PlanarReslice& reslice)
        : localFromWorld(reslice.getTransformationFromResliceToWorld().inverted()),
          // Intended: a slice stands for one sample, whatever slab getThickness() tells the view to show.
          halfThickness(reslice.getSampleSize().z() * 0.5F),
          mirroring(reslice)
    {}

    struct Image
    {
        QPointF point;
        bool inPlane;
        bool inSlice;
    };

    const QMatrix4x4& transformation() const { return localFromWorld; }

    Image map(const QVector3D& worldPoint) const { return imageOf(localFromWorld.map(worldPoint)); }

    Image imageOf(const QVector3D& local) const
    {
        const bool inPlane = halfThickness >= std::abs(local.z());
        const bool inRectangle = local.x() >= 0.0F && local.y() >= 0.0F && mirroring.width >= local.x() &&
                                 mirroring.height >= local.y();
        return {{mirroring.mapX(local.x()), mirroring.mapY(local.y())}, inPlane, inPlane && inRectangle};
    }

private:
    QMatrix4x4 localFromWorld;
    float halfThickness;
    Mirroring mirroring;
};

// Calls mapPoint (world point to view point and verdict) for every point, in order.
template <typename MapPoint>
QList<std::pair<QPointF, PointInPlane>> mapAllPoints(const QList<QVector3D>& points, const MapPoint& mapPoint)
{
    QList<std::pair<QPointF, PointInPlane>> images(points.size());
    std::transform(points.begin(), points.end(), images.begin(), mapPoint);
    return images;
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

    // Intended: normalize() leaves a vector of up to 1e-5 as it is, where normalized() would make it zero: a segment
    // of a few nanometres still meets the face.
    QVector3D towards = b - a;
    towards.normalize();

    QVector3D meetingPoint;
    face.intersect(primitives::QRay3D(a, towards), meetingPoint);
    return meetingPoint;
}

} // namespace

CoordinateMapper::~CoordinateMapper() = default;

QPointF CoordinateMapper::_3D_To_2D_Planar(const PlanarReslice* reslice, QVector3D point, bool& inPlane,
                                           bool& inSlice)
{
    inPlane = false;
    inSlice = false;
    if (!reslice)
        return {};
    const PlanarView::Image image = PlanarView(*reslice).map(point);
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
    return {image, toPointInPlane(inPlane), inSlice ? PointInSlice::InSlice : PointInSlice::OutOfSlice};
}

QPointF CoordinateMapper::_3D_To_2D_PlanarPoint(const PlanarReslice* reslice, QVector3D point)
{
    bool inPlane = false;
    bool inSlice = false;
    return _3D_To_2D_Planar(reslice, point, inPlane, inSlice);
}

QLineF CoordinateMapper::_3D_To_2D_Line_Planar(const PlanarReslice* reslice, QVector3D p1, QVector3D p2,
                                               bool& inPlane)
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

    const auto image = [reslice](const QVector3D& point) { return _3D_To_2D_PlanarPoint(reslice, point); };
    const auto crossingOnSideOf = [&](double distance) {
        return distance > 0.0 ? intersectWithUpperPlane(reslice, p1, p2)
                              : intersectWithLowerPlane(reslice, p1, p2);
    };

    if (inside1) {
        inPlane = true;
        return {image(p1), inside2 ? image(p2) : image(crossingOnSideOf(distance2))};
    }
    if (inside2) {
        // Intended: the line starts at the end that lies inside, against the caller's order; whoever draws the
        // line relies on its second end being the clipped one.
        inPlane = true;
        return {image(p2), image(crossingOnSideOf(distance1))};
    }
    if ((distance1 > 0.0 && distance2 < 0.0) || (distance1 < 0.0 && distance2 > 0.0)) {
        // Intended: the upper face first, whichever end lies above, so that a line does not depend on the direction
        // of its segment.
        inPlane = true;
        return {image(intersectWithUpperPlane(reslice, p1, p2)),
                image(intersectWithLowerPlane(reslice, p1, p2))};
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
    const bool mirrored = static_cast<int>(reslice->getPointOfView()) == kMirroringPointOfView;
    const float x = mirrored ? reslice->getWidth() - local.x() : local.x();
    return {x, y};
}

QVector3D CoordinateMapper::_2D_To_3D_Ceph(const CephReslice* reslice, QPointF point)
{
    if (!reslice)
        return {};
    // Intended: y is subtracted in double and x in single precision; the bits of existing plans rely on it. The
    // mirroring of the reslice plays no part, here and on the way to the view: the point of view takes its place.
    auto x = static_cast<float>(point.x());
    const auto y = static_cast<float>(double(reslice->getHeight()) - point.y());
    if (static_cast<int>(reslice->getPointOfView()) == kMirroringPointOfView)
        x = reslice->getWidth() - x;
    return reslice->getTransformation().map(QVector3D(x, y, 0.0F));
}

QVector3D CoordinateMapper::map2DPointTo3DPointOnPlane(const PlanarReslice& reslice, QPointF point,
                                                       primitives::Plane plane)
{
    const QMatrix4x4 worldFromLocal = reslice.getTransformationFromResliceToWorld();
    plane.transform(worldFromLocal.inverted());
    // Intended: the direction stands in world coordinates and has no unit length, although the projection
    // happens in the local frame; existing plans rely on it.
    const QVector3D direction =
        QVector3D::crossProduct(reslice.getDirection0(false), reslice.getDirection1(false));
    return worldFromLocal.map(plane.project(Mirroring(reslice).unmap(point), direction));
}

QList<std::pair<QPointF, PointInPlane>>
CoordinateMapper::mapAllPointsOntoReslice(const QList<QVector3D>& points, const PlanarReslice& reslice)
{
    const PlanarView view(reslice);
    return mapAllPoints(points,
                        [view, localFromWorld = PointMapping(view.transformation())](const QVector3D& point) {
                            const PlanarView::Image image = view.imageOf(localFromWorld.map(point));
                            return std::pair(image.point, toPointInPlane(image.inPlane));
                        });
}

QVector3D CoordinateMapper::intersectWithUpperPlane(const PlanarReslice* reslice, QVector3D a, QVector3D b)
{
    return reslice ? intersectWithFace(*reslice, reslice->getSampleSize().z() * 0.5F, a, b) : QVector3D();
}

QVector3D CoordinateMapper::intersectWithLowerPlane(const PlanarReslice* reslice, QVector3D a, QVector3D b)
{
    return reslice ? intersectWithFace(*reslice, -(reslice->getSampleSize().z() * 0.5F), a, b) : QVector3D();
}
