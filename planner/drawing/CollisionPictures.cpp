// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/CollisionPictures.h>

#include <planner/drawing/GreyScale.h>
#include <planner/drawing/PictureStyle.h>
#include <planner/drawing/Sampling.h>
#include <planner/input/Case.h>
#include <planner/planning/DentalPlan.h>
#include <planner/planning/Meshes.h>
#include <planner/planning/Vectors.h>
#include <planner/planning/Views.h>

#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <phantom/Phantom.h>

#include <Eigen/Geometry>

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

namespace planner {

namespace {

const QColor kClearColour(0x5f, 0xd3, 0x7a);
const QColor kBoneColour(0xe8, 0xdc, 0xc4);

// The jaw.
const QSize kJawPixels(1240, 880);
constexpr double kJawMmPerPixel = 0.108;
constexpr float kAroundJawMm = 13.0F;    // what is searched for bone around the canals and the arch
constexpr double kBoneThreshold = 200.0; // between soft tissue and cancellous bone
constexpr double kLabelThreshold = 0.5;
constexpr float kToothWidthMm = 10.0F;        // of a lower molar
constexpr float kBelowNecksMm = 1.0F;         // the bone is cut here
constexpr float kTeethBeforeArchEndMm = 3.0F; // no crown reaches farther back
constexpr float kRamusBesideArchMm = 5.0F;

// Cuts.
constexpr float kCutWidthMm = 26.0F;
constexpr float kCutHeightMm = 30.0F;
constexpr float kAbovePlatformMm = 6.0F;

void paintLabel(QPainter& painter, const QPointF& middle, const QString& text, const QColor& colour)
{
    const QFontMetricsF metrics(painter.font());
    QPainterPath letters;
    letters.addText(middle.x() - metrics.horizontalAdvance(text) / 2.0,
                    middle.y() + metrics.ascent() / 2.0 - 1.0, painter.font(), text);
    painter.strokePath(letters,
                       QPen(QColor(0, 0, 0, 220), 4.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(letters, colour);
}

QColor colourOf(const QList<Finding>& findings, const PlanPart& part)
{
    if (isColliding(findings, part))
        return collisionColours::kColliding;
    switch (part.kind) {
    case PartKind::Implant:
        return collisionColours::kImplant;
    case PartKind::Nerve:
        return collisionColours::kNerve;
    case PartKind::Pin:
        break;
    }
    return collisionColours::kPin;
}

// ---- the jaw in space

// The arch at the necks of the lower teeth, from the patient's right to the left, reaching a
// tooth's width beyond them.
QList<QVector3D> archAtNecks(const Case& planned, const Plan& plan)
{
    if (planned.patient)
        return planned.patient->archCurve(ToothChart::LowerArch);
    QList<QVector3D> arch;
    for (const Landmark& landmark : planned.landmarks) {
        if (toothNumberOf(landmark) > ToothChart::LastUpperTooth)
            arch.append(landmark.position);
    }
    std::sort(arch.begin(), arch.end(),
              [](const QVector3D& a, const QVector3D& b) { return a.x() < b.x(); });
    float necks = 0.0F;
    for (const PlannedImplant& implant : plan.implants)
        necks +=
            implant.object->getObjectTransform()(2, 3) / static_cast<float>(plan.implants.size());
    const auto behind = [](const QVector3D& tooth) {
        return tooth + QVector3D(0.0F, kToothWidthMm, 0.0F);
    };
    arch.prepend(behind(arch.first()));
    arch.append(behind(arch.last()));
    for (QVector3D& point : arch)
        point.setZ(necks);
    return arch;
}

// Between soft tissue and cancellous bone, or between nothing and any label; nothing where the
// values do not tell.
std::optional<double> boneThreshold(const GreyScale& scale)
{
    switch (scale.kind()) {
    case GreyValueKind::Hounsfield:
        return kBoneThreshold;
    case GreyValueKind::Labels:
        return kLabelThreshold;
    case GreyValueKind::Raw:
        break;
    }
    return std::nullopt;
}

ShownBone lowerJaw(const Case& planned, const Plan& plan, const Sampler& sampler)
{
    const QList<QVector3D> arch = archAtNecks(planned, plan);
    QList<QVector3D> points = arch;
    for (const PlannedNerve& nerve : plan.nerves)
        points += nerve.centreLine;
    ShownBone bone;
    bone.low = bone.high = points.first();
    for (const QVector3D& point : points) {
        for (int axis = 0; axis < 3; ++axis) {
            bone.low[axis] = std::min(bone.low[axis], point[axis] - kAroundJawMm);
            bone.high[axis] = std::max(bone.high[axis], point[axis] + kAroundJawMm);
        }
    }
    const float necks = arch[arch.size() / 2].z() - kBelowNecksMm;
    const float behindTeeth = std::max(arch.first().y(), arch.last().y()) - kTeethBeforeArchEndMm;
    const float right = arch.first().x() - kRamusBesideArchMm;
    const float left = arch.last().x() + kRamusBesideArchMm;
    bone.sampler = &sampler;
    // Without the teeth and all that is above them, but with the rami.
    bone.isShown = [=](const QVector3D& p) {
        return p.z() <= necks || (p.y() > behindTeeth && (p.x() < right || p.x() > left));
    };
    bone.colour = kBoneColour;
    bone.opacity = 0.38;
    return bone;
}

QList<ShownMesh> sceneOf(const Plan& plan, const QList<Finding>& findings)
{
    QList<ShownMesh> meshes;
    for (qsizetype i = 0; i < plan.implants.size(); ++i) {
        meshes.append(
            {zoneMesh(plan.implants[i], 0.0F), colourOf(findings, {PartKind::Implant, i})});
        meshes.append(
            {zoneMesh(plan.implants[i], 3.0F),
             isZoneMet(findings, i) ? collisionColours::kColliding : collisionColours::kZone,
             0.13});
    }
    for (qsizetype i = 0; i < plan.nerves.size(); ++i)
        meshes.append(
            {placedMesh(*plan.nerves[i].object), colourOf(findings, {PartKind::Nerve, i})});
    for (qsizetype i = 0; i < plan.pins.size(); ++i)
        meshes.append({pinMesh(plan.pins[i]), colourOf(findings, {PartKind::Pin, i})});
    return meshes;
}

void paintNames(QPainter& painter, const Camera& camera, const Plan& plan,
                const QList<Finding>& findings)
{
    painter.setFont(fontOf(21, true));
    for (qsizetype i = 0; i < plan.implants.size(); ++i) {
        const QVector3D above =
            plan.implants[i].object->getObjectTransform().map(QVector3D(0.0F, 0.0F, 3.0F));
        paintLabel(painter, camera.project(above) - QPointF(0.0, 14.0), plan.implants[i].name,
                   colourOf(findings, {PartKind::Implant, i}));
    }
    painter.setFont(fontOf(18, false));
    for (qsizetype i = 0; i < plan.pins.size(); ++i) {
        const QVector3D beyond = plan.pins[i].object->getObjectTransform().map(
            QVector3D(0.0F, 0.0F, plan.pins[i].lengthMm + 2.0F));
        paintLabel(painter, camera.project(beyond) + QPointF(0.0, 34.0), plan.pins[i].name,
                   colourOf(findings, {PartKind::Pin, i}).lighter(125));
    }
    for (qsizetype i = 0; i < plan.nerves.size(); ++i) {
        const QList<QVector3D>& line = plan.nerves[i].centreLine;
        const QVector3D start = line.first();
        paintLabel(painter, camera.project(start) + QPointF(0.0, -26.0), plan.nerves[i].name,
                   colourOf(findings, {PartKind::Nerve, i}));
    }
}

// ---- cuts

struct Cut
{
    std::shared_ptr<PlanarReslice> reslice = std::make_shared<PlanarReslice>();
    QString letters; ///< of the left and of the right edge
};

// Upright along the axis of the implant, through a point beside it; the patient's right or front is
// on the left.
Cut cutThrough(const PlannedImplant& implant, const QVector3D& beside, const QSize& pixels,
               bool orientationKnown)
{
    const QMatrix4x4& placed = implant.object->getObjectTransform();
    const Eigen::Vector3d platform = toEigen(placed.column(3).toVector3D());
    const Eigen::Vector3d up = toEigen(placed.column(2).toVector3D());
    Eigen::Vector3d across = toEigen(beside) - platform;
    across -= across.dot(up) * up;
    const double offset = across.norm();
    across = offset > 0.1 ? Eigen::Vector3d(across / offset) : up.unitOrthogonal();
    double middle = 0.5 * offset;
    if ((std::abs(across.x()) > std::abs(across.y()) ? across.x() : across.y()) < 0.0) {
        across = -across;
        middle = -middle;
    }
    const Eigen::Vector3d corner = platform +
                                   (middle - 0.5 * static_cast<double>(kCutWidthMm)) * across +
                                   static_cast<double>(kAbovePlatformMm - kCutHeightMm) * up;

    Cut cut;
    QMatrix4x4 frame;
    frame.setColumn(0, QVector4D(toQt(across), 0.0F));
    frame.setColumn(1, QVector4D(toQt(up), 0.0F));
    frame.setColumn(2, QVector4D(toQt(across.cross(up)), 0.0F));
    frame.setColumn(3, QVector4D(toQt(corner), 1.0F));
    cut.reslice->setTransformationFromResliceToWorld(frame);
    cut.reslice->setDimensions(pixels);
    cut.reslice->setSampleSize({kCutWidthMm / static_cast<float>(pixels.width()),
                                kCutHeightMm / static_cast<float>(pixels.height()), 1.0F});
    cut.letters = directionLetters(toQt(-across), orientationKnown) + u' ' +
                  directionLetters(toQt(across), orientationKnown);
    return cut;
}

// What the cut leads through: of another implant the platform, so that the implant is cut
// lengthwise.
QVector3D besideOf(const Plan& plan, const Finding& finding)
{
    if (finding.other.kind != PartKind::Implant)
        return finding.nearest;
    return plan.implants[finding.other.number].object->getObjectTransform().column(3).toVector3D();
}

QString apart(double clearanceMm)
{
    return clearanceMm > 0.0 ? QStringLiteral("bodies %1 mm apart").arg(clearanceMm, 0, 'f', 1)
                             : QStringLiteral("bodies overlap");
}

class CutPainter
{
public:
    CutPainter(QPainter& to, const Sampler& sampler, const GreyScale& scale, const Cut& shown,
               const QPoint& at)
        : painter(to), cut(shown), corner(at)
    {
        const QImage samples = cutOut(sampler, scale, *cut.reslice);
        area = QRect(corner, samples.size());
        painter.drawImage(corner, samples);
    }

    void outline(const geometry::Mesh& mesh, const QColor& colour, double filled,
                 Qt::PenStyle style, double width)
    {
        painter.save();
        painter.setClipRect(area);
        QPainterPath path;
        for (const QPolygonF& polygon : cutMesh(mesh, *cut.reslice)) {
            QPolygonF onPicture;
            for (const QPointF& point : polygon)
                onPicture.append(corner +
                                 QPointF(point.x() / double(cut.reslice->getSampleSize().x()),
                                         point.y() / double(cut.reslice->getSampleSize().y())));
            path.addPolygon(onPicture);
        }
        path.setFillRule(Qt::WindingFill);
        QColor inside = colour;
        inside.setAlphaF(static_cast<float>(filled));
        painter.fillPath(path, inside);
        painter.setPen(QPen(colour, width, style, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
        painter.restore();
    }

    void letters(int pixels)
    {
        painter.setFont(fontOf(pixels, true));
        const QStringList sides = cut.letters.split(u' ');
        const double y = area.top() + pixels;
        paintLabel(painter, QPointF(area.left() + 1.1 * pixels, y), sides.first(), kTextColour);
        paintLabel(painter, QPointF(area.right() - 1.1 * pixels, y), sides.last(), kTextColour);
    }

    void bar(int pixels)
    {
        const double length = 5.0 / static_cast<double>(cut.reslice->getSampleSize().x());
        const QPointF from(area.left() + 10.0, area.bottom() - 12.0);
        painter.setPen(QPen(Qt::black, 5.0));
        painter.drawLine(from, from + QPointF(length, 0.0));
        painter.setPen(QPen(kTextColour, 3.0));
        painter.drawLine(from, from + QPointF(length, 0.0));
        painter.setFont(fontOf(pixels, false));
        paintLabel(painter, from + QPointF(length / 2.0, -pixels), QStringLiteral("5 mm"),
                   kTextColour);
    }

private:
    QPainter& painter;
    const Cut& cut;
    QPoint corner;
    QRect area;
};

// Everything of the plan that the cut meets; `zone` is the implant whose zone is drawn too, or -1.
void outlinePlan(CutPainter& painter, const Plan& plan, const QList<Finding>& told, qsizetype zone)
{
    const QColor red(collisionColours::kColliding);
    if (zone >= 0) {
        const bool met = isZoneMet(told, zone);
        painter.outline(zoneMesh(plan.implants[zone], 3.0F),
                        met ? red : QColor(collisionColours::kZone), 0.16, Qt::DashLine, 2.2);
    }
    for (qsizetype i = 0; i < plan.nerves.size(); ++i)
        painter.outline(placedMesh(*plan.nerves[i].object), colourOf(told, {PartKind::Nerve, i}),
                        0.45, Qt::SolidLine, 2.4);
    for (qsizetype i = 0; i < plan.pins.size(); ++i)
        painter.outline(pinMesh(plan.pins[i]), colourOf(told, {PartKind::Pin, i}), 0.45,
                        Qt::SolidLine, 2.4);
    for (qsizetype i = 0; i < plan.implants.size(); ++i)
        painter.outline(zoneMesh(plan.implants[i], 0.0F), colourOf(told, {PartKind::Implant, i}),
                        0.35, Qt::SolidLine, 2.4);
}

QString millimetres(double value)
{
    return QString::number(value, 'f', 1) + QStringLiteral(" mm");
}

} // namespace

bool isBoneShown(const GreyScale& scale)
{
    return boneThreshold(scale).has_value();
}

QImage paintJaw(const Case& planned, const Sampler& sampler, const GreyScale& scale,
                const Plan& plan, const QList<Finding>& findings,
                const std::function<void(double)>& progress)
{
    ShownBone bone = lowerJaw(planned, plan, sampler);
    bone.threshold = boneThreshold(scale).value_or(0.0);
    Camera camera;
    camera.centre = (bone.low + bone.high) / 2.0F + QVector3D(5.0F, -4.0F, 2.0F);
    camera.direction = {-0.14F, 0.74F, -0.62F};
    camera.up = {0.0F, 0.0F, 1.0F};
    camera.mmPerPixel = kJawMmPerPixel;
    camera.pixels = kJawPixels;
    QImage image = paintScene(camera, sceneOf(plan, findings),
                              isBoneShown(scale) ? std::optional(bone) : std::nullopt, progress);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    paintNames(painter, camera, plan, findings);
    return image;
}

QImage paintFindings(const Sampler& sampler, const GreyScale& scale, bool orientationKnown,
                     const Plan& plan, const QList<Finding>& shown)
{
    const QSize pixels(468, 540);
    constexpr int gap = 16;
    constexpr int titleHeight = 70;
    const int columns = std::min(2, static_cast<int>(shown.size()));
    const auto rows = static_cast<int>((shown.size() + columns - 1) / columns);
    QImage image(columns * (pixels.width() + gap) + gap,
                 rows * (pixels.height() + titleHeight + gap) + gap, QImage::Format_RGB32);
    image.fill(kGroundColour);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const Finding& finding = shown[i];
        const auto column = static_cast<int>(i) % columns;
        const auto row = static_cast<int>(i) / columns;
        const QPoint corner(gap + column * (pixels.width() + gap),
                            gap + row * (pixels.height() + titleHeight + gap) + titleHeight);
        painter.setFont(fontOf(22, true));
        painter.setPen(kTextColour);
        painter.drawText(
            QRect(corner.x(), corner.y() - titleHeight, pixels.width(), 32),
            Qt::AlignLeft | Qt::AlignVCenter,
            QStringLiteral("%1 and %2")
                .arg(plan.implants[finding.implant].name, nameOf(plan, finding.other)));
        painter.setFont(fontOf(19, false));
        painter.setPen(finding.collides ? QColor(collisionColours::kColliding).lighter(120)
                                        : kClearColour);
        painter.drawText(QRect(corner.x(), corner.y() - titleHeight + 32, pixels.width(), 30),
                         Qt::AlignLeft | Qt::AlignVCenter,
                         QStringLiteral("%1, %2").arg(finding.collides ? QStringLiteral("collision")
                                                                       : QStringLiteral("clear"),
                                                      apart(finding.clearanceMm)));
        const Cut cut = cutThrough(plan.implants[finding.implant], besideOf(plan, finding), pixels,
                                   orientationKnown);
        CutPainter cutPainter(painter, sampler, scale, cut, corner);
        outlinePlan(cutPainter, plan, {finding},
                    finding.other.kind == PartKind::Implant ? qsizetype(-1) : finding.implant);
        cutPainter.letters(18);
        cutPainter.bar(16);
    }
    return image;
}

QImage paintDrag(const Sampler& sampler, const GreyScale& scale, bool orientationKnown,
                 const Plan& plan, qsizetype implant, qsizetype nerve, const QList<DragStep>& steps)
{
    const QSize pixels(312, 360);
    constexpr int gap = 12;
    constexpr int titleHeight = 46;
    constexpr int verdictHeight = 96;
    const auto frames = static_cast<int>(steps.size());
    QImage image(frames * (pixels.width() + gap) + gap,
                 gap + titleHeight + pixels.height() + verdictHeight, QImage::Format_RGB32);
    image.fill(kGroundColour);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);

    const auto& object = plan.implants[implant].object;
    const QMatrix4x4 start = object->getObjectTransform();
    const QVector3D nearest = nearestPoint(plan.implants[implant], plan.nerves[nerve]);
    const Cut cut = cutThrough(plan.implants[implant], nearest, pixels, orientationKnown);
    for (int i = 0; i < frames; ++i) {
        const DragStep& step = steps[i];
        const QPoint corner(gap + i * (pixels.width() + gap), gap + titleHeight);
        painter.setFont(fontOf(24, true));
        painter.setPen(kTextColour);
        painter.drawText(QRect(corner.x(), gap, pixels.width(), titleHeight - 6), Qt::AlignCenter,
                         i == 0 ? QStringLiteral("as planned")
                                : QStringLiteral("%1 deeper").arg(millimetres(step.wayMm)));
        object->setObjectTransform(step.placement);
        CutPainter cutPainter(painter, sampler, scale, cut, corner);
        Finding finding;
        finding.implant = implant;
        finding.other = {PartKind::Nerve, nerve};
        finding.collides = step.collides;
        outlinePlan(cutPainter, plan, {finding}, implant);
        if (i == 0) {
            cutPainter.letters(18);
            cutPainter.bar(16);
        }
        painter.setFont(fontOf(26, true));
        painter.setPen(step.collides ? QColor(collisionColours::kColliding).lighter(120)
                                     : kClearColour);
        painter.drawText(QRect(corner.x(), corner.y() + pixels.height() + 8, pixels.width(), 40),
                         Qt::AlignCenter,
                         step.collides ? QStringLiteral("collision") : QStringLiteral("clear"));
        painter.setFont(fontOf(21, false));
        painter.setPen(kTextColour);
        painter.drawText(QRect(corner.x(), corner.y() + pixels.height() + 48, pixels.width(), 34),
                         Qt::AlignCenter,
                         QStringLiteral("%1 to the nerve").arg(millimetres(step.clearanceMm)));
    }
    object->setObjectTransform(start);
    return image;
}

} // namespace planner
