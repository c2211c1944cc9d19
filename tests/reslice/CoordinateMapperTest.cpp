// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

// Covered: the planar and cephalometric mapping, both ways, the clipping of segments to the slab,
// lists of points.

#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <tests/reslice/OddDirections.h>
#include <tests/support/ExactComparison.h>
#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace {

using test::expectLine;
using test::expectPoint;
using test::makeCephReslice;
using test::makePlanarReslice;
using test::OddDirections;
using test::RandomGeometry;
using test::sameBits;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

bool isInPlane(const PlanarReslice& reslice, const QVector3D& point)
{
    return std::get<PointInPlane>(CoordinateMapper::_3D_To_2D_Planar(&reslice, point)) ==
           PointInPlane::InPlane;
}

bool isInSlice(const PlanarReslice& reslice, const QVector3D& point)
{
    return std::get<PointInSlice>(CoordinateMapper::_3D_To_2D_Planar(&reslice, point)) ==
           PointInSlice::InSlice;
}

class CountingReslice : public PlanarReslice
{
public:
    QMatrix4x4 getTransformationFromResliceToWorld() const override
    {
        ++transformationQueries;
        return PlanarReslice::getTransformationFromResliceToWorld();
    }

    mutable int transformationQueries = 0;
};

// Shape of the class and of its results

static_assert(std::has_virtual_destructor_v<CoordinateMapper>);
static_assert(sizeof(CoordinateMapper) == sizeof(void*), "no data but the virtual table");
static_assert(std::is_default_constructible_v<CoordinateMapper> &&
              std::is_copy_constructible_v<CoordinateMapper> &&
              std::is_copy_assignable_v<CoordinateMapper>);

TEST(CoordinateMapper, VerdictsAreZeroForInsideAndOneForOutside)
{
    EXPECT_EQ(static_cast<int>(PointInPlane::InPlane), 0);
    EXPECT_EQ(static_cast<int>(PointInPlane::OutOfPlane), 1);
    EXPECT_EQ(static_cast<int>(PointInSlice::InSlice), 0);
    EXPECT_EQ(static_cast<int>(PointInSlice::OutOfSlice), 1);
    EXPECT_EQ(static_cast<int>(LineInPlane::InPlane), 0);
    EXPECT_EQ(static_cast<int>(LineInPlane::OutOfPlane), 1);
}

// World to view, planar

TEST(CoordinateMapper, PointExactlyHalfTheSlabAboveOrBelowIsInPlane)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 0.5F);
    EXPECT_TRUE(isInPlane(*reslice, {10.0F, 20.0F, 0.25F}));
    EXPECT_TRUE(isInPlane(*reslice, {10.0F, 20.0F, -0.25F}));
}

TEST(CoordinateMapper, PointAHairBeyondHalfTheSlabIsOutOfPlane)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 0.5F);
    const float aHairFurther = std::nextafter(0.25F, 1.0F);
    EXPECT_FALSE(isInPlane(*reslice, {10.0F, 20.0F, aHairFurther}));
    EXPECT_FALSE(isInPlane(*reslice, {10.0F, 20.0F, -aHairFurther}));
}

TEST(CoordinateMapper, SlabIsGivenBySampleSizeAndNotByThicknessByDesign)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    reslice->setThickness(50.0F);
    EXPECT_FALSE(isInPlane(*reslice, {10.0F, 20.0F, 2.0F}));
    reslice->setThickness(0.0F);
    EXPECT_TRUE(isInPlane(*reslice, {10.0F, 20.0F, 0.5F}));
}

TEST(CoordinateMapper, AllFourEdgesOfTheRectangleAreInSlice)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    EXPECT_TRUE(isInSlice(*reslice, {0.0F, 40.0F, 0.0F}));
    EXPECT_TRUE(isInSlice(*reslice, {100.0F, 40.0F, 0.0F}));
    EXPECT_TRUE(isInSlice(*reslice, {50.0F, 0.0F, 0.0F}));
    EXPECT_TRUE(isInSlice(*reslice, {50.0F, 80.0F, 0.0F}));
}

TEST(CoordinateMapper, PointsAHairBeyondAnEdgeAreInPlaneButOutOfSlice)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    const float belowZero = std::nextafter(0.0F, -1.0F);
    for (const QVector3D& point :
         {QVector3D(belowZero, 40.0F, 0.0F), QVector3D(std::nextafter(100.0F, 200.0F), 40.0F, 0.0F),
          QVector3D(50.0F, belowZero, 0.0F),
          QVector3D(50.0F, std::nextafter(80.0F, 90.0F), 0.0F)}) {
        EXPECT_TRUE(isInPlane(*reslice, point));
        EXPECT_FALSE(isInSlice(*reslice, point));
    }
}

TEST(CoordinateMapper, PointOverTheRectangleButOutsideTheSlabIsOutOfSlice)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    EXPECT_FALSE(isInSlice(*reslice, {50.0F, 40.0F, 3.0F}));
}

