// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <tests/bits/Fingerprints.h>

#include <CoreAlgorithms/transforms/OcclusionMovementCalculator.h>
#include <CoreAlgorithms/transforms/OcclusionMovements.h>
#include <CoreAlgorithms/transforms/PlanningApplyTransform.h>
#include <CoreAlgorithms/transforms/SetOcclusionMovementTransformationsUndoCommand.h>

#include <tests/bits/Checksum.h>
#include <tests/support/MovementBuilders.h>
#include <tests/support/PlanBuilders.h>
#include <tests/support/ResliceBuilders.h>

namespace bits {
namespace {

void addMatrix(Checksum& checksum, const QMatrix4x4& matrix)
{
    for (int i = 0; i < 16; ++i)
        checksum.add(double(matrix.constData()[i]));
}

void addSurface(Checksum& checksum, const Surface3DModel& surface)
{
    for (const QVector3D& vertex : surface.getMesh().getVertices())
        checksum.add(vertex);
    addMatrix(checksum, surface.getObjectTransform());
}

} // namespace

void fingerprintPlan()
{
    Checksum movements, stored, points, surfaces, placements;
    test::RandomGeometry random(1);
    const QString mode = MovementModes::OCCLUSION_PATIENT_SCAN_MODE;
    for (int i = 0; i < 300; ++i) {
        OcclusionMovementCalculator::Data data;
        data.maxillaRegistration = random.rigidPlacement();
        data.mandibulaRegistration = random.rigidPlacement();
        data.occlusionTransformations = {{Maxilla::getClassTypeId(), random.rigidPlacement()},
                                         {Mandibula::getClassTypeId(), random.rigidPlacement()}};
        if (i % 2 == 1) {
            data.occlusionTransformations.emplace(FrontSegment::getClassTypeId(),
                                                  random.rigidPlacement());
            data.occlusionTransformations.emplace(LeftSegment::getClassTypeId(),
                                                  random.rigidPlacement());
        }
        const auto bite = OcclusionMovementCalculator(data).calculate();
        addMatrix(movements, bite.maxillaryTransformation.value());
        addMatrix(movements, bite.mandibularTransformation.value());
        for (const auto& segments : {bite.maxillarySegmentalTransformations.value(),
                                     bite.mandibularSegmentalTransformations.value()}) {
            for (const auto& [part, matrix] : segments)
                addMatrix(movements, matrix);
        }

        const test::SurgeryWithMovements made;
        SetOcclusionMovementTransformationsUndoCommand command(
            bite, utility::getOcclusionMovements(made.surgery), mode, nullptr);
        command.redo();
        addMatrix(stored, made.mandibular->getOcclusionModeTransformation(mode).value());
    }
    for (int i = 0; i < 100; ++i) {
        test::WholePlan plan;
        PlanningApplyTransform apply;
        apply.setDataObjects(plan.objects());
        for (int moves = 0; moves < 3; ++moves) {
            apply.setNewScannerTransform(random.rigidPlacement());
            apply.applyTransform(random.rigidPlacement());
        }
        points.add(double(plan.spline->getOcclusalIndex()));
        points.add(plan.spline->getControlPoints().last()->getPosition());
        points.add(plan.pointAnnotation->getPosition());
        points.add(plan.circle->getNormal());
        points.add(plan.polyLine->getPosition(0, VolumeContext).value());
        points.add(plan.ceph->getPlane().getNormal());
        points.add(plan.mandibula->getCondylePositions().first);
        points.add(plan.nerveLine->getControlPoints().first()->getPosition());
        addSurface(surfaces, *plan.upperScan);
        addSurface(surfaces, *plan.skin);
        addSurface(surfaces, *plan.surgicalTemplate);
        addMatrix(placements, plan.implant->getObjectTransform());
        addMatrix(placements, plan.locked->getScannerOrientation());
        addMatrix(placements,
                  plan.collection->getFromPreOpToPlannedTransformation(Maxilla::getClassTypeId())
                      .value());
        addMatrix(placements,
                  plan.maxillaryMovement
                      ->getOcclusionModeTransformation(MovementModes::OCCLUSION_PLASTER_CAST_MODE)
                      .value());
    }
    movements.print("movements");
    stored.print("stored");
    points.print("points");
    surfaces.print("surfaces");
    placements.print("placements");
}

} // namespace bits
