// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/Reslice.h>
#include <CoreAlgorithms/model/math/Range.h>

#include <QList>
#include <QVector3D>

#include <memory>

class GuidingLine;

/// Represents a reslice that unrolls the surface above and below a guiding line: x runs along the
/// line, and y runs against its upper direction. Setters store what they are given and notify the
/// observers.
class COREALGORITHMS_MODEL_EXPORT PanoramicReslice : public Reslice
{
    COREALGORITHMS_TYPE(PanoramicReslice, Reslice)

public:
    /// Returns the samples along the line in world mm, one for each column.
    virtual QList<QVector3D> getPath() const;
    /// Sets the samples along the line.
    virtual void setPath(const QList<QVector3D>& samples);

    /// Returns the line, or null if the reslice is not laid along one.
    virtual std::shared_ptr<GuidingLine> getGuidingLine() const;
    /// Sets the line, which may be null.
    virtual void setGuidingLine(std::shared_ptr<GuidingLine> guidingLine);

    /// Returns the heights along the upper direction, in mm, that the view shows.
    virtual math::Range<float> getVerticalRange() const;
    /// Sets the heights that the view shows.
    virtual void setVerticalRange(const math::Range<float>& heightsMm);

private:
    QList<QVector3D> path;
    std::shared_ptr<GuidingLine> line;
    math::Range<float> verticalRange;
};
