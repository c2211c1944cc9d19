// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>
#include <QString>

#include <map>
#include <optional>

/// The rules by which a bite's matrices become moves of the jaw parts. Every move has the form
///
///     standing scan * inverse(standing part in bite) * moving part in bite * inverse(moving scan)
///
/// It is read from the right: out of the current placement, into the bite, relative to the standing
/// part, to where the standing scan is. Products associate from the left.
namespace transforms {

/// Matrices by jaw part type identifier.
using JawPartMatrices = std::map<QString, QMatrix4x4>;

/// Returns the matrix of the key, or nothing if the key is absent.
std::optional<QMatrix4x4> findMatrix(const JawPartMatrices& matrices, const QString& typeId);

/// Returns one move, see above.
QMatrix4x4 moveIntoBite(const QMatrix4x4& standingScan, const QMatrix4x4& standingInBite,
                        const QMatrix4x4& movingInBite, const QMatrix4x4& movingScan);

/// Returns the matrices of the front, right and left segment that the bite holds.
JawPartMatrices upperSegments(const JawPartMatrices& bite);

/// Returns the moves of the lower jaw and of the upper segments to the reference segment, which
/// does not move and has no entry. The reference is the front segment or, without one, the right.
/// Logs a warning and returns an empty map if the bite has neither. Returns an empty map, without
/// warning, if it has no matrix of the lower jaw. Leaves out moves that are not finite.
JawPartMatrices segmentalMandibulaToMaxilla(const JawPartMatrices& bite,
                                            const QMatrix4x4& maxillaScan,
                                            const QMatrix4x4& mandibulaScan);

/// Returns the moves of the upper segments to the lower jaw, which does not move. Returns an empty
/// map without a matrix of the lower jaw. Leaves out moves that are not finite.
JawPartMatrices segmentalMaxillaToMandibula(const JawPartMatrices& bite,
                                            const QMatrix4x4& maxillaScan,
                                            const QMatrix4x4& mandibulaScan);

} // namespace transforms
