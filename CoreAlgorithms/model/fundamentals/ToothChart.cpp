// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <algorithm>

namespace {

constexpr int kTeethPerArch = 16;

// Returns 1 for a central incisor to 8 for a third molar, and 0 for a number that is not a tooth.
int placeFromMidline(ToothChart::Tooth tooth)
{
    if (!ToothChart::isTooth(tooth))
        return 0;
    // 0 to 15 along the arch; the midline is between 7 and 8.
    const int place = (tooth - 1) % kTeethPerArch;
    return place < kTeethPerArch / 2 ? kTeethPerArch / 2 - place : place - kTeethPerArch / 2 + 1;
}

} // namespace

bool ToothChart::isTooth(Tooth tooth)
{
    return tooth >= FirstUpperTooth && tooth <= LastLowerTooth;
}

bool ToothChart::isMolar(Tooth tooth)
{
    return placeFromMidline(tooth) >= 6;
}

bool ToothChart::isPremolar(Tooth tooth)
{
    const int place = placeFromMidline(tooth);
    return place == 4 || place == 5;
}

bool ToothChart::isUpperTooth(Tooth tooth)
{
    return tooth >= FirstUpperTooth && tooth <= LastUpperTooth;
}

ToothChart::ArchType ToothChart::getArchTypeOfTooth(Tooth tooth)
{
    return isUpperTooth(tooth) ? UpperArch : LowerArch;
}

ToothChart::Tooth ToothChart::getOppositeTooth(Tooth tooth)
{
    return isTooth(tooth) ? Tooth(FirstUpperTooth + LastLowerTooth - tooth) : NoTooth;
}

JawType ToothChart::getOppositeJaw(JawType jaw)
{
    switch (jaw) {
    case LowerJaw:
        return UpperJaw;
    case UpperJaw:
        return LowerJaw;
    default:
        return NoJaw;
    }
}

ToothChart::ArchType ToothChart::getOppositeJaw(ArchType archType)
{
    return archType == UpperArch ? LowerArch : UpperArch;
}

QList<ToothChart::Tooth> ToothChart::createContinuousRegion(Tooth from, Tooth to)
{
    QList<Tooth> region;
    if (!isTooth(from) || !isTooth(to))
        return region;
    const int first = std::min(from, to);
    const int last = std::max(from, to);
    region.reserve(last - first + 1);
    for (int tooth = first; tooth <= last; ++tooth)
        region.append(Tooth(tooth));
    return region;
}

QList<ToothChart::Tooth> ToothChart::filterTeethForArchType(const QList<Tooth>& teeth,
                                                            ArchType archType)
{
    QList<Tooth> filtered;
    for (const Tooth tooth : teeth) {
        if (isTooth(tooth) && getArchTypeOfTooth(tooth) == archType)
            filtered.append(tooth);
    }
    return filtered;
}
