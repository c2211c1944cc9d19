// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

// Covered: the panoramic mapping, both ways, segments as chains of lines, lists of points, the
// frame at a view position, the projection onto a segment, the dispatch by type.

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <tests/reslice/CoordinateMapperTestAccess.h>
#include <tests/support/ExactComparison.h>
#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using test::expectFrame;
using test::expectLine;
using test::expectPoint;
using test::makePanoramicReslice;
using test::RandomGeometry;
using test::sameBits;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr double kNanView = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinityView = std::numeric_limits<double>::infinity();

const QVector3D kX(1.0F, 0.0F, 0.0F);
const QVector3D kY(0.0F, 1.0F, 0.0F);
const QVector3D kZ(0.0F, 0.0F, 1.0F);

// (0, 0, 0), (spacing, 0, 0), ...
QList<QVector3D> pathAlongX(int samples, float spacing = 1.0F)
{
    QList<QVector3D> path;
    for (int i = 0; i < samples; ++i)
        path.append({static_cast<float>(i) * spacing, 0.0F, 0.0F});
    return path;
}

// Eleven samples from x = 0 to 10, heights z = -5 to 15. Depth is -y, the view point of (x, y, z)
// is (x, 15 - z). 11 wide, 20 high.
std::shared_ptr<PanoramicReslice> makeStraight(float columnMm = 1.0F)
{
    return makePanoramicReslice(pathAlongX(11), columnMm, -5.0F, 15.0F);
}

// From (0, 0) to (2, 0) along x, then to (2, 2) along y.
std::shared_ptr<PanoramicReslice> makeCorner()
{
    return makePanoramicReslice({{0.0F, 0.0F, 0.0F},
                                 {1.0F, 0.0F, 0.0F},
                                 {2.0F, 0.0F, 0.0F},
                                 {2.0F, 1.0F, 0.0F},
                                 {2.0F, 2.0F, 0.0F}},
                                1.0F, 0.0F, 10.0F);
}

void makeSlab(PanoramicReslice& reslice, float thickness)
{
    reslice.setType(static_cast<ResliceType>(1));
    reslice.setThickness(thickness);
}

struct Verdict
{
    QPointF point;
    bool inPlane = true; // both are set false first, whatever stood there
    bool inSlice = true;
};

Verdict map(const PanoramicReslice* reslice, const QVector3D& point, bool keepOutside = false)
{
    Verdict verdict;
    verdict.point = CoordinateMapper::_3D_To_2D_Panoramic(reslice, point, verdict.inPlane,
                                                          verdict.inSlice, keepOutside);
    return verdict;
}

void expectOutside(const Verdict& verdict)
{
    expectPoint(verdict.point, 0.0, 0.0);
    EXPECT_FALSE(verdict.inPlane);
    EXPECT_FALSE(verdict.inSlice);
}

// World to view

TEST(PanoramicCoordinateMapper, ViewRunsAlongThePathAndDownFromTheHighestHeight)
{
    const auto reslice = makeStraight();
    const Verdict verdict = map(reslice.get(), {3.25F, 0.25F, 2.0F});
    expectPoint(verdict.point, 3.25, 13.0);
    EXPECT_TRUE(verdict.inPlane);
    EXPECT_TRUE(verdict.inSlice);
    expectPoint(map(reslice.get(), {0.0F, 0.0F, 15.0F}).point, 0.0, 0.0);
    expectPoint(map(reslice.get(), {10.0F, 0.0F, -5.0F}).point, 10.0, 20.0);
}

TEST(PanoramicCoordinateMapper, HorizontallyMirroredViewCountsXFromItsWidth)
{
    const auto reslice = makeStraight();
    reslice->setMirroredIn2D(true, false);
    expectPoint(map(reslice.get(), {3.25F, 0.0F, 2.0F}).point, 7.75, 13.0);
}

TEST(PanoramicCoordinateMapper, VerticallyMirroredViewCountsYFromItsHeightUnlikeAPlanarOne)
{
    const auto reslice = makeStraight();
    expectPoint(map(reslice.get(), {3.0F, 0.0F, -5.0F}).point, 3.0,
                20.0); // the lower edge is at the bottom
    reslice->setMirroredIn2D(false, true);
    expectPoint(map(reslice.get(), {3.0F, 0.0F, -5.0F}).point, 3.0, 0.0);
    expectPoint(map(reslice.get(), {3.0F, 0.0F, 2.0F}).point, 3.0, 7.0);
}

TEST(PanoramicCoordinateMapper, MirroringAsksForWidthAndHeightOfTheReslice)
{
    class Sized : public PanoramicReslice
    {
    public:
        float getWidth() const override { return 100.0F; }
        float getHeight() const override { return 50.0F; }
    };
    Sized reslice;
    reslice.setPath(pathAlongX(11));
    reslice.setGuidingLine(std::make_shared<GuidingLine>());
    reslice.setVerticalRange({-5.0F, 15.0F});
    reslice.setMirroredIn2D(true, true);
    expectPoint(map(&reslice, {3.0F, 0.0F, 2.0F}).point, 97.0, 37.0);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(&reslice, {97.0, 37.0}), 3.0F, 0.0F, 2.0F);
}

TEST(PanoramicCoordinateMapper, SegmentBeforeTheNearestSampleIsKeptWhenBothAreEquallyDeep)
{
    // Columns count 2 mm, samples stand 1 mm apart: segment 2 puts x = 3.25 at 2 * 2 + 1.25,
    // segment 3 at 3 * 2 + 0.25.
    expectPoint(map(makeStraight(2.0F).get(), {3.25F, 0.25F, 2.0F}).point, 5.25, 13.0);
}

