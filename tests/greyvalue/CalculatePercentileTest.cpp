// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/CalculatePercentile.h>

// Covered: ranks and interpolation, the state between calls, refusals, samples that are not finite,
// many samples.

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

static_assert(std::has_virtual_destructor_v<CalculatePercentile>);

float percentileOf(std::vector<float> samples, float percent)
{
    CalculatePercentile calculator;
    calculator.setData(samples.data(), static_cast<int>(samples.size()));
    calculator.setPercentile(percent);
    EXPECT_TRUE(calculator.execute()) << percent;
    return calculator.getResult();
}

// Hazen's definition in double precision: linear between the points
// (100 * (i - 0.5) / n, sample i).
double hazen(std::vector<float> samples, double percent)
{
    std::sort(samples.begin(), samples.end());
    const double place =
        percent / 100.0 * static_cast<double>(samples.size()) - 0.5; // index from 0
    if (place <= 0.0)
        return static_cast<double>(samples.front());
    const auto below = static_cast<std::size_t>(place);
    if (below + 1 >= samples.size())
        return static_cast<double>(samples.back());
    const auto lower = static_cast<double>(samples[below]);
    const auto upper = static_cast<double>(samples[below + 1]);
    return lower + (place - static_cast<double>(below)) * (upper - lower);
}

// Ranks

TEST(CalculatePercentile, InterpolatesBetweenTheRanksOfFourSamples)
{
    // Ranks 12.5, 37.5, 62.5, 87.5.
    EXPECT_EQ(percentileOf({1.0F, 2.0F, 3.0F, 4.0F}, 50.0F), 2.5F);
    EXPECT_EQ(percentileOf({1.0F, 2.0F, 3.0F, 4.0F}, 25.0F), 1.5F);
    EXPECT_EQ(percentileOf({1.0F, 2.0F, 3.0F, 4.0F}, 37.5F), 2.0F);
}

TEST(CalculatePercentile, GivesASampleAtItsRank)
{
    // Ranks 10, 30, 50, 70, 90.
    EXPECT_EQ(percentileOf({10.0F, 20.0F, 30.0F, 40.0F, 50.0F}, 50.0F), 30.0F);
    EXPECT_EQ(percentileOf({10.0F, 20.0F, 30.0F, 40.0F, 50.0F}, 60.0F), 35.0F);
}

TEST(CalculatePercentile, IsTheSampleIfThereIsOnlyOne)
{
    for (const float percent : {0.0F, 0.1F, 49.9F, 50.0F, 50.1F, 99.0F, 100.0F})
        EXPECT_EQ(percentileOf({5.0F}, percent), 5.0F) << percent;
}

TEST(CalculatePercentile, IsTheExtremeSampleBeyondTheOutermostRanks)
{
    const std::vector<float> samples{4.0F, 1.0F, 3.0F, 2.0F};
    EXPECT_EQ(percentileOf(samples, 0.0F), 1.0F);
    EXPECT_EQ(percentileOf(samples, 12.4F), 1.0F);
    EXPECT_EQ(percentileOf(samples, 12.5F), 1.0F);
    EXPECT_EQ(percentileOf(samples, 87.5F), 4.0F);
    EXPECT_EQ(percentileOf(samples, 87.6F), 4.0F);
    EXPECT_EQ(percentileOf(samples, 100.0F), 4.0F);
}

TEST(CalculatePercentile, SortsTheSamples)
{
    EXPECT_EQ(percentileOf({40.0F, 10.0F, 50.0F, 30.0F, 20.0F}, 50.0F), 30.0F);
    EXPECT_EQ(percentileOf({-3.0F, 7.0F, -8.0F, 0.5F}, 50.0F), -1.25F);
}

// Literals from an emulation of the single-precision steps by another program.
TEST(CalculatePercentile, RoundsEveryStepToSinglePrecision)
{
    EXPECT_EQ(percentileOf({0.1F, 0.7F, 1.3F}, 40.0F), 0x1.0a3d7p-1F);
    EXPECT_EQ(percentileOf({0.1F, 0.2F, 0.3F, 0.4F, 0.5F, 0.6F, 0.7F}, 33.3F), 0x1.21e4f8p-2F);
    EXPECT_EQ(percentileOf({-3.7F, 8.9F, 2.2F, 1e6F, -1e-3F, 41.0F}, 77.7F), 0x1.3c791ap+17F);
}