TEST(CoordinateMapper, RectangleIsTestedBeforeMirroring)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    reslice->setMirroredIn2D(true, true);
    EXPECT_TRUE(isInSlice(*reslice, {100.0F, 0.0F, 0.0F}));
    EXPECT_FALSE(isInSlice(*reslice, {-1.0F, 40.0F, 0.0F}));
    EXPECT_FALSE(isInSlice(*reslice, {50.0F, 81.0F, 0.0F}));
}

TEST(CoordinateMapper, UnmirroredViewReversesTheYAxisAndTheVerticallyMirroredOneDoesNotByDesign)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    const QVector3D corner;
    expectPoint(CoordinateMapper::_3D_To_2D_PlanarPoint(reslice.get(), corner), 0.0, 80.0);
    reslice->setMirroredIn2D(false, true);
    expectPoint(CoordinateMapper::_3D_To_2D_PlanarPoint(reslice.get(), corner), 0.0, 0.0);
}

TEST(CoordinateMapper, HorizontallyMirroredViewCountsXFromTheWidth)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    reslice->setMirroredIn2D(true, false);
    expectPoint(CoordinateMapper::_3D_To_2D_PlanarPoint(reslice.get(), {30.0F, 20.0F, 0.0F}), 70.0,
                60.0);
    reslice->setMirroredIn2D(true, true);
    expectPoint(CoordinateMapper::_3D_To_2D_PlanarPoint(reslice.get(), {30.0F, 20.0F, 0.0F}), 70.0,
                20.0);
}

TEST(CoordinateMapper, MirroringSubtractsInDoublePrecision)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    reslice->setMirroredIn2D(true, false);
    // 0.1F is 0.100000001490116119384765625; in single precision the differences would end in
    // ...900001525878906.
    expectPoint(CoordinateMapper::_3D_To_2D_PlanarPoint(reslice.get(), {0.1F, 0.1F, 0.0F}),
                99.899999998509883880615234375, 79.899999998509883880615234375);
}

TEST(CoordinateMapper, PointOutsideTheSlabGetsTheViewPointOfItsFoot)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    bool inPlane = true;
    bool inSlice = true;
    expectPoint(
        CoordinateMapper::_3D_To_2D_Planar(reslice.get(), {30.0F, 20.0F, 55.0F}, inPlane, inSlice),
        30.0, 60.0);
    EXPECT_FALSE(inPlane);
    EXPECT_FALSE(inSlice);
}

TEST(CoordinateMapper, BothOverloadsGiveTheSamePointAndOppositeFlags)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    bool inPlane = false;
    bool inSlice = true;
    const QVector3D besideTheRectangle(130.0F, 20.0F, 0.5F);
    const QPointF byFlags =
        CoordinateMapper::_3D_To_2D_Planar(reslice.get(), besideTheRectangle, inPlane, inSlice);
    const auto [byVerdicts, planeVerdict, sliceVerdict] =
        CoordinateMapper::_3D_To_2D_Planar(reslice.get(), besideTheRectangle);
    expectPoint(byFlags, 130.0, 60.0);
    expectPoint(byVerdicts, 130.0, 60.0);
    EXPECT_TRUE(inPlane);
    EXPECT_EQ(planeVerdict, PointInPlane::InPlane);
    EXPECT_FALSE(inSlice);
    EXPECT_EQ(sliceVerdict, PointInSlice::OutOfSlice);
}

TEST(CoordinateMapper, WorldPointIsTakenIntoTheLocalFrameOfATurnedAndShiftedReslice)
{
    // A coronal reslice: local x along world x, local y along world z, normal along world -y,
    // origin (10, 20, 30).
    const QMatrix4x4 coronal(1.0F, 0.0F, 0.0F, 10.0F,  //
                             0.0F, 0.0F, -1.0F, 20.0F, //
                             0.0F, 1.0F, 0.0F, 30.0F,  //
                             0.0F, 0.0F, 0.0F, 1.0F);
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 4.0F, coronal);
    const auto [point, planeVerdict, sliceVerdict] =
        CoordinateMapper::_3D_To_2D_Planar(reslice.get(), {15.0F, 18.0F, 37.0F});
    expectPoint(point, 5.0, 73.0); // local (5, 7, 2)
    EXPECT_EQ(planeVerdict, PointInPlane::InPlane);
    EXPECT_EQ(sliceVerdict, PointInSlice::InSlice);
}

TEST(CoordinateMapper, GeometryIsQueriedAgainForEveryCall)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    expectPoint(CoordinateMapper::_3D_To_2D_PlanarPoint(reslice.get(), {1.0F, 2.0F, 0.0F}), 1.0,
                78.0);
    QMatrix4x4 shifted;
    shifted.translate(-10.0F, 0.0F, 0.0F);
    reslice->setTransformationFromResliceToWorld(shifted);
    reslice->setDimensions(QSizeF(100.0, 50.0));
    expectPoint(CoordinateMapper::_3D_To_2D_PlanarPoint(reslice.get(), {1.0F, 2.0F, 0.0F}), 11.0,
                48.0);
}

