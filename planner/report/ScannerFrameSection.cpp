// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

#include <planner/drawing/PictureStyle.h>
#include <planner/drawing/SurfacePicture.h>
#include <planner/input/Progress.h>
#include <planner/planning/JawScans.h>
#include <planner/planning/PlanOfEveryKind.h>
#include <planner/report/Table.h>

#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/transforms/OcclusionMovementCalculator.h>
#include <CoreAlgorithms/transforms/OcclusionMovements.h>
#include <CoreAlgorithms/transforms/PlanningApplyTransform.h>
#include <CoreAlgorithms/transforms/SetOcclusionMovementTransformationsUndoCommand.h>

#include <phantom/Phantom.h>

#include <QUndoStack>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace planner {

namespace {

const QColor kFormer(0x4a, 0x52, 0x5a);
constexpr QSize kTile(560, 400);

// Largest distance between coordinates of the same place in the lists, computed in double
// precision; infinite if one list has lost or gained some.
double largestDistance(const QList<QVector3D>& a, const QList<QVector3D>& b)
{
    if (a.size() != b.size())
        return std::numeric_limits<double>::infinity();
    double largest = 0.0;
    for (qsizetype i = 0; i < a.size(); ++i) {
        const double x = double(a[i].x()) - double(b[i].x());
        const double y = double(a[i].y()) - double(b[i].y());
        const double z = double(a[i].z()) - double(b[i].z());
        largest = std::max(largest, std::sqrt(x * x + y * y + z * z));
    }
    return largest;
}

QList<QList<QVector3D>> coordinatesOf(const PlanOfEveryKind& plan)
{
    QList<QList<QVector3D>> all;
    for (const PlannedObject& object : plan.objects)
        all.append(object.coordinates());
    return all;
}

QColor colorOf(SurfaceKind kind)
{
    const QColor colors[] = {kToothColor, 0x4fb06d, 0xe8b32a, 0x5fa8e8, 0x9aa4ae, 0xd04a4a};
    return colors[static_cast<int>(kind)];
}

QList<ShownMesh> surfacesOf(const PlanOfEveryKind& plan)
{
    QList<ShownMesh> shown;
    for (const PlanSurface& surface : plan.surfaces())
        shown.append({surface.mesh, colorOf(surface.kind)});
    return shown;
}

struct Journey
{
    Table table{{QStringLiteral("object"), QStringLiteral("step"), QStringLiteral("coordinates"),
                 QStringLiteral("moved by up to mm"), QStringLiteral("returned as changed"),
                 QStringLiteral("largest deviation after the way back mm")}};
    qsizetype coordinates = 0;
    double largestMm = 0.0; ///< deviation after the way back
    QList<QImage> tiles = {};
};

// The scanner has the head turned by 14 degrees and 25 mm away.
QMatrix4x4 newFrame(const QVector3D& middle)
{
    QMatrix4x4 frame;
    frame.translate(middle + QVector3D(18.0F, -12.0F, 14.0F));
    frame.rotate(14.0F, QVector3D(0.2F, 1.0F, 0.5F));
    frame.translate(-middle);
    return frame;
}

Journey thereAndBack(const PlanOfEveryKind& plan, const QVector3D& middle,
                     const geometry::Mesh& upperCrowns, const geometry::Mesh& lowerCrowns)
{
    const Camera camera = cameraFromTheFront(middle, 135.0, kTile);
    const QMatrix4x4 frame = newFrame(middle);
    PlanningApplyTransform apply;
    apply.setDataObjects(plan.dataObjects());
    apply.applyTransform({}); // computes the movements of the surgery for the first time

    Journey journey;
    const auto before = coordinatesOf(plan);
    journey.tiles << paintSurfaces(camera, surfacesOf(plan), QStringLiteral("1  before"));

    const QList<ShownMesh> former = {{upperCrowns, kFormer}, {lowerCrowns, kFormer}};
    apply.setNewScannerTransform(frame);
    const QList<DataObject*> changed = apply.applyTransform(frame);
    const auto there = coordinatesOf(plan);
    journey.tiles << paintSurfaces(
        camera, surfacesOf(plan) + former,
        QStringLiteral("2  in the new frame, grey: where the crowns stood"));

    apply.setNewScannerTransform({});
    apply.applyTransform(frame.inverted());
    const auto back = coordinatesOf(plan);
    journey.tiles << paintSurfaces(camera, surfacesOf(plan), QStringLiteral("3  and back"));

    for (qsizetype i = 0; i < plan.objects.size(); ++i) {
        const PlannedObject& object = plan.objects[i];
        const double backMm = largestDistance(before[i], back[i]);
        journey.table.rows.append(
            {object.kind, QString::number(object.step), QString::number(before[i].size()),
             number(largestDistance(before[i], there[i]), 2),
             changed.contains(object.object.get()) ? QStringLiteral("yes") : QStringLiteral("no"),
             number(backMm, 6)});
        journey.coordinates += before[i].size();
        journey.largestMm = std::max(journey.largestMm, backMm);
    }
    return journey;
}

bool sameBits(const QMatrix4x4& a, const QMatrix4x4& b)
{
    return std::equal(a.constData(), a.constData() + 16, b.constData(), [](float x, float y) {
        return std::bit_cast<std::uint32_t>(x) == std::bit_cast<std::uint32_t>(y);
    });
}

struct BiteStory
{
    Table table{{QString(), QStringLiteral("mode of the mandibular movement"),
                 QStringLiteral("transformation for patient scans"),
                 QStringLiteral("lower incisor from its place in the bite mm"),
                 QStringLiteral("compared")}};
    QList<QImage> tiles;
};

// A bite of the patient's own, under the mode of patient scans, on a stack as an application has
// it.
BiteStory applyUndoRedo(const PlanOfEveryKind& plan, const QVector3D& incisor,
                        const QVector3D& hinge, const geometry::Mesh& upperCrowns,
                        const geometry::Mesh& lowerCrowns)
{
    // The lower jaw was scanned with the mouth open; in the bite the crowns stand as they were
    // made.
    QMatrix4x4 opening;
    opening.translate(hinge);
    opening.rotate(12.0F, 1.0F, 0.0F, 0.0F);
    opening.translate(-hinge);
    OcclusionMovementCalculator::Data data;
    data.occlusionTransformations = {{Maxilla::getClassTypeId(), QMatrix4x4()},
                                     {Mandibula::getClassTypeId(), QMatrix4x4()}};
    data.mandibulaRegistration = opening;
    const OcclusionMovements movements = utility::getOcclusionMovements(*plan.surgery);
    const OcclusionMovement& mandibular = *movements.mandibularMovement;

    BiteStory story;
    const Camera camera{incisor + QVector3D(0.0F, 20.0F, -2.0F),
                        {-0.866F, 0.5F, 0.0F},
                        {0.0F, 0.0F, 1.0F},
                        75.0 / kTile.width(),
                        kTile};
    const auto inForce = [&] {
        return mandibular.getOcclusionModeTransformation(data.movementMode);
    };
    const auto record = [&](const QString& action, const QString& compared, const QString& label) {
        const auto matrix = inForce();
        story.table.rows.append(
            {action, mandibular.getMovementMode(),
             matrix ? QStringLiteral("stored") : QStringLiteral("none"),
             number((matrix.value() * opening).map(incisor).distanceToPoint(incisor), 3),
             compared});
        geometry::Mesh lower = lowerCrowns;
        lower.applyTransformation(matrix.value() * opening); // the identity if there is none
        story.tiles << paintSurfaces(camera, {{upperCrowns, kToothColor}, {lower, kScanColor}},
                                     label);
    };
    const QStringList modesBefore = mandibular.getMovementModes();
    record(QStringLiteral("before"), QStringLiteral("-"), QStringLiteral("1  before the bite"));

    QUndoStack stack;
    stack.push(new SetOcclusionMovementTransformationsUndoCommand(
        OcclusionMovementCalculator(data).calculate(), movements, data.movementMode, nullptr));
    const QMatrix4x4 applied = inForce().value();
    record(QStringLiteral("bite applied"), QStringLiteral("-"), QStringLiteral("2  bite applied"));
    stack.undo();
    record(QStringLiteral("undone"),
           !inForce() && mandibular.getMovementModes() == modesBefore
               ? QStringLiteral("as before")
               : QStringLiteral("NOT as before"),
           QStringLiteral("3  undone"));
    stack.redo();
    record(QStringLiteral("redone"),
           inForce() && sameBits(inForce().value(), applied)
               ? QStringLiteral("the bits of the first time")
               : QStringLiteral("NOT the bits of the first time"),
           QStringLiteral("4  redone"));
    return story;
}

} // namespace

