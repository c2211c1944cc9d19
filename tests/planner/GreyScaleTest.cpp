// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/GreyScale.h>

// Covered: GreyScale: which values a volume holds by their range, and how they are shown.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

using planner::GreyScale;
using planner::GreyValueKind;

namespace {

template <typename Element>
VexelImage3D imageFrom(Element low, Element high, image::DataType type)
{
    VexelImage3D image({2, 1, 1}, {1, 1, 1}, type);
    static_cast<Element*>(image.dataPtr())[0] = low;
    static_cast<Element*>(image.dataPtr())[1] = high;
    return image;
}

TEST(GreyScale, TakesAVolumeWithAirForHounsfieldUnits)
{
    const GreyScale scale(imageFrom<std::int16_t>(-1000, 2600, image::Int16));
    EXPECT_EQ(scale.kind(), GreyValueKind::Hounsfield);
    EXPECT_EQ(scale.low(), -700.0);
    EXPECT_EQ(scale.high(), 1900.0);
    EXPECT_EQ(scale.brightness(-1000.0), 0);
    EXPECT_EQ(scale.brightness(600.0), 128);
    EXPECT_EQ(scale.brightness(2600.0), 255);
}

TEST(GreyScale, ShowsRawValuesUpToThreeQuartersOfTheirRange)
{
    const GreyScale scale(imageFrom<std::uint16_t>(0, 4000, image::UInt16));
    EXPECT_EQ(scale.kind(), GreyValueKind::Raw);
    EXPECT_EQ(scale.low(), 0.0);
    EXPECT_EQ(scale.high(), 3000.0);
}

TEST(GreyScale, ShowsLabelsOverTheirWholeRange)
{
    const GreyScale scale(imageFrom<std::int16_t>(0, 5, image::Int16));
    EXPECT_EQ(scale.kind(), GreyValueKind::Labels);
    EXPECT_EQ(scale.brightness(5.0), 255);
    EXPECT_EQ(scale.attenuation(1.0), scale.attenuation(5.0));
}

TEST(GreyScale, IsBlackAndTransparentWhereThereIsNoNumber)
{
    const GreyScale scale(imageFrom<float>(-1000.0F, 3000.0F, image::Float32));
    EXPECT_EQ(scale.brightness(std::nan("")), 0);
    EXPECT_EQ(scale.attenuation(std::nan("")), 0.0);
}

TEST(GreyScale, WeakensNothingInAirAndMoreInBoneThanInWater)
{
    const GreyScale scale(imageFrom<std::int16_t>(-1024, 3071, image::Int16));
    EXPECT_EQ(scale.attenuation(-1024.0), 0.0);
    EXPECT_EQ(scale.attenuation(0.0), 1.0);
    EXPECT_EQ(scale.attenuation(300.0), 1.3);
    EXPECT_EQ(scale.attenuation(1300.0), 4.3);
}

TEST(GreyScale, StaysFiniteForValuesThatAreNot)
{
    const GreyScale scale(
        imageFrom<float>(-1000.0F, std::numeric_limits<float>::infinity(), image::Float32));
    EXPECT_EQ(scale.brightness(std::numeric_limits<double>::infinity()), 255);
    EXPECT_TRUE(std::isfinite(scale.attenuation(std::numeric_limits<double>::infinity())));
}

TEST(GreyScale, OfOneValueIsBlack)
{
    const GreyScale scale(imageFrom<std::uint16_t>(1000, 1000, image::UInt16));
    EXPECT_EQ(scale.brightness(1000.0), 0);
    EXPECT_EQ(scale.attenuation(1000.0), 0.0);
}

} // namespace
