// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Distraction.h>

// Distractors, jaw joints, apices, root canals, original models, the line of a nerve.

#include <CoreAlgorithms/model/dataobjects/Endodontics.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Implants.h>
#include <CoreAlgorithms/model/dataobjects/Joints.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

namespace {

using test::expectVector;
using test::quarterTurnAndShift;

TEST(Distractor, MovesToAPositionWithoutTurning)
{
    Distractor distractor;
    const auto tree = std::make_shared<SurfaceTree>();
    distractor.setSurfaceTree(tree);
    EXPECT_EQ(distractor.getSurfaceTree(), tree);
    distractor.setTransform(quarterTurnAndShift());
    distractor.moveTo({1.0F, 2.0F, 3.0F});
    expectVector(distractor.getTransform().column(3).toVector3D(), 1.0F, 2.0F, 3.0F);
    expectVector(distractor.getTransform().column(0).toVector3D(), 0.0F, 1.0F, 0.0F);
    EXPECT_TRUE(tree->getObjectTransform().isIdentity()) << "the shapes are moved on their own";
}

TEST(TemporomandibularJoint, KeepsItsLine)
{
    dataobject::TemporomandibularJoint joint;
    EXPECT_EQ(joint.getGuidingLine(), nullptr);
    const auto line = std::make_shared<GuidingLine>();
    joint.setGuidingLine(line);
    EXPECT_EQ(joint.getGuidingLine(), line);
}

TEST(Endodontics, KeepTheirPositionsAndNotify)
{
    dataobject::Apex apex;
    dataobject::RootCanal canal;
    test::ChangeCounter counter;
    apex.attach(&counter);
    canal.attach(&counter);
    apex.setPosition({1.0F, 2.0F, 3.0F});
    canal.setBasePosition({4.0F, 5.0F, 6.0F});
    expectVector(apex.getPosition(), 1.0F, 2.0F, 3.0F);
    expectVector(canal.getBasePosition(), 4.0F, 5.0F, 6.0F);
    EXPECT_EQ(counter.changes, 2);
}

TEST(Anatomy, KeepsTheModelsOfTheTimeBeforeSurgery)
{
    Anatomy anatomy;
    EXPECT_EQ(anatomy.getOriginalCranium(), nullptr);
    EXPECT_EQ(anatomy.getOriginalMandible(), nullptr);
    const auto cranium = std::make_shared<Surface3DModel>();
    const auto mandible = std::make_shared<Surface3DModel>();
    anatomy.setOriginalModels(cranium, mandible);
    EXPECT_EQ(anatomy.getOriginalCranium(), cranium);
    EXPECT_EQ(anatomy.getOriginalMandible(), mandible);
}

TEST(Nerve, KeepsItsLine)
{
    dataobject::Nerve nerve;
    EXPECT_EQ(nerve.getGuidingLine(), nullptr);
    const auto line = std::make_shared<GuidingSpline>();
    nerve.setGuidingLine(line);
    EXPECT_EQ(nerve.getGuidingLine(), line);
}

} // namespace