// View to world, planar

TEST(CoordinateMapper, ViewPointIsMappedOntoThePlaneOfTheReslice)
{
    const QMatrix4x4 coronal(1.0F, 0.0F, 0.0F, 10.0F,  //
                             0.0F, 0.0F, -1.0F, 20.0F, //
                             0.0F, 1.0F, 0.0F, 30.0F,  //
                             0.0F, 0.0F, 0.0F, 1.0F);
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F, coronal);
    expectPoint(CoordinateMapper::_2D_To_3D_Planar(reslice.get(), {5.0, 73.0}), 15.0F, 20.0F,
                37.0F);
}

TEST(CoordinateMapper, ViewPointIsUnmirroredInDoublePrecisionBeforeItIsNarrowed)
{
    const auto reslice = makePlanarReslice(16777218.0F, 16777218.0F, 1.0F);
    reslice->setMirroredIn2D(true, false);
    // 2^24 + 2 - (2^24 + 1) is 1; narrowed first, 2^24 + 1 would be 2^24 and the difference 2.
    expectPoint(CoordinateMapper::_2D_To_3D_Planar(reslice.get(), {16777217.0, 16777217.0}), 1.0F,
                1.0F, 0.0F);
}

TEST(CoordinateMapper, Law1ViewAndBackGivesTheFootForAllMirrorings)
{
    // Coordinates stay below 512 mm, where a float is exact to 2^-16 mm; a handful of operations
    // each way stay below 32 such roundings.
    constexpr float tolerance = 32.0F * 0x1p-16F;
    for (const bool horizontally : {false, true}) {
        for (const bool vertically : {false, true}) {
            RandomGeometry random(20261121);
            for (int i = 0; i < 500; ++i) {
                SCOPED_TRACE(testing::Message() << "seed 20261121, case " << i << ", mirrored "
                                                << horizontally << vertically);
                const auto reslice = random.planarReslice(1.0F);
                reslice->setMirroredIn2D(horizontally, vertically);
                const QMatrix4x4 placement = reslice->getTransformationFromResliceToWorld();
                const QVector3D point = random.point(150.0F);
                const QVector3D normal = placement.column(2).toVector3D();
                const QVector3D foot =
                    point - normal * QVector3D::dotProduct(
                                         normal, point - placement.column(3).toVector3D());

                const QPointF view = CoordinateMapper::_3D_To_2D_PlanarPoint(reslice.get(), point);
                const QVector3D back = CoordinateMapper::_2D_To_3D_Planar(reslice.get(), view);
                ASSERT_LE((back - foot).length(), tolerance);
            }
        }
    }
}

// Segments

TEST(CoordinateMapper, SegmentWithinTheSlabIsMappedWhole)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 2.0F);
    bool inPlane = false;
    const QLineF line = CoordinateMapper::_3D_To_2D_Line_Planar(reslice.get(), {10.0F, 10.0F, 1.0F},
                                                                {20.0F, 30.0F, -1.0F}, inPlane);
    expectLine(line, 10.0, 70.0, 20.0, 50.0);
    EXPECT_TRUE(inPlane);
}

TEST(CoordinateMapper, SegmentThatLeavesTheSlabUpwardsEndsAtTheUpperFace)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 2.0F);
    bool inPlane = false;
    // z runs from 0 to 4 while x runs from 10 to 18: z = 1 at x = 12.
    const QLineF line = CoordinateMapper::_3D_To_2D_Line_Planar(reslice.get(), {10.0F, 10.0F, 0.0F},
                                                                {18.0F, 10.0F, 4.0F}, inPlane);
    expectPoint(line.p1(), 10.0, 70.0);
    EXPECT_NEAR(line.p2().x(), 12.0, 4e-6); // the unit vector along the segment is rounded
    expectPoint({0.0, line.p2().y()}, 0.0, 70.0);
    EXPECT_TRUE(inPlane);
}

TEST(CoordinateMapper, SegmentThatLeavesTheSlabDownwardsEndsAtTheLowerFace)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 2.0F);
    bool inPlane = false;
    const QLineF line = CoordinateMapper::_3D_To_2D_Line_Planar(reslice.get(), {10.0F, 10.0F, 0.0F},
                                                                {13.0F, 10.0F, -4.0F}, inPlane);
    expectPoint(line.p1(), 10.0, 70.0);
    EXPECT_NEAR(line.p2().x(), 10.75, 4e-6); // direction (0.6, 0, -0.8), z = -1 after 1.25 mm
    EXPECT_TRUE(inPlane);
}

