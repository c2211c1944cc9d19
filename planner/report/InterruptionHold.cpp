// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/InterruptionHold.h>

#include <atomic>

#include <signal.h> // NOLINT(modernize-deprecated-headers): POSIX

namespace planner {

namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

// Both are read and written in the order in which the code says it: either the handler sees that no
// hold is left, or the destructor of the last hold sees the signal.
std::atomic<int> holds = 0;
std::atomic<int> requested = 0; // the signal's number; 0: none
static_assert(std::atomic<int>::is_always_lock_free, "only such may be used in a signal handler");

void endBy(int number)
{
    signal(number, SIG_DFL);
    raise(number);
}

extern "C" void receive(int number)
{
    requested = number;
    if (holds == 0)
        endBy(number); // takes effect when this handler returns
}

bool installHandlers()
{
    for (const int number : kSignals) {
        struct sigaction action = {};
        if (sigaction(number, nullptr, &action) != 0 || action.sa_handler != SIG_DFL)
            continue;
        action.sa_handler = receive;
        sigemptyset(&action.sa_mask);
        action.sa_flags = SA_RESTART;
        sigaction(number, &action, nullptr);
    }
    return true;
}

} // namespace

InterruptionHold::InterruptionHold()
{
    ++holds;
    [[maybe_unused]] static const bool installed = installHandlers();
}

InterruptionHold::~InterruptionHold()
{
    if (--holds == 0 && requested != 0)
        endBy(requested);
}

bool InterruptionHold::isRequested()
{
    return requested != 0;
}

} // namespace planner
