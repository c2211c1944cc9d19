// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/CommandLine.h>

// Covered: parseCommandLine(): what the arguments say; how bad ones are refused is tested by runs of the
// program.

#include <planner/Failure.h>

#include <gmock/gmock.h>

#include <vector>

using planner::parseCommandLine;

namespace {

std::optional<planner::Options> parse(std::vector<const char*> arguments)
{
    arguments.insert(arguments.begin(), "planner");
    return parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TEST(CommandLine, WithAReportAloneAsksForTheBuiltInPatient)
{
    const auto options = parse({"--report", "out"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->reportFolder, QStringLiteral("out"));
    EXPECT_TRUE(options->ctPath.isEmpty());
    EXPECT_TRUE(options->landmarksPath.isEmpty());
    EXPECT_EQ(options->voxelSizeMm, 0.5F);
}

TEST(CommandLine, NamesCtAndLandmarks)
{
    const auto options = parse({"--ct", "ct.nii", "--landmarks", "l.json", "--report=out"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->ctPath, QStringLiteral("ct.nii"));
    EXPECT_EQ(options->landmarksPath, QStringLiteral("l.json"));
}

TEST(CommandLine, KeepsPathsWithSpacesAndUmlauts)
{
    const auto options = parse({"--report", "Köpfe und Kiefer"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->reportFolder, QStringLiteral("Köpfe und Kiefer"));
}

TEST(CommandLine, TakesAVoxelSizeForTheBuiltInPatientOnly)
{
    EXPECT_EQ(parse({"--report", "out", "--voxel-size", "2"})->voxelSizeMm, 2.0F);
    EXPECT_THROW(parse({"--report", "out", "--voxel-size", "2", "--ct", "ct.nii"}), planner::Failure);
}

TEST(CommandLine, RefusesInOneLine)
{
    try {
        parse({"--no\nsuch", "--option"});
        FAIL();
    } catch (const planner::Failure& failure) {
        EXPECT_THAT(failure.what(), testing::Not(testing::HasSubstr("\n")));
    }
}

TEST(CommandLine, AsksForNothingAfterTheHelp)
{
    testing::internal::CaptureStdout();
    EXPECT_FALSE(parse({"--help"}));
    EXPECT_THAT(testing::internal::GetCapturedStdout(), testing::HasSubstr("--report DIR"));
}

} // namespace
