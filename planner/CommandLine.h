// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>

#include <QString>

#include <optional>

namespace planner {

/// Holds what the user requests.
struct Options
{
    CaseFiles files;
    QString reportFolder;
};

/// Reads the arguments. Returns nothing if they ask for the help or the version, and prints that.
/// Throws Failure for arguments that cannot be understood.
std::optional<Options> parseCommandLine(int argumentCount, const char* const* arguments);

} // namespace planner
