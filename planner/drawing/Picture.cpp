// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/Picture.h>

#include <planner/drawing/PictureStyle.h>
#include <planner/planning/Views.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QRectF>

#include <algorithm>
#include <array>

namespace planner {

namespace {

constexpr int kFrame = 40;       // pixels around the samples
constexpr int kFewSamples = 600; // along the longer side; below it they are enlarged
constexpr double kBarMm = 20.0;
constexpr double kFadedMm = 25.0;  // hollow marks pale with their distance from the plane ...
constexpr double kFaintest = 0.35; // ... down to this
constexpr double kDotRadius = 4.0;
constexpr double kRingRadius = 8.0;
constexpr int kLabelPixels = 15;
constexpr int kLetterPixels = 20;
const QColor kRim(0, 0, 0, 210); // of text
constexpr double kRimPixels = 3.0;

double radius(LandmarkKind kind)
{
    constexpr double radii[] = {6.0, 4.5, 3.5, 3.5};
    return radii[static_cast<int>(kind)];
}

class Canvas
{
public:
    explicit Canvas(const PictureContent& shown)
        : content(shown),
          zoom(1 + kFewSamples / std::max(1, longerSide())),
          image(shown.samples.width() * zoom + 2 * kFrame,
                shown.samples.height() * zoom + 2 * kFrame, QImage::Format_RGB32),
          inner(kFrame, kFrame, shown.samples.width() * zoom, shown.samples.height() * zoom)
    {
        image.fill(kGroundColor);
    }

    QImage paint()
    {
        QPainter painter(&image);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                               QPainter::SmoothPixmapTransform);
        painter.drawImage(inner, content.samples);
        paintBar(painter);
        painter.setClipRect(inner);
        for (const PictureCurve& curve : content.curves)
            paintCurve(painter, curve);
        paintSegment(painter);
        for (const MappedLandmark& mark : content.marks)
            paintMark(painter, mark);
        paintLabels(painter);
        for (const PictureNote& note : content.notes)
            paintNote(painter, note);
        painter.setClipping(false);
        paintLetters(painter);
        return image;
    }

private:
    int longerSide() const { return std::max(content.samples.width(), content.samples.height()); }

    // The place of a point in view coordinates: pixel (c, r) of the samples covers zoom x zoom
    // pixels of the canvas.
    QPointF onCanvas(const QPointF& inView) const
    {
        return {kFrame + inView.x() / content.sampleSizeMm.x() * zoom,
                kFrame + inView.y() / content.sampleSizeMm.y() * zoom};
    }

    void paintCurve(QPainter& painter, const PictureCurve& curve) const
    {
        QPolygonF line;
        for (const QPointF& point : curve.inView)
            line.append(onCanvas(point));
        painter.setPen(
            QPen(QColor(0, 0, 0, 150), curve.widthPixels + 2.0, Qt::SolidLine, Qt::RoundCap));
        if (!curve.dotted)
            painter.drawPolyline(line);
        painter.setPen(QPen(curve.color, curve.widthPixels,
                            curve.dotted ? Qt::DotLine : Qt::SolidLine, Qt::RoundCap));
        painter.drawPolyline(line);
    }

    void paintNote(QPainter& painter, const PictureNote& note) const
    {
        const QPointF at = onCanvas(note.inView);
        if (note.symbol != PictureNote::NoSymbol) {
            const bool filled = note.symbol == PictureNote::Dot;
            const double r = filled ? kDotRadius : kRingRadius;
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(QColor(0, 0, 0, 170), 3.5));
            painter.drawEllipse(at, r, r);
            painter.setPen(QPen(note.color, filled ? 1.6 : 2.2));
            painter.setBrush(filled ? QBrush(note.color) : QBrush(Qt::NoBrush));
            painter.drawEllipse(at, r, r);
            return;
        }
        painter.setFont(fontOf(kLabelPixels, true));
        paintCenterd(painter, at, note.text, note.color, kRim, kRimPixels);
    }

