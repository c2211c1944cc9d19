// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <tests/bits/Fingerprints.h>

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>
#include <CoreAlgorithms/reslice/ImplantRotationCalculator.h>
#include <CoreAlgorithms/reslice/IntersectionCalculator.h>
#include <CoreAlgorithms/reslice/PlanarGuidingSplineCoordinateMapper.h>

#include <tests/bits/Checksum.h>
#include <tests/support/ResliceBuilders.h>

namespace bits {

void fingerprintReslice()
{
    Checksum planar, list, back, segment, onPlane, ceph;
    Checksum panoramic, unrolled, chains, frames, borders, turns, splinePlane;
    test::RandomGeometry random(1);
    for (int i = 0; i < 2000; ++i) {
        const auto reslice = random.planarReslice(random.number(0.0F, 30.0F));
        reslice->setMirroredIn2D(i % 2 == 1, i % 4 >= 2);
        const QVector3D p = random.point(i % 50 == 0 ? 3e38F : 150.0F);
        const QVector3D q = random.point(150.0F);
        const QVector3D r = random.point(150.0F);

        const auto [point, inPlane, inSlice] = CoordinateMapper::_3D_To_2D_Planar(reslice.get(), p);
        planar.add(point);
        planar.add(static_cast<double>(inPlane));
        planar.add(static_cast<double>(inSlice));
        for (const auto& [image, verdict] :
             CoordinateMapper::mapAllPointsOntoReslice({p, q, r}, *reslice)) {
            list.add(image);
            list.add(static_cast<double>(verdict));
        }
        back.add(CoordinateMapper::_2D_To_3D_Planar(reslice.get(), point));
        const auto [line, lineInPlane] =
            CoordinateMapper::_3D_To_2D_Line_Planar(reslice.get(), p, q);
        segment.add(line);
        segment.add(static_cast<double>(lineInPlane));
        onPlane.add(CoordinateMapper::map2DPointTo3DPointOnPlane(*reslice, point,
                                                                 primitives::Plane(p, q, r)));

        const auto projection = random.cephReslice();
        projection->setPointOfView(static_cast<meta::PointOfView>(i % 3));
        ceph.add(CoordinateMapper::_3D_To_2D_Ceph(projection.get(), p));
        ceph.add(CoordinateMapper::_2D_To_3D_Ceph(projection.get(), point));
    }
    for (int i = 0; i < 300; ++i) {
        const auto reslice = random.panoramicReslice(80, random.number(0.2F, 1.0F));
        reslice->setMirroredIn2D(i % 2 == 1, i % 4 >= 2);
        reslice->setType(i % 3 == 0 ? ThickSlab : SingleSlice);
        reslice->setThickness(random.number(0.0F, 30.0F));
        QList<QVector3D> points;
        for (const QVector3D& sample : reslice->getPath())
            points.append(sample + random.point(i % 50 == 0 ? 3e38F : 5.0F));
        for (const auto& [image, verdict] :
             CoordinateMapper::mapAllPointsOntoReslice(points, *reslice)) {
            panoramic.add(image);
            panoramic.add(static_cast<double>(verdict));
            unrolled.add(CoordinateMapper::_2D_To_3D(reslice.get(), image));
        }
        for (const QVector3D& point : points) {
            const auto [image, inPlane, inSlice] =
                CoordinateMapper::_3D_To_2D_Panoramic(reslice.get(), point, true);
            panoramic.add(image);
            panoramic.add(static_cast<double>(inSlice));
            panoramic.add(
                CoordinateMapper::_3D_To_2D_PanoramicIntersection(reslice.get(), point, i % 90));
            frames.add(
                CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), image));
        }
        for (const QLineF& line : CoordinateMapper::_3D_To_2D_Line_Panoramic(
                 reslice.get(), points[7], points[40], true, random.number(0.1F, 2.0F)))
            chains.add(line);

        const auto cut = random.planarReslice(1.0F);
        const QVector3D onCutter = cut->getOrigin() + random.point(50.0F);
        const QVector3D normal = random.point(1.0F);
        for (const QVector3D& meeting :
             IntersectionCalculator::calculatePlaneIntersections(onCutter, normal, cut.get()))
            borders.add(meeting);
        const auto line = reslice->getGuidingLine();
        line->setOriginalPath(reslice->getPath());
        turns.add(implantRotationCalculator::calculatePerpendicularRotation(
            *line, points[30], random.rigidPlacement()));

        PlanarGuidingSpline spline;
        for (int n = 0; n < 5; ++n)
            spline.appendControlPoint(random.point(50.0F));
        PlanarGuidingSplineCoordinateMapper mapper(spline);
        const double x = random.number(0.0F, 100.0F);
        splinePlane.add(mapper.mapToSplinePlane(*cut, QPointF(x, random.number(0.0F, 100.0F))));
    }
    planar.print("planar");
    list.print("list");
    back.print("back");
    segment.print("segment");
    onPlane.print("onPlane");
    ceph.print("ceph");
    panoramic.print("panoramic");
    unrolled.print("unrolled");
    chains.print("chains");
    frames.print("frames");
    borders.print("borders");
    turns.print("turns");
    splinePlane.print("splinePlane");
}

} // namespace bits
