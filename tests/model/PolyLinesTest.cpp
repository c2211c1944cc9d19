// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/PolyLines.h>

// Poly-lines: free and tied points, points with a position for each frame, and the editor that
// changes them.

#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

namespace {

using dataobject::AttachablePoint;
using dataobject::PointUnlinkedMultiPositions;
using test::expectVector;

constexpr auto kVolume = VolumeContext;
constexpr auto kHead = NaturalHeadPositionContext;

TEST(PointUnlinked, HasOnePositionForEveryFrameOrNone)
{
    PointUnlinked point;
    EXPECT_FALSE(point.getPosition(kVolume));
    EXPECT_EQ(point.getLinkedObject(), nullptr);
    point.setPosition({1.0F, 2.0F, 3.0F});
    expectVector(point.getPosition(kVolume).value(), 1.0F, 2.0F, 3.0F);
    expectVector(point.getPosition(kHead).value(), 1.0F, 2.0F, 3.0F);
}

TEST(PointLinked, HasThePositionOfItsObject)
{
    const auto object = std::make_shared<AttachablePoint>();
    const PointLinked point(object);
    EXPECT_EQ(point.getLinkedObject(), object);
    object->setPosition({4.0F, 5.0F, 6.0F});
    expectVector(point.getPosition(kVolume).value(), 4.0F, 5.0F, 6.0F);
    EXPECT_FALSE(PointLinked(nullptr).getPosition(kVolume));
}

TEST(PointUnlinkedMultiPositions, HasAPositionForEachFrame)
{
    PointUnlinkedMultiPositions point;
    point.setPosition(kHead, {1.0F, 0.0F, 0.0F});
    EXPECT_FALSE(point.getPosition(kVolume));
    expectVector(point.getPosition(kHead).value(), 1.0F, 0.0F, 0.0F);
    EXPECT_EQ(point.getLinkedObject(), nullptr);
}

class PolyLineTest : public testing::Test
{
protected:
    PolyLineTest()
    {
        line.addPoint(std::make_shared<PointUnlinked>(QVector3D(1.0F, 0.0F, 0.0F)));
        line.addPoint(many);
        line.addPoint(std::make_shared<PointLinked>(object));
        line.attach(&counter);
    }

    std::shared_ptr<AttachablePoint> object = std::make_shared<AttachablePoint>();
    std::shared_ptr<PointUnlinkedMultiPositions> many =
        std::make_shared<PointUnlinkedMultiPositions>();
    test::ChangeCounter counter;
    PolyLine line;
};

TEST_F(PolyLineTest, GivesItsPointsAndTheirPositions)
{
    EXPECT_EQ(line.getNumPositions(), 3);
    EXPECT_EQ(line.getPoint(1), many);
    EXPECT_EQ(line.getPoint(-1), nullptr);
    EXPECT_EQ(line.getPoint(3), nullptr);
    expectVector(line.getPosition(0, kVolume).value(), 1.0F, 0.0F, 0.0F);
    EXPECT_FALSE(line.getPosition(1, kVolume));
    EXPECT_FALSE(line.getPosition(3, kVolume));
}

TEST_F(PolyLineTest, IsShownInTheVolumeAtFirst)
{
    EXPECT_EQ(line.getSupportedContexts(), QList<Context>({kVolume}));
    line.setSupportedContexts({kHead, kVolume});
    EXPECT_EQ(line.getSupportedContexts(), QList<Context>({kHead, kVolume}));
}

TEST_F(PolyLineTest, IgnoresNullPointsAndIndicesOutOfRange)
{
    line.addPoint(nullptr);
    line.replacePoint(0, nullptr);
    line.replacePoint(3, std::make_shared<PointUnlinked>());
    line.replacePoint(-1, std::make_shared<PointUnlinked>());
    EXPECT_EQ(line.getNumPositions(), 3);
    EXPECT_NE(line.getPoint(0), nullptr);
    EXPECT_EQ(counter.changes, 0);
}

TEST_F(PolyLineTest, EditorSetsAPointFreeOrTiesIt)
{
    line.getPointEditor()->changePoint(0, {7.0F, 8.0F, 9.0F}, nullptr, -1);
    expectVector(line.getPosition(0, kVolume).value(), 7.0F, 8.0F, 9.0F);
    line.getPointEditor()->changePoint(0, {0.0F, 0.0F, 0.0F}, object, 0);
    EXPECT_EQ(line.getPoint(0)->getLinkedObject(), object);
    line.getPointEditor()->changePoint(2, {1.0F, 1.0F, 1.0F}, nullptr, -1);
    EXPECT_EQ(line.getPoint(2)->getLinkedObject(), nullptr);
    line.getPointEditor()->changePoint(5, {1.0F, 1.0F, 1.0F}, nullptr, -1);
    EXPECT_EQ(counter.changes, 3);
}

TEST_F(PolyLineTest, EditorChangesOneFrameOfAManyFramedPointOnly)
{
    line.getPointEditor()->changePointInContext(1, {1.0F, 2.0F, 3.0F}, kHead);
    EXPECT_FALSE(line.getPosition(1, kVolume));
    expectVector(line.getPosition(1, kHead).value(), 1.0F, 2.0F, 3.0F);
    line.getPointEditor()->changePointInContext(0, {1.0F, 2.0F, 3.0F}, kHead);
    expectVector(line.getPosition(0, kHead).value(), 1.0F, 0.0F, 0.0F);
    line.getPointEditor()->changePointInContext(9, {1.0F, 2.0F, 3.0F}, kHead);
    EXPECT_EQ(counter.changes, 1);
}

} // namespace
