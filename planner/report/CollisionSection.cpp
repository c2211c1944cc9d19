// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

#include <planner/drawing/CollisionPictures.h>
#include <planner/drawing/GreyScale.h>
#include <planner/drawing/Sampling.h>
#include <planner/input/Progress.h>
#include <planner/planning/CollisionFindings.h>
#include <planner/planning/CollisionPlan.h>
#include <planner/report/Table.h>

#include <algorithm>
#include <iterator>

namespace planner {

namespace {

constexpr qsizetype kDraggedImplant = 0; // 46 where it is planned
constexpr int kDragSteps = 6;
constexpr double kDragStepMm = 0.8;

QList<Finding> collisionsOf(const QList<Finding>& findings)
{
    QList<Finding> found;
    std::ranges::copy_if(findings, std::back_inserter(found), &Finding::collides);
    return found;
}

// The nearest pair with a nerve among those that count; null without one.
template <typename Counts>
const Finding* closestNerve(const QList<Finding>& findings, const Counts& counts)
{
    const Finding* closest = nullptr;
    for (const Finding& finding : findings) {
        if (finding.other.kind == PartKind::Nerve && counts(finding) &&
            (!closest || finding.clearance.distance < closest->clearance.distance))
            closest = &finding;
    }
    return closest;
}

QString legendItem(QRgb color, double opacity, const QString& text)
{
    return QStringLiteral(
               "<li><svg width=\"16\" height=\"16\"><circle cx=\"8\" cy=\"8\" r=\"6\" fill=\"%1\" "
               "fill-opacity=\"%2\" stroke=\"%1\" stroke-width=\"2\"/></svg>%3</li>")
        .arg(QColor(color).name())
        .arg(opacity)
        .arg(text);
}

QString legendHtml(const CollisionPlan& plan)
{
    return QStringLiteral("<ul class=\"legend\">") +
           legendItem(0xff9fb0bf, 1.0, QStringLiteral("implant")) +
           legendItem(collisionColors::kZone, 0.2, QStringLiteral("its zone of 3 mm")) +
           legendItem(collisionColors::kNerve, 1.0, QStringLiteral("nerve")) +
           (plan.pins.isEmpty()
                ? QString()
                : legendItem(collisionColors::kPin, 1.0, QStringLiteral("anchor pin"))) +
           legendItem(collisionColors::kColliding, 1.0, QStringLiteral("colliding")) +
           QStringLiteral("</ul>\n");
}

TableCell verdictOf(const Finding& finding)
{
    const QString clearance = number(finding.clearance.distance, 1);
    if (finding.collides)
        return {QStringLiteral("collision ") + clearance, TableCell::Alarming};
    return QStringLiteral("clear ") + clearance;
}

QString measures(const PlannedImplant& implant)
{
    const dataobject::ImplantDimensions& size = implant.object->getDimensions();
    return QStringLiteral("%1 × %2").arg(size.diameter).arg(size.length);
}

// A row for each implant, a column for each object; what two rows share stands once, above the
// diagonal.
Table verdictTable(const CollisionPlan& plan, const QList<Finding>& findings)
{
    Table table{{QStringLiteral("implant"), QStringLiteral("mm")}};
    for (const PlannedImplant& implant : plan.implants)
        table.headings.append(implant.name);
    for (const PlannedNerve& nerve : plan.nerves)
        table.headings.append(nerve.name);
    for (const PlannedPin& pin : plan.pins)
        table.headings.append(pin.name);
    for (qsizetype i = 0; i < plan.implants.size(); ++i) {
        QList<TableCell> row = {{plan.implants[i].name, TableCell::Bold},
                                measures(plan.implants[i])};
        row.insert(row.size(), i + 1, QString());
        for (const Finding& finding : findings) {
            if (finding.implant == i)
                row.append(verdictOf(finding));
        }
        table.rows.append(row);
    }
    return table;
}

QString summary(const CollisionPlan& plan, const QList<Finding>& findings)
{
    const QList<Finding> collisions = collisionsOf(findings);
    QStringList names;
    for (const Finding& finding : collisions)
        names.append(QStringLiteral("%1 and %2")
                         .arg(plan.implants[finding.implant].name, nameOf(plan, finding.other)));
    const auto counted = [](qsizetype count, const QString& thing) {
        return QStringLiteral("%1 %2%3").arg(count).arg(thing, count == 1 ? QString()
                                                                          : QStringLiteral("s"));
    };
    const QString implants = counted(plan.implants.size(), QStringLiteral("implant"));
    const QString nerves = counted(plan.nerves.size(), QStringLiteral("nerve"));
    const QString objects =
        plan.pins.isEmpty()
            ? QStringLiteral("%1 and %2").arg(implants, nerves)
            : QStringLiteral("%1, %2 and %3")
                  .arg(implants, nerves, counted(plan.pins.size(), QStringLiteral("anchor pin")));
    const QString verdicts =
        QStringLiteral("%1: %2 of %3 pairs collide%4.")
            .arg(objects)
            .arg(collisions.size())
            .arg(findings.size())
            .arg(names.isEmpty() ? QString()
                                 : QStringLiteral(" (%1)").arg(names.join(QStringLiteral("; "))));
    return (QStringList(verdicts) + reportedThoughApart(plan, findings)).join(u' ');
}

QString dragSentence(const CollisionPlan& plan, const PlannedNerve& nerve,
                     const QList<DragStep>& steps)
{
    const auto first = std::ranges::find_if(steps, &DragStep::collides);
    const auto notified = std::ranges::count_if(steps, &DragStep::notified);
    const QString name = plan.implants[kDraggedImplant].name;
    const QString observer =
        QStringLiteral(" In %1 steps the detector notified its observer of a change %2.")
            .arg(steps.size())
            .arg(notified == 1 ? QStringLiteral("once") : QStringLiteral("%1 times").arg(notified));
    if (first == steps.cend())
        return QStringLiteral("Implant %1, pushed deeper in steps of %2 mm, stays clear of the %3: "
                              "%4 mm are left between them at the end.")
                   .arg(name, number(kDragStepMm, 1), nerve.name,
                        number(steps.last().clearance.distance, 1)) +
               observer;
    if (first == steps.cbegin())
        return QStringLiteral("Implant %1 collides with the %2 already where it is planned, with "
                              "%3 mm left between them, and on its way deeper.")
                   .arg(name, nerve.name, number(first->clearance.distance, 1)) +
               observer;
    return QStringLiteral("Implant %1, pushed deeper in steps of %2 mm, collides with the %3 from "
                          "%4 mm on, with %5 mm left between them.")
               .arg(name, number(kDragStepMm, 1), nerve.name, number(first->wayMm, 1),
                    number(first->clearance.distance, 1)) +
           observer;
}

// Why there is nothing to test; empty if there is something.
QString missing(const CollisionPlan& plan)
{
    if (plan.nerves.isEmpty())
        return QStringLiteral("No collisions are tested: the course of the nerves is not known.");
    if (plan.implants.isEmpty())
        return QStringLiteral("No collisions are tested: an implant takes the place of tooth 46 or "
                              "36, and of neither are crown and apex both known.");
    return {};
}

QString introduction(const Case& planned)
{
    QString sentences =
        planned.patient
            ? QStringLiteral(
                  "A plan made to show collisions: the lower teeth give way to eight implants.")
            : QStringLiteral("Implants take the places of lower first molars, 1 mm above the apex "
                             "of the root, and are tested against the known canals.");
    sentences += QStringLiteral(
        " Implants must not meet each other; within the zone of 3 mm there must be no nerve and no "
        "anchor pin. The zone reaches 3 mm below an implant and 1.5 mm to its sides.");
    for (const bool right : {true, false}) {
        const CanalLine* canal = findCanal(planned.canals, right);
        if (!canal)
            sentences +=
                QStringLiteral(
                    " The course of the %1 nerve is not known: nothing is tested against it.")
                    .arg(sideName(right));
        else if (!canal->radiusMm)
            sentences +=
                QStringLiteral(" The radius of the %1 canal is not known: %2 mm are assumed.")
                    .arg(sideName(right))
                    .arg(kAssumedCanalRadiusMm);
    }
    return sentences;
}

QString cutsTitle(const QList<Finding>& shown)
{
    const auto collisions = std::ranges::count_if(shown, &Finding::collides);
    if (collisions == shown.size())
        return QStringLiteral("The collisions");
    return collisions > 0 ? QStringLiteral("The collisions, and the closest nerve that is clear")
                          : QStringLiteral("The closest nerve, which is clear");
}

} // namespace

Section createCollisionSection(const Case& planned, Progress& progress)
{
    Section section{QStringLiteral("collisions"), QStringLiteral("Collisions")};
    const CollisionPlan plan = createCollisionPlan(planned);
    const QString why = missing(plan);
    if (!why.isEmpty()) {
        section.introduce(why);
        return section;
    }
    progress.step(QStringLiteral("Detecting collisions"));
    const QList<Finding> findings = findCollisions(plan);
    const auto isOfDragged = [](const Finding& finding) {
        return finding.implant == kDraggedImplant;
    };
    const qsizetype nerve = closestNerve(findings, isOfDragged)->other.number;
    const QList<DragStep> steps = dragDeeper(plan, kDraggedImplant, nerve, kDragSteps, kDragStepMm);
    const QString drag = dragSentence(plan, plan.nerves[nerve], steps);

    progress.step(QStringLiteral("Painting the lower jaw"));
    const Sampler sampler(planned.volume);
    const GreyScale scale(planned.volume.image);
    const bool known = planned.volume.orientationKnown;
    QList<Finding> shown = collisionsOf(findings);
    // Beside the collisions, the nerve that is clear by least.
    if (const auto* clear = closestNerve(findings, [](const Finding& f) { return !f.collides; }))
        shown.append(*clear);
    section.pictures.append(
        {QStringLiteral("collisions-jaw.png"), QStringLiteral("The lower jaw"),
         QStringLiteral("<p>Seen from the front, from above and from the patient's left%1. An "
                        "implant in red collides with whatever else is red next to it; a red zone "
                        "means that a nerve or a pin is within it.</p>")
             .arg(isBoneShown(scale)
                      ? QStringLiteral(", the bone as glass and cut at the necks of the teeth")
                      : QStringLiteral(", without the bone, which these grey values do not tell")),
         paintJaw(planned, sampler, scale, plan, findings, progress.onFraction())});
    section.pictures.append(
        {QStringLiteral("collisions-cuts.png"), cutsTitle(shown),
         QStringLiteral(
             "<p>Cuts through the axis of the first implant and the place of the nerve or pin that "
             "is nearest to it, or the platform of the second implant. Dashed: the zone in which "
             "no nerve and no pin may be. The CT still shows the teeth.</p>"),
         paintFindings(sampler, scale, known, plan, shown)});
    section.pictures.append(
        {QStringLiteral("collisions-drag.png"),
         QStringLiteral("Implant %1 on its way to the nerve")
             .arg(plan.implants[kDraggedImplant].name),
         QStringLiteral("<p>%1</p>").arg(drag.toHtmlEscaped()),
         paintDrag(sampler, scale, known, plan, kDraggedImplant, nerve, steps)});
    progress.finish();

    section.introductionHtml =
        QStringLiteral("<p>%1</p>\n").arg(introduction(planned).toHtmlEscaped()) + legendHtml(plan);
    section.detailsHtml =
        QStringLiteral("<p>%1</p>\n<details open><summary>All verdicts</summary>\n<p>Each cell "
                       "holds the verdict of the detector and the clearance from the body to "
                       "the other object in mm.</p>\n%2</details>\n")
            .arg(summary(plan, findings).toHtmlEscaped(), verdictTable(plan, findings).html());
    section.plainText = summary(plan, findings) + u'\n' + drag + u'\n';
    return section;
}

} // namespace planner
