// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/BoxSampling_p.h>

// Covered: the voxels of oriented boxes and their order, compared with the plain triple loop;
// element types; boxes that are far outside, invalid or too large.

#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/math/OrientedBoundingBox.h>

#include <tests/support/GreyValueBuilders.h>
#include <tests/support/ResliceBuilders.h>
#include <tests/support/WarningLog.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

using greyvalue::sampleBoxes;
using primitives::BoundingBox;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// Each voxel has a value of its own: 100 z + 10 y + x.
std::shared_ptr<VexelImage3D> numbered(const math::Ivec3& size)
{
    return test::makeImage<std::uint16_t>(size, {1.0F, 1.0F, 1.0F}, image::UInt16,
                                          [](int x, int y, int z) { return 100 * z + 10 * y + x; });
}

// The definition: tests every voxel of the hull.
std::vector<int> plainLoop(const VexelImage3D& image, const std::vector<BoundingBox>& boxes,
                           const QMatrix4x4& voxelFromBoxes)
{
    std::vector<int> values;
    const auto* voxels = static_cast<const std::uint16_t*>(image.dataPtr());
    const math::Ivec3 size = image.imageSize();
    for (const BoundingBox& box : boxes) {
        const auto placed = primitives::OrientedBoundingBox(box).transformed(voxelFromBoxes);
        const BoundingBox hull = placed.getAABBOfTransformedBoundingBox();
        for (int z = std::max(0, int(std::round(hull.min().z())));
             z <= std::min(size.z - 1, int(std::round(hull.max().z()))); ++z) {
            for (int y = std::max(0, int(std::round(hull.min().y())));
                 y <= std::min(size.y - 1, int(std::round(hull.max().y()))); ++y) {
                for (int x = std::max(0, int(std::round(hull.min().x())));
                     x <= std::min(size.x - 1, int(std::round(hull.max().x()))); ++x) {
                    if (placed.isInside({float(x), float(y), float(z)}))
                        values.push_back(voxels[(z * size.y + y) * size.x + x]);
                }
            }
        }
    }
    return values;
}

// Order and bounds

TEST(BoxSampling, VisitsZBeforeYBeforeXWithInclusiveBounds)
{
    EXPECT_THAT(
        sampleBoxes(*numbered({5, 5, 5}), {BoundingBox(1.0F, 2.0F, 3.0F, 2.0F, 3.0F, 4.0F)}, {}),
        ElementsAre(321, 322, 331, 332, 421, 422, 431, 432));
}

TEST(BoxSampling, TakesVoxelsWhoseCenterIsInsideOrOnAFace)
{
    EXPECT_THAT(
        sampleBoxes(*numbered({5, 1, 1}), {BoundingBox(0.6F, -0.4F, -0.4F, 3.0F, 0.4F, 0.4F)}, {}),
        ElementsAre(1, 2, 3));
    EXPECT_THAT(
        sampleBoxes(*numbered({5, 1, 1}), {BoundingBox(1.1F, -0.4F, -0.4F, 1.9F, 0.4F, 0.4F)}, {}),
        IsEmpty())
        << "between two centers";
}

TEST(BoxSampling, TakesTheCentersInABoxThatEndsMidwayBetweenThem)
{
    // The ends of the hull are rounded away from zero, to -1 and 3.
    const auto image = numbered({5, 1, 1});
    EXPECT_THAT(sampleBoxes(*image, {BoundingBox(-0.5F, -0.5F, -0.5F, 2.5F, 0.5F, 0.5F)}, {}),
                ElementsAre(0, 1, 2));
}

TEST(BoxSampling, ClipsABoxToTheImageAndSkipsOneOutside)
{
    const auto image = numbered({3, 2, 2});
    EXPECT_THAT(sampleBoxes(*image, {BoundingBox(-9.0F, -9.0F, -9.0F, 0.0F, 9.0F, 9.0F)}, {}),
                ElementsAre(0, 10, 100, 110));
    EXPECT_THAT(sampleBoxes(*image,
                            {BoundingBox(3.0F, 0.0F, 0.0F, 9.0F, 1.0F, 1.0F),
                             BoundingBox(0.0F, -9.0F, 0.0F, 2.0F, -1.0F, 1.0F),
                             BoundingBox(0.0F, 0.0F, 2.0F, 2.0F, 1.0F, 9.0F)},
                            {}),
                IsEmpty());
}

TEST(BoxSampling, CountsVoxelsOfSeveralBoxesInEachOfThem)
{
    EXPECT_THAT(sampleBoxes(*numbered({4, 1, 1}),
                            {BoundingBox(1.0F, -0.4F, -0.4F, 2.0F, 0.4F, 0.4F),
                             BoundingBox(0.0F, -0.4F, -0.4F, 1.0F, 0.4F, 0.4F)},
                            {}),
                ElementsAre(1, 2, 0, 1));
}

