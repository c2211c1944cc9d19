// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/OcclusionRules_p.h>

#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/dataobjects/JawParts.h>

#include <QMessageLogger>

namespace transforms {
namespace {

void insertFinite(JawPartMatrices& moves, const QString& typeId, const QMatrix4x4& move)
{
    if (finiteness::isFinite(move))
        moves.emplace(typeId, move);
}

// The upper segment to which the others and the lower jaw move; empty if there is none.
QString upperReferenceSegment(const JawPartMatrices& bite)
{
    for (const QString& typeId : {FrontSegment::getClassTypeId(), RightSegment::getClassTypeId()}) {
        if (bite.contains(typeId))
            return typeId;
    }
    // Intended: the left segment is never the reference; callers take a bite that has it alone for
    // incomplete.
    QMessageLogger().warning("getUpperReferenceSegmentTypeId: reference segment not found");
    return {};
}

} // namespace

std::optional<QMatrix4x4> findMatrix(const JawPartMatrices& matrices, const QString& typeId)
{
    const auto found = matrices.find(typeId);
    return found == matrices.end() ? std::nullopt : std::optional(found->second);
}

QMatrix4x4 moveIntoBite(const QMatrix4x4& standingScan, const QMatrix4x4& standingInBite,
                        const QMatrix4x4& movingInBite, const QMatrix4x4& movingScan)
{
    return standingScan * standingInBite.inverted() * movingInBite * movingScan.inverted();
}

JawPartMatrices upperSegments(const JawPartMatrices& bite)
{
    JawPartMatrices segments;
    for (const QString& typeId : {FrontSegment::getClassTypeId(), RightSegment::getClassTypeId(),
                                  LeftSegment::getClassTypeId()}) {
        if (const auto matrix = findMatrix(bite, typeId))
            segments.emplace(typeId, *matrix);
    }
    return segments;
}

JawPartMatrices segmentalMandibulaToMaxilla(const JawPartMatrices& bite,
                                            const QMatrix4x4& maxillaScan,
                                            const QMatrix4x4& mandibulaScan)
{
    const auto mandibula = findMatrix(bite, Mandibula::getClassTypeId());
    if (!mandibula)
        return {};
    const QString referenceId = upperReferenceSegment(bite);
    // The empty identifier means no segment, even if the bite has an empty key.
    const auto reference = referenceId.isEmpty() ? std::nullopt : findMatrix(bite, referenceId);
    if (!reference)
        return {};

    JawPartMatrices others = upperSegments(bite);
    // Intended: no entry for the reference; callers move what is listed, and it must stay.
    others.erase(referenceId);
    JawPartMatrices moves;
    for (const auto& [typeId, segment] : others)
        insertFinite(moves, typeId, moveIntoBite(maxillaScan, *reference, segment, maxillaScan));
    insertFinite(moves, Mandibula::getClassTypeId(),
                 moveIntoBite(maxillaScan, *reference, *mandibula, mandibulaScan));
    return moves;
}

JawPartMatrices segmentalMaxillaToMandibula(const JawPartMatrices& bite,
                                            const QMatrix4x4& maxillaScan,
                                            const QMatrix4x4& mandibulaScan)
{
    const auto mandibula = findMatrix(bite, Mandibula::getClassTypeId());
    if (!mandibula)
        return {};
    JawPartMatrices moves;
    for (const auto& [typeId, segment] : upperSegments(bite))
        insertFinite(moves, typeId, moveIntoBite(mandibulaScan, *mandibula, segment, maxillaScan));
    return moves;
}

} // namespace transforms