TEST(CoordinateMapper, SegmentThatEntersTheSlabStartsAtItsEndInsideByDesign)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 2.0F);
    bool inPlane = false;
    const QLineF fromAbove = CoordinateMapper::_3D_To_2D_Line_Planar(
        reslice.get(), {13.0F, 10.0F, 4.0F}, {10.0F, 10.0F, 0.0F}, inPlane);
    EXPECT_TRUE(inPlane);
    expectPoint(fromAbove.p1(), 10.0, 70.0);
    EXPECT_NEAR(fromAbove.p2().x(), 10.75, 4e-6);

    inPlane = false;
    const QLineF fromBelow = CoordinateMapper::_3D_To_2D_Line_Planar(
        reslice.get(), {16.0F, 10.0F, -8.0F}, {10.0F, 10.0F, 0.0F}, inPlane);
    EXPECT_TRUE(inPlane);
    expectPoint(fromBelow.p1(), 10.0, 70.0);
    EXPECT_NEAR(fromBelow.p2().x(), 10.75, 4e-6);
}

TEST(CoordinateMapper, SegmentThroughTheWholeSlabStartsAtTheUpperFaceFromEitherSideByDesign)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 2.0F);
    // Vertical, then moved by y so that the two faces have different images: direction (0, 0.6,
    // 0.8).
    const QVector3D below(10.0F, 20.0F, -4.0F);
    const QVector3D above(10.0F, 26.0F, 4.0F);
    for (const bool upwards : {true, false}) {
        bool inPlane = false;
        const QLineF line = CoordinateMapper::_3D_To_2D_Line_Planar(
            reslice.get(), upwards ? below : above, upwards ? above : below, inPlane);
        EXPECT_TRUE(inPlane);
        EXPECT_NEAR(line.p1().y(), 80.0 - 23.75, 8e-6); // z = 1
        EXPECT_NEAR(line.p2().y(), 80.0 - 22.25, 8e-6); // z = -1
    }
}

TEST(CoordinateMapper, SegmentOnOneSideOfTheSlabGivesTheNullLine)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 2.0F);
    for (const float side : {1.0F, -1.0F}) {
        bool inPlane = true;
        const QLineF line = CoordinateMapper::_3D_To_2D_Line_Planar(
            reslice.get(), {10.0F, 10.0F, side * 5.0F}, {20.0F, 10.0F, side * 1.5F}, inPlane);
        expectLine(line, 0.0, 0.0, 0.0, 0.0);
        EXPECT_FALSE(inPlane);
        const auto [pairLine, verdict] = CoordinateMapper::_3D_To_2D_Line_Planar(
            reslice.get(), {10.0F, 10.0F, side * 5.0F}, {20.0F, 10.0F, side * 1.5F});
        expectLine(pairLine, 0.0, 0.0, 0.0, 0.0);
        EXPECT_EQ(verdict, LineInPlane::OutOfPlane);
    }
}

TEST(CoordinateMapper, EndExactlyOnAFaceIsInside)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 2.0F);
    bool inPlane = false;
    const QLineF line = CoordinateMapper::_3D_To_2D_Line_Planar(reslice.get(), {10.0F, 10.0F, 1.0F},
                                                                {10.0F, 10.0F, 9.0F}, inPlane);
    EXPECT_TRUE(inPlane);
    expectLine(line, 10.0, 70.0, 10.0, 70.0);

    inPlane = false;
    const QLineF reversed = CoordinateMapper::_3D_To_2D_Line_Planar(
        reslice.get(), {10.0F, 10.0F, -9.0F}, {10.0F, 10.0F, -1.0F}, inPlane);
    EXPECT_TRUE(inPlane);
    expectLine(reversed, 10.0, 70.0, 10.0, 70.0);
}

TEST(CoordinateMapper, SegmentQueriesTheTransformationOnce)
{
    CountingReslice reslice;
    reslice.setSampleSize({1.0F, 1.0F, 2.0F});
    const QVector3D above(10.0F, 10.0F, 5.0F);
    const QVector3D inside(11.0F, 10.0F, 0.0F);
    const QVector3D below(12.0F, 10.0F, -5.0F);
    for (const auto& [p1, p2] : {std::pair(inside, inside), std::pair(inside, above),
                                 std::pair(below, inside), std::pair(above, below)}) {
        reslice.transformationQueries = 0;
        bool inPlane = false;
        CoordinateMapper::_3D_To_2D_Line_Planar(&reslice, p1, p2, inPlane);
        EXPECT_TRUE(inPlane);
        EXPECT_EQ(reslice.transformationQueries, 1);
    }
}

TEST(CoordinateMapper, SegmentVerdictOfThePairIsInPlaneWhereTheFlagIsTrue)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 2.0F);
    const auto [line, verdict] = CoordinateMapper::_3D_To_2D_Line_Planar(
        reslice.get(), {10.0F, 10.0F, 0.0F}, {20.0F, 10.0F, 0.0F});
    expectLine(line, 10.0, 70.0, 20.0, 70.0);
    EXPECT_EQ(verdict, LineInPlane::InPlane);
}

