// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/PlanOfEveryKind.h>

// Covered: the plan of every kind on the built-in patient and its way into a new frame.

#include <CoreAlgorithms/transforms/PlanningApplyTransform.h>

#include <phantom/Phantom.h>

#include <QSet>

#include <gtest/gtest.h>

namespace {

using namespace planner;

// One triangle is scan enough where crowns are not looked at.
PlanOfEveryKind makePlan()
{
    const geometry::Mesh crown(
        {{70.0F, 40.0F, 50.0F}, {80.0F, 40.0F, 50.0F}, {75.0F, 45.0F, 55.0F}}, {0, 1, 2, -1});
    return planEveryKind(phantom::Patient(), crown, crown);
}

TEST(PlanOfEveryKind, HasAnObjectForEachOfThe37Steps)
{
    const PlanOfEveryKind plan = makePlan();
    QSet<int> steps;
    for (const PlannedObject& object : plan.objects) {
        steps.insert(object.step);
        EXPECT_FALSE(object.coordinates().isEmpty()) << object.kind.toStdString();
    }
    EXPECT_EQ(steps.size(), 37);
    for (int step = 1; step <= 37; ++step)
        EXPECT_TRUE(steps.contains(step)) << step;
    EXPECT_EQ(plan.dataObjects().size(), plan.objects.size() + plan.otherObjects.size());
}

TEST(PlanOfEveryKind, EveryObjectMovesAndAllButPlanesAndSurgeryAreReturned)
{
    const PlanOfEveryKind plan = makePlan();
    QMatrix4x4 frame;
    frame.translate(30.0F, -20.0F, 10.0F);
    frame.rotate(20.0F, 0.0F, 0.0F, 1.0F);
    PlanningApplyTransform apply;
    apply.setDataObjects(plan.dataObjects());
    apply.applyTransform({});
    QList<QList<QVector3D>> before;
    for (const PlannedObject& object : plan.objects)
        before.append(object.coordinates());
    apply.setNewScannerTransform(frame);
    const QList<DataObject*> changed = apply.applyTransform(frame);
    for (qsizetype i = 0; i < plan.objects.size(); ++i) {
        const PlannedObject& object = plan.objects[i];
        EXPECT_NE(object.coordinates(), before[i]) << object.kind.toStdString();
        EXPECT_EQ(changed.count(object.object.get()),
                  object.step == 23 || object.step == 29 ? 0 : 1)
            << object.kind.toStdString();
    }
}

TEST(PlanOfEveryKind, ShowsWhatStandsWhereItStands)
{
    const PlanOfEveryKind plan = makePlan();
    const auto center = [&plan] { return plan.surfaces().first().mesh.getVertices().first(); };
    const QVector3D before = center();
    QMatrix4x4 frame;
    frame.translate(100.0F, 0.0F, 0.0F);
    PlanningApplyTransform apply;
    apply.setDataObjects(plan.dataObjects());
    apply.applyTransform(frame);
    EXPECT_LT((center() - before).distanceToPoint({100.0F, 0.0F, 0.0F}), 0.01F);
}

} // namespace
