// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QSizeF>
#include <QVector3D>

#include <memory>

class CTData;

/// Says how thick a reslice is shown: as one sample, or as a slab of Reslice::getThickness().
enum ResliceType : int { SingleSlice = 0, ThickSlab = 1 };

/// Represents a cut through the CT that a 2-D view shows: a raster of samples, and how the view
/// mirrors it. Setters store what they are given and notify the observers.
class COREALGORITHMS_MODEL_EXPORT Reslice : public DataObject
{
    COREALGORITHMS_TYPE(Reslice, DataObject)

public:
    /// Returns the numbers of samples along the view's x and y; 0 at first.
    virtual QSizeF getDimensions() const;
    /// Sets the numbers of samples along the view's x and y.
    virtual void setDimensions(const QSizeF& samples);

    /// Returns the spacing of the samples in mm along the view's x and y, and in z the thickness
    /// that a slice represents; 1 at first.
    virtual const QVector3D& getSampleSize() const;
    /// Sets the spacing of the samples and the thickness of a slice in mm.
    virtual void setSampleSize(const QVector3D& sizeMm);

    /// Returns the thickness in mm of the slab that a reslice of type ThickSlab shows; 1 at first.
    virtual float getThickness() const;
    /// Sets the thickness of the slab in mm.
    virtual void setThickness(float thicknessMm);
    /// Returns true if the reslice is shown in this way; a new one is a SingleSlice.
    virtual bool isType(ResliceType kind) const;
    /// Sets how thick the reslice is shown.
    virtual void setType(ResliceType kind);

    /// Returns true if the view mirrors the reslice from left to right; false at first.
    virtual bool isMirroredHorizontallyIn2D() const;
    /// Returns true if the view mirrors the reslice from top to bottom; false at first.
    virtual bool isMirroredVerticallyIn2D() const;
    /// Sets how the view mirrors the reslice.
    virtual void setMirroredIn2D(bool horizontally, bool vertically);

    /// Returns the scan that is cut, or null until one is set.
    virtual std::shared_ptr<CTData> getCTData() const;
    /// Sets the scan that is cut, which may be null.
    virtual void setCTData(std::shared_ptr<CTData> scan);

    /// Returns the width in mm: the samples along x times their spacing, computed in double
    /// precision and narrowed to float.
    virtual float getWidth() const;
    /// Returns the height in mm, computed along y as the width is along x.
    virtual float getHeight() const;

private:
    QSizeF dimensions{0.0, 0.0};
    QVector3D sampleSize{1.0F, 1.0F, 1.0F};
    float thickness = 1.0F;
    ResliceType type = SingleSlice;
    bool mirroredHorizontally = false;
    bool mirroredVertically = false;
    std::shared_ptr<CTData> ctData;
};
