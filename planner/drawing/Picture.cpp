// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/Picture.h>

#include <planner/drawing/PictureStyle.h>

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

double radius(LandmarkKind kind)
{
    switch (kind) {
    case LandmarkKind::Foramen:
        return 6.0;
    case LandmarkKind::Tooth:
        return 4.5;
    case LandmarkKind::Apex:
    case LandmarkKind::Arch:
        break;
    }
    return 3.5;
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
        image.fill(kGroundColour);
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

    // Of a point in view coordinates: pixel (c, r) of the samples covers zoom x zoom pixels of the
    // canvas.
    QPointF onCanvas(const QPointF& inView) const
    {
        return {kFrame + inView.x() / static_cast<double>(content.sampleSizeMm.x()) * zoom,
                kFrame + inView.y() / static_cast<double>(content.sampleSizeMm.y()) * zoom};
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
        painter.setPen(QPen(curve.colour, curve.widthPixels,
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
            painter.setPen(QPen(note.colour, filled ? 1.6 : 2.2));
            painter.setBrush(filled ? QBrush(note.colour) : QBrush(Qt::NoBrush));
            painter.drawEllipse(at, r, r);
            return;
        }
        painter.setFont(fontOf(kLabelPixels, true));
        const QFontMetricsF metrics(painter.font());
        paintText(painter,
                  {at.x() - metrics.horizontalAdvance(note.text) / 2.0,
                   at.y() + metrics.ascent() / 2.0 - 1.0},
                  note.text, note.colour);
    }

    // In a dark rim.
    static void paintText(QPainter& painter, const QPointF& baseline, const QString& text,
                          const QColor& colour)
    {
        QPainterPath letters;
        letters.addText(baseline, painter.font(), text);
        painter.strokePath(
            letters, QPen(QColor(0, 0, 0, 210), 3.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.fillPath(letters, colour);
    }

    void paintSegment(QPainter& painter) const
    {
        if (!content.segment)
            return;
        painter.setPen(QPen(segmentColour(), 1.5, Qt::DotLine));
        painter.drawLine(onCanvas(content.segment->whole.p1()),
                         onCanvas(content.segment->whole.p2()));
        if (!content.segment->inPlane)
            return;
        painter.setPen(QPen(segmentColour(), 4.0, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(onCanvas(content.segment->clipped.p1()),
                         onCanvas(content.segment->clipped.p2()));
    }

    void paintMark(QPainter& painter, const MappedLandmark& mark)
    {
        const bool filled = mark.inPlane.value_or(true);
        QColor colour = markColour(mark.landmark.kind);
        int rim = 170;
        if (!filled) {
            const double distance =
                static_cast<double>((mark.landmark.position - mark.back).length());
            const double strength = std::clamp(1.0 - distance / kFadedMm, kFaintest, 1.0);
            colour.setAlphaF(static_cast<float>(strength));
            rim = static_cast<int>(rim * strength);
        }
        const double r = radius(mark.landmark.kind);
        const QPointF at = onCanvas(mark.inView);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(
            QPen(QColor(0, 0, 0, rim), filled ? 3.0 : 3.5)); // a dark rim, for marks on bright bone
        painter.drawEllipse(at, r, r);
        painter.setPen(QPen(colour, 1.6));
        painter.setBrush(filled ? QBrush(colour) : QBrush(Qt::NoBrush));
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
                   std::none_of(taken.cbegin(), taken.cend(),
                                [&place](const QRectF& other) { return other.intersects(place); });
        };
        const auto* place = std::find_if(places.cbegin(), places.cend(), isFree);
        if (place == places.cend() && !(always && inner.contains(at.toPoint())))
            return;
        const QRectF chosen = place == places.cend() ? places.front() : *place;
        taken.append(chosen);
        paintText(painter, {chosen.left(), chosen.top() + metrics.ascent()}, mark.landmark.label,
                  markColour(mark.landmark.kind).lighter(125));
    }

    void paintLetters(QPainter& painter) const
    {
        painter.setFont(fontOf(kLetterPixels, true));
        painter.setPen(kTextColour);
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
        const double length = kBarMm / static_cast<double>(content.sampleSizeMm.x()) * zoom;
        const double y = image.height() - kFrame / 2.0;
        painter.fillRect(QRectF(kFrame, y - 1.5, length, 3.0), kTextColour);
        painter.fillRect(QRectF(kFrame, y - 5.0, 2.0, 10.0), kTextColour);
        painter.fillRect(QRectF(kFrame + length - 2.0, y - 5.0, 2.0, 10.0), kTextColour);
        painter.setFont(fontOf(kLabelPixels, false));
        painter.setPen(kTextColour);
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

QColor markColour(LandmarkKind kind)
{
    switch (kind) {
    case LandmarkKind::Foramen:
        return {0xff, 0x9d, 0x2e};
    case LandmarkKind::Tooth:
        return {0x3d, 0xb8, 0xff};
    case LandmarkKind::Apex:
        return {0xff, 0x6f, 0xae};
    case LandmarkKind::Arch:
        break;
    }
    return {0x62, 0xd0, 0x72};
}

QColor segmentColour()
{
    return {0xff, 0xe1, 0x4d};
}

QImage paintPicture(const PictureContent& content)
{
    return Canvas(content).paint();
}

} // namespace planner
