// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/TissueEstimationHistogram.h>

// Covered: binning, the density, smoothing, restricting, the low bin, the two maxima, their
// separation.

#include <tests/support/GreyValueAccess.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using Access = TissueEstimationHistogramTestAccess;
using Bins = std::vector<float>;

constexpr int kSmallest = std::numeric_limits<int>::min();
constexpr int kLargest = std::numeric_limits<int>::max();

TissueEstimationHistogram withBins(int width, Bins bins)
{
    return Access::withBins(width, 0, std::move(bins));
}

// Empty bins but for those given as index and height.
TissueEstimationHistogram withPeaks(int width, std::size_t count,
                                    const std::vector<std::pair<std::size_t, float>>& peaks)
{
    Bins bins(count);
    for (const auto& [index, height] : peaks)
        bins[index] = height;
    return withBins(width, std::move(bins));
}

void expectMaxima(const TissueEstimationHistogram& histogram, int lower, int higher)
{
    const auto maxima = histogram.findMaxima();
    ASSERT_TRUE(maxima);
    EXPECT_EQ(maxima.value().first, lower);
    EXPECT_EQ(maxima.value().second, higher);
}

float total(const Bins& bins)
{
    float sum = 0.0F;
    for (const float bin : bins)
        sum += bin;
    return sum;
}

static_assert(!std::is_polymorphic_v<TissueEstimationHistogram>);
static_assert(std::is_copy_constructible_v<TissueEstimationHistogram> &&
              std::is_copy_assignable_v<TissueEstimationHistogram>);
static_assert(std::is_nothrow_move_constructible_v<TissueEstimationHistogram> &&
              std::is_move_assignable_v<TissueEstimationHistogram>);

// Binning

TEST(TissueEstimationHistogram, HasNoBinsAndNoMaximaWithoutValues)
{
    TissueEstimationHistogram histogram({}, 10);
    histogram.addLowBin();
    histogram.smooth();
    histogram.restrict();
    EXPECT_TRUE(histogram.getBins().empty());
    EXPECT_EQ(histogram.getLowestBinStart(), 0) << "there is no bin to insert one in front of";
    EXPECT_FALSE(histogram.findMaxima());
    EXPECT_EQ(histogram.getRangeOfPositiveBinCenters(), 0);
}

TEST(TissueEstimationHistogram, StartsBelowTheSmallestValueByTruncatingRemaindersByDesign)
{
    const struct
    {
        int smallest;
        int width;
        int start;
    } rows[] = {
        // t = smallest - width + 1, start = t - t rem width
        {100, 10, 90},      // 91, 1
        {99, 10, 90},       // 90, 0
        {109, 10, 100},     // 100, 0
        {95, 10, 80},       // 86, 6
        {98, 10, 80},       // 89, 9: nearly two widths below
        {9, 10, 0},         // 0, 0
        {0, 10, 0},         // -9, -9
        {-1, 10, -10},      // -10, 0
        {-10, 10, -10},     // -19, -9
        {-1005, 10, -1010}, // -1014, -4
        {-1000, 50, -1000}, // -1049, -49
        {-1001, 50, -1050}, // -1050, 0
        {7, 1, 7},          // 7, 0
    };
    for (const auto& row : rows) {
        const TissueEstimationHistogram histogram({row.smallest}, row.width);
        EXPECT_EQ(histogram.getLowestBinStart(), row.start)
            << row.smallest << " in bins of " << row.width;
    }
}

TEST(TissueEstimationHistogram, ReachesToTheBinOfTheLargestValue)
{
    // From 90: (129 - 90 + 10) / 10 = 4 bins, (130 - 90 + 10) / 10 = 5.
    EXPECT_EQ(TissueEstimationHistogram({100, 129}, 10).getBins().size(), 4U);
    EXPECT_EQ(TissueEstimationHistogram({100, 130}, 10).getBins().size(), 5U);
}

