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

/// Computes the moves that bring the parts of one jaw onto the other jaw as in the recorded bite.
///
/// A bite O holds a matrix for each jaw part, which places the part's raw scan in the bite. With
/// the current total transforms Tmax and Tmand of the scans of the upper and the lower jaw, in
/// world mm:
///
///     lower jaw to upper jaw   Tmax * O[upper]^-1 * O[lower] * Tmand^-1
///     upper jaw to lower jaw   Tmand * O[lower]^-1 * O[upper] * Tmax^-1
///
/// Products associate from the left. A matrix without inverse is inverted to the identity, as
/// QMatrix4x4::inverted() does.
///
/// (1) The move takes the moved part's scan to Tmax * O[upper]^-1 * O[lower] (or with the jaws
///     swapped), wherever it was before.
/// (2) For a bite of whole jaws the two directions are inverse to each other.
/// Both hold up to rounding to single precision.
class COREALGORITHMS_EXPORT OcclusionTransformCalculator
{
public:
    /// Selects the jaw that moves. Any value other than 0 is taken as MaxillaToMandibula.
    enum TransformationType : int { MandibulaToMaxilla = 0, MaxillaToMandibula = 1 };

    /// Copies the bite and keeps pointers to the scans, which must outlive the calculator. Each
    /// calculation reads the scans as they are when it runs.
    OcclusionTransformCalculator(const Occlusion& occlusion, const DentalScan& maxillaScan,
                                 const DentalScan& mandibulaScan, QMatrix4x4 planningTransform);
    /// Does the same for a bite that was found on the screen.
    OcclusionTransformCalculator(const dataobject::VirtualOcclusion& occlusion,
                                 const DentalScan& maxillaScan, const DentalScan& mandibulaScan,
                                 QMatrix4x4 planningTransform);
    /// Refuses a temporary scan of the maxilla, which would be gone before the first calculation.
    template <typename Bite>
    OcclusionTransformCalculator(const Bite&, const DentalScan&&, const DentalScan&,
                                 QMatrix4x4) = delete;
    /// Refuses a temporary scan of the mandible.
    template <typename Bite>
    OcclusionTransformCalculator(const Bite&, const DentalScan&, const DentalScan&&,
                                 QMatrix4x4) = delete;
    OcclusionTransformCalculator(const OcclusionTransformCalculator&) = default;
    OcclusionTransformCalculator& operator=(const OcclusionTransformCalculator&) = default;
    virtual ~OcclusionTransformCalculator();

    /// Returns the moves by class type identifier of the jaw part, relative to where each part is
    /// now. A bite of whole jaws gives one entry for the moving jaw, under Mandibula or Maxilla. A
    /// segmental bite, whose upper jaw is cut, gives several:
    ///
    /// - MandibulaToMaxilla moves the lower jaw and the upper segments to the reference segment,
    ///   which is the front one or, without it, the right. The reference segment does not move and
    ///   has no entry. Without both, the map is empty, and the warning
    ///   "getUpperReferenceSegmentTypeId: reference segment not found" is logged.
    /// - MaxillaToMandibula moves every upper segment.
    ///
    /// The map is empty if a matrix that is needed is absent from the bite. Moves that are not
    /// finite are left out.
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
