// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <QMatrix4x4>
#include <QString>

#include <map>

/// Holds the moves that a bite requires of the four occlusion movements of a surgery. Each matrix
/// maps the world (mm) onto itself. A field without a value leaves its movement unchanged. The keys
/// of the maps are the class type identifiers of the jaw parts that move.
struct OcclusionMovementTransformations
{
    utility::Optional<QMatrix4x4> maxillaryTransformation;
    utility::Optional<QMatrix4x4> mandibularTransformation;
    utility::Optional<std::map<QString, QMatrix4x4>> maxillarySegmentalTransformations;
    utility::Optional<std::map<QString, QMatrix4x4>> mandibularSegmentalTransformations;
};
