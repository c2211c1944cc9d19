// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/dataobjects/Movements.h>
#include <CoreAlgorithms/transforms/OcclusionMovementTransformations.h>

#include <QMatrix4x4>
#include <QString>

#include <map>

/// By which matrices must the jaws, or their segments, move for the patient to bite as recorded?
///
/// With O the matrices of the bite and Tmax, Tmand the current total transforms of the two scans:
///     maxilla    Tmand * O[Mandibula]^-1 * O[Maxilla] * Tmax^-1
///     mandible   Tmax * O[Maxilla]^-1 * O[Mandibula] * Tmand^-1
/// Products are taken from the left, inverses are QMatrix4x4::inverted(), which gives the identity
/// for a singular matrix.
///
/// A bite with fewer than three matrices is one of whole jaws and fills the first two fields;
/// without the matrix of either jaw it fills none. With three or more, the upper jaw is cut into
/// segments, and the other two fields are filled, be it by empty maps, after the rules of
/// OcclusionTransformCalculator, with its warning "getUpperReferenceSegmentTypeId: reference
/// segment not found". A move that is not finite is left out.
class COREALGORITHMS_EXPORT OcclusionMovementCalculator
{
public:
    struct Data
    {
        std::map<QString, QMatrix4x4> occlusionTransformations; ///< by jaw part type identifier
        QMatrix4x4 maxillaRegistration;   ///< current total transform of the maxilla scan
        QMatrix4x4 mandibulaRegistration; ///< the same of the mandibula scan
        /// Under which the results are to be stored; it plays no part in them.
        QString movementMode = MovementModes::OCCLUSION_PATIENT_SCAN_MODE;
    };

    /// Keeps a reference: the data must stay alive, and changes to them count.
    explicit OcclusionMovementCalculator(const Data& input);
    /// Refuses temporary data, which would be gone before calculate().
    explicit OcclusionMovementCalculator(const Data&& input) = delete;
    OcclusionMovementCalculator(const OcclusionMovementCalculator&) = default;
    OcclusionMovementCalculator& operator=(const OcclusionMovementCalculator&) = delete;
    virtual ~OcclusionMovementCalculator();

    OcclusionMovementTransformations calculate() const;

private:
    const Data& data;
};
