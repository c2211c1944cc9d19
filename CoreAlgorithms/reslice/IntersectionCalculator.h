// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QList>
#include <QVector3D>

class PlanarReslice;

/// Where does a plane, for instance that of another view, cut the border of a planar reslice's
/// rectangle?
///
/// World mm, single precision. The border is walked from the origin along direction 1, direction 0,
/// back along direction 1 and back along direction 0:
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

    /// The meeting points in the order of the edges, ends of edges included; none to four. A plane
    /// through a corner has that corner twice, once from either edge; an edge that lies in the
    /// plane, or runs parallel to it, has none. The normal need not have unit length; a zero normal
    /// meets nothing. Empty for a null reslice, and where plane or normal hold NaN; a rectangle
    /// that is not finite may give points that are not.
    static QList<QVector3D> calculatePlaneIntersections(QVector3D pointOnPlane, QVector3D normal,
                                                        PlanarReslice* reslice);
};
