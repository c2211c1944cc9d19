// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

// Covered: the panoramic mapping from the world to the view, for one point and for lists, and its
// inverse. Segments and the mapping to the world have tests of their own.

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <tests/reslice/PanoramicReslices.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using test::expectFrame;
using test::expectOutside;
using test::expectPoint;
using test::makeCorner;
using test::makePanoramicReslice;
using test::makeSlab;
using test::makeStraight;
using test::mapPanoramic;
using test::RandomGeometry;
using test::sameBits;
using test::straightPath;
using test::Verdict;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

const QVector3D kX(1.0F, 0.0F, 0.0F);
const QVector3D kY(0.0F, 1.0F, 0.0F);
const QVector3D kZ(0.0F, 0.0F, 1.0F);

// World to view

TEST(PanoramicCoordinateMapper, ViewRunsAlongThePathAndDownFromTheHighestHeight)
{
    const auto reslice = makeStraight();
    const Verdict verdict = mapPanoramic(reslice.get(), {3.25F, 0.25F, 2.0F});
    expectPoint(verdict.point, 3.25, 13.0);
    EXPECT_TRUE(verdict.inPlane);
    EXPECT_TRUE(verdict.inSlice);
    expectPoint(mapPanoramic(reslice.get(), {0.0F, 0.0F, 15.0F}).point, 0.0, 0.0);
    expectPoint(mapPanoramic(reslice.get(), {10.0F, 0.0F, -5.0F}).point, 10.0, 20.0);
}

TEST(PanoramicCoordinateMapper, HorizontallyMirroredViewCountsXFromItsWidth)
{
    const auto reslice = makeStraight();
    reslice->setMirroredIn2D(true, false);
    expectPoint(mapPanoramic(reslice.get(), {3.25F, 0.0F, 2.0F}).point, 7.75, 13.0);
}

TEST(PanoramicCoordinateMapper, VerticallyMirroredViewCountsYFromItsHeightUnlikeAPlanarOneByDesign)
{
    const auto reslice = makeStraight();
    expectPoint(mapPanoramic(reslice.get(), {3.0F, 0.0F, -5.0F}).point, 3.0,
                20.0); // the lower edge is at the bottom
    reslice->setMirroredIn2D(false, true);
    expectPoint(mapPanoramic(reslice.get(), {3.0F, 0.0F, -5.0F}).point, 3.0, 0.0);
    expectPoint(mapPanoramic(reslice.get(), {3.0F, 0.0F, 2.0F}).point, 3.0, 7.0);
}

TEST(PanoramicCoordinateMapper, MirroringQueriesWidthAndHeightOfTheReslice)
{
    class Sized : public PanoramicReslice
    {
    public:
        float getWidth() const override { return 100.0F; }
        float getHeight() const override { return 50.0F; }
    };
    Sized reslice;
    reslice.setPath(straightPath(11));
    reslice.setGuidingLine(std::make_shared<GuidingLine>());
    reslice.setVerticalRange({-5.0F, 15.0F});
    reslice.setMirroredIn2D(true, true);
    expectPoint(mapPanoramic(&reslice, {3.0F, 0.0F, 2.0F}).point, 97.0, 37.0);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(&reslice, {97.0, 37.0}), 3.0F, 0.0F, 2.0F);
}

TEST(PanoramicCoordinateMapper, SegmentBeforeTheNearestSampleIsUsedWhenBothAreEquallyDeepByDesign)
{
    // Columns count 2 mm, samples are 1 mm apart: segment 2 puts x = 3.25 at 2 * 2 + 1.25,
    // segment 3 at 3 * 2 + 0.25.
    expectPoint(mapPanoramic(makeStraight(2.0F).get(), {3.25F, 0.25F, 2.0F}).point, 5.25, 13.0);
}

TEST(PanoramicCoordinateMapper, SegmentOfSmallerDepthIsUsed)
{
    const auto reslice = makeCorner();
    // Nearest to the corner sample 2. Before it depth 0.25, after it 0.125: 0.25 along the segment
    // after it.
    expectPoint(mapPanoramic(reslice.get(), {2.125F, 0.25F, 0.0F}).point, 2.25, 10.0);
    // Reversed: 0.75 along the segment before it.
    expectPoint(mapPanoramic(reslice.get(), {1.75F, 0.125F, 0.0F}).point, 1.75, 10.0);
}

