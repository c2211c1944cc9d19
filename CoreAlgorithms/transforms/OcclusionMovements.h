// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

class CompositeMovement;
class MaxillofacialSurgery;
class OcclusionMovement;

/// Holds pointers to the four occlusion movements of a surgery. They are not owned, and null for a
/// movement that the surgery does not have.
struct OcclusionMovements
{
    OcclusionMovement* maxillaryMovement = nullptr;
    OcclusionMovement* mandibularMovement = nullptr;
    CompositeMovement* maxillarySegmentalMovement = nullptr;
    CompositeMovement* mandibularSegmentalMovement = nullptr;
};

namespace utility {

/// Looks up the four movements by their types. A movement of the right type but of another class
/// gives null.
COREALGORITHMS_EXPORT OcclusionMovements getOcclusionMovements(const MaxillofacialSurgery& surgery);

} // namespace utility
