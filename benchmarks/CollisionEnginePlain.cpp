// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <benchmarks/CollisionEngines.h>

#include <CoreAlgorithms/collision/ImplantSafetyZone.h>

#include <tests/support/PlainOverlap.h>

namespace benchmarks {

namespace {

// Keeps what the detector keeps and, like the detector, builds an implant's zones again after a
// move.
class Plain : public PairwiseEngine<test::plain::BoundedObject>
{
public:
    explicit Plain(const Plan& tested)
        : PairwiseEngine(tested), factory(std::make_unique<geometry::ShapeFactory>(loader))
    {}

protected:
    using Body = test::plain::BoundedObject;

    void buildImplant(dataobject::Implant3D& implant, Body& envelope, Body& zone) override
    {
        envelope =
            test::plain::makeBoundedObject(*collision::generateSafetyZone(factory, implant, 0.0F),
                                           implant.getObjectTransform(), 100.0F);
        zone =
            test::plain::makeBoundedObject(*collision::generateSafetyZone(factory, implant, 3.0F),
                                           implant.getObjectTransform(), 100.0F);
    }

    void moveImplant(dataobject::Implant3D& implant, Body& envelope, Body& zone) override
    {
        buildImplant(implant, envelope, zone);
    }

    void buildNerve(const dataobject::Nerve& nerve, Body& body) override
    {
        body = test::plain::makeBoundedObject(nerve);
    }

    void buildPin(dataobject::AnchorPin3D& pin, Body& body) override
    {
        body =
            test::plain::makeBoundedObject(*pin.getShapeNode(), pin.getObjectTransform(), 100.0F);
    }

    bool intersect(Body& a, Body& b) override { return test::plain::overlaps(a, b); }

private:
    geometry::ShapeLoader loader;
    std::unique_ptr<geometry::ShapeFactory> factory;
};

} // namespace

std::unique_ptr<Engine> makePlain(const Plan& plan)
{
    return std::make_unique<Plain>(plan);
}

} // namespace benchmarks
