// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QMatrix4x4>
#include <QVector3D>

class GuidingLine;

/// Turns an implant about its own axis to face across the dental arch.
namespace implantRotationCalculator {

/// Returns the rotation about the implant's local z axis that makes its local y axis face along the
/// perpendicular direction of the guiding line at the sample nearest to `position` (world mm). The
/// transform places the implant in the world; its translation is ignored. The turned implant is
/// placed by implantTransform * rotation.
///
/// Returns the identity for a line without path, and where the perpendicular direction runs along
/// the implant's axis or is not finite. A transform without inverse is inverted to the identity, as
/// by QMatrix4x4::inverted().
COREALGORITHMS_EXPORT QMatrix4x4 calculatePerpendicularRotation(GuidingLine& line,
                                                                const QVector3D& position,
                                                                const QMatrix4x4& implantTransform);

} // namespace implantRotationCalculator
