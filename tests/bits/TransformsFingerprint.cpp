// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <tests/bits/Fingerprints.h>

#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>
#include <CoreAlgorithms/transforms/OcclusionTransformCalculator.h>
#include <CoreAlgorithms/transforms/ScanSetupTransformationHelper.h>
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>
#include <CoreAlgorithms/transforms/Trelo3DProtocolTransformations.h>

#include <tests/bits/Checksum.h>
#include <tests/support/ScanBuilders.h>

namespace bits {
namespace {

void addMatrix(Checksum& checksum, const QMatrix4x4& matrix)
{
    for (int i = 0; i < 16; ++i)
        checksum.add(double(matrix.constData()[i]));
}

void addVertices(Checksum& checksum, const Surface3DModel& model)
{
    for (const QVector3D& vertex : model.getMesh().getVertices())
        checksum.add(vertex);
}

} // namespace

void fingerprintTransforms()
{
    Checksum totals, walks, offsets, placed, bites, moves;
    test::RandomGeometry random(1);
    for (int i = 0; i < 500; ++i) {
        QList<QVector3D> vertices;
        for (int n = 0; n < 150; ++n)
            vertices.append(random.point(i % 50 == 0 ? 3e38F : 80.0F));
        const QMatrix4x4 planning = random.rigidPlacement();
        DentalScan maxilla;
        DentalScan mandibula;
        maxilla.setMesh(geometry::Mesh(vertices, {}));
        mandibula.setMesh(geometry::Mesh(vertices, {}));
        maxilla.setSurfaceScanAlignment(test::randomAlignment(random, false));
        mandibula.setSurfaceScanAlignment(test::randomAlignment(random, i % 2 == 0));

        addMatrix(totals,
                  SurfaceScanTransformations::getTotalFreehandTransform(&maxilla, planning));
        addMatrix(totals, SurfaceScanTransformations::getTotalTransform(&mandibula, planning));
        offsets.add(double(SurfaceScanTransformations::computeInitialHeightOffset(
            &maxilla, random.point(1.0F), 1.5F)));

        Occlusion occlusion;
        occlusion.setTransformations({{Maxilla::getClassTypeId(), random.rigidPlacement()},
                                      {FrontSegment::getClassTypeId(), random.rigidPlacement()},
                                      {LeftSegment::getClassTypeId(), random.rigidPlacement()},
                                      {Mandibula::getClassTypeId(), random.rigidPlacement()}});
        occlusion.setSegmental(i % 3 == 0);
        OcclusionTransformCalculator calculator(occlusion, maxilla, mandibula, planning);
        for (const auto type : {OcclusionTransformCalculator::MandibulaToMaxilla,
                                OcclusionTransformCalculator::MaxillaToMandibula}) {
            for (const auto& [part, move] : calculator.calculateTransformations(type))
                addMatrix(moves, move);
        }

        SurfaceScanTransformations::initialToFreehand(&maxilla, planning);
        SurfaceScanTransformations::freehandToRegistration(&maxilla, planning);
        SurfaceScanTransformations::freehandOrRegistratedToInitial(&maxilla, planning);
        SurfaceScanTransformations::setAlignment(
            &maxilla, test::randomAlignment(random, i % 2 == 1), planning);
        addVertices(walks, maxilla);

        const QVector3D a = random.point(50.0F);
        const QVector3D b = random.point(50.0F);
        const QVector3D c = random.point(50.0F);
        Trelo3DProtocolTransformations::calculateAndApplyInitialSurfaceScanTransformation(
            &mandibula, static_cast<JawType>(i % 3), a, b, c, planning);
        addVertices(placed, mandibula);

        const primitives::BoundingBox upper(a, a + b);
        const primitives::BoundingBox lower(c, c + b);
        addMatrix(bites, ScanSetupTransformationHelper::getFakeOcclusionTransformationForUpperJaw(
                             upper, lower));
        addMatrix(bites, ScanSetupTransformationHelper::getFakeOcclusionTransformationForUpperJaw(
                             upper, {}));
        addMatrix(bites, ScanSetupTransformationHelper::getFakeOcclusionTransformationForUpperJaw(
                             {}, lower));
    }
    totals.print("totals");
    walks.print("walks");
    offsets.print("offsets");
    placed.print("placed");
    bites.print("bites");
    moves.print("moves");
}

} // namespace bits