TEST(TissueEstimationHistogram, HasOneOrTwoBinsAndNoMaximaForEqualValues)
{
    const TissueEstimationHistogram one({99, 99, 99}, 10);
    EXPECT_EQ(one.getBins(), Bins({0.1F}));
    EXPECT_FALSE(one.findMaxima());
    EXPECT_EQ(one.getRangeOfPositiveBinCenters(), 0);
    const TissueEstimationHistogram two({100, 100, 100}, 10);
    EXPECT_EQ(two.getBins(), Bins({0.0F, 0.1F}));
    EXPECT_FALSE(two.findMaxima());
    EXPECT_EQ(two.getRangeOfPositiveBinCenters(), 0);
}

TEST(TissueEstimationHistogram, BinsAreCountsOverWidthTimesTotal)
{
    // From 90, four values in bins of 10: 2, 1 and 1 over 40.
    const TissueEstimationHistogram histogram({120, 100, 110, 105}, 10);
    EXPECT_EQ(histogram.getBins(), Bins({0.0F, 0.05F, 0.025F, 0.025F}));
}

TEST(TissueEstimationHistogram, BinsNegativeValuesFromTheTruncatedStart)
{
    // From -1010: -1005 and -1001 in bin 0, -1000 in bin 1, -1 in bin 100, 0 in bin 101.
    const TissueEstimationHistogram histogram({-1005, -1001, -1000, -1, 0}, 10);
    ASSERT_EQ(histogram.getBins().size(), 102U);
    EXPECT_EQ(histogram.getBins()[0], 0.04F);
    EXPECT_EQ(histogram.getBins()[1], 0.02F);
    EXPECT_EQ(histogram.getBins()[100], 0.02F);
    EXPECT_EQ(histogram.getBins()[101], 0.02F);
}

TEST(TissueEstimationHistogram, IndexTruncatesTowardZeroAndCenterTruncatesHalfTheWidth)
{
    const TissueEstimationHistogram histogram = Access::withBins(10, -1010, {});
    EXPECT_EQ(Access::indexOf(histogram, -1010), 0);
    EXPECT_EQ(Access::indexOf(histogram, -1001), 0);
    EXPECT_EQ(Access::indexOf(histogram, -1000), 1);
    EXPECT_EQ(Access::indexOf(histogram, -1019), 0) << "below the start, truncated toward zero";
    EXPECT_EQ(Access::centerOf(histogram, 0), -1005);
    EXPECT_EQ(Access::centerOf(histogram, 3), -975);
    EXPECT_EQ(Access::centerOf(Access::withBins(5, 100, {}), 1), 107) << "5 / 2 is 2";
}

TEST(TissueEstimationHistogram, AddsOneForEachValueWithoutNormalizing)
{
    TissueEstimationHistogram histogram = withBins(10, {0.0F, 1.0F, 0.0F});
    Access::add(histogram, {5, 15, 19, 20});
    EXPECT_EQ(histogram.getBins(), Bins({1.0F, 3.0F, 1.0F}));
}

TEST(TissueEstimationHistogram, NormalizesNothingWhoseSumIsZero)
{
    TissueEstimationHistogram histogram = withBins(10, {0.0F, 0.0F});
    Access::normalize(histogram);
    EXPECT_EQ(histogram.getBins(), Bins({0.0F, 0.0F}));
}

TEST(TissueEstimationHistogram, CopiesAndMovesLikeAValue)
{
    TissueEstimationHistogram histogram({100, 110, 120}, 10);
    const TissueEstimationHistogram copy = histogram;
    histogram.addLowBin();
    EXPECT_EQ(copy.getBins().size(), 4U);
    EXPECT_EQ(copy.getLowestBinStart(), 90);
    const TissueEstimationHistogram moved = std::move(histogram);
    EXPECT_EQ(moved.getBins().size(), 5U);
    EXPECT_EQ(moved.getLowestBinStart(), 80);
}

