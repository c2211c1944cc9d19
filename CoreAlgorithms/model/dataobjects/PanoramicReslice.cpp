// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/PanoramicReslice.h>

#include <utility>

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
