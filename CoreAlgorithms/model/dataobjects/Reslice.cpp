// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Reslice.h>

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
