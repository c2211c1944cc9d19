// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/CollisionFindings.h>

// Covered: findCollisions(), what is notified of single objects, dragDeeper().

#include <tests/planner/PlanBuilders.h>

#include <phantom/Phantom.h>

#include <gtest/gtest.h>

#include <QStringList>

using planner::Finding;
using planner::PartKind;
using test::implantAt;
using test::nerveAlong;
using test::pinAlongX;

namespace {

QStringList collisions(const planner::CollisionPlan& plan)
{
    QStringList names;
    for (const Finding& finding : planner::findCollisions(plan)) {
        if (finding.collides)
            names.append(plan.implants[finding.implant].name + u'+' + nameOf(plan, finding.other));
    }
    return names;
}

TEST(Findings, CoverEveryPairOnce)
{
    planner::CollisionPlan plan;
    plan.implants = {implantAt({0, 0, 0}), implantAt({20, 0, 0}), implantAt({40, 0, 0})};
    plan.nerves = {nerveAlong({0, 50, 0}, {9, 50, 0}, 1.0F)};
    plan.pins = {pinAlongX({0, 70, 0}), pinAlongX({0, 80, 0})};
    EXPECT_EQ(planner::findCollisions(plan).size(), 3 + 3 + 6);
    EXPECT_TRUE(collisions(plan).isEmpty());
}

TEST(Findings, OfANervePassTwoMillimetersBesideAnImplantButNotBelowIt)
{
    planner::CollisionPlan plan;
    plan.implants = {implantAt({0, 0, 0})};
    plan.nerves = {nerveAlong({-20, 5, -4}, {20, 5, -4}, 1.0F)}; // 2 mm beside
    EXPECT_FALSE(planner::findCollisions(plan).first().collides);
    plan.nerves = {nerveAlong({-20, 0, -13}, {20, 0, -13}, 1.0F)}; // 2 mm below
    EXPECT_TRUE(planner::findCollisions(plan).first().collides);
    EXPECT_NEAR(planner::findCollisions(plan).first().clearance.distance, 2.0, 1e-5);
}

TEST(Findings, HoldTheClearancesOfTheBodyToObjectsOfEveryKind)
{
    planner::CollisionPlan plan;
    plan.implants = {implantAt({0, 0, 0}), implantAt({6.5F, 0, 0})};
    plan.nerves = {nerveAlong({-20, 0, -15}, {20, 0, -15}, 1.0F)};
    plan.pins = {pinAlongX({5, 0, -4})};
    const QList<Finding> findings = planner::findCollisions(plan);
    ASSERT_EQ(findings.size(), 5);
    EXPECT_NEAR(findings[0].clearance.distance, 2.5, 1e-5);
    EXPECT_NEAR(findings[1].clearance.distance, 4.0, 1e-5);
    EXPECT_NEAR(findings[2].clearance.distance, 3.0, 1e-5);
    EXPECT_NEAR(findings[2].clearance.pointOnFirst[0], 2.0, 1e-5);
    EXPECT_NEAR(findings[2].clearance.pointOnSecond[0], 5.0, 1e-5);
}

TEST(Findings, NameImplantsThatAreReportedAsCollidingThoughApart)
{
    planner::CollisionPlan plan;
    plan.implants = {implantAt({0, 0, 0}), implantAt({5.2F, 0, 0}), implantAt({3, 0, 1})};
    plan.pins = {pinAlongX({50, 0, 0})};
    QList<Finding> findings = planner::findCollisions(plan);
    EXPECT_TRUE(reportedThoughApart(plan, findings).isEmpty()); // the first overlaps the third
    for (Finding& finding : findings)
        finding.collides = true;
    const QString pair = plan.implants[0].name + QStringLiteral(" and ") + plan.implants[1].name;
    EXPECT_EQ(reportedThoughApart(plan, findings),
              QStringList(pair + QStringLiteral(
                                     ": reported as colliding; the surfaces are 1.2 mm apart.")));
}

TEST(Findings, TellWhichObjectsCollide)
{
    planner::CollisionPlan plan;
    plan.implants = {implantAt({0, 0, 0}), implantAt({3, 0, 1}), implantAt({0, 30, 0})};
    plan.pins = {pinAlongX({3, 30, -5}), pinAlongX({0, 70, 0})};
    const QList<Finding> findings = planner::findCollisions(plan);
    for (const qsizetype implant : {0, 1, 2})
        EXPECT_TRUE(isColliding(findings, {PartKind::Implant, implant}));
    EXPECT_TRUE(isColliding(findings, {PartKind::Pin, 0}));
    EXPECT_FALSE(isColliding(findings, {PartKind::Pin, 1}));
    EXPECT_FALSE(isZoneMet(findings, 0)); // by another implant alone
    EXPECT_TRUE(isZoneMet(findings, 2));
}

TEST(Findings, InTheBuiltInPatientAreOneOfEachKind)
{
    phantom::Settings settings;
    settings.voxelSizeMm = 0.0F;
    EXPECT_EQ(collisions(planner::createCollisionPlan(phantom::Patient(settings))),
              QStringList({QStringLiteral("32+pin 3"), QStringLiteral("33+34"),
                           QStringLiteral("36+left nerve")}));
}

class Drag : public testing::Test
{
protected:
    // The zone ends at z = -13, 2.5 mm above the nerve.
    Drag()
    {
        plan.implants = {implantAt({0, 0, 0})};
        plan.nerves = {nerveAlong({-20, 0, -16.5F}, {20, 0, -16.5F}, 1.0F)};
        steps = planner::dragDeeper(plan, 0, 0, 6, 1.0);
    }

    planner::CollisionPlan plan;
    QList<planner::DragStep> steps;
};

TEST_F(Drag, CollidesFromTheStepOnAtWhichTheZoneMeetsTheNerve)
{
    ASSERT_EQ(steps.size(), 6);
    for (qsizetype i = 0; i < steps.size(); ++i) {
        EXPECT_EQ(steps[i].collides, i >= 3) << i;
        EXPECT_EQ(steps[i].wayMm, double(i));
        EXPECT_NEAR(steps[i].clearance.distance, 5.5 - double(i), 1e-5);
        EXPECT_EQ(steps[i].placement.column(3).toVector3D(), QVector3D(0, 0, -float(i)));
    }
}

TEST_F(Drag, TellsTheObserverOnceWhenTheVerdictChanges)
{
    for (qsizetype i = 0; i < steps.size(); ++i)
        EXPECT_EQ(steps[i].notified, i == 3) << i;
}

TEST_F(Drag, PutsTheImplantBack)
{
    EXPECT_EQ(plan.implants.first().object->getObjectTransform(), QMatrix4x4());
}

} // namespace