TEST(PanoramicCoordinateMapper, EndsOfThePathHaveOneSegmentOnly)
{
    const auto reslice = makeCorner();
    makeSlab(*reslice, 100.0F);
    // Nearest to sample 0; nearest to sample 4, where segment 3 runs along y.
    expectPoint(mapPanoramic(reslice.get(), {-0.5F, 0.25F, 4.0F}).point, -0.5, 6.0);
    expectPoint(mapPanoramic(reslice.get(), {2.25F, 2.5F, 4.0F}).point, 4.5, 6.0);
}

TEST(PanoramicCoordinateMapper, HeightCountsFromTheLowestAlongTheRawUpperDirection)
{
    // Up is (0, 0, 4): the axis is normalized, the lower edge is at -5 * 4.
    const auto reslice = makePanoramicReslice(straightPath(11), 1.0F, -5.0F, 15.0F, kZ * 4.0F);
    expectPoint(mapPanoramic(reslice.get(), {3.0F, 0.0F, -20.0F}).point, 3.0, 20.0);
    expectPoint(mapPanoramic(reslice.get(), {3.0F, 0.0F, -18.0F}).point, 3.0, 18.0);
}

TEST(PanoramicCoordinateMapper, DepthAxisIsTheCrossProductNotNormalized)
{
    // Up leans by (0.6, 0, 0.8) along the path: e x u = (0, -0.8, 0). A point 0.4 from the path
    // has depth 0.5.
    const auto reslice =
        makePanoramicReslice(straightPath(11), 1.0F, 0.0F, 10.0F, {0.6F, 0.0F, 0.8F});
    EXPECT_TRUE(mapPanoramic(reslice.get(), {3.0F, 0.39F, 0.0F}).inPlane);
    EXPECT_FALSE(mapPanoramic(reslice.get(), {3.0F, 0.41F, 0.0F}).inPlane);
}

TEST(PanoramicCoordinateMapper, ViewPointIsComputedInSinglePrecision)
{
    const auto reslice = makePanoramicReslice(straightPath(11), 0.1F, 0.0F, 20.0F);
    // 9 columns of 0.1F are 0.90000001341, as a float 0.90000003576. With 0.25 along segment 9,
    // that is 1.15000003576, a tie between floats, which goes to 1.15000009537. With the last
    // addition in double precision it would stay there, in double precision throughout it would be
    // 1.15000001341. y is the float nearest to 20 - 0.1F, spaced 2^-19 = 1.9e-6 apart.
    expectPoint(
        CoordinateMapper::_3D_To_2D_PanoramicIntersection(reslice.get(), {9.25F, 0.0F, 0.1F}, 9),
        0x1.266668p+0, 19.8999996185302734375);
}

TEST(PanoramicCoordinateMapper, HeightIsSubtractedFromARangeThatIsAFloat)
{
    // The range 2^24 - 0.5 rounds to 2^24; a point 1 above its lower end is at 2^24 - 1. Subtracted
    // in double precision, 2^24 - 1.5 would be narrowed to 2^24 - 2.
    const auto reslice = makePanoramicReslice(straightPath(11), 1.0F, 0.5F, 0x1p24F);
    expectPoint(mapPanoramic(reslice.get(), {3.0F, 0.0F, 1.5F}).point, 3.0, 16777215.0);
}

TEST(PanoramicCoordinateMapper, AxesTooShortToBeNormalizedAreUsedUnchanged)
{
    // A vector of up to 1e-5 keeps its length; as the zero vector it would leave the frame without
    // an inverse. Samples 2^-18 apart: half way from one to the next counts 0.5 along.
    const auto dense = makePanoramicReslice(straightPath(2, 0x1p-18F), 1.0F, 0.0F, 10.0F);
    expectPoint(mapPanoramic(dense.get(), {0x1p-19F, 0.0F, 4.0F}).point, 0.5, 6.0);
    // Up 2^-18 long: 2^-17 mm count 2 upwards.
    const auto low = makePanoramicReslice(straightPath(11), 1.0F, 0.0F, 10.0F, kZ * 0x1p-18F);
    expectPoint(mapPanoramic(low.get(), {3.0F, 0.0F, 0x1p-17F}).point, 3.0, 8.0);
}