TEST(BoxSampling, MapsBoxesToVoxelsFirst)
{
    QMatrix4x4 voxelFromBoxes; // voxels of half a millimeter, the first at (10, 0, 0)
    voxelFromBoxes.scale(2.0F);
    voxelFromBoxes.translate(-10.0F, 0.0F, 0.0F);
    EXPECT_THAT(sampleBoxes(*numbered({5, 5, 1}),
                            {BoundingBox(10.5F, 0.5F, 0.0F, 11.0F, 1.0F, 0.0F)}, voxelFromBoxes),
                ElementsAre(11, 12, 21, 22));
}

// Against the plain loop

TEST(BoxSampling, HasTheValuesOfThePlainLoopInItsOrderForOrientedBoxes)
{
    const auto image =
        test::makeImage<std::uint16_t>({48, 40, 36}, {1.0F, 1.0F, 1.0F}, image::UInt16,
                                       [](int x, int y, int z) { return (z * 40 + y) * 48 + x; });
    test::RandomGeometry random(11);
    std::size_t sampled = 0;
    for (int run = 0; run < 400; ++run) {
        QMatrix4x4 worldFromVoxel = random.rigidPlacement();
        if (run % 3 != 0)
            worldFromVoxel.scale(random.number(0.2F, 3.0F), random.number(0.2F, 3.0F),
                                 random.number(0.2F, 3.0F));
        if (run % 5 == 0)
            worldFromVoxel = QMatrix4x4(); // faces through centers
        std::vector<BoundingBox> boxes;
        for (int i = 0; i < 3; ++i) {
            QVector3D center =
                worldFromVoxel.map({random.number(-4.0F, 52.0F), random.number(-4.0F, 44.0F),
                                    random.number(-4.0F, 40.0F)});
            QVector3D half(random.number(0.0F, 9.0F), random.number(0.0F, 9.0F),
                           random.number(0.0F, 9.0F));
            if (run % 5 == 0) {
                center = {std::round(center.x()), std::round(center.y()), std::round(center.z())};
                half = {std::round(half.x()), std::round(half.y()), std::round(half.z())};
            }
            boxes.emplace_back(center - half, center + half);
        }
        const QMatrix4x4 voxelFromWorld = worldFromVoxel.inverted();
        const std::vector<int> values = sampleBoxes(*image, boxes, voxelFromWorld);
        ASSERT_EQ(values, plainLoop(*image, boxes, voxelFromWorld)) << "run " << run;
        sampled += values.size();
    }
    EXPECT_GT(sampled, 400000U);
}

TEST(BoxSampling, HasTheValuesOfThePlainLoopForShearedFlattenedAndProjectiveMaps)
{
    const auto image = numbered({12, 10, 8});
    const std::vector<BoundingBox> boxes{BoundingBox(1.0F, 1.0F, 1.0F, 6.0F, 7.0F, 5.0F),
                                         BoundingBox(-20.0F, -20.0F, -20.0F, 20.0F, 20.0F, 20.0F)};
    const QMatrix4x4 sheared(1.0F, 0.5F, 0.0F, 0.0F, 0.0F, 1.0F, 0.25F, 0.0F, 0.1F, 0.0F, 1.0F,
                             0.0F, 0.0F, 0.0F, 0.0F, 1.0F);
    const QMatrix4x4 flattened(1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F,
                               3.0F, 0.0F, 0.0F, 0.0F, 1.0F);
    const QMatrix4x4 nearlyFlat(1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F, 1.0F, 0.0F, 0.0F, 1.0F,
                                1.0000001F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F);
    const QMatrix4x4 projective(1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F,
                                0.0F, 0.02F, 0.01F, 0.0F, 1.0F);
    for (const QMatrix4x4& matrix : {sheared, flattened, nearlyFlat, projective})
        EXPECT_EQ(sampleBoxes(*image, boxes, matrix), plainLoop(*image, boxes, matrix));
    EXPECT_FALSE(sampleBoxes(*image, boxes, projective).empty());
}

TEST(BoxSampling, ReservesNoMoreThanAFewVoxelsARow)
{
    const auto image = numbered({100, 100, 100});
    QMatrix4x4 voxelFromBoxes;
    voxelFromBoxes.translate(50.0F, 50.0F, 50.0F);
    voxelFromBoxes.rotate(35.0F, 1.0F, 2.0F, 3.0F);
    const std::vector<BoundingBox> boxes(60,
                                         BoundingBox(-12.0F, -12.0F, -12.0F, 12.0F, 12.0F, 12.0F));
    const std::vector<int> values = sampleBoxes(*image, boxes, voxelFromBoxes);
    EXPECT_GT(values.size(), 60U * 13000U);
    EXPECT_LT(values.capacity() - values.size(), (std::size_t(1) << 20U) / sizeof(int));
}

// Element types

