// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceTrees.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QList>
#include <QMatrix4x4>

#include <memory>

/// A stretch of teeth that is to be scanned, and its surface as far as it is scanned.
class COREALGORITHMS_MODEL_EXPORT ScannableRegion : public Surface3DModel
{
    COREALGORITHMS_TYPE(ScannableRegion, Surface3DModel)

public:
    /// First and last tooth; NoTooth for a new region.
    virtual ToothChart::Tooth getRegionStart() const;
    virtual ToothChart::Tooth getRegionEnd() const;
    virtual void setRegion(ToothChart::Tooth start, ToothChart::Tooth end);

private:
    ToothChart::Tooth regionStart = ToothChart::NoTooth;
    ToothChart::Tooth regionEnd = ToothChart::NoTooth;
};

/// What the intra-oral scanner has delivered in one go: its mesh or, while that is still to be
/// computed, an intermediate surface.
class COREALGORITHMS_MODEL_EXPORT QuarnRawScanData : public Surface3DModel
{
    COREALGORITHMS_TYPE(QuarnRawScanData, Surface3DModel)

public:
    /// In the order in which they were scanned; empty if that is not known.
    virtual QList<ToothChart::Tooth> getScannedTeeth() const;
    virtual void setScannedTeeth(const QList<ToothChart::Tooth>& teeth);

    /// True if the mesh has no vertices and there is an intermediate surface.
    virtual bool hasOnlyIntermediateMesh() const;
    /// Null if there is none.
    virtual SurfaceTree* getIntermediateSurface() const;
    virtual void setIntermediateSurface(std::shared_ptr<SurfaceTree> surface);

private:
    QList<ToothChart::Tooth> scannedTeeth;
    std::shared_ptr<SurfaceTree> intermediateSurface;
};

/// The registration of a bite: where the scans of both jaws and the vestibular scan stand in
/// occlusion.
class COREALGORITHMS_MODEL_EXPORT OcclusionScan : public DataObject
{
    COREALGORITHMS_TYPE(OcclusionScan, DataObject)

public:
    /// True once setTransformations() was called; the three matrices are the identity before.
    virtual bool isCalculated() const;
    virtual QMatrix4x4 getUpperTransformation() const;
    virtual QMatrix4x4 getLowerTransformation() const;
    virtual QMatrix4x4 getVestibularTransformation() const;
    virtual void setTransformations(const QMatrix4x4& upper, const QMatrix4x4& lower,
                                    const QMatrix4x4& vestibular);
    /// Back to the state before the calculation.
    virtual void resetTransformations();

private:
    bool calculated = false;
    QMatrix4x4 upperTransformation;
    QMatrix4x4 lowerTransformation;
    QMatrix4x4 vestibularTransformation;
};

/// What is to be scanned in a mouth, and what has been.
class COREALGORITHMS_MODEL_EXPORT ScanSetup : public DataObject
{
    COREALGORITHMS_TYPE(ScanSetup, DataObject)

public:
    /// Null for a setup without a bite.
    virtual OcclusionScan* getOcclusionScan() const;
    virtual void setOcclusionScan(std::shared_ptr<OcclusionScan> scan);

    virtual QList<ScannableRegion*> getScannableRegions() const;
    virtual void addScannableRegion(std::shared_ptr<ScannableRegion> region);

    /// In the order of scanning. Without `includeEmpty`, only those that have a mesh or an
    /// intermediate surface.
    virtual QList<QuarnRawScanData*> getQuarnRawScanData(bool includeEmpty) const;
    virtual void addQuarnRawScanData(std::shared_ptr<QuarnRawScanData> data);

private:
    std::shared_ptr<OcclusionScan> occlusionScan;
    QList<std::shared_ptr<ScannableRegion>> scannableRegions;
    QList<std::shared_ptr<QuarnRawScanData>> rawScanData;
};

/// Answers about several surfaces at once.
class COREALGORITHMS_MODEL_EXPORT SurfaceObjectHelper
{
public:
    /// The smallest box round the boxes of the surfaces in the scene; null for none. Null pointers
    /// and null boxes add nothing.
    static primitives::BoundingBox
    getCombinedBoundingBox(const QList<const dataobject::SurfaceObject*>& surfaces);
};
