// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/PictureStyle.h>

namespace planner {

QFont fontOf(int pixels, bool bold)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

} // namespace planner
