// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/ScansSection.h>

#include <planner/drawing/PictureStyle.h>
#include <planner/drawing/SurfacePicture.h>
#include <planner/input/Progress.h>
#include <planner/planning/CrownScan.h>
#include <planner/planning/Vectors.h>

#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>
#include <CoreAlgorithms/model/dataobjects/ScanSetups.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/transforms/OcclusionTransformCalculator.h>
#include <CoreAlgorithms/transforms/ScanSetupTransformationHelper.h>
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>
#include <CoreAlgorithms/transforms/Trelo3DProtocolTransformations.h>

#include <phantom/Phantom.h>

#include <Eigen/Geometry>

#include <algorithm>
#include <cmath>
#include <memory>

namespace planner {

namespace {

using Operations = SurfaceScanTransformations;

constexpr QSize kTile(560, 340);

QMatrix4x4 rigid(float degrees, const QVector3D& axis, const QVector3D& shift)
{
    QMatrix4x4 matrix;
    matrix.translate(shift);
    matrix.rotate(degrees, axis);
    return matrix;
}

geometry::Mesh moved(geometry::Mesh mesh, const QMatrix4x4& matrix)
{
    mesh.applyTransformation(matrix);
    return mesh;
}

// Crowns where they stand, the matrix by which the scanner has them elsewhere, and that scan.
struct JawScan
{
    JawScan(const geometry::Mesh& mesh, const QMatrix4x4& matrix, JawType jaw)
        : crowns(mesh), scannerFromWorld(matrix), scan(std::make_shared<DentalScan>())
    {
        scan->setMesh(moved(crowns, scannerFromWorld));
        scan->setJawType(jaw);
        raw = scan->getMesh();
    }

    geometry::Mesh crowns;
    geometry::Mesh raw;
    QMatrix4x4 scannerFromWorld;
    std::shared_ptr<DentalScan> scan;
};

Eigen::Matrix4d inDouble(const QMatrix4x4& matrix)
{
    Eigen::Matrix4d result;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            result(row, column) = static_cast<double>(matrix(row, column));
    }
    return result;
}

// Largest distance of a vertex from the place to which the matrix takes the raw one, worked out in
// double precision.
double deviation(const geometry::Mesh& mesh, const geometry::Mesh& raw,
                 const Eigen::Matrix4d& placement)
{
    double largest = 0.0;
    for (int i = 0; i < raw.getNumVertices(); ++i) {
        const Eigen::Vector3d expected =
            (placement * toEigen(raw.getVertices()[i]).homogeneous()).head<3>();
        largest = std::max(largest, (toEigen(mesh.getVertices()[i]) - expected).norm());
    }
    return largest;
}

// Mean distance of the vertices from the true crowns'.
double distanceFromTruth(const geometry::Mesh& mesh, const geometry::Mesh& truth)
{
    double sum = 0.0;
    for (int i = 0; i < truth.getNumVertices(); ++i)
        sum += (toEigen(mesh.getVertices()[i]) - toEigen(truth.getVertices()[i])).norm();
    return truth.getNumVertices() > 0 ? sum / truth.getNumVertices() : 0.0;
}

struct Step
{
    QString what;
    QString operation;
    double deviationMm;
    double fromTruthMm;
};

QString number(double value, int decimals)
{
    return QString::number(value, 'f', decimals);
}

QString htmlTable(const QList<Step>& steps)
{
    QString html =
        QStringLiteral("<div class=\"scroll\"><table>\n<tr><th>placement</th><th>operation</th>"
                       "<th>deviation mm</th><th>from the crowns mm</th></tr>\n");
    for (const Step& step : steps)
        html += QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td><td>%4</td></tr>\n")
                    .arg(step.what.toHtmlEscaped(), step.operation.toHtmlEscaped(),
                         number(step.deviationMm, 5), number(step.fromTruthMm, 3));
    return html + QStringLiteral("</table></div>\n");
}

QString textTable(const QList<Step>& steps)
{
    QString text = QStringLiteral("scan placement            deviation mm  from the crowns mm\n");
    for (const Step& step : steps)
        text += step.what.leftJustified(26) + number(step.deviationMm, 5).rightJustified(12) +
                number(step.fromTruthMm, 3).rightJustified(20) + u'\n';
    return text;
}

// With the place a little to the right of the middle.
Camera cameraAt(const QVector3D& place, double widthMm)
{
    return cameraFromTheFront(place + QVector3D(-5.8F, 1.5F, 0.0F), widthMm, kTile);
}

// The lower scan through its placements, one tile and one row each.
class Journey
{
public:
    Journey(JawScan& lowerJaw, const geometry::Mesh& upperCrowns, const QVector3D& middle)
        : lower(lowerJaw),
          upper(upperCrowns),
          camera(cameraAt(middle - QVector3D(0.0F, 0.0F, 8.0F), 130.0))
    {}