TEST(BoxSampling, WidensTheThreeElementTypesOfScanners)
{
    const BoundingBox all(0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F);
    const QVector3D spacing(1.0F, 1.0F, 1.0F);
    const auto ends = [](int lower, int upper) {
        return [=](int x, int, int) { return x == 0 ? lower : upper; };
    };
    EXPECT_THAT(sampleBoxes(*test::makeImage<std::uint16_t>({2, 1, 1}, spacing, image::UInt16,
                                                            ends(0, 65535)),
                            {all}, {}),
                ElementsAre(0, 65535));
    EXPECT_THAT(sampleBoxes(*test::makeImage<std::int16_t>({2, 1, 1}, spacing, image::Int16,
                                                           ends(-32768, 32767)),
                            {all}, {}),
                ElementsAre(-32768, 32767));
    EXPECT_THAT(
        sampleBoxes(*test::makeImage<std::uint8_t>({2, 1, 1}, spacing, image::UInt8, ends(0, 255)),
                    {all}, {}),
        ElementsAre(0, 255));
}

TEST(BoxSampling, WarnsOncePerBoxOfTypesThreeToSixByDesign)
{
    const QString text =
        QStringLiteral("TissueEstimationHistogramCreator : not implemented for this data type.");
    const BoundingBox box(0.0F, 0.0F, 0.0F, 1.0F, 1.0F, 1.0F);
    for (const int type : {3, 4, 5, 6}) {
        const VexelImage3D image({2, 2, 2}, {1.0F, 1.0F, 1.0F}, image::DataType(type));
        const test::WarningLog log;
        EXPECT_THAT(sampleBoxes(image, {box, box, box}, {}), IsEmpty()) << type;
        EXPECT_EQ(log.texts(), QStringList({text, text, text})) << type;
    }
}

TEST(BoxSampling, IsSilentFromTypeSevenOnByDesign)
{
    const VexelImage3D image({2, 2, 2}, {1.0F, 1.0F, 1.0F}, image::Float64);
    const test::WarningLog log;
    EXPECT_THAT(sampleBoxes(image, {BoundingBox(0.0F, 0.0F, 0.0F, 1.0F, 1.0F, 1.0F)}, {}),
                IsEmpty());
    EXPECT_TRUE(log.texts().isEmpty());
}

// Bad input

TEST(BoxSampling, IsEmptyForAnImageWithoutVoxels)
{
    EXPECT_THAT(sampleBoxes(VexelImage3D(), {BoundingBox(0.0F, 0.0F, 0.0F, 1.0F, 1.0F, 1.0F)}, {}),
                IsEmpty());
    EXPECT_THAT(sampleBoxes(*numbered({2, 2, 2}), {}, {}), IsEmpty());
}

TEST(BoxSampling, TakesBoxesBeyondTheRangeOfIntForWhatTheyHoldOfTheImage)
{
    const auto image = numbered({2, 2, 1});
    for (const float far : {1e10F, 3e38F}) {
        EXPECT_THAT(sampleBoxes(*image, {BoundingBox(-far, -far, -far, far, far, far)}, {}),
                    ElementsAre(0, 1, 10, 11))
            << far;
        EXPECT_THAT(sampleBoxes(*image, {BoundingBox(far, far, far, far, far, far)}, {}), IsEmpty())
            << far;
    }
}

TEST(BoxSampling, NeverReadsOutsideForBoundsAndMapsThatAreNotFinite)
{
    const auto image = numbered({4, 4, 4});
    for (const float odd : {kNan, kInfinity, -kInfinity}) {
        for (const int bound : {0, 1, 2, 3, 4, 5}) {
            float bounds[] = {0.0F, 0.0F, 0.0F, 3.0F, 3.0F, 3.0F};
            bounds[bound] = odd;
            const BoundingBox box(bounds[0], bounds[1], bounds[2], bounds[3], bounds[4], bounds[5]);
            EXPECT_LE(sampleBoxes(*image, {box}, {}).size(), 64U);
            if (std::isnan(odd)) {
                EXPECT_THAT(sampleBoxes(*image, {box}, {}), IsEmpty());
            }
        }
        for (int element = 0; element < 16; ++element) {
            QMatrix4x4 matrix;
            matrix.data()[element] = odd;
            EXPECT_LE(sampleBoxes(*image, {BoundingBox(0.0F, 0.0F, 0.0F, 3.0F, 3.0F, 3.0F)}, matrix)
                          .size(),
                      64U);
        }
    }
}

TEST(BoxSampling, LeavesOutTheBoxesBeyondItsBound)
{
    // A box of 512 * 512 * 256 voxels holds 2^26: with 256 more, a second one would bring it beyond
    // 2^27.
    const VexelImage3D image({512, 512, 256}, {1.0F, 1.0F, 1.0F}, image::UInt8);
    ASSERT_FALSE(image.isEmpty());
    const BoundingBox all(-1.0F, -1.0F, -1.0F, 600.0F, 600.0F, 600.0F);
    const BoundingBox few(0.0F, 0.0F, 0.0F, 255.0F, 0.5F, 0.5F);
    EXPECT_EQ(sampleBoxes(image, {all, few, all, few}, {}).size(), std::size_t(1U << 26U) + 512U);
}

} // namespace