    void paintSegment(QPainter& painter) const
    {
        if (!content.segment)
            return;
        painter.setPen(QPen(segmentColor(), 1.5, Qt::DotLine));
        painter.drawLine(onCanvas(content.segment->whole.p1()),
                         onCanvas(content.segment->whole.p2()));
        if (!content.segment->inPlane)
            return;
        painter.setPen(QPen(segmentColor(), 4.0, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(onCanvas(content.segment->clipped.p1()),
                         onCanvas(content.segment->clipped.p2()));
    }

    void paintMark(QPainter& painter, const MappedLandmark& mark)
    {
        const bool filled = mark.inPlane.value_or(true);
        QColor color = markColor(mark.landmark.kind);
        int rim = 170;
        if (!filled) {
            const double distance = (mark.landmark.position - mark.back).length();
            const double strength = std::clamp(1.0 - distance / kFadedMm, kFaintest, 1.0);
            color.setAlphaF(static_cast<float>(strength));
            rim = static_cast<int>(rim * strength);
        }
        const double r = radius(mark.landmark.kind);
        const QPointF at = onCanvas(mark.inView);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(
            QPen(QColor(0, 0, 0, rim), filled ? 3.0 : 3.5)); // a dark rim, for marks on bright bone
        painter.drawEllipse(at, r, r);
        painter.setPen(QPen(color, 1.6));
        painter.setBrush(filled ? QBrush(color) : QBrush(Qt::NoBrush));
        painter.drawEllipse(at, r, r);
        taken.append(QRectF(at.x() - r, at.y() - r, 2.0 * r, 2.0 * r));
    }

    bool hasLabel(const MappedLandmark& mark) const
    {
        if (mark.landmark.label.isEmpty())
            return false;
        if (mark.landmark.kind == LandmarkKind::Foramen)
            return true;
        return content.labelTeeth && mark.inPlane.value_or(true);
    }

    // Foramina first: where there is little room, tooth numbers are left out.
    void paintLabels(QPainter& painter)
    {
        painter.setFont(fontOf(kLabelPixels, false));
        for (const bool foramina : {true, false}) {
            for (const MappedLandmark& mark : content.marks) {
                if (hasLabel(mark) && (mark.landmark.kind == LandmarkKind::Foramen) == foramina)
                    paintLabel(painter, mark, foramina);
            }
        }
    }

    void paintLabel(QPainter& painter, const MappedLandmark& mark, bool always)
    {
        const QFontMetricsF metrics(painter.font());
        const QPointF at = onCanvas(mark.inView);
        const double width = metrics.horizontalAdvance(mark.landmark.label);
        const double height = metrics.height();
        const double gap = radius(mark.landmark.kind) + 4.0;
        std::array<QRectF, 8> places = {
            QRectF(at.x() + gap, at.y() - height / 2.0, width, height),
            QRectF(at.x() - gap - width, at.y() - height / 2.0, width, height),
            QRectF(at.x() - width / 2.0, at.y() - gap - height, width, height),
            QRectF(at.x() - width / 2.0, at.y() + gap, width, height),
            QRectF(at.x() + gap, at.y() - gap - height, width, height),
            QRectF(at.x() + gap, at.y() + gap, width, height),
            QRectF(at.x() - gap - width, at.y() - gap - height, width, height),
            QRectF(at.x() - gap - width, at.y() + gap, width, height)};
        if (content.labelsAbove)
            std::rotate(places.begin(), places.begin() + 2, places.begin() + 4);
        const auto isFree = [this](const QRectF& place) {
            return QRectF(inner).contains(place) &&
                   std::ranges::none_of(
                       taken, [&place](const QRectF& other) { return other.intersects(place); });
        };
        const auto* place = std::ranges::find_if(places, isFree);
        if (place == places.cend() && !(always && inner.contains(at.toPoint())))
            return;
        const QRectF chosen = place == places.cend() ? places.front() : *place;
        taken.append(chosen);
        paintRimmed(painter, {chosen.left(), chosen.top() + metrics.ascent()}, mark.landmark.label,
                    markColor(mark.landmark.kind).lighter(125), kRim, kRimPixels);
    }

    void paintLetters(QPainter& painter) const
    {
        painter.setFont(fontOf(kLetterPixels, true));
        painter.setPen(kTextColor);
        const int w = image.width();
        const int h = image.height();
        painter.drawText(QRect(0, 0, kFrame, h), Qt::AlignCenter, content.edges.left);
        painter.drawText(QRect(w - kFrame, 0, kFrame, h), Qt::AlignCenter, content.edges.right);
        painter.drawText(QRect(0, 0, w, kFrame), Qt::AlignCenter, content.edges.top);
        painter.drawText(QRect(0, h - kFrame, w, kFrame), Qt::AlignCenter, content.edges.bottom);
    }

    // Below the picture, so that it hides nothing.
    void paintBar(QPainter& painter) const
    {
        const double length = kBarMm / content.sampleSizeMm.x() * zoom;
        const double y = image.height() - kFrame / 2.0;
        painter.fillRect(QRectF(kFrame, y - 1.5, length, 3.0), kTextColor);
        painter.fillRect(QRectF(kFrame, y - 5.0, 2.0, 10.0), kTextColor);
        painter.fillRect(QRectF(kFrame + length - 2.0, y - 5.0, 2.0, 10.0), kTextColor);
        painter.setFont(fontOf(kLabelPixels, false));
        painter.setPen(kTextColor);
        painter.drawText(QRectF(kFrame + length + 8.0, y - kFrame / 2.0, 120.0, kFrame),
                         Qt::AlignVCenter | Qt::AlignLeft, QStringLiteral("%1 mm").arg(kBarMm));
    }

    const PictureContent& content;
    int zoom;
    QImage image;
    QRect inner;
    QList<QRectF> taken; // by marks and labels
};

} // namespace

EdgeLetters edgesOf(const PlanarReslice& reslice, bool orientationKnown)
{
    return edgesOf(
        reslice.getDirection0(false) * (reslice.isMirroredHorizontallyIn2D() ? -1.0F : 1.0F),
        reslice.getDirection1(false) * (reslice.isMirroredVerticallyIn2D() ? -1.0F : 1.0F),
        orientationKnown);
}

EdgeLetters edgesOf(const QVector3D& toRight, const QVector3D& toTop, bool orientationKnown)
{
    return {directionLetters(-toRight, orientationKnown),
            directionLetters(toRight, orientationKnown), directionLetters(toTop, orientationKnown),
            directionLetters(-toTop, orientationKnown)};
}

QColor markColor(LandmarkKind kind)
{
    constexpr QRgb colors[] = {0xff9d2e, 0x3db8ff, 0xff6fae, 0x62d072};
    return colors[static_cast<int>(kind)];
}

QColor segmentColor()
{
    return {0xff, 0xe1, 0x4d};
}

QImage paintPicture(const PictureContent& content)
{
    return Canvas(content).paint();
}

} // namespace planner
