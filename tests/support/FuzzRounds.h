// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace test {

/// Returns how often a random comparison repeats its rounds: COREALGORITHMS_FUZZ_ROUNDS if that
/// environment variable is a positive number, else 1.
inline int fuzzRounds()
{
    bool given = false;
    const int number = qEnvironmentVariableIntValue("COREALGORITHMS_FUZZ_ROUNDS", &given);
    return given && number > 0 ? number : 1;
}

} // namespace test