    void record(const QString& what, const QString& operation, const Eigen::Matrix4d& placement,
                const QString& tileLabel)
    {
        const geometry::Mesh& mesh = lower.scan->getMesh();
        steps.append({what, operation, deviation(mesh, lower.raw, placement),
                      distanceFromTruth(mesh, lower.crowns)});
        if (!tileLabel.isEmpty())
            tiles.append(
                paintSurfaces(camera, {{upper, kToothColour}, {mesh, kScanColour}}, tileLabel));
    }

    QList<Step> steps;
    QList<QImage> tiles;

private:
    JawScan& lower;
    const geometry::Mesh& upper;
    Camera camera;
};

// Imports the scan, aligns it by hand and by registration, goes through all placements and ends at
// the registration.
void travel(JawScan& lower, const phantom::Patient& patient, Journey& journey)
{
    DentalScan* scan = lower.scan.get();
    const QMatrix4x4 planning;
    const QMatrix4x4 upright =
        rigid(-42.0F, {0.3F, 0.25F, 1.0F}, {}); // roughly: the import knows no better
    journey.record(QStringLiteral("as scanned"), QStringLiteral("-"), Eigen::Matrix4d::Identity(),
                   QStringLiteral("1  as the scanner had it"));

    Trelo3DProtocolTransformations::calculateAndApplyInitialSurfaceScanTransformation(
        scan, LowerJaw, patient.tooth(4).value().occlusalPoint,
        patient.tooth(8).value().occlusalPoint, patient.tooth(13).value().occlusalPoint, upright);
    journey.record(QStringLiteral("imported"),
                   QStringLiteral("calculateAndApplyInitialSurfaceScanTransformation"),
                   inDouble(scan->getFreehandTransform()) * inDouble(upright),
                   QStringLiteral("2  imported: below the upper teeth"));

    // The hand is off by 5 mm and 6 degrees, and the registration takes that back.
    const QVector3D pivot = patient.tooth(24).value().occlusalPoint;
    QMatrix4x4 error = rigid(6.0F, {0.4F, 1.0F, 0.3F}, pivot + QVector3D(3.0F, -2.0F, -3.5F));
    error.translate(-pivot);
    SurfaceScanAlignment alignment = scan->getSurfaceScanAlignment();
    alignment.freehandTransform = error * lower.scannerFromWorld.inverted() * upright.inverted();
    alignment.registrationTransform = error.inverted();
    alignment.freehandAligned = true;
    const Eigen::Matrix4d initial = inDouble(upright);
    const Eigen::Matrix4d freehand = inDouble(alignment.freehandTransform) * initial;
    const Eigen::Matrix4d registered = inDouble(alignment.registrationTransform) * freehand;

    Operations::setAlignment(scan, alignment, planning);
    journey.record(QStringLiteral("freehand"), QStringLiteral("setAlignment"), freehand,
                   QStringLiteral("3  aligned by hand"));
    Operations::freehandToRegistration(scan, planning);
    journey.record(QStringLiteral("registration"), QStringLiteral("freehandToRegistration"),
                   registered, QStringLiteral("4  registered"));
    Operations::registratedToFreehand(scan, planning);
    journey.record(QStringLiteral("freehand again"), QStringLiteral("registratedToFreehand"),
                   freehand, {});
    Operations::freehandOrRegistratedToInitial(scan, planning);
    journey.record(QStringLiteral("initial"), QStringLiteral("freehandOrRegistratedToInitial"),
                   initial, {});
    Operations::initialToRegistrated(scan, planning);
    journey.record(QStringLiteral("registration again"), QStringLiteral("initialToRegistrated"),
                   registered, {});
    Operations::removeTotalFreehandOrRegistrated(scan, planning);
    journey.record(QStringLiteral("as scanned again"),
                   QStringLiteral("removeTotalFreehandOrRegistrated"), Eigen::Matrix4d::Identity(),
                   {});
    Operations::applyTotalRegistratedTransform(scan, planning);
    journey.record(QStringLiteral("registration, at last"),
                   QStringLiteral("applyTotalRegistratedTransform"), registered, {});
}

// The lower scan as it stands with an open mouth, and its way into the recorded bite.
struct Bite
{
    QImage picture;
    double gapBeforeMm;
    double distanceAfterMm;
};

Bite closeTheBite(JawScan& lower, JawScan& upper, const QVector3D& middle)
{
    const QMatrix4x4 planning;
    SurfaceScanAlignment alignment;
    alignment.initialTransform = upper.scannerFromWorld.inverted();
    Operations::setAlignment(upper.scan.get(), alignment, planning);

    // The mouth is open by 14 degrees about an axis through the jaw joints, some 60 mm behind and
    // 35 mm above.
    const QVector3D joints = middle + QVector3D(0.0F, 60.0F, 35.0F);
    QMatrix4x4 open = rigid(14.0F, {1.0F, 0.0F, 0.0F}, joints);
    open.translate(-joints);
    alignment.initialTransform = open * lower.scannerFromWorld.inverted();
    Operations::setAlignment(lower.scan.get(), alignment, planning);

    // The bite was recorded on an articulator, in a frame of its own.
    const QMatrix4x4 articulator = rigid(40.0F, {0.0F, 1.0F, 1.0F}, {-20.0F, 10.0F, 300.0F});
    Occlusion occlusion;
    occlusion.setTransformations(
        {{Maxilla::getClassTypeId(), articulator * upper.scannerFromWorld.inverted()},
         {Mandibula::getClassTypeId(), articulator * lower.scannerFromWorld.inverted()}});
    const auto moves =
        OcclusionTransformCalculator(occlusion, *upper.scan, *lower.scan, planning)
            .calculateTransformations(OcclusionTransformCalculator::MandibulaToMaxilla);

    const Camera camera = cameraAt(middle, 95.0);
    const auto paint = [&](const QString& label) {
        return paintSurfaces(
            camera, {{upper.scan->getMesh(), kToothColour}, {lower.scan->getMesh(), kScanColour}},
            label);
    };
    Bite bite{};
    bite.gapBeforeMm = distanceFromTruth(lower.scan->getMesh(), lower.crowns);
    const QImage before = paint(QStringLiteral("before: the mouth is open"));
    for (const auto& [part, move] : moves)
        Operations::applyTransform(lower.scan.get(), move);
    bite.distanceAfterMm = distanceFromTruth(lower.scan->getMesh(), lower.crowns);
    bite.picture = tile({before, paint(QStringLiteral("after: in the recorded bite"))}, 2);
    return bite;
}

// Both jaws as an intra-oral scanner delivers them, crowns up round the same origin, and the bite
// that is made up.
struct MadeUpBite
{
    QImage picture;
    double gapMm;
};

MadeUpBite makeUpABite(const geometry::Mesh& upperCrowns, const geometry::Mesh& lowerCrowns)
{
    const auto centred = [](const geometry::Mesh& mesh) {
        QMatrix4x4 matrix;
        matrix.translate(-mesh.getBoundingBox().center());
        return moved(mesh, matrix);
    };
    QMatrix4x4 crownsUp;
    crownsUp.rotate(180.0F, 0.0F, 1.0F, 0.0F);
    const auto upper = std::make_shared<ScannableRegion>();
    upper->setRegion(ToothChart::Tooth(2), ToothChart::Tooth(15));
    upper->setMesh(moved(centred(upperCrowns), crownsUp));
    const auto lower = std::make_shared<ScannableRegion>();
    lower->setRegion(ToothChart::Tooth(18), ToothChart::Tooth(31));
    lower->setMesh(centred(lowerCrowns));
    ScanSetup setup;
    setup.addScannableRegion(upper);
    setup.addScannableRegion(lower);
    const OcclusionTransformation bite =
        ScanSetupTransformationHelper::getOcclusionTransformation(&setup);

    const Camera camera = cameraAt({0.0F, 0.0F, 12.0F}, 105.0);
    const auto paint = [&](const geometry::Mesh& upperMesh, const QString& label) {
        return paintSurfaces(camera, {{upperMesh, kToothColour}, {lower->getMesh(), kScanColour}},
                             label);
    };
    const geometry::Mesh turned = moved(upper->getMesh(), bite.upperTransformation);
    return {
        tile({paint(upper->getMesh(), QStringLiteral("as scanned, each jaw with its crowns up")),
              paint(turned, QStringLiteral("in the made-up bite"))},
             2),
        double(turned.getBoundingBox().min().z()) -
            double(lower->getMesh().getBoundingBox().max().z())};
}

} // namespace

