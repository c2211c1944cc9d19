// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Plans.h>

// Locked implant plans, and the collection of planned and post-operative moves.

#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

namespace {

using dataobject::LockedImplantPlan;
using dataobject::PlannedToPostOpCollection;
using test::expectVector;

QMatrix4x4 shift(float x)
{
    QMatrix4x4 matrix;
    matrix.translate(x, 0.0F, 0.0F);
    return matrix;
}

TEST(LockedImplantPlan, KeepsPlacementsAndComposesTheScannerOrientation)
{
    LockedImplantPlan plan;
    plan.lock({shift(1.0F), shift(2.0F)});
    EXPECT_TRUE(plan.getScannerOrientation().isIdentity());
    plan.updateScannerOrientation(shift(5.0F));
    plan.updateScannerOrientation(test::quarterTurnAndShift());
    // The shift acts first: (0, 0, 0) is mapped to (5, 0, 0), and that to (10, 25, 30).
    expectVector(plan.getScannerOrientation().map(QVector3D()), 10.0F, 25.0F, 30.0F);
    EXPECT_EQ(plan.getImplantPlacements(), QList<QMatrix4x4>({shift(1.0F), shift(2.0F)}));
    plan.lock({});
    EXPECT_TRUE(plan.getScannerOrientation().isIdentity()) << "locked again in the current frame";
}

TEST(PlannedToPostOpCollection, IsNewWithoutAnything)
{
    const PlannedToPostOpCollection collection;
    EXPECT_TRUE(collection.getTransformationSurgeryPartTypes().isEmpty());
    EXPECT_TRUE(collection.getComparedSurgeryPartTypes().isEmpty());
    EXPECT_FALSE(collection.getFromPreOpToPlannedTransformation(QStringLiteral("a")));
    EXPECT_FALSE(collection.getFromPreOpToPostOpTransformation(QStringLiteral("a")));
    EXPECT_FALSE(collection.getPreOpRotationPoint(QStringLiteral("a")));
}

TEST(PlannedToPostOpCollection, ListsThePartsThatHaveATransformation)
{
    PlannedToPostOpCollection collection;
    collection.setComparedSurgeryPartTypes({QStringLiteral("z")});
    collection.setFromPreOpToPlannedAndPostOpTransformations(
        {{QStringLiteral("b"), shift(1.0F)}},
        {{QStringLiteral("a"), shift(2.0F)}, {QStringLiteral("b"), shift(3.0F)}});
    EXPECT_EQ(collection.getTransformationSurgeryPartTypes(), QStringList({"a", "b"}));
    EXPECT_EQ(collection.getComparedSurgeryPartTypes(), QStringList({"z"}));
    EXPECT_FALSE(collection.getFromPreOpToPlannedTransformation(QStringLiteral("a")));
    EXPECT_EQ(collection.getFromPreOpToPostOpTransformation(QStringLiteral("a")).value(),
              shift(2.0F));
}

TEST(PlannedToPostOpCollection, AddsOrReplacesTheNamedPartsAndNotifiesOnce)
{
    PlannedToPostOpCollection collection;
    collection.setFromPreOpToPlannedAndPostOpTransformations(
        {{QStringLiteral("a"), shift(1.0F)}, {QStringLiteral("b"), shift(2.0F)}}, {});
    test::ChangeCounter counter;
    collection.attach(&counter);
    collection.setFromPreOpToPlannedAndPostOpTransformations({{QStringLiteral("b"), shift(3.0F)}},
                                                             {{QStringLiteral("b"), shift(4.0F)}});
    EXPECT_EQ(counter.changes, 1);
    EXPECT_EQ(collection.getFromPreOpToPlannedTransformation(QStringLiteral("a")).value(),
              shift(1.0F));
    EXPECT_EQ(collection.getFromPreOpToPlannedTransformation(QStringLiteral("b")).value(),
              shift(3.0F));
    EXPECT_EQ(collection.getFromPreOpToPostOpTransformation(QStringLiteral("b")).value(),
              shift(4.0F));
}

TEST(PlannedToPostOpCollection, KeepsARotationPointForEachPart)
{
    PlannedToPostOpCollection collection;
    collection.setPreOpRotationPoint(QStringLiteral("a"), {1.0F, 2.0F, 3.0F});
    expectVector(collection.getPreOpRotationPoint(QStringLiteral("a")).value(), 1.0F, 2.0F, 3.0F);
    EXPECT_FALSE(collection.getPreOpRotationPoint(QStringLiteral("b")));
    EXPECT_TRUE(collection.getTransformationSurgeryPartTypes().isEmpty());
}

} // namespace
