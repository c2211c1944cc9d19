// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QList>
#include <QPoint>
#include <QRect>

/// Which axis-aligned rectangle encloses a set of integer points of a view?
///
/// The rectangle is laid out for a y-up frame:
///     x = smallest x,    width = largest x - smallest x
///     y = largest y,     height = largest y - smallest y
/// A single point thus has a rectangle of size 0 x 0. Where a size or a far edge is more than an
/// int holds, the rectangle ends at the nearest one that does.
///
/// Set the points, run, read the result. Linear in the number of points.
class COREALGORITHMS_EXPORT Point2DBoundingRectangleCalculator
{
public:
    Point2DBoundingRectangleCalculator() = default;
    Point2DBoundingRectangleCalculator(const Point2DBoundingRectangleCalculator&) = default;
    Point2DBoundingRectangleCalculator&
    operator=(const Point2DBoundingRectangleCalculator&) = default;
    virtual ~Point2DBoundingRectangleCalculator();

    void setPointSet(const QList<QPoint>& points);

    /// False for an empty set of points, which keeps the result of the run before.
    bool run();

    /// Of the last run that had points; before it the null rectangle.
    QRect getBoundingRect();

private:
    void calculateBounding2DRectangle();

    QList<QPoint> pointSet;
    QRect boundingRect;
};
