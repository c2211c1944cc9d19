// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/CollisionFindings.h>

#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

#include <algorithm>
#include <memory>

namespace planner {

namespace {

using collision::ImplantCollisionDetector;

struct Objects
{
    explicit Objects(const CollisionPlan& plan)
    {
        for (const PlannedImplant& implant : plan.implants)
            implants.insert(implant.object);
        for (const PlannedNerve& nerve : plan.nerves)
            nerves.insert(nerve.object);
        for (const PlannedPin& pin : plan.pins)
            pins.insert(pin.object);
    }

    QSet<std::shared_ptr<dataobject::Implant3D>> implants;
    QSet<std::shared_ptr<dataobject::Nerve>> nerves;
    QSet<std::shared_ptr<dataobject::AnchorPin3D>> pins;
};

void detectAll(ImplantCollisionDetector& detector, const Objects& objects)
{
    detector.prepareAndStartDetection(objects.implants,
                                      {objects.implants.cbegin(), objects.implants.cend()},
                                      objects.pins, {}, objects.nerves, {});
}

// The clearances of implants to other objects, whose surfaces are placed again for each pair.
class Measurer
{
public:
    collision::Clearance between(const PlannedImplant& implant, const PlannedImplant& other) const
    {
        return of(body(implant), body(other));
    }
    collision::Clearance between(const PlannedImplant& implant, const PlannedNerve& nerve) const
    {
        return of(body(implant), collision::PlacedSurface(*nerve.object));
    }
    collision::Clearance between(const PlannedImplant& implant, const PlannedPin& pin) const
    {
        return of(body(implant), collision::PlacedSurface(*pin.object));
    }

private:
    // What the planner plans has a valid surface.
    static collision::Clearance of(const collision::PlacedSurface& first,
                                   const collision::PlacedSurface& second)
    {
        return collision::clearance(first, second).value_or(collision::Clearance{});
    }
    collision::PlacedSurface body(const PlannedImplant& implant) const
    {
        return {factory, *implant.object, 0.0F};
    }

    geometry::ShapeLoader loader;
    std::unique_ptr<geometry::ShapeFactory> factory =
        std::make_unique<geometry::ShapeFactory>(loader);
};

class Listener : public patterns::Observer<ImplantCollisionDetector, std::nullptr_t>
{
public:
    void changedEvent(ImplantCollisionDetector*) override { ++changes; }

    int changes = 0;
};

} // namespace

QList<Finding> findCollisions(const CollisionPlan& plan)
{
    geometry::ShapeLoader loader;
    ImplantCollisionDetector detector(loader);
    detectAll(detector, Objects(plan));
    const collision::ImplantCollisions& found = detector.getImplantCollisions();

    const Measurer measurer;
    QList<Finding> findings;
    for (qsizetype i = 0; i < plan.implants.size(); ++i) {
        const PlannedImplant& implant = plan.implants[i];
        const auto addAll = [&](PartKind kind, const auto& parts, qsizetype first,
                                const auto& collisions) {
            for (qsizetype j = first; j < parts.size(); ++j)
                findings.append(
                    {i,
                     {kind, j},
                     collisions.contains(collision::makePair(implant.object, parts[j].object)),
                     measurer.between(implant, parts[j])});
        };
        addAll(PartKind::Implant, plan.implants, i + 1, found.implantImplantCollisions);
        addAll(PartKind::Nerve, plan.nerves, 0, found.implantNerveCollisions);
        addAll(PartKind::Pin, plan.pins, 0, found.implantAnchorPinCollisions);
    }
    return findings;
}

const QString& nameOf(const CollisionPlan& plan, const PlanPart& part)
{
    switch (part.kind) {
    case PartKind::Implant:
        return plan.implants[part.number].name;
    case PartKind::Nerve:
        return plan.nerves[part.number].name;
    case PartKind::Pin:
        break;
    }
    return plan.pins[part.number].name;
}

bool isColliding(const QList<Finding>& findings, const PlanPart& part)
{
    return std::ranges::any_of(findings, [&part](const Finding& finding) {
        return finding.collides &&
               (finding.other == part || PlanPart{PartKind::Implant, finding.implant} == part);
    });
}

bool isZoneMet(const QList<Finding>& findings, qsizetype implant)
{
    return std::ranges::any_of(findings, [implant](const Finding& finding) {
        return finding.collides && finding.implant == implant &&
               finding.other.kind != PartKind::Implant;
    });
}

QStringList reportedThoughApart(const CollisionPlan& plan, const QList<Finding>& findings)
{
    QStringList sentences;
    for (const Finding& finding : findings) {
        if (finding.other.kind == PartKind::Implant && finding.collides &&
            finding.clearance.relation == collision::Relation::Apart)
            sentences.append(
                QStringLiteral("%1 and %2: reported as colliding; the surfaces are %3 mm apart.")
                    .arg(plan.implants[finding.implant].name, nameOf(plan, finding.other))
                    .arg(finding.clearance.distance, 0, 'f', 1));
    }
    return sentences;
}

QList<DragStep> dragDeeper(const CollisionPlan& plan, qsizetype implant, qsizetype nerve, int steps,
                           double stepMm)
{
    const auto& object = plan.implants[implant].object;
    const QMatrix4x4 start = object->getObjectTransform();
    const Objects objects(plan);
    geometry::ShapeLoader loader;
    Listener listener;
    ImplantCollisionDetector detector(loader);
    detectAll(detector, objects);
    detector.attach(&listener);

    const Measurer measurer;
    QList<DragStep> drag;
    for (int i = 0; i < steps; ++i) {
        const int before = listener.changes;
        DragStep step;
        step.wayMm = i * stepMm;
        step.placement = start;
        step.placement.translate(0.0F, 0.0F, static_cast<float>(-step.wayMm));
        object->setObjectTransform(step.placement, TransformManipulationType::Translation);
        detector.shapeHasChanged(object);
        detector.prepareAndStartDetection(objects.implants, {object}, objects.pins, {},
                                          objects.nerves, {});
        step.collides = detector.isCollidingWithNerve(*object);
        step.notified = listener.changes > before;
        step.clearance = measurer.between(plan.implants[implant], plan.nerves[nerve]);
        drag.append(step);
    }
    object->setObjectTransform(start);
    return drag;
}

} // namespace planner
