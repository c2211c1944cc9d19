// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/OcclusalPropertiesCalculator.h>

// Covered: the fraction at which the occlusal plane is, and the slice of a height.

#include <tests/support/DentalBuilders.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace occlusalPropertiesCalculator;
using test::makeScan;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

int indexAt(const CTData& scan, float z)
{
    return getOcclusalIndex(scan, QVector3D(3.0F, -400.0F, z));
}

TEST(OcclusalPropertiesCalculator, PercentageIsOneForTheDefinitionZeroAndSixTenthsForAnyOther)
{
    EXPECT_EQ(getOcclusalCenterPercentage(CTData::OcclusalPlaneDefinition(0)), 1.0F);
    for (const int other : {1, 2, -1, std::numeric_limits<int>::max()})
        EXPECT_EQ(getOcclusalCenterPercentage(static_cast<CTData::OcclusalPlaneDefinition>(other)),
                  0.6F)
            << other;
}

TEST(OcclusalPropertiesCalculator, SliceIsTheHeightAboveTheScansBottomInVoxelsTruncated)
{
    const auto scan = makeScan(0.5F, 60.0F);
    EXPECT_EQ(indexAt(*scan, 0.0F), 0);
    EXPECT_EQ(indexAt(*scan, 0.49F), 0);
    EXPECT_EQ(indexAt(*scan, 0.5F), 1);
    EXPECT_EQ(indexAt(*scan, 30.9F), 61);
    EXPECT_EQ(indexAt(*scan, 59.9F), 119);
    scan->resampledBox = primitives::BoundingBox(0.0F, 0.0F, -10.0F, 1.0F, 1.0F, 50.0F);
    EXPECT_EQ(indexAt(*scan, 20.0F), 60);
}

TEST(OcclusalPropertiesCalculator, SliceIsComputedInSinglePrecision)
{
    // 3 / 0.3 is 10 in single precision; in double precision, with the float nearest to 0.3, it
    // is 9.9999996.
    const auto scan = makeScan(0.3F, 60.0F);
    EXPECT_EQ(indexAt(*scan, 3.0F), 10);
    // 0.6 + 9.9 is 10.5 as a float, and 10.5 / 0.3 is 35. In double precision, the sum of the
    // floats is 10.4999996, and the quotient 34.999997 also once it is narrowed.
    scan->resampledBox = primitives::BoundingBox(0.0F, 0.0F, -9.9F, 1.0F, 1.0F, 50.1F);
    EXPECT_EQ(indexAt(*scan, 0.6F), 35);
    // 2.6 / 0.2 is 12.999999 for the floats nearest to these; times the reciprocal of 0.2, 5, it
    // would be 13.
    EXPECT_EQ(indexAt(*makeScan(0.2F, 60.0F), 2.6F), 12);
    // 16777217 - 1 is even further below; 2^24 - 1 is exact, 2^24 + 2 - 1 ties to 2^24 + 2 in
    // single precision.
    EXPECT_EQ(indexAt(*makeScan(0.3F, 16777218.0F), 3e7F), 16777216);
}

TEST(OcclusalPropertiesCalculator, BelowTheScanIsSliceZero)
{
    const auto scan = makeScan(0.5F, 60.0F);
    EXPECT_EQ(indexAt(*scan, -0.1F), 0);
    EXPECT_EQ(indexAt(*scan, -kInfinity), 0);
}

TEST(OcclusalPropertiesCalculator, AtOrAboveTheTopALengthServesAsSliceByDesign)
{
    const auto scan = makeScan(0.5F, 60.75F);
    EXPECT_EQ(indexAt(*scan, 60.75F), 59) << "60.75 mm less 1, not slice 121";
    EXPECT_EQ(indexAt(*scan, 60.5F), 121);
    EXPECT_EQ(indexAt(*scan, 1000.0F), 59);
    EXPECT_EQ(indexAt(*scan, kInfinity), 59);
}

TEST(OcclusalPropertiesCalculator, BoxThatCountsIsTheResampledOne)
{
    const auto scan = makeScan(1.0F, 60.0F);
    scan->box = primitives::BoundingBox(0.0F, 0.0F, 500.0F, 1.0F, 1.0F, 600.0F);
    EXPECT_EQ(indexAt(*scan, 20.0F), 20);
}

TEST(OcclusalPropertiesCalculator, ScanWithoutVolumeGivesSliceZero)
{
    EXPECT_EQ(indexAt(CTData(), 5.0F), 0);
}

TEST(OcclusalPropertiesCalculator, VolumeWithoutVoxelsGivesNoSliceBeyondTheRangeOfInt)
{
    auto scan = test::ScanWithBoxes();
    scan.setImageVolume(std::make_shared<ImageVolume>()); // no voxels: their size is (0, 0, 0)
    scan.resampledBox = primitives::BoundingBox(0.0F, 0.0F, 0.0F, 1.0F, 1.0F, 60.0F);
    EXPECT_EQ(indexAt(scan, 5.0F), 0) << "5 / 0";
    EXPECT_EQ(indexAt(scan, 0.0F), 0) << "0 / 0";
    scan.resampledBox = primitives::BoundingBox(0.0F, 0.0F, -3e38F, 1.0F, 1.0F, 3e38F);
    EXPECT_EQ(indexAt(scan, 3.1e38F), 0) << "a height beyond the largest float";
}

TEST(OcclusalPropertiesCalculator, NanGivesSliceZero)
{
    const auto scan = makeScan(0.5F, 60.0F);
    EXPECT_EQ(indexAt(*scan, kNan), 0);
    scan->resampledBox = primitives::BoundingBox(kNan, kNan, kNan, kNan, kNan, kNan);
    EXPECT_EQ(indexAt(*scan, 5.0F), 0);
}

} // namespace
