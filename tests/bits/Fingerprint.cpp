// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Prints one checksum per operation over the bits of its results, for comparison between builds.
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/linearalgebra/PlaneFit.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>
#include <CoreAlgorithms/model/math/Operations.h>
#include <CoreAlgorithms/model/math/Spline3D.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <tests/support/ResliceBuilders.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace {

// FNV-1a over the bytes of every number. The sign and payload of a NaN are left out: no standard fixes them.
class Checksum
{
public:
    void add(double number)
    {
        auto bits = std::isnan(number) ? 0x7ff8000000000000U : std::bit_cast<std::uint64_t>(number);
        for (int byte = 0; byte < 8; ++byte, bits >>= 8U)
            hash = (hash ^ (bits & 0xffU)) * 0x100000001b3U;
    }
    void add(const QPointF& point)
    {
        add(point.x());
        add(point.y());
    }
    void add(const QLineF& line)
    {
        add(line.p1());
        add(line.p2());
    }
    void add(const QVector3D& vector)
    {
        add(double(vector.x()));
        add(double(vector.y()));
        add(double(vector.z()));
    }
    void print(const char* name) const
    {
        std::printf("%-10s %016llx\n", name, static_cast<unsigned long long>(hash));
    }

private:
    std::uint64_t hash = 0xcbf29ce484222325U;
};

} // namespace

int main()
{
    Checksum planar, list, back, segment, onPlane, ceph, boxes, rotations, fits, splines;
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
        for (const auto& [image, verdict] : CoordinateMapper::mapAllPointsOntoReslice({p, q, r}, *reslice)) {
            list.add(image);
            list.add(static_cast<double>(verdict));
        }
        back.add(CoordinateMapper::_2D_To_3D_Planar(reslice.get(), point));
        const auto [line, lineInPlane] = CoordinateMapper::_3D_To_2D_Line_Planar(reslice.get(), p, q);
        segment.add(line);
        segment.add(static_cast<double>(lineInPlane));
        onPlane.add(
            CoordinateMapper::map2DPointTo3DPointOnPlane(*reslice, point, primitives::Plane(p, q, r)));

        const auto projection = random.cephReslice();
        projection->setPointOfView(static_cast<meta::PointOfView>(i % 3));
        ceph.add(CoordinateMapper::_3D_To_2D_Ceph(projection.get(), p));
        ceph.add(CoordinateMapper::_2D_To_3D_Ceph(projection.get(), point));

        const primitives::BoundingBox box =
            primitives::BoundingBox(q, q + r).transformed(random.rigidPlacement());
        boxes.add(box.min());
        boxes.add(box.max());
        rotations.add(math::Operations::getRotationTo(p, q, r).rotatedVector(r));
    }
    for (int i = 0; i < 100; ++i) {
        QList<QVector3D> points;
        std::vector<Eigen::Vector3d> triples;
        for (int n = 0; n < 12; ++n) {
            points.append(random.point(60.0F));
            triples.emplace_back(points[n].x(), points[n].y(), points[n].z());
        }
        for (const QVector3D& sample : math::CatmullRomSpline3D().sample(points, 1.5F))
            splines.add(sample);
        const algebra::Plane plane = algebra::fitPlane(triples).value();
        for (int axis = 0; axis < 3; ++axis) {
            fits.add(plane.normal[axis]);
            fits.add(plane.point[axis]);
        }
    }

    planar.print("planar");
    list.print("list");
    back.print("back");
    segment.print("segment");
    onPlane.print("onPlane");
    ceph.print("ceph");
    boxes.print("boxes");
    rotations.print("rotations");
    fits.print("fits");
    splines.print("splines");
    return 0;
}