TEST(PanoramicCoordinateMapper, SegmentOfSmallerDepthIsKept)
{
    const auto reslice = makeCorner();
    // Nearest to the corner sample 2. Before it depth 0.25, after it 0.125: 0.25 along the segment
    // after it.
    expectPoint(map(reslice.get(), {2.125F, 0.25F, 0.0F}).point, 2.25, 10.0);
    // The other way round: 0.75 along the segment before it.
    expectPoint(map(reslice.get(), {1.75F, 0.125F, 0.0F}).point, 1.75, 10.0);
}

TEST(PanoramicCoordinateMapper, EndsOfThePathHaveOneSegmentOnly)
{
    const auto reslice = makeCorner();
    makeSlab(*reslice, 100.0F);
    // Nearest to sample 0; nearest to sample 4, where segment 3 runs along y.
    expectPoint(map(reslice.get(), {-0.5F, 0.25F, 4.0F}).point, -0.5, 6.0);
    expectPoint(map(reslice.get(), {2.25F, 2.5F, 4.0F}).point, 4.5, 6.0);
}

TEST(PanoramicCoordinateMapper, HeightCountsFromTheLowestAlongTheRawUpperDirection)
{
    // Up is (0, 0, 4): the axis is normalised, the lower edge is at -5 * 4.
    const auto reslice = makePanoramicReslice(pathAlongX(11), 1.0F, -5.0F, 15.0F, kZ * 4.0F);
    expectPoint(map(reslice.get(), {3.0F, 0.0F, -20.0F}).point, 3.0, 20.0);
    expectPoint(map(reslice.get(), {3.0F, 0.0F, -18.0F}).point, 3.0, 18.0);
}

TEST(PanoramicCoordinateMapper, DepthAxisIsTheCrossProductAsItIs)
{
    // Up leans by (0.6, 0, 0.8) along the path: e x u = (0, -0.8, 0). A point 0.4 beside the path
    // has depth 0.5.
    const auto reslice =
        makePanoramicReslice(pathAlongX(11), 1.0F, 0.0F, 10.0F, {0.6F, 0.0F, 0.8F});
    EXPECT_TRUE(map(reslice.get(), {3.0F, 0.39F, 0.0F}).inPlane);
    EXPECT_FALSE(map(reslice.get(), {3.0F, 0.41F, 0.0F}).inPlane);
}

TEST(PanoramicCoordinateMapper, ViewPointIsComputedInSinglePrecision)
{
    const auto reslice = makePanoramicReslice(pathAlongX(11), 0.1F, 0.0F, 20.0F);
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
    const auto reslice = makePanoramicReslice(pathAlongX(11), 1.0F, 0.5F, 0x1p24F);
    expectPoint(map(reslice.get(), {3.0F, 0.0F, 1.5F}).point, 3.0, 16777215.0);
}

TEST(PanoramicCoordinateMapper, AxesTooShortToBeNormalisedAreUsedAsTheyAre)
{
    // A vector of up to 1e-5 keeps its length; as the zero vector it would leave the frame without
    // an inverse. Samples 2^-18 apart: half way from one to the next counts 0.5 along.
    const auto dense = makePanoramicReslice(pathAlongX(2, 0x1p-18F), 1.0F, 0.0F, 10.0F);
    expectPoint(map(dense.get(), {0x1p-19F, 0.0F, 4.0F}).point, 0.5, 6.0);
    // Up 2^-18 long: 2^-17 mm count 2 upwards.
    const auto low = makePanoramicReslice(pathAlongX(11), 1.0F, 0.0F, 10.0F, kZ * 0x1p-18F);
    expectPoint(map(low.get(), {3.0F, 0.0F, 0x1p-17F}).point, 3.0, 8.0);
}

TEST(PanoramicCoordinateMapper, SlabIsOneMillimetreThickUnlessTheResliceIsOfTypeOne)
{
    const auto reslice = makeStraight();
    reslice->setThickness(40.0F);
    EXPECT_TRUE(map(reslice.get(), {3.0F, 0.5F, 0.0F}).inPlane);
    EXPECT_TRUE(map(reslice.get(), {3.0F, -0.5F, 0.0F}).inPlane);
    expectOutside(map(reslice.get(), {3.0F, std::nextafter(0.5F, 1.0F), 0.0F}));

    makeSlab(*reslice, 40.0F);
    EXPECT_TRUE(map(reslice.get(), {3.0F, 20.0F, 0.0F}).inPlane);
    expectOutside(map(reslice.get(), {3.0F, std::nextafter(20.0F, 30.0F), 0.0F}));
}

TEST(PanoramicCoordinateMapper, InSliceMeansWithinOneColumnWidthOfTheSurface)
{
    const auto reslice = makeStraight(0.25F);
    makeSlab(*reslice, 40.0F);
    const Verdict within = map(reslice.get(), {3.0F, 0.25F, 2.0F});
    EXPECT_TRUE(within.inSlice);
    const Verdict beyond = map(reslice.get(), {3.0F, std::nextafter(0.25F, 1.0F), 2.0F});
    EXPECT_TRUE(beyond.inPlane);
    EXPECT_FALSE(beyond.inSlice);
    EXPECT_TRUE(map(reslice.get(), {-500.0F, 0.0F, 900.0F}).inSlice); // the rectangle plays no part
}

TEST(PanoramicCoordinateMapper, PointOutsideTheSlabIsKeptOnDemand)
{
    const auto reslice = makeStraight();
    expectOutside(map(reslice.get(), {3.0F, 0.75F, 2.0F}));
    const Verdict near = map(reslice.get(), {3.0F, 0.75F, 2.0F}, true);
    expectPoint(near.point, 3.0, 13.0);
    EXPECT_FALSE(near.inPlane);
    EXPECT_TRUE(near.inSlice); // within the column width of 1 mm, though outside the slab
    const Verdict far = map(reslice.get(), {3.0F, 7.0F, 2.0F}, true);
    expectPoint(far.point, 3.0, 13.0);
    EXPECT_FALSE(far.inPlane);
    EXPECT_FALSE(far.inSlice);
}