// addLowBin

TEST(TissueEstimationHistogram, Law3LowBinIsEmptyAndLeavesTheOthersAtTheirGreyValues)
{
    TissueEstimationHistogram histogram({100, 110, 110}, 10);
    const Bins before = histogram.getBins();
    const int center = Access::centerOf(histogram, 1);
    histogram.addLowBin();
    ASSERT_EQ(histogram.getBins().size(), before.size() + 1);
    EXPECT_EQ(histogram.getBins()[0], 0.0F);
    EXPECT_TRUE(std::equal(before.begin(), before.end(), histogram.getBins().begin() + 1));
    EXPECT_EQ(histogram.getLowestBinStart(), 80);
    EXPECT_EQ(Access::centerOf(histogram, 2), center);
}

// restrict

TEST(TissueEstimationHistogram, RestrictKeepsABinOfExactlyAThousandth)
{
    // 0x1.0624dep-10 is 0.001 in single precision, 0x1.0624dcp-10 the next float below.
    TissueEstimationHistogram histogram = withBins(1, {0x1.0624dep-10F, 0x1.0624dcp-10F, 0.5F});
    histogram.restrict();
    EXPECT_EQ(histogram.getBins(), Bins({0x1.0624dep-10F, 0.0F, 0.5F}));
}

TEST(TissueEstimationHistogram, RestrictWeighsABinByItsWidth)
{
    // 50 * 0.0000195 = 0.000975, 50 * 0.000021 = 0.00105.
    TissueEstimationHistogram histogram = withBins(50, {0.0000195F, 0.000021F});
    histogram.restrict();
    EXPECT_EQ(histogram.getBins(), Bins({0.0F, 0.000021F}));
}

TEST(TissueEstimationHistogram, RestrictRemovesBinsWithLessThanAThousandthOfTheValues)
{
    std::vector<int> values(1999, 200);
    values.push_back(100); // one in 2001
    values.push_back(300);
    TissueEstimationHistogram histogram(values, 10);
    histogram.restrict();
    EXPECT_EQ(histogram.getBins().front(), 0.0F);
    EXPECT_EQ(histogram.getBins().back(), 0.0F);
    EXPECT_EQ(histogram.getRangeOfPositiveBinCenters(), 0) << "one bin is left";
}

// smooth. 1/14, 3/14 and 6/14 are 0x1.24924ap-4, 0x1.b6db6ep-3 and 0x1.b6db6ep-2; their sums in
// single precision were worked out by another program: 4/14 is 0x1.24924ap-2, 10/14 is
// 0x1.6db6dcp-1.

TEST(TissueEstimationHistogram, SmoothSpreadsABinOverFiveByOneThreeSixThreeOne)
{
    TissueEstimationHistogram histogram = withBins(10, {0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F});
    histogram.smooth();
    EXPECT_EQ(histogram.getBins(), Bins({0.0F, 0x1.24924ap-4F, 0x1.b6db6ep-3F, 0x1.b6db6ep-2F,
                                         0x1.b6db6ep-3F, 0x1.24924ap-4F, 0.0F}));
}

TEST(TissueEstimationHistogram, SmoothTakesTheOutermostBinForMissingOnesByDesign)
{
    TissueEstimationHistogram first = withBins(10, {1.0F, 0.0F, 0.0F, 0.0F, 0.0F});
    first.smooth();
    EXPECT_EQ(first.getBins(), Bins({0x1.6db6dcp-1F, 0x1.24924ap-2F, 0x1.24924ap-4F, 0.0F, 0.0F}));
    TissueEstimationHistogram last = withBins(10, {0.0F, 0.0F, 0.0F, 0.0F, 1.0F});
    last.smooth();
    EXPECT_EQ(last.getBins(), Bins({0.0F, 0.0F, 0x1.24924ap-4F, 0x1.24924ap-2F, 0x1.6db6dcp-1F}));
}