Section createScannerFrameSection(const Case& planned, Progress& progress)
{
    Section section{QStringLiteral("plan"),
                    QStringLiteral("A whole plan in a new scanner frame, and a bite with undo")};
    if (!planned.patient) {
        section.introduce(QStringLiteral("A plan with objects of every kind exists for the "
                                         "built-in patient only: none was moved."));
        return section;
    }
    const phantom::Patient& patient = *planned.patient;
    progress.step(QStringLiteral("Planning on the built-in patient"));
    const geometry::Mesh upper =
        scanCrowns(patient, ToothChart::UpperArch,
                   [&progress](double done) { progress.fraction(0.5 * done); });
    const geometry::Mesh lower =
        scanCrowns(patient, ToothChart::LowerArch,
                   [&progress](double done) { progress.fraction(0.5 + 0.5 * done); });
    const PlanOfEveryKind plan = planEveryKind(patient, upper, lower);

    progress.step(QStringLiteral("Moving the plan into a new scanner frame and back"));
    const QVector3D incisor = patient.tooth(24).value().occlusalPoint;
    const Journey journey =
        thereAndBack(plan, incisor + QVector3D(4.0F, 22.0F, 0.0F), upper, lower);
    progress.step(QStringLiteral("Applying a bite, undoing and redoing it"));
    const QVector3D hinge =
        (patient.rightCanal().mandibularForamen + patient.leftCanal().mandibularForamen) * 0.5F;
    const BiteStory bite = applyUndoRedo(plan, incisor, hinge, upper, lower);
    progress.finish();

    section.introductionHtml = QStringLiteral(
        "<p>The CT was made again with the head in another position. PlanningApplyTransform "
        "carries the plan along, one kind of object after the other. Cephalometric planes move but "
        "are not returned as changed; the movements of the surgery are recomputed from the "
        "scans and the recorded bite.</p>\n");
    section.pictures = {
        {QStringLiteral("plan-frames.png"),
         QStringLiteral("The plan before, in the new frame, and back"),
         QStringLiteral("<p>Seen from the front, a little from above and from the patient's right, "
                        "by a viewer who stays. Crowns as scanned, the arches green, nerves "
                        "yellow, implants blue, anchor pins grey, marked points red.</p>"),
         tile(journey.tiles, 3)},
        {QStringLiteral("plan-bite.png"), QStringLiteral("A bite, undone and redone"),
         QStringLiteral("<p>Seen from the patient's left and front. The lower crowns (blue) stand "
                        "where the mandibular movement has them. The jaw was scanned open, by 12 "
                        "degrees about its joints.</p>"),
         tile(bite.tiles, 2)}};
    const QString summary =
        QStringLiteral("%1 objects with %2 coordinates went into the new frame and back: the "
                       "largest deviation is %3 mm.")
            .arg(plan.objects.size())
            .arg(journey.coordinates)
            .arg(number(journey.largestMm, 6));
    section.detailsHtml =
        QStringLiteral("<p>%1</p>\n%2<details><summary>All objects</summary>\n%3</details>\n")
            .arg(summary, bite.table.html(), journey.table.html());
    section.plainText = journey.table.text() + summary + u'\n' + bite.table.text();
    return section;
}

} // namespace planner