TEST(PanoramicCoordinateMapper, SlabIsOneMillimeterThickUnlessTheResliceIsOfTypeOne)
{
    const auto reslice = makeStraight();
    reslice->setThickness(40.0F);
    EXPECT_TRUE(mapPanoramic(reslice.get(), {3.0F, 0.5F, 0.0F}).inPlane);
    EXPECT_TRUE(mapPanoramic(reslice.get(), {3.0F, -0.5F, 0.0F}).inPlane);
    expectOutside(mapPanoramic(reslice.get(), {3.0F, std::nextafter(0.5F, 1.0F), 0.0F}));

    makeSlab(*reslice, 40.0F);
    EXPECT_TRUE(mapPanoramic(reslice.get(), {3.0F, 20.0F, 0.0F}).inPlane);
    expectOutside(mapPanoramic(reslice.get(), {3.0F, std::nextafter(20.0F, 30.0F), 0.0F}));
}

TEST(PanoramicCoordinateMapper, InSliceMeansWithinOneColumnWidthOfTheSurfaceByDesign)
{
    const auto reslice = makeStraight(0.25F);
    makeSlab(*reslice, 40.0F);
    const Verdict within = mapPanoramic(reslice.get(), {3.0F, 0.25F, 2.0F});
    EXPECT_TRUE(within.inSlice);
    const Verdict beyond = mapPanoramic(reslice.get(), {3.0F, std::nextafter(0.25F, 1.0F), 2.0F});
    EXPECT_TRUE(beyond.inPlane);
    EXPECT_FALSE(beyond.inSlice);
    EXPECT_TRUE(
        mapPanoramic(reslice.get(), {-500.0F, 0.0F, 900.0F}).inSlice); // the rectangle is ignored
}

TEST(PanoramicCoordinateMapper, PointOutsideTheSlabIsKeptOnDemand)
{
    const auto reslice = makeStraight();
    expectOutside(mapPanoramic(reslice.get(), {3.0F, 0.75F, 2.0F}));
    const Verdict near = mapPanoramic(reslice.get(), {3.0F, 0.75F, 2.0F}, true);
    expectPoint(near.point, 3.0, 13.0);
    EXPECT_FALSE(near.inPlane);
    EXPECT_TRUE(near.inSlice); // within the column width of 1 mm, though outside the slab
    const Verdict far = mapPanoramic(reslice.get(), {3.0F, 7.0F, 2.0F}, true);
    expectPoint(far.point, 3.0, 13.0);
    EXPECT_FALSE(far.inPlane);
    EXPECT_FALSE(far.inSlice);
}

TEST(PanoramicCoordinateMapper, ColumnsOfNoWidthKeepOnlyTheWayAlongTheSegment)
{
    const auto reslice = makeStraight(0.0F);
    const Verdict on = mapPanoramic(reslice.get(), {3.25F, 0.0F, 2.0F}); // 1.25 along segment 2
    expectPoint(on.point, 1.25, 13.0);
    EXPECT_TRUE(on.inSlice);
    const Verdict beside = mapPanoramic(reslice.get(), {3.25F, 0.25F, 2.0F});
    expectPoint(beside.point, 1.25, 13.0);
    EXPECT_TRUE(beside.inPlane);
    EXPECT_FALSE(beside.inSlice);
}

TEST(PanoramicCoordinateMapper, TupleAndPointFormsGiveTheSame)
{
    const auto reslice = makeStraight();
    using Result = std::tuple<QPointF, PointInPlane, PointInSlice>;
    EXPECT_EQ(CoordinateMapper::_3D_To_2D_Panoramic(reslice.get(), {3.0F, 0.0F, 2.0F}, false),
              Result(QPointF(3.0, 13.0), PointInPlane::InPlane, PointInSlice::InSlice));
    EXPECT_EQ(CoordinateMapper::_3D_To_2D_Panoramic(reslice.get(), {3.0F, 0.75F, 2.0F}, true),
              Result(QPointF(3.0, 13.0), PointInPlane::OutOfPlane, PointInSlice::InSlice));
    EXPECT_EQ(CoordinateMapper::_3D_To_2D_Panoramic(reslice.get(), {3.0F, 9.0F, 2.0F}, false),
              Result(QPointF(), PointInPlane::OutOfPlane, PointInSlice::OutOfSlice));
    makeSlab(*reslice, 40.0F);
    EXPECT_EQ(CoordinateMapper::_3D_To_2D_Panoramic(reslice.get(), {3.0F, 9.0F, 2.0F}, false),
              Result(QPointF(3.0, 13.0), PointInPlane::InPlane, PointInSlice::OutOfSlice));

    expectPoint(
        CoordinateMapper::_3D_To_2D_PanoramicPoint(reslice.get(), {3.0F, 9.0F, 2.0F}, false), 3.0,
        13.0);
    expectPoint(
        CoordinateMapper::_3D_To_2D_PanoramicPoint(reslice.get(), {3.0F, 90.0F, 2.0F}, false), 0.0,
        0.0);
    expectPoint(
        CoordinateMapper::_3D_To_2D_PanoramicPoint(reslice.get(), {3.0F, 90.0F, 2.0F}, true), 3.0,
        13.0);
}

