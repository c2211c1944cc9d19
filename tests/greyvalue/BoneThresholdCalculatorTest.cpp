// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/BoneThresholdCalculator.h>

// Covered: how drags and sliders change level and window, thresholds, those for pulp and
// restoration material, pan and stretch.

#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

#include <tests/support/GreyValueBuilders.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <type_traits>

namespace {

using Calculator = BoneThresholdCalculator;

constexpr int kSmallest = std::numeric_limits<int>::min();
constexpr int kLargest = std::numeric_limits<int>::max();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

static_assert(std::is_constructible_v<Calculator, const VolumeObject&>);
// The calculator keeps a reference to the volume.
static_assert(!std::is_constructible_v<Calculator, VolumeObject>);
static_assert(!std::is_constructible_v<Calculator, const VolumeObject>);
static_assert(std::has_virtual_destructor_v<Calculator>);

// Grey values from -1000 to 1000: one of them is 0.0005 of the span.
class BoneThresholds : public testing::Test
{
protected:
    BoneThresholds()
    {
        showGreyValues(-1000, 1000);
        volume.setMIPLevelWindow(300.0F, 1500.0F);
        volume.setThreshold(threshold.getUUID(), 400);
        pulp.setNormalizedPulpThreshold(0.25F);
        pulp.setNormalizedRestorationMaterialThreshold(0.75F);
    }

    void showGreyValues(int smallest, int largest)
    {
        volume.setImage(test::makeImage<std::int16_t>(
            {2, 1, 1}, {1.0F, 1.0F, 1.0F}, image::Int16,
            [=](int x, int, int) { return x == 0 ? smallest : largest; }));
    }

    void expectLevelWindow(const QPointF& from, const QPointF& to, float level, float window)
    {
        const Calculator::LevelWindow result = calculator.calculateMIPLevelWindowFunction(from, to);
        EXPECT_EQ(result.level, level);
        EXPECT_EQ(result.window, window);
    }

    void expectPulp(const Calculator::Pulp& result, float pulpThreshold, float restorationThreshold)
    {
        EXPECT_EQ(result.pulpThreshold, pulpThreshold);
        EXPECT_EQ(result.restorationMaterialThreshold, restorationThreshold);
    }

    VolumeObject volume;
    colormap::ThresholdFunction threshold;
    colormap::PulpFunction pulp;
    Calculator calculator{volume};
};

using BoneThresholdCalculatorTest = BoneThresholds;

// Level and window

TEST_F(BoneThresholdCalculatorTest, LevelRisesByUpwardAndWindowWidensByRightwardPixels)
{
    expectLevelWindow({100.0, 100.0}, {130.0, 90.0}, 310.0F, 1530.0F);
    expectLevelWindow({100.0, 100.0}, {70.0, 110.0}, 290.0F, 1470.0F);
}

TEST_F(BoneThresholdCalculatorTest, PixelsAreTruncatedTowardZero)
{
    expectLevelWindow({0.0, 0.0}, {0.9, 0.9}, 300.0F, 1500.0F);
    expectLevelWindow({0.0, 0.0}, {-0.9, -0.9}, 300.0F, 1500.0F);
    expectLevelWindow({0.5, 0.5}, {3.4, -2.4}, 302.0F, 1502.0F); // 2.9 and 2.9
    expectLevelWindow({3.4, -2.4}, {0.5, 0.5}, 298.0F, 1498.0F);
}

TEST_F(BoneThresholdCalculatorTest, LevelRisesByTenTimesTheSlider)
{
    const Calculator::LevelWindow result = calculator.calculateMIPLevelWindowFunction(-7);
    EXPECT_EQ(result.level, 230.0F);
    EXPECT_EQ(result.window, 1500.0F);
}

TEST_F(BoneThresholdCalculatorTest, LevelIsSummedInDoublePrecisionForTheSlider)
{
    // 10 * 13421773 = 134217730 is no float, nearest
    // 134217728, floats being 16 apart. With 7 it is 134217737, nearest 134217744; summed as
    // floats, 134217728.
    volume.setMIPLevelWindow(7.0F, 0.0F);
    EXPECT_EQ(calculator.calculateMIPLevelWindowFunction(13421773).level, 134217744.0F);
    EXPECT_EQ(calculator.calculateMIPLevelWindowFunction(kLargest).level, 21474836480.0F);
}

TEST_F(BoneThresholdCalculatorTest, LevelAndWindowAreNotBounded)
{
    expectLevelWindow({0.0, 0.0}, {-2000.0, 5000.0}, -4700.0F, -500.0F);
}

// Threshold

TEST_F(BoneThresholdCalculatorTest, ThresholdFallsToTheRightAndRisesUpwardByDesign)
{
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {100.0, 100.0}, {130.0, 90.0}), 370);
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {100.0, 100.0}, {70.0, 90.0}), 430);
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {0.0, 0.0}, {3.0, -20.0}), 420);
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {0.0, 0.0}, {3.0, 20.0}), 380);
}

