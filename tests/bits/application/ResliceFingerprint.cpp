// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <tests/bits/application/Fingerprints.h>

#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <tests/bits/application/Checksum.h>
#include <tests/support/ResliceBuilders.h>

namespace bits {

void fingerprintReslice()
{
    Checksum planar, list, back, segment, onPlane, ceph;
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
    }
    planar.print("planar");
    list.print("list");
    back.print("back");
    segment.print("segment");
    onPlane.print("onPlane");
    ceph.print("ceph");
}

} // namespace bits