TEST(PanoramicCoordinateMapper, IntersectionUsesTheSegmentOfTheCallerWhateverTheDepth)
{
    const auto reslice = makeCorner();
    // The point is 1.75 along segment 0; in segment 3, which starts at (2, 1) along y, 0.875
    // back.
    const QVector3D point(1.75F, 0.125F, 4.0F);
    expectPoint(CoordinateMapper::_3D_To_2D_PanoramicIntersection(reslice.get(), point, 0), 1.75,
                6.0);
    expectPoint(CoordinateMapper::_3D_To_2D_PanoramicIntersection(reslice.get(), point, 3), 2.125,
                6.0);
    expectPoint(
        CoordinateMapper::_3D_To_2D_PanoramicIntersection(reslice.get(), {1.75F, 80.0F, 4.0F}, 0),
        1.75, 6.0);
    reslice->setMirroredIn2D(true, true);
    expectPoint(CoordinateMapper::_3D_To_2D_PanoramicIntersection(reslice.get(), point, 0), 3.25,
                4.0);
}

TEST(PanoramicCoordinateMapper, SegmentIndexOfAnIntersectionIsLimitedToTheSegments)
{
    const auto reslice = makeCorner();
    const QVector3D point(1.75F, 0.125F, 4.0F);
    for (const int below : {-1, -100, std::numeric_limits<int>::min()})
        expectPoint(CoordinateMapper::_3D_To_2D_PanoramicIntersection(reslice.get(), point, below),
                    1.75, 6.0);
    for (const int above : {4, 100, std::numeric_limits<int>::max()})
        expectPoint(CoordinateMapper::_3D_To_2D_PanoramicIntersection(reslice.get(), point, above),
                    2.125, 6.0);
}

// Reslices that cannot be mapped

TEST(PanoramicCoordinateMapper, NullResliceIsMappedToZeroAndOutside)
{
    expectOutside(mapPanoramic(nullptr, {1.0F, 2.0F, 3.0F}, true));
    expectPoint(CoordinateMapper::_3D_To_2D_PanoramicPoint(nullptr, {1.0F, 2.0F, 3.0F}, true), 0.0,
                0.0);
    expectPoint(CoordinateMapper::_3D_To_2D_PanoramicIntersection(nullptr, {1.0F, 2.0F, 3.0F}, 0),
                0.0, 0.0);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(nullptr, {1.0, 2.0}), 0.0F, 0.0F, 0.0F);
    EXPECT_TRUE(CoordinateMapper::_3D_To_2D_Line_Panoramic(nullptr, {}, kX, true, 0.1F).isEmpty());
    expectFrame(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(nullptr, {1.0, 2.0}), kX,
                kY, kZ, {});
}

TEST(PanoramicCoordinateMapper, WithoutAGuidingLineNothingIsMapped)
{
    const auto reslice = makeStraight();
    reslice->setGuidingLine(nullptr);
    expectOutside(mapPanoramic(reslice.get(), {3.0F, 0.0F, 2.0F}, true));
    expectPoint(
        CoordinateMapper::_3D_To_2D_PanoramicIntersection(reslice.get(), {3.0F, 0.0F, 2.0F}, 0),
        0.0, 0.0);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {3.0, 2.0}), 0.0F, 0.0F, 0.0F);
    EXPECT_TRUE(
        CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), {}, kX, true, 0.1F).isEmpty());
    expectFrame(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {1.0, 2.0}),
                kX, kY, kZ, {});
    const auto images = CoordinateMapper::mapAllPointsOntoReslice({{3.0F, 0.0F, 2.0F}}, *reslice);
    ASSERT_EQ(images.size(), 1);
    expectPoint(images[0].first, 0.0, 0.0);
    EXPECT_EQ(images[0].second, PointInPlane::OutOfPlane);
}

