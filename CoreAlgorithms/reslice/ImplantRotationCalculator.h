// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QMatrix4x4>
#include <QVector3D>

class GuidingLine;

/// How must an implant turn about its own axis to stand square to the dental arch?
namespace implantRotationCalculator {

/// The rotation about the implant's local z axis that turns its local y axis to face the
/// perpendicular direction of the line at the sample nearest to the position (world mm). The
/// transform places the implant in the world; its translation plays no part. implantTransform *
/// rotation is the implant turned.
///
/// The identity for a line without path, and where the perpendicular direction runs along the
/// implant's axis or is not finite. A transform without inverse is inverted to the identity, as
/// QMatrix4x4::inverted() does.
COREALGORITHMS_EXPORT QMatrix4x4 calculatePerpendicularRotation(GuidingLine& line,
                                                                const QVector3D& position,
                                                                const QMatrix4x4& implantTransform);

} // namespace implantRotationCalculator
