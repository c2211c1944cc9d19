// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>
#include <QString>

#include <map>
#include <optional>

/// The rules by which a bite's matrices become moves of the jaw parts. Every move has the form
///     standing scan * inverse(bite of the standing part) * bite of the moving part *
///     inverse(moving scan)
/// read from the right: out of the current placement, into the bite, out of the bite seen from the
/// standing part, to where the standing scan is. Products associate from the left.
namespace transforms {

/// Matrices by jaw part type identifier.
using JawPartMatrices = std::map<QString, QMatrix4x4>;

/// Nothing for a key that is not there.
std::optional<QMatrix4x4> findMatrix(const JawPartMatrices& matrices, const QString& typeId);

/// One move, see above.
QMatrix4x4 moveIntoBite(const QMatrix4x4& standingScan, const QMatrix4x4& standingInBite,
                        const QMatrix4x4& movingInBite, const QMatrix4x4& movingScan);

/// Those of the front, right and left segment that the bite holds.
JawPartMatrices upperSegments(const JawPartMatrices& bite);

/// The upper jaw is cut and stays, the lower jaw comes: moves of the lower jaw and of the upper
/// segments except the reference segment, which stands. That is the front segment or, without one,
/// the right; without both a warning is logged. Empty without a reference segment or a matrix of
/// the lower jaw, the latter without warning. Moves that are not finite are left out, here and
/// below.
JawPartMatrices segmentalMandibulaToMaxilla(const JawPartMatrices& bite,
                                            const QMatrix4x4& maxillaScan,
                                            const QMatrix4x4& mandibulaScan);

/// The lower jaw stays, the upper jaw's segments come: their moves. Empty without a matrix of the
/// lower jaw.
JawPartMatrices segmentalMaxillaToMandibula(const JawPartMatrices& bite,
                                            const QMatrix4x4& maxillaScan,
                                            const QMatrix4x4& mandibulaScan);

} // namespace transforms