TEST_F(BoneThresholdCalculatorTest, ThresholdTakesADiagonalDragForVerticalByDesign)
{
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {0.0, 0.0}, {5.0, -5.0}), 405);
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {0.0, 0.0}, {5.0, 5.0}), 395);
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {0.0, 0.0}, {5.9, -5.1}), 405)
        << "compared after truncation";
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {0.0, 0.0}, {6.0, -5.1}), 394);
}

TEST_F(BoneThresholdCalculatorTest, ThresholdIsThatOfTheFunction)
{
    const colormap::ThresholdFunction other;
    EXPECT_EQ(calculator.calculateThresholdFunction(other, {0.0, 0.0}, {0.0, -5.0}), 5);
}

TEST_F(BoneThresholdCalculatorTest, SliderIsTheThresholdItself)
{
    EXPECT_EQ(calculator.calculateThresholdFunction(1234), 1234);
    EXPECT_EQ(calculator.calculateThresholdFunction(kSmallest), kSmallest);
}

// Transfer

TEST_F(BoneThresholdCalculatorTest, TransferStretchesToTheRightAndPansUpwardWithoutHalving)
{
    const Calculator::Transfer result =
        calculator.calculateTransferFunction({100.0, 100.0}, {130.0, 90.0});
    EXPECT_EQ(result.stretch, 30.0F);
    EXPECT_EQ(result.pan, 10.0F);
}

TEST_F(BoneThresholdCalculatorTest, TransferPansByTenTimesTheSliderAndDoesNotStretch)
{
    const Calculator::Transfer result = calculator.calculateTransferFunction(3);
    EXPECT_EQ(result.stretch, 0.0F);
    EXPECT_EQ(result.pan, 30.0F);
    EXPECT_EQ(calculator.calculateTransferFunction(kLargest).pan, 21474836480.0F);
}

// Pulp: 30 of 2000 grey values are 0.015. Expected values are of single precision: 0.25 * 2000 -
// 1000 = -500, and -470 + 1000 = 530; 530 / 2000 rounds to 0.265F.

TEST_F(BoneThresholdCalculatorTest, PulpThresholdMovesByAsManyGreyValuesAsPixelsToTheRight)
{
    expectPulp(calculator.calculatePulpFunction(pulp, {100.0, 100.0}, {130.0, 90.0}), 0.265F,
               0.75F);
    expectPulp(calculator.calculatePulpFunction(pulp, {100.0, 100.0}, {70.0, 90.0}), 0.235F, 0.75F);
}

TEST_F(BoneThresholdCalculatorTest, RestorationThresholdMovesByAsManyGreyValuesAsPixelsUpward)
{
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {10.0, -30.0}), 0.25F, 0.765F);
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {10.0, 30.0}), 0.25F, 0.735F);
}

TEST_F(BoneThresholdCalculatorTest, RestorationThresholdMovesOnADiagonalDragByDesign)
{
    // 0.75 * 2000 - 1000 + 5 + 1000 = 1505.
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {5.0, -5.0}), 0.25F, 0.7525F);
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {0.9, 0.9}), 0.25F, 0.75F);
}

TEST_F(BoneThresholdCalculatorTest, PulpAndRestorationThresholdsAreLimitedToZeroAndOne)
{
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {501.0, 0.0}), 0.5005F, 0.75F);
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {5000.0, 0.0}), 1.0F, 0.75F);
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {-501.0, 0.0}), 0.0F, 0.75F);
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {0.0, -501.0}), 0.25F, 1.0F);
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {0.0, 5000.0}), 0.25F, 0.0F);
}

