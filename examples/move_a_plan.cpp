// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Carries a plan into a new scanner frame: an implant, a measurement, the scans of both jaws with
// their bite, and a surgery.
#include <CoreAlgorithms/model/dataobjects/Annotations.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>
#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/model/dataobjects/Movements.h>
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/transforms/PlanningApplyTransform.h>

#include <iostream>

namespace {

QMatrix4x4 shift(float x, float y, float z)
{
    QMatrix4x4 matrix;
    matrix.translate(x, y, z);
    return matrix;
}

} // namespace

int main()
{
    dataobject::Implant3D implant;
    implant.setObjectTransform(shift(1.0F, 2.0F, 3.0F), TransformManipulationType(0));
    GreyValueMeasurement measurement;
    measurement.changePosition({1.0F, 2.0F, 3.0F});
    DentalScan upperScan;
    upperScan.setJawType(UpperJaw);
    DentalScan lowerScan;
    lowerScan.setJawType(LowerJaw);
    Occlusion bite;
    bite.setTransformations({{Maxilla::getClassTypeId(), shift(0.0F, 0.0F, 2.0F)},
                             {Mandibula::getClassTypeId(), QMatrix4x4()}});
    MaxillofacialSurgery surgery;
    auto* maxillary = new OcclusionMovement(MovementTypes::m_maxillary_occlusion_movement);
    surgery.addMovement(maxillary); // which owns it
    const QMatrix4x4 oldScannerTransform = shift(5.0F, 0.0F, 0.0F);
    const QMatrix4x4 newScannerTransform = shift(15.0F, 20.0F, 30.0F);
    const QMatrix4x4 newFrameFromOld = newScannerTransform * oldScannerTransform.inverted();

    // [PlanningApplyTransform]
    PlanningApplyTransform planning;
    planning.setDataObjects({&implant, &measurement, &upperScan, &lowerScan, &bite, &surgery});
    planning.setNewScannerTransform(newScannerTransform);
    const QList<DataObject*> changed = planning.applyTransform(newFrameFromOld);
    // [PlanningApplyTransform]

    const QVector3D position = measurement.getPosition();
    std::cout << changed.size() << " objects changed; the measurement is now at (" << position.x()
              << ", " << position.y() << ", " << position.z() << ") mm\n";
    const auto move =
        maxillary->getOcclusionModeTransformation(MovementModes::OCCLUSION_PLASTER_CAST_MODE);
    const bool isRight =
        changed == QList<DataObject*>({&measurement, &upperScan, &lowerScan, &implant}) &&
        position == QVector3D(11.0F, 22.0F, 33.0F) &&
        implant.getObjectTransform() == shift(11.0F, 22.0F, 33.0F) && move &&
        move.value() == shift(0.0F, 0.0F, 2.0F);
    return isRight ? 0 : 1;
}
