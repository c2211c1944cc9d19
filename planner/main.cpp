// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/CommandLine.h>
#include <planner/input/Case.h>
#include <planner/input/Failure.h>
#include <planner/input/Progress.h>
#include <planner/report/Report.h>
#include <planner/report/Sections.h>

#include <QGuiApplication>
#include <QtGlobal>

#include <cstdio>
#include <exception>
#include <new>

#include <fcntl.h>
#include <signal.h> // NOLINT(modernize-deprecated-headers): POSIX
#include <unistd.h>

namespace {

constexpr int kCannotDo = 2; // exit status

// The order of the report.
constexpr planner::Section (*kSections[])(const planner::Case&, planner::Progress&) = {
    planner::createViewsSection,        planner::createDentalSection,
    planner::createCollisionSection,    planner::createGreyValuesSection,
    planner::createPanoramicSection,    planner::createScansSection,
    planner::createScannerFrameSection,
};

void run(const planner::Options& options)
{
    planner::Report::checkFolder(options.reportFolder); // before the long steps
    planner::Progress progress;
    const planner::Case planned = planner::openCase(options.files, progress);
    progress.finish();
    for (const QString& warning : planned.warnings)
        std::fprintf(stderr, "planner: warning: %s\n", warning.toLocal8Bit().constData());
    planner::Report report(planned);

    for (const auto create : kSections) {
        const planner::Section section = create(planned, progress);
        progress.print(section.plainText);
        report.add(section);
    }

    const QString page = report.write(options.reportFolder, progress);
    progress.print(QStringLiteral("Report written: %1\n").arg(page));
}

int complain(const char* sentence)
{
    std::fflush(stdout);
    std::fprintf(stderr, "planner: %s\n", sentence);
    return kCannotDo;
}

} // namespace

int main(int argc, char** argv)
{
    // The next file to be opened would take the place of standard output, and the text would go
    // there.
    if (fcntl(STDOUT_FILENO, F_GETFD) == -1)
        return complain("Standard output is closed");
    signal(SIGPIPE, SIG_IGN); // a reader that has gone is an error like a full disk
    try {
        const auto options = planner::parseCommandLine(argc, argv);
        if (!options)
            return 0;
        // Pictures are painted in memory: no display is needed, nor asked for.
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // Qt's own remarks, for instance on folders of the desktop, would only hide ours.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        int onlyTheName = 1;
        const QGuiApplication application(onlyTheName, argv);
        run(*options);
        return 0;
    } catch (const planner::Failure& failure) {
        return complain(failure.what());
    } catch (const std::bad_alloc&) {
        return complain("There is not enough memory");
    } catch (const std::exception&) { // its text would mean nothing to the user
        return complain("An error in the planner itself stopped it; this input should have been "
                        "refused with its reason");
    }
}
