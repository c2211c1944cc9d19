// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/CommandLine.h>

// Covered: parseCommandLine(): what the arguments say; how bad ones are refused is tested by runs
// of the program.

#include <planner/input/Failure.h>

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
    EXPECT_TRUE(options->files.ctPath.isEmpty());
    EXPECT_TRUE(options->files.landmarksPath.isEmpty());
    EXPECT_EQ(options->files.voxelSizeMm, 0.5F);
}

TEST(CommandLine, NamesCtAndLandmarks)
{
    const auto options = parse({"--ct", "ct.nii", "--landmarks", "l.json", "--report=out"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->files.ctPath, QStringLiteral("ct.nii"));
    EXPECT_EQ(options->files.landmarksPath, QStringLiteral("l.json"));
}

TEST(CommandLine, TakesASeriesForACtOnly)
{
    EXPECT_EQ(parse({"--report", "out", "--ct", "disc", "--series", "2"})->files.series,
              QStringLiteral("2"));
    EXPECT_TRUE(parse({"--report", "out", "--ct", "disc"})->files.series.isEmpty());
    EXPECT_THROW(parse({"--report", "out", "--series", "2"}), planner::Failure);
}

TEST(CommandLine, KeepsPathsWithSpacesAndUmlauts)
{
    const auto options = parse({"--report", "Köpfe und Kiefer"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->reportFolder, QStringLiteral("Köpfe und Kiefer"));
}

TEST(CommandLine, TakesAVoxelSizeForTheBuiltInPatientOnly)
{
    EXPECT_EQ(parse({"--report", "out", "--voxel-size", "2"})->files.voxelSizeMm, 2.0F);
    EXPECT_THROW(parse({"--report", "out", "--voxel-size", "2", "--ct", "ct.nii"}),
                 planner::Failure);
}

std::string refusal(const std::vector<const char*>& arguments)
{
    try {
        parse(arguments);
    } catch (const planner::Failure& failure) {
        return failure.what();
    }
    return {};
}

TEST(CommandLine, RefusesInOneLine)
{
    EXPECT_THAT(
        refusal({"--no\nsuch", "--option"}),
        testing::AllOf(testing::HasSubstr("--no such"), testing::Not(testing::HasSubstr("\n"))));
}

TEST(CommandLine, NamesAnUnknownOptionBeforeAMissingOne)
{
    EXPECT_THAT(refusal({"--reprot", "out"}),
                testing::HasSubstr("no option or argument \"--reprot\""));
    EXPECT_THAT(refusal({"--report", "out", "--landmarks", "l.json", "--tc", "ct.nii"}),
                testing::HasSubstr("no option or argument \"--tc\""));
    EXPECT_THAT(refusal({}), testing::HasSubstr("--report is required"));
    EXPECT_THAT(refusal({"--report", "out", "--landmarks", "l.json"}), testing::HasSubstr("--ct"));
}

TEST(CommandLine, RefusesEmptyNames)
{
    EXPECT_THAT(refusal({"--report", ""}),
                testing::HasSubstr("--report needs the name of a folder"));
    EXPECT_THAT(refusal({"--report", "out", "--ct", ""}),
                testing::HasSubstr("--ct needs the name"));
    EXPECT_THAT(refusal({"--report", "out", "--ct", "ct.nii", "--landmarks", ""}),
                testing::HasSubstr("--landmarks needs the name of a file"));
}

TEST(CommandLine, AsksForNothingAfterTheHelp)
{
    testing::internal::CaptureStdout();
    EXPECT_FALSE(parse({"--help"}));
    EXPECT_THAT(testing::internal::GetCapturedStdout(), testing::HasSubstr("--report DIR"));
}

} // namespace