TEST(CoordinateMapper, ClippedLineIsMirroredAndMayLeaveTheRectangle)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 2.0F);
    reslice->setMirroredIn2D(true, true);
    bool inPlane = false;
    const QLineF line = CoordinateMapper::_3D_To_2D_Line_Planar(
        reslice.get(), {-30.0F, 10.0F, 0.0F}, {150.0F, 90.0F, 0.0F}, inPlane);
    expectLine(line, 130.0, 10.0, -50.0, 90.0);
    EXPECT_TRUE(inPlane);
}

// Onto another plane

TEST(CoordinateMapper, ViewPointIsProjectedAlongTheNormalOfAnAxialReslice)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    // x + z = 12; the view point (2, 75) is local (2, 5, 0), lifted to z = 10.
    const primitives::Plane slope(QVector3D(12.0F, 0.0F, 0.0F), QVector3D(1.0F, 0.0F, 1.0F));
    const QVector3D point =
        CoordinateMapper::map2DPointTo3DPointOnPlane(*reslice, {2.0, 75.0}, slope);
    EXPECT_EQ(point.x(), 2.0F);
    EXPECT_EQ(point.y(), 5.0F);
    EXPECT_NEAR(point.z(), 10.0F, 4e-6F); // the plane's normal is rounded
}

TEST(CoordinateMapper, ViewPointIsUnmirroredBeforeItIsProjected)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    reslice->setMirroredIn2D(true, true);
    const primitives::Plane lifted(QVector3D(0.0F, 0.0F, 7.0F), QVector3D(0.0F, 0.0F, 1.0F));
    expectPoint(CoordinateMapper::map2DPointTo3DPointOnPlane(*reslice, {98.0, 5.0}, lifted), 2.0F,
                5.0F, 7.0F);
}

TEST(CoordinateMapper, ProjectionUsesTheWorldDirectionInTheLocalFrameByDesign)
{
    // Coronal: direction 0 = (1, 0, 0), direction 1 = (0, 0, 1), so their product is (0, -1, 0),
    // which taken as a local vector runs down the view's local y axis. The plane z = 3 of the world
    // is local y = 3. The view point (2, 75) is local (2, 5, 0); it slides to local (2, 3, 0),
    // which is (2, 0, 3) in the world. Along the true normal it would never meet the plane and stay
    // at (2, 0, 5).
    const QMatrix4x4 coronal(1.0F, 0.0F, 0.0F, 0.0F,  //
                             0.0F, 0.0F, -1.0F, 0.0F, //
                             0.0F, 1.0F, 0.0F, 0.0F,  //
                             0.0F, 0.0F, 0.0F, 1.0F);
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F, coronal);
    const primitives::Plane level(QVector3D(0.0F, 0.0F, 3.0F), QVector3D(0.0F, 0.0F, 1.0F));
    expectPoint(CoordinateMapper::map2DPointTo3DPointOnPlane(*reslice, {2.0, 75.0}, level), 2.0F,
                0.0F, 3.0F);
}

TEST(CoordinateMapper, ProjectionDirectionIsNotNormalizedByDesign)
{
    // The product of the directions is 2^-20 long: normalizing it by Qt's rule would give zero and
    // no projection.
    const OddDirections reslice({0x1p-10F, 0.0F, 0.0F}, {0.0F, 0x1p-10F, 0.0F});
    const primitives::Plane lifted(QVector3D(0.0F, 0.0F, 7.0F), QVector3D(0.0F, 0.0F, 1.0F));
    expectPoint(CoordinateMapper::map2DPointTo3DPointOnPlane(reslice, {2.0, 75.0}, lifted), 2.0F,
                5.0F, 7.0F);
}

TEST(CoordinateMapper, PlaneParallelToTheProjectionLeavesThePointOnTheReslice)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    const primitives::Plane upright(QVector3D(50.0F, 0.0F, 0.0F), QVector3D(1.0F, 0.0F, 0.0F));
    expectPoint(CoordinateMapper::map2DPointTo3DPointOnPlane(*reslice, {2.0, 75.0}, upright), 2.0F,
                5.0F, 0.0F);
}

// Lists of points

TEST(CoordinateMapper, EmptyListGivesAnEmptyList)
{
    EXPECT_TRUE(
        CoordinateMapper::mapAllPointsOntoReslice({}, *makePlanarReslice(100.0F, 80.0F, 1.0F))
            .isEmpty());
}

TEST(CoordinateMapper, ListKeepsOrderAndPointsOutsideTheSlab)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    const auto images = CoordinateMapper::mapAllPointsOntoReslice(
        {{1.0F, 2.0F, 9.0F}, {3.0F, 4.0F, 0.0F}, {500.0F, 6.0F, -0.5F}}, *reslice);
    ASSERT_EQ(images.size(), 3);
    expectPoint(images[0].first, 1.0, 78.0);
    EXPECT_EQ(images[0].second, PointInPlane::OutOfPlane);
    expectPoint(images[1].first, 3.0, 76.0);
    EXPECT_EQ(images[1].second, PointInPlane::InPlane);
    expectPoint(images[2].first, 500.0, 74.0);
    EXPECT_EQ(images[2].second, PointInPlane::InPlane);
}

