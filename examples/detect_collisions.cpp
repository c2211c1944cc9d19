// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// A clinician drags one of two implants towards a nerve, then takes it out of the plan.
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

#include <cstddef>
#include <iostream>
#include <memory>

namespace {

// Counts how often the verdicts have changed; a view of an application would draw them.
class View : public patterns::Observer<collision::ImplantCollisionDetector, std::nullptr_t>
{
public:
    int numChanges = 0;

private:
    void changedEvent(collision::ImplantCollisionDetector*) override { ++numChanges; }
};

std::shared_ptr<dataobject::Implant3D> implantAt(float x)
{
    auto implant = std::make_shared<dataobject::Implant3D>();
    implant->setDimensions({4.0F, 10.0F}); // diameter and length in mm
    QMatrix4x4 placement;
    placement.translate(x, 0.0F, 0.0F);
    implant->setObjectTransform(placement);
    return implant;
}

} // namespace

int main()
{
    geometry::ShapeLoader shapeLoader;
    View view;
    const auto first = implantAt(0.0F);
    const auto second = implantAt(20.0F);
    QSet<std::shared_ptr<dataobject::Implant3D>> implants{first, second};
    const QSet<std::shared_ptr<dataobject::AnchorPin3D>> pins;

    // A nerve as a ribbon of two triangles at x = 11, 2 mm below the apices.
    geometry::Mesh ribbon({{11.0F, -30.0F, -12.0F},
                           {12.0F, -30.0F, -12.0F},
                           {12.0F, 30.0F, -12.0F},
                           {11.0F, 30.0F, -12.0F}},
                          {});
    ribbon.addTriangle(0, 1, 2);
    ribbon.addTriangle(0, 2, 3);
    const auto nerve = std::make_shared<dataobject::Nerve>();
    nerve->setMesh(ribbon);
    const QSet<std::shared_ptr<dataobject::Nerve>> nerves{nerve};

    QMatrix4x4 placement;
    placement.translate(11.0F, 0.0F, 0.0F);

    // [ImplantCollisionDetector]
    collision::ImplantCollisionDetector detector(shapeLoader);
    detector.attach(&view); // its changedEvent() reads isColliding() and the like
    detector.prepareAndStartDetection(implants, {first, second}, pins, {}, nerves, {});

    // The clinician drags an implant: forget where it was, then test its pairs.
    first->setObjectTransform(placement);
    detector.shapeHasChanged(first);
    detector.prepareAndStartDetection(implants, {first}, pins, {}, nerves, {});
    const bool warn = detector.isColliding(*first) || detector.isCollidingWithNerve(*first);

    // The clinician takes the implant out of the plan.
    implants.remove(first);
    detector.remove(first);
    // [ImplantCollisionDetector]

    std::cout << (warn ? "The implant is too close to another one or to a nerve.\n"
                       : "The implant is clear.\n");
    const bool isExpected = warn && view.numChanges == 2 && !detector.isCollidingWithNerve(*first);
    return isExpected ? 0 : 1;
}
