// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/OcclusionMovementCalculator.h>

#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/transforms/OcclusionRules_p.h>

namespace {

// Intended: the number of matrices decides, whichever they are; callers pass exactly the two jaws'
// matrices for a bite of whole jaws.
constexpr std::size_t kSegmentalCount = 3;

utility::Optional<QMatrix4x4> finite(const QMatrix4x4& move)
{
    return finiteness::isFinite(move) ? utility::Optional<QMatrix4x4>(move)
                                      : utility::Optional<QMatrix4x4>();
}

} // namespace

OcclusionMovementCalculator::OcclusionMovementCalculator(const Data& input) : data(input) {}

OcclusionMovementCalculator::~OcclusionMovementCalculator() = default;

OcclusionMovementTransformations OcclusionMovementCalculator::calculate() const
{
    const auto& bite = data.occlusionTransformations;
    const QMatrix4x4& maxillaScan = data.maxillaRegistration;
    const QMatrix4x4& mandibulaScan = data.mandibulaRegistration;

    OcclusionMovementTransformations result;
    if (bite.size() >= kSegmentalCount) {
        result.maxillarySegmentalTransformations =
            transforms::segmentalMaxillaToMandibula(bite, maxillaScan, mandibulaScan);
        result.mandibularSegmentalTransformations =
            transforms::segmentalMandibulaToMaxilla(bite, maxillaScan, mandibulaScan);
        return result;
    }
    const auto maxilla = transforms::findMatrix(bite, Maxilla::getClassTypeId());
    const auto mandibula = transforms::findMatrix(bite, Mandibula::getClassTypeId());
    if (maxilla && mandibula) {
        result.maxillaryTransformation =
            finite(transforms::moveIntoBite(mandibulaScan, *mandibula, *maxilla, maxillaScan));
        result.mandibularTransformation =
            finite(transforms::moveIntoBite(maxillaScan, *maxilla, *mandibula, mandibulaScan));
    }
    return result;
}
