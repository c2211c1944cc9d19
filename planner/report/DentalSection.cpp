// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/DentalSection.h>

#include <planner/drawing/GreyScale.h>
#include <planner/drawing/Picture.h>
#include <planner/drawing/Sampling.h>
#include <planner/input/Progress.h>
#include <planner/planning/DentalPlan.h>
#include <planner/planning/Views.h>

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/dental/ToothLocator.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <algorithm>
#include <cmath>

namespace planner {

namespace {

constexpr float kSampleMm = 0.2F;
constexpr float kMarginMm = 18.0F;
constexpr float kNerveMarginMm =
    28.0F; // above and below the nerves lie teeth and the edge of the jaw
constexpr float kIntoTheCrownsMm = 4.0F;    // from the occlusal points to the slice of the arch
constexpr float kLabelBesideArchMm = 11.0F; // so that labels do not hide the teeth

const QColor kArchColour(0xff, 0xe1, 0x4d);
const QColor kPointColour(0x3d, 0xb8, 0xff);
const QColor kCreatedColour(0xff, 0x6f, 0xae);
const QColor kCanalColour(0x62, 0xd0, 0x72);
const QColor kProposalColour(0xff, 0x9d, 0x2e);

QString number(double value, int decimals)
{
    return QString::number(value, 'f', decimals);
}

QString fdiAndUniversal(int tooth)
{
    return QStringLiteral("%1 · %2").arg(tooth).arg(fdiNumber(tooth));
}

// A rectangle round positions, with a margin, in the plane through a point spanned by two axes.
std::shared_ptr<PlanarReslice> resliceRound(const QList<QVector3D>& positions,
                                            const QVector3D& point, const QVector3D& direction0,
                                            const QVector3D& direction1, float margin)
{
    float low0 = 0.0F;
    float high0 = 0.0F;
    float low1 = 0.0F;
    float high1 = 0.0F;
    for (const QVector3D& position : positions) {
        const float along0 = QVector3D::dotProduct(position - point, direction0);
        const float along1 = QVector3D::dotProduct(position - point, direction1);
        low0 = std::min(low0, along0);
        high0 = std::max(high0, along0);
        low1 = std::min(low1, along1);
        high1 = std::max(high1, along1);
    }
    auto reslice = std::make_shared<PlanarReslice>();
    reslice->setSampleSize({kSampleMm, kSampleMm, kSampleMm});
    reslice->setDimensions(
        {std::ceil(static_cast<double>(high0 - low0 + 2.0F * margin) / double(kSampleMm)),
         std::ceil(static_cast<double>(high1 - low1 + 2.0F * margin) / double(kSampleMm))});
    QMatrix4x4 matrix;
    matrix.setColumn(0, QVector4D(direction0, 0.0F));
    matrix.setColumn(1, QVector4D(direction1, 0.0F));
    matrix.setColumn(2, QVector4D(QVector3D::crossProduct(direction0, direction1), 0.0F));
    matrix.setColumn(
        3, QVector4D(point + direction0 * (low0 - margin) + direction1 * (low1 - margin), 1.0F));
    reslice->setTransformationFromResliceToWorld(matrix);
    return reslice;
}

// Anterior up, the patient's right on the left.
std::shared_ptr<PlanarReslice> axialReslice(const QList<QVector3D>& positions, float height)
{
    QVector3D point = positions.first();
    point.setZ(height);
    auto reslice =
        resliceRound(positions, point, {1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}, kMarginMm);
    reslice->setMirroredIn2D(false, true);
    return reslice;
}

// Upright through both foramina, seen from outside: anterior is on the left for the left side.
std::shared_ptr<PlanarReslice> uprightReslice(const QList<QVector3D>& positions,
                                              const NerveProposal& nerve)
{
    const QVector3D mental = nerve.points[1];
    const QVector3D mandibular = nerve.points[3];
    QVector3D towardsRight = nerve.right ? mental - mandibular : mandibular - mental;
    towardsRight.setZ(0.0F);
    return resliceRound(positions, mandibular, towardsRight.normalized(), {0.0F, 0.0F, 1.0F},
                        kNerveMarginMm);
}

QPointF inView(const PlanarReslice& reslice, const QVector3D& position)
{
    return CoordinateMapper::_3D_To_2D_PlanarPoint(&reslice, position);
}

PictureCurve curveOf(const QList<QVector3D>& path, const PlanarReslice& reslice,
                     const QColor& colour, bool dotted = false)
{
    PictureCurve curve{{}, colour, dotted ? 3.5 : 2.5, dotted};
    for (const auto& [point, verdict] : CoordinateMapper::mapAllPointsOntoReslice(path, reslice))
        curve.inView.append(point);
    return curve;
}

EdgeLetters edgesOf(const PlanarReslice& reslice, bool known)
{
    const QVector3D right = reslice.getDirection0(false);
    const QVector3D top =
        reslice.getDirection1(false) * (reslice.isMirroredVerticallyIn2D() ? -1.0F : 1.0F);
    return {directionLetters(-right, known), directionLetters(right, known),
            directionLetters(top, known), directionLetters(-top, known)};
}

// The slice cut out, as a picture without anything on it.
class Slices
{
public:
    Slices(const Case& openedCase, Progress& told)
        : planned(openedCase),
          progress(told),
          scale(openedCase.volume.image),
          sampler(openedCase.volume)
    {}

