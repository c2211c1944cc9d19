// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/ScanSetups.h>

#include <utility>

ToothChart::Tooth ScannableRegion::getRegionStart() const
{
    return regionStart;
}

ToothChart::Tooth ScannableRegion::getRegionEnd() const
{
    return regionEnd;
}

void ScannableRegion::setRegion(ToothChart::Tooth start, ToothChart::Tooth end)
{
    regionStart = start;
    regionEnd = end;
    changed();
}

QList<ToothChart::Tooth> QuarnRawScanData::getScannedTeeth() const
{
    return scannedTeeth;
}

void QuarnRawScanData::setScannedTeeth(const QList<ToothChart::Tooth>& teeth)
{
    scannedTeeth = teeth;
    changed();
}

bool QuarnRawScanData::hasOnlyIntermediateMesh() const
{
    return getIntermediateSurface() && getMesh().getVertices().isEmpty();
}

SurfaceTree* QuarnRawScanData::getIntermediateSurface() const
{
    return intermediateSurface.get();
}

void QuarnRawScanData::setIntermediateSurface(std::shared_ptr<SurfaceTree> surface)
{
    intermediateSurface = std::move(surface);
    changed();
}

bool OcclusionScan::isCalculated() const
{
    return calculated;
}

QMatrix4x4 OcclusionScan::getUpperTransformation() const
{
    return upperTransformation;
}

QMatrix4x4 OcclusionScan::getLowerTransformation() const
{
    return lowerTransformation;
}

QMatrix4x4 OcclusionScan::getVestibularTransformation() const
{
    return vestibularTransformation;
}

void OcclusionScan::setTransformations(const QMatrix4x4& upper, const QMatrix4x4& lower,
                                       const QMatrix4x4& vestibular)
{
    calculated = true;
    upperTransformation = upper;
    lowerTransformation = lower;
    vestibularTransformation = vestibular;
    changed();
}

void OcclusionScan::resetTransformations()
{
    calculated = false;
    upperTransformation.setToIdentity();
    lowerTransformation.setToIdentity();
    vestibularTransformation.setToIdentity();
    changed();
}

OcclusionScan* ScanSetup::getOcclusionScan() const
{
    return occlusionScan.get();
}

void ScanSetup::setOcclusionScan(std::shared_ptr<OcclusionScan> scan)
{
    occlusionScan = std::move(scan);
    changed();
}

QList<ScannableRegion*> ScanSetup::getScannableRegions() const
{
    QList<ScannableRegion*> regions;
    for (const auto& region : scannableRegions)
        regions.append(region.get());
    return regions;
}

void ScanSetup::addScannableRegion(std::shared_ptr<ScannableRegion> region)
{
    scannableRegions.append(std::move(region));
    changed();
}

QList<QuarnRawScanData*> ScanSetup::getQuarnRawScanData(bool includeEmpty) const
{
    QList<QuarnRawScanData*> found;
    for (const auto& data : rawScanData) {
        if (includeEmpty ||
            (data && (data->getIntermediateSurface() || !data->getMesh().getVertices().isEmpty())))
            found.append(data.get());
    }
    return found;
}

void ScanSetup::addQuarnRawScanData(std::shared_ptr<QuarnRawScanData> data)
{
    rawScanData.append(std::move(data));
    changed();
}

primitives::BoundingBox
SurfaceObjectHelper::getCombinedBoundingBox(const QList<const dataobject::SurfaceObject*>& surfaces)
{
    primitives::BoundingBox combined;
    for (const dataobject::SurfaceObject* surface : surfaces) {
        if (surface)
            combined =
                primitives::BoundingBox::createUnionOf(combined, surface->getSceneBoundingBox());
    }
    return combined;
}
