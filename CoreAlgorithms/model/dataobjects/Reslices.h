// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/math/Range.h>

#include <QList>
#include <QMatrix4x4>
#include <QSizeF>
#include <QVector3D>

#include <memory>

class CTData;
class GuidingLine;

namespace meta {

/// From where a cephalometric projection is seen; FromLeft turns its x axis round.
enum PointOfView : int { FromRight = 0, FromLeft = 1, FromFront = 2 };

} // namespace meta

/// How thick a reslice is shown: one sample, or a slab of Reslice::getThickness().
enum ResliceType : int { SingleSlice = 0, ThickSlab = 1 };

/// A cut through the CT that is shown in a 2-D view: a raster of samples, and how the view mirrors
/// it.
class COREALGORITHMS_MODEL_EXPORT Reslice : public DataObject
{
    COREALGORITHMS_TYPE(Reslice, DataObject)

public:
    /// Samples along the view's x and y.
    virtual QSizeF getDimensions() const;
    virtual void setDimensions(const QSizeF& samples);

    /// Spacing of the samples in mm along the view's x and y; z is the thickness of the slab that a
    /// slice stands for.
    virtual const QVector3D& getSampleSize() const;
    virtual void setSampleSize(const QVector3D& sizeMm);

    /// Thickness of the shown slab in mm, for reslices of type ThickSlab.
    virtual float getThickness() const;
    virtual void setThickness(float thicknessMm);
    virtual bool isType(ResliceType kind) const;
    virtual void setType(ResliceType kind);

    virtual bool isMirroredHorizontallyIn2D() const;
    virtual bool isMirroredVerticallyIn2D() const;
    virtual void setMirroredIn2D(bool horizontally, bool vertically);

    /// The scan that is cut; null until one is set.
    virtual std::shared_ptr<CTData> getCTData() const;
    virtual void setCTData(std::shared_ptr<CTData> scan);

    /// Extent in mm: dimensions times sample size, computed in double precision, then narrowed.
    virtual float getWidth() const;
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

/// A flat reslice. In its local frame the plane is z = 0 and the rectangle is 0 <= x <= width, 0 <=
/// y <= height, in mm; the columns of the transformation to the world are direction 0, direction 1,
/// the normal and the origin.
class COREALGORITHMS_MODEL_EXPORT PlanarReslice : public Reslice
{
    COREALGORITHMS_TYPE(PlanarReslice, Reslice)

public:
    virtual QMatrix4x4 getTransformationFromResliceToWorld() const;
    virtual void setTransformationFromResliceToWorld(const QMatrix4x4& worldFromReslice);

    /// World position of the local origin, a corner of the rectangle.
    virtual QVector3D getOrigin() const;
    /// World direction of the local x axis as it stands in the transformation; with `perSample`,
    /// one sample's step.
    virtual QVector3D getDirection0(bool perSample) const;
    /// The same for the local y axis.
    virtual QVector3D getDirection1(bool perSample) const;

private:
    QMatrix4x4 transformation;
};

/// A reslice that unrolls the surface above and below a guiding line: x runs along the line, y
/// against its upper direction.
class COREALGORITHMS_MODEL_EXPORT PanoramicReslice : public Reslice
{
    COREALGORITHMS_TYPE(PanoramicReslice, Reslice)

public:
    /// World samples along the line, one column apart.
    virtual QList<QVector3D> getPath() const;
    virtual void setPath(const QList<QVector3D>& samples);

    /// Null for a reslice that is not laid along a line.
    virtual std::shared_ptr<GuidingLine> getGuidingLine() const;
    virtual void setGuidingLine(std::shared_ptr<GuidingLine> guidingLine);

    /// Heights along the upper direction, in mm, that the view shows.
    virtual math::Range<float> getVerticalRange() const;
    virtual void setVerticalRange(const math::Range<float>& heightsMm);

private:
    QList<QVector3D> path;
    std::shared_ptr<GuidingLine> line;
    math::Range<float> verticalRange;
};

/// A projection through the whole head, as in a cephalogram. The transformation maps the local (x,
/// y, 0) into the world.
class COREALGORITHMS_MODEL_EXPORT CephReslice : public Reslice
{
    COREALGORITHMS_TYPE(CephReslice, Reslice)

public:
    virtual QMatrix4x4 getTransformation() const;
    virtual void setTransformation(const QMatrix4x4& worldFromReslice);

    virtual meta::PointOfView getPointOfView() const;
    virtual void setPointOfView(meta::PointOfView view);

private:
    QMatrix4x4 transformation;
    meta::PointOfView pointOfView = meta::FromRight;
};
