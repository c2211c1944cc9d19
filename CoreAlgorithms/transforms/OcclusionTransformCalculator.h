// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QMatrix4x4>
#include <QString>

#include <map>

class DentalScan;
class Occlusion;

namespace dataobject {
class VirtualOcclusion;
} // namespace dataobject

/// By which matrices must the parts of one jaw be moved so that they meet the other jaw in the
/// recorded bite?
///
/// A bite O holds a matrix for each jaw part, which places the part's raw scan in the bite. With
/// the current total transforms Tmax and Tmand of the two scans, world mm:
///
///     lower jaw to upper jaw   Tmax * O[upper]^-1 * O[lower] * Tmand^-1
///     upper jaw to lower jaw   Tmand * O[lower]^-1 * O[upper] * Tmax^-1
///
/// Results are maps from the class type identifier of a part to its move, relative to where the
/// part stands now.
///
/// (1) After its move, the moved part's scan stands at Tmax * O[upper]^-1 * O[lower] (or with the
/// jaws
///     swapped), wherever it stood before.
/// (2) For a whole-jaw bite the two directions are inverse to each other.
/// Both hold within single-precision rounding.
///
/// Matrices of the occlusion that are absent give an empty map. A matrix without inverse is
/// inverted to the identity, as QMatrix4x4::inverted() does; a move that is not finite is left out.
class COREALGORITHMS_EXPORT OcclusionTransformCalculator
{
public:
    /// Which jaw comes. Any value other than 0 is taken as MaxillaToMandibula.
    enum TransformationType : int { MandibulaToMaxilla = 0, MaxillaToMandibula = 1 };

    /// Copies the bite and keeps references to the scans. Each calculation reads the scans, which
    /// must be alive then.
    OcclusionTransformCalculator(const Occlusion& occlusion, const DentalScan& maxillaScan,
                                 const DentalScan& mandibulaScan, QMatrix4x4 planningTransform);
    OcclusionTransformCalculator(const dataobject::VirtualOcclusion& occlusion,
                                 const DentalScan& maxillaScan, const DentalScan& mandibulaScan,
                                 QMatrix4x4 planningTransform);
    /// Refuse temporary scans, which would be gone before the first calculation.
    template <typename Bite>
    OcclusionTransformCalculator(const Bite&, const DentalScan&&, const DentalScan&,
                                 QMatrix4x4) = delete;
    template <typename Bite>
    OcclusionTransformCalculator(const Bite&, const DentalScan&, const DentalScan&&,
                                 QMatrix4x4) = delete;
    OcclusionTransformCalculator(const OcclusionTransformCalculator&) = default;
    OcclusionTransformCalculator& operator=(const OcclusionTransformCalculator&) = default;
    virtual ~OcclusionTransformCalculator();

    /// The moves by jaw part. A whole jaw that comes has one, under Mandibula or Maxilla. In a
    /// segmental bite:
    ///
    /// - MandibulaToMaxilla moves the lower jaw and the upper segments, all to the reference
    /// segment: the
    ///   front one or, without it, the right. The reference segment has no entry, it does not move.
    ///   Without both, the warning "getUpperReferenceSegmentTypeId: reference segment not found"
    ///   and an empty map.
    /// - MaxillaToMandibula moves every upper segment.
    std::map<QString, QMatrix4x4> calculateTransformations(TransformationType type);

private:
    /// The current total transforms of the two scans.
    struct Registrations
    {
        QMatrix4x4 maxilla;
        QMatrix4x4 mandibula;
    };

    friend struct OcclusionTransformCalculatorTestAccess;

    std::map<QString, QMatrix4x4> calculateMandibulaToMaxillaTransformations();
    std::map<QString, QMatrix4x4> calculateMaxillaToMandibulaTransformations();
    Registrations getRegistrations();

    const DentalScan* maxilla;   // not owned
    const DentalScan* mandibula; // not owned
    QMatrix4x4 planning;
    std::map<QString, QMatrix4x4> bite;
    bool segmental;
};
