// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>

#include <QList>

enum JawType : int { NoJaw = 0, LowerJaw = 1, UpperJaw = 2 };

/// Teeth in the Universal numbering: 1 to 16 along the upper arch from the patient's right to the
/// left, 17 to 32 along the lower arch from left to right, so that tooth t stands opposite 33 - t
/// and (t - 1) % 16 is its place in its arch.
///
/// Numbers outside 1 to 32 are no teeth: predicates answer false, operations that return a tooth or
/// a list return NoTooth or an empty list, and getArchTypeOfTooth() and getOppositeJaw() say below
/// what they return.
class COREALGORITHMS_MODEL_EXPORT ToothChart
{
public:
    /// Values are the Universal numbers; write `ToothChart::Tooth(14)`.
    enum Tooth : int {
        NoTooth = 0,
        FirstUpperTooth = 1,
        LastUpperTooth = 16,
        FirstLowerTooth = 17,
        LastLowerTooth = 32
    };
    enum ArchType : int { UpperArch = 0, LowerArch = 1 };

    static bool isTooth(Tooth tooth);
    /// First, second and third molars: the last three places at either end of an arch.
    static bool isMolar(Tooth tooth);
    /// First and second premolars.
    static bool isPremolar(Tooth tooth);
    static bool isUpperTooth(Tooth tooth);

    /// UpperArch for 1 to 16; LowerArch for every other number.
    static ArchType getArchTypeOfTooth(Tooth tooth);
    /// 33 - tooth.
    static Tooth getOppositeTooth(Tooth tooth);
    /// LowerJaw for UpperJaw and the reverse; NoJaw for anything else.
    static JawType getOppositeJaw(JawType jaw);
    /// LowerArch for UpperArch; UpperArch for anything else.
    static ArchType getOppositeJaw(ArchType archType);

    /// All teeth from one to the other, both inclusive, in ascending order whichever of the two is
    /// smaller. Empty if either is no tooth.
    static QList<Tooth> createContinuousRegion(Tooth from, Tooth to);
    /// Those teeth of the list that stand in the arch, in the order of the list; numbers that are
    /// no teeth are left out.
    static QList<Tooth> filterTeethForArchType(const QList<Tooth>& teeth, ArchType archType);
};
