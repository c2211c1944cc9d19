// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/Mapping.h>

#include <planner/planning/Vectors.h>

#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <QMatrix4x4>

#include <Eigen/Geometry>

#include <cmath>

namespace planner {

namespace {

// Foot of a point on the plane z = 0 of a frame, from the frame's axes alone: independent of the
// mapper.
Eigen::Vector3d footOn(const QMatrix4x4& worldFromLocal, const QVector3D& point)
{
    const Eigen::Vector3d normal = toEigen(worldFromLocal.column(2).toVector3D()).normalized();
    const Eigen::Vector3d origin = toEigen(worldFromLocal.column(3).toVector3D());
    return toEigen(point) - normal * normal.dot(toEigen(point) - origin);
}

template <typename ToWorld>
MappedLandmark mappedBack(const Landmark& landmark, const Reslice& reslice, const QPointF& inView,
                          const QMatrix4x4& worldFromView, const ToWorld& toWorld)
{
    const QPoint pixel = pixelAt(reslice, inView);
    const QVector3D back = toWorld(inView);
    const QVector3D clicked = toWorld(pixelCenter(reslice, pixel));
    const Eigen::Vector3d foot = footOn(worldFromView, landmark.position);
    return {landmark,
            inView,
            pixel,
            back,
            (toEigen(back) - foot).norm(),
            (toEigen(clicked) - foot).norm(),
            std::nullopt,
            std::nullopt};
}

} // namespace

QPointF pixelCenter(const Reslice& reslice, const QPoint& pixel)
{
    return {(pixel.x() + 0.5) * reslice.getSampleSize().x(),
            (pixel.y() + 0.5) * reslice.getSampleSize().y()};
}

QPoint pixelAt(const Reslice& reslice, const QPointF& inView)
{
    return {static_cast<int>(std::floor(inView.x() / reslice.getSampleSize().x())),
            static_cast<int>(std::floor(inView.y() / reslice.getSampleSize().y()))};
}

QList<MappedLandmark> mapOntoPlanar(const QList<Landmark>& landmarks, const PlanarReslice& reslice)
{
    QList<MappedLandmark> mapped;
    for (const Landmark& landmark : landmarks) {
        const auto [inView, inPlane, inSlice] =
            CoordinateMapper::_3D_To_2D_Planar(&reslice, landmark.position);
        mapped.append(mappedBack(
            landmark, reslice, inView, reslice.getTransformationFromResliceToWorld(),
            [&](const QPointF& p) { return CoordinateMapper::_2D_To_3D_Planar(&reslice, p); }));
        mapped.last().inPlane = inPlane == PointInPlane::InPlane;
        mapped.last().inSlice = inSlice == PointInSlice::InSlice;
    }
    return mapped;
}

QList<MappedLandmark> mapOntoCeph(const QList<Landmark>& landmarks, const CephReslice& reslice)
{
    QList<MappedLandmark> mapped;
    for (const Landmark& landmark : landmarks)
        mapped.append(mappedBack(
            landmark, reslice, CoordinateMapper::_3D_To_2D_Ceph(&reslice, landmark.position),
            reslice.getTransformation(),
            [&](const QPointF& p) { return CoordinateMapper::_2D_To_3D_Ceph(&reslice, p); }));
    return mapped;
}

QList<MappedLandmark> mapOntoPanoramic(const QList<Landmark>& landmarks,
                                       const PanoramicReslice& reslice)
{
    QList<MappedLandmark> mapped;
    for (const Landmark& landmark : landmarks) {
        bool inPlane = false;
        bool inSlice = false;
        const QPointF inView = CoordinateMapper::_3D_To_2D_Panoramic(&reslice, landmark.position,
                                                                     inPlane, inSlice, true);
        const QVector3D back = CoordinateMapper::_2D_To_3D_Panoramic(&reslice, inView);
        const QPoint pixel = pixelAt(reslice, inView);
        const QVector3D clicked =
            CoordinateMapper::_2D_To_3D_Panoramic(&reslice, pixelCenter(reslice, pixel));
        const QVector3D depth =
            CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(&reslice, inView)
                .column(2)
                .toVector3D();
        const auto alongSurface = [&](const QVector3D& point) {
            const Eigen::Vector3d away = toEigen(point) - toEigen(landmark.position);
            return (away - toEigen(depth) * toEigen(depth).dot(away)).norm();
        };
        mapped.append({landmark, inView, pixel, back, alongSurface(back), alongSurface(clicked),
                       inPlane, inSlice});
    }
    return mapped;
}

MappedSegment mapSegment(const QString& name, const QVector3D& start, const QVector3D& end,
                         const PlanarReslice& reslice)
{
    MappedSegment segment;
    segment.name = name;
    segment.whole = {CoordinateMapper::_3D_To_2D_PlanarPoint(&reslice, start),
                     CoordinateMapper::_3D_To_2D_PlanarPoint(&reslice, end)};
    segment.clipped =
        CoordinateMapper::_3D_To_2D_Line_Planar(&reslice, start, end, segment.inPlane);
    return segment;
}

} // namespace planner