TEST(PanoramicCoordinateMapper, ColumnsOfNoWidthLeaveTheWayAlongTheSegmentAlone)
{
    const auto reslice = makeStraight(0.0F);
    const Verdict on = map(reslice.get(), {3.25F, 0.0F, 2.0F}); // 1.25 along segment 2
    expectPoint(on.point, 1.25, 13.0);
    EXPECT_TRUE(on.inSlice);
    const Verdict beside = map(reslice.get(), {3.25F, 0.25F, 2.0F});
    expectPoint(beside.point, 1.25, 13.0);
    EXPECT_TRUE(beside.inPlane);
    EXPECT_FALSE(beside.inSlice);
}

TEST(PanoramicCoordinateMapper, TupleAndPointFormsSayTheSame)
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
    // In segment 0 the point lies 1.75 along; in segment 3, which starts at (2, 1) along y, 0.875
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
    expectOutside(map(nullptr, {1.0F, 2.0F, 3.0F}, true));
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
    expectOutside(map(reslice.get(), {3.0F, 0.0F, 2.0F}, true));
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
        const auto reslice = makePanoramicReslice(pathAlongX(samples), 1.0F, 0.0F, 10.0F);
        expectOutside(map(reslice.get(), {}, true));
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
    expectPoint(map(twice.get(), {3.0F, 4.0F, 0.5F}).point, 3.0, 6.0);
    const auto upAlongThePath = makePanoramicReslice(pathAlongX(2), 1.0F, 0.0F, 10.0F, kX);
    expectPoint(map(upAlongThePath.get(), {3.0F, 4.0F, 0.5F}).point, 3.0, 6.0);
}

TEST(PanoramicCoordinateMapper, PointsThatAreNotFiniteAreOutside)
{
    const auto reslice = makeStraight();
    for (const QVector3D& point :
         {QVector3D(kNan, kNan, kNan), QVector3D(3.0F, kNan, 0.0F),
          QVector3D(3.0F, kInfinity, 0.0F), QVector3D(kInfinity, kInfinity, kInfinity)}) {
        expectOutside(map(reslice.get(), point));
        expectOutside(map(reslice.get(), point, true));
        expectPoint(CoordinateMapper::_3D_To_2D_PanoramicIntersection(reslice.get(), point, 2), 0.0,
                    0.0);
    }
}

// View to world

TEST(PanoramicCoordinateMapper, ViewPointComesFromTheSurface)
{
    const auto reslice = makeStraight();
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {3.25, 13.0}), 3.25F, 0.0F,
                2.0F);
    reslice->setMirroredIn2D(true, true);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {7.75, 7.0}), 3.25F, 0.0F,
                2.0F);
}

TEST(PanoramicCoordinateMapper, ColumnsAreInterpolatedBetweenTheirSamples)
{
    const auto reslice = makeCorner();
    reslice->setSampleSize(QVector3D(0.5F, 1.0F, 1.0F)); // column c is at x = 0.5 c
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {0.875, 10.0}), 1.75F, 0.0F,
                0.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {1.0, 10.0}), 2.0F, 0.0F,
                0.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {1.125, 10.0}), 2.0F, 0.25F,
                0.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {2.0, 10.0}), 2.0F, 2.0F,
                0.0F); // the last sample
}

TEST(PanoramicCoordinateMapper, HeightIsCountedAlongTheRawUpperDirection)
{
    const auto reslice = makePanoramicReslice(pathAlongX(11), 1.0F, -5.0F, 15.0F, kZ * 4.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {3.0, 20.0}), 3.0F, 0.0F,
                -20.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {3.0, 18.0}), 3.0F, 0.0F,
                -12.0F);
}

TEST(PanoramicCoordinateMapper, LeftOfThePathTheFirstSegmentGoesOnStraight)
{
    const auto reslice = makeStraight();
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {-0.5, 13.0}), -0.5F, 0.0F,
                2.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {-7.0, 13.0}), -7.0F, 0.0F,
                2.0F);
}

TEST(PanoramicCoordinateMapper,
     RightOfThePathColumnsCountFromThePathsLengthSoThatTheFirstLiesBackOnThePath)
{
    const auto reslice = makeStraight(); // 11 samples: column 11 is that of the last sample, x = 10
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {10.0, 13.0}), 10.0F, 0.0F,
                2.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {10.5, 13.0}), 9.5F, 0.0F,
                2.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {11.0, 13.0}), 10.0F, 0.0F,
                2.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {13.0, 13.0}), 12.0F, 0.0F,
                2.0F);
    // The last segment of the corner runs along y.
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(makeCorner().get(), {4.25, 10.0}), 2.0F,
                1.25F, 0.0F);
}

TEST(PanoramicCoordinateMapper, HeightIsSubtractedInDoubleFromARangeThatIsAFloatAndNarrowedOnce)
{
    // The range 2^24 - 0.5 rounds to 2^24. At y = 2^24 the height is min, and not 0.
    const math::Range<float> range{0.5F, 16777216.0F};
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic_Helper(pathAlongX(2), kZ, range, 1.0F,
                                                             {0.0, 16777216.0}),
                0.0F, 0.0F, 0.5F);
    // At y = 2^24 - 0.75, which is no float, it is 1.25.
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic_Helper(pathAlongX(2), kZ, range, 1.0F,
                                                             {0.0, 16777215.25}),
                0.0F, 0.0F, 1.25F);
}

