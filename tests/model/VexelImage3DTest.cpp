// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/data/VexelImage3D.h>

// VexelImage3D: layout in memory, element types, range of values, moves, and invalid images.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <type_traits>
#include <utility>

#if defined(__SANITIZE_ADDRESS__)
#define COREALGORITHMS_TEST_WITH_ASAN
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define COREALGORITHMS_TEST_WITH_ASAN
#endif
#endif

#if defined(COREALGORITHMS_TEST_WITH_ASAN)
// The address sanitizer treats a failing `new (std::nothrow)` as an error unless this option is
// set.
extern "C" __attribute__((visibility("default"), used)) const char* __asan_default_options();
extern "C" const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}
#endif

namespace {

using math::Ivec3;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr int kIntMax = std::numeric_limits<int>::max();

const QVector3D kSpacing(0.25F, 0.5F, 1.0F);

static_assert(!std::is_copy_constructible_v<VexelImage3D> &&
              !std::is_copy_assignable_v<VexelImage3D>);
static_assert(std::is_nothrow_move_constructible_v<VexelImage3D> &&
              std::is_nothrow_move_assignable_v<VexelImage3D>);
static_assert(image::UInt16 == 0 && image::Int16 == 1 && image::UInt8 == 2,
              "what scanners deliver");

template <typename Element>
Element* elementsOf(VexelImage3D& image)
{
    return static_cast<Element*>(image.dataPtr());
}

// Returns an image of one row with these elements.
template <typename Element>
VexelImage3D rowOf(image::DataType type, std::initializer_list<Element> values)
{
    VexelImage3D image({static_cast<int>(values.size()), 1, 1}, kSpacing, type);
    std::copy(values.begin(), values.end(), elementsOf<Element>(image));
    return image;
}

void expectWithoutVoxels(const VexelImage3D& image)
{
    EXPECT_TRUE(image.isEmpty());
    EXPECT_EQ(image.dataPtr(), nullptr);
    EXPECT_EQ(image.voxelCount(), 0U);
    EXPECT_EQ(image.imageSize(), (Ivec3{0, 0, 0}));
    EXPECT_EQ(image.value(0, 0, 0), 0.0);
    EXPECT_EQ(image.getValueRange(), (math::Range<float>{0.0F, 0.0F}));
}

TEST(ElementSize, IsTheSizeOfTheTypeInBytes)
{
    EXPECT_EQ(image::elementSize(image::UInt8), 1U);
    EXPECT_EQ(image::elementSize(image::Int8), 1U);
    EXPECT_EQ(image::elementSize(image::UInt16), 2U);
    EXPECT_EQ(image::elementSize(image::Int16), 2U);
    EXPECT_EQ(image::elementSize(image::UInt32), 4U);
    EXPECT_EQ(image::elementSize(image::Int32), 4U);
    EXPECT_EQ(image::elementSize(image::Float32), 4U);
    EXPECT_EQ(image::elementSize(image::Float64), 8U);
}

TEST(ElementSize, OfANumberThatIsNoTypeIsZero)
{
    for (const int number : {-1, 7 + 1, kIntMax, std::numeric_limits<int>::min()})
        EXPECT_EQ(image::elementSize(image::DataType(number)), 0U) << number;
}

TEST(VexelImage3D, HasNoVoxelsByDefault)
{
    expectWithoutVoxels(VexelImage3D());
}

TEST(VexelImage3D, KeepsSizeSpacingAndType)
{
    const VexelImage3D image({2, 3, 4}, kSpacing, image::Int16);
    EXPECT_FALSE(image.isEmpty());
    EXPECT_EQ(image.imageSize(), (Ivec3{2, 3, 4}));
    EXPECT_EQ(image.voxelSize(), kSpacing);
    EXPECT_EQ(image.dataType(), image::Int16);
    EXPECT_EQ(image.voxelCount(), 24U);
}

TEST(VexelImage3D, VoxelsAreZeroAtFirst)
{
    for (int type = image::UInt16; type <= image::Float64; ++type) {
        const VexelImage3D image({3, 3, 3}, kSpacing, image::DataType(type));
        for (int voxel = 0; voxel < 27; ++voxel)
            ASSERT_EQ(image.value(voxel % 3, voxel / 3 % 3, voxel / 9), 0.0) << "type " << type;
    }
}

TEST(VexelImage3D, RunsFastestAlongXAndSlowestAlongZ)
{
    VexelImage3D image({2, 3, 4}, kSpacing, image::UInt16);
    for (std::uint16_t i = 0; i < 24; ++i)
        elementsOf<std::uint16_t>(image)[i] = i;
    EXPECT_EQ(image.value(0, 0, 0), 0.0);
    EXPECT_EQ(image.value(1, 0, 0), 1.0);
    EXPECT_EQ(image.value(0, 1, 0), 2.0);
    EXPECT_EQ(image.value(0, 0, 1), 6.0);
    EXPECT_EQ(image.value(1, 2, 3), 23.0);
}

TEST(VexelImage3D, ReadsEveryElementTypeWithItsSign)
{
    EXPECT_EQ(rowOf<std::uint16_t>(image::UInt16, {65535}).value(0, 0, 0), 65535.0);
    EXPECT_EQ(rowOf<std::int16_t>(image::Int16, {-32768}).value(0, 0, 0), -32768.0);
    EXPECT_EQ(rowOf<std::uint8_t>(image::UInt8, {255}).value(0, 0, 0), 255.0);
    EXPECT_EQ(rowOf<std::int8_t>(image::Int8, {-128}).value(0, 0, 0), -128.0);
    EXPECT_EQ(rowOf<std::uint32_t>(image::UInt32, {4294967295U}).value(0, 0, 0), 4294967295.0);
    EXPECT_EQ(rowOf<std::int32_t>(image::Int32, {-2147483647}).value(0, 0, 0), -2147483647.0);
    EXPECT_EQ(rowOf<float>(image::Float32, {0.1F}).value(0, 0, 0), 0x1.99999ap-4);
    EXPECT_EQ(rowOf<double>(image::Float64, {0.1}).value(0, 0, 0), 0x1.999999999999ap-4);
}

TEST(VexelImage3D, SecondElementOfEveryTypeIsOneElementFurther)
{
    EXPECT_EQ(rowOf<std::uint8_t>(image::UInt8, {1, 2, 3}).value(1, 0, 0), 2.0);
    EXPECT_EQ(rowOf<std::int32_t>(image::Int32, {1, -2, 3}).value(1, 0, 0), -2.0);
    EXPECT_EQ(rowOf<double>(image::Float64, {1.0, 2.5, 3.0}).value(1, 0, 0), 2.5);
}

TEST(VexelImage3D, OutsideItsValueIsZero)
{
    VexelImage3D image({2, 2, 2}, kSpacing, image::UInt8);
    std::fill_n(elementsOf<std::uint8_t>(image), 8, std::uint8_t{9});
    for (const int bad : {-1, 2, kIntMax, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(image.value(bad, 1, 1), 0.0) << bad;
        EXPECT_EQ(image.value(1, bad, 1), 0.0) << bad;
        EXPECT_EQ(image.value(1, 1, bad), 0.0) << bad;
    }
    EXPECT_EQ(image.value(1, 1, 1), 9.0);
}

TEST(VexelImage3D, ElementsAreAlignedForEveryType)
{
    for (int length = 1; length <= 9; ++length) {
        const VexelImage3D image({length, 1, 1}, kSpacing, image::UInt8);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(image.dataPtr()) % alignof(double), 0U);
    }
}

TEST(VexelImage3D, ConstAndMutableDataAreTheSame)
{
    VexelImage3D image({2, 2, 2}, kSpacing, image::UInt8);
    EXPECT_EQ(std::as_const(image).dataPtr(), image.dataPtr());
}

// ---- range of values

TEST(VexelImage3D, ValueRangeIsFromTheSmallestToTheLargestElement)
{
    EXPECT_EQ(rowOf<std::int16_t>(image::Int16, {5, -1000, 3, 3071, 0}).getValueRange(),
              (math::Range<float>{-1000.0F, 3071.0F}));
    EXPECT_EQ(rowOf<std::uint16_t>(image::UInt16, {5, 2, 65535}).getValueRange(),
              (math::Range<float>{2.0F, 65535.0F}));
    EXPECT_EQ(rowOf<double>(image::Float64, {-0.5, -2.0}).getValueRange(),
              (math::Range<float>{-2.0F, -0.5F}));
}

TEST(VexelImage3D, ValueRangeOfOneVoxelIsItsValueTwice)
{
    EXPECT_EQ(rowOf<std::int8_t>(image::Int8, {-7}).getValueRange(),
              (math::Range<float>{-7.0F, -7.0F}));
}

TEST(VexelImage3D, ValueRangeDoesNotReachToZeroByItself)
{
    EXPECT_EQ(rowOf<std::uint8_t>(image::UInt8, {7, 9}).getValueRange(),
              (math::Range<float>{7.0F, 9.0F}));
    EXPECT_EQ(rowOf<std::int8_t>(image::Int8, {-9, -7}).getValueRange(),
              (math::Range<float>{-9.0F, -7.0F}));
}

TEST(VexelImage3D, ValueRangeLeavesNanOut)
{
    EXPECT_EQ(rowOf<float>(image::Float32, {kNan, 2.0F, kNan, -3.0F, kNan}).getValueRange(),
              (math::Range<float>{-3.0F, 2.0F}));
    EXPECT_EQ(rowOf<double>(image::Float64, {std::numeric_limits<double>::quiet_NaN(), 1.0})
                  .getValueRange(),
              (math::Range<float>{1.0F, 1.0F}));
}

TEST(VexelImage3D, ValueRangeOfNothingButNanIsZero)
{
    EXPECT_EQ(rowOf<float>(image::Float32, {kNan, kNan}).getValueRange(),
              (math::Range<float>{0.0F, 0.0F}));
}

TEST(VexelImage3D, ValueRangeCountsInfinity)
{
    EXPECT_EQ(rowOf<float>(image::Float32, {1.0F, kInfinity, -kInfinity}).getValueRange(),
              (math::Range<float>{-kInfinity, kInfinity}));
}

TEST(VexelImage3D, ValueRangeVisitsTheLastVoxel)
{
    VexelImage3D image({3, 4, 5}, kSpacing, image::UInt16);
    elementsOf<std::uint16_t>(image)[59] = 77;
    EXPECT_EQ(image.getValueRange(), (math::Range<float>{0.0F, 77.0F}));
}

// ---- moves

TEST(VexelImage3D, MoveTakesTheVoxelsAndLeavesNone)
{
    VexelImage3D source = rowOf<std::uint16_t>(image::UInt16, {1, 2, 3});
    const void* const elements = source.dataPtr();
    const VexelImage3D target(std::move(source));
    EXPECT_EQ(target.dataPtr(), elements);
    EXPECT_EQ(target.imageSize(), (Ivec3{3, 1, 1}));
    EXPECT_EQ(target.voxelSize(), kSpacing);
    EXPECT_EQ(target.dataType(), image::UInt16);
    EXPECT_EQ(target.value(2, 0, 0), 3.0);
    expectWithoutVoxels(source); // NOLINT(bugprone-use-after-move): its state is promised
}

TEST(VexelImage3D, MoveAssignmentReplacesTheVoxels)
{
    VexelImage3D source = rowOf<std::int8_t>(image::Int8, {-1, -2});
    VexelImage3D target = rowOf<double>(image::Float64, {1.0, 2.0, 3.0});
    target = std::move(source);
    EXPECT_EQ(target.imageSize(), (Ivec3{2, 1, 1}));
    EXPECT_EQ(target.dataType(), image::Int8);
    EXPECT_EQ(target.value(1, 0, 0), -2.0);
    expectWithoutVoxels(source); // NOLINT(bugprone-use-after-move): its state is promised
}

TEST(VexelImage3D, MoveOntoItselfKeepsTheVoxels)
{
    VexelImage3D image = rowOf<std::uint16_t>(image::UInt16, {1, 2, 3});
    VexelImage3D& same = image;
    image = std::move(same);
    EXPECT_EQ(image.imageSize(), (Ivec3{3, 1, 1}));
    EXPECT_EQ(image.value(2, 0, 0), 3.0);
}

// ---- invalid images

TEST(VexelImage3D, SizeThatIsNotPositiveGivesNoVoxels)
{
    for (const int bad : {0, -1, std::numeric_limits<int>::min()}) {
        SCOPED_TRACE(bad);
        expectWithoutVoxels(VexelImage3D({bad, 2, 2}, kSpacing, image::UInt8));
        expectWithoutVoxels(VexelImage3D({2, bad, 2}, kSpacing, image::UInt8));
        expectWithoutVoxels(VexelImage3D({2, 2, bad}, kSpacing, image::UInt8));
    }
    expectWithoutVoxels(VexelImage3D({-2, -2, 2}, kSpacing, image::UInt8));
}

TEST(VexelImage3D, SpacingThatIsNotPositiveAndFiniteGivesNoVoxels)
{
    for (const float bad : {0.0F, -0.5F, kNan, kInfinity, -kInfinity}) {
        SCOPED_TRACE(bad);
        expectWithoutVoxels(VexelImage3D({2, 2, 2}, {bad, 1.0F, 1.0F}, image::UInt8));
        expectWithoutVoxels(VexelImage3D({2, 2, 2}, {1.0F, bad, 1.0F}, image::UInt8));
        expectWithoutVoxels(VexelImage3D({2, 2, 2}, {1.0F, 1.0F, bad}, image::UInt8));
    }
}

TEST(VexelImage3D, UnknownTypeGivesNoVoxels)
{
    for (const int number : {-1, 8, kIntMax})
        expectWithoutVoxels(VexelImage3D({2, 2, 2}, kSpacing, image::DataType(number)));
}

TEST(VexelImage3D, MoreBytesThanANumberCanCountGiveNoVoxels)
{
    expectWithoutVoxels(VexelImage3D({kIntMax, kIntMax, kIntMax}, kSpacing, image::UInt8));
    expectWithoutVoxels(VexelImage3D({kIntMax, kIntMax, 2}, kSpacing, image::Float64));
    // 2^30 * 2^30 * 2 * 8 = 2^64 bytes would wrap around to 0.
    expectWithoutVoxels(VexelImage3D({1 << 30, 1 << 30, 2}, kSpacing, image::Float64));
    // 2^48 + 1 = 193 * 65537 * 22253377, so this is 2^64 + 2^16 bytes, which would wrap around
    // to 2^16.
    expectWithoutVoxels(VexelImage3D({22253377, 193 * 65537, 65536}, kSpacing, image::UInt8));
}

TEST(VexelImage3D, MoreBytesThanMemoryHoldsGiveNoVoxels)
{
    expectWithoutVoxels(
        VexelImage3D({kIntMax, kIntMax, 1}, kSpacing, image::UInt8)); // 4.6e18 bytes
    expectWithoutVoxels(
        VexelImage3D({1 << 20, 1 << 20, 1 << 10}, kSpacing, image::UInt16)); // 2.3e15 bytes
}

} // namespace
