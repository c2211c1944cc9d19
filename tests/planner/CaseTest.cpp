// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/Case.h>

// Covered: openCase() with the built-in patient: its landmarks and its frame; with a landmark file:
// what it warns of.

#include <planner/CommandLine.h>
#include <planner/input/Failure.h>
#include <tests/planner/NiftiFiles.h>
#include <tests/planner/SilentProgress.h>

#include <phantom/Phantom.h>

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <algorithm>

using planner::Landmark;
using planner::LandmarkKind;

namespace {

constexpr float kVoxelSizeMm = 4.0F;

planner::Case opened(const planner::CaseFiles& files)
{
    test::SilentProgress progress;
    return planner::openCase(files, progress);
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

// A NIfTI of 2 by 2 by 2 voxels and a landmark file.
class OpenedCase : public testing::Test
{
protected:
    planner::Case openWith(const QByteArray& landmarks) const
    {
        const QString ct = folder.filePath(QStringLiteral("ct.nii"));
        const QString file = folder.filePath(QStringLiteral("l.json"));
        EXPECT_TRUE(niftifiles::writeBytes(ct, niftifiles::bytesOf(niftifiles::countingVolume())));
        EXPECT_TRUE(niftifiles::writeBytes(file, landmarks));
        return opened({ct, file, {}, kVoxelSizeMm});
    }

private:
    QTemporaryDir folder;
};

TEST_F(OpenedCase, HasNoWarningForLandmarksInTheVolume)
{
    const planner::Case planned = openWith(R"({"mentalForamen": {"right": {"voxel": [1, 1, 1]}}})");
    EXPECT_EQ(planned.landmarks.size(), 1);
    EXPECT_TRUE(planned.warnings.isEmpty());
}

TEST_F(OpenedCase, WarnsOfLandmarksOutsideTheVolume)
{
    const planner::Case planned = openWith(
        R"({"mentalForamen": {"right": {"voxel": [1, 1, 1]}},
            "lowerTeeth": {"36": {"voxel": [1, 1, 9]}}})");
    EXPECT_EQ(planned.landmarks.size(), 2);
    ASSERT_EQ(planned.warnings.size(), 1);
    EXPECT_TRUE(planned.warnings.first().startsWith(
        QStringLiteral("1 of the 2 landmarks are outside the volume, the first is \"tooth 36\"")));
}

TEST_F(OpenedCase, LeavesLandmarksAndCanalsOutThatAreFarOutsideTheVolume)
{
    const planner::Case planned = openWith(R"({"mentalForamen": {"right": {"voxel": [1, 1, 1]}},
        "lowerTeeth": {"36": {"voxel": [1, 1, 50000]}},
        "canal": {"right": {"points": [{"voxel": [1, 1, 1]}, {"voxel": [1, 1, 0]}]},
                  "left": {"points": [{"voxel": [1, 1, 50000]}, {"voxel": [1, 1, 50001]}]}}})");
    EXPECT_EQ(planned.landmarks.size(), 1);
    ASSERT_EQ(planned.canals.size(), 1);
    EXPECT_TRUE(planned.canals.first().right);
    ASSERT_EQ(planned.warnings.size(), 2);
    EXPECT_TRUE(planned.warnings.last().startsWith(
        QStringLiteral("2 landmarks or canals are more than 100 mm outside the volume")));
}

TEST_F(OpenedCase, CarriesTheWarningsOfItsLandmarkFile)
{
    const planner::Case planned = openWith(
        R"({"mentalForamen": {"right": {"voxel": [1, 1, 1]}},
            "lowerTeeth": {"99": {"voxel": [1, 1, 1]}}})");
    ASSERT_EQ(planned.warnings.size(), 1);
    EXPECT_TRUE(planned.warnings.first().startsWith(QStringLiteral("There is no tooth \"99\"")));
}

TEST(OpenCase, RefusesAFileThatIsNotThere)
{
    EXPECT_THROW(opened({QStringLiteral("/nowhere/ct.nii"), {}, {}, kVoxelSizeMm}),
                 planner::Failure);
}

} // namespace
