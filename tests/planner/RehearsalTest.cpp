// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/Rehearsal.h>

// Covered: rehearse() and allowMemory(): what becomes of work that succeeds, refuses, crashes or
// takes too much memory.

#include <planner/input/Failure.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

using planner::Failure;

namespace {

std::string outcome(const std::function<void()>& work)
{
    try {
        planner::rehearse(work, Failure(QStringLiteral("otherwise")));
    } catch (const Failure& failure) {
        return failure.what();
    }
    return "success";
}

TEST(Rehearsal, LeavesThisProcessUnchanged)
{
    int number = 1;
    EXPECT_EQ(outcome([&number] { number = 2; }), "success");
    EXPECT_EQ(number, 1);
}

TEST(Rehearsal, PassesOnWhyTheWorkWasRefused)
{
    EXPECT_EQ(outcome([] { throw Failure(QStringLiteral("Zähne: keine")); }), "Zähne: keine");
    const std::string longSentence(100'000, 'x');
    EXPECT_EQ(outcome([&longSentence] { throw Failure(QString::fromStdString(longSentence)); }),
              longSentence);
}

TEST(Rehearsal, SurvivesWorkThatEndsTheProcessOrThrows)
{
    EXPECT_EQ(outcome([] { std::abort(); }), "otherwise");
    EXPECT_EQ(outcome([] { throw std::runtime_error("map::at"); }), "otherwise");
    EXPECT_EQ(outcome([] { std::_Exit(1); }), "otherwise");
    EXPECT_EQ(outcome([] { std::_Exit(0x20); }), "otherwise");
}

TEST(Rehearsal, LimitsTheMemoryOfTheWorkAlone)
{
    const auto fill = [](std::size_t bytes) {
        std::vector<char> memory(bytes, 'x');
        std::fputc(memory[bytes / 2], stderr);
    };
    EXPECT_EQ(outcome([&] {
                  planner::allowMemory(50'000'000);
                  fill(40'000'000);
              }),
              "success");
    EXPECT_EQ(outcome([&] {
                  planner::allowMemory(50'000'000);
                  fill(60'000'000);
              }),
              "otherwise");
    EXPECT_EQ(outcome([&] {
                  planner::allowMemory(50'000'000);
                  planner::allowMemory(80'000'000);
                  fill(60'000'000);
              }),
              "success");
    planner::allowMemory(1);
    const std::vector<char> here(60'000'000, 'x');
    EXPECT_EQ(here.back(), 'x');
}

TEST(Rehearsal, WritesNothingToTheTerminal)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(outcome([] { std::fputs("GDCM complains\n", stderr); }), "success");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
