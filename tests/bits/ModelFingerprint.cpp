// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <tests/bits/Fingerprints.h>

#include <CoreAlgorithms/model/linearalgebra/PlaneFit.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>
#include <CoreAlgorithms/model/math/Operations.h>
#include <CoreAlgorithms/model/math/Spline3D.h>

#include <tests/bits/Checksum.h>
#include <tests/support/ResliceBuilders.h>

namespace bits {

void fingerprintModel()
{
    Checksum boxes, rotations, fits, splines;
    test::RandomGeometry random(1);
    for (int i = 0; i < 2000; ++i) {
        const QVector3D p = random.point(i % 50 == 0 ? 3e38F : 150.0F);
        const QVector3D q = random.point(150.0F);
        const QVector3D r = random.point(150.0F);
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

    boxes.print("boxes");
    rotations.print("rotations");
    fits.print("fits");
    splines.print("splines");
}

} // namespace bits
