// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/OcclusionMovements.h>

#include <CoreAlgorithms/model/dataobjects/Movements.h>

namespace {

template <typename Kind>
Kind* find(const MaxillofacialSurgery& surgery, const QString& movementType)
{
    return dynamic_cast<Kind*>(surgery.getMovementByTypeIdentifier(movementType));
}

} // namespace

OcclusionMovements utility::getOcclusionMovements(const MaxillofacialSurgery& surgery)
{
    return {
        find<OcclusionMovement>(surgery, MovementTypes::m_maxillary_occlusion_movement),
        find<OcclusionMovement>(surgery, MovementTypes::m_mandibular_occlusion_movement),
        find<CompositeMovement>(surgery, MovementTypes::m_maxillary_segmental_occlusion_movement),
        find<CompositeMovement>(surgery, MovementTypes::m_mandibular_segmental_occlusion_movement),
    };
}
