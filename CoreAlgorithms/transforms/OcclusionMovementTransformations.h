// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <QMatrix4x4>
#include <QString>

#include <map>

/// What a bite asks of the four occlusion movements of a surgery: matrices of planning space onto
/// itself. A movement without a value is left as it is. The maps are keyed by the class type
/// identifier of the jaw part that moves.
struct OcclusionMovementTransformations
{
    utility::Optional<QMatrix4x4> maxillaryTransformation;
    utility::Optional<QMatrix4x4> mandibularTransformation;
    utility::Optional<std::map<QString, QMatrix4x4>> maxillarySegmentalTransformations;
    utility::Optional<std::map<QString, QMatrix4x4>> mandibularSegmentalTransformations;
};
