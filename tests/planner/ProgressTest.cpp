// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/Progress.h>

// Covered: Progress: what it prints on a terminal and elsewhere, and that a stream that fails is a
// failure.

#include <planner/input/Failure.h>

#include <gmock/gmock.h>

#include <array>
#include <string>

namespace {

class Progress : public testing::Test
{
protected:
    ~Progress() override { std::fclose(stream); }

    std::string printed() const
    {
        std::rewind(stream);
        std::array<char, 1000> text{};
        return {text.data(), std::fread(text.data(), 1, text.size(), stream)};
    }

    std::FILE* stream = std::tmpfile();
    planner::Progress onTerminal{stream, true};
    planner::Progress elsewhere{stream, false};
};

TEST_F(Progress, IsALineForEachStepOutsideATerminal)
{
    elsewhere.step(QStringLiteral("Reading"));
    elsewhere.fraction(0.5);
    elsewhere.step(QStringLiteral("Sampling"));
    elsewhere.finish();
    EXPECT_EQ(printed(), "Reading ...\nSampling ...\n");
}

TEST_F(Progress, IsAPercentageInPlaceOnATerminal)
{
    onTerminal.step(QStringLiteral("Reading"));
    onTerminal.fraction(0.5);
    EXPECT_EQ(printed(), "\r\x1b[KReading ...\r\x1b[KReading ... 50 %");
}

TEST_F(Progress, IsPrintedOnceForEachPercentage)
{
    onTerminal.step(QStringLiteral("Reading"));
    onTerminal.fraction(0.501);
    onTerminal.fraction(0.502);
    EXPECT_EQ(printed(), "\r\x1b[KReading ...\r\x1b[KReading ... 50 %");
}

TEST_F(Progress, StaysBetweenNothingAndAll)
{
    onTerminal.step(QStringLiteral("Reading"));
    onTerminal.fraction(-1.0);
    onTerminal.fraction(2.0);
    EXPECT_EQ(printed(), "\r\x1b[KReading ...\r\x1b[KReading ... 0 %\r\x1b[KReading ... 100 %");
}

TEST_F(Progress, TellsTheDurationOfAStepThatIsFinished)
{
    onTerminal.step(QStringLiteral("Reading"));
    onTerminal.finish();
    EXPECT_THAT(printed(), testing::MatchesRegex(".*Reading: [0-9]+\\.[0-9] s\n"));
}

TEST_F(Progress, FinishesAStepOnce)
{
    onTerminal.step(QStringLiteral("Reading"));
    onTerminal.finish();
    const std::string once = printed();
    onTerminal.finish();
    EXPECT_EQ(printed(), once);
}

TEST_F(Progress, IsNothingBeforeTheFirstStep)
{
    onTerminal.fraction(0.5);
    onTerminal.finish();
    EXPECT_EQ(printed(), "");
}

TEST_F(Progress, EndsTheStepBeforeItPrintsWhatWasFound)
{
    onTerminal.step(QStringLiteral("Reading"));
    onTerminal.print(QStringLiteral("7 teeth\n"));
    EXPECT_THAT(printed(), testing::MatchesRegex(".*Reading: [0-9]+\\.[0-9] s\n7 teeth\n"));
}

TEST(ProgressOnAFullDisk, IsAFailure)
{
    std::FILE* full = std::fopen("/dev/full", "w");
    ASSERT_TRUE(full);
    planner::Progress progress(full, false);
    EXPECT_THROW(progress.step(QStringLiteral("Reading")), planner::Failure);
    EXPECT_THROW(progress.print(QStringLiteral("7 teeth\n")), planner::Failure);
    std::fclose(full);
}

TEST_F(Progress, LeavesPlaceMarkersInANameAlone)
{
    onTerminal.step(QStringLiteral("Reading %1 %2.nii"));
    onTerminal.fraction(0.5);
    EXPECT_THAT(printed(), testing::EndsWith("Reading %1 %2.nii ... 50 %"));
}

TEST_F(Progress, LeavesPlaceMarkersInTheNameOfAFinishedStepAlone)
{
    onTerminal.step(QStringLiteral("Reading %1 %2.nii"));
    onTerminal.finish();
    EXPECT_THAT(printed(), testing::HasSubstr("Reading %1 %2.nii: "));
}

} // namespace