TEST(PanoramicCoordinateMapper, ColumnIsDividedInDoubleAndNarrowed)
{
    // 3 - 2^-30 columns narrow to column 3, whose sample stands elsewhere.
    QList<QVector3D> path = pathAlongX(5);
    path[3] = {3.0F, 50.0F, 0.0F};
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic_Helper(path, kZ, {0.0F, 1.0F}, 1.0F,
                                                             {3.0 - 0x1p-30, 1.0}),
                3.0F, 50.0F, 0.0F);
}

TEST(PanoramicCoordinateMapper, ColumnIsNotDividedInSinglePrecision)
{
    // 2.6 / 0.2F is 12.9999998063 in double precision, which narrows to column 13 (floats are
    // 9.5e-7 apart there); in single precision, the quotient of the floats is 12.99999905. Sample
    // 13 stands elsewhere.
    QList<QVector3D> path = pathAlongX(15);
    path[13] = {13.0F, 50.0F, 0.0F};
    expectPoint(
        CoordinateMapper::_2D_To_3D_Panoramic_Helper(path, kZ, {0.0F, 1.0F}, 0.2F, {2.6, 1.0}),
        13.0F, 50.0F, 0.0F);
}

TEST(PanoramicCoordinateMapper, HelperKnowsNoMirroringAndHasNothingForAnEmptyPath)
{
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic_Helper(pathAlongX(11), kZ, {-5.0F, 15.0F},
                                                             1.0F, {3.25, 13.0}),
                3.25F, 0.0F, 2.0F);
    expectPoint(
        CoordinateMapper::_2D_To_3D_Panoramic_Helper({}, kZ, {-5.0F, 15.0F}, 1.0F, {0.0, 13.0}),
        0.0F, 0.0F, 0.0F);
}

TEST(PanoramicCoordinateMapper, ViewPointsAndColumnWidthsThatGiveNoPlaceAreMappedToZero)
{
    const auto reslice = makeStraight();
    for (const QPointF& point :
         {QPointF(kNanView, 1.0), QPointF(1.0, kNanView), QPointF(kInfinityView, 1.0),
          QPointF(-kInfinityView, 1.0), QPointF(1.0, kInfinityView), QPointF(1e300, 1.0)}) {
        expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), point), 0.0F, 0.0F, 0.0F);
        expectFrame(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), point),
                    kX, kY, kZ, {});
    }
    reslice->setSampleSize(QVector3D(0.0F, 1.0F, 1.0F));
    for (const QPointF& point : {QPointF(0.0, 1.0), QPointF(1.0, 1.0)}) {
        expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), point), 0.0F, 0.0F, 0.0F);
        expectFrame(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), point),
                    kX, kY, kZ, {});
    }
}

TEST(PanoramicCoordinateMapper, PathsAndUpperDirectionsThatAreNotFiniteAreMappedToZeroAndOutside)
{
    const auto expectNothingAt = [](const PanoramicReslice& reslice, double column) {
        expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(&reslice, {column, 13.0}), 0.0F, 0.0F,
                    0.0F);
        expectFrame(
            CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(&reslice, {column, 8.0}), kX,
            kY, kZ, {});
    };
    for (const float odd : {kNan, kInfinity, -kInfinity}) {
        const auto reslice = makeStraight();
        QList<QVector3D> path = pathAlongX(11);
        path[10] = QVector3D(10.0F, odd, 0.0F);
        reslice->setPath(path);
        expectNothingAt(*reslice, 9.5);
        expectNothingAt(*reslice, 12.5);
        // The rest of the path is there: 2 mm above the middle at y = 8.
        expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {8.5, 13.0}), 8.5F, 0.0F,
                    2.0F);
        expectFrame(
            CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {8.5, 8.0}), kX,
            kZ, -kY, {8.5F, 0.0F, 2.0F});

        reslice->setPath(QList<QVector3D>(11, QVector3D(odd, odd, odd)));
        expectNothingAt(*reslice, 3.5);
        expectNothingAt(*reslice, -3.5);
        expectOutside(map(reslice.get(), {3.0F, 0.0F, 2.0F}, true));

        reslice->setPath(pathAlongX(11));
        reslice->getGuidingLine()->setUpperDirection({0.0F, 0.0F, odd});
        expectNothingAt(*reslice, 3.5);
        expectOutside(map(reslice.get(), {3.0F, 0.0F, 2.0F}, true));
    }
}

TEST(PanoramicCoordinateMapper, ColumnsBeyondWhatAnIntHoldsAreExtrapolated)
{
    const auto reslice = makeStraight();
    // 2^40 - 11 rounds to 2^40, and 10 more does not change it.
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {0x1p40, 15.0}), 0x1p40F, 0.0F,
                0.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {-0x1p40, 15.0}), -0x1p40F,
                0.0F, 0.0F);
    EXPECT_EQ(
        CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {-0x1p40, 10.0})
            .column(3)
            .x(),
        -0x1p40F);
}

// Dispatch

TEST(PanoramicCoordinateMapper, ViewPointIsMappedByTheTypeOfTheReslice)
{
    const auto panoramic = makeStraight();
    expectPoint(CoordinateMapper::_2D_To_3D(panoramic.get(), {3.25, 13.0}), 3.25F, 0.0F, 2.0F);
    const auto planar = test::makePlanarReslice(100.0F, 80.0F, 1.0F);
    expectPoint(CoordinateMapper::_2D_To_3D(planar.get(), {30.0, 20.0}), 30.0F, 60.0F, 0.0F);
    const auto ceph = test::makeCephReslice(100.0F, 80.0F);
    ceph->setPointOfView(meta::FromLeft);
    expectPoint(CoordinateMapper::_2D_To_3D(ceph.get(), {30.0, 20.0}), 70.0F, 60.0F, 0.0F);
    const Reslice other;
    expectPoint(CoordinateMapper::_2D_To_3D(&other, {30.0, 20.0}), 0.0F, 0.0F, 0.0F);
    expectPoint(CoordinateMapper::_2D_To_3D(nullptr, {30.0, 20.0}), 0.0F, 0.0F, 0.0F);
}

