// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/ScanSetupTransformationHelper.h>

#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/dataobjects/ScanSetups.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceTrees.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QList>

using primitives::BoundingBox;

namespace {

// The gap between the jaws in a synthesized bite, in mm: enough to see the chewing surfaces of
// both.
constexpr float kGapBetweenJaws = 20.0F;

BoundingBox sixZeros()
{
    return {0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F};
}

float liftOfUpperJaw(const BoundingBox& upper, const BoundingBox& lower)
{
    if (!upper.isNull() && !lower.isNull())
        return upper.min().z() - lower.max().z() - kGapBetweenJaws;
    if (!upper.isNull())
        return -upper.height() - kGapBetweenJaws;
    if (!lower.isNull())
        return lower.centerZ() + lower.height() * 0.5F - kGapBetweenJaws;
    return 0.0F;
}

using Surfaces = QList<const dataobject::SurfaceObject*>;

struct JawSurfaces
{
    // The list to which a surface that begins at this tooth belongs.
    Surfaces& ofTooth(ToothChart::Tooth tooth)
    {
        return int(ToothChart::getArchTypeOfTooth(tooth)) == hostvalues::kUpperArch ? upper : lower;
    }

    Surfaces upper;
    Surfaces lower;
};

JawSurfaces collectJawSurfaces(const ScanSetup& setup)
{
    JawSurfaces jaws;
    for (const ScannableRegion* region : setup.getScannableRegions()) {
        if (region)
            jaws.ofTooth(region->getRegionStart()).append(region);
    }
    for (const QuarnRawScanData* data : setup.getQuarnRawScanData(false)) {
        if (!data)
            continue;
        const dataobject::SurfaceObject* surface = data;
        if (data->hasOnlyIntermediateMesh())
            surface = data->getIntermediateSurface();
        const QList<ToothChart::Tooth> teeth = data->getScannedTeeth();
        // Intended: a scan of no known tooth belongs to the lower jaw; callers rely on it not being
        // moved.
        Surfaces& jaw = teeth.isEmpty() ? jaws.lower : jaws.ofTooth(teeth.first());
        if (surface)
            jaw.append(surface);
    }
    return jaws;
}

struct JawBoxes
{
    BoundingBox upper = sixZeros();
    BoundingBox lower = sixZeros();
    BoundingBox combined = sixZeros();
};

// Returns boxes of six zeros for a setup without regions and raw scan data.
JawBoxes getJawBoundingBoxes(const ScanSetup& setup)
{
    if (setup.getScannableRegions().isEmpty() && setup.getQuarnRawScanData(true).isEmpty())
        return {};
    const auto [upper, lower] = collectJawSurfaces(setup);
    return {SurfaceObjectHelper::getCombinedBoundingBox(upper),
            SurfaceObjectHelper::getCombinedBoundingBox(lower),
            SurfaceObjectHelper::getCombinedBoundingBox(upper + lower)};
}

} // namespace

OcclusionTransformation
ScanSetupTransformationHelper::getOcclusionTransformation(const ScanSetup* setup)
{
    OcclusionTransformation bite;
    if (!setup || getOcclusionScanTransformations(setup, bite))
        return bite;
    const auto [upper, lower, combined] = getJawBoundingBoxes(*setup);
    bite.upperTransformation =
        calculateFakeOcclusionTransformationForUpperJaw(upper, lower, combined);
    return bite;
}

OcclusionTransformation
ScanSetupTransformationHelper::getOcclusionTransformation(const SurfaceTree* tree,
                                                          const ScanSetup* setup)
{
    OcclusionTransformation bite;
    if (!tree || !setup || getOcclusionScanTransformations(setup, bite))
        return bite;
    auto [upper, lower, combined] = getJawBoundingBoxes(*setup);
    // Intended: the combined box is not recomputed, the upper jaw turns about the surfaces of the
    // setup alone; previews of the tree rely on it.
    if (upper.isNull() || !upper.isValid())
        upper = tree->getSceneBoundingBox();
    bite.upperTransformation =
        calculateFakeOcclusionTransformationForUpperJaw(upper, lower, combined);
    return bite;
}

QMatrix4x4
ScanSetupTransformationHelper::getFakeOcclusionTransformationForUpperJaw(const BoundingBox& upper,
                                                                         const BoundingBox& lower)
{
    // Intended: the union starts from six zeros; hosts whose boxes of zeros are not null rely on
    // the origin being part of it.
    const BoundingBox combined =
        BoundingBox::createUnionOf(BoundingBox::createUnionOf(sixZeros(), upper), lower);
    return calculateFakeOcclusionTransformationForUpperJaw(upper, lower, combined);
}

QMatrix4x4
ScanSetupTransformationHelper::getAntagonistExportTransformation(ToothChart::ArchType archType,
                                                                 const ScanSetup* setup)
{
    if (!setup || !setup->getOcclusionScan())
        return {};
    const OcclusionTransformation bite = getOcclusionTransformation(setup);
    if (int(archType) == hostvalues::kUpperArch)
        return finiteness::finiteOrIdentity(bite.lowerTransformation.inverted() *
                                            bite.upperTransformation);
    if (int(archType) == hostvalues::kLowerArch)
        return finiteness::finiteOrIdentity(bite.upperTransformation.inverted() *
                                            bite.lowerTransformation);
    return {};
}

bool ScanSetupTransformationHelper::getOcclusionScanTransformations(const ScanSetup* setup,
                                                                    OcclusionTransformation& out)
{
    const OcclusionScan* scan = setup ? setup->getOcclusionScan() : nullptr;
    if (!scan || !scan->isCalculated())
        return false;
    out = {scan->getUpperTransformation(), scan->getLowerTransformation(),
           scan->getVestibularTransformation()};
    return true;
}

QMatrix4x4 ScanSetupTransformationHelper::calculateFakeOcclusionTransformationForUpperJaw(
    const BoundingBox& upper, const BoundingBox& lower, const BoundingBox& combined)
{
    const QVector3D center = combined.center();
    QMatrix4x4 matrix;
    matrix.translate(center);
    matrix.rotate(180.0F, 0.0F, 1.0F, 0.0F);
    matrix.translate(-center);
    matrix.translate(0.0F, 0.0F, liftOfUpperJaw(upper, lower));
    return finiteness::finiteOrIdentity(matrix);
}