TEST(CalculatePercentile, CountsSamplesTimesPercentileInSinglePrecision)
{
    // The percentile is the fifth of seven ranks, 64.2857142..., in single precision and a little
    // below it. Times 7 it rounds to 450: the result is the fifth sample itself. In double
    // precision the product is below 450, and from the fourth sample on, 1e8 + 1 being 1e8, one
    // would arrive at 0.
    EXPECT_EQ(percentileOf({-4e8F, -3e8F, -2e8F, -1e8F, 1.0F, 2.0F, 3.0F}, 0x1.012492p+6F), 1.0F);
}

TEST(CalculatePercentile, RoundsTheRankToSinglePrecisionBeforeItIsTruncated)
{
    // Nine million times 0x1.7c0046p+6 is 855002432 in single precision; over 100, plus 0.5, it is
    // 8550024.82 in double precision and 8550025 as a float. Truncated without that, or worked out
    // in floats, where 8550024.5 is a tie, the rank would be 8550024, and the result 500, midway to
    // the first of the larger samples.
    constexpr qsizetype smaller = 8550024;
    QList<float> samples(9'000'000, 1000.0F);
    std::fill_n(samples.begin(), smaller, 0.0F);
    CalculatePercentile calculator;
    calculator.setData(&samples);
    calculator.setPercentile(0x1.7c0046p+6F);
    ASSERT_TRUE(calculator.execute());
    EXPECT_EQ(calculator.getResult(), 1000.0F);
}

TEST(CalculatePercentile, AgreesWithHazenOnRandomLists)
{
    std::mt19937 engine(6);
    const auto random = [&engine] { return static_cast<float>(engine() >> 8U) * 0x1p-24F; };
    for (int run = 0; run < 300; ++run) {
        std::vector<float> samples(1 + engine() % (run % 10 == 0 ? 5000U : 40U));
        for (float& sample : samples)
            sample = random() * 4000.0F - 1000.0F;
        const float percent = random() * 100.0F;
        // The slope between two samples magnifies the rounding of the ranks, 2^-17 at most each.
        const double slope = 5000.0 * static_cast<double>(samples.size()) / 100.0;
        EXPECT_NEAR(static_cast<double>(percentileOf(samples, percent)),
                    hazen(samples, static_cast<double>(percent)), slope * 0x1p-16 + 1e-3)
            << "run " << run;
    }
}

TEST(CalculatePercentile, Law1DoesNotFallWhileThePercentileRises)
{
    std::mt19937 engine(7);
    std::vector<float> samples(37);
    for (float& sample : samples)
        sample = static_cast<float>(engine() % 1000U);
    float last = -1.0F;
    for (int step = 0; step <= 1000; ++step) {
        const float result = percentileOf(samples, static_cast<float>(step) * 0.1F);
        EXPECT_GE(result, last - 0.01F) << step;
        last = result;
    }
}

TEST(CalculatePercentile, Law2DoesNotDependOnTheOrderOfTheSamples)
{
    // On either side of the number from which on digits are sorted.
    std::mt19937 engine(8);
    for (const std::size_t count : {1999U, 2000U, 2001U, 70000U}) {
        std::vector<float> samples(count);
        for (std::size_t i = 0; i < count; ++i)
            samples[i] = (static_cast<float>(i) - 1000.0F) * 0.25F;
        std::vector<float> shuffled = samples;
        std::shuffle(shuffled.begin(), shuffled.end(), engine);
        for (const float percent : {0.0F, 3.0F, 50.0F, 97.7F, 100.0F})
            EXPECT_EQ(percentileOf(shuffled, percent), percentileOf(samples, percent)) << count;
        EXPECT_EQ(percentileOf(shuffled, 0.0F), -250.0F);
    }
}