TEST(PanoramicCoordinateMapper, TypeIsAskedForAsPanoramicThenPlanarThenCephalometric)
{
    class Recorder : public Reslice
    {
    public:
        bool isOfType(const QString& classTypeId) const override
        {
            asked.append(classTypeId);
            return false;
        }
        mutable QStringList asked;
    };
    const Recorder reslice;
    CoordinateMapper::_2D_To_3D(&reslice, {1.0, 2.0});
    EXPECT_EQ(reslice.asked,
              QStringList({PanoramicReslice::getClassTypeId(), PlanarReslice::getClassTypeId(),
                           CephReslice::getClassTypeId()}));
}

// Segments

TEST(PanoramicCoordinateMapper, SegmentIsDrawnInStepsAndARest)
{
    const auto lines = CoordinateMapper::_3D_To_2D_Line_Panoramic(
        makeStraight().get(), {0.5F, 0.0F, 2.0F}, {3.0F, 0.0F, 2.0F}, false, 1.0F);
    ASSERT_EQ(lines.size(), 3);
    expectLine(lines[0], 0.5, 13.0, 1.5, 13.0);
    expectLine(lines[1], 1.5, 13.0, 2.5, 13.0);
    expectLine(lines[2], 2.5, 13.0, 3.0, 13.0);
}

TEST(PanoramicCoordinateMapper, SegmentThatEndsOnAStepHasARestOfNoLength)
{
    const auto lines = CoordinateMapper::_3D_To_2D_Line_Panoramic(
        makeStraight().get(), {1.0F, 0.0F, 2.0F}, {3.0F, 0.0F, 2.0F}, false, 1.0F);
    ASSERT_EQ(lines.size(), 3);
    expectLine(lines[2], 3.0, 13.0, 3.0, 13.0);
}

TEST(PanoramicCoordinateMapper, SegmentShorterThanAStepIsOneLine)
{
    for (const float step : {10.0F, kInfinity}) {
        const auto lines = CoordinateMapper::_3D_To_2D_Line_Panoramic(
            makeStraight().get(), {1.0F, 0.0F, 2.0F}, {3.0F, 0.0F, 4.0F}, false, step);
        ASSERT_EQ(lines.size(), 1);
        expectLine(lines[0], 1.0, 13.0, 3.0, 11.0);
    }
}

TEST(PanoramicCoordinateMapper, SamplesThatAreNotInSliceBreakTheChainOfLines)
{
    // Out along x at y = 0, back at y = 4. The segment crosses from one to the other: in slice up
    // to a depth of 1.
    QList<QVector3D> path = pathAlongX(11);
    for (int x = 10; x >= 0; --x)
        path.append({static_cast<float>(x), 4.0F, 0.0F});
    const auto reslice = makePanoramicReslice(path, 1.0F, -5.0F, 15.0F);
    makeSlab(*reslice, 100.0F);
    const auto lines = CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), {5.0F, 0.0F, 2.0F},
                                                                  {5.0F, 4.0F, 2.0F}, false, 1.0F);
    // y = 0 to 1; 2 is out; 3 to 4; and the rest. On the way back x = 5 is sample 16: columns 10 to
    // 11 cross over.
    ASSERT_EQ(lines.size(), 3);
    expectLine(lines[0], 5.0, 13.0, 5.0, 13.0);
    expectLine(lines[1], 16.0, 13.0, 16.0, 13.0);
    expectLine(lines[2], 16.0, 13.0, 16.0, 13.0);
}

TEST(PanoramicCoordinateMapper, SegmentThatLeavesTheSliceHasNoRest)
{
    const auto reslice = makeStraight();
    makeSlab(*reslice, 100.0F);
    // In slice up to y = 1, in plane all the way.
    const auto lines = CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), {5.0F, 0.0F, 2.0F},
                                                                  {5.0F, 3.0F, 2.0F}, false, 0.5F);
    EXPECT_EQ(lines.size(), 2);
    // One that comes in has its rest: y = 1, 0.5 and 0 are in.
    EXPECT_EQ(CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), {5.0F, 3.0F, 2.0F},
                                                         {5.0F, 0.25F, 2.0F}, false, 0.5F)
                  .size(),
              2); // y = 1 to 0.5 and 0.5 to 0.25
    // The last sample is in, p2 is not.
    EXPECT_EQ(CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), {5.0F, 0.0F, 2.0F},
                                                         {5.0F, 1.25F, 2.0F}, false, 0.5F)
                  .size(),
              2);
}

TEST(PanoramicCoordinateMapper, KeepOutsideDrawsWhatIsWithinAColumnButOutsideTheSlab)
{
    const auto reslice = makeStraight(); // slab 0.5 to either side, columns of 1 mm
    const QVector3D p1(5.0F, 0.0F, 2.0F);
    const QVector3D p2(5.0F, 3.0F, 2.0F);
    EXPECT_EQ(CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), p1, p2, false, 0.5F).size(),
              1);
    EXPECT_EQ(CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), p1, p2, true, 0.5F).size(),
              2);
}

TEST(PanoramicCoordinateMapper, SegmentOfNoLengthIsOneLineOfNoLength)
{
    const auto lines = CoordinateMapper::_3D_To_2D_Line_Panoramic(
        makeStraight().get(), {1.0F, 0.0F, 2.0F}, {1.0F, 0.0F, 2.0F}, false, 1.0F);
    ASSERT_EQ(lines.size(), 1);
    expectLine(lines[0], 1.0, 13.0, 1.0, 13.0);
}

