// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QList>
#include <QPoint>
#include <QRect>

/// Computes the axis-aligned rectangle that encloses a set of integer points of a view.
///
/// The rectangle is laid out for a frame whose y axis points up:
///     x = smallest x,    width = largest x - smallest x
///     y = largest y,     height = largest y - smallest y
/// A single point thus has a rectangle of size 0 x 0. Where a size or a far edge is beyond the
/// range of int, the rectangle ends at the nearest coordinate within it.
///
/// Set the points, run, read the result.
class COREALGORITHMS_EXPORT Point2DBoundingRectangleCalculator
{
public:
    Point2DBoundingRectangleCalculator() = default;
    Point2DBoundingRectangleCalculator(const Point2DBoundingRectangleCalculator&) = default;
    Point2DBoundingRectangleCalculator&
    operator=(const Point2DBoundingRectangleCalculator&) = default;
    virtual ~Point2DBoundingRectangleCalculator();

    /// Stores a copy of the points for the next run.
    void setPointSet(const QList<QPoint>& points);

    /// Computes the rectangle, in time linear in the number of points. Returns false for an empty
    /// set, which keeps the result of the run before.
    bool run();

    /// Returns the result of the last successful run, or the null rectangle before the first one.
    QRect getBoundingRect();

private:
    void calculateBounding2DRectangle();

    QList<QPoint> pointSet;
    QRect boundingRect;
};
