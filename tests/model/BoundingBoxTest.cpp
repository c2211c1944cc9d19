// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/math/BoundingBox.h>

// primitives::BoundingBox: null and valid, closed containment and intersection, growth, placement,
// extents.

#include <gtest/gtest.h>

#include <QMatrix4x4>

#include <limits>
#include <random>

namespace {

using primitives::BoundingBox;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

const BoundingBox kBox(1.0F, 2.0F, 3.0F, 4.0F, 6.0F, 8.0F);

// ---- null and valid

TEST(BoundingBox, IsNullByDefault)
{
    const BoundingBox box;
    EXPECT_TRUE(box.isNull());
    EXPECT_EQ(box.min(), QVector3D());
    EXPECT_EQ(box.max(), QVector3D());
}

TEST(BoundingBox, OfSixZerosIsNull)
{
    EXPECT_TRUE(BoundingBox(0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F).isNull());
    EXPECT_TRUE(BoundingBox(QVector3D(), QVector3D()).isNull());
    EXPECT_TRUE(BoundingBox(-0.0F, 0.0F, -0.0F, 0.0F, -0.0F, 0.0F).isNull());
}

TEST(BoundingBox, WithAnyBoundThatIsNotZeroIsNotNull)
{
    for (int bound = 0; bound < 6; ++bound) {
        float bounds[6] = {};
        bounds[bound] = std::numeric_limits<float>::denorm_min();
        EXPECT_FALSE(
            BoundingBox(bounds[0], bounds[1], bounds[2], bounds[3], bounds[4], bounds[5]).isNull())
            << bound;
    }
}

TEST(BoundingBox, OfOnePointAwayFromTheOriginIsNotNull)
{
    const QVector3D point(1.0F, 2.0F, 3.0F);
    const BoundingBox box(point, point);
    EXPECT_FALSE(box.isNull());
    EXPECT_TRUE(box.isValid());
}

TEST(BoundingBox, WithCornersInOrderIsValid)
{
    EXPECT_TRUE(kBox.isValid());
    EXPECT_TRUE(BoundingBox().isValid()) << "the null box";
}

TEST(BoundingBox, WithAMinimumAboveItsMaximumIsNotValid)
{
    EXPECT_FALSE(BoundingBox(1.0F, 0.0F, 0.0F, 0.0F, 1.0F, 1.0F).isValid());
    EXPECT_FALSE(BoundingBox(0.0F, 1.0F, 0.0F, 1.0F, 0.0F, 1.0F).isValid());
    EXPECT_FALSE(BoundingBox(0.0F, 0.0F, 1.0F, 1.0F, 1.0F, 0.0F).isValid());
}

TEST(BoundingBox, WithABoundThatIsNotFiniteIsNotValid)
{
    for (const float bad : {kNan, kInfinity, -kInfinity}) {
        for (int bound = 0; bound < 6; ++bound) {
            float bounds[6] = {-1.0F, -1.0F, -1.0F, 1.0F, 1.0F, 1.0F};
            bounds[bound] = bad;
            EXPECT_FALSE(
                BoundingBox(bounds[0], bounds[1], bounds[2], bounds[3], bounds[4], bounds[5])
                    .isValid())
                << bad << " at " << bound;
        }
    }
}

// ---- corners and extents

TEST(BoundingBox, TakesSixFloatsAsMinimumThenMaximum)
{
    EXPECT_EQ(kBox.min(), QVector3D(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(kBox.max(), QVector3D(4.0F, 6.0F, 8.0F));
    EXPECT_EQ(kBox, BoundingBox(QVector3D(1.0F, 2.0F, 3.0F), QVector3D(4.0F, 6.0F, 8.0F)));
}

TEST(BoundingBox, ExtentsAreMaximumMinusMinimum)
{
    EXPECT_EQ(kBox.deltaX(), 3.0F);
    EXPECT_EQ(kBox.deltaY(), 4.0F);
    EXPECT_EQ(kBox.deltaZ(), 5.0F);
}

TEST(BoundingBox, WidthDepthAndHeightRunAlongXYAndZ)
{
    EXPECT_EQ(kBox.width(), 3.0F);
    EXPECT_EQ(kBox.depth(), 4.0F);
    EXPECT_EQ(kBox.height(), 5.0F);
}

TEST(BoundingBox, CenterIsHalfWayBetweenTheCorners)
{
    EXPECT_EQ(kBox.center(), QVector3D(2.5F, 4.0F, 5.5F));
    EXPECT_EQ(kBox.centerZ(), 5.5F);
}

TEST(BoundingBox, NullBoxHasNoExtentAndItsCenterIsTheOrigin)
{
    const BoundingBox null;
    EXPECT_EQ(null.width(), 0.0F);
    EXPECT_EQ(null.depth(), 0.0F);
    EXPECT_EQ(null.height(), 0.0F);
    EXPECT_EQ(null.center(), QVector3D());
}

TEST(BoundingBox, CornerNumberHasABitForEachAxis)
{
    EXPECT_EQ(kBox.corner(0), QVector3D(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(kBox.corner(1), QVector3D(4.0F, 2.0F, 3.0F));
    EXPECT_EQ(kBox.corner(2), QVector3D(1.0F, 6.0F, 3.0F));
    EXPECT_EQ(kBox.corner(3), QVector3D(4.0F, 6.0F, 3.0F));
    EXPECT_EQ(kBox.corner(4), QVector3D(1.0F, 2.0F, 8.0F));
    EXPECT_EQ(kBox.corner(5), QVector3D(4.0F, 2.0F, 8.0F));
    EXPECT_EQ(kBox.corner(6), QVector3D(1.0F, 6.0F, 8.0F));
    EXPECT_EQ(kBox.corner(7), QVector3D(4.0F, 6.0F, 8.0F));
}

TEST(BoundingBox, CornerIgnoresHigherBits)
{
    EXPECT_EQ(kBox.corner(8 + 5), kBox.corner(5));
    EXPECT_EQ(kBox.corner(-1), kBox.corner(7));
    EXPECT_EQ(kBox.corner(std::numeric_limits<int>::min()), kBox.corner(0));
}

// ---- containment

TEST(BoundingBox, ContainsItsInside)
{
    EXPECT_TRUE(kBox.contains({2.0F, 3.0F, 4.0F}));
}

TEST(BoundingBox, ContainsItsFacesEdgesAndCorners)
{
    EXPECT_TRUE(kBox.contains({1.0F, 3.0F, 4.0F})) << "face";
    EXPECT_TRUE(kBox.contains({2.0F, 6.0F, 8.0F})) << "edge";
    for (int corner = 0; corner < 8; ++corner)
        EXPECT_TRUE(kBox.contains(kBox.corner(corner))) << corner;
}

TEST(BoundingBox, DoesNotContainTheNextFloatOutside)
{
    EXPECT_FALSE(kBox.contains({0x1.fffffep-1F, 3.0F, 4.0F})); // just below 1
    EXPECT_FALSE(kBox.contains({0x1.000002p+2F, 3.0F, 4.0F})); // just above 4
    EXPECT_FALSE(kBox.contains({2.0F, 0x1.fffffep+0F, 4.0F})); // just below 2
    EXPECT_FALSE(kBox.contains({2.0F, 0x1.800002p+2F, 4.0F})); // just above 6
    EXPECT_FALSE(kBox.contains({2.0F, 3.0F, 0x1.7ffffep+1F})); // just below 3
    EXPECT_FALSE(kBox.contains({2.0F, 3.0F, 0x1.000002p+3F})); // just above 8
}

TEST(BoundingBox, NullBoxContainsNothing)
{
    EXPECT_FALSE(BoundingBox().contains({0.0F, 0.0F, 0.0F}));
    EXPECT_FALSE(BoundingBox().contains({1.0F, 0.0F, 0.0F}));
}

TEST(BoundingBox, ContainsNoPointThatIsNotFinite)
{
    for (const float bad : {kNan, kInfinity, -kInfinity}) {
        EXPECT_FALSE(kBox.contains({bad, 3.0F, 4.0F})) << bad;
        EXPECT_FALSE(kBox.contains({2.0F, bad, 4.0F})) << bad;
        EXPECT_FALSE(kBox.contains({2.0F, 3.0F, bad})) << bad;
    }
}

TEST(BoundingBox, WithNanBoundsContainsNothing)
{
    EXPECT_FALSE(BoundingBox(kNan, 2.0F, 3.0F, 4.0F, 6.0F, 8.0F).contains({2.0F, 3.0F, 4.0F}));
    EXPECT_FALSE(BoundingBox(1.0F, 2.0F, 3.0F, 4.0F, 6.0F, kNan).contains({2.0F, 3.0F, 4.0F}));
}

// ---- intersection

TEST(BoundingBox, OverlappingBoxesIntersect)
{
    const BoundingBox other(3.0F, 5.0F, 7.0F, 10.0F, 10.0F, 10.0F);
    EXPECT_TRUE(kBox.intersects(other));
    EXPECT_TRUE(other.intersects(kBox));
}

TEST(BoundingBox, TouchingBoxesIntersect)
{
    EXPECT_TRUE(kBox.intersects(BoundingBox(4.0F, 2.0F, 3.0F, 5.0F, 6.0F, 8.0F))) << "at a face";
    EXPECT_TRUE(kBox.intersects(BoundingBox(4.0F, 6.0F, 8.0F, 5.0F, 7.0F, 9.0F))) << "at a corner";
    EXPECT_TRUE(kBox.intersects(BoundingBox(0.0F, 0.0F, 0.0F, 1.0F, 2.0F, 3.0F)))
        << "at the other corner";
}

TEST(BoundingBox, BoxesApartAlongOneAxisDoNotIntersect)
{
    EXPECT_FALSE(kBox.intersects(BoundingBox(0x1.000002p+2F, 2.0F, 3.0F, 5.0F, 6.0F, 8.0F)));
    EXPECT_FALSE(kBox.intersects(BoundingBox(1.0F, 0x1.800002p+2F, 3.0F, 4.0F, 7.0F, 8.0F)));
    EXPECT_FALSE(kBox.intersects(BoundingBox(1.0F, 2.0F, 0x1.000002p+3F, 4.0F, 6.0F, 9.0F)));
}

TEST(BoundingBox, BoxInsideAnotherIntersectsIt)
{
    const BoundingBox inner(2.0F, 3.0F, 4.0F, 3.0F, 4.0F, 5.0F);
    EXPECT_TRUE(kBox.intersects(inner));
    EXPECT_TRUE(inner.intersects(kBox));
}

TEST(BoundingBox, NullBoxIntersectsAsThePointAtTheOrigin)
{
    const BoundingBox null;
    const BoundingBox roundTheOrigin(-1.0F, -1.0F, -1.0F, 1.0F, 1.0F, 1.0F);
    EXPECT_TRUE(null.intersects(roundTheOrigin));
    EXPECT_TRUE(roundTheOrigin.intersects(null));
    EXPECT_TRUE(null.intersects(null));
    EXPECT_FALSE(null.intersects(kBox));
    EXPECT_FALSE(kBox.intersects(null));
}

TEST(BoundingBox, WithNanBoundsIntersectsNothing)
{
    const BoundingBox bad(1.0F, kNan, 3.0F, 4.0F, kNan, 8.0F);
    EXPECT_FALSE(bad.intersects(kBox));
    EXPECT_FALSE(kBox.intersects(bad));
    EXPECT_FALSE(bad.intersects(bad));
}

TEST(BoundingBox, UnboundedBoxIntersectsEveryValidBox)
{
    const BoundingBox everything(-kInfinity, -kInfinity, -kInfinity, kInfinity, kInfinity,
                                 kInfinity);
    EXPECT_TRUE(everything.intersects(kBox));
    EXPECT_TRUE(kBox.intersects(everything));
}

// ---- growth

TEST(BoundingBox, IncludedPointReplacesTheNullBox)
{
    BoundingBox box;
    box.includePoint({5.0F, 6.0F, 7.0F});
    EXPECT_EQ(box, BoundingBox(5.0F, 6.0F, 7.0F, 5.0F, 6.0F, 7.0F));
}

TEST(BoundingBox, IncludedPointOutsideExtendsTheBox)
{
    BoundingBox box = kBox;
    box.includePoint({0.0F, 3.0F, 9.0F});
    EXPECT_EQ(box, BoundingBox(0.0F, 2.0F, 3.0F, 4.0F, 6.0F, 9.0F));
}

TEST(BoundingBox, IncludedPointInsideChangesNothing)
{
    BoundingBox box = kBox;
    box.includePoint({2.0F, 6.0F, 4.0F});
    EXPECT_EQ(box, kBox);
}

TEST(BoundingBox, HoldsEveryIncludedPointExceptTheOriginAloneByDesign)
{
    BoundingBox box;
    box.includePoint({0.0F, 0.0F, 0.0F});
    EXPECT_TRUE(box.isNull());
    box.includePoint({1.0F, 1.0F, 1.0F});
    EXPECT_EQ(box, BoundingBox(1.0F, 1.0F, 1.0F, 1.0F, 1.0F, 1.0F));
    box.includePoint({0.0F, 0.0F, 0.0F});
    EXPECT_EQ(box, BoundingBox(0.0F, 0.0F, 0.0F, 1.0F, 1.0F, 1.0F));
}

TEST(BoundingBox, NanCoordinatesExtendNothing)
{
    BoundingBox box = kBox;
    box.includePoint({kNan, kNan, kNan});
    EXPECT_EQ(box, kBox);
    box.includePoint({kNan, 0.0F, kNan});
    EXPECT_EQ(box, BoundingBox(1.0F, 0.0F, 3.0F, 4.0F, 6.0F, 8.0F));
}

TEST(BoundingBox, PointOfNansLeavesTheNullBoxNull)
{
    BoundingBox box;
    box.includePoint({kNan, kNan, kNan});
    EXPECT_TRUE(box.isNull());
}

TEST(BoundingBox, PointWithANanIsNotJoinedToTheOriginByTheNullBox)
{
    // The null box stands for nothing, so that its corner at the origin must not extend the box.
    BoundingBox box;
    box.includePoint({kNan, 5.0F, 6.0F});
    EXPECT_TRUE(box.isNull());
}

TEST(BoundingBox, UnionIsTheSmallestBoxAroundBoth)
{
    const BoundingBox other(0.0F, 3.0F, 7.0F, 2.0F, 4.0F, 9.0F);
    const BoundingBox both(0.0F, 2.0F, 3.0F, 4.0F, 6.0F, 9.0F);
    EXPECT_EQ(BoundingBox::createUnionOf(kBox, other), both);
    EXPECT_EQ(BoundingBox::createUnionOf(other, kBox), both);
}

TEST(BoundingBox, NullBoxAddsNothingToAUnion)
{
    EXPECT_EQ(BoundingBox::createUnionOf(kBox, BoundingBox()), kBox);
    EXPECT_EQ(BoundingBox::createUnionOf(BoundingBox(), kBox), kBox);
    EXPECT_TRUE(BoundingBox::createUnionOf(BoundingBox(), BoundingBox()).isNull());
}

// ---- placement

TEST(BoundingBox, TranslationMovesBothCorners)
{
    QMatrix4x4 matrix;
    matrix.translate(10.0F, 20.0F, 30.0F);
    EXPECT_EQ(kBox.transformed(matrix), BoundingBox(11.0F, 22.0F, 33.0F, 14.0F, 26.0F, 38.0F));
}

TEST(BoundingBox, MirroringKeepsMinimumBelowMaximum)
{
    QMatrix4x4 matrix;
    matrix.scale(-1.0F, 1.0F, -2.0F);
    EXPECT_EQ(kBox.transformed(matrix), BoundingBox(-4.0F, 2.0F, -16.0F, -1.0F, 6.0F, -6.0F));
}

TEST(BoundingBox, QuarterTurnExchangesTheExtents)
{
    // (x, y, z) -> (-y, x, z)
    const QMatrix4x4 matrix(0.0F, -1.0F, 0.0F, 0.0F, //
                            1.0F, 0.0F, 0.0F, 0.0F,  //
                            0.0F, 0.0F, 1.0F, 0.0F,  //
                            0.0F, 0.0F, 0.0F, 1.0F);
    EXPECT_EQ(kBox.transformed(matrix), BoundingBox(-6.0F, 1.0F, 3.0F, -2.0F, 4.0F, 8.0F));
}

TEST(BoundingBox, TransformedLooksAtAllEightCorners)
{
    // x' = x - y + z is smallest at minimum x, maximum y and minimum z, 1 - 6 + 3 = -2, and at most
    // 4 - 2 + 8 = 10.
    const QMatrix4x4 matrix(1.0F, -1.0F, 1.0F, 0.0F, //
                            0.0F, 1.0F, 0.0F, 0.0F,  //
                            0.0F, 0.0F, 1.0F, 0.0F,  //
                            0.0F, 0.0F, 0.0F, 1.0F);
    EXPECT_EQ(kBox.transformed(matrix), BoundingBox(-2.0F, 2.0F, 3.0F, 10.0F, 6.0F, 8.0F));
}

TEST(BoundingBox, NullBoxStaysNullWhereverItIsPlaced)
{
    QMatrix4x4 matrix;
    matrix.translate(10.0F, 20.0F, 30.0F);
    EXPECT_TRUE(BoundingBox().transformed(matrix).isNull());
}

TEST(BoundingBox, TransformedDoesNotChangeTheBoxItself)
{
    BoundingBox box = kBox;
    QMatrix4x4 matrix;
    matrix.scale(3.0F);
    EXPECT_NE(box.transformed(matrix).max(), box.max());
    EXPECT_EQ(box, BoundingBox(1.0F, 2.0F, 3.0F, 4.0F, 6.0F, 8.0F));
}

TEST(BoundingBox, TransformedByAMatrixOfNansIsNotValid)
{
    QMatrix4x4 matrix;
    matrix.fill(kNan);
    EXPECT_FALSE(kBox.transformed(matrix).isValid());
}

TEST(BoundingBox, HoldsEveryPointItWasBuiltFromAndTheUnionOfPartsIsTheWhole)
{
    constexpr unsigned kSeed = 4711;
    SCOPED_TRACE(::testing::Message() << "seed " << kSeed);
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<float> coordinate(-100.0F, 100.0F);
    for (int round = 0; round < 50; ++round) {
        QVector3D points[12];
        BoundingBox whole;
        BoundingBox firstHalf;
        BoundingBox secondHalf;
        for (int i = 0; i < 12; ++i) {
            points[i] = QVector3D(coordinate(random), coordinate(random), coordinate(random));
            whole.includePoint(points[i]);
            (i < 6 ? firstHalf : secondHalf).includePoint(points[i]);
        }
        for (const QVector3D& point : points)
            ASSERT_TRUE(whole.contains(point)) << "round " << round;
        ASSERT_EQ(BoundingBox::createUnionOf(firstHalf, secondHalf), whole) << "round " << round;
        ASSERT_EQ(BoundingBox::createUnionOf(secondHalf, firstHalf), whole) << "round " << round;
        ASSERT_TRUE(whole.isValid());
    }
}

} // namespace
