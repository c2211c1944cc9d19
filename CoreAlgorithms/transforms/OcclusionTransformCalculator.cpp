// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/OcclusionTransformCalculator.h>

#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/transforms/OcclusionRules_p.h>
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>

namespace {

// The move of a whole jaw, under its identifier; empty if the bite lacks one of the jaws.
transforms::JawPartMatrices moveWholeJaw(const transforms::JawPartMatrices& bite,
                                         const QString& movingId, const QString& standingId,
                                         const QMatrix4x4& movingScan,
                                         const QMatrix4x4& standingScan)
{
    const auto moving = transforms::findMatrix(bite, movingId);
    const auto standing = transforms::findMatrix(bite, standingId);
    if (!moving || !standing)
        return {};
    const QMatrix4x4 move = transforms::moveIntoBite(standingScan, *standing, *moving, movingScan);
    if (!finiteness::isFinite(move))
        return {};
    return {{movingId, move}};
}

} // namespace

OcclusionTransformCalculator::OcclusionTransformCalculator(const Occlusion& occlusion,
                                                           const DentalScan& maxillaScan,
                                                           const DentalScan& mandibulaScan,
                                                           QMatrix4x4 planningTransform)
    : maxilla(&maxillaScan),
      mandibula(&mandibulaScan),
      planning(planningTransform),
      bite(occlusion.getTransformations()),
      segmental(occlusion.isSegmental())
{}

OcclusionTransformCalculator::OcclusionTransformCalculator(
    const dataobject::VirtualOcclusion& occlusion, const DentalScan& maxillaScan,
    const DentalScan& mandibulaScan, QMatrix4x4 planningTransform)
    : maxilla(&maxillaScan),
      mandibula(&mandibulaScan),
      planning(planningTransform),
      bite(occlusion.getTransformations()),
      segmental(occlusion.isSegmental())
{}

OcclusionTransformCalculator::~OcclusionTransformCalculator() = default;

std::map<QString, QMatrix4x4>
OcclusionTransformCalculator::calculateTransformations(TransformationType type)
{
    // Intended: every value but 0 moves the upper jaw; callers pass stored numbers.
    return type == MandibulaToMaxilla ? calculateMandibulaToMaxillaTransformations()
                                      : calculateMaxillaToMandibulaTransformations();
}

std::map<QString, QMatrix4x4>
OcclusionTransformCalculator::calculateMandibulaToMaxillaTransformations()
{
    const Registrations scans = getRegistrations();
    return segmental ? transforms::segmentalMandibulaToMaxilla(bite, scans.maxilla, scans.mandibula)
                     : moveWholeJaw(bite, Mandibula::getClassTypeId(), Maxilla::getClassTypeId(),
                                    scans.mandibula, scans.maxilla);
}

std::map<QString, QMatrix4x4>
OcclusionTransformCalculator::calculateMaxillaToMandibulaTransformations()
{
    const Registrations scans = getRegistrations();
    return segmental ? transforms::segmentalMaxillaToMandibula(bite, scans.maxilla, scans.mandibula)
                     : moveWholeJaw(bite, Maxilla::getClassTypeId(), Mandibula::getClassTypeId(),
                                    scans.maxilla, scans.mandibula);
}

OcclusionTransformCalculator::Registrations OcclusionTransformCalculator::getRegistrations()
{
    return {SurfaceScanTransformations::getTotalTransform(maxilla, planning),
            SurfaceScanTransformations::getTotalTransform(mandibula, planning)};
}
