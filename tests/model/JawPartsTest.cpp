// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/JawParts.h>

// Parts that a surgery moves: centers of rotation, and the joints and the occlusal plane of a lower
// jaw.

#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

namespace {

using test::expectVector;

TEST(RotatableSurgeryPlanningPart, KeepsItsRotationPosition)
{
    Maxilla maxilla;
    test::ChangeCounter counter;
    maxilla.attach(&counter);
    expectVector(maxilla.getRotationPosition(), 0.0F, 0.0F, 0.0F);
    maxilla.setRotationPosition({1.0F, 2.0F, 3.0F});
    expectVector(maxilla.getRotationPosition(), 1.0F, 2.0F, 3.0F);
    EXPECT_EQ(counter.changes, 1);
}

TEST(Mandibula, CondylesTakeTheAutorotationPointsAlongOnlyOnRequest)
{
    Mandibula mandibula;
    mandibula.setCondylePositions({{1.0F, 0.0F, 0.0F}, {2.0F, 0.0F, 0.0F}}, false);
    expectVector(mandibula.getCondylePositions().first, 1.0F, 0.0F, 0.0F);
    expectVector(mandibula.getCondylePositions().second, 2.0F, 0.0F, 0.0F);
    expectVector(mandibula.getLeftAutoRotationPoint()->getPosition(), 0.0F, 0.0F, 0.0F);
    mandibula.setCondylePositions({{3.0F, 0.0F, 0.0F}, {4.0F, 0.0F, 0.0F}}, true);
    expectVector(mandibula.getLeftAutoRotationPoint()->getPosition(), 3.0F, 0.0F, 0.0F);
    expectVector(mandibula.getRightAutoRotationPoint()->getPosition(), 4.0F, 0.0F, 0.0F);
}

TEST(Mandibula, KeepsThePositionsOfItsOcclusalPlane)
{
    Mandibula mandibula;
    EXPECT_TRUE(mandibula.getOcclusalPlanePositions().isEmpty());
    mandibula.setOcclusalPlanePositions({{1.0F, 2.0F, 3.0F}});
    EXPECT_EQ(mandibula.getOcclusalPlanePositions(), QList<QVector3D>({{1.0F, 2.0F, 3.0F}}));
}

} // namespace