    PictureContent cut(const PlanarReslice& reslice, const QString& title)
    {
        progress.step(QStringLiteral("Sampling %1").arg(title));
        PictureContent content;
        content.samples =
            cutOut(sampler, scale, reslice, [this](double done) { progress.fraction(done); });
        content.sampleSizeMm = reslice.getSampleSize();
        content.edges = edgesOf(reslice, planned.volume.orientationKnown);
        return content;
    }

private:
    const Case& planned;
    Progress& progress;
    GreyScale scale;
    Sampler sampler;
};

QVector3D middleOf(const QList<QVector3D>& path)
{
    QVector3D sum;
    for (const QVector3D& sample : path)
        sum += sample / static_cast<float>(path.size());
    return sum;
}

// Beside the arch, on its outer side.
QVector3D besideArch(const ToothAnnotation3D& label, const PlanarDentalSpline& arch)
{
    QVector3D outwards =
        QVector3D::crossProduct(label.getDirection(), arch.getUpperDirection()).normalized();
    if (QVector3D::dotProduct(outwards, label.getPosition() - middleOf(arch.getOriginalPath())) <
        0.0F)
        outwards = -outwards;
    return label.getPosition() + outwards * kLabelBesideArchMm;
}

bool isOfArch(const ToothAnnotation3D& label, const PlanarDentalSpline& arch)
{
    return ToothChart::getArchTypeOfTooth(label.getToothType()) == arch.getArchType();
}

void addArch(Section& section, Slices& slices, const DentalPlan& plan, PlanarDentalSpline& arch)
{
    const bool upper = arch.getArchType() == ToothChart::UpperArch;
    const QList<QVector3D>& path = arch.getOriginalPath();
    const float height = path.first().z() + (upper ? kIntoTheCrownsMm : -kIntoTheCrownsMm);
    const auto reslice = axialReslice(path, height);
    const QString title = upper ? QStringLiteral("Upper arch") : QStringLiteral("Lower arch");
    PictureContent content = slices.cut(*reslice, QStringLiteral("the ") + title.toLower());
    content.curves.append(curveOf(path, *reslice, kArchColour));
    for (const auto& point : arch.getControlPoints())
        content.notes.append(
            {inView(*reslice, point->getPosition()), PictureNote::Dot, {}, kPointColour});
    QString createdSentence;
    for (const auto& label : plan.labels) {
        if (!isOfArch(*label, arch))
            continue;
        const bool created = plan.created && plan.created->number == label->getToothType();
        content.notes.append({inView(*reslice, besideArch(*label, arch)), PictureNote::NoSymbol,
                              fdiAndUniversal(label->getToothType()),
                              created ? kCreatedColour : kPointColour.lighter(125)});
        if (created) {
            content.notes.append({inView(*reslice, plan.created->interpolated),
                                  PictureNote::Ring,
                                  {},
                                  kCreatedColour});
            createdSentence = QStringLiteral(" The ring is the created tooth.");
        }
    }
    const QString caption =
        QStringLiteral(
            "<p>The arch is drawn through the occlusal points of its teeth, its control points "
            "(dots), all at their mean height. Labels: Universal · FDI number, set outside the "
            "arch.%1</p><p>Slice at z = %2 mm, %3 mm into the crowns.</p>")
            .arg(createdSentence, number(static_cast<double>(height), 1),
                 number(static_cast<double>(kIntoTheCrownsMm), 0));
    section.pictures.append(
        {upper ? QStringLiteral("arch-upper.png") : QStringLiteral("arch-lower.png"), title,
         caption, paintPicture(content)});
}

void drawNerve(PictureContent& content, const PlanarReslice& reslice, const NerveProposal& nerve,
               const CanalLine* canal)
{
    if (canal)
        content.curves.append(curveOf(canal->points, reslice, kCanalColour, true));
    content.curves.append(curveOf(nerve.spline->getOriginalPath(), reslice, kProposalColour));
    for (const QVector3D& point : nerve.points)
        content.notes.append({inView(reslice, point), PictureNote::Dot, {}, kProposalColour});
}

qsizetype comparedNerves(const Case& planned, const QList<NerveProposal>& nerves)
{
    return std::count_if(nerves.cbegin(), nerves.cend(), [&planned](const NerveProposal& nerve) {
        return findCanal(planned.canals, nerve.right) != nullptr;
    });
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
    const auto lowest =
        std::min_element(canal->points.cbegin(), canal->points.cend(),
                         [](const QVector3D& a, const QVector3D& b) { return a.z() < b.z(); });
    const double sag = static_cast<double>(nerve.points[2].z() - lowest->z());
    if (sag > 0.0)
        sentence +=
            QStringLiteral(
                " The canal (dotted) sags up to %1 mm below it: the surgeon lowers the middle.")
                .arg(sag, 0, 'f', 1);
    return sentence;
}

void addNerves(Section& section, Slices& slices, const Case& planned,
               const QList<NerveProposal>& nerves)
{
    QList<QVector3D> all;
    float height = 0.0F;
    for (const NerveProposal& nerve : nerves) {
        all += nerve.points;
        height += nerve.points.first().z() / static_cast<float>(nerves.size());
    }
    QString legend = QStringLiteral("Solid: the proposal with its five control points.");
    const QString unknown = unknownCanals(planned, nerves);
    if (comparedNerves(planned, nerves) > 0)
        legend += QStringLiteral(" Dotted: the canal's known center line.");
    if (!unknown.isEmpty())
        legend += u' ' + unknown;
    const auto axial = axialReslice(all, height);
    PictureContent fromBelow = slices.cut(*axial, QStringLiteral("the nerves from below"));
    for (const NerveProposal& nerve : nerves)
        drawNerve(fromBelow, *axial, nerve, findCanal(planned.canals, nerve.right));
    section.pictures.append(
        {QStringLiteral("nerves-axial.png"), QStringLiteral("Proposed nerves, axial"),
         QStringLiteral(
             "<p>%1</p><p>Slice at z = %2 mm, the mean height of the proposals; all lines are "
             "projected onto it.</p>")
             .arg(legend, number(static_cast<double>(height), 1)),
         paintPicture(fromBelow)});
    for (const NerveProposal& nerve : nerves) {
        const CanalLine* canal = findCanal(planned.canals, nerve.right);
        QList<QVector3D> shown = nerve.points;
        if (canal)
            shown += canal->points;
        const auto upright = uprightReslice(shown, nerve);
        const QString name = sideName(nerve.right);
        PictureContent content =
            slices.cut(*upright, QStringLiteral("the %1 nerve from the side").arg(name));
        drawNerve(content, *upright, nerve, canal);
        section.pictures.append({QStringLiteral("nerve-%1.png").arg(name),
                                 QStringLiteral("Proposed nerve, %1, from the side").arg(name),
                                 QStringLiteral("<p>Upright cut through both foramina. %1</p>")
                                     .arg(sidewaysSentence(nerve, canal).toHtmlEscaped()),
                                 paintPicture(content)});
    }
}

struct Table
{
    QStringList headings;
    QList<QStringList> rows;
};

QString htmlOf(const Table& table)
{
    QString html = QStringLiteral("<div class=\"scroll\"><table>\n<tr>");
    for (const QString& heading : table.headings)
        html += QStringLiteral("<th>%1</th>").arg(heading);
    html += QStringLiteral("</tr>\n");
    for (const QStringList& row : table.rows) {
        html += QStringLiteral("<tr>");
        for (const QString& cell : row)
            html += QStringLiteral("<td>%1</td>").arg(cell.toHtmlEscaped());
        html += QStringLiteral("</tr>\n");
    }
    return html + QStringLiteral("</table></div>\n");
}

Table teethTable(const DentalPlan& plan)
{
    Table table{{QStringLiteral("Universal"), QStringLiteral("FDI"), QStringLiteral("path index"),
                 QStringLiteral("nearest teeth"), QStringLiteral("label x"), QStringLiteral("y"),
                 QStringLiteral("z")},
                {}};
    for (const auto& arch : plan.arches) {
        for (const auto& label : plan.labels) {
            if (!isOfArch(*label, *arch))
                continue;
            const ToothChart::Tooth tooth = label->getToothType();
            const auto [first, second] = ToothLocator::getNearestToothIds(
                arch.get(), ComputeIndexOnGuidingLine::getToothPosition(tooth, arch.get(), false));
            const QVector3D at = label->getPosition();
            table.rows.append(
                {QString::number(tooth), QString::number(fdiNumber(tooth)),
                 QString::number(
                     ComputeIndexOnGuidingLine::getToothIndex(tooth, arch.get(), false)),
                 QStringLiteral("%1, %2").arg(first).arg(second),
                 number(static_cast<double>(at.x()), 1), number(static_cast<double>(at.y()), 1),
                 number(static_cast<double>(at.z()), 1)});
        }
    }
    return table;
}

Table nervesTable(const Case& planned, const QList<NerveProposal>& nerves)
{
    Table table{{QStringLiteral("nerve"), QStringLiteral("mean mm"), QStringLiteral("largest mm"),
                 QStringLiteral("mean, from above"), QStringLiteral("largest, from above")},
                {}};
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

QString teethSentence(const DentalPlan& plan)
{
    if (plan.arches.isEmpty())
        return QStringLiteral("No arch is drawn: four tooth landmarks of one jaw are needed.");
    QString sentence = QStringLiteral("%1 teeth labelled on %2.")
                           .arg(plan.labels.size())
                           .arg(plan.arches.size() == 1 ? QStringLiteral("one arch")
                                                        : QStringLiteral("two arches"));
    if (plan.created)
        sentence +=
            QStringLiteral(
                " Tooth %1 (FDI %2) was left out of the mouth, found by its label and created; "
                "interpolated between its neighbours it lies %3 mm from its landmark.")
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
    for (const QStringList& row : nervesTable(planned, nerves).rows)
        parts.append(
            QStringLiteral("%1 nerve: mean %2, largest %3 mm from the canal (from above %4 and %5)")
                .arg(row[0], row[1], row[2], row[3], row[4]));
    const QString unknown = unknownCanals(planned, nerves);
    return (parts.isEmpty()
                ? QStringLiteral("Nerves proposed from the foramina.")
                : QStringLiteral("Proposed %1.").arg(parts.join(QStringLiteral("; ")))) +
           (unknown.isEmpty() ? QString() : u' ' + unknown);
}

} // namespace

Section createDentalSection(const Case& planned, Progress& progress)
{
    Slices slices(planned, progress);
    const DentalPlan plan = planTeeth(planned);
    QList<NerveProposal> nerves;
    for (const bool right : {true, false}) {
        if (auto nerve = proposeNerve(planned, right))
            nerves.append(*nerve);
    }

    Section section;
    section.id = QStringLiteral("dental");
    section.title = QStringLiteral("Arches, teeth and nerves");
    for (const auto& arch : plan.arches)
        addArch(section, slices, plan, *arch);
    if (!nerves.isEmpty())
        addNerves(section, slices, planned, nerves);
    progress.finish();

    section.introductionHtml = QStringLiteral("<p>%1</p>\n<p>%2</p>\n")
                                   .arg(teethSentence(plan).toHtmlEscaped(),
                                        nervesSentence(planned, nerves).toHtmlEscaped());
    if (!plan.arches.isEmpty())
        section.detailsHtml =
            QStringLiteral("<details><summary>All teeth</summary>\n%1</details>\n")
                .arg(htmlOf(teethTable(plan)));
    const Table comparison = nervesTable(planned, nerves);
    if (!comparison.rows.isEmpty())
        section.detailsHtml +=
            QStringLiteral(
                "<p>From the points of each canal's center line to the nearest sample of the "
                "proposal, in space and as seen from above:</p>\n%1")
                .arg(htmlOf(comparison));
    section.plainText = teethSentence(plan) + u'\n' + nervesSentence(planned, nerves) + u'\n';
    return section;
}

} // namespace planner