TEST(TissueEstimationHistogram, SmoothDoesNotRestoreATotalThatChangesAtTheEndsByDesign)
{
    // 10/14 + 4/14 + 1/14.
    TissueEstimationHistogram histogram = withBins(10, {1.0F, 0.0F, 0.0F, 0.0F, 0.0F});
    histogram.smooth();
    EXPECT_NEAR(total(histogram.getBins()), 15.0F / 14.0F, 1e-6F);
}

TEST(TissueEstimationHistogram, SmoothKeepsNumberAndTotalOfBinsWhereTheOutermostAreEqual)
{
    TissueEstimationHistogram histogram =
        withBins(10, {0.25F, 0.25F, 1.0F, 0.5F, 3.0F, 0.0F, 2.0F, 0.5F, 0.5F});
    histogram.smooth();
    EXPECT_EQ(histogram.getBins().size(), 9U);
    EXPECT_NEAR(total(histogram.getBins()), 8.0F, 1e-6F);
}

TEST(TissueEstimationHistogram, SmoothKeepsASingleBinAndEvenOnes)
{
    for (const std::size_t count : {1U, 2U, 3U, 8U}) {
        TissueEstimationHistogram histogram = withBins(10, Bins(count, 2.0F));
        histogram.smooth();
        EXPECT_EQ(histogram.getBins(), Bins(count, 2.0F)) << count;
    }
}

// getRangeOfPositiveBinCenters

TEST(TissueEstimationHistogram, RangeReachesFromTheFirstToTheLastBinThatIsNotEmpty)
{
    EXPECT_EQ(withBins(50, {0.0F, 1.0F, 0.0F, 0.0F, 2.0F, 0.0F}).getRangeOfPositiveBinCenters(),
              150);
    EXPECT_EQ(withBins(50, {1.0F, 0.0F, 2.0F}).getRangeOfPositiveBinCenters(), 100);
    EXPECT_EQ(withBins(50, {0.0F, 1.0F, 0.0F}).getRangeOfPositiveBinCenters(), 0) << "a single one";
    EXPECT_EQ(withBins(50, {0.0F, 0.0F}).getRangeOfPositiveBinCenters(), 0) << "none";
}

// findMaxima

TEST(TissueEstimationHistogram, MaximaAreTheTwoHighestPeaksLowerGreyValueFirst)
{
    expectMaxima(withPeaks(10, 21, {{3, 1.0F}, {17, 5.0F}}), 35, 175);
    expectMaxima(withPeaks(10, 21, {{3, 5.0F}, {17, 1.0F}}), 35, 175);
    expectMaxima(Access::withBins(10, -1010, {0.0F, 5.0F, 0.0F, 1.0F, 0.0F}), -995, -975);
}

TEST(TissueEstimationHistogram, FewerThanThreeBinsHaveNoMaxima)
{
    EXPECT_FALSE(withBins(10, {1.0F}).findMaxima());
    EXPECT_FALSE(withBins(10, {1.0F, 2.0F}).findMaxima());
}

TEST(TissueEstimationHistogram, OneMaximumIsNotEnough)
{
    EXPECT_FALSE(withBins(10, {0.0F, 1.0F, 0.0F}).findMaxima());
}

TEST(TissueEstimationHistogram, FirstAndLastBinAreNeverMaximaByDesign)
{
    EXPECT_FALSE(withPeaks(10, 21, {{0, 9.0F}, {10, 1.0F}, {20, 9.0F}}).findMaxima());
    expectMaxima(withPeaks(10, 23, {{1, 9.0F}, {11, 1.0F}}), 15, 115);
}

TEST(TissueEstimationHistogram, ATopOfTwoEqualBinsIsNoMaximumByDesign)
{
    EXPECT_FALSE(withPeaks(10, 21, {{3, 9.0F}, {4, 9.0F}, {17, 1.0F}}).findMaxima());
}

