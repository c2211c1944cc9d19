// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT

// Lets SIGINT, SIGTERM and SIGHUP end the tests and the programs that they start, also if the tests
// themselves were started with these signals ignored, as in the background of a script: several
// tests send them.

#include <gtest/gtest.h>

#include <signal.h> // NOLINT(modernize-deprecated-headers): POSIX

namespace {

class SignalEnvironment : public testing::Environment
{
    void SetUp() override
    {
        for (const int number : {SIGINT, SIGTERM, SIGHUP})
            signal(number, SIG_DFL);
    }
};

const testing::Environment* const kAdded = testing::AddGlobalTestEnvironment(new SignalEnvironment);

} // namespace