TEST(PanoramicCoordinateMapper, DirectionOfASegmentKeepsItsLengthIfThatIsNearlyOneOrHardlyAnything)
{
    // 1 + 2^-17 = 1.0000076, within 1e-5 of 1: half a step of 0.5 mm is that much too long.
    const auto nearlyOne = CoordinateMapper::_3D_To_2D_Line_Panoramic(
        makeStraight().get(), {0.0F, 0.0F, 2.0F}, {1.0F + 0x1p-17F, 0.0F, 2.0F}, false, 0.5F);
    ASSERT_EQ(nearlyOne.size(), 3);
    expectLine(nearlyOne[0], 0.0, 13.0, 0.5 + 0x1p-18, 13.0);
    expectLine(nearlyOne[1], 0.5 + 0x1p-18, 13.0, 1.0 + 0x1p-17, 13.0);
    expectLine(nearlyOne[2], 1.0 + 0x1p-17, 13.0, 1.0 + 0x1p-17, 13.0);

    // 2^-17 mm, below 1e-5, stands as it is: two steps of 2^-18 go 2^-18 times as far.
    const auto hardlyAnything = CoordinateMapper::_3D_To_2D_Line_Panoramic(
        makeStraight().get(), {0.0F, 0.0F, 2.0F}, {0x1p-17F, 0.0F, 2.0F}, false, 0x1p-18F);
    ASSERT_EQ(hardlyAnything.size(), 3);
    expectLine(hardlyAnything[0], 0.0, 13.0, 0x1p-35, 13.0);
    expectLine(hardlyAnything[1], 0x1p-35, 13.0, 0x1p-34, 13.0);
    expectLine(hardlyAnything[2], 0x1p-34, 13.0, 0x1p-17, 13.0);
}

TEST(PanoramicCoordinateMapper, LengthOfASegmentIsFoundWithoutSquaresThatUnderflowOrOverflow)
{
    // Two steps of 2^-81 in 2^-80 mm, whose square is 0 as a float, and a rest.
    EXPECT_EQ(CoordinateMapper::_3D_To_2D_Line_Panoramic(makeStraight().get(), {},
                                                         {0x1p-80F, 0.0F, 0.0F}, false, 0x1p-81F)
                  .size(),
              3);
    // Four of 2^68 in 2^70 mm, whose square is infinite.
    EXPECT_EQ(CoordinateMapper::_3D_To_2D_Line_Panoramic(makeStraight().get(), {},
                                                         {0x1p70F, 0.0F, 0.0F}, false, 0x1p68F)
                  .size(),
              5);
}

TEST(PanoramicCoordinateMapper, StepsThatLeadNowhereGiveNoLines)
{
    const auto reslice = makeStraight();
    const QVector3D p1(1.0F, 0.0F, 2.0F);
    const QVector3D p2(3.0F, 0.0F, 2.0F);
    for (const float step :
         {0.0F, -0.0F, -1.0F, -kInfinity, kNan, 1e-30F, std::numeric_limits<float>::denorm_min()})
        EXPECT_TRUE(CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), p1, p2, false, step)
                        .isEmpty())
            << step;
    // 2^24 samples: the counter would stay there for ever.
    EXPECT_TRUE(CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), {}, {0x1p24F, 0.0F, 0.0F},
                                                           false, 1.0F)
                    .isEmpty());
    EXPECT_TRUE(
        CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), p1, p1, false, 0.0F).isEmpty());
}

TEST(PanoramicCoordinateMapper, SegmentsMayHaveMillionsOfSamples)
{
    // 2^21 samples on the way out of the slice; the first lies one column width away.
    const auto reslice = makePanoramicReslice(pathAlongX(2), 1.0F, -5.0F, 15.0F);
    makeSlab(*reslice, 4.0F);
    const QVector3D far(0.0F, 0x1p21F, 0.0F);
    EXPECT_EQ(
        CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), {}, far, false, 1.0F).size(), 1);
}

TEST(PanoramicCoordinateMapper, SegmentsThatAreNotFiniteGiveNoLines)
{
    const auto reslice = makeStraight();
    for (const float odd : {kNan, kInfinity, 3e38F}) {
        const QVector3D far(odd, odd, odd);
        EXPECT_TRUE(CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), {}, far, true, 1.0F)
                        .isEmpty());
        EXPECT_TRUE(CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), far, {}, true, 1.0F)
                        .isEmpty());
    }
}

// The documented steps, by the operation for a single point.
TEST(PanoramicCoordinateMapper, LinesHaveTheBitsOfTheirSamplesMappedOneByOne)
{
    RandomGeometry random(51);
    int drawn = 0;
    for (int i = 0; i < 200; ++i) {
        SCOPED_TRACE(testing::Message() << "seed 51, case " << i);
        const auto reslice = random.panoramicReslice(100, 0.5F);
        makeSlab(*reslice, random.number(0.1F, 10.0F));
        reslice->setMirroredIn2D(i % 2 == 1, i % 4 >= 2);
        const QVector3D p1 = reslice->getPath()[10] + random.point(1.0F);
        const QVector3D p2 = reslice->getPath()[i % 100] + random.point(1.0F);
        const float step = random.number(0.05F, 0.4F);
        const bool keep = i % 3 == 0;

        QVector3D direction = p2 - p1;
        const int count = static_cast<int>(direction.length() / step);
        direction.normalize();
        QList<Verdict> samples = {map(reslice.get(), p1, keep)};
        for (int k = 1; k <= count; ++k)
            samples.append(
                map(reslice.get(), p1 + direction * (static_cast<float>(k) * step), keep));
        samples.append(map(reslice.get(), p2, keep));

        const auto lines =
            CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), p1, p2, keep, step);
        qsizetype next = 0;
        for (qsizetype k = 1; k < samples.size(); ++k) {
            if (!samples[k - 1].inSlice || !samples[k].inSlice)
                continue;
            ASSERT_LT(next, lines.size());
            ASSERT_TRUE(sameBits(lines[next].p1(), samples[k - 1].point) &&
                        sameBits(lines[next].p2(), samples[k].point));
            ++next;
        }
        ASSERT_EQ(next, lines.size());
        drawn += static_cast<int>(next);
    }
    EXPECT_GT(drawn, 1000);
}