TEST(TissueEstimationHistogram, OfEqualPeaksTheOneOfLowerGreyValueComesFirstByDesign)
{
    // 18 % of 160 grey values are 2.88 bins, hence 3: 2 is the main peak, 4 is too near, and 10
    // comes before 18.
    expectMaxima(withPeaks(10, 21, {{2, 1.0F}, {4, 1.0F}, {10, 1.0F}, {18, 1.0F}}), 25, 105);
}

TEST(TissueEstimationHistogram, ManyEqualPeaksKeepTheirOrderToo)
{
    // 2000 peaks, every other bin; R = 3998 * 10, 18 % are 719.64 bins, hence 720: from bin 1 on to
    // bin 721.
    std::vector<std::pair<std::size_t, float>> peaks;
    for (std::size_t i = 0; i < 2000; ++i)
        peaks.emplace_back(2 * i + 1, 1.0F);
    expectMaxima(withPeaks(10, 4001, peaks), 15, 7215);
}

TEST(TissueEstimationHistogram, SecondPeakIsTheHighestFarEnoughAwayNotTheSecondHighestByDesign)
{
    // R = 360: 6.48 bins, hence 7. The peaks at 16 and 24 are higher than that at 2 but too near
    // to 20.
    expectMaxima(withPeaks(10, 41, {{2, 1.0F}, {16, 8.0F}, {20, 9.0F}, {24, 7.0F}, {38, 0.5F}}), 25,
                 205);
}

TEST(TissueEstimationHistogram, PeaksNearerThanTheSeparationGiveNothingAlthoughThereAreTwo)
{
    // R = 400, taken from the bins at the ends, which are no maxima: 7.2 bins, hence 8.
    EXPECT_FALSE(withPeaks(10, 41, {{0, 0.1F}, {10, 2.0F}, {17, 1.0F}, {40, 0.1F}}).findMaxima());
    expectMaxima(withPeaks(10, 41, {{0, 0.1F}, {10, 2.0F}, {18, 1.0F}, {40, 0.1F}}), 105, 185);
}

TEST(TissueEstimationHistogram, SeparationIsRoundedToSinglePrecisionBeforeItIsRoundedUp)
{
    // 0.18F is 0.18000000715: times 100 it rounds to 18 in single precision, over 2 gives 9 bins.
    // It would be a little more than 9 in double precision, hence 10.
    expectMaxima(withPeaks(2, 51, {{0, 0.1F}, {20, 2.0F}, {29, 1.0F}, {50, 0.1F}}), 41, 59);
    EXPECT_FALSE(withPeaks(2, 51, {{0, 0.1F}, {20, 2.0F}, {28, 1.0F}, {50, 0.1F}}).findMaxima());
}

TEST(TissueEstimationHistogram, SeparationFollowsThePresentBins)
{
    // The bin at 40 is below a thousandth: with it R = 400 and 8 bins, without it R = 180 and 4
    // bins.
    TissueEstimationHistogram histogram =
        withPeaks(10, 41, {{0, 0.02F}, {10, 0.05F}, {15, 0.03F}, {18, 0.01F}, {40, 0.00009F}});
    expectMaxima(histogram, 105, 185);
    histogram.restrict();
    expectMaxima(histogram, 105, 155);
}

// Laws over random values

TEST(TissueEstimationHistogram, Law1SumsToOneOverTheGreyValues)
{
    std::mt19937 engine(4);
    for (const int width : {1, 7, 10, 50}) {
        std::vector<int> values(5000);
        for (int& value : values)
            value = static_cast<int>(engine() % 6000U) - 2000;
        const TissueEstimationHistogram histogram(values, width);
        EXPECT_NEAR(total(histogram.getBins()) * static_cast<float>(width), 1.0F, 1e-4F) << width;
    }
}

