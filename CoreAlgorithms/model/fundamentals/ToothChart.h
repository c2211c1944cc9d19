// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>

#include <QList>

/// Names the jaws.
enum JawType : int { NoJaw = 0, LowerJaw = 1, UpperJaw = 2 };

/// Answers questions about teeth in the Universal numbering: 1 to 16 along the upper arch from the
/// patient's right to the left, and 17 to 32 along the lower arch from left to right. Tooth t is
/// opposite tooth 33 - t, and (t - 1) % 16 is its place in its arch. Other numbers are not teeth.
class COREALGORITHMS_MODEL_EXPORT ToothChart
{
public:
    /// Has the Universal numbers as its values, for instance `ToothChart::Tooth(14)`.
    enum Tooth : int {
        NoTooth = 0,
        FirstUpperTooth = 1,
        LastUpperTooth = 16,
        FirstLowerTooth = 17,
        LastLowerTooth = 32
    };
    enum ArchType : int { UpperArch = 0, LowerArch = 1 };

    /// Returns true for 1 to 32.
    static bool isTooth(Tooth tooth);
    /// Returns true for first, second and third molars: the last three places at both ends of an
    /// arch.
    static bool isMolar(Tooth tooth);
    /// Returns true for first and second premolars.
    static bool isPremolar(Tooth tooth);
    /// Returns true for 1 to 16.
    static bool isUpperTooth(Tooth tooth);

    /// Returns UpperArch for 1 to 16, and LowerArch for every other number.
    static ArchType getArchTypeOfTooth(Tooth tooth);
    /// Returns 33 - tooth, or NoTooth if the number is not a tooth.
    static Tooth getOppositeTooth(Tooth tooth);
    /// Returns LowerJaw for UpperJaw and the reverse; NoJaw for anything else.
    static JawType getOppositeJaw(JawType jaw);
    /// Returns LowerArch for UpperArch, and UpperArch for anything else.
    static ArchType getOppositeJaw(ArchType archType);

    /// Returns all teeth from one to the other, both inclusive, in ascending order, whichever of
    /// the two is smaller. Returns an empty list if either is not a tooth.
    static QList<Tooth> createContinuousRegion(Tooth from, Tooth to);
    /// Returns the teeth of the list that are in the arch, in the order of the list. Skips numbers
    /// that are not teeth.
    static QList<Tooth> filterTeethForArchType(const QList<Tooth>& teeth, ArchType archType);
};
