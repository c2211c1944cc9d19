// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/GreyRegions.h>

// Covered: a case as the estimation of tissues sees it, the boxes that are drawn, other scanners.

#include <phantom/Phantom.h>

#include <tests/support/GreyValueAccess.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

using planner::Case;
using planner::GreyScan;
using planner::LandmarkKind;

// 40 mm along each axis; the world is turned by half a turn about z and moved.
Case turned()
{
    Case planned;
    planned.volume.image = VexelImage3D({20, 20, 40}, {2, 2, 1}, image::Int16);
    planned.volume.worldFromVoxel =
        QMatrix4x4(-2, 0, 0, 100, 0, -2, 0, 200, 0, 0, 1, 300, 0, 0, 0, 1);
    planned.landmarks = {
        {QStringLiteral("tooth 46"), QStringLiteral("46"), LandmarkKind::Tooth, {80, 180, 320}},
        {QStringLiteral("apex 46"), QStringLiteral("46"), LandmarkKind::Apex, {80, 180, 300}},
        {QStringLiteral("foramen"), {}, LandmarkKind::Foramen, {80, 180, 300}}};
    return planned;
}

Case builtIn()
{
    phantom::Settings settings;
    settings.voxelSizeMm = 4.0F;
    Case planned;
    const auto patient = std::make_shared<const phantom::Patient>(settings);
    planned.volume.image = patient->createVolume();
    planned.volume.worldFromVoxel.scale(4.0F);
    planned.landmarks = planner::landmarksOf(*patient);
    planned.patient = patient;
    return planned;
}

TEST(GreyScan, LendsTheVoxelsAndKnowsTheTeethByTheirNumbers)
{
    const Case planned = turned();
    const GreyScan scan = planner::scanOf(planned);
    EXPECT_EQ(&scan.ct->getImageVolume()->getImage(), &planned.volume.image);
    ASSERT_EQ(scan.teeth.size(), 1U);
    EXPECT_EQ(scan.teeth[0].first, 30) << "46 in Universal numbering";
    EXPECT_EQ(scan.teeth[0].second, QVector3D(80, 180, 320));
    EXPECT_TRUE(scan.ct->getLandmarkAnnotations({}).empty());
}

TEST(GreyScan, GoesFromMillimetersOfTheVolumeToTheWorld)
{
    const GreyScan scan = planner::scanOf(turned());
    EXPECT_EQ(scan.worldFromVolume.map(QVector3D(10, 20, 30)), QVector3D(90, 180, 330));
    EXPECT_EQ(scan.ct->getTotalResampleNHPTransformation(), scan.worldFromVolume);
}

TEST(GreyScan, OfTheBuiltInPatientHasItsLandmarksAndTeeth)
{
    const Case planned = builtIn();
    const GreyScan scan = planner::scanOf(planned);
    EXPECT_EQ(scan.ct->getLandmarkAnnotations({}).size(), 5U);
    EXPECT_EQ(scan.teeth.size(), 28U);
}

TEST(GreyScan, WithOtherVoxelsKeepsThePlaceAndTheLandmarksIfAsked)
{
    const Case planned = builtIn();
    const GreyScan scan = planner::scanOf(planned);
    const auto other = planner::miscalibrated(planned.volume.image, 0.5F, 100.0F);
    const GreyScan with = planner::scanWith(scan, other, true);
    EXPECT_EQ(&with.ct->getImageVolume()->getImage(), other.get());
    EXPECT_EQ(with.ct->getLandmarkAnnotations({}).size(), 5U);
    EXPECT_TRUE(planner::scanWith(scan, other, false).ct->getLandmarkAnnotations({}).empty());
    EXPECT_EQ(with.teeth, scan.teeth);
}

TEST(GreyRegions, BoxesAreThoseOfTheLibrary)
{
    for (const Case& planned : {builtIn(), turned()}) {
        const GreyScan scan = planner::scanOf(planned);
        const TissueEstimationHistogramCreator creator(*scan.ct, scan.teeth, scan.worldFromVolume);
        for (int region = 0; region < 3; ++region) {
            const auto theirs = TissueEstimationHistogramCreatorTestAccess::boxes(
                creator, TissueEstimationHistogramCreator::EstimatedRegion(region));
            const auto ours = planner::boxesOf(scan, region);
            ASSERT_EQ(ours.size(), qsizetype(theirs.size())) << region;
            for (qsizetype i = 0; i < ours.size(); ++i) {
                const auto& other = theirs[std::size_t(i)];
                EXPECT_LT((ours[i].min() - other.min()).length(), 1e-4F) << region << " " << i;
                EXPECT_LT((ours[i].max() - other.max()).length(), 1e-4F) << region << " " << i;
            }
        }
    }
}

TEST(Miscalibrated, TakesGainAndOffsetRoundsAndStaysInSixteenBits)
{
    VexelImage3D image({5, 1, 1}, {1, 1, 1}, image::Int16);
    auto* voxels = static_cast<std::int16_t*>(image.dataPtr());
    const std::int16_t values[] = {-1000, 0, 1, 32767, -32768};
    std::copy(std::begin(values), std::end(values), voxels);
    const auto other = planner::miscalibrated(image, 1.5F, 300.0F);
    ASSERT_TRUE(other);
    EXPECT_EQ(other->value(0, 0, 0), -1200.0);
    EXPECT_EQ(other->value(1, 0, 0), 300.0);
    EXPECT_EQ(other->value(2, 0, 0), 302.0) << "301.5, away from zero";
    EXPECT_EQ(other->value(3, 0, 0), 32767.0);
    EXPECT_EQ(other->value(4, 0, 0), -32768.0);
}

TEST(Miscalibrated, IsNothingForOtherElementsAndWithoutVoxels)
{
    EXPECT_FALSE(
        planner::miscalibrated(VexelImage3D({2, 2, 2}, {1, 1, 1}, image::UInt8), 1.0F, 0.0F));
    EXPECT_FALSE(planner::miscalibrated(VexelImage3D(), 1.0F, 0.0F));
}

} // namespace
