// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <utility>

QSizeF Reslice::getDimensions() const
{
    return dimensions;
}

void Reslice::setDimensions(const QSizeF& samples)
{
    dimensions = samples;
    changed();
}

const QVector3D& Reslice::getSampleSize() const
{
    return sampleSize;
}

void Reslice::setSampleSize(const QVector3D& sizeMm)
{
    sampleSize = sizeMm;
    changed();
}

float Reslice::getThickness() const
{
    return thickness;
}

void Reslice::setThickness(float thicknessMm)
{
    thickness = thicknessMm;
    changed();
}

bool Reslice::isType(ResliceType kind) const
{
    return type == kind;
}

void Reslice::setType(ResliceType kind)
{
    type = kind;
    changed();
}

bool Reslice::isMirroredHorizontallyIn2D() const
{
    return mirroredHorizontally;
}

bool Reslice::isMirroredVerticallyIn2D() const
{
    return mirroredVertically;
}

void Reslice::setMirroredIn2D(bool horizontally, bool vertically)
{
    mirroredHorizontally = horizontally;
    mirroredVertically = vertically;
    changed();
}

std::shared_ptr<CTData> Reslice::getCTData() const
{
    return ctData;
}

void Reslice::setCTData(std::shared_ptr<CTData> scan)
{
    ctData = std::move(scan);
    changed();
}

float Reslice::getWidth() const
{
    return static_cast<float>(dimensions.width() * sampleSize.x());
}

float Reslice::getHeight() const
{
    return static_cast<float>(dimensions.height() * sampleSize.y());
}

QMatrix4x4 PlanarReslice::getTransformationFromResliceToWorld() const
{
    return transformation;
}

void PlanarReslice::setTransformationFromResliceToWorld(const QMatrix4x4& worldFromReslice)
{
    transformation = worldFromReslice;
    changed();
}

QVector3D PlanarReslice::getOrigin() const
{
    return transformation.column(3).toVector3D();
}

QVector3D PlanarReslice::getDirection0(bool perSample) const
{
    const QVector3D direction = transformation.column(0).toVector3D();
    return perSample ? direction * getSampleSize().x() : direction;
}

QVector3D PlanarReslice::getDirection1(bool perSample) const
{
    const QVector3D direction = transformation.column(1).toVector3D();
    return perSample ? direction * getSampleSize().y() : direction;
}

QList<QVector3D> PanoramicReslice::getPath() const
{
    return path;
}

void PanoramicReslice::setPath(const QList<QVector3D>& samples)
{
    path = samples;
    changed();
}

std::shared_ptr<GuidingLine> PanoramicReslice::getGuidingLine() const
{
    return line;
}

void PanoramicReslice::setGuidingLine(std::shared_ptr<GuidingLine> guidingLine)
{
    line = std::move(guidingLine);
    changed();
}

math::Range<float> PanoramicReslice::getVerticalRange() const
{
    return verticalRange;
}

void PanoramicReslice::setVerticalRange(const math::Range<float>& heightsMm)
{
    verticalRange = heightsMm;
    changed();
}

QMatrix4x4 CephReslice::getTransformation() const
{
    return transformation;
}

void CephReslice::setTransformation(const QMatrix4x4& worldFromReslice)
{
    transformation = worldFromReslice;
    changed();
}

meta::PointOfView CephReslice::getPointOfView() const
{
    return pointOfView;
}

void CephReslice::setPointOfView(meta::PointOfView view)
{
    pointOfView = view;
    changed();
}
