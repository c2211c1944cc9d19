// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/dataobjects/Movements.h>
#include <CoreAlgorithms/transforms/OcclusionMovementTransformations.h>

#include <QMatrix4x4>
#include <QString>

#include <map>

/// Computes the moves that bring the jaws, or their segments, into the recorded bite (the
/// occlusion, in which the teeth of both jaws meet). SetOcclusionMovementTransformationsUndoCommand
/// stores them on a surgery.
///
/// With O the matrices of the bite and Tmax, Tmand the current total transforms of the scans of the
/// maxilla (upper jaw) and the mandible (lower jaw), in world mm:
///
///     maxilla    Tmand * O[Mandibula]^-1 * O[Maxilla] * Tmax^-1
///     mandible   Tmax * O[Maxilla]^-1 * O[Mandibula] * Tmand^-1
///
/// Products associate from the left. Inverses are QMatrix4x4::inverted(), which gives the identity
/// for a singular matrix.
///
/// Example (examples/bring_the_jaws_into_occlusion.cpp):
/// \code
/// OcclusionMovementCalculator::Data data;
/// data.occlusionTransformations = {{Maxilla::getClassTypeId(), maxillaInBite},
///                                  {Mandibula::getClassTypeId(), mandibulaInBite}};
/// data.maxillaRegistration = maxillaScanInWorld;
/// data.mandibulaRegistration = mandibulaScanInWorld;
/// const auto moves = OcclusionMovementCalculator(data).calculate();
///
/// QUndoStack stack;
/// stack.push(new SetOcclusionMovementTransformationsUndoCommand(
///     moves, utility::getOcclusionMovements(surgery), data.movementMode, nullptr));
/// \endcode
class COREALGORITHMS_EXPORT OcclusionMovementCalculator
{
public:
    struct Data
    {
        std::map<QString, QMatrix4x4> occlusionTransformations; ///< O, by jaw part type identifier
        QMatrix4x4 maxillaRegistration;                         ///< Tmax
        QMatrix4x4 mandibulaRegistration;                       ///< Tmand
        /// Names the mode under which the results are to be stored. calculate() ignores it.
        QString movementMode = MovementModes::OCCLUSION_PATIENT_SCAN_MODE;
    };

    /// Keeps a reference to the data, which must outlive the calculator. calculate() reads them as
    /// they are when it is called.
    explicit OcclusionMovementCalculator(const Data& input);
    /// Refuses temporary data, which would be gone before calculate().
    explicit OcclusionMovementCalculator(const Data&& input) = delete;
    OcclusionMovementCalculator(const OcclusionMovementCalculator&) = default;
    OcclusionMovementCalculator& operator=(const OcclusionMovementCalculator&) = delete;
    virtual ~OcclusionMovementCalculator();

    /// Returns the moves. The number of matrices in O decides which fields are filled:
    ///
    /// - Fewer than three are a bite of whole jaws and fill the first two fields. If the matrix of
    ///   either jaw is absent, no field is filled.
    /// - Three or more are a bite with the upper jaw cut into segments and fill the other two
    ///   fields, possibly by empty maps, by the rules of OcclusionTransformCalculator. Its warning
    ///   "getUpperReferenceSegmentTypeId: reference segment not found" is logged here too.
    ///
    /// Moves that are not finite are left out.
    OcclusionMovementTransformations calculate() const;

private:
    const Data& data;
};