// Lists

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
            const Verdict back = map(reslice.get(), world, true);
            ASSERT_TRUE(back.inPlane);
            ASSERT_NEAR(back.point.x(), view.x(), tolerance);
            ASSERT_NEAR(back.point.y(), view.y(), tolerance);
        }
    }
}

// The frame at a view position

TEST(PanoramicCoordinateMapper, FrameHasTangentUpAndTheirCrossProductAtThePoint)
{
    const auto reslice = makePanoramicReslice(pathAlongX(11, 2.0F), 1.0F, -5.0F, 15.0F, kZ * 4.0F);
    reslice->setSampleSize(QVector3D(1.0F, 0.5F, 1.0F));
    reslice->setDimensions(QSizeF(11.0, 40.0)); // 20 mm high
    // Tangent (2, 0, 0) normalised, up as it is, their product (0, -8, 0) normalised; 6 mm above
    // the middle, 4 each.
    expectFrame(
        CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {3.25, 4.0}), kX,
        kZ * 4.0F, -kY, {6.5F, 0.0F, 24.0F});
}

TEST(PanoramicCoordinateMapper, FrameDoesNotUndoMirroringAndIgnoresTheVerticalRange)
{
    const auto reslice = makeStraight();
    reslice->setMirroredIn2D(true, true);
    reslice->setVerticalRange({70.0F, 90.0F});
    expectFrame(
        CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {3.25, 4.0}), kX,
        kZ, -kY, {3.25F, 0.0F, 6.0F});
}

TEST(PanoramicCoordinateMapper, FrameFollowsTheSegmentOfItsColumn)
{
    const auto reslice = makeCorner(); // 10 high
    expectFrame(
        CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {1.75, 5.0}), kX,
        kZ, -kY, {1.75F, 0.0F, 0.0F});
    expectFrame(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {2.0, 5.0}),
                kY, kZ, kX, {2.0F, 0.0F, 0.0F});
    expectFrame(
        CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {-3.0, 5.0}), kX,
        kZ, -kY, {-3.0F, 0.0F, 0.0F});
}

TEST(PanoramicCoordinateMapper, FrameFromTheLastSampleOnCountsColumnsFromThePathsLength)
{
    const auto reslice = makeStraight(); // 11 samples
    const auto origin = [&reslice](double x) {
        return CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {x, 10.0})
            .column(3)
            .toVector3D();
    };
    expectPoint(origin(9.75), 9.75F, 0.0F, 0.0F);
    expectPoint(origin(10.0), 9.0F, 0.0F, 0.0F); // the last sample already, unlike view to world
    expectPoint(origin(10.5), 9.5F, 0.0F, 0.0F);
    expectPoint(origin(13.0), 12.0F, 0.0F, 0.0F);
}

TEST(PanoramicCoordinateMapper, FramesHeightIsHalvedAsAFloatAndSubtractedInDouble)
{
    // 2^24 + 1 rows narrow to 2^24, half of that is 2^23. At y = 2^23 - 0.25, which is no float,
    // the height is 0.25.
    const auto reslice = makeStraight();
    reslice->setDimensions(QSizeF(11.0, 16777217.0));
    expectFrame(
        CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {3.0, 8388607.75}),
        kX, kZ, -kY, {3.0F, 0.0F, 0.25F});
}

TEST(PanoramicCoordinateMapper, FramesColumnIsDividedInDoubleAndNarrowed)
{
    // 3 - 2^-30 columns narrow to column 3, from where the path runs on along y.
    auto path = pathAlongX(4);
    path.append({3.0F, 1.0F, 0.0F});
    const auto reslice = makePanoramicReslice(path, 1.0F, 0.0F, 10.0F);
    expectFrame(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(),
                                                                         {3.0 - 0x1p-30, 5.0}),
                kY, kZ, kX, {3.0F, 0.0F, 0.0F});
}

TEST(PanoramicCoordinateMapper, FrameOfCoincidingSamplesHasNoTangent)
{
    const auto reslice =
        makePanoramicReslice({{1.0F, 1.0F, 1.0F}, {1.0F, 1.0F, 1.0F}}, 1.0F, 0.0F, 10.0F);
    expectFrame(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {0.5, 5.0}),
                {}, kZ, {}, {1.0F, 1.0F, 1.0F});
}

TEST(PanoramicCoordinateMapper, FramesColumnIsNotDividedInSinglePrecision)
{
    // As for view to world: column 13, from where the path runs on along y.
    auto path = pathAlongX(14);
    path.append({13.0F, 1.0F, 0.0F});
    path.append({13.0F, 2.0F, 0.0F});
    const auto reslice = makePanoramicReslice(path, 0.2F, 0.0F, 10.0F);
    expectFrame(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {2.6, 5.0}),
                kY, kZ, kX, {13.0F, 0.0F, 0.0F});
}

TEST(PanoramicCoordinateMapper, FramesAxesOfUpTo1e5HaveNoDirection)
{
    // A tangent of 2^-18 gives the zero axis, but its product with an up of 16 is long enough and
    // keeps its direction.
    const auto dense = makePanoramicReslice(pathAlongX(3, 0x1p-18F), 1.0F, 0.0F, 10.0F, kZ * 16.0F);
    expectFrame(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(dense.get(), {1.0, 5.0}),
                {}, kZ * 16.0F, -kY, {0x1p-18F, 0.0F, 0.0F});
    // A product of 2^-18 has none.
    const auto low = makePanoramicReslice(pathAlongX(3), 1.0F, 0.0F, 10.0F, kZ * 0x1p-18F);
    expectFrame(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(low.get(), {1.0, 5.0}), kX,
                kZ * 0x1p-18F, {}, kX);
}