TEST(TissueEstimationHistogram, Law2MaximaMoveWithTheValues)
{
    std::mt19937 engine(5);
    for (int run = 0; run < 50; ++run) {
        std::vector<int> values(2000);
        for (int& value : values) {
            const int peak = engine() % 3U == 0 ? 1500 : 300;
            value = peak + static_cast<int>(engine() % 60U + engine() % 60U);
        }
        std::vector<int> shifted = values;
        for (int& value : shifted)
            value += 7 * 50;
        TissueEstimationHistogram before(values, 50);
        TissueEstimationHistogram after(shifted, 50);
        before.smooth();
        after.smooth();
        ASSERT_TRUE(before.findMaxima()) << "run " << run;
        expectMaxima(after, before.findMaxima().value().first + 350,
                     before.findMaxima().value().second + 350);
    }
}

// Bad input

TEST(TissueEstimationHistogram, HasNoBinsWithoutAPositiveWidth)
{
    for (const int width : {0, -1, -50, kSmallest}) {
        TissueEstimationHistogram histogram({1, 2, 3}, width);
        histogram.addLowBin();
        histogram.smooth();
        histogram.restrict();
        EXPECT_TRUE(histogram.getBins().empty()) << width;
        EXPECT_FALSE(histogram.findMaxima()) << width;
        EXPECT_EQ(histogram.getRangeOfPositiveBinCenters(), 0) << width;
    }
}

TEST(TissueEstimationHistogram, HasAtMostTwoToTheTwentiethBins)
{
    EXPECT_EQ(TissueEstimationHistogram({0, 1048575}, 1).getBins().size(), 1048576U);
    EXPECT_TRUE(TissueEstimationHistogram({0, 1048576}, 1).getBins().empty());
    EXPECT_TRUE(TissueEstimationHistogram({0, kLargest}, 50).getBins().empty());
    EXPECT_TRUE(TissueEstimationHistogram({kSmallest, kLargest}, 1000).getBins().empty());
}

TEST(TissueEstimationHistogram, HasNoBinsIfItsStartIsBelowTheRangeOfInt)
{
    EXPECT_TRUE(TissueEstimationHistogram({kSmallest}, 10).getBins().empty());
    // -2147483641 - 9 = -2147483650, a multiple of 10, is below; -2147483639 - 9 is cut to
    // -2147483640.
    EXPECT_TRUE(TissueEstimationHistogram({-2147483641}, 10).getBins().empty());
    EXPECT_EQ(TissueEstimationHistogram({-2147483639}, 10).getLowestBinStart(), -2147483640);
}

TEST(TissueEstimationHistogram, GetsNoLowBinBelowTheRangeOfInt)
{
    TissueEstimationHistogram histogram({-2147483639}, 10);
    histogram.addLowBin();
    EXPECT_EQ(histogram.getBins().size(), 1U);
    EXPECT_EQ(histogram.getLowestBinStart(), -2147483640);
}

TEST(TissueEstimationHistogram, LimitsCentersAndDistancesToTheRangeOfInt)
{
    TissueEstimationHistogram highest({kLargest}, 10);
    EXPECT_EQ(Access::centerOf(highest, static_cast<int>(highest.getBins().size()) - 1),
              2147483645);
    EXPECT_EQ(Access::centerOf(highest, kLargest), kLargest);
    EXPECT_EQ(Access::indexOf(Access::withBins(1, -10, {}), kLargest), kLargest);
    // Four bins of a thousand million: from -2e9 to 2e9.
    const TissueEstimationHistogram wide({-1000000000, 2000000000}, 1000000000);
    EXPECT_EQ(wide.getRangeOfPositiveBinCenters(), kLargest);
}

TEST(TissueEstimationHistogram, AcceptsTheWidestBins)
{
    EXPECT_EQ(TissueEstimationHistogram({0}, kLargest).getBins().size(), 1U);
    EXPECT_EQ(TissueEstimationHistogram({kLargest}, kLargest).getBins().size(), 2U);
}

} // namespace
