// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/math/OrientedBoundingBox.h>

// primitives::OrientedBoundingBox: corners, inside and enclosing box of a placed box.

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace {

using primitives::BoundingBox;
using primitives::OrientedBoundingBox;

const BoundingBox kBox(1.0F, 2.0F, 3.0F, 4.0F, 6.0F, 8.0F);

// Maps (x, y, z) to (10 - y, 20 + x, 30 + z) by a quarter turn about z and a shift, exactly in
// single precision.
const QMatrix4x4 kTurnedAndShifted(0.0F, -1.0F, 0.0F, 10.0F, //
                                   1.0F, 0.0F, 0.0F, 20.0F,  //
                                   0.0F, 0.0F, 1.0F, 30.0F,  //
                                   0.0F, 0.0F, 0.0F, 1.0F);

TEST(OrientedBoundingBox, IsPlacedByTheIdentityAtFirst)
{
    const OrientedBoundingBox box(kBox);
    EXPECT_EQ(box.getAABBOfTransformedBoundingBox(), kBox);
    const QList<QVector3D> corners = box.getCornerPoints();
    ASSERT_EQ(corners.size(), 8);
    EXPECT_EQ(corners[0], QVector3D(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(corners[7], QVector3D(4.0F, 6.0F, 8.0F));
}

TEST(OrientedBoundingBox, CornersAreThePlacedOnesWithABitForEachLocalAxis)
{
    const QList<QVector3D> expected{
        {8.0F, 21.0F, 33.0F}, {8.0F, 24.0F, 33.0F}, {4.0F, 21.0F, 33.0F}, {4.0F, 24.0F, 33.0F},
        {8.0F, 21.0F, 38.0F}, {8.0F, 24.0F, 38.0F}, {4.0F, 21.0F, 38.0F}, {4.0F, 24.0F, 38.0F}};
    EXPECT_EQ(OrientedBoundingBox(kBox).transformed(kTurnedAndShifted).getCornerPoints(), expected);
}

TEST(OrientedBoundingBox, EnclosingBoxIsAroundThePlacedCorners)
{
    EXPECT_EQ(
        OrientedBoundingBox(kBox).transformed(kTurnedAndShifted).getAABBOfTransformedBoundingBox(),
        BoundingBox(4.0F, 21.0F, 33.0F, 8.0F, 24.0F, 38.0F));
}

TEST(OrientedBoundingBox, IsClosed)
{
    const OrientedBoundingBox box = OrientedBoundingBox(kBox).transformed(kTurnedAndShifted);
    EXPECT_TRUE(box.isInside({5.0F, 22.0F, 35.0F})) << "inside";
    EXPECT_TRUE(box.isInside({8.0F, 22.0F, 35.0F})) << "face";
    for (const QVector3D& corner : box.getCornerPoints())
        EXPECT_TRUE(box.isInside(corner));
    EXPECT_FALSE(box.isInside({8.001F, 22.0F, 35.0F}));
    EXPECT_FALSE(box.isInside({5.0F, 20.999F, 35.0F}));
    EXPECT_FALSE(box.isInside({5.0F, 22.0F, 38.001F}));
}

TEST(OrientedBoundingBox, PointWhereTheBoxWasBeforeItsPlacementIsOutside)
{
    EXPECT_FALSE(
        OrientedBoundingBox(kBox).transformed(kTurnedAndShifted).isInside({2.0F, 3.0F, 4.0F}));
}

TEST(OrientedBoundingBox, InsideIsNarrowerThanTheEnclosingBox)
{
    // A square of half side 1 is turned by 45 degrees. Its enclosing box has half side sqrt(2), and
    // the corners of that box are outside the square.
    QMatrix4x4 matrix;
    matrix.rotate(45.0F, 0.0F, 0.0F, 1.0F);
    const OrientedBoundingBox box =
        OrientedBoundingBox(BoundingBox(-1.0F, -1.0F, -1.0F, 1.0F, 1.0F, 1.0F)).transformed(matrix);
    EXPECT_TRUE(box.getAABBOfTransformedBoundingBox().contains({1.3F, 1.3F, 0.0F}));
    EXPECT_FALSE(box.isInside({1.3F, 1.3F, 0.0F}));
    EXPECT_TRUE(box.isInside({1.4F, 0.0F, 0.0F}));
    EXPECT_FALSE(box.isInside({1.42F, 0.0F, 0.0F}));
}

TEST(OrientedBoundingBox, LaterPlacementActsAfterTheEarlier)
{
    QMatrix4x4 shift;
    shift.translate(10.0F, 0.0F, 0.0F);
    QMatrix4x4 stretch;
    stretch.scale(2.0F);
    const OrientedBoundingBox box(kBox);
    EXPECT_EQ(box.transformed(shift).transformed(stretch).getAABBOfTransformedBoundingBox(),
              BoundingBox(22.0F, 4.0F, 6.0F, 28.0F, 12.0F, 16.0F));
    EXPECT_EQ(box.transformed(stretch).transformed(shift).getAABBOfTransformedBoundingBox(),
              BoundingBox(12.0F, 4.0F, 6.0F, 18.0F, 12.0F, 16.0F));
}

TEST(OrientedBoundingBox, TransformedDoesNotChangeTheBoxItself)
{
    const OrientedBoundingBox box(kBox);
    EXPECT_TRUE(box.transformed(kTurnedAndShifted).isInside({5.0F, 22.0F, 35.0F}));
    EXPECT_TRUE(box.isInside({2.0F, 3.0F, 4.0F}));
    EXPECT_EQ(box.getAABBOfTransformedBoundingBox(), kBox);
}

TEST(OrientedBoundingBox, NullBoxContainsNothingAndEnclosesNothing)
{
    const OrientedBoundingBox box =
        OrientedBoundingBox(BoundingBox()).transformed(kTurnedAndShifted);
    EXPECT_FALSE(box.isInside({10.0F, 20.0F, 30.0F})) << "where its origin is placed";
    EXPECT_FALSE(box.isInside({0.0F, 0.0F, 0.0F}));
    EXPECT_TRUE(box.getAABBOfTransformedBoundingBox().isNull());
}

TEST(OrientedBoundingBox, NullBoxStillHasEightCornersInOnePlace)
{
    EXPECT_EQ(OrientedBoundingBox(BoundingBox()).transformed(kTurnedAndShifted).getCornerPoints(),
              QList<QVector3D>(8, QVector3D(10.0F, 20.0F, 30.0F)));
}

TEST(OrientedBoundingBox, ContainsNoPointThatIsNotFinite)
{
    const OrientedBoundingBox box = OrientedBoundingBox(kBox).transformed(kTurnedAndShifted);
    for (const float bad :
         {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
        EXPECT_FALSE(box.isInside({bad, 22.0F, 35.0F})) << bad;
        EXPECT_FALSE(box.isInside({5.0F, 22.0F, bad})) << bad;
    }
}

TEST(OrientedBoundingBox, PlacedByNansContainsNothing)
{
    QMatrix4x4 matrix;
    matrix.fill(std::numeric_limits<float>::quiet_NaN());
    EXPECT_FALSE(OrientedBoundingBox(kBox).transformed(matrix).isInside({2.0F, 3.0F, 4.0F}));
}

TEST(OrientedBoundingBox, FlattenedBoxDoesNotContainWhatItHeldBefore)
{
    // The placement cannot be inverted, and the placed box has no extent along z.
    QMatrix4x4 flatten;
    flatten.scale(1.0F, 1.0F, 0.0F);
    EXPECT_FALSE(OrientedBoundingBox(kBox).transformed(flatten).isInside({2.0F, 3.0F, 4.0F}));
}

TEST(OrientedBoundingBox, RigidMotionCarriesTheInsideAlong)
{
    constexpr unsigned kSeed = 1234;
    SCOPED_TRACE(::testing::Message() << "seed " << kSeed);
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<float> unit(-1.0F, 1.0F);
    int countInside = 0;
    for (int round = 0; round < 500; ++round) {
        QMatrix4x4 motion;
        motion.translate(50.0F * unit(random), 50.0F * unit(random), 50.0F * unit(random));
        motion.rotate(180.0F * unit(random), unit(random), unit(random), unit(random));
        const QVector3D local(2.5F + 3.0F * unit(random), 4.0F + 4.0F * unit(random),
                              5.5F + 5.0F * unit(random));
        // Both answers are right within rounding of a face.
        bool nearFace = false;
        for (int axis = 0; axis < 3; ++axis) {
            nearFace = nearFace || qAbs(local[axis] - kBox.min()[axis]) < 1e-3F ||
                       qAbs(local[axis] - kBox.max()[axis]) < 1e-3F;
        }
        if (nearFace)
            continue;
        const bool inside = kBox.contains(local);
        countInside += inside ? 1 : 0;
        ASSERT_EQ(OrientedBoundingBox(kBox).transformed(motion).isInside(motion.map(local)), inside)
            << "round " << round;
    }
    // One eighth of the volume of the random points is inside: 62.5 of 500, standard deviation 7.
    EXPECT_GT(countInside, 30);
    EXPECT_LT(countInside, 100);
}

} // namespace
