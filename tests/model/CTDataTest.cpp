// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/CTData.h>

// Landmarks, image volumes and CT data: values of new ones, extents, selection by type,
// notification.

#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

using dataobject::LandmarkAnnotation;

static_assert(CTData::OcclusalPlaneAtCenter == 0);
static_assert(VolumeContext == 0, "the frame whose positions the library uses");

std::shared_ptr<ImageVolume> volumeOf(const math::Ivec3& size, const QVector3D& spacing)
{
    auto volume = std::make_shared<ImageVolume>();
    volume->setImage(VexelImage3D(size, spacing, image::Int16));
    return volume;
}

TEST(LandmarkAnnotation, HasATypeAndNoPositionAtFirst)
{
    const LandmarkAnnotation landmark(landmarkDetection::Nasion);
    EXPECT_EQ(landmark.getType(), 14);
    EXPECT_FALSE(landmark.getPosition(VolumeContext));
}

TEST(LandmarkAnnotation, HasAPositionInEachContextByItself)
{
    LandmarkAnnotation landmark(landmarkDetection::Sella);
    landmark.setPosition(VolumeContext, {1.0F, 2.0F, 3.0F});
    EXPECT_EQ(landmark.getPosition(VolumeContext).value(), QVector3D(1.0F, 2.0F, 3.0F));
    EXPECT_FALSE(landmark.getPosition(NaturalHeadPositionContext));
    landmark.setPosition(NaturalHeadPositionContext, {4.0F, 5.0F, 6.0F});
    landmark.clearPosition(VolumeContext);
    EXPECT_FALSE(landmark.getPosition(VolumeContext));
    EXPECT_EQ(landmark.getPosition(NaturalHeadPositionContext).value(),
              QVector3D(4.0F, 5.0F, 6.0F));
}

TEST(ImageVolume, HasAnImageWithoutVoxelsUntilOneIsSet)
{
    ImageVolume volume;
    EXPECT_TRUE(volume.getImage().isEmpty());
    volume.setImage(VexelImage3D({2, 3, 4}, {1.0F, 1.0F, 1.0F}, image::UInt8));
    EXPECT_EQ(volume.getImage().imageSize(), (math::Ivec3{2, 3, 4}));
    volume.setImage(nullptr);
    EXPECT_TRUE(volume.getImage().isEmpty());
}

TEST(ImageVolume, SharesItsImage)
{
    const auto image = std::make_shared<const VexelImage3D>(
        math::Ivec3{2, 2, 2}, QVector3D(1.0F, 1.0F, 1.0F), image::UInt8);
    ImageVolume volume;
    volume.setImage(image);
    EXPECT_EQ(&volume.getImage(), image.get());
}

TEST(CTData, StartsWithoutVolumeLandmarksAndExtent)
{
    const CTData ct;
    EXPECT_EQ(ct.getImageVolume(), nullptr);
    EXPECT_TRUE(ct.getLandmarkAnnotations({}).empty());
    EXPECT_TRUE(ct.getBoundingBox().isNull());
    EXPECT_TRUE(ct.getTotalResampleTransformedBoundingBox().isNull());
    EXPECT_EQ(ct.getTotalResampleNHPTransformation(), QMatrix4x4());
    EXPECT_EQ(ct.getOcclusalPlaneDefinition(), CTData::OcclusalPlaneAtCenter);
}

TEST(CTData, ReachesHalfAVoxelBeyondTheOutermostCenters)
{
    CTData ct;
    ct.setImageVolume(volumeOf({100, 80, 60}, {0.5F, 0.25F, 2.0F}));
    EXPECT_EQ(ct.getBoundingBox(),
              primitives::BoundingBox(-0.25F, -0.125F, -1.0F, 49.75F, 19.875F, 119.0F));
    ct.setImageVolume(std::make_shared<ImageVolume>());
    EXPECT_TRUE(ct.getBoundingBox().isNull());
}

