// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include "phantom/Phantom.h"

// Covered: the extent, the painted volume compared with the truth, noise, grey values, unusable
// settings.

#include <tests/phantom/PhantomTruth.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <set>
#include <vector>

namespace {

using phantom::Patient;
using phantom::Settings;
using phantom::Tissue;
using test::kInfinity;
using test::kMidlineX;
using test::kNaN;
using test::noiseless;
using test::patient;

// Returns settings that paint all tissues 0, so that the image is noise alone.
Settings noiseAlone(float voxelSizeMm, float sigma, std::uint32_t seed)
{
    Settings settings;
    settings.voxelSizeMm = voxelSizeMm;
    settings.greyValues.fill(0.0F);
    settings.noiseSigma = sigma;
    settings.seed = seed;
    return settings;
}

std::vector<std::int16_t> voxelsOf(const VexelImage3D& volume)
{
    const auto* const first = static_cast<const std::int16_t*>(volume.dataPtr());
    return {first, first + volume.voxelCount()};
}

std::vector<std::int16_t> voxelsOf(const Settings& settings)
{
    return voxelsOf(Patient(settings).createVolume());
}

double meanOf(const std::vector<std::int16_t>& values)
{
    double sum = 0.0;
    for (const std::int16_t value : values)
        sum += value;
    return sum / double(values.size());
}

// Returns the mean product of values a distance apart in the list, divided by the mean square.
double correlation(const std::vector<std::int16_t>& values, std::size_t distance)
{
    double products = 0.0;
    double squares = 0.0;
    for (std::size_t i = 0; i + distance < values.size(); ++i) {
        products += double(values[i]) * values[i + distance];
        squares += double(values[i]) * values[i];
    }
    return products / squares;
}

// Extent and truth

TEST(Phantom, HasAnExtentThatDoesNotDependOnTheVoxelSize)
{
    EXPECT_EQ(patient().extentMm(), QVector3D(150.0F, 165.0F, 130.0F));
    EXPECT_EQ(Patient(noiseless(3.3F)).extentMm(), QVector3D(150.0F, 165.0F, 130.0F));
    EXPECT_EQ(Patient(noiseless(0.0F)).extentMm(), QVector3D(150.0F, 165.0F, 130.0F));
}

TEST(Phantom, IsAirOutsideTheVolume)
{
    ASSERT_EQ(patient().tissueAt({kMidlineX, 140.0F, 130.0F}), Tissue::SoftTissue);
    EXPECT_EQ(patient().tissueAt({kMidlineX, 140.0F, 130.01F}), Tissue::Air);
    EXPECT_EQ(patient().tissueAt({kMidlineX, 140.0F, -0.01F}), Tissue::Air);
    ASSERT_EQ(patient().tissueAt({kMidlineX, 165.0F, 120.0F}), Tissue::SoftTissue);
    EXPECT_EQ(patient().tissueAt({kMidlineX, 165.01F, 120.0F}), Tissue::Air);
    EXPECT_EQ(patient().tissueAt({-1e30F, 140.0F, 60.0F}), Tissue::Air);
}

TEST(Phantom, IsAirWhereAPositionIsNotFinite)
{
    for (const float bad : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_EQ(patient().tissueAt({bad, 140.0F, 60.0F}), Tissue::Air);
        EXPECT_EQ(patient().tissueAt({kMidlineX, bad, 60.0F}), Tissue::Air);
        EXPECT_EQ(patient().tissueAt({kMidlineX, 140.0F, bad}), Tissue::Air);
    }
}

TEST(Phantom, GivesTheSameAnswersInACopyThatOutlivesIt)
{
    auto original = std::make_unique<Patient>();
    const Patient copy = *original;
    original.reset();
    EXPECT_EQ(
        copy.tissueAt(copy.teeth().front().occlusalPoint - 0.3F * copy.teeth().front().axisToCrown),
        Tissue::Enamel);
}

// Image

TEST(PhantomVolume, HasSixteenBitVoxelsOfTheChosenSizeThatFillTheExtent)
{
    const VexelImage3D volume = Patient(noiseless(2.5F)).createVolume();
    EXPECT_EQ(volume.dataType(), image::Int16);
    EXPECT_EQ(volume.voxelSize(), QVector3D(2.5F, 2.5F, 2.5F));
    EXPECT_EQ(volume.imageSize().x, 60);
    EXPECT_EQ(volume.imageSize().y, 66);
    EXPECT_EQ(volume.imageSize().z, 52);
}

TEST(PhantomVolume, KeepsTheLastCenterInsideWhenTheVoxelSizeDoesNotDivideTheExtent)
{
    // 150 / 7 = 21.4, 165 / 7 = 23.6, 130 / 7 = 18.6: one more than fits whole, for the center at
    // the origin.
    const VexelImage3D volume = Patient(noiseless(7.0F)).createVolume();
    EXPECT_EQ(volume.imageSize().x, 22);
    EXPECT_EQ(volume.imageSize().y, 24);
    EXPECT_EQ(volume.imageSize().z, 19);
}

TEST(PhantomVolume, IsOneVoxelWhenTheVoxelIsLargerThanThePatient)
{
    EXPECT_EQ(Patient(noiseless(1000.0F)).createVolume().voxelCount(), 1U);
}

TEST(PhantomVolume, EqualsTheTruthInEveryVoxel)
{
    // Neither the voxel size nor the painted grey values are whole numbers.
    Settings settings = noiseless(1.7F);
    settings.gain = 1.1F;
    settings.offset = -3.3F;
    const Patient oblique(settings);
    const VexelImage3D volume = oblique.createVolume();
    const auto* voxel = static_cast<const std::int16_t*>(volume.dataPtr());
    ASSERT_FALSE(volume.isEmpty());
    for (int z = 0; z < volume.imageSize().z; ++z) {
        for (int y = 0; y < volume.imageSize().y; ++y) {
            for (int x = 0; x < volume.imageSize().x; ++x) {
                const QVector3D center(float(x) * 1.7F, float(y) * 1.7F, float(z) * 1.7F);
                const float painted = oblique.paintedGreyValue(oblique.tissueAt(center));
                ASSERT_EQ(float(*voxel++), std::round(painted)) << x << ' ' << y << ' ' << z;
            }
        }
    }
}

TEST(PhantomVolume, ShowsEveryTissue)
{
    Settings settings = noiseless(1.0F);
    settings.greyValues = {0.0F, 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 7.0F};
    const std::vector<std::int16_t> voxels = voxelsOf(settings);
    EXPECT_EQ(std::set<std::int16_t>(voxels.begin(), voxels.end()),
              (std::set<std::int16_t>{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST(PhantomVolume, HasTheSameVoxelsForTheSameSeed)
{
    Settings settings;
    settings.voxelSizeMm = 2.0F;
    EXPECT_EQ(voxelsOf(settings), voxelsOf(settings));
}

TEST(PhantomVolume, HasOtherNoiseForAnotherSeed)
{
    const std::vector<std::int16_t> one = voxelsOf(noiseAlone(2.0F, 1000.0F, 1));
    const std::vector<std::int16_t> two = voxelsOf(noiseAlone(2.0F, 1000.0F, 2));
    ASSERT_EQ(one.size(), two.size());
    std::size_t equal = 0;
    for (std::size_t i = 0; i < one.size(); ++i)
        equal += one[i] == two[i] ? 1U : 0U;
    EXPECT_LT(equal, one.size() / 100);
}

TEST(PhantomVolume, HasNoiseOfKnownBits)
{
    // The sums of eight bytes, less 1020, computed with whole numbers of unlimited size in another
    // language, divided by the square root of 8 * 65535 / 12 and multiplied by the sigma of
    // 1000: 96, 93, -324, 63, -17, 151.
    const std::vector<std::int16_t> voxels = voxelsOf(noiseAlone(5.0F, 1000.0F, 2026));
    const std::vector<std::int16_t> expected = {459, 445, -1550, 301, -81, 722};
    EXPECT_EQ(std::vector<std::int16_t>(voxels.begin(), voxels.begin() + 6), expected);
}

TEST(PhantomVolume, HasNoiseOfMeanZeroAndTheChosenSigma)
{
    // 404 625 voxels: the standard errors are 0.16 for the mean and 0.11 for the deviation.
    const std::vector<std::int16_t> voxels = voxelsOf(noiseAlone(2.0F, 100.0F, 2026));
    const double mean = meanOf(voxels);
    double squares = 0.0;
    for (const std::int16_t value : voxels)
        squares += (value - mean) * (value - mean);
    EXPECT_NEAR(mean, 0.0, 0.8);
    EXPECT_NEAR(std::sqrt(squares / double(voxels.size())), 100.0, 0.6);
}

TEST(PhantomVolume, HasNoiseThatIsNearlyNormal)
{
    // 68.3 % of a normal distribution are within one standard deviation, 95.4 % within two.
    const std::vector<std::int16_t> voxels = voxelsOf(noiseAlone(2.0F, 1000.0F, 2026));
    double withinOne = 0.0;
    double withinTwo = 0.0;
    for (const std::int16_t value : voxels) {
        withinOne += std::abs(value) <= 1000 ? 1.0 : 0.0;
        withinTwo += std::abs(value) <= 2000 ? 1.0 : 0.0;
    }
    EXPECT_NEAR(withinOne / double(voxels.size()), 0.683, 0.01);
    EXPECT_NEAR(withinTwo / double(voxels.size()), 0.954, 0.005);
}

TEST(PhantomVolume, HasNoiseThatNeighborsDoNotShare)
{
    // 75 voxels a row, 83 rows a slice; the standard error of each correlation is 0.0016.
    const std::vector<std::int16_t> voxels = voxelsOf(noiseAlone(2.0F, 1000.0F, 2026));
    for (const std::size_t distance : {1U, 75U, 75U * 83U})
        EXPECT_NEAR(correlation(voxels, distance), 0.0, 0.008) << distance;
}

TEST(PhantomVolume, ReportsProgressInAscendingOrderFromZeroToOne)
{
    std::vector<double> reported;
    const VexelImage3D volume = Patient(noiseless(5.0F)).createVolume([&reported](double fraction) {
        reported.push_back(fraction);
    });
    ASSERT_GE(reported.size(), 3U);
    EXPECT_EQ(reported.front(), 0.0);
    EXPECT_EQ(reported.back(), 1.0);
    for (std::size_t i = 1; i < reported.size(); ++i)
        EXPECT_GT(reported[i], reported[i - 1]);
}

// Grey values

TEST(PhantomGrey, IsTheTissuesOwnByDefault)
{
    EXPECT_EQ(patient().paintedGreyValue(Tissue::Air), -1000.0F);
    EXPECT_EQ(patient().paintedGreyValue(Tissue::SoftTissue), 40.0F);
    EXPECT_EQ(patient().paintedGreyValue(Tissue::CorticalBone), 1300.0F);
    EXPECT_EQ(patient().paintedGreyValue(Tissue::NerveCanal), 20.0F);
}

TEST(PhantomGrey, IsMultipliedByTheGainBeforeTheOffsetIsAdded)
{
    Settings settings;
    settings.gain = 2.0F;
    settings.offset = 10.0F;
    const Patient miscalibrated(settings);
    EXPECT_EQ(miscalibrated.paintedGreyValue(Tissue::Enamel), 5210.0F); // 2 * 2600 + 10
    EXPECT_EQ(miscalibrated.paintedGreyValue(Tissue::Air), -1990.0F);   // 2 * -1000 + 10
}

TEST(PhantomGrey, IsRoundedWithHalvesAwayFromZero)
{
    Settings settings = noiseless(1000.0F); // the one voxel is air
    settings.greyValues[0] = -2.5F;
    EXPECT_EQ(voxelsOf(settings), std::vector<std::int16_t>{-3});
    settings.greyValues[0] = 2.5F;
    EXPECT_EQ(voxelsOf(settings), std::vector<std::int16_t>{3});
}

TEST(PhantomGrey, IsLimitedToSixteenBitsInTheImage)
{
    Settings settings = noiseless(1000.0F);
    settings.gain = 1e30F;
    EXPECT_EQ(voxelsOf(settings), std::vector<std::int16_t>{-32768});
    settings.gain = -1e38F;
    settings.greyValues[0] = -1e38F;
    EXPECT_EQ(voxelsOf(settings), std::vector<std::int16_t>{32767});
    settings.noiseSigma = std::numeric_limits<float>::max();
    EXPECT_EQ(voxelsOf(settings).size(), 1U);
}

TEST(PhantomGrey, IsZeroForAValueThatIsNoTissue)
{
    EXPECT_EQ(patient().paintedGreyValue(Tissue(-1)), 0.0F);
    EXPECT_EQ(patient().paintedGreyValue(Tissue(8)), 0.0F);
}

// Unusable settings

TEST(PhantomSettings, WithoutAUsableVoxelSizeGiveAnImageWithoutVoxelsAndTheSameTruth)
{
    for (const float bad : {0.0F, -0.5F, kNaN, kInfinity, -kInfinity, 1e-6F, 1e-44F}) {
        const Patient blurred(noiseless(bad));
        int reports = 0;
        EXPECT_TRUE(blurred.createVolume([&reports](double) { ++reports; }).isEmpty()) << bad;
        EXPECT_EQ(reports, 0) << bad;
        EXPECT_EQ(blurred.tissueAt({kMidlineX, 140.0F, 60.0F}),
                  patient().tissueAt({kMidlineX, 140.0F, 60.0F}));
        EXPECT_EQ(blurred.teeth().size(), 28) << bad;
    }
}

TEST(PhantomSettings, ThatAreNotFiniteAreReplacedByNeutralOnes)
{
    for (const float bad : {kNaN, kInfinity, -kInfinity}) {
        Settings settings;
        settings.voxelSizeMm = 10.0F;
        settings.gain = bad;
        settings.offset = bad;
        settings.noiseSigma = bad;
        settings.greyValues.fill(bad);
        const Patient neutral(settings);
        EXPECT_EQ(neutral.settings().gain, 1.0F);
        EXPECT_EQ(neutral.settings().offset, 0.0F);
        EXPECT_EQ(neutral.settings().noiseSigma, 0.0F);
        EXPECT_EQ(neutral.paintedGreyValue(Tissue::Enamel), 2600.0F);
        EXPECT_EQ(voxelsOf(neutral.createVolume()), voxelsOf(noiseless(10.0F)));
    }
}

TEST(PhantomSettings, WithNegativeNoisePaintNone)
{
    Settings settings = noiseless(10.0F);
    settings.noiseSigma = -25.0F;
    EXPECT_EQ(voxelsOf(settings), voxelsOf(noiseless(10.0F)));
}

} // namespace