TEST(CalculatePercentile, SortsManySamplesOfEveryMagnitude)
{
    std::mt19937 engine(9);
    std::vector<float> samples(5000);
    for (float& sample : samples) {
        do
            sample = std::bit_cast<float>(static_cast<std::uint32_t>(engine()));
        while (std::isnan(sample));
    }
    std::vector<float> sorted = samples;
    std::sort(sorted.begin(), sorted.end());
    // Sample i of 5000 has the rank (i - 0.5) / 50.
    for (const int i : {1, 2, 1250, 2500, 2501, 4999, 5000}) {
        const float percent = (static_cast<float>(i) - 0.5F) / 50.0F;
        EXPECT_FLOAT_EQ(percentileOf(samples, percent), sorted[i - 1]) << i;
    }
}

// State

TEST(CalculatePercentile, StartsWithTheMedianAndTheResultZero)
{
    CalculatePercentile calculator;
    EXPECT_EQ(calculator.getResult(), 0.0F);
    QList<float> samples{1.0F, 2.0F, 9.0F};
    calculator.setData(&samples);
    ASSERT_TRUE(calculator.execute());
    EXPECT_EQ(calculator.getResult(), 2.0F);
}

TEST(CalculatePercentile, DoesNotChangeTheListsOfTheCaller)
{
    QList<float> list{3.0F, 1.0F, 2.0F};
    float values[] = {3.0F, 1.0F, 2.0F};
    CalculatePercentile calculator;
    calculator.setData(&list);
    ASSERT_TRUE(calculator.execute());
    calculator.setData(values, 3);
    ASSERT_TRUE(calculator.execute());
    EXPECT_EQ(list, QList<float>({3.0F, 1.0F, 2.0F}));
    EXPECT_TRUE(values[0] == 3.0F && values[1] == 1.0F && values[2] == 2.0F);
}

TEST(CalculatePercentile, KeepsItsOwnCopyOfTheData)
{
    QList<float> list{1.0F, 2.0F, 3.0F};
    CalculatePercentile calculator;
    calculator.setData(&list);
    list.fill(100.0F);
    ASSERT_TRUE(calculator.execute());
    EXPECT_EQ(calculator.getResult(), 2.0F);
}

TEST(CalculatePercentile, KeepsDataAndPercentileForFurtherCalls)
{
    float values[] = {5.0F, 4.0F, 3.0F, 2.0F, 1.0F};
    CalculatePercentile calculator;
    calculator.setData(values, 5);
    calculator.setPercentile(30.0F);
    ASSERT_TRUE(calculator.execute());
    EXPECT_EQ(calculator.getResult(), 2.0F);
    ASSERT_TRUE(calculator.execute());
    EXPECT_EQ(calculator.getResult(), 2.0F);
    calculator.setPercentile(90.0F);
    EXPECT_EQ(calculator.getResult(), 2.0F) << "until the next execute()";
    ASSERT_TRUE(calculator.execute());
    EXPECT_EQ(calculator.getResult(), 5.0F);
}

TEST(CalculatePercentile, ReplacesAllDataAndSortsThemAgain)
{
    float first[] = {5.0F, 4.0F, 3.0F};
    float second[] = {30.0F, 10.0F, 20.0F};
    CalculatePercentile calculator;
    calculator.setData(first, 3);
    ASSERT_TRUE(calculator.execute());
    calculator.setData(second, 3);
    ASSERT_TRUE(calculator.execute());
    EXPECT_EQ(calculator.getResult(), 20.0F);
    QList<float> third{300.0F, 100.0F, 200.0F};
    calculator.setData(&third);
    ASSERT_TRUE(calculator.execute());
    EXPECT_EQ(calculator.getResult(), 200.0F);
}

TEST(CalculatePercentile, CopiesHaveDataPercentileAndResultOfTheirOwn)
{
    float values[] = {3.0F, 1.0F, 2.0F};
    CalculatePercentile original;
    original.setData(values, 3);
    original.setPercentile(100.0F);
    ASSERT_TRUE(original.execute());
    CalculatePercentile copy = original;
    EXPECT_EQ(copy.getResult(), 3.0F);
    copy.setPercentile(0.0F);
    ASSERT_TRUE(copy.execute());
    EXPECT_EQ(copy.getResult(), 1.0F);
    EXPECT_EQ(original.getResult(), 3.0F);

    CalculatePercentile assigned;
    assigned = copy;
    EXPECT_EQ(assigned.getResult(), 1.0F);
    float others[] = {8.0F};
    copy.setData(others, 1);
    ASSERT_TRUE(assigned.execute());
    EXPECT_EQ(assigned.getResult(), 1.0F);
    const CalculatePercentile& itself = assigned;
    assigned = itself;
    ASSERT_TRUE(assigned.execute());
    EXPECT_EQ(assigned.getResult(), 1.0F);
}