TEST(CoordinateMapper, ListQueriesTheTransformationOnce)
{
    CountingReslice reslice;
    const auto images = CoordinateMapper::mapAllPointsOntoReslice(QList<QVector3D>(100), reslice);
    EXPECT_EQ(images.size(), 100);
    EXPECT_EQ(reslice.transformationQueries, 1);
}

// The placements for which Qt and the library compute in different ways, or must not.
QList<QMatrix4x4> placementsOfAllKinds()
{
    RandomGeometry random(7);
    QMatrix4x4 shifted;
    shifted.translate(3.0F, -4.0F, 5.0F);
    QMatrix4x4 scaled;
    scaled.scale(2.0F, 3.0F, 0.1F);
    QMatrix4x4 turnedInThePlane;
    turnedInThePlane.rotate(30.0F, 0.0F, 0.0F, 1.0F);
    QMatrix4x4 perspective = random.rigidPlacement();
    perspective.setRow(3, QVector4D(0.001F, 0.002F, 0.003F, 1.0F));
    QMatrix4x4 twofold = random.rigidPlacement(); // fourth coordinate 2 for every point
    twofold.setRow(3, QVector4D(0.0F, 0.0F, 0.0F, 0.5F));
    QMatrix4x4 withoutInverse;
    withoutInverse.fill(0.0F);
    QMatrix4x4 notFinite = random.rigidPlacement();
    notFinite(0, 1) = kInfinity;
    return {QMatrix4x4(), shifted, scaled,         turnedInThePlane, random.rigidPlacement(),
            perspective,  twofold, withoutInverse, notFinite};
}

TEST(CoordinateMapper, Law3ListHasTheBitsOfThePointByPointMapping)
{
    RandomGeometry random(8);
    QList<QVector3D> points = {
        {-0.0F, 0.0F, -0.0F},    {kNan, 1.0F, 1.0F},      {1.0F, kNan, 1.0F},
        {1.0F, 1.0F, kNan},      {kInfinity, 1.0F, 1.0F}, {1.0F, -kInfinity, 1.0F},
        {1.0F, 1.0F, kInfinity}, {3e38F, -3e38F, 3e38F},  {1e-42F, -1e-42F, 0.0F}};
    for (int p = 0; p < 1000; ++p)
        points.append(random.point(200.0F));

    const QList<QMatrix4x4> placements = placementsOfAllKinds();
    for (qsizetype i = 0; i < placements.size(); ++i) {
        SCOPED_TRACE(testing::Message() << "seeds 7 and 8, placement " << i);
        const auto reslice = makePlanarReslice(120.0F, 80.0F, 20.0F, placements[i]);
        reslice->setMirroredIn2D(i % 2 == 1, i % 4 >= 2);
        const auto images = CoordinateMapper::mapAllPointsOntoReslice(points, *reslice);
        ASSERT_EQ(images.size(), points.size());
        for (qsizetype p = 0; p < points.size(); ++p) {
            const auto [point, verdict, slice] =
                CoordinateMapper::_3D_To_2D_Planar(reslice.get(), points[p]);
            ASSERT_TRUE(sameBits(images[p].first, point)) << p;
            ASSERT_EQ(images[p].second, verdict) << p;
        }
    }
}

// Cephalometric

TEST(CoordinateMapper, CephPointCountsYFromTheHeight)
{
    const auto reslice = makeCephReslice(200.0F, 150.0F);
    expectPoint(CoordinateMapper::_3D_To_2D_Ceph(reslice.get(), {30.0F, 40.0F, 77.0F}), 30.0,
                110.0);
    expectPoint(CoordinateMapper::_2D_To_3D_Ceph(reslice.get(), {30.0, 110.0}), 30.0F, 40.0F, 0.0F);
}

TEST(CoordinateMapper, OnlyPointOfViewOneMirrorsTheCephXAxis)
{
    const auto reslice = makeCephReslice(200.0F, 150.0F);
    for (const int view : {-1, 0, 2, 3}) {
        reslice->setPointOfView(static_cast<meta::PointOfView>(view));
        expectPoint(CoordinateMapper::_3D_To_2D_Ceph(reslice.get(), {30.0F, 40.0F, 0.0F}), 30.0,
                    110.0);
        expectPoint(CoordinateMapper::_2D_To_3D_Ceph(reslice.get(), {30.0, 110.0}), 30.0F, 40.0F,
                    0.0F);
    }
    reslice->setPointOfView(static_cast<meta::PointOfView>(1));
    expectPoint(CoordinateMapper::_3D_To_2D_Ceph(reslice.get(), {30.0F, 40.0F, 0.0F}), 170.0,
                110.0);
    expectPoint(CoordinateMapper::_2D_To_3D_Ceph(reslice.get(), {170.0, 110.0}), 30.0F, 40.0F,
                0.0F);
}

