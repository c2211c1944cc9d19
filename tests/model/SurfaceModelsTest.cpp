// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

// Surfaces of the scene: relative moves, their commitment, center, box and notification.

#include <tests/support/Matrices.h>
#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

namespace {

class Surface3DModelTest : public testing::Test
{
protected:
    Surface3DModelTest()
    {
        surface.setMesh(geometry::Mesh({{0.0F, 0.0F, 0.0F}, {2.0F, 4.0F, 6.0F}}, {}));
    }

    Surface3DModel surface;
};

TEST(Surface3DModel, IsNewWithoutASurface)
{
    const Surface3DModel surface;
    EXPECT_EQ(surface.getMesh().getNumVertices(), 0);
    EXPECT_TRUE(surface.getObjectTransform().isIdentity());
    EXPECT_EQ(surface.getCenterOfMass(), QVector3D());
    EXPECT_TRUE(surface.getSceneBoundingBox().isNull());
}

TEST_F(Surface3DModelTest, MovesAreComposedOntoThePlacement)
{
    QMatrix4x4 doubling;
    doubling.scale(2.0F);
    surface.setObjectTransform(test::translation(1.0F, 0.0F, 0.0F));
    surface.setObjectTransform(doubling);
    EXPECT_EQ(surface.getObjectTransform().map(QVector3D(0.0F, 0.0F, 0.0F)),
              QVector3D(2.0F, 0.0F, 0.0F));
    EXPECT_EQ(surface.getMesh().getVertices().last(), QVector3D(2.0F, 4.0F, 6.0F));
}

TEST_F(Surface3DModelTest, RefreshCommitsTheMoveToTheVertices)
{
    surface.setObjectTransform(test::translation(1.0F, 0.0F, 0.0F));
    surface.refresh();
    EXPECT_TRUE(surface.getObjectTransform().isIdentity());
    EXPECT_EQ(surface.getMesh().getVertices().last(), QVector3D(3.0F, 4.0F, 6.0F));
    surface.setObjectTransform(test::translation(0.0F, 10.0F, 0.0F));
    surface.refresh();
    EXPECT_EQ(surface.getMesh().getVertices().last(), QVector3D(3.0F, 14.0F, 6.0F));
}

TEST_F(Surface3DModelTest, RefreshWithoutAMoveLeavesTheVertices)
{
    surface.refresh();
    EXPECT_EQ(surface.getMesh().getVertices().last(), QVector3D(2.0F, 4.0F, 6.0F));
}

TEST_F(Surface3DModelTest, SceneBoxIsTheSameBeforeAndAfterTheCommitment)
{
    const primitives::BoundingBox expected(1.0F, 0.0F, 0.0F, 3.0F, 4.0F, 6.0F);
    surface.setObjectTransform(test::translation(1.0F, 0.0F, 0.0F));
    EXPECT_EQ(surface.getSceneBoundingBox(), expected);
    surface.refresh();
    EXPECT_EQ(surface.getSceneBoundingBox(), expected);
}

TEST_F(Surface3DModelTest, SceneBoxIsThatOfTheVerticesNotOfTheirTurnedBox)
{
    QMatrix4x4 turn;
    turn.rotate(45.0F, 0.0F, 0.0F, 1.0F);
    surface.setMesh(geometry::Mesh({{1.0F, 1.0F, 0.0F}, {-1.0F, -1.0F, 0.0F}}, {}));
    surface.setObjectTransform(turn);
    EXPECT_NEAR(surface.getSceneBoundingBox().deltaX(), 0.0F, 1e-6F);
    EXPECT_NEAR(surface.getSceneBoundingBox().deltaY(), 2.828427F, 1e-5F);
}

TEST_F(Surface3DModelTest, CentreOfMassIsTheMeanOfTheVertices)
{
    EXPECT_EQ(surface.getCenterOfMass(), QVector3D(1.0F, 2.0F, 3.0F));
}

TEST_F(Surface3DModelTest, ANewMeshIsInSceneCoordinates)
{
    surface.setObjectTransform(test::translation(1.0F, 0.0F, 0.0F));
    surface.setMesh(geometry::Mesh({{7.0F, 7.0F, 7.0F}}, {}));
    EXPECT_TRUE(surface.getObjectTransform().isIdentity());
    EXPECT_EQ(surface.getSceneBoundingBox().min(), QVector3D(7.0F, 7.0F, 7.0F));
}

TEST_F(Surface3DModelTest, NotifiesOfEachChangeAndOfABracketOnce)
{
    test::ChangeCounter counter;
    surface.attach(&counter);
    surface.setMesh({});
    surface.setObjectTransform({});
    surface.refresh();
    EXPECT_EQ(counter.changes, 3);
    {
        const EditLocker locker(&surface);
        surface.setObjectTransform({});
        surface.refresh();
    }
    EXPECT_EQ(counter.changes, 4);
}

} // namespace
