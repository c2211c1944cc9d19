// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>

namespace planner {

// What the pictures of a report have in common.
inline constexpr QColor kGroundColour(0x12, 0x17, 0x1c); ///< behind and around what is shown
inline constexpr QColor kTextColour(0xf2, 0xf4, 0xf6);   ///< of letters, captions and bars
inline constexpr QColor kToothColour(0xe6, 0xdf, 0xcc);
inline constexpr QColor kScanColour(0x5f, 0xa8, 0xe8); ///< of the crowns that are moved

/// The sans-serif font of all text. Needs a QGuiApplication.
QFont fontOf(int pixels, bool bold);

} // namespace planner
