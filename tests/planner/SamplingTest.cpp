// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/Sampling.h>

// Covered: Sampler, cutOut() and project(): trilinear values, the pixel rule, the faces of the
// volume.

#include <planner/drawing/GreyScale.h>
#include <planner/input/Failure.h>

#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

using planner::Sampler;
using planner::Volume;

namespace {

// Values 0, 1, 2 .. in the order of memory; voxels of 2 mm, the first at (10, 20, 30).
template <typename Element>
Volume countingVolume(const math::Ivec3& size, image::DataType type)
{
    Volume volume;
    volume.image = VexelImage3D(size, {2, 2, 2}, type);
    for (std::size_t i = 0; i < volume.image.voxelCount(); ++i)
        static_cast<Element*>(volume.image.dataPtr())[i] = static_cast<Element>(i);
    volume.worldFromVoxel.translate(10, 20, 30);
    volume.worldFromVoxel.scale(2);
    return volume;
}

TEST(Sampler, HasTheVoxelsValueAtItsCenter)
{
    const Volume volume = countingVolume<std::int16_t>({3, 4, 5}, image::Int16);
    const Sampler sampler(volume);
    EXPECT_EQ(sampler.valueAt({10, 20, 30}), 0.0);
    EXPECT_EQ(sampler.valueAt({12, 20, 30}), 1.0);
    EXPECT_EQ(sampler.valueAt({10, 22, 30}), 3.0);
    EXPECT_EQ(sampler.valueAt({10, 20, 32}), 12.0);
    EXPECT_EQ(sampler.valueAt({14, 26, 38}), 59.0);
}

TEST(Sampler, InterpolatesAlongAllThreeAxes)
{
    const Volume volume = countingVolume<std::int16_t>({3, 4, 5}, image::Int16);
    // A quarter, a half and three quarters of the way: 0.25 * 1 + 0.5 * 3 + 0.75 * 12.
    EXPECT_EQ(Sampler(volume).valueAt({10.5F, 21, 31.5F}), 10.75);
}

TEST(Sampler, InterpolatesEveryElementTypeAlike)
{
    const Volume volumes[] = {countingVolume<std::uint16_t>({2, 2, 2}, image::UInt16),
                              countingVolume<std::int16_t>({2, 2, 2}, image::Int16),
                              countingVolume<std::uint8_t>({2, 2, 2}, image::UInt8),
                              countingVolume<std::int8_t>({2, 2, 2}, image::Int8),
                              countingVolume<std::uint32_t>({2, 2, 2}, image::UInt32),
                              countingVolume<std::int32_t>({2, 2, 2}, image::Int32),
                              countingVolume<float>({2, 2, 2}, image::Float32),
                              countingVolume<double>({2, 2, 2}, image::Float64)};
    for (const Volume& volume : volumes)
        EXPECT_EQ(Sampler(volume).valueAt({11, 21, 31}), 3.5) << volume.image.dataType();
}

TEST(Sampler, KeepsTheBorderValueUpToTheFaceAndIsNoNumberBeyond)
{
    const Volume volume = countingVolume<std::int16_t>({3, 4, 5}, image::Int16);
    const Sampler sampler(volume);
    EXPECT_EQ(sampler.valueAt({9, 20, 30}), 0.0);
    EXPECT_EQ(sampler.valueAt({15, 26, 38}), 59.0);
    EXPECT_TRUE(std::isnan(sampler.valueAt({8.9F, 20, 30})));
    EXPECT_TRUE(std::isnan(sampler.valueAt({15.1F, 26, 38})));
    EXPECT_TRUE(std::isnan(sampler.valueAt({10, 20, 39.1F})));
    EXPECT_TRUE(std::isnan(sampler.valueAt({std::nanf(""), 20, 30})));
}

TEST(Sampler, FollowsATurnedVolume)
{
    Volume volume = countingVolume<std::int16_t>({3, 4, 5}, image::Int16);
    volume.worldFromVoxel =
        QMatrix4x4(0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1); // a quarter turn about z
    EXPECT_EQ(Sampler(volume).valueAt({-1, 2, 0}), 5.0);             // voxel (2, 1, 0)
}

TEST(Sampler, OfNoVolumeHasNoValues)
{
    const Volume volume;
    EXPECT_TRUE(std::isnan(Sampler(volume).valueAt({0, 0, 0})));
}

TEST(Sampler, HasTheValuesInTheMiddlesOfStepsAlongARayFromFaceToFace)
{
    const Volume volume = countingVolume<std::int16_t>({4, 3, 3}, image::Int16);
    std::vector<double> values;
    Sampler(volume).valuesAlongRay({-100, 1, 1}, {0.5, 0, 0}, values); // x faces at -0.5 and 3.5
    EXPECT_EQ(values, (std::vector<double>{16, 16.25, 16.75, 17.25, 17.75, 18.25, 18.75, 19}));
    Sampler(volume).valuesAlongRay({-100, 2.6, 1}, {0.5, 0, 0}, values);
    EXPECT_TRUE(values.empty()) << "the ray passes by";
}

TEST(Sampler, SkipsNoVoxelAlongARayUnlessThereAreTooManySteps)
{
    Volume volume;
    volume.image = VexelImage3D({500, 40, 40}, {2, 0.5F, 1}, image::UInt8);
    volume.worldFromVoxel.scale(2, 0.5F, 1);
    const Sampler sampler(volume);
    EXPECT_DOUBLE_EQ(sampler.rayStepMm({1, 0, 0}, 15'000), 0.5); // 2000 steps a ray
    EXPECT_DOUBLE_EQ(sampler.rayStepMm({1, 0, 0}, 30'000), 1.0);
    EXPECT_DOUBLE_EQ(sampler.rayStepMm({0, 1, 0}, 30'000), 0.5);
}

// Four voxels of 1 mm in a row along x, seen as 4 x 1 samples of 1 mm whose centers are those of
// the voxels.
struct RowOfVoxels
{
    RowOfVoxels()
    {
        volume.image = VexelImage3D({4, 2, 2}, {1, 1, 1}, image::UInt8);
        const std::uint8_t values[] = {0, 50, 100, 255};
        for (std::size_t i = 0; i < 16; ++i)
            static_cast<std::uint8_t*>(volume.image.dataPtr())[i] = values[i % 4];
        QMatrix4x4 matrix;
        matrix.setColumn(3, {-0.5F, -0.5F, 0.0F, 1.0F});
        reslice.setTransformationFromResliceToWorld(matrix);
        reslice.setDimensions({4, 1});
        reslice.setSampleSize({1, 1, 1});
    }

    Volume volume;
    PlanarReslice reslice;
};

TEST(CutOut, PutsVoxelsAtTheCentersOfPixels)
{
    const RowOfVoxels row;
    const QImage picture =
        planner::cutOut(Sampler(row.volume), planner::GreyScale(row.volume.image), row.reslice);
    ASSERT_EQ(picture.size(), QSize(4, 1));
    EXPECT_EQ(qGray(picture.pixel(0, 0)), 0);
    EXPECT_EQ(qGray(picture.pixel(1, 0)), 50);
    EXPECT_EQ(qGray(picture.pixel(2, 0)), 100);
    EXPECT_EQ(qGray(picture.pixel(3, 0)), 255);
}

TEST(CutOut, IsMirroredHorizontallyLikeTheReslice)
{
    RowOfVoxels row;
    row.reslice.setMirroredIn2D(true, false);
    const QImage picture =
        planner::cutOut(Sampler(row.volume), planner::GreyScale(row.volume.image), row.reslice);
    EXPECT_EQ(qGray(picture.pixel(0, 0)), 255);
    EXPECT_EQ(qGray(picture.pixel(3, 0)), 0);
}

TEST(CutOut, IsBlackOutsideTheVolume)
{
    RowOfVoxels row;
    row.reslice.setDimensions({5, 1});
    const QImage picture =
        planner::cutOut(Sampler(row.volume), planner::GreyScale(row.volume.image), row.reslice);
    EXPECT_EQ(qGray(picture.pixel(3, 0)), 255);
    EXPECT_EQ(qGray(picture.pixel(4, 0)), 0);
}

TEST(CutOut, HasTheLocalYAxisPointingUpUnlessMirrored)
{
    RowOfVoxels row;
    QMatrix4x4 matrix; // local y along the row of voxels
    matrix.setColumn(0, {0, 1, 0, 0});
    matrix.setColumn(1, {1, 0, 0, 0});
    matrix.setColumn(2, {0, 0, -1, 0});
    matrix.setColumn(3, {-0.5F, -0.5F, 0.0F, 1.0F});
    row.reslice.setTransformationFromResliceToWorld(matrix);
    row.reslice.setDimensions({1, 4});
    const planner::GreyScale scale(row.volume.image);
    EXPECT_EQ(qGray(planner::cutOut(Sampler(row.volume), scale, row.reslice).pixel(0, 0)), 255);
    row.reslice.setMirroredIn2D(false, true);
    EXPECT_EQ(qGray(planner::cutOut(Sampler(row.volume), scale, row.reslice).pixel(0, 0)), 0);
}

TEST(CutOut, RefusesMoreThan4096SamplesAlongASide)
{
    RowOfVoxels row;
    const planner::GreyScale scale(row.volume.image);
    row.reslice.setDimensions({4096, 1});
    EXPECT_EQ(planner::cutOut(Sampler(row.volume), scale, row.reslice).width(), 4096);
    row.reslice.setDimensions({4097, 1});
    EXPECT_THROW(planner::cutOut(Sampler(row.volume), scale, row.reslice), planner::Failure);
    row.reslice.setDimensions({1, 1e9});
    EXPECT_THROW(planner::cutOut(Sampler(row.volume), scale, row.reslice), planner::Failure);
}

TEST(Project, AddsUpAlongTheNormal)
{
    // 2 x 2 columns of 8 voxels along z: none, half of them and all of them dense, and none.
    Volume volume;
    volume.image = VexelImage3D({2, 2, 8}, {10, 10, 10}, image::UInt8);
    auto* values = static_cast<std::uint8_t*>(volume.image.dataPtr());
    for (std::size_t k = 0; k < 8; ++k) {
        values[k * 4 + 1] = k < 4 ? 1 : 0;
        values[k * 4 + 2] = 1;
    }
    volume.worldFromVoxel.scale(10);
    CephReslice reslice;
    QMatrix4x4 matrix;
    matrix.setColumn(3, {-5, -5, 40, 1});
    reslice.setTransformation(matrix);
    reslice.setDimensions({2, 2});
    reslice.setSampleSize({10, 10, 1});
    const QImage picture =
        planner::project(Sampler(volume), planner::GreyScale(volume.image), reslice);
    EXPECT_EQ(qGray(picture.pixel(0, 1)), 0); // local y grows upwards
    EXPECT_EQ(qGray(picture.pixel(1, 1)),
              255); // 40 mm: of the two dense pixels the lower rank is white
    EXPECT_EQ(qGray(picture.pixel(0, 0)), 255); // 80 mm
    EXPECT_EQ(qGray(picture.pixel(1, 0)), 0);
    reslice.setPointOfView(meta::FromLeft);
    const QImage fromLeft =
        planner::project(Sampler(volume), planner::GreyScale(volume.image), reslice);
    EXPECT_EQ(qGray(fromLeft.pixel(1, 0)), 255);
    EXPECT_EQ(qGray(fromLeft.pixel(0, 0)), 0);
}

} // namespace
