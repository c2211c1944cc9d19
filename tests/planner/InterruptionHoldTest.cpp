// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/InterruptionHold.h>

// Covered: InterruptionHold: when a signal ends the process, with and without holds, from any
// thread. Each case runs in a child process.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <thread>

#include <signal.h> // NOLINT(modernize-deprecated-headers): POSIX

using planner::InterruptionHold;

namespace {

void say(const char* word)
{
    std::fputs(word, stderr);
}

void raiseWithinTwoHolds(int number)
{
    {
        const InterruptionHold outer;
        {
            const InterruptionHold inner;
            raise(number);
            say("inner ");
        }
        say(InterruptionHold::isRequested() ? "requested " : "not requested ");
    }
    say("after");
}

TEST(InterruptionHold, LetsASignalEndTheProcessWhenTheLastHoldIsGone)
{
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        EXPECT_EXIT(raiseWithinTwoHolds(number), testing::KilledBySignal(number),
                    "^inner requested $");
}

void raiseAfterAHold(int number)
{
    {
        const InterruptionHold hold;
        say(InterruptionHold::isRequested() ? "requested" : "held");
    }
    raise(number);
    say("after");
}

TEST(InterruptionHold, LetsASignalEndTheProcessAtOnceWithoutAHold)
{
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        EXPECT_EXIT(raiseAfterAHold(number), testing::KilledBySignal(number), "^held$");
}

void raiseInAnotherThread(int number)
{
    const InterruptionHold hold;
    std::thread([number] { raise(number); }).join();
    say("held");
}

TEST(InterruptionHold, HoldsSignalsOfOtherThreadsBack)
{
    EXPECT_EXIT(raiseInAnotherThread(SIGTERM), testing::KilledBySignal(SIGTERM), "^held$");
}

void raiseIgnored(int number)
{
    signal(number, SIG_IGN);
    {
        const InterruptionHold hold;
        raise(number);
        say(InterruptionHold::isRequested() ? "requested" : "ignored");
    }
    std::exit(0);
}

TEST(InterruptionHold, LeavesSignalsIgnoredThatWereIgnoredBefore)
{
    EXPECT_EXIT(raiseIgnored(SIGHUP), testing::ExitedWithCode(0), "^ignored$");
}

} // namespace