TEST(CoordinateMapper, CephIgnoresTheMirroringFlagsByDesign)
{
    const auto reslice = makeCephReslice(200.0F, 150.0F);
    reslice->setMirroredIn2D(true, true);
    expectPoint(CoordinateMapper::_3D_To_2D_Ceph(reslice.get(), {30.0F, 40.0F, 0.0F}), 30.0, 110.0);
    expectPoint(CoordinateMapper::_2D_To_3D_Ceph(reslice.get(), {30.0, 110.0}), 30.0F, 40.0F, 0.0F);
}

TEST(CoordinateMapper, CephSubtractsInSinglePrecisionOnTheWayToTheView)
{
    const auto reslice = makeCephReslice(100.0F, 80.0F);
    reslice->setPointOfView(meta::FromLeft);
    // The floats nearest to 100 - 0.1F and 80 - 0.1F, spaced 2^-17 = 7.6e-6 apart.
    expectPoint(CoordinateMapper::_3D_To_2D_Ceph(reslice.get(), {0.1F, 0.1F, 0.0F}),
                99.90000152587890625, 79.90000152587890625);
}

TEST(CoordinateMapper, CephSubtractsYInDoubleButXInSinglePrecisionOnTheWayBackByDesign)
{
    const auto reslice = makeCephReslice(16777218.0F, 16777218.0F);
    reslice->setPointOfView(meta::FromLeft);
    // x: 2^24 + 1 narrows to 2^24 (ties to even), 2^24 + 2 less that is 2. y: 2^24 + 2 less 2^24 +
    // 1 is 1.
    expectPoint(CoordinateMapper::_2D_To_3D_Ceph(reslice.get(), {16777217.0, 16777217.0}), 2.0F,
                1.0F, 0.0F);
}

TEST(CoordinateMapper, Law2CephMappingsAreInverseInThePlaneOfTheProjection)
{
    constexpr float tolerance = 32.0F * 0x1p-16F; // as for law 1
    RandomGeometry random(99);
    for (int i = 0; i < 500; ++i) {
        SCOPED_TRACE(testing::Message() << "seed 99, case " << i);
        const auto reslice = random.cephReslice();
        reslice->setPointOfView(static_cast<meta::PointOfView>(i % 3));
        const QMatrix4x4 placement = reslice->getTransformation();
        QVector3D local = random.point(100.0F);
        local.setZ(0.0F);
        const QVector3D inPlane = placement.map(local);
        const QVector3D offPlane = inPlane + placement.column(2).toVector3D() * 40.0F;

        const QPointF view = CoordinateMapper::_3D_To_2D_Ceph(reslice.get(), offPlane);
        ASSERT_LE((CoordinateMapper::_2D_To_3D_Ceph(reslice.get(), view) - inPlane).length(),
                  tolerance);

        const double x = random.number(0.0F, 200.0F);
        const QPointF clicked(x, random.number(0.0F, 200.0F));
        const QVector3D world = CoordinateMapper::_2D_To_3D_Ceph(reslice.get(), clicked);
        const QPointF back = CoordinateMapper::_3D_To_2D_Ceph(reslice.get(), world) - clicked;
        ASSERT_LE(std::hypot(back.x(), back.y()), tolerance);
    }
}

// Bad input

TEST(CoordinateMapper, NullResliceGivesZeroPointsOutside)
{
    const QVector3D point(1.0F, 2.0F, 3.0F);
    bool inPlane = true;
    bool inSlice = true;
    expectPoint(CoordinateMapper::_3D_To_2D_Planar(nullptr, point, inPlane, inSlice), 0.0, 0.0);
    EXPECT_FALSE(inPlane);
    EXPECT_FALSE(inSlice);
    const auto [image, planeVerdict, sliceVerdict] =
        CoordinateMapper::_3D_To_2D_Planar(nullptr, point);
    expectPoint(image, 0.0, 0.0);
    EXPECT_EQ(planeVerdict, PointInPlane::OutOfPlane);
    EXPECT_EQ(sliceVerdict, PointInSlice::OutOfSlice);
    expectPoint(CoordinateMapper::_3D_To_2D_PlanarPoint(nullptr, point), 0.0, 0.0);
    expectPoint(CoordinateMapper::_2D_To_3D_Planar(nullptr, {1.0, 2.0}), 0.0F, 0.0F, 0.0F);
    expectPoint(CoordinateMapper::_3D_To_2D_Ceph(nullptr, point), 0.0, 0.0);
    expectPoint(CoordinateMapper::_2D_To_3D_Ceph(nullptr, {1.0, 2.0}), 0.0F, 0.0F, 0.0F);
}

TEST(CoordinateMapper, NullResliceGivesTheNullLineOutside)
{
    bool inPlane = true;
    expectLine(CoordinateMapper::_3D_To_2D_Line_Planar(nullptr, {1.0F, 2.0F, 3.0F},
                                                       {4.0F, 5.0F, 6.0F}, inPlane),
               0.0, 0.0, 0.0, 0.0);
    EXPECT_FALSE(inPlane);
    EXPECT_EQ(
        CoordinateMapper::_3D_To_2D_Line_Planar(nullptr, {1.0F, 2.0F, 3.0F}, {4.0F, 5.0F, 6.0F})
            .second,
        LineInPlane::OutOfPlane);
}

