// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/ScanSetupTransformationHelper.h>

#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/dataobjects/ScanSetups.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceTrees.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

using primitives::BoundingBox;

namespace {

// Kept between the jaws in a bite that is made up, in mm: enough to see the chewing surfaces of
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

// The list that a surface with this tooth goes to.
template <typename Surfaces>
Surfaces& jawOf(ToothChart::Tooth tooth, Surfaces& first, Surfaces& second)
{
    return static_cast<int>(ToothChart::getArchTypeOfTooth(tooth)) == hostvalues::kUpperArch ? first : second;
}

} // namespace

OcclusionTransformation
ScanSetupTransformationHelper::getOcclusionTransformation(const ScanSetup* setup)
{
    OcclusionTransformation bite;
    if (!setup || getOcclusionScanTransformations(setup, bite))
        return bite;
    BoundingBox upper = sixZeros();
    BoundingBox lower = sixZeros();
    BoundingBox combined = sixZeros();
    getJawBoundingBoxes(*setup, upper, lower, combined);
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
    BoundingBox upper = sixZeros();
    BoundingBox lower = sixZeros();
    BoundingBox combined = sixZeros();
    getJawBoundingBoxes(*setup, upper, lower, combined);
    // Intended: the combined box stays as it is, the upper jaw turns about the surfaces of the
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
    // Intended: the union starts from six zeros; a host whose boxes of zeros are not null relies on
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
    if (static_cast<int>(archType) == kUpperArch)
        return transforms::finiteOrIdentity(bite.lowerTransformation.inverted() *
                                            bite.upperTransformation);
    if (static_cast<int>(archType) == kLowerArch)
        return transforms::finiteOrIdentity(bite.upperTransformation.inverted() *
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

void ScanSetupTransformationHelper::collectJawSurfaces(const ScanSetup& setup, Surfaces& first,
                                                       Surfaces& second)
{
    for (const ScannableRegion* region : setup.getScannableRegions()) {
        if (region)
            jawOf(region->getRegionStart(), first, second).append(region);
    }
    for (const QuarnRawScanData* data : setup.getQuarnRawScanData(false)) {
        if (!data)
            continue;
        const dataobject::SurfaceObject* surface = data;
        if (data->hasOnlyIntermediateMesh())
            surface = data->getIntermediateSurface();
        const QList<ToothChart::Tooth> teeth = data->getScannedTeeth();
        // Intended: what was scanned of no known tooth counts as the lower jaw's, which stays where
        // it is.
        Surfaces& jaw = teeth.isEmpty() ? second : jawOf(teeth.first(), first, second);
        if (surface)
            jaw.append(surface);
    }
}

bool ScanSetupTransformationHelper::getJawBoundingBoxes(const ScanSetup& setup,
                                                        BoundingBox& firstBox,
                                                        BoundingBox& secondBox,
                                                        BoundingBox& combinedBox)
{
    if (setup.getScannableRegions().isEmpty() && setup.getQuarnRawScanData(true).isEmpty())
        return false;
    Surfaces first;
    Surfaces second;
    collectJawSurfaces(setup, first, second);
    firstBox = SurfaceObjectHelper::getCombinedBoundingBox(first);
    secondBox = SurfaceObjectHelper::getCombinedBoundingBox(second);
    combinedBox = SurfaceObjectHelper::getCombinedBoundingBox(first + second);
    return true;
}

QMatrix4x4 ScanSetupTransformationHelper::calculateFakeOcclusionTransformationForUpperJaw(
    const BoundingBox& upper, const BoundingBox& lower, const BoundingBox& combined)
{
    const QVector3D centre = combined.center();
    QMatrix4x4 matrix;
    matrix.translate(centre);
    matrix.rotate(180.0F, 0.0F, 1.0F, 0.0F);
    matrix.translate(-centre);
    matrix.translate(0.0F, 0.0F, liftOfUpperJaw(upper, lower));
    return finiteness::finiteOrIdentity(matrix);
}
