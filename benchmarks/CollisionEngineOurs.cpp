// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <benchmarks/CollisionEngines.h>

#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

namespace benchmarks {

namespace {

class Ours : public Engine
{
public:
    explicit Ours(const Plan& tested)
        : plan(tested),
          implants(plan.implants.cbegin(), plan.implants.cend()),
          nerves(plan.nerves.cbegin(), plan.nerves.cend()),
          pins(plan.pins.cbegin(), plan.pins.cend()),
          detector(loader)
    {}

    int detectAll() override
    {
        detector.prepareAndStartDetection(implants, {implants.cbegin(), implants.cend()}, pins, {},
                                          nerves, {});
        return count();
    }

    int implantHasMoved(int implant) override
    {
        const auto& moved = plan.implants[implant];
        detector.shapeHasChanged(moved);
        detector.prepareAndStartDetection(implants, {moved}, pins, {}, nerves, {});
        return count();
    }

private:
    int count() const
    {
        const collision::ImplantCollisions& found = detector.getImplantCollisions();
        return int(found.implantImplantCollisions.size() + found.implantNerveCollisions.size() +
                   found.implantAnchorPinCollisions.size());
    }

    const Plan& plan;
    QSet<std::shared_ptr<dataobject::Implant3D>> implants;
    QSet<std::shared_ptr<dataobject::Nerve>> nerves;
    QSet<std::shared_ptr<dataobject::AnchorPin3D>> pins;
    geometry::ShapeLoader loader;
    collision::ImplantCollisionDetector detector;
};

} // namespace

std::unique_ptr<Engine> makeOurs(const Plan& plan)
{
    return std::make_unique<Ours>(plan);
}

} // namespace benchmarks