TEST(CalculatePercentile, CopiesBeforeAnyDataHaveNoneEither)
{
    const CalculatePercentile empty;
    CalculatePercentile copy = empty;
    EXPECT_FALSE(copy.execute());
    float values[] = {3.0F};
    copy.setData(values, 1);
    copy = empty;
    EXPECT_FALSE(copy.execute());
}

// Refusals

TEST(CalculatePercentile, RefusesPercentilesOutsideZeroToAHundredAndKeepsItsResult)
{
    float values[] = {1.0F, 2.0F, 3.0F};
    CalculatePercentile calculator;
    calculator.setData(values, 3);
    ASSERT_TRUE(calculator.execute());
    for (const float percent :
         {100.5F, 0x1.900002p+6F, -0.5F, -0x1p-149F, kInfinity, -kInfinity, kNan}) {
        calculator.setPercentile(percent);
        EXPECT_FALSE(calculator.execute()) << percent;
        EXPECT_EQ(calculator.getResult(), 2.0F) << percent;
    }
    calculator.setPercentile(-0.0F);
    EXPECT_TRUE(calculator.execute());
    EXPECT_EQ(calculator.getResult(), 1.0F);
}

TEST(CalculatePercentile, WithoutDataReturnsFalseAndKeepsItsResult)
{
    CalculatePercentile calculator;
    EXPECT_FALSE(calculator.execute());
    EXPECT_EQ(calculator.getResult(), 0.0F);
    float values[] = {7.0F};
    calculator.setData(values, 1);
    ASSERT_TRUE(calculator.execute());
    for (const int count : {0, -1, std::numeric_limits<int>::min()}) {
        calculator.setData(values, count);
        EXPECT_FALSE(calculator.execute()) << count;
        EXPECT_EQ(calculator.getResult(), 7.0F) << count;
    }
    calculator.setData(nullptr, 5);
    EXPECT_FALSE(calculator.execute());
    calculator.setData(static_cast<QList<float>*>(nullptr));
    EXPECT_FALSE(calculator.execute());
    QList<float> empty;
    calculator.setData(&empty);
    EXPECT_FALSE(calculator.execute());
    EXPECT_EQ(calculator.getResult(), 7.0F);
}

// Samples that are not finite, few and many

TEST(CalculatePercentile, CountsNaNAsLargerThanAllNumbers)
{
    std::vector<float> samples{kNan, 2.0F, -kNan, 3.0F, 1.0F};
    EXPECT_EQ(percentileOf(samples, 10.0F), 1.0F);
    EXPECT_EQ(percentileOf(samples, 30.0F), 2.0F);
    EXPECT_TRUE(std::isnan(percentileOf(samples, 100.0F)));
    samples.resize(3000, 5.0F);
    EXPECT_EQ(percentileOf(samples, 0.0F), 1.0F);
    EXPECT_EQ(percentileOf(samples, 50.0F), 5.0F);
    EXPECT_TRUE(std::isnan(percentileOf(samples, 100.0F)));
}

TEST(CalculatePercentile, CountsMinusZeroAsSmallerThanZero)
{
    for (const std::size_t count : {2U, 3000U}) {
        std::vector<float> samples(count, 0.0F);
        samples.back() = -0.0F;
        EXPECT_TRUE(std::signbit(percentileOf(samples, 0.0F))) << count;
        EXPECT_FALSE(std::signbit(percentileOf(samples, 100.0F))) << count;
    }
}

TEST(CalculatePercentile, GivesTheLowerSampleWhereRanksCoincideInSinglePrecision)
{
    // With 30 million samples ranks are 3.3e-6 apart, half of what floats near 99 are.
    QList<float> samples(30'000'000, 4.0F);
    CalculatePercentile calculator;
    calculator.setData(&samples);
    for (const float percent : {99.0F, 99.1F, 99.2F, 99.3F}) {
        calculator.setPercentile(percent);
        ASSERT_TRUE(calculator.execute());
        EXPECT_EQ(calculator.getResult(), 4.0F) << percent;
    }
}

} // namespace
