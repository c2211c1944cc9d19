// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

/// Treats teeth as plain numbers from 1 to 32.
struct ToothChart
{
    using Tooth = int;
    enum class ArchType : char { Upper = 0, Lower = 1 };

    static ArchType getArchTypeOfTooth(Tooth tooth)
    {
        return tooth <= 16 ? ArchType::Upper : ArchType::Lower;
    }
    static Tooth getOppositeTooth(Tooth tooth) { return 33 - tooth; }
    static QList<Tooth> createContinuousRegion(Tooth from, Tooth to)
    {
        QList<Tooth> region;
        for (Tooth tooth = from; tooth <= to; ++tooth)
            region.append(tooth);
        return region;
    }
};
