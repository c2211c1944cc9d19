// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/CommandLine.h>

#include <planner/input/Failure.h>

#include <CLI/CLI.hpp>

#include <QFile>

#include <iostream>
#include <string>
#include <vector>

namespace planner {

namespace {

QString pathFrom(const std::string& argument)
{
    return QFile::decodeName(argument.c_str());
}

} // namespace

std::optional<Options> parseCommandLine(int argumentCount, const char* const* arguments)
{
    std::string ctPath;
    std::string landmarksPath;
    std::string reportFolder;
    std::string series;
    float voxelSizeMm = 0.5F;

    CLI::App app{"Cuts views out of a head CT, maps landmarks into them and back, and writes a "
                 "report with pictures.\n"
                 "Without --ct it works on a built-in patient that is painted from formulas. Not "
                 "for clinical use.",
                 "planner"};
    app.add_option(
           "--report", reportFolder,
           "Folder for the report, index.html and its pictures; made if it is not there (its "
           "parent "
           "folder must be). In a folder that is there already only files with the names of the "
           "report's own are replaced.")
        ->required()
        ->type_name("DIR");
    CLI::Option* ct = app.add_option("--ct", ctPath,
                                     "The CT: a NIfTI, MetaImage or NRRD file, a DICOM file with "
                                     "all slices, or a folder with the "
                                     "files of a DICOM series, in subfolders too")
                          ->type_name("FILE|DIR");
    app.add_option("--series", series,
                   "Which DICOM series, if there are several: its number in the list that is "
                   "printed without this "
                   "option, or its UID")
        ->type_name("NUMBER|UID")
        ->needs(ct);
    CLI::Option* landmarks = app.add_option("--landmarks", landmarksPath,
                                            "Landmarks of that CT as JSON; without this option a "
                                            "landmarks.json beside the CT is used "
                                            "if it is there")
                                 ->type_name("FILE")
                                 ->needs(ct);
    app.add_option("--voxel-size", voxelSizeMm,
                   "Voxel size of the built-in patient in mm, 0.2 to 4 (default 0.5)")
        ->type_name("MM")
        ->check(CLI::Range(0.2F, 4.0F))
        ->excludes(ct);
    app.set_version_flag("--version", std::string("planner ") + PLANNER_VERSION);

    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::Success& asked) {
        app.exit(asked); // prints the help or the version
        if (!std::cout.flush())
            throw Failure(QStringLiteral("Standard output cannot be written"));
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        // A mistyped option explains why another is missing, and not the other way around.
        const std::vector<std::string> unknown = app.remaining();
        if (!unknown.empty())
            throw Failure(
                QStringLiteral(
                    "There is no option or argument \"%1\" (planner --help lists the options)")
                    .arg(QString::fromLocal8Bit(unknown.front()).simplified()));
        throw Failure(QString::fromLocal8Bit(error.what()).simplified() +
                      QStringLiteral(" (planner --help lists the options)"));
    }
    if (reportFolder.empty())
        throw Failure(QStringLiteral("--report needs the name of a folder"));
    if (ct->count() > 0 && ctPath.empty())
        throw Failure(QStringLiteral("--ct needs the name of a file or a folder"));
    if (landmarks->count() > 0 && landmarksPath.empty())
        throw Failure(QStringLiteral("--landmarks needs the name of a file"));
    return Options{
        {pathFrom(ctPath), pathFrom(landmarksPath), QString::fromStdString(series), voxelSizeMm},
        pathFrom(reportFolder)};
}

} // namespace planner
