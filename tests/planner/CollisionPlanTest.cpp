// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/CollisionPlan.h>

// Covered: createCollisionPlan() on the built-in patient and on a CT that was read.

#include <planner/input/Case.h>
#include <planner/planning/Meshes.h>
#include <tests/planner/PlanBuilders.h>

#include <phantom/Phantom.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <optional>

namespace {

const phantom::Patient& patient()
{
    static const phantom::Patient one([] {
        phantom::Settings settings;
        settings.voxelSizeMm = 0.0F; // nothing is painted
        return settings;
    }());
    return one;
}

// Bone, or a root that gives way to an implant.
bool isInJaw(const QVector3D& position)
{
    const phantom::Tissue tissue = patient().tissueAt(position);
    return tissue == phantom::Tissue::CancellousBone || tissue == phantom::Tissue::CorticalBone ||
           tissue == phantom::Tissue::Dentine || tissue == phantom::Tissue::Pulp;
}

TEST(PlanOfTheBuiltInPatient, HasEightImplantsTwoNervesAndFourPinsFromRightToLeft)
{
    const planner::CollisionPlan plan = planner::createCollisionPlan(patient());
    QStringList names;
    for (const auto& implant : plan.implants)
        names.append(implant.name);
    for (const auto& nerve : plan.nerves)
        names.append(nerve.name);
    for (const auto& pin : plan.pins)
        names.append(pin.name);
    EXPECT_EQ(
        names.join(u','),
        QStringLiteral("46,44,43,42,32,33,34,36,right nerve,left nerve,pin 1,pin 2,pin 3,pin 4"));
    for (qsizetype i = 1; i < plan.implants.size(); ++i)
        EXPECT_GT(plan.implants[i].object->getObjectTransform()(0, 3),
                  plan.implants[i - 1].object->getObjectTransform()(0, 3));
    for (qsizetype i = 1; i < plan.pins.size(); ++i)
        EXPECT_GT(plan.pins[i].object->getObjectTransform()(0, 3),
                  plan.pins[i - 1].object->getObjectTransform()(0, 3));
}

TEST(PlanOfTheBuiltInPatient, HasEveryApexInTheJaw)
{
    for (const auto& implant : planner::createCollisionPlan(patient()).implants) {
        const float length = implant.object->getDimensions().length;
        const QVector3D apex = implant.object->getObjectTransform().map(QVector3D(0, 0, -length));
        EXPECT_TRUE(isInJaw(apex)) << implant.name.toStdString();
    }
}

TEST(PlanOfTheBuiltInPatient, HasItsNervesInTheirCanals)
{
    for (const auto& nerve : planner::createCollisionPlan(patient()).nerves) {
        const geometry::Mesh mesh = planner::placedMesh(*nerve.object);
        for (const QVector3D& vertex : mesh.getVertices()) {
            float nearest = std::numeric_limits<float>::max();
            for (const QVector3D& sample : nerve.centerLine)
                nearest = std::min(nearest, vertex.distanceToPoint(sample));
            EXPECT_LE(nearest, 1.2001F); // the canal's radius
        }
    }
}

TEST(PlanOfTheBuiltInPatient, HasPinsWithTheTipInTheJawAndTheHeadOutside)
{
    for (const auto& pin : planner::createCollisionPlan(patient()).pins) {
        const QMatrix4x4& placed = pin.object->getObjectTransform();
        EXPECT_TRUE(isInJaw(placed.column(3).toVector3D()));
        const phantom::Tissue atHead =
            patient().tissueAt(placed.map(QVector3D(0, 0, pin.lengthMm)));
        EXPECT_TRUE(atHead == phantom::Tissue::SoftTissue || atHead == phantom::Tissue::Air);
    }
}

TEST(PlanOfTheBuiltInPatient, HasImplantsThatPointUp)
{
    for (const auto& implant : planner::createCollisionPlan(patient()).implants)
        EXPECT_GT(implant.object->getObjectTransform()(2, 2), 0.8F);
}

TEST(PlanOfACt, HasImplantsAtFirstMolarsAndTubesOfTheCanalsRadius)
{
    planner::Case planned;
    planned.landmarks = planner::landmarksOf(patient());
    planned.canals = {{true, {{0, 0, 0}, {0, 50, 0}}, 2.0F},
                      {false, {{90, 0, 0}, {90, 50, 0}}, std::nullopt}};
    const planner::CollisionPlan plan = planner::createCollisionPlan(planned);
    ASSERT_EQ(plan.implants.size(), 2);
    EXPECT_EQ(plan.implants[0].name, QStringLiteral("46"));
    EXPECT_EQ(plan.implants[1].name, QStringLiteral("36"));
    EXPECT_TRUE(plan.pins.isEmpty());
    ASSERT_EQ(plan.nerves.size(), 2);
    EXPECT_EQ(plan.nerves[0].name, QStringLiteral("right nerve"));
    EXPECT_EQ(plan.nerves[0].radiusMm, 2.0F);
    EXPECT_NEAR(plan.nerves[0].object->getMesh().getBoundingBox().max().z(), 2.0F, 0.05F);
    EXPECT_EQ(plan.nerves[1].name, QStringLiteral("left nerve"));
    EXPECT_EQ(plan.nerves[1].radiusMm, 1.2F) << "assumed";
}

TEST(ZoneMesh, StandsInTheScene)
{
    // D = 4 and L = 10 with margin 3: radius 3.5, from the platform to 3 mm below the apex.
    const primitives::BoundingBox box =
        planner::zoneMesh(test::implantAt({100, 0, 0}), 3.0F).getBoundingBox();
    EXPECT_EQ(box.min(), QVector3D(96.5F, -3.5F, -13.0F));
    EXPECT_EQ(box.max(), QVector3D(103.5F, 3.5F, 0.0F));
}

} // namespace