TEST(CoordinateMapper, TransformationWithoutInverseIsInvertedToTheIdentity)
{
    QMatrix4x4 flat;
    flat.scale(1.0F, 1.0F, 0.0F);
    flat.setColumn(3, QVector4D(5.0F, 6.0F, 7.0F, 1.0F));
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F, flat);
    expectPoint(CoordinateMapper::_3D_To_2D_PlanarPoint(reslice.get(), {1.0F, 2.0F, 3.0F}), 1.0,
                78.0);
    expectPoint(CoordinateMapper::_3D_To_2D_Ceph(makeCephReslice(100.0F, 80.0F, flat).get(),
                                                 {1.0F, 2.0F, 3.0F}),
                1.0, 78.0);
    // Direction 0 and 1 still span the plane z = 7; inverted to the identity, the plane keeps that
    // height locally.
    const primitives::Plane level(QVector3D(0.0F, 0.0F, 9.0F), QVector3D(0.0F, 0.0F, 1.0F));
    expectPoint(CoordinateMapper::map2DPointTo3DPointOnPlane(*reslice, {2.0, 75.0}, level), 7.0F,
                11.0F, 7.0F);
}

TEST(CoordinateMapper, HeightThatIsNotFiniteIsOutsideTheSlab)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    for (const QVector3D& point : {QVector3D(kNan, kNan, kNan), QVector3D(1.0F, 1.0F, kNan),
                                   QVector3D(1.0F, 1.0F, kInfinity)}) {
        EXPECT_FALSE(isInPlane(*reslice, point));
        EXPECT_FALSE(isInSlice(*reslice, point));
        const auto [line, verdict] =
            CoordinateMapper::_3D_To_2D_Line_Planar(reslice.get(), point, point);
        EXPECT_EQ(verdict, LineInPlane::OutOfPlane);
        expectLine(line, 0.0, 0.0, 0.0, 0.0);
    }
}

TEST(CoordinateMapper, PlaceThatIsNotFiniteIsOutsideTheRectangleButMayBeInTheSlab)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    for (const QVector3D& point : {QVector3D(kNan, 1.0F, 0.0F), QVector3D(1.0F, kInfinity, 0.0F)}) {
        EXPECT_TRUE(isInPlane(*reslice, point));
        EXPECT_FALSE(isInSlice(*reslice, point));
    }
}

TEST(CoordinateMapper, TransformationThatIsNotFiniteGivesTheNullLineAndNoPlace)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    QMatrix4x4 broken;
    broken.fill(kNan);
    reslice->setTransformationFromResliceToWorld(broken);
    EXPECT_EQ(CoordinateMapper::_3D_To_2D_Line_Planar(reslice.get(), {1.0F, 1.0F, 1.0F},
                                                      {1.0F, 1.0F, -1.0F})
                  .second,
              LineInPlane::OutOfPlane);
    EXPECT_TRUE(std::isnan(CoordinateMapper::_2D_To_3D_Planar(reslice.get(), {1.0, 2.0}).x()));
}

TEST(CoordinateMapper, ViewPointsBeyondTheRangeOfFloatBecomeInfinite)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F);
    reslice->setMirroredIn2D(false, true);
    const QVector3D point = CoordinateMapper::_2D_To_3D_Planar(reslice.get(), {1e300, -1e300});
    EXPECT_EQ(point.x(), kInfinity);
    EXPECT_EQ(point.y(), -kInfinity);
}

TEST(CoordinateMapper, ResliceWithoutExtentHoldsItsCornerAlone)
{
    const auto reslice = makePlanarReslice(0.0F, 0.0F, 0.0F);
    EXPECT_TRUE(isInSlice(*reslice, {0.0F, 0.0F, 0.0F}));
    EXPECT_FALSE(isInSlice(*reslice, {0.001F, 0.0F, 0.0F}));
    EXPECT_FALSE(isInPlane(*reslice, {0.0F, 0.0F, 0.001F}));
    expectPoint(CoordinateMapper::_3D_To_2D_PlanarPoint(reslice.get(), {3.0F, 2.0F, 0.0F}), 3.0,
                -2.0);
}

TEST(CoordinateMapper, NegativeSlabHoldsNoPointButIsCrossed)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, -2.0F);
    EXPECT_FALSE(isInPlane(*reslice, {1.0F, 1.0F, 0.0F}));
    const auto [line, verdict] = CoordinateMapper::_3D_To_2D_Line_Planar(
        reslice.get(), {1.0F, 1.0F, 5.0F}, {1.0F, 1.0F, -5.0F});
    EXPECT_EQ(verdict, LineInPlane::InPlane);
    expectLine(line, 1.0, 79.0, 1.0, 79.0);
}

} // namespace
