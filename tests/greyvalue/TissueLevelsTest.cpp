// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/TissueLevels_p.h>

// Covered: the eleven levels from the peaks at landmarks and from those at teeth.

#include <CoreAlgorithms/greyvalue/SafeNumbers_p.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using greyvalue::tissuesFromLandmarks;
using greyvalue::tissuesFromTeeth;
using Levels = std::vector<int>;

constexpr int kSmallest = std::numeric_limits<int>::min();
constexpr int kLargest = std::numeric_limits<int>::max();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST(TissueLevels, AreTheDefaultLevelsForThePeaksOfACalibratedScan)
{
    const Levels defaults{-1000, -500, -50, 40, 500, 550, 1000, 1300, 1500, 1800, 2800};
    EXPECT_EQ(tissuesFromLandmarks(-1000, {40, 1800}).value().toVector(), defaults);
    EXPECT_EQ(tissuesFromTeeth({40, 1300}).value().toVector(), defaults);
}

// The literals were computed by hand in fractions, halves away from zero. With 1000 below and 1800
// above,
//     T1 = -975 + 1000 * 500 / 1040 = -494.23
//     T2 = -975 + 1000 * 950 / 1040 = -61.54
//     T4 = 25 + 1800 * 460 / 1760 = 495.45, and so on.
TEST(TissueLevels, FromLandmarksStretchBelowAndAboveSoftTissueSeparately)
{
    EXPECT_EQ(tissuesFromLandmarks(-975, {25, 1825}).value().toVector(),
              Levels({-975, -494, -62, 25, 495, 547, 1007, 1314, 1518, 1825, 2848}));
    EXPECT_EQ(tissuesFromLandmarks(-1275, {-275, 1225}).value().toVector(),
              Levels({-1275, -794, -362, -275, 117, 160, 543, 799, 969, 1225, 2077}));
}

// The one scale is 1300 / 1260:
//     T0 = 25 - 1040 * 1300 / 1260 = -1048.02
//     T4 = 25 + 460 * 1300 / 1260 = 499.60, and so on.
TEST(TissueLevels, FromTeethStretchAllByOneScale)
{
    EXPECT_EQ(tissuesFromTeeth({25, 1325}).value().toVector(),
              Levels({-1048, -532, -68, 25, 500, 551, 1015, 1325, 1531, 1841, 2873}));
}

// Halves that single precision misses. Exactly, T2 is -957.5, T8 79.5 and T2 of the teeth -252.5:
// in double precision they would be -958, 80 and -253. From another program.
TEST(TissueLevels, AreComputedInSinglePrecision)
{
    EXPECT_EQ(tissuesFromLandmarks(-3000, {-764, 996}).value().toVector(),
              Levels({-3000, -1925, -957, -764, -304, -254, 196, 496, 696, 996, 1996}));
    EXPECT_EQ(tissuesFromLandmarks(-1000, {-395, 177}).value().toVector(),
              Levels({-1000, -709, -447, -395, -246, -229, -83, 15, 79, 177, 502}));
    EXPECT_EQ(tissuesFromTeeth({-70, 2485}).value().toVector(),
              Levels({-2179, -1165, -252, -70, 863, 964, 1877, 2485, 2891, 3499, 5527}));
}

TEST(TissueLevels, AreNothingIfThePeaksDoNotAscendStrictly)
{
    EXPECT_FALSE(tissuesFromLandmarks(40, {40, 1800}));
    EXPECT_FALSE(tissuesFromLandmarks(41, {40, 1800}));
    EXPECT_FALSE(tissuesFromLandmarks(-1000, {1800, 1800}));
    EXPECT_FALSE(tissuesFromLandmarks(-1000, {1801, 1800}));
    EXPECT_TRUE(tissuesFromLandmarks(39, {40, 41}));
    EXPECT_FALSE(tissuesFromTeeth({40, 40}));
    EXPECT_FALSE(tissuesFromTeeth({41, 40}));
    EXPECT_TRUE(tissuesFromTeeth({40, 41}));
}

TEST(TissueLevels, AreLimitedToTheRangeOfInt)
{
    const Levels widest = tissuesFromLandmarks(kSmallest, {0, kLargest}).value().toVector();
    EXPECT_EQ(widest.front(), kSmallest);
    EXPECT_EQ(widest[9], kLargest);
    EXPECT_EQ(widest.back(), kLargest);
    const Levels teeth = tissuesFromTeeth({kSmallest, kLargest}).value().toVector();
    EXPECT_EQ(teeth.front(), kSmallest);
    EXPECT_EQ(teeth[3], kSmallest);
    EXPECT_EQ(teeth[7], kLargest);
    EXPECT_EQ(teeth.back(), kLargest);
}

TEST(SafeNumbers, RoundHalvesAwayFromZeroAndStayInTheRangeOfInt)
{
    EXPECT_EQ(greyvalue::roundedToInt(2.5F), 3);
    EXPECT_EQ(greyvalue::roundedToInt(-2.5F), -3);
    EXPECT_EQ(greyvalue::roundedToInt(0x1.fffffep-2F), 0) << "just below a half";
    EXPECT_EQ(greyvalue::roundedToInt(3e9F), kLargest);
    EXPECT_EQ(greyvalue::roundedToInt(-kInfinity), kSmallest);
    EXPECT_EQ(greyvalue::roundedToInt(std::nanf("")), 0);
    EXPECT_EQ(greyvalue::truncatedToInt(-2.9), -2);
    EXPECT_EQ(greyvalue::truncatedToInt(1e300), kLargest);
    EXPECT_EQ(greyvalue::limitedToInt(std::numeric_limits<std::int64_t>::min()), kSmallest);
}

} // namespace
