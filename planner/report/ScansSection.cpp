// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

#include <planner/drawing/PictureStyle.h>
#include <planner/drawing/SurfacePicture.h>
#include <planner/input/Progress.h>
#include <planner/planning/JawScans.h>
#include <planner/report/Table.h>

#include <phantom/Phantom.h>

#include <algorithm>

namespace planner {

namespace {

constexpr QSize kTile(560, 340);

// Shows the place a little to the right of the middle.
Camera cameraAt(const QVector3D& place, double widthMm)
{
    return cameraFromTheFront(place + QVector3D(-5.8F, 1.5F, 0.0F), widthMm, kTile);
}

QImage paintJaws(const Camera& camera, const geometry::Mesh& upper, const geometry::Mesh& lower,
                 const QString& label)
{
    return paintSurfaces(camera, {{upper, kToothColor}, {lower, kScanColor}}, label);
}

// The lower scan on its way, with tiles of the first placements.
struct Journey
{
    QList<ScanStep> steps;
    QList<QImage> tiles;
};

Journey travel(JawScans& scans, const phantom::Patient& patient)
{
    const QStringList labels = {QStringLiteral("1  as the scanner had it"),
                                QStringLiteral("2  imported: below the upper teeth"),
                                QStringLiteral("3  aligned by hand"),
                                QStringLiteral("4  registered")};
    const Camera camera = cameraAt(scans.middle - QVector3D(0.0F, 0.0F, 8.0F), 130.0);
    Journey journey;
    moveThroughPlacements(scans.lower, patient, [&](const ScanStep& step) {
        const qsizetype number = journey.steps.size();
        journey.steps.append(step);
        if (number < labels.size())
            journey.tiles.append(
                paintJaws(camera, scans.upper.crowns, scans.lower.scan->getMesh(), labels[number]));
    });
    return journey;
}

struct Bite
{
    QImage picture;
    double gapBeforeMm = 0.0;
    double distanceAfterMm = 0.0;
};

Bite showBite(JawScans& scans)
{
    const Camera camera = cameraAt(scans.middle, 95.0);
    const auto paint = [&](const QString& label) {
        return paintJaws(camera, scans.upper.scan->getMesh(), scans.lower.scan->getMesh(), label);
    };
    Bite bite;
    openMouth(scans);
    bite.gapBeforeMm = scans.lower.distanceFromCrowns();
    const QImage before = paint(QStringLiteral("before: the mouth is open"));
    closeMouth(scans);
    bite.distanceAfterMm = scans.lower.distanceFromCrowns();
    bite.picture = tile({before, paint(QStringLiteral("after: in the recorded bite"))}, 2);
    return bite;
}

QImage paintSynthesized(const SynthesizedBite& bite)
{
    const Camera camera = cameraAt({0.0F, 0.0F, 12.0F}, 105.0);
    return tile({paintJaws(camera, bite.upper, bite.lower,
                           QStringLiteral("as scanned, each jaw with its crowns up")),
                 paintJaws(camera, bite.upperInBite, bite.lower,
                           QStringLiteral("in the synthesized bite"))},
                2);
}

Table tableOf(const QList<ScanStep>& steps)
{
    Table table{{QStringLiteral("placement"), QStringLiteral("operation"),
                 QStringLiteral("deviation mm"), QStringLiteral("from the crowns mm")}};
    for (const ScanStep& step : steps)
        table.rows.append(
            {step.what, step.operation, number(step.deviationMm, 5), number(step.fromCrownsMm, 3)});
    return table;
}

QString summary(const Journey& journey, const Bite& bite, int vertices)
{
    const double largest =
        std::ranges::max_element(journey.steps, {}, &ScanStep::deviationMm)->deviationMm;
    return QStringLiteral(
               "The lower scan of %1 vertices went through %2 placements: no vertex was ever more "
               "than %3 mm from where its matrices say. The bite brought the lower crowns from %4 "
               "mm to %5 mm of their true place, the mean over all vertices.")
        .arg(vertices)
        .arg(journey.steps.size())
        .arg(number(largest, 5), number(bite.gapBeforeMm, 1), number(bite.distanceAfterMm, 5));
}

} // namespace

Section createScansSection(const Case& planned, Progress& progress)
{
    Section section{QStringLiteral("scans"), QStringLiteral("Jaw scans and bite")};
    if (!planned.patient) {
        section.introductionHtml =
            QStringLiteral("<p>The planner reads no surface scans, so none is aligned to this CT. "
                           "On the built-in patient this section moves scans of the crowns through "
                           "their placements and into the bite.</p>\n");
        section.plainText =
            QStringLiteral("The planner reads no surface scans: none was aligned.\n");
        return section;
    }
    const phantom::Patient& patient = *planned.patient;
    const auto tell = progress.onFraction();
    progress.step(QStringLiteral("Scanning the lower crowns"));
    const geometry::Mesh lowerCrowns = scanCrowns(patient, ToothChart::LowerArch, tell);
    progress.step(QStringLiteral("Scanning the upper crowns"));
    const geometry::Mesh upperCrowns = scanCrowns(patient, ToothChart::UpperArch, tell);
    progress.step(QStringLiteral("Aligning the scans"));

    JawScans scans(lowerCrowns, upperCrowns);
    const Journey journey = travel(scans, patient);
    const Bite bite = showBite(scans);
    const SynthesizedBite synthesized = synthesizeBite(upperCrowns, lowerCrowns);
    progress.finish();

    section.introductionHtml = QStringLiteral(
        "<p>The crowns of the built-in patient, taken as an intra-oral scanner would see them. The "
        "upper jaw is ivory, the lower one blue. Seen from the front, a little from above and from "
        "the patient's right; superior is up, the patient's right is on the left.</p>\n");
    section.pictures = {
        {QStringLiteral("scan-placements.png"), QStringLiteral("A scan through its placements"),
         QStringLiteral(
             "<p>The lower scan where the scanner had it, after its import, aligned by hand (5 mm "
             "and 6 degrees off), and registered. The upper crowns stand where they are.</p>"),
         tile(journey.tiles, 2)},
        {QStringLiteral("scan-bite.png"), QStringLiteral("Into the recorded bite"),
         QStringLiteral(
             "<p>The mouth is open by 14 degrees. The bite holds where either raw scan stands on "
             "an articulator; the lower scan is moved to the upper one, which stands.</p>"),
         bite.picture},
        {QStringLiteral("scan-synthesized-bite.png"), QStringLiteral("A synthesized bite"),
         QStringLiteral("<p>Without a recorded bite, the upper jaw is turned over above the lower "
                        "one: here with %1 mm between the boxes of the jaws.</p>")
             .arg(number(synthesized.gapMm, 3)),
         paintSynthesized(synthesized)}};
    const QString told = summary(journey, bite, lowerCrowns.getNumVertices());
    const Table steps = tableOf(journey.steps);
    section.detailsHtml =
        QStringLiteral("<p>%1</p>\n<details><summary>All placements</summary>\n<p>\"Deviation\" is "
                       "the largest distance of a vertex from the place to which the placement's "
                       "matrices take the raw one, computed in double precision; \"from the "
                       "crowns\" the mean distance from the true crowns.</p>\n%2</details>\n")
            .arg(told, steps.html());
    section.plainText = steps.text() + told + u'\n';
    return section;
}

} // namespace planner
