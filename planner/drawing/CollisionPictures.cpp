// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/CollisionPictures.h>

#include <planner/drawing/GreyScale.h>
#include <planner/drawing/PictureStyle.h>
#include <planner/drawing/Sampling.h>
#include <planner/planning/Meshes.h>
#include <planner/planning/Vectors.h>
#include <planner/planning/Views.h>

#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <Eigen/Geometry>

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace planner {

namespace {

const QColor kClearColor(0x5f, 0xd3, 0x7a);

constexpr float kCutWidthMm = 26.0F;
constexpr float kCutHeightMm = 30.0F;
constexpr float kAbovePlatformMm = 6.0F;

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
    const Eigen::Vector3d corner = platform + (middle - 0.5 * kCutWidthMm) * across +
                                   static_cast<double>(kAbovePlatformMm - kCutHeightMm) * up;

    Cut cut;
    cut.reslice->setTransformationFromResliceToWorld(
        frameOf(toQt(across), toQt(up), toQt(across.cross(up)), toQt(corner)));
    cut.reslice->setDimensions(pixels);
    cut.reslice->setSampleSize({kCutWidthMm / static_cast<float>(pixels.width()),
                                kCutHeightMm / static_cast<float>(pixels.height()), 1.0F});
    cut.letters = directionLetters(toQt(-across), orientationKnown) + u' ' +
                  directionLetters(toQt(across), orientationKnown);
    return cut;
}

QVector3D pointOf(const std::array<double, 3>& point)
{
    return {static_cast<float>(point[0]), static_cast<float>(point[1]),
            static_cast<float>(point[2])};
}

// What the cut leads through: of another implant the platform, so that the implant is cut
// lengthwise.
QVector3D besideOf(const CollisionPlan& plan, const Finding& finding)
{
    if (finding.other.kind != PartKind::Implant)
        return pointOf(finding.clearance.pointOnSecond);
    return plan.implants[finding.other.number].object->getObjectTransform().column(3).toVector3D();
}

QString apart(const collision::Clearance& clearance)
{
    switch (clearance.relation) {
    case collision::Relation::Apart:
        return QStringLiteral("bodies %1 mm apart").arg(clearance.distance, 0, 'f', 1);
    case collision::Relation::Overlapping:
        return QStringLiteral("bodies overlap");
    case collision::Relation::Contained:
        break;
    }
    return QStringLiteral("one inside the other");
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

    void outline(const geometry::Mesh& mesh, const QColor& color, double filled, Qt::PenStyle style,
                 double width)
    {
        painter.save();
        painter.setClipRect(area);
        QPainterPath path;
        for (const QPolygonF& polygon : cutMesh(mesh, *cut.reslice)) {
            QPolygonF outline;
            for (const QPointF& point : polygon)
                outline.append(onPicture(point));
            path.addPolygon(outline);
        }
        path.setFillRule(Qt::WindingFill);
        QColor inside = color;
        inside.setAlphaF(static_cast<float>(filled));
        painter.fillPath(path, inside);
        painter.setPen(QPen(color, width, style, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
        painter.restore();
    }

    // A line between the nearest points of surfaces that are apart.
    void clearance(const collision::Clearance& measured)
    {
        if (measured.relation != collision::Relation::Apart)
            return;
        const QPointF from = onPicture(measured.pointOnFirst);
        const QPointF to = onPicture(measured.pointOnSecond);
        painter.save();
        painter.setClipRect(area);
        painter.setPen(QPen(Qt::black, 5.0, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(from, to);
        painter.setPen(QPen(kTextColor, 2.5, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(from, to);
        painter.restore();
    }

    void letters(int pixels)
    {
        painter.setFont(fontOf(pixels, true));
        const QStringList sides = cut.letters.split(u' ');
        const double y = area.top() + pixels;
        paintCenterd(painter, QPointF(area.left() + 1.1 * pixels, y), sides.first(), kTextColor);
        paintCenterd(painter, QPointF(area.right() - 1.1 * pixels, y), sides.last(), kTextColor);
    }

    void bar(int pixels)
    {
        const double length = 5.0 / cut.reslice->getSampleSize().x();
        const QPointF from(area.left() + 10.0, area.bottom() - 12.0);
        painter.setPen(QPen(Qt::black, 5.0));
        painter.drawLine(from, from + QPointF(length, 0.0));
        painter.setPen(QPen(kTextColor, 3.0));
        painter.drawLine(from, from + QPointF(length, 0.0));
        painter.setFont(fontOf(pixels, false));
        paintCenterd(painter, from + QPointF(length / 2.0, -pixels), QStringLiteral("5 mm"),
                     kTextColor);
    }

private:
    // Where a point of the view is in the picture.
    QPointF onPicture(const QPointF& inView) const
    {
        return corner + QPointF(inView.x() / double(cut.reslice->getSampleSize().x()),
                                inView.y() / double(cut.reslice->getSampleSize().y()));
    }
    // The same for a point of the world, seen square to the cut.
    QPointF onPicture(const std::array<double, 3>& point) const
    {
        return onPicture(
            CoordinateMapper::_3D_To_2D_PlanarPoint(cut.reslice.get(), pointOf(point)));
    }

    QPainter& painter;
    const Cut& cut;
    QPoint corner;
    QRect area;
};

// Everything of the plan that the cut meets; `zone` is the implant whose zone is drawn too, or -1.
void outlinePlan(CutPainter& painter, const CollisionPlan& plan, const QList<Finding>& told,
                 qsizetype zone)
{
    const QColor red(collisionColors::kColliding);
    if (zone >= 0) {
        const bool met = isZoneMet(told, zone);
        painter.outline(zoneMesh(plan.implants[zone], 3.0F),
                        met ? red : QColor(collisionColors::kZone), 0.16, Qt::DashLine, 2.2);
    }
    for (qsizetype i = 0; i < plan.nerves.size(); ++i)
        painter.outline(placedMesh(*plan.nerves[i].object), partColor(told, {PartKind::Nerve, i}),
                        0.45, Qt::SolidLine, 2.4);
    for (qsizetype i = 0; i < plan.pins.size(); ++i)
        painter.outline(pinMesh(plan.pins[i]), partColor(told, {PartKind::Pin, i}), 0.45,
                        Qt::SolidLine, 2.4);
    for (qsizetype i = 0; i < plan.implants.size(); ++i)
        painter.outline(zoneMesh(plan.implants[i], 0.0F), partColor(told, {PartKind::Implant, i}),
                        0.35, Qt::SolidLine, 2.4);
}

void write(QPainter& painter, const QRect& place, Qt::Alignment alignment, const QFont& font,
           const QColor& color, const QString& text)
{
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(place, alignment, text);
}

QColor verdictColor(bool collides)
{
    return collides ? QColor(collisionColors::kColliding).lighter(120) : kClearColor;
}

QString verdict(bool collides)
{
    return collides ? QStringLiteral("collision") : QStringLiteral("clear");
}

QString millimeters(double value)
{
    return QString::number(value, 'f', 1) + QStringLiteral(" mm");
}

} // namespace

QColor partColor(const QList<Finding>& findings, const PlanPart& part)
{
    if (isColliding(findings, part))
        return collisionColors::kColliding;
    constexpr QRgb colors[] = {collisionColors::kImplant, collisionColors::kNerve,
                               collisionColors::kPin};
    return colors[static_cast<int>(part.kind)];
}

QImage paintFindings(const Sampler& sampler, const GreyScale& scale, bool orientationKnown,
                     const CollisionPlan& plan, const QList<Finding>& shown)
{
    const QSize pixels(468, 540);
    constexpr int gap = 16;
    constexpr int titleHeight = 70;
    const int columns = std::min(2, static_cast<int>(shown.size()));
    const auto rows = static_cast<int>((shown.size() + columns - 1) / columns);
    QImage image(columns * (pixels.width() + gap) + gap,
                 rows * (pixels.height() + titleHeight + gap) + gap, QImage::Format_RGB32);
    image.fill(kGroundColor);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const Finding& finding = shown[i];
        const auto column = static_cast<int>(i) % columns;
        const auto row = static_cast<int>(i) / columns;
        const QPoint corner(gap + column * (pixels.width() + gap),
                            gap + row * (pixels.height() + titleHeight + gap) + titleHeight);
        const QRect title(corner.x(), corner.y() - titleHeight, pixels.width(), 32);
        write(painter, title, Qt::AlignLeft | Qt::AlignVCenter, fontOf(22, true), kTextColor,
              QStringLiteral("%1 and %2")
                  .arg(plan.implants[finding.implant].name, nameOf(plan, finding.other)));
        write(painter, {title.x(), title.y() + 32, title.width(), 30},
              Qt::AlignLeft | Qt::AlignVCenter, fontOf(19, false), verdictColor(finding.collides),
              QStringLiteral("%1, %2").arg(verdict(finding.collides), apart(finding.clearance)));
        const Cut cut = cutThrough(plan.implants[finding.implant], besideOf(plan, finding), pixels,
                                   orientationKnown);
        CutPainter cutPainter(painter, sampler, scale, cut, corner);
        outlinePlan(cutPainter, plan, {finding},
                    finding.other.kind == PartKind::Implant ? qsizetype(-1) : finding.implant);
        cutPainter.clearance(finding.clearance);
        cutPainter.letters(18);
        cutPainter.bar(16);
    }
    return image;
}

QImage paintDrag(const Sampler& sampler, const GreyScale& scale, bool orientationKnown,
                 const CollisionPlan& plan, qsizetype implant, qsizetype nerve,
                 const QList<DragStep>& steps)
{
    const QSize pixels(312, 360);
    constexpr int gap = 12;
    constexpr int titleHeight = 46;
    constexpr int verdictHeight = 96;
    const auto frames = static_cast<int>(steps.size());
    QImage image(frames * (pixels.width() + gap) + gap,
                 gap + titleHeight + pixels.height() + verdictHeight, QImage::Format_RGB32);
    image.fill(kGroundColor);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);

    const auto& object = plan.implants[implant].object;
    const QMatrix4x4 start = object->getObjectTransform();
    const QVector3D nearest = pointOf(steps.first().clearance.pointOnSecond);
    const Cut cut = cutThrough(plan.implants[implant], nearest, pixels, orientationKnown);
    for (int i = 0; i < frames; ++i) {
        const DragStep& step = steps[i];
        const QPoint corner(gap + i * (pixels.width() + gap), gap + titleHeight);
        write(painter, {corner.x(), gap, pixels.width(), titleHeight - 6}, Qt::AlignCenter,
              fontOf(24, true), kTextColor,
              i == 0 ? QStringLiteral("as planned")
                     : QStringLiteral("%1 deeper").arg(millimeters(step.wayMm)));
        object->setObjectTransform(step.placement);
        CutPainter cutPainter(painter, sampler, scale, cut, corner);
        const Finding finding{implant, {PartKind::Nerve, nerve}, step.collides, step.clearance};
        outlinePlan(cutPainter, plan, {finding}, implant);
        cutPainter.clearance(step.clearance);
        if (i == 0) {
            cutPainter.letters(18);
            cutPainter.bar(16);
        }
        const int below = corner.y() + pixels.height();
        write(painter, {corner.x(), below + 8, pixels.width(), 40}, Qt::AlignCenter,
              fontOf(26, true), verdictColor(step.collides), verdict(step.collides));
        write(painter, {corner.x(), below + 48, pixels.width(), 34}, Qt::AlignCenter,
              fontOf(21, false), kTextColor,
              QStringLiteral("%1 to the nerve").arg(millimeters(step.clearance.distance)));
    }
    object->setObjectTransform(start);
    return image;
}

} // namespace planner
