// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Progress.h>

#include <cstdio>
#include <memory>

namespace test {

/// The stream of a SilentProgress: opened before the progress is made, closed after it is gone.
class UnreadStream
{
protected:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> unread{std::tmpfile(), std::fclose};
};

/// A Progress whose lines nobody reads.
class SilentProgress : private UnreadStream, public planner::Progress
{
public:
    SilentProgress() : Progress(unread.get(), false) {}
};

} // namespace test
