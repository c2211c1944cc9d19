// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

class CompositeMovement;
class MaxillofacialSurgery;
class OcclusionMovement;

/// The four occlusion movements of a surgery, not owned; null for one that it does not have.
struct OcclusionMovements
{
    OcclusionMovement* maxillaryMovement = nullptr;
    OcclusionMovement* mandibularMovement = nullptr;
    CompositeMovement* maxillarySegmentalMovement = nullptr;
    CompositeMovement* mandibularSegmentalMovement = nullptr;
};

namespace utility {

/// Looks the four up by their types. A movement that has the type but is of another class gives
/// null.
COREALGORITHMS_EXPORT OcclusionMovements getOcclusionMovements(const MaxillofacialSurgery& surgery);

} // namespace utility