TEST(CTData, HasItsExtentInNaturalHeadPositionToo)
{
    CTData ct;
    ct.setImageVolume(volumeOf({10, 20, 30}, {1.0F, 1.0F, 1.0F}));
    ct.setTotalResampleNHPTransformation(QMatrix4x4(0.0F, -1.0F, 0.0F, 5.0F, 1.0F, 0.0F, 0.0F, 0.0F,
                                                    0.0F, 0.0F, 1.0F, 7.0F, 0.0F, 0.0F, 0.0F,
                                                    1.0F));
    EXPECT_EQ(ct.getTotalResampleTransformedBoundingBox(),
              primitives::BoundingBox(-14.5F, -0.5F, 6.5F, 5.5F, 9.5F, 36.5F));
}

TEST(CTData, SelectsLandmarksByTypeInTheOrderInWhichTheyWereAdded)
{
    CTData ct;
    const auto first = std::make_shared<LandmarkAnnotation>(landmarkDetection::Pogonion);
    const auto second = std::make_shared<LandmarkAnnotation>(landmarkDetection::Nasion);
    const auto third = std::make_shared<LandmarkAnnotation>(landmarkDetection::Pogonion);
    for (const auto& landmark : {first, second, third})
        ct.addLandmarkAnnotation(landmark);
    ct.addLandmarkAnnotation(nullptr);
    using Landmarks = std::vector<std::shared_ptr<LandmarkAnnotation>>;
    EXPECT_EQ(ct.getLandmarkAnnotations({}), Landmarks({first, second, third}));
    EXPECT_EQ(ct.getLandmarkAnnotations({landmarkDetection::Pogonion}), Landmarks({first, third}));
    EXPECT_TRUE(ct.getLandmarkAnnotations({landmarkDetection::Sella}).empty());
}

TEST(CTData, IsKnownToTheReslicesThatCutIt)
{
    const auto ct = std::make_shared<CTData>();
    PlanarReslice reslice;
    EXPECT_EQ(reslice.getCTData(), nullptr);
    reslice.setCTData(ct);
    EXPECT_EQ(reslice.getCTData(), ct);
}

TEST(CTData, EverySetterNotifiesOnce)
{
    CTData ct;
    ImageVolume volume;
    LandmarkAnnotation landmark(landmarkDetection::Nasion);
    PlanarReslice reslice;
    const struct
    {
        const char* name;
        DataObject* object;
        std::function<void()> set;
    } setters[] = {
        {"setImageVolume", &ct, [&] { ct.setImageVolume(nullptr); }},
        {"setTotalResampleNHPTransformation", &ct,
         [&] { ct.setTotalResampleNHPTransformation({}); }},
        {"addLandmarkAnnotation", &ct,
         [&] {
             ct.addLandmarkAnnotation(
                 std::make_shared<LandmarkAnnotation>(landmarkDetection::Nasion));
         }},
        {"setOcclusalPlaneDefinition", &ct,
         [&] { ct.setOcclusalPlaneDefinition(CTData::OcclusalPlaneBelowCenter); }},
        {"setImage", &volume, [&] { volume.setImage(nullptr); }},
        {"setImage of a value", &volume, [&] { volume.setImage(VexelImage3D()); }},
        {"setPosition", &landmark, [&] { landmark.setPosition(VolumeContext, {}); }},
        {"clearPosition", &landmark, [&] { landmark.clearPosition(VolumeContext); }},
        {"setCTData", &reslice, [&] { reslice.setCTData(nullptr); }},
    };
    for (const auto& setter : setters) {
        test::ChangeCounter counter;
        setter.object->attach(&counter);
        setter.set();
        EXPECT_EQ(counter.changes, 1) << setter.name;
    }
    EXPECT_EQ(ct.getOcclusalPlaneDefinition(), CTData::OcclusalPlaneBelowCenter);
}

} // namespace
