// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Places a surface scan by hand, then as a registration found it. A scan of one vertex stands for
// a scan of teeth.
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>

#include <QVector3D>

#include <iostream>

namespace {

QMatrix4x4 shift(float x, float y, float z)
{
    QMatrix4x4 matrix;
    matrix.translate(x, y, z);
    return matrix;
}

void print(const char* what, const QVector3D& point)
{
    std::cout << what << ": (" << point.x() << ", " << point.y() << ", " << point.z() << ") mm\n";
}

} // namespace

int main()
{
    const geometry::Mesh rawMesh({QVector3D(1.0F, 2.0F, 3.0F)}, {});
    const QMatrix4x4 initial = shift(10.0F, 0.0F, 0.0F);
    const QMatrix4x4 byHand = shift(0.0F, 20.0F, 0.0F);
    const QMatrix4x4 registration = shift(0.0F, -1.0F, 0.5F);
    const QMatrix4x4 planning = shift(0.0F, 0.0F, 100.0F);

    // [SurfaceScanTransformations]
    SurfaceScan scan;
    scan.setMesh(rawMesh);
    SurfaceScanAlignment alignment;
    alignment.initialTransform = initial;
    alignment.freehandTransform = byHand;
    alignment.registrationTransform = registration;
    alignment.referenceTransform = planning;
    alignment.freehandAligned = true;
    SurfaceScanTransformations::setAlignment(&scan, alignment, planning);
    const QVector3D placedByHand = scan.getMesh().getVertices().first();
    SurfaceScanTransformations::freehandToRegistration(&scan, planning);
    const QVector3D registered = scan.getMesh().getVertices().first();
    // [SurfaceScanTransformations]

    print("by hand", placedByHand);
    print("registered", registered);
    const bool isRight = placedByHand == QVector3D(11.0F, 22.0F, 3.0F) &&
                         registered == QVector3D(11.0F, 21.0F, 3.5F) && !scan.isFreehandAligned();
    return isRight ? 0 : 1;
}
