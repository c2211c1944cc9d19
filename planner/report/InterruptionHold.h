// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

namespace planner {

/// Holds SIGINT, SIGTERM and SIGHUP back for as long as it exists, so that no signal ends the
/// process while files are half written. A signal that arrives meanwhile, in whatever thread, takes
/// effect when the last hold is gone, and then ends the process as it would have at once. Signals
/// that the process was started to ignore remain ignored.
///
/// Long work checks isRequested() and gives up, removing what it has begun.
class InterruptionHold
{
public:
    InterruptionHold();
    ~InterruptionHold();
    InterruptionHold(const InterruptionHold&) = delete;
    InterruptionHold& operator=(const InterruptionHold&) = delete;

    /// Returns whether a signal has arrived that is being held back.
    static bool isRequested();
};

} // namespace planner