TEST(PanoramicCoordinateMapper, PathsOfNoOrOneSampleHaveNoSegments)
{
    for (const int samples : {0, 1}) {
        const auto reslice = makePanoramicReslice(straightPath(samples), 1.0F, 0.0F, 10.0F);
        expectOutside(mapPanoramic(reslice.get(), {}, true));
        expectPoint(CoordinateMapper::_3D_To_2D_PanoramicIntersection(reslice.get(), kX, 0), 0.0,
                    0.0);
        EXPECT_TRUE(CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), {}, kX, true, 0.1F)
                        .isEmpty());
        expectFrame(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {}), kX,
                    kY, kZ, {});
        expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {1.0, 2.0}), 0.0F, 0.0F,
                    0.0F);
    }
}

TEST(PanoramicCoordinateMapper, PathOfOneSampleHasColumnZeroAlone)
{
    const auto reslice = makePanoramicReslice({{7.0F, 8.0F, 9.0F}}, 1.0F, 0.0F, 10.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {0.0, 4.0}), 7.0F, 8.0F,
                15.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {0.25, 4.0}), 0.0F, 0.0F,
                0.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {-0.25, 4.0}), 0.0F, 0.0F,
                0.0F);
}

TEST(PanoramicCoordinateMapper, SegmentWithoutADirectionMapsAsIfItsFrameWereTheWorlds)
{
    // A matrix without inverse is inverted to the identity: along x, height y, depth z.
    const auto twice =
        makePanoramicReslice({{1.0F, 1.0F, 1.0F}, {1.0F, 1.0F, 1.0F}}, 1.0F, 0.0F, 10.0F);
    expectPoint(mapPanoramic(twice.get(), {3.0F, 4.0F, 0.5F}).point, 3.0, 6.0);
    const auto upAlongThePath = makePanoramicReslice(straightPath(2), 1.0F, 0.0F, 10.0F, kX);
    expectPoint(mapPanoramic(upAlongThePath.get(), {3.0F, 4.0F, 0.5F}).point, 3.0, 6.0);
}

TEST(PanoramicCoordinateMapper, PointsThatAreNotFiniteAreOutside)
{
    const auto reslice = makeStraight();
    for (const QVector3D& point :
         {QVector3D(kNan, kNan, kNan), QVector3D(3.0F, kNan, 0.0F),
          QVector3D(3.0F, kInfinity, 0.0F), QVector3D(kInfinity, kInfinity, kInfinity)}) {
        expectOutside(mapPanoramic(reslice.get(), point));
        expectOutside(mapPanoramic(reslice.get(), point, true));
        expectPoint(CoordinateMapper::_3D_To_2D_PanoramicIntersection(reslice.get(), point, 2), 0.0,
                    0.0);
    }
}

// Lists and the way back

TEST(PanoramicCoordinateMapper, ListKeepsOrderAndHasZeroForPointsOutsideTheSlab)
{
    const auto reslice = makeStraight();
    const auto images = CoordinateMapper::mapAllPointsOntoReslice(
        {{3.0F, 9.0F, 2.0F}, {3.25F, 0.0F, 2.0F}, {7.0F, 0.5F, 15.0F}}, *reslice);
    ASSERT_EQ(images.size(), 3);
    expectPoint(images[0].first, 0.0, 0.0);
    EXPECT_EQ(images[0].second, PointInPlane::OutOfPlane);
    expectPoint(images[1].first, 3.25, 13.0);
    EXPECT_EQ(images[1].second, PointInPlane::InPlane);
    expectPoint(images[2].first, 7.0, 0.0);
    EXPECT_EQ(images[2].second, PointInPlane::InPlane);
    EXPECT_TRUE(CoordinateMapper::mapAllPointsOntoReslice({}, *reslice).isEmpty());
}

