// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

// Covered: segments as chains of lines in a panoramic view.

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <tests/reslice/PanoramicReslices.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

using test::expectLine;
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

TEST(PanoramicCoordinateMapper, SegmentIsDrawnInStepsAndARemainder)
{
    const auto lines = CoordinateMapper::_3D_To_2D_Line_Panoramic(
        makeStraight().get(), {0.5F, 0.0F, 2.0F}, {3.0F, 0.0F, 2.0F}, false, 1.0F);
    ASSERT_EQ(lines.size(), 3);
    expectLine(lines[0], 0.5, 13.0, 1.5, 13.0);
    expectLine(lines[1], 1.5, 13.0, 2.5, 13.0);
    expectLine(lines[2], 2.5, 13.0, 3.0, 13.0);
}

TEST(PanoramicCoordinateMapper, SegmentThatEndsOnAStepHasARemainderOfNoLength)
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
    QList<QVector3D> path = straightPath(11);
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

TEST(PanoramicCoordinateMapper, SegmentThatLeavesTheSliceHasNoRemainder)
{
    const auto reslice = makeStraight();
    makeSlab(*reslice, 100.0F);
    // The segment is in slice up to y = 1 and in plane all the way.
    const auto lines = CoordinateMapper::_3D_To_2D_Line_Panoramic(reslice.get(), {5.0F, 0.0F, 2.0F},
                                                                  {5.0F, 3.0F, 2.0F}, false, 0.5F);
    EXPECT_EQ(lines.size(), 2);
    // One that enters has its remainder: y = 1, 0.5 and 0 are in.
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

TEST(PanoramicCoordinateMapper, DirectionOfASegmentKeepsItsLengthIfThatIsNearlyOneOrNearlyZero)
{
    // 1 + 2^-17 = 1.0000076, within 1e-5 of 1: half a step of 0.5 mm is that much too long.
    const auto nearlyOne = CoordinateMapper::_3D_To_2D_Line_Panoramic(
        makeStraight().get(), {0.0F, 0.0F, 2.0F}, {1.0F + 0x1p-17F, 0.0F, 2.0F}, false, 0.5F);
    ASSERT_EQ(nearlyOne.size(), 3);
    expectLine(nearlyOne[0], 0.0, 13.0, 0.5 + 0x1p-18, 13.0);
    expectLine(nearlyOne[1], 0.5 + 0x1p-18, 13.0, 1.0 + 0x1p-17, 13.0);
    expectLine(nearlyOne[2], 1.0 + 0x1p-17, 13.0, 1.0 + 0x1p-17, 13.0);

    // 2^-17 mm, below 1e-5, is unchanged: two steps of 2^-18 go 2^-18 times as far.
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

TEST(PanoramicCoordinateMapper, InvalidStepsGiveNoLines)
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
    const auto reslice = makePanoramicReslice(straightPath(2), 1.0F, -5.0F, 15.0F);
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
        QList<Verdict> samples = {mapPanoramic(reslice.get(), p1, keep)};
        for (int k = 1; k <= count; ++k)
            samples.append(
                mapPanoramic(reslice.get(), p1 + direction * (static_cast<float>(k) * step), keep));
        samples.append(mapPanoramic(reslice.get(), p2, keep));

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

} // namespace
