// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/PlanarView_p.h>

#include <CoreAlgorithms/model/math/Plane.h>
#include <CoreAlgorithms/model/math/QRay3D.h>

namespace reslice {

QVector3D localOnPlane(const PlanarReslice& reslice, const QPointF& viewPoint)
{
    const Mirroring mirroring(reslice);
    return {static_cast<float>(mirroring.mapX(viewPoint.x())),
            static_cast<float>(mirroring.mapY(viewPoint.y())), 0.0F};
}

QVector3D intersectWithFace(const PlanarReslice& reslice, float height, const QVector3D& a,
                            const QVector3D& b)
{
    const QVector3D direction0 = reslice.getDirection0(false);
    const QVector3D direction1 = reslice.getDirection1(false);
    QVector3D normal = QVector3D::crossProduct(direction0, direction1);
    normal.normalize();

    const QVector3D corner = reslice.getOrigin() + normal * height;
    const primitives::Plane face(corner, corner + direction0, corner + direction1);

    // Intended: normalize() keeps a vector of up to 1e-5 unchanged, where normalized() would make
    // it zero: a segment of a few nanometers still meets the face.
    QVector3D towards = b - a;
    towards.normalize();

    QVector3D meetingPoint;
    face.intersect(primitives::QRay3D(a, towards), meetingPoint);
    return meetingPoint;
}

} // namespace reslice