Section createScansSection(const Case& planned, Progress& progress)
{
    Section section;
    section.id = QStringLiteral("scans");
    section.title = QStringLiteral("Jaw scans and bite");
    if (!planned.patient) {
        section.introductionHtml = QStringLiteral(
            "<p>The planner reads no surface scans, so none is aligned to this CT. On the "
            "built-in patient this section moves scans of the crowns through their placements "
            "and into the bite.</p>\n");
        section.plainText =
            QStringLiteral("The planner reads no surface scans: none was aligned.\n");
        return section;
    }
    const phantom::Patient& patient = *planned.patient;
    const auto tell = [&progress](double done) { progress.fraction(done); };
    progress.step(QStringLiteral("Scanning the lower crowns"));
    const geometry::Mesh lowerCrowns = scanCrowns(patient, ToothChart::LowerArch, tell);
    progress.step(QStringLiteral("Scanning the upper crowns"));
    const geometry::Mesh upperCrowns = scanCrowns(patient, ToothChart::UpperArch, tell);
    progress.step(QStringLiteral("Aligning the scans"));

    const QVector3D middle =
        (lowerCrowns.getBoundingBox().center() + upperCrowns.getBoundingBox().center()) * 0.5F;
    QMatrix4x4 lowerScanner =
        rigid(50.0F, {0.2F, 0.3F, 1.0F}, middle + QVector3D(-28.0F, -5.0F, -24.0F));
    lowerScanner.translate(-lowerCrowns.getBoundingBox().center());
    QMatrix4x4 upperScanner = rigid(-115.0F, {1.0F, 0.1F, -0.3F}, {12.0F, 4.0F, 9.0F});
    upperScanner.translate(-upperCrowns.getBoundingBox().center());
    JawScan lower(lowerCrowns, lowerScanner, LowerJaw);
    JawScan upper(upperCrowns, upperScanner, UpperJaw);

    Journey journey(lower, upperCrowns, middle);
    travel(lower, patient, journey);
    const Bite bite = closeTheBite(lower, upper, middle);
    const MadeUpBite madeUp = makeUpABite(upperCrowns, lowerCrowns);
    progress.finish();

    double largest = 0.0;
    for (const Step& step : journey.steps)
        largest = std::max(largest, step.deviationMm);
    const QString summary =
        QStringLiteral(
            "The lower scan of %1 vertices went through %2 placements: no vertex was ever more "
            "than "
            "%3 mm from where its matrices say. The bite brought the lower crowns from %4 mm to %5 "
            "mm of their true place, the mean over all vertices.")
            .arg(lowerCrowns.getNumVertices())
            .arg(journey.steps.size())
            .arg(number(largest, 5), number(bite.gapBeforeMm, 1), number(bite.distanceAfterMm, 5));

    section.introductionHtml =
        QStringLiteral("<p>The crowns of the built-in patient, taken as an intra-oral scanner "
                       "would see them. The upper jaw "
                       "is ivory, the lower one blue. Seen from the front, a little from above and "
                       "from the patient's "
                       "right; superior is up, the patient's right is on the left.</p>\n");
    section.pictures = {
        {QStringLiteral("scan-placements.png"), QStringLiteral("A scan through its placements"),
         QStringLiteral(
             "<p>The lower scan where the scanner had it, after its import, aligned by hand (5 mm "
             "and 6 degrees off), and registered. The upper crowns stand where they are.</p>"),
         tile(journey.tiles, 2)},
        {QStringLiteral("scan-bite.png"), QStringLiteral("Into the recorded bite"),
         QStringLiteral("<p>The mouth is open by 14 degrees. The bite holds where either raw scan "
                        "stands on an "
                        "articulator; the lower scan is moved to the upper one, which stands.</p>"),
         bite.picture},
        {QStringLiteral("scan-made-up-bite.png"), QStringLiteral("A bite that is made up"),
         QStringLiteral("<p>Without a recorded bite, the upper jaw is turned over above the lower "
                        "one: here with "
                        "%1 mm between the boxes of the jaws.</p>")
             .arg(number(madeUp.gapMm, 3)),
         madeUp.picture}};
    section.detailsHtml =
        QStringLiteral("<p>%1</p>\n<details><summary>All placements</summary>\n<p>\"Deviation\" is "
                       "the largest distance "
                       "of a vertex from the place to which the placement's matrices take the raw "
                       "one, worked out in "
                       "double precision; \"from the crowns\" the mean distance from the true "
                       "crowns.</p>\n%2</details>\n")
            .arg(summary, htmlTable(journey.steps));
    section.plainText = textTable(journey.steps) + summary + u'\n';
    return section;
}

} // namespace planner
