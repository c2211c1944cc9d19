// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

// Covered: the panoramic mapping from the view to the world, the frame at a view position, and the
// choice of the mapping by the type of the reslice.

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
using test::makeStraight;
using test::mapPanoramic;
using test::RandomGeometry;
using test::straightPath;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr double kNanView = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinityView = std::numeric_limits<double>::infinity();

const QVector3D kX(1.0F, 0.0F, 0.0F);
const QVector3D kY(0.0F, 1.0F, 0.0F);
const QVector3D kZ(0.0F, 0.0F, 1.0F);

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
    const auto reslice = makePanoramicReslice(straightPath(11), 1.0F, -5.0F, 15.0F, kZ * 4.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {3.0, 20.0}), 3.0F, 0.0F,
                -20.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {3.0, 18.0}), 3.0F, 0.0F,
                -12.0F);
}

TEST(PanoramicCoordinateMapper, LeftOfThePathTheFirstSegmentContinuesStraight)
{
    const auto reslice = makeStraight();
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {-0.5, 13.0}), -0.5F, 0.0F,
                2.0F);
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic(reslice.get(), {-7.0, 13.0}), -7.0F, 0.0F,
                2.0F);
}

TEST(PanoramicCoordinateMapper, RightOfThePathTheFirstColumnIsBackOnThePathByDesign)
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
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic_Helper(straightPath(2), kZ, range, 1.0F,
                                                             {0.0, 16777216.0}),
                0.0F, 0.0F, 0.5F);
    // At y = 2^24 - 0.75, which is no float, it is 1.25.
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic_Helper(straightPath(2), kZ, range, 1.0F,
                                                             {0.0, 16777215.25}),
                0.0F, 0.0F, 1.25F);
}

TEST(PanoramicCoordinateMapper, ColumnIsDividedInDoubleAndNarrowed)
{
    // 3 - 2^-30 columns narrow to column 3, whose sample is elsewhere.
    QList<QVector3D> path = straightPath(5);
    path[3] = {3.0F, 50.0F, 0.0F};
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic_Helper(path, kZ, {0.0F, 1.0F}, 1.0F,
                                                             {3.0 - 0x1p-30, 1.0}),
                3.0F, 50.0F, 0.0F);
}

TEST(PanoramicCoordinateMapper, ColumnIsNotDividedInSinglePrecision)
{
    // 2.6 / 0.2F is 12.9999998063 in double precision, which narrows to column 13 (floats are
    // 9.5e-7 apart there); in single precision, the quotient of the floats is 12.99999905. Sample
    // 13 is elsewhere.
    QList<QVector3D> path = straightPath(15);
    path[13] = {13.0F, 50.0F, 0.0F};
    expectPoint(
        CoordinateMapper::_2D_To_3D_Panoramic_Helper(path, kZ, {0.0F, 1.0F}, 0.2F, {2.6, 1.0}),
        13.0F, 50.0F, 0.0F);
}

TEST(PanoramicCoordinateMapper, HelperKnowsNoMirroringAndHasNothingForAnEmptyPath)
{
    expectPoint(CoordinateMapper::_2D_To_3D_Panoramic_Helper(straightPath(11), kZ, {-5.0F, 15.0F},
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
        QList<QVector3D> path = straightPath(11);
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
        expectOutside(mapPanoramic(reslice.get(), {3.0F, 0.0F, 2.0F}, true));

        reslice->setPath(straightPath(11));
        reslice->getGuidingLine()->setUpperDirection({0.0F, 0.0F, odd});
        expectNothingAt(*reslice, 3.5);
        expectOutside(mapPanoramic(reslice.get(), {3.0F, 0.0F, 2.0F}, true));
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

TEST(PanoramicCoordinateMapper, TypeIsTestedAsPanoramicThenPlanarThenCephalometric)
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

// The frame at a view position

TEST(PanoramicCoordinateMapper, FrameHasTangentUpAndTheirCrossProductAtThePoint)
{
    const auto reslice =
        makePanoramicReslice(straightPath(11, 2.0F), 1.0F, -5.0F, 15.0F, kZ * 4.0F);
    reslice->setSampleSize(QVector3D(1.0F, 0.5F, 1.0F));
    reslice->setDimensions(QSizeF(11.0, 40.0)); // 20 mm high
    // Tangent (2, 0, 0) normalized, up unchanged, their product (0, -8, 0) normalized; 6 mm above
    // the middle, 4 each.
    expectFrame(
        CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(reslice.get(), {3.25, 4.0}), kX,
        kZ * 4.0F, -kY, {6.5F, 0.0F, 24.0F});
}

TEST(PanoramicCoordinateMapper, FrameDoesNotUndoMirroringAndIgnoresTheVerticalRangeByDesign)
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

TEST(PanoramicCoordinateMapper, FrameFromTheLastSampleOnCountsColumnsFromThePathsLengthByDesign)
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
    auto path = straightPath(4);
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
    auto path = straightPath(14);
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
    const auto dense =
        makePanoramicReslice(straightPath(3, 0x1p-18F), 1.0F, 0.0F, 10.0F, kZ * 16.0F);
    expectFrame(CoordinateMapper::getPanoramicOrthonormalBasisAtPosition(dense.get(), {1.0, 5.0}),
                {}, kZ * 16.0F, -kY, {0x1p-18F, 0.0F, 0.0F});
    // A product of 2^-18 has none.
    const auto low = makePanoramicReslice(straightPath(3), 1.0F, 0.0F, 10.0F, kZ * 0x1p-18F);
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

} // namespace