TEST_F(BoneThresholdCalculatorTest, OnlyTheThresholdThatMovesIsLimited)
{
    pulp.setNormalizedPulpThreshold(-3.0F);
    pulp.setNormalizedRestorationMaterialThreshold(7.0F);
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {0.0, 0.0}), -3.0F, 1.0F);
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {1.0, 0.0}), 0.0F, 7.0F);
    expectPulp(calculator.calculatePulpFunction(pulp, 0), 0.5F, 7.0F);
}

TEST_F(BoneThresholdCalculatorTest, SliderIsTheGreyValueOfThePulpThreshold)
{
    expectPulp(calculator.calculatePulpFunction(pulp, -1000), 0.0F, 0.75F);
    expectPulp(calculator.calculatePulpFunction(pulp, 500), 0.75F, 0.75F);
    expectPulp(calculator.calculatePulpFunction(pulp, 2000), 1.0F, 0.75F);
    expectPulp(calculator.calculatePulpFunction(pulp, kSmallest), 0.0F, 0.75F);
}

TEST_F(BoneThresholdCalculatorTest, ThresholdsAreNormalizedStepByStepInSinglePrecision)
{
    // The span is 3: 3 * 0.1F = 0.3F (0x1.333334p-2); plus 7 is 7.3 (0x1.d33334p+2), plus 1 is 8.3
    // (0x1.09999ap+3), minus 7 is 1.3000002 (0x1.4cccdp+0), a third of it 0.43333340
    // (0x1.bbbbc0p-2).
    showGreyValues(7, 10);
    pulp.setNormalizedPulpThreshold(0.1F);
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {1.0, 0.0}), 0x1.bbbbcp-2F,
               0.75F);
}

// Bad input

TEST_F(BoneThresholdCalculatorTest, InAnImageOfOneGreyValueTheThresholdThatMovesIsZero)
{
    showGreyValues(12, 12);
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {5.0, 0.0}), 0.0F, 0.75F);
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {0.0, 0.0}), 0.25F, 0.0F);
    expectPulp(calculator.calculatePulpFunction(pulp, 12), 0.0F, 0.75F);
    expectPulp(calculator.calculatePulpFunction(pulp, 99), 0.0F, 0.75F);
}

TEST_F(BoneThresholdCalculatorTest, WithoutVoxelsTheThresholdThatMovesIsZero)
{
    volume.setImage(nullptr);
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {5.0, 0.0}), 0.0F, 0.75F);
    expectPulp(calculator.calculatePulpFunction(pulp, 99), 0.0F, 0.75F);
}

TEST_F(BoneThresholdCalculatorTest, AThresholdThatIsNotANumberBecomesZero)
{
    pulp.setNormalizedPulpThreshold(std::numeric_limits<float>::quiet_NaN());
    expectPulp(calculator.calculatePulpFunction(pulp, {0.0, 0.0}, {5.0, 0.0}), 0.0F, 0.75F);
}

TEST_F(BoneThresholdCalculatorTest, CoordinatesThatAreNotANumberDoNotMove)
{
    expectLevelWindow({kNan, kNan}, {5.0, 5.0}, 300.0F, 1500.0F);
    expectLevelWindow({kInfinity, kInfinity}, {kInfinity, kInfinity}, 300.0F, 1500.0F);
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {kNan, 0.0}, {0.0, -5.0}), 405);
}

TEST_F(BoneThresholdCalculatorTest, MovementsAndThresholdsAreLimitedToTheRangeOfInt)
{
    // 2^31 + 300 and 2^31 + 1500, floats being 256 apart there.
    expectLevelWindow({0.0, 0.0}, {1e30, -kInfinity}, 2147483904.0F, 2147485184.0F);
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {0.0, 0.0}, {0.0, -1e30}), kLargest);
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {0.0, 0.0}, {1e30, 0.0}),
              400 - kLargest);
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {0.0, 0.0}, {-1e30, 0.0}), kLargest);
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {0.0, 0.0}, {-1e30, 1e30}),
              400 + kSmallest)
        << "both limited to the same: vertical";
    volume.setThreshold(threshold.getUUID(), kSmallest);
    EXPECT_EQ(calculator.calculateThresholdFunction(threshold, {0.0, 0.0}, {0.0, 5.0}), kSmallest);
}

} // namespace
