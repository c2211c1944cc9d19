// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/TissueEstimator.h>

// Covered: the regions that an estimate is made from, when it is kept, cleared and replaced; level
// and window.

#include <CoreAlgorithms/model/dataobjects/CTData.h>

#include <tests/support/GreyValueAccess.h>
#include <tests/support/GreyValueBuilders.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <random>
#include <type_traits>

namespace {

using Levels = std::vector<int>;
using Teeth = std::vector<std::pair<ToothChart::Tooth, QVector3D>>;
using Range = math::Range<float>;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

static_assert(std::is_copy_constructible_v<TissueEstimator>);
static_assert(std::has_virtual_destructor_v<TissueEstimator>);

static_assert(std::is_constructible_v<TissueEstimator, const CTData&, Teeth, QMatrix4x4>);
// The estimator keeps a pointer to the scan.
static_assert(!std::is_constructible_v<TissueEstimator, CTData, Teeth, QMatrix4x4>);
static_assert(!std::is_constructible_v<TissueEstimator, const CTData, Teeth, QMatrix4x4>);

// Counts the calls that only the boxes of the teeth need.
class Scan : public CTData
{
public:
    QMatrix4x4 getTotalResampleNHPTransformation() const override
    {
        ++teethQueries;
        return CTData::getTotalResampleNHPTransformation();
    }
    mutable int teethQueries = 0;
};

struct GreyValues
{
    int air = -1000;     // first region, rows y = 15 to 20
    int skin = 40;       // first region, rows 21 to 24; 200 more in row 25
    int softTissue = 40; // second region, rows 28 to 30; 120 less in row 27
    int bone = 1800;     // second region, rows 31 and 32; 300 more in row 33
    int gum = 40;        // at the tooth, columns x = 14 and 15; 120 less in column 13
    int root = 1300;     // at the tooth, column 16; 300 more in column 17
};

// 60 mm along each axis, 1 mm voxels. The outermost values of each region keep the peaks from its
// first and last bin.
std::shared_ptr<VexelImage3D> paint(const GreyValues& grey)
{
    return test::makeImage<std::int16_t>(
        {60, 60, 60}, {1.0F, 1.0F, 1.0F}, image::Int16, [&](int x, int y, int) {
            if (y >= 45)
                return x <= 13   ? grey.gum - 120
                       : x <= 15 ? grey.gum
                       : x == 16 ? grey.root
                                 : grey.root + 300;
            if (y >= 27)
                return y == 27   ? grey.softTissue - 120
                       : y <= 30 ? grey.softTissue
                       : y <= 32 ? grey.bone
                                 : grey.bone + 300;
            return y <= 20 ? grey.air : y <= 24 ? grey.skin : grey.skin + 200;
        });
}

// Boxes of the first region around type 26 reach 5 mm to either side of y - 10, those of the second
// 3 mm of y.
void addLandmarks(CTData& ct, int count)
{
    for (int i = 0; i < count; ++i)
        ct.addLandmarkAnnotation(
            test::makeLandmark(26, {15.0F + 10.0F * static_cast<float>(i), 30.0F, 20.0F}));
}

// The box of the tooth: x from 13 to 17, y from 48 to 52, z from 9 to 17.
Teeth oneTooth()
{
    return {{ToothChart::Tooth(8), {15.0F, 50.0F, 5.0F}}};
}

// Bins of 50. First region, from -1000: peaks -975 and 25. Second, from -100: 25 and 1825. Teeth,
// from -100: 25 and 1325. The levels are those of TissueLevelsTest.
const Levels kFromLandmarks{-975, -494, -62, 25, 495, 547, 1007, 1314, 1518, 1825, 2848};
const Levels kFromTeeth{-1048, -532, -68, 25, 500, 551, 1015, 1325, 1531, 1841, 2873};

Levels levelsOf(TissueEstimator& estimator)
{
    const auto tissues = estimator.getEstimatedTissues();
    return tissues ? tissues.value().toVector() : Levels();
}

// Constants

TEST(TissueEstimator, HasTheLevelsAndTheWindowOfAMedicalCt)
{
    EXPECT_EQ(TissueEstimator::DEFAULT_MEDICAL_CT_LW, (Range{-1000.0F, 2200.0F}));
    EXPECT_EQ(TissueEstimator::DEFAULT_MEDICAL_CT_TISSUES.toVector(),
              Levels({-1000, -500, -50, 40, 500, 550, 1000, 1300, 1500, 1800, 2800}));
}

// estimate

TEST(TissueEstimator, HoldsNoEstimateAtFirst)
{
    const Scan ct;
    TissueEstimator estimator(ct, {}, {});
    EXPECT_FALSE(estimator.getEstimatedTissues());
    EXPECT_TRUE(TissueEstimatorTestAccess::useTeethFallback(estimator));
}

TEST(TissueEstimator, DoesWithoutTheTeethIfBothLandmarkRegionsHaveTwoBoxesInTheScan)
{
    Scan ct;
    test::setImage(ct, paint({}));
    addLandmarks(ct, 2);
    TissueEstimator estimator(ct, oneTooth(), {});
    EXPECT_TRUE(estimator.estimate());
    EXPECT_EQ(levelsOf(estimator), kFromLandmarks);
    EXPECT_EQ(ct.teethQueries, 0);
    EXPECT_FALSE(TissueEstimatorTestAccess::useTeethFallback(estimator));
}

TEST(TissueEstimator, TeethOverwriteAnEstimateFromTooFewBoxesByDesign)
{
    Scan ct;
    test::setImage(ct, paint({}));
    addLandmarks(ct, 1);
    TissueEstimator estimator(ct, oneTooth(), {});
    EXPECT_TRUE(estimator.estimate());
    EXPECT_EQ(levelsOf(estimator), kFromTeeth);
}

TEST(TissueEstimator, CountsTheBoxesOfEachLandmarkRegionSeparately)
{
    // The box of type 14 at y = 6 leaves the scan in the first region and is inside in the second;
    // type 19 has no box in the first region.
    for (const auto& [type, position] : {std::pair(14, QVector3D(40.0F, 6.0F, 20.0F)),
                                         std::pair(19, QVector3D(40.0F, 28.0F, 20.0F))}) {
        Scan ct;
        test::setImage(ct, paint({}));
        addLandmarks(ct, 1);
        ct.addLandmarkAnnotation(test::makeLandmark(type, position));
        TissueEstimator estimator(ct, oneTooth(), {});
        EXPECT_TRUE(estimator.estimate());
        EXPECT_EQ(levelsOf(estimator), kFromTeeth) << type;
    }
}

TEST(TissueEstimator, NeedsTwoBoxesOfTheSecondRegionToo)
{
    // At z = 5 a box of type 9, 10 mm to either side, leaves the scan; its box of the first region,
    // 5 mm, does not.
    Scan ct;
    test::setImage(ct, paint({}));
    addLandmarks(ct, 1);
    ct.addLandmarkAnnotation(test::makeLandmark(9, {30.0F, 30.0F, 5.0F}));
    TissueEstimator estimator(ct, oneTooth(), {});
    EXPECT_TRUE(estimator.estimate());
    EXPECT_EQ(levelsOf(estimator), kFromTeeth);
}

TEST(TissueEstimator, KeepsAnEstimateFromTooFewBoxesIfTheTeethShowNoPeaks)
{
    Scan ct;
    test::setImage(ct, paint({}));
    addLandmarks(ct, 1);
    TissueEstimator estimator(ct, {}, {});
    EXPECT_TRUE(estimator.estimate());
    EXPECT_EQ(levelsOf(estimator), kFromLandmarks);
}

TEST(TissueEstimator, EstimatesFromTheTeethAlone)
{
    Scan ct;
    test::setImage(ct, paint({}));
    TissueEstimator estimator(ct, oneTooth(), {});
    EXPECT_TRUE(estimator.estimate());
    EXPECT_EQ(levelsOf(estimator), kFromTeeth);
}

TEST(TissueEstimator, FailsIfAirIsNotBelowSoftTissueUnlessTheTeethShowPeaks)
{
    // Air of the same level as the soft tissue: its peak in the first region is 325, in the second
    // 275 or 325.
    GreyValues grey;
    grey.air = 300;
    grey.skin = 1500;
    grey.softTissue = 300;
    Scan ct;
    test::setImage(ct, paint(grey));
    addLandmarks(ct, 2);
    TissueEstimator withoutTeeth(ct, {}, {});
    EXPECT_FALSE(withoutTeeth.estimate());
    EXPECT_FALSE(withoutTeeth.getEstimatedTissues());
    TissueEstimator withTeeth(ct, oneTooth(), {});
    EXPECT_TRUE(withTeeth.estimate());
    EXPECT_EQ(levelsOf(withTeeth), kFromTeeth);
}

TEST(TissueEstimator, PeaksOutOfOrderClearAHeldEstimateByDesign)
{
    Scan ct;
    test::setImage(ct, paint({}));
    addLandmarks(ct, 2);
    TissueEstimator estimator(ct, {}, {});
    ASSERT_TRUE(estimator.estimate());
    GreyValues grey;
    grey.air = 300;
    grey.skin = 1500;
    test::setImage(ct, paint(grey));
    EXPECT_FALSE(estimator.estimate());
    EXPECT_FALSE(estimator.getEstimatedTissues());
}

TEST(TissueEstimator, MissingMaximaKeepAHeldEstimateByDesign)
{
    GreyValues evenFace;
    evenFace.air = evenFace.skin = 40;
    for (const bool nothingAtAll : {false, true}) {
        Scan ct;
        test::setImage(ct, paint({}));
        addLandmarks(ct, 2);
        TissueEstimator estimator(ct, {}, {});
        ASSERT_TRUE(estimator.estimate());
        if (nothingAtAll)
            ct.setImageVolume(nullptr);
        else
            test::setImage(ct, paint(evenFace));
        EXPECT_TRUE(estimator.estimate());
        EXPECT_EQ(levelsOf(estimator), kFromLandmarks);
    }
}

TEST(TissueEstimator, Law1OtherLevelsKeepTheProportionsOfTheDefaultLevels)
{
    const Levels defaults = TissueEstimator::DEFAULT_MEDICAL_CT_TISSUES.toVector();
    const auto expectProportions = [&defaults](const Levels& levels, std::size_t first,
                                               std::size_t from, std::size_t to, std::size_t last) {
        const double scale = double(levels[to] - levels[from]) / (defaults[to] - defaults[from]);
        for (std::size_t i = first; i <= last; ++i)
            EXPECT_NEAR(levels[i], levels[from] + scale * (defaults[i] - defaults[from]), 0.501)
                << i;
    };
    Scan ct;
    test::setImage(ct, paint({}));
    TissueEstimator fromTeeth(ct, oneTooth(), {});
    ASSERT_TRUE(fromTeeth.estimate());
    expectProportions(levelsOf(fromTeeth), 0, 3, 7, 10);
    addLandmarks(ct, 2);
    TissueEstimator fromLandmarks(ct, {}, {});
    ASSERT_TRUE(fromLandmarks.estimate());
    expectProportions(levelsOf(fromLandmarks), 0, 0, 3, 3);
    expectProportions(levelsOf(fromLandmarks), 3, 3, 9, 10);
}

TEST(TissueEstimator, ReturnsFalseWithoutAnyInput)
{
    const Scan ct;
    TissueEstimator estimator(ct, {}, {});
    EXPECT_FALSE(estimator.estimate());
    EXPECT_FALSE(estimator.getEstimatedTissues());
}

TEST(TissueEstimator, CopiesHaveAnEstimateOfTheirOwn)
{
    Scan ct;
    test::setImage(ct, paint({}));
    addLandmarks(ct, 2);
    TissueEstimator estimator(ct, {}, {});
    TissueEstimator before = estimator;
    ASSERT_TRUE(estimator.estimate());
    TissueEstimator after = estimator;
    EXPECT_EQ(levelsOf(after), kFromLandmarks);
    EXPECT_FALSE(before.getEstimatedTissues());
    EXPECT_TRUE(before.estimate());
    EXPECT_EQ(levelsOf(before), kFromLandmarks);
}

// calculateLevelWindow

colormap::Tissues tissuesOf(const Levels& levels)
{
    return {levels[0], levels[1], levels[2], levels[3], levels[4], levels[5],
            levels[6], levels[7], levels[8], levels[9], levels[10]};
}

Levels defaults()
{
    return {-1000, -500, -50, 40, 500, 550, 1000, 1300, 1500, 1800, 2800};
}

void expectRange(const Range& range, double min, double max, double tolerance)
{
    EXPECT_NEAR(static_cast<double>(range.min), min, tolerance);
    EXPECT_NEAR(static_cast<double>(range.max), max, tolerance);
}

TEST(TissueEstimatorLevelWindow, Law2IsTheGivenRangeForTheDefaultLevels)
{
    expectRange(TissueEstimator::calculateLevelWindow(TissueEstimator::DEFAULT_MEDICAL_CT_TISSUES,
                                                      TissueEstimator::DEFAULT_MEDICAL_CT_LW),
                -1000.0, 2200.0, 1e-3);
    for (const Range& range :
         {Range{-300.0F, 900.0F}, Range{-5000.0F, 5000.0F}, Range{2200.0F, -1000.0F}})
        expectRange(TissueEstimator::calculateLevelWindow(
                        TissueEstimator::DEFAULT_MEDICAL_CT_TISSUES, range),
                    static_cast<double>(range.min), static_cast<double>(range.max), 2e-3);
}

TEST(TissueEstimatorLevelWindow, Law3IsShiftedAndScaledWithTheLevels)
{
    for (const int k : {-300, 1, 300}) {
        Levels levels = defaults();
        for (int& level : levels)
            level += k;
        expectRange(TissueEstimator::calculateLevelWindow(tissuesOf(levels), {-1000.0F, 2200.0F}),
                    -1000.0 + k, 2200.0 + k, 1e-3);
    }
    Levels doubled = defaults();
    for (int& level : doubled)
        level *= 2;
    expectRange(TissueEstimator::calculateLevelWindow(tissuesOf(doubled), {-1000.0F, 2200.0F}),
                -2000.0, 4400.0, 2e-3);
}

TEST(TissueEstimatorLevelWindow, IgnoresDefaultLevelsAtOrBeyondTheEndsOfTheRange)
{
    Levels levels = defaults();
    levels[0] = levels[1] = levels[9] = levels[10] = 30000;
    expectRange(TissueEstimator::calculateLevelWindow(tissuesOf(levels), {-500.0F, 1800.0F}),
                -500.0, 1800.0, 1e-3);
    levels[2] = 30000;
    EXPECT_GT(TissueEstimator::calculateLevelWindow(tissuesOf(levels), {-500.0F, 1800.0F}).min,
              0.0F);
}

// The normal equations, by Cramer's rule: another way to the same least squares.
TEST(TissueEstimatorLevelWindow, AgreesWithTheNormalEquationsOnRandomLevels)
{
    std::mt19937 engine(12);
    for (int run = 0; run < 200; ++run) {
        Levels levels(11);
        for (int& level : levels)
            level = static_cast<int>(engine() % 8000U) - 3000;
        const double from = -1200.0 + static_cast<double>(engine() % 700U);
        const double to = 1400.0 + static_cast<double>(engine() % 2000U);
        long double aa = 0.0L;
        long double ab = 0.0L;
        long double bb = 0.0L;
        long double at = 0.0L;
        long double bt = 0.0L;
        for (std::size_t i = 0; i < 11; ++i) {
            const long double x = (defaults()[i] - from) / (to - from);
            if (!(x > 0.0L && x < 1.0L))
                continue;
            const long double rest = 1.0L - x;
            aa += rest * rest;
            ab += rest * x;
            bb += x * x;
            at += rest * levels[i];
            bt += x * levels[i];
        }
        const long double determinant = aa * bb - ab * ab;
        expectRange(TissueEstimator::calculateLevelWindow(
                        tissuesOf(levels), {static_cast<float>(from), static_cast<float>(to)}),
                    static_cast<double>((at * bb - bt * ab) / determinant),
                    static_cast<double>((bt * aa - at * ab) / determinant), 0.01);
    }
}

TEST(TissueEstimatorLevelWindow, IsTheShortestSolutionForOneLevel)
{
    // Only 40 is kept. At x = 1/2 both ends are the level; at x = 2/5 they are 3/5 and 2/5 of it
    // over 9/25 + 4/25.
    Levels levels = defaults();
    levels[3] = 52;
    expectRange(TissueEstimator::calculateLevelWindow(tissuesOf(levels), {39.0F, 41.0F}), 52.0,
                52.0, 1e-4);
    expectRange(TissueEstimator::calculateLevelWindow(tissuesOf(levels), {0.0F, 100.0F}), 60.0,
                40.0, 1e-4);
}

TEST(TissueEstimatorLevelWindow, FormsTheRestOfAPlaceInDoublePrecision)
{
    // x is 0.1F and 1 - x is 0.89999999851 in double precision; in single precision it is
    // 0.89999998, and the lower end the next float, 0x1.c8bd7ep+25. From another program.
    Levels levels = defaults();
    levels[3] = 54544440;
    EXPECT_EQ(TissueEstimator::calculateLevelWindow(tissuesOf(levels), {0.0F, 400.0F}).min,
              0x1.c8bd7cp+25F);
}

TEST(TissueEstimatorLevelWindow, IsZeroWithoutAnyLevel)
{
    const Range none{0.0F, 0.0F};
    for (const Range& range :
         {Range{40.0F, 40.0F}, Range{41.0F, 42.0F}, Range{3000.0F, 4000.0F}, Range{kNan, 2200.0F},
          Range{-1000.0F, kNan}, Range{-kInfinity, kInfinity}, Range{-1000.0F, kInfinity},
          Range{-3e38F, 3e38F}})
        EXPECT_EQ(TissueEstimator::calculateLevelWindow(TissueEstimator::DEFAULT_MEDICAL_CT_TISSUES,
                                                        range),
                  none)
            << range.min << " " << range.max;
}

TEST(TissueEstimatorLevelWindow, AcceptsLevelsAtTheEndsOfInt)
{
    const int largest = std::numeric_limits<int>::max();
    const int smallest = std::numeric_limits<int>::min();
    Levels levels(11, largest);
    expectRange(TissueEstimator::calculateLevelWindow(tissuesOf(levels), {-1000.0F, 2200.0F}),
                largest, largest, 256.0);
    levels.assign(11, smallest);
    expectRange(TissueEstimator::calculateLevelWindow(tissuesOf(levels), {-1000.0F, 2200.0F}),
                smallest, smallest, 256.0);
}

} // namespace
