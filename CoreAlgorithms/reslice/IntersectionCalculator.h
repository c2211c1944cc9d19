// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QList>
#include <QVector3D>

class PlanarReslice;

/// Finds where a plane, for instance that of another view, cuts the border of a planar reslice's
/// rectangle.
///
/// Positions are in world mm, in single precision. The edges of the border are visited from the
/// origin along direction 1, along direction 0, back along direction 1 and back along direction 0:
///
///     direction 1
///         2 ┌──────────┐         edge 1: up the left side
///           │          │         edge 2: along the top
///         1 │          │ 3       edge 3: down the right side
///           └──────────┘         edge 4: back along the bottom
///         origin     4  direction 0
class COREALGORITHMS_EXPORT IntersectionCalculator
{
public:
    IntersectionCalculator() = default;
    IntersectionCalculator(const IntersectionCalculator&) = default;
    IntersectionCalculator& operator=(const IntersectionCalculator&) = default;
    virtual ~IntersectionCalculator();

    /// Returns the meeting points in the order of the edges, ends of edges included: none to four.
    /// A plane through a corner has that corner twice, once from either edge. An edge in the plane
    /// or parallel to it has no point. The normal need not have unit length; a zero normal gives no
    /// points. Empty for a null reslice, and where plane or normal hold NaN; a rectangle that is
    /// not finite may give points that are not finite.
    static QList<QVector3D> calculatePlaneIntersections(QVector3D pointOnPlane, QVector3D normal,
                                                        PlanarReslice* reslice);
};
