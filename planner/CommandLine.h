// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace planner {

/// What the user asked for.
struct Options
{
    QString ctPath;        ///< a file or a folder with a DICOM series; empty: the built-in patient
    QString landmarksPath; ///< empty: a landmarks.json beside the CT, if there is one
    QString reportFolder;  ///< where the report goes
    float voxelSizeMm = 0.5F; ///< of the built-in patient
    /// Which of several DICOM series, by its number in the list of them or by its UID; empty: the
    /// only one.
    QString series = {};
};

/// Reads the arguments. Nothing if they asked for the help or the version, which then has been
/// printed; Failure for arguments that cannot be understood.
std::optional<Options> parseCommandLine(int argumentCount, const char* const* arguments);

} // namespace planner