TEST(PanoramicCoordinateMapper, Law3ListHasTheBitsOfThePointByPointMapping)
{
    RandomGeometry random(52);
    const QList<QVector3D> odd = {{-0.0F, 0.0F, -0.0F},    {kNan, 1.0F, 1.0F},
                                  {1.0F, kInfinity, 1.0F}, {1.0F, 1.0F, -kInfinity},
                                  {3e38F, -3e38F, 3e38F},  {1e-42F, -1e-42F, 0.0F}};
    for (int i = 0; i < 40; ++i) {
        SCOPED_TRACE(testing::Message() << "seed 52, case " << i);
        const auto reslice = random.panoramicReslice(2 + 10 * i, 0.5F);
        makeSlab(*reslice, random.number(0.0F, 20.0F));
        reslice->setMirroredIn2D(i % 2 == 1, i % 4 >= 2);
        QList<QVector3D> path = reslice->getPath();
        if (i % 5 == 1)
            path[1] = path[0]; // a segment without a direction
        if (i % 5 == 2)
            path[0] = QVector3D(kNan, 0.0F, 0.0F);
        if (i % 5 == 3)
            path = {path[0], path[1], path[1] + random.point(1e20F)};
        reslice->setPath(path);
        if (i % 7 == 6)
            reslice->getGuidingLine()->setUpperDirection({});
        QList<QVector3D> points = odd;
        for (int p = 0; p < 300; ++p)
            points.append(path[p % path.size()] + random.point(p % 10 == 0 ? 100.0F : 5.0F));

        const auto images = CoordinateMapper::mapAllPointsOntoReslice(points, *reslice);
        ASSERT_EQ(images.size(), points.size());
        for (qsizetype p = 0; p < points.size(); ++p) {
            const auto [point, inPlane, inSlice] =
                CoordinateMapper::_3D_To_2D_Panoramic(reslice.get(), points[p], false);
            ASSERT_TRUE(sameBits(images[p].first, point)) << p;
            ASSERT_EQ(images[p].second, inPlane) << p;
        }
    }
}

// Short lists are searched without a tree, and keep fewer frames than the path has segments.
TEST(PanoramicCoordinateMapper, Law3ListsOfAnyLengthHaveTheBitsOfThePointByPointMapping)
{
    RandomGeometry random(55);
    for (const int size : {1, 2, 3, 10, 63, 64, 100}) {
        SCOPED_TRACE(testing::Message() << "seed 55, " << size << " points");
        const auto reslice = random.panoramicReslice(1000, 0.2F);
        makeSlab(*reslice, 20.0F);
        QList<QVector3D> points; // back and forth along the path
        for (int p = 0; p < size; ++p)
            points.append(reslice->getPath()[p * 377 % 1000] + random.point(2.0F));
        const auto images = CoordinateMapper::mapAllPointsOntoReslice(points, *reslice);
        ASSERT_EQ(images.size(), size);
        for (qsizetype p = 0; p < size; ++p) {
            const auto [point, inPlane, inSlice] =
                CoordinateMapper::_3D_To_2D_Panoramic(reslice.get(), points[p], false);
            ASSERT_TRUE(sameBits(images[p].first, point)) << p;
            ASSERT_EQ(images[p].second, inPlane) << p;
        }
    }
}

TEST(PanoramicCoordinateMapper, Law4ViewToWorldToViewIsTheSamePointForAllMirrorings)
{
    constexpr double tolerance = 0x1p-8;
    RandomGeometry random(53);
    for (int i = 0; i < 400; ++i) {
        const auto reslice = random.panoramicReslice(150, random.number(0.25F, 0.6F));
        reslice->setMirroredIn2D(i % 2 == 1, i % 4 >= 2);
        // Up of unit length: else heights are stretched on the way to the world alone.
        const auto line = reslice->getGuidingLine();
        line->setUpperDirection(line->getUpperDirection().normalized());
        const float column = reslice->getSampleSize().x();
        for (int p = 0; p < 20; ++p) {
            SCOPED_TRACE(testing::Message() << "seed 53, case " << i << ", point " << p);
            double x = random.number(0.0F, 149.0F * column);
            if (reslice->isMirroredHorizontallyIn2D())
                x = reslice->getWidth() - x;
            const QPointF view(x, random.number(0.0F, reslice->getHeight()));
            const QVector3D world = CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), view);
            const Verdict back = mapPanoramic(reslice.get(), world, true);
            ASSERT_TRUE(back.inPlane);
            ASSERT_NEAR(back.point.x(), view.x(), tolerance);
            ASSERT_NEAR(back.point.y(), view.y(), tolerance);
        }
    }
}

} // namespace
