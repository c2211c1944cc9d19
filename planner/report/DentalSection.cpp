// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

#include <planner/drawing/DentalPictures.h>
#include <planner/input/Progress.h>
#include <planner/report/Table.h>

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/dental/ToothLocator.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <algorithm>

namespace planner {

namespace {

SectionPicture archPicture(const DentalPictures& pictures, const DentalArchPlan& plan,
                           PlanarDentalSpline& arch, Progress& progress)
{
    const bool upper = arch.getArchType() == ToothChart::UpperArch;
    progress.step(QStringLiteral("Sampling the %1 arch")
                      .arg(upper ? QStringLiteral("upper") : QStringLiteral("lower")));
    const bool hasCreated =
        plan.created && ToothChart::getArchTypeOfTooth(plan.created->number) == arch.getArchType();
    const QString caption =
        QStringLiteral(
            "<p>The arch is drawn through the occlusal points of its teeth, its control points "
            "(dots), all at their mean height. Labels: Universal · FDI number, set outside the "
            "arch.%1</p><p>Slice at z = %2 mm, %3 mm into the crowns.</p>")
            .arg(hasCreated ? QStringLiteral(" The ring is the created tooth.") : QString(),
                 number(sliceHeight(arch), 1), number(kIntoTheCrownsMm, 0));
    return {upper ? QStringLiteral("arch-upper.png") : QStringLiteral("arch-lower.png"),
            upper ? QStringLiteral("Upper arch") : QStringLiteral("Lower arch"), caption,
            pictures.paintArch(plan, arch)};
}

// A sentence, or nothing if the canal of each proposal is known.
QString unknownCanals(const Case& planned, const QList<NerveProposal>& nerves)
{
    QStringList sides;
    for (const NerveProposal& nerve : nerves) {
        if (!findCanal(planned.canals, nerve.right))
            sides.append(sideName(nerve.right));
    }
    if (sides.isEmpty())
        return {};
    if (sides.size() == 1)
        return QStringLiteral("The course of the %1 canal is not known.").arg(sides.first());
    return QStringLiteral("The course of the canals is not known.");
}

// How the canal runs compared with the proposal, as far as it is known.
QString sidewaysSentence(const NerveProposal& nerve, const CanalLine* canal)
{
    QString sentence = QStringLiteral("The proposal is level, midway between them.");
    if (!canal)
        return sentence + QStringLiteral(" The course of the canal is not known.");
    const auto lowest = std::ranges::min_element(canal->points, {}, &QVector3D::z);
    const double sag = nerve.points[2].z() - lowest->z();
    if (sag > 0.0)
        sentence +=
            QStringLiteral(
                " The canal (dotted) sags up to %1 mm below it: the surgeon lowers the middle.")
                .arg(sag, 0, 'f', 1);
    return sentence;
}

SectionPicture nervesPicture(const DentalPictures& pictures, const Case& planned,
                             const QList<NerveProposal>& nerves, Progress& progress)
{
    progress.step(QStringLiteral("Sampling the nerves from below"));
    QString legend = QStringLiteral("Solid: the proposal with its five control points.");
    if (std::ranges::any_of(nerves, [&](const NerveProposal& nerve) {
            return findCanal(planned.canals, nerve.right);
        }))
        legend += QStringLiteral(" Dotted: the canal's known center line.");
    if (const QString unknown = unknownCanals(planned, nerves); !unknown.isEmpty())
        legend += u' ' + unknown;
    return {QStringLiteral("nerves-axial.png"), QStringLiteral("Proposed nerves, axial"),
            QStringLiteral("<p>%1</p><p>Slice at z = %2 mm, the mean height of the proposals; all "
                           "lines are projected onto it.</p>")
                .arg(legend, number(meanHeight(nerves), 1)),
            pictures.paintNerves(nerves)};
}

SectionPicture nervePicture(const DentalPictures& pictures, const Case& planned,
                            const NerveProposal& nerve, Progress& progress)
{
    const QString name = sideName(nerve.right);
    progress.step(QStringLiteral("Sampling the %1 nerve from the side").arg(name));
    return {
        QStringLiteral("nerve-%1.png").arg(name),
        QStringLiteral("Proposed nerve, %1, from the side").arg(name),
        QStringLiteral("<p>Upright cut through both foramina. %1</p>")
            .arg(sidewaysSentence(nerve, findCanal(planned.canals, nerve.right)).toHtmlEscaped()),
        pictures.paintFromSide(nerve)};
}

Table teethTable(const DentalArchPlan& plan)
{
    Table table{{QStringLiteral("Universal"), QStringLiteral("FDI"), QStringLiteral("path index"),
                 QStringLiteral("nearest teeth"), QStringLiteral("label x"), QStringLiteral("y"),
                 QStringLiteral("z")}};
    for (const auto& arch : plan.arches) {
        for (const auto& label : plan.labels) {
            if (!isOfArch(*label, *arch))
                continue;
            const ToothChart::Tooth tooth = label->getToothType();
            const auto [first, second] = ToothLocator::getNearestToothIds(
                arch.get(), ComputeIndexOnGuidingLine::getToothPosition(tooth, arch.get(), false));
            const QVector3D at = label->getPosition();
            table.rows.append({QString::number(tooth), QString::number(fdiNumber(tooth)),
                               QString::number(ComputeIndexOnGuidingLine::getToothIndex(
                                   tooth, arch.get(), false)),
                               QStringLiteral("%1, %2").arg(first).arg(second), number(at.x(), 1),
                               number(at.y(), 1), number(at.z(), 1)});
        }
    }
    return table;
}

Table nervesTable(const Case& planned, const QList<NerveProposal>& nerves)
{
    Table table{{QStringLiteral("nerve"), QStringLiteral("mean mm"), QStringLiteral("largest mm"),
                 QStringLiteral("mean, from above"), QStringLiteral("largest, from above")}};
    for (const NerveProposal& nerve : nerves) {
        const CanalLine* canal = findCanal(planned.canals, nerve.right);
        if (!canal)
            continue;
        const Distances apart = distances(canal->points, nerve.spline->getOriginalPath());
        const Distances above = horizontalDistances(canal->points, nerve.spline->getOriginalPath());
        table.rows.append({sideName(nerve.right), number(apart.mean, 1), number(apart.largest, 1),
                           number(above.mean, 1), number(above.largest, 1)});
    }
    return table;
}

QString teethSentence(const DentalArchPlan& plan)
{
    if (plan.arches.isEmpty())
        return QStringLiteral("No arch is drawn: four tooth landmarks of one jaw are needed.");
    QString sentence = QStringLiteral("%1 teeth labeled on %2.")
                           .arg(plan.labels.size())
                           .arg(plan.arches.size() == 1 ? QStringLiteral("one arch")
                                                        : QStringLiteral("two arches"));
    if (plan.created)
        sentence +=
            QStringLiteral(
                " Tooth %1 (FDI %2) was left out of the mouth, found by its label and created; "
                "interpolated between its neighbors it lies %3 mm from its landmark.")
                .arg(plan.created->number)
                .arg(fdiNumber(plan.created->number))
                .arg(plan.created->distanceMm, 0, 'f', 1);
    return sentence;
}

QString nervesSentence(const Case& planned, const QList<NerveProposal>& nerves)
{
    if (nerves.isEmpty())
        return QStringLiteral("No nerve is proposed: both foramina of a side are needed.");
    QStringList parts;
    for (const QList<TableCell>& row : nervesTable(planned, nerves).rows)
        parts.append(
            QStringLiteral("%1 nerve: mean %2, largest %3 mm from the canal (from above %4 and %5)")
                .arg(row[0].text, row[1].text, row[2].text, row[3].text, row[4].text));
    const QString unknown = unknownCanals(planned, nerves);
    return (parts.isEmpty()
                ? QStringLiteral("Nerves proposed from the foramina.")
                : QStringLiteral("Proposed %1.").arg(parts.join(QStringLiteral("; ")))) +
           (unknown.isEmpty() ? QString() : u' ' + unknown);
}

} // namespace

Section createDentalSection(const Case& planned, Progress& progress)
{
    const DentalPictures pictures(planned, progress.onFraction());
    const DentalArchPlan plan = planTeeth(planned);
    QList<NerveProposal> nerves;
    for (const bool right : {true, false}) {
        if (auto nerve = proposeNerve(planned, right))
            nerves.append(*nerve);
    }

    Section section{QStringLiteral("dental"), QStringLiteral("Arches, teeth and nerves")};
    for (const auto& arch : plan.arches)
        section.pictures.append(archPicture(pictures, plan, *arch, progress));
    if (!nerves.isEmpty())
        section.pictures.append(nervesPicture(pictures, planned, nerves, progress));
    for (const NerveProposal& nerve : nerves)
        section.pictures.append(nervePicture(pictures, planned, nerve, progress));
    progress.finish();

    section.introduce(teethSentence(plan));
    section.introduce(nervesSentence(planned, nerves));
    if (!plan.arches.isEmpty())
        section.detailsHtml =
            QStringLiteral("<details><summary>All teeth</summary>\n%1</details>\n")
                .arg(teethTable(plan).html());
    const Table comparison = nervesTable(planned, nerves);
    if (!comparison.rows.isEmpty())
        section.detailsHtml +=
            QStringLiteral("<p>From the points of each canal's center line to the nearest sample "
                           "of the proposal, in space and as seen from above:</p>\n%1")
                .arg(comparison.html());
    return section;
}

} // namespace planner
