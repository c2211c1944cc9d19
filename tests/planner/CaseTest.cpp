// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/Case.h>

// Covered: openCase() with the built-in patient: its landmarks and its frame.

#include <planner/CommandLine.h>
#include <planner/Failure.h>
#include <tests/planner/SilentProgress.h>

#include <phantom/Phantom.h>

#include <gtest/gtest.h>

#include <algorithm>

using planner::Landmark;
using planner::LandmarkKind;

namespace {

constexpr float kVoxelSizeMm = 4.0F;

planner::Case opened(const planner::Options& options)
{
    test::SilentProgress progress;
    return planner::openCase(options, progress);
}

class BuiltInCase : public testing::Test
{
protected:
    auto count(LandmarkKind kind) const
    {
        return std::count_if(planned.landmarks.cbegin(), planned.landmarks.cend(),
                             [kind](const Landmark& landmark) { return landmark.kind == kind; });
    }

    const planner::Case planned = opened({{}, {}, {}, kVoxelSizeMm});
};

TEST_F(BuiltInCase, HasFourForaminaAndTwentyEightTeethWithApices)
{
    EXPECT_EQ(count(LandmarkKind::Foramen), 4);
    EXPECT_EQ(count(LandmarkKind::Tooth), 28);
    EXPECT_EQ(count(LandmarkKind::Apex), 28);
    EXPECT_EQ(planned.landmarks.size(), 60);
}

TEST_F(BuiltInCase, KnowsItsPatient)
{
    ASSERT_TRUE(planned.patient);
    EXPECT_EQ(planned.patient->rightCanal().mentalForamen,
              findLandmark(planned.landmarks, QStringLiteral("mental foramen, right"))->position);
}

TEST_F(BuiltInCase, HasForaminaByTheNamesThatViewsAskFor)
{
    for (const char16_t* name : {planner::kRightMandibularForamen, planner::kLeftMandibularForamen,
                                 planner::kRightMentalForamen, planner::kLeftMentalForamen})
        EXPECT_TRUE(planner::findLandmark(planned.landmarks, QString::fromUtf16(name)));
}

TEST_F(BuiltInCase, IsScaledByTheVoxelSizeFromTheFirstVoxel)
{
    EXPECT_EQ(planned.volume.worldFromVoxel.map(QVector3D(0, 0, 0)), QVector3D(0, 0, 0));
    EXPECT_EQ(planned.volume.worldFromVoxel.map(QVector3D(1, 2, 3)), QVector3D(4, 8, 12));
    EXPECT_TRUE(planned.volume.orientationKnown);
}

TEST_F(BuiltInCase, HasItsLandmarksWithinTheVolume)
{
    const QVector3D extent = phantom::Patient().extentMm();
    for (const Landmark& landmark : planned.landmarks) {
        for (int axis = 0; axis < 3; ++axis) {
            EXPECT_GT(landmark.position[axis], 0.0F) << landmark.name.toStdString();
            EXPECT_LT(landmark.position[axis], extent[axis]) << landmark.name.toStdString();
        }
    }
}

TEST_F(BuiltInCase, HasNothingToRemark)
{
    EXPECT_TRUE(planned.remarks.isEmpty());
}

TEST(OpenCase, RefusesAFileThatIsNotThere)
{
    EXPECT_THROW(opened({QStringLiteral("/nowhere/ct.nii"), {}, {}, kVoxelSizeMm}), planner::Failure);
}

} // namespace
