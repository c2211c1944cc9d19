// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/PictureStyle.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

namespace planner {

QFont fontOf(int pixels, bool bold)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

void paintRimmed(QPainter& painter, const QPointF& baseline, const QString& text,
                 const QColor& color, const QColor& rim, double rimPixels)
{
    QPainterPath letters;
    letters.addText(baseline, painter.font(), text);
    painter.strokePath(letters, QPen(rim, rimPixels, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(letters, color);
}

void paintCenterd(QPainter& painter, const QPointF& middle, const QString& text,
                  const QColor& color, const QColor& rim, double rimPixels)
{
    const QFontMetricsF metrics(painter.font());
    paintRimmed(painter,
                {middle.x() - metrics.horizontalAdvance(text) / 2.0,
                 middle.y() + metrics.ascent() / 2.0 - 1.0},
                text, color, rim, rimPixels);
}

} // namespace planner
