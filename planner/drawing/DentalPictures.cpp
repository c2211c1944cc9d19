// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/DentalPictures.h>

#include <planner/planning/Vectors.h>

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace planner {

namespace {

constexpr float kSampleMm = 0.2F;
constexpr float kMarginMm = 18.0F;
constexpr float kNerveMarginMm = 28.0F;     // to the teeth and to the edge of the jaw
constexpr float kLabelBesideArchMm = 11.0F; // so that labels do not hide the teeth

const QColor kArchColor(0xff, 0xe1, 0x4d);
const QColor kPointColor(0x3d, 0xb8, 0xff);
const QColor kCreatedColor(0xff, 0x6f, 0xae);
const QColor kCanalColor(0x62, 0xd0, 0x72);
const QColor kProposalColor(0xff, 0x9d, 0x2e);

QString fdiAndUniversal(int tooth)
{
    return QStringLiteral("%1 · %2").arg(tooth).arg(fdiNumber(tooth));
}

// A rectangle around positions, with a margin, in the plane through a point spanned by two axes.
std::shared_ptr<PlanarReslice> resliceAround(const QList<QVector3D>& positions,
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
    reslice->setDimensions({std::ceil((high0 - low0 + 2.0F * margin) / double(kSampleMm)),
                            std::ceil((high1 - low1 + 2.0F * margin) / double(kSampleMm))});
    reslice->setTransformationFromResliceToWorld(
        frameOf(direction0, direction1, QVector3D::crossProduct(direction0, direction1),
                point + direction0 * (low0 - margin) + direction1 * (low1 - margin)));
    return reslice;
}

// Anterior up, the patient's right on the left.
std::shared_ptr<PlanarReslice> axialReslice(const QList<QVector3D>& positions, float height)
{
    QVector3D point = positions.first();
    point.setZ(height);
    auto reslice =
        resliceAround(positions, point, {1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}, kMarginMm);
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
    return resliceAround(positions, mandibular, towardsRight.normalized(), {0.0F, 0.0F, 1.0F},
                         kNerveMarginMm);
}

QPointF inView(const PlanarReslice& reslice, const QVector3D& position)
{
    return CoordinateMapper::_3D_To_2D_PlanarPoint(&reslice, position);
}

PictureCurve curveOf(const QList<QVector3D>& path, const PlanarReslice& reslice,
                     const QColor& color, bool dotted = false)
{
    PictureCurve curve{{}, color, dotted ? 3.5 : 2.5, dotted};
    for (const auto& [point, verdict] : CoordinateMapper::mapAllPointsOntoReslice(path, reslice))
        curve.inView.append(point);
    return curve;
}

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

void drawNerve(PictureContent& content, const PlanarReslice& reslice, const NerveProposal& nerve,
               const CanalLine* canal)
{
    if (canal)
        content.curves.append(curveOf(canal->points, reslice, kCanalColor, true));
    content.curves.append(curveOf(nerve.spline->getOriginalPath(), reslice, kProposalColor));
    for (const QVector3D& point : nerve.points)
        content.notes.append({inView(reslice, point), PictureNote::Dot, {}, kProposalColor});
}

} // namespace

float sliceHeight(PlanarDentalSpline& arch)
{
    const bool upper = arch.getArchType() == ToothChart::UpperArch;
    return arch.getOriginalPath().first().z() + (upper ? kIntoTheCrownsMm : -kIntoTheCrownsMm);
}

float meanHeight(const QList<NerveProposal>& nerves)
{
    float height = 0.0F;
    for (const NerveProposal& nerve : nerves)
        height += nerve.points.first().z() / static_cast<float>(nerves.size());
    return height;
}

bool isOfArch(const ToothAnnotation3D& label, const PlanarDentalSpline& arch)
{
    return ToothChart::getArchTypeOfTooth(label.getToothType()) == arch.getArchType();
}

DentalPictures::DentalPictures(const Case& openedCase, std::function<void(double)> onFraction)
    : planned(openedCase),
      progress(std::move(onFraction)),
      scale(openedCase.volume.image),
      sampler(openedCase.volume)
{}

QImage DentalPictures::paintArch(const DentalArchPlan& plan, PlanarDentalSpline& arch) const
{
    const QList<QVector3D>& path = arch.getOriginalPath();
    const auto reslice = axialReslice(path, sliceHeight(arch));
    PictureContent content = cut(*reslice);
    content.curves.append(curveOf(path, *reslice, kArchColor));
    for (const auto& point : arch.getControlPoints())
        content.notes.append(
            {inView(*reslice, point->getPosition()), PictureNote::Dot, {}, kPointColor});
    for (const auto& label : plan.labels) {
        if (!isOfArch(*label, arch))
            continue;
        const bool created = plan.created && plan.created->number == label->getToothType();
        content.notes.append({inView(*reslice, besideArch(*label, arch)), PictureNote::NoSymbol,
                              fdiAndUniversal(label->getToothType()),
                              created ? kCreatedColor : kPointColor.lighter(125)});
        if (created)
            content.notes.append({inView(*reslice, plan.created->interpolated),
                                  PictureNote::Ring,
                                  {},
                                  kCreatedColor});
    }
    return paintPicture(content);
}

QImage DentalPictures::paintNerves(const QList<NerveProposal>& nerves) const
{
    QList<QVector3D> points;
    for (const NerveProposal& nerve : nerves)
        points += nerve.points;
    const auto axial = axialReslice(points, meanHeight(nerves));
    PictureContent content = cut(*axial);
    for (const NerveProposal& nerve : nerves)
        drawNerve(content, *axial, nerve, findCanal(planned.canals, nerve.right));
    return paintPicture(content);
}

QImage DentalPictures::paintFromSide(const NerveProposal& nerve) const
{
    const CanalLine* canal = findCanal(planned.canals, nerve.right);
    QList<QVector3D> points = nerve.points;
    if (canal)
        points += canal->points;
    const auto upright = uprightReslice(points, nerve);
    PictureContent content = cut(*upright);
    drawNerve(content, *upright, nerve, canal);
    return paintPicture(content);
}

// The slice without anything on it.
PictureContent DentalPictures::cut(const PlanarReslice& reslice) const
{
    PictureContent content;
    content.samples = cutOut(sampler, scale, reslice, progress);
    content.sampleSizeMm = reslice.getSampleSize();
    content.edges = edgesOf(reslice, planned.volume.orientationKnown);
    return content;
}

} // namespace planner
