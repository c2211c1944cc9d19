// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// A clinician lowers an implant towards a nerve and reads how far it still is.
#include <CoreAlgorithms/collision/ImplantClearances.h>

#include <CoreAlgorithms/model/data/Mesh.h>

#include <QMatrix4x4>

#include <cmath>
#include <iostream>
#include <memory>

int main()
{
    geometry::ShapeLoader shapeLoader;
    const auto implant = std::make_shared<dataobject::Implant3D>();
    implant->setDimensions({4.0F, 10.0F}); // diameter and length in mm
    const QSet<std::shared_ptr<dataobject::Implant3D>> implants{implant};
    const QSet<std::shared_ptr<dataobject::AnchorPin3D>> pins;

    // A nerve as a ribbon of two triangles, 5 mm below the apex.
    geometry::Mesh ribbon({{-1.0F, -30.0F, -15.0F},
                           {1.0F, -30.0F, -15.0F},
                           {1.0F, 30.0F, -15.0F},
                           {-1.0F, 30.0F, -15.0F}},
                          {});
    ribbon.addTriangle(0, 1, 2);
    ribbon.addTriangle(0, 2, 3);
    const auto nerve = std::make_shared<dataobject::Nerve>();
    nerve->setMesh(ribbon);
    const QSet<std::shared_ptr<dataobject::Nerve>> nerves{nerve};

    QMatrix4x4 placement;
    placement.translate(0.0F, 0.0F, -3.5F);

    // [ImplantClearances]
    collision::ImplantClearances clearances(shapeLoader);
    clearances.prepareAndStartMeasurement(implants, {implant}, pins, {}, nerves, {nerve});

    // The clinician lowers the implant: forget where it was, then measure its pairs again.
    implant->setObjectTransform(placement);
    clearances.shapeHasChanged(implant);
    clearances.prepareAndStartMeasurement(implants, {implant}, pins, {}, nerves, {});

    double nearestMm = 0.0;
    if (const auto pair = clearances.getNearestNerve(*implant))
        nearestMm = pair->clearance.distance;
    const bool warn = !clearances.getNervesBelow().isEmpty(); // nearer than 2 mm
    // [ImplantClearances]

    std::cout << "The nerve is " << nearestMm << " mm away" << (warn ? ": too near.\n" : ".\n");
    return warn && std::abs(nearestMm - 1.5) < 1e-5 ? 0 : 1;
}