TEST(PanoramicCoordinateMapper, FramesColumnsAreTheDifferencesOfTheViewToWorldMapping)
{
    // Differences over 0.25 mm of coordinates below 256 mm, which are 2^-16 mm apart.
    constexpr float kSlope = 128.0F * 0x1p-16F;
    RandomGeometry random(54);
    for (int i = 0; i < 500; ++i) {
        SCOPED_TRACE(testing::Message() << "seed 54, case " << i);
        const auto reslice = random.panoramicReslice(100, 0.5F);
        const float half = reslice->getVerticalRange().max;
        reslice->setVerticalRange(
            {-std::abs(half), std::abs(half)}); // heights from the middle of the view
        reslice->setDimensions(QSizeF(100.0, 2.0 * std::abs(static_cast<double>(half))));
        // Within one column: a quarter of it before and behind.
        const double x = (std::floor(static_cast<double>(random.number(0.0F, 98.0F))) + 0.5) * 0.5;
        const QPointF at(x, static_cast<double>(random.number(0.0F, reslice->getHeight())));
        const auto world = [&](double dx, double dy) {
            return CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), at + QPointF(dx, dy));
        };
        const QMatrix4x4 frame =
            CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), at);
        const QVector3D perX = (world(0.125, 0.0) - world(-0.125, 0.0)) / 0.25F;
        const QVector3D perY = (world(0.0, 4.0) - world(0.0, -4.0)) / 8.0F;
        ASSERT_LE((frame.column(0).toVector3D() - perX).length(), kSlope);
        ASSERT_LE((frame.column(1).toVector3D() + perY).length(), 0x1p-14F); // y points down
        ASSERT_LE((frame.column(3).toVector3D() - world(0.0, 0.0)).length(), 0x1p-14F);
        ASSERT_NEAR(QVector3D::dotProduct(frame.column(2).toVector3D(), perX), 0.0F, kSlope);
        ASSERT_NEAR(QVector3D::dotProduct(frame.column(2).toVector3D(), perY), 0.0F, kSlope);
    }
}

// The projection onto a segment, which nothing in the library calls

using Access = CoordinateMapperTestAccess;

TEST(PanoramicCoordinateMapper, ProjectionGivesTheUnsignedDistanceAndTheFootInTheSegment)
{
    for (const float y : {0.25F, -0.25F}) {
        QPointF out(-1.0, -1.0);
        EXPECT_EQ(Access::panoramicProjection({1.0F, 0.0F, 1.0F}, kZ, {3.0F, 0.0F, 1.0F},
                                              {2.5F, y, 4.0F}, out, 2.0F, false),
                  0.25F);
        expectPoint(out, 1.5, 3.0);
    }
}

TEST(PanoramicCoordinateMapper, ProjectionWithinHalfTheThicknessIsInclusive)
{
    QPointF out;
    EXPECT_EQ(Access::panoramicProjection({}, kZ, kX, {0.5F, 0.25F, 0.0F}, out, 0.5F, false),
              0.25F);
    EXPECT_EQ(Access::panoramicProjection({}, kZ, kX, {0.5F, std::nextafter(0.25F, 1.0F), 0.0F},
                                          out, 0.5F, false),
              -1.0F);
}

TEST(PanoramicCoordinateMapper, ProjectionOutsideLeavesTheOutputAloneUnlessItIsKept)
{
    QPointF out(-7.0, -8.0);
    EXPECT_EQ(Access::panoramicProjection({}, kZ, kX, {0.5F, 3.0F, 2.0F}, out, 1.0F, false), -1.0F);
    expectPoint(out, -7.0, -8.0);
    EXPECT_EQ(Access::panoramicProjection({}, kZ, kX, {0.5F, 3.0F, 2.0F}, out, 1.0F, true), -1.0F);
    expectPoint(out, 0.5, 2.0);
}

TEST(PanoramicCoordinateMapper, ProjectionTakesTheUpperDirectionAsItIs)
{
    QPointF out;
    EXPECT_EQ(Access::panoramicProjection({}, kZ * 4.0F, kX * 9.0F, {0.5F, 0.25F, 2.0F}, out, 1.0F,
                                          false),
              0.25F);
    expectPoint(out, 0.5, 0.5); // along in mm, up in lengths of the direction
}

TEST(PanoramicCoordinateMapper, ProjectionUsesADirectionTooShortToBeNormalisedAsItIs)
{
    // The segment is 2^-18 long and counts as 1; as the zero vector it would leave the frame
    // without an inverse. With an up of 16 the plane has a normal.
    QPointF out;
    EXPECT_EQ(Access::panoramicProjection({}, kZ * 16.0F, kX * 0x1p-18F, {0x1p-19F, 0.25F, 32.0F},
                                          out, 1.0F, false),
              0.25F);
    expectPoint(out, 0.5, 2.0);
}

TEST(PanoramicCoordinateMapper, ProjectionOntoNoPlaneIsThatOfTheOrigin)
{
    // The plane is degenerate: distance 0, no meeting point, and a frame that is inverted to the
    // identity.
    QPointF out(-7.0, -8.0);
    EXPECT_EQ(Access::panoramicProjection(kX, kZ, kX, {5.0F, 5.0F, 5.0F}, out, 1.0F, false), 0.0F);
    expectPoint(out, 0.0, 0.0);
}

} // namespace
