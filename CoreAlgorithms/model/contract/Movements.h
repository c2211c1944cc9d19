// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes the movements of a surgery and the jaw parts that they move.

#include <CoreAlgorithms/model/contract/Requirements.h>

#include <QList>
#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

#include <concepts>
#include <cstddef>
#include <memory>
#include <utility>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes Movement, MovementUndoLock over it, and its type as the constants and getters of
/// MovementTypes name it.
template <typename Movement, typename Lock>
concept MovementFamily = std::constructible_from<Lock, Movement*> &&
    requires(const Movement& movement, Movement& changeable, const QString& text)
{
    { movement.getMovementType() } -> Exactly<QString>;
    { movement.getPrimaryAffectedType() } -> Exactly<QString>;
    changeable.setPrimaryAffectedType(text);
    changeable.setMovementMode(text);
    changeable.removeMovementMode(text);
};

/// Describes OcclusionMovement, which is created from its type identifier.
template <typename OcclusionMovement, typename Movement, typename JawType, typename OptionalMatrix>
concept OcclusionMovementFamily = std::derived_from<OcclusionMovement, Movement> &&
    std::constructible_from<OcclusionMovement, QString> &&
    requires(OcclusionMovement& changeable, const QString& mode, const QMatrix4x4& matrix,
             JawType jaw)
{
    { changeable.getOcclusionModeTransformation(mode) } -> Exactly<OptionalMatrix>;
    changeable.addOcclusionModeTransformation(mode, matrix);
    changeable.removeOcclusionModeTransformation(mode);
    changeable.setAffectedTreatmentType(jaw);
};

/// Describes CompositeMovement, which takes ownership of the movements that are added.
template <typename Composite, typename Movement>
concept CompositeMovementFamily = std::derived_from<Composite, Movement> &&
    requires(const Composite& composite, Composite& changeable, Movement* movement)
{
    { composite.getMovements() } -> Exactly<QList<Movement*>>;
    changeable.addMovement(movement);
};

/// Describes MaxillofacialSurgery. It returns null for a movement that it does not have.
template <typename Surgery, typename Movement>
concept SurgeryFamily = requires(const Surgery& surgery, const QString& movementType)
{
    { surgery.getMovementByTypeIdentifier(movementType) } -> Exactly<Movement*>;
};

/// Describes MovementTypes, which is created with a null parent.
template <typename Types>
concept MovementTypesFamily = std::constructible_from<Types, std::nullptr_t> &&
    requires(const Types& types)
{
    { Types::m_maxillary_occlusion_movement } -> Exactly<QString>;
    { Types::m_mandibular_occlusion_movement } -> Exactly<QString>;
    { Types::m_maxillary_segmental_occlusion_movement } -> Exactly<QString>;
    { Types::m_mandibular_segmental_occlusion_movement } -> Exactly<QString>;
    { types.getMaxillarySegmentalOcclusionMovement() } -> Exactly<QString>;
    { types.getMandibularSegmentalOcclusionMovement() } -> Exactly<QString>;
};

/// Describes MovementModes.
template <typename Modes>
concept MovementModesFamily = requires
{
    { Modes::OCCLUSION_PLASTER_CAST_MODE } -> Exactly<QString>;
    { Modes::OCCLUSION_PATIENT_SCAN_MODE } -> Exactly<QString>;
    { Modes::OCCLUSION_VIRTUAL_MODE } -> Exactly<QString>;
};

/// Describes Mandibula and the jaw parts that rotate.
template <typename Mandibula, typename RotatablePart, typename Point>
concept JawPartFamily =
    requires(const Mandibula& mandibula, Mandibula& changeable, const RotatablePart& part,
             RotatablePart& changeablePart, const QVector3D& position,
             const QList<QVector3D>& positions, bool flag)
{
    { mandibula.getCondylePositions() } -> Exactly<std::pair<QVector3D, QVector3D>>;
    changeable.setCondylePositions({position, position}, flag);
    { mandibula.getLeftAutoRotationPoint() } -> Exactly<std::shared_ptr<Point>>;
    { mandibula.getRightAutoRotationPoint() } -> Exactly<std::shared_ptr<Point>>;
    { mandibula.getOcclusalPlanePositions() } -> Exactly<QList<QVector3D>>;
    changeable.setOcclusalPlanePositions(positions);
    { part.getRotationPosition() } -> Exactly<QVector3D>;
    changeablePart.setRotationPosition(position);
};

// clang-format on

} // namespace hostcontract
