// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/DentalArchPlan.h>

#include <planner/planning/Vectors.h>

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/dental/PlanarDentalSplineUpdater.h>
#include <CoreAlgorithms/dental/ToothAnnotations3DGenerator.h>
#include <CoreAlgorithms/dental/ToothGenerationTools.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <algorithm>
#include <vector>

namespace planner {

namespace {

using Teeth = QMap<ToothChart::Tooth, QVector3D>;

constexpr auto kPreferredMissingTooth = ToothChart::Tooth(30); // FDI 46, most often lost
constexpr qsizetype kFewestTeeth = 4;
constexpr float kLabelOffset = 9.0F; // mm, as for the labels of the other teeth

Teeth teethOf(const Case& planned)
{
    Teeth teeth;
    for (const Landmark& landmark : planned.landmarks) {
        if (const int number = toothNumberOf(landmark))
            teeth.insert(ToothChart::Tooth(number), landmark.position);
    }
    return teeth;
}

Teeth ofArch(const Teeth& teeth, ToothChart::ArchType arch)
{
    Teeth chosen;
    for (auto tooth = teeth.cbegin(); tooth != teeth.cend(); ++tooth) {
        if (ToothChart::getArchTypeOfTooth(tooth.key()) == arch)
            chosen.insert(tooth.key(), tooth.value());
    }
    return chosen;
}

// A tooth that has neighbors on either side.
ToothChart::Tooth toothToLeaveOut(const Teeth& teeth)
{
    for (const auto arch : {ToothChart::LowerArch, ToothChart::UpperArch}) {
        const Teeth ofThis = ofArch(teeth, arch);
        if (ofThis.size() <= kFewestTeeth)
            continue;
        const bool hasPreferred = ofThis.contains(kPreferredMissingTooth) &&
                                  ofThis.firstKey() < kPreferredMissingTooth &&
                                  ofThis.lastKey() > kPreferredMissingTooth;
        return hasPreferred ? kPreferredMissingTooth : ofThis.keys()[ofThis.size() / 2];
    }
    return ToothChart::NoTooth;
}

std::shared_ptr<PlanarDentalSpline> drawArch(Teeth teeth, ToothChart::ArchType arch)
{
    float height = 0.0F;
    for (const QVector3D& position : std::as_const(teeth))
        height += position.z() / static_cast<float>(teeth.size());
    std::vector<QVector3D> points;
    for (QVector3D& position : teeth) {
        position.setZ(height);
        points.push_back(position);
    }
    auto spline = std::make_shared<PlanarDentalSpline>();
    PlanarDentalSplineUpdater::update(*spline, points, teeth, 0, arch,
                                      std::make_unique<math::CatmullRomSpline3D>(),
                                      AutomaticallyCreated);
    return spline;
}

// A label without a tooth, at the interpolated place of the tooth on the arch.
std::shared_ptr<ToothAnnotation3D>
labelMissingTooth(ToothChart::Tooth tooth, PlanarDentalSpline& arch, const QVector3D& place)
{
    const bool upper = ToothChart::isUpperTooth(tooth);
    auto label = std::make_shared<ToothAnnotation3D>();
    label->setToothType(tooth);
    label->setPosition(place + QVector3D(0.0F, 0.0F, upper ? kLabelOffset : -kLabelOffset));
    label->setDirection(
        arch.getDirection(ComputeIndexOnGuidingLine::getToothIndex(tooth, &arch, false)));
    return label;
}

QList<QVector3D> seenFromAbove(QList<QVector3D> points)
{
    for (QVector3D& point : points)
        point.setZ(0.0F);
    return points;
}

} // namespace

DentalArchPlan planTeeth(const Case& planned)
{
    const Teeth all = teethOf(planned);
    const ToothChart::Tooth missing = toothToLeaveOut(all);
    Teeth present = all;
    present.remove(missing);

    DentalArchPlan plan;
    QList<PlanarDentalSpline*> splines;
    std::shared_ptr<PlanarDentalSpline> archOfMissing;
    for (const auto arch : {ToothChart::UpperArch, ToothChart::LowerArch}) {
        const Teeth ofThis = ofArch(present, arch);
        if (ofThis.size() < kFewestTeeth)
            continue;
        plan.arches.append(drawArch(ofThis, arch));
        splines.append(plan.arches.last().get());
        if (missing != ToothChart::NoTooth && ToothChart::getArchTypeOfTooth(missing) == arch)
            archOfMissing = plan.arches.last();
    }

    const auto mouth = std::make_shared<dataobject::Mouth>();
    for (const ToothChart::Tooth tooth : present.keys())
        mouth->addTooth(std::make_shared<dataobject::Tooth>(tooth, dataobject::Tooth::Present,
                                                            dataobject::Tooth::Permanent));
    plan.diagnosis = std::make_shared<Diagnosis>();
    plan.diagnosis->setPatientAnatomy(std::make_shared<Anatomy>());
    plan.diagnosis->getPatientAnatomy()->setMouth(mouth);
    plan.labels = ToothAnnotations3DGenerator::generate(splines, all.keys(), mouth.get());

    const auto gaps = ComputeIndexOnGuidingLine::getIntermediateTeeth(archOfMissing.get(), nullptr);
    if (const auto gap = gaps.find(missing);
        gap != gaps.end()) { // not so if its neighbors are at one point
        CreatedTooth created{missing, gap->second, all.value(missing), 0.0};
        QVector3D apart = created.interpolated - created.landmark;
        apart.setZ(0.0F);
        created.distanceMm = toEigen(apart).norm();
        plan.labels.append(labelMissingTooth(missing, *archOfMissing, created.interpolated));
        for (const auto& tooth :
             ToothGenerationTools::createMissingTeeth(plan.diagnosis.get(), plan.labels)) {
            mouth->addTooth(tooth);
            plan.created = created;
        }
    }
    ToothGenerationTools::linkTeethWithToothAnnotations(plan.diagnosis.get(), plan.labels);
    return plan;
}

NerveGuidingSplineCalculatorSettings nerveSettings(const QVector3D& mandibularForamen,
                                                   const QVector3D& mentalForamen, bool right)
{
    NerveGuidingSplineCalculatorSettings settings;
    settings.mandibular_foramen = mandibularForamen;
    settings.mental_foramen = mentalForamen;
    settings.middle_point_distance = -1.5F;
    settings.start_point_distance = 10.0F;
    settings.start_point_angle = 90.0F;
    settings.end_point_distance = 10.0F;
    settings.end_point_angle = 90.0F;
    settings.side = right ? 0 : 1; // the perpendicular points outwards on both sides
    return settings;
}

std::optional<NerveProposal> proposeNerve(const Case& planned, bool right)
{
    const Landmark* mandibular =
        findLandmark(planned.landmarks,
                     QString::fromUtf16(right ? kRightMandibularForamen : kLeftMandibularForamen));
    const Landmark* mental = findLandmark(
        planned.landmarks, QString::fromUtf16(right ? kRightMentalForamen : kLeftMentalForamen));
    if (!mandibular || !mental)
        return std::nullopt;
    NerveGuidingSplineCalculator calculator(
        nerveSettings(mandibular->position, mental->position, right));
    NerveProposal proposal{right, {}, std::make_shared<GuidingSpline>()};
    if (!calculator.fillSpline(proposal.spline.get()))
        return std::nullopt;
    proposal.points = calculator.getPoints();
    return proposal;
}

Distances distances(const QList<QVector3D>& canal, const QList<QVector3D>& path)
{
    Distances result;
    if (path.isEmpty())
        return result;
    for (const QVector3D& point : canal) {
        const QVector3D& nearest = path[ComputeIndexOnGuidingLine::getIndexOf(point, path)];
        const double distance = (toEigen(nearest) - toEigen(point)).norm();
        result.mean += distance / static_cast<double>(canal.size());
        result.largest = std::max(result.largest, distance);
    }
    return result;
}

Distances horizontalDistances(const QList<QVector3D>& canal, const QList<QVector3D>& path)
{
    return distances(seenFromAbove(canal), seenFromAbove(path));
}

} // namespace planner
