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

/// Represents a range of teeth that is to be scanned, and the part of its surface that is scanned.
class COREALGORITHMS_MODEL_EXPORT ScannableRegion : public Surface3DModel
{
    COREALGORITHMS_TYPE(ScannableRegion, Surface3DModel)

public:
    /// Returns the first tooth; NoTooth for a new region.
    virtual ToothChart::Tooth getRegionStart() const;
    /// Returns the last tooth; NoTooth for a new region.
    virtual ToothChart::Tooth getRegionEnd() const;
    /// Sets the first and the last tooth. Notifies the observers.
    virtual void setRegion(ToothChart::Tooth start, ToothChart::Tooth end);

private:
    ToothChart::Tooth regionStart = ToothChart::NoTooth;
    ToothChart::Tooth regionEnd = ToothChart::NoTooth;
};

/// Holds what the intraoral scanner has delivered in one go: a mesh or, until it is computed, an
/// intermediate surface.
class COREALGORITHMS_MODEL_EXPORT QuarnRawScanData : public Surface3DModel
{
    COREALGORITHMS_TYPE(QuarnRawScanData, Surface3DModel)

public:
    /// Returns the teeth in the order in which they were scanned; empty if that is unknown.
    virtual QList<ToothChart::Tooth> getScannedTeeth() const;
    /// Sets the teeth in the order in which they were scanned. Notifies the observers.
    virtual void setScannedTeeth(const QList<ToothChart::Tooth>& teeth);

    /// Returns true if the mesh has no vertices and there is an intermediate surface.
    virtual bool hasOnlyIntermediateMesh() const;
    /// Returns the intermediate surface, or null.
    virtual SurfaceTree* getIntermediateSurface() const;
    /// Sets the intermediate surface, which may be null. Notifies the observers.
    virtual void setIntermediateSurface(std::shared_ptr<SurfaceTree> surface);

private:
    QList<ToothChart::Tooth> scannedTeeth;
    std::shared_ptr<SurfaceTree> intermediateSurface;
};

/// Holds the registration of a bite: the placements in occlusion of the scans of both jaws and of
/// the vestibular scan. All three are the identity until they are set.
class COREALGORITHMS_MODEL_EXPORT OcclusionScan : public DataObject
{
    COREALGORITHMS_TYPE(OcclusionScan, DataObject)

public:
    /// Returns true if placements are set.
    virtual bool isCalculated() const;
    /// Returns the placement of the upper jaw.
    virtual QMatrix4x4 getUpperTransformation() const;
    /// Returns the placement of the lower jaw.
    virtual QMatrix4x4 getLowerTransformation() const;
    /// Returns the placement of the vestibular scan.
    virtual QMatrix4x4 getVestibularTransformation() const;
    /// Sets all placements. Notifies the observers.
    virtual void setTransformations(const QMatrix4x4& upper, const QMatrix4x4& lower,
                                    const QMatrix4x4& vestibular);
    /// Returns to the state before placements were set. Notifies the observers.
    virtual void resetTransformations();

private:
    bool calculated = false;
    QMatrix4x4 upperTransformation;
    QMatrix4x4 lowerTransformation;
    QMatrix4x4 vestibularTransformation;
};

/// Describes what is to be scanned in a mouth, and what has been scanned. Setters notify the
/// observers.
class COREALGORITHMS_MODEL_EXPORT ScanSetup : public DataObject
{
    COREALGORITHMS_TYPE(ScanSetup, DataObject)

public:
    /// Returns the registration of the bite, or null for a setup without one.
    virtual OcclusionScan* getOcclusionScan() const;
    /// Sets the registration of the bite, which may be null.
    virtual void setOcclusionScan(std::shared_ptr<OcclusionScan> scan);

    /// Returns the regions in the order in which they were added.
    virtual QList<ScannableRegion*> getScannableRegions() const;
    /// Appends a region, which may be null.
    virtual void addScannableRegion(std::shared_ptr<ScannableRegion> region);

    /// Returns the data in the order of scanning: all with `includeEmpty`, else those that have a
    /// mesh or an intermediate surface.
    virtual QList<QuarnRawScanData*> getQuarnRawScanData(bool includeEmpty) const;
    /// Appends data, which may be null.
    virtual void addQuarnRawScanData(std::shared_ptr<QuarnRawScanData> data);

private:
    std::shared_ptr<OcclusionScan> occlusionScan;
    QList<std::shared_ptr<ScannableRegion>> scannableRegions;
    QList<std::shared_ptr<QuarnRawScanData>> rawScanData;
};

/// Computes what several surfaces have in common.
class COREALGORITHMS_MODEL_EXPORT SurfaceObjectHelper
{
public:
    /// Returns the smallest box around the scene boxes of the surfaces, or the null box if there
    /// are none. Null pointers and null boxes are ignored.
    static primitives::BoundingBox
    getCombinedBoundingBox(const QList<const dataobject::SurfaceObject*>& surfaces);
};
