// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QString>

class QPainter;

namespace planner {

// What the pictures of a report have in common.
inline constexpr QColor kGroundColor(0x12, 0x17, 0x1c); ///< behind and around what is shown
inline constexpr QColor kTextColor(0xf2, 0xf4, 0xf6);   ///< of letters, captions and bars
inline constexpr QColor kToothColor(0xe6, 0xdf, 0xcc);
inline constexpr QColor kScanColor(0x5f, 0xa8, 0xe8); ///< of the crowns that are moved

/// Returns the sans-serif font of all text. Needs a QGuiApplication.
QFont fontOf(int pixels, bool bold);

/// Paints a text in the painter's font, with a dark rim that many pixels wide, from its baseline.
void paintRimmed(QPainter& painter, const QPointF& baseline, const QString& text,
                 const QColor& color, const QColor& rim, double rimPixels);
/// Paints a text in the same way, with its middle at a point.
void paintCenterd(QPainter& painter, const QPointF& middle, const QString& text,
                  const QColor& color, const QColor& rim = QColor(0, 0, 0, 220),
                  double rimPixels = 4.0);

} // namespace planner
