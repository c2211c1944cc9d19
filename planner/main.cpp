// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/Case.h>
#include <planner/CollisionSection.h>
#include <planner/CommandLine.h>
#include <planner/DentalSection.h>
#include <planner/Failure.h>
#include <planner/GreyValuesSection.h>
#include <planner/PanoramicSection.h>
#include <planner/PlanSection.h>
#include <planner/Progress.h>
#include <planner/Report.h>
#include <planner/ScansSection.h>
#include <planner/ViewsSection.h>

#include <QGuiApplication>
#include <QtGlobal>

#include <cstdio>
#include <exception>
#include <new>

namespace {

constexpr int kCannotDo = 2; // exit status

// In the order of the report.
constexpr planner::Section (*kSections[])(const planner::Case&, planner::Progress&) = {
    planner::createViewsSection,      planner::createDentalSection,    planner::createCollisionSection,
    planner::createGreyValuesSection, planner::createPanoramicSection, planner::createScansSection,
    planner::createPlanSection,
};

void run(const planner::Options& options)
{
    planner::Report::checkFolder(options.reportFolder); // before the long steps
    planner::Progress progress;
    const planner::Case planned = planner::openCase(options, progress);
    planner::Report report(planned);

    for (const auto create : kSections) {
        const planner::Section section = create(planned, progress);
        std::fputs(section.plainText.toLocal8Bit().constData(), stdout);
        report.add(section);
    }

    const QString page = report.write(options.reportFolder);
    std::fprintf(stdout, "Report written: %s\n", page.toLocal8Bit().constData());
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
    } catch (const std::exception& error) {
        return complain(error.what());
    }
}
