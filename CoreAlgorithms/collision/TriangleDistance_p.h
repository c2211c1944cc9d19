// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/collision/ExactTriangles_p.h>

#include <array>

namespace collision {

/// A point or a direction in double precision, in mm.
using DoublePoint = std::array<double, 3>;

/// A point of each of two triangles and the square of their distance.
struct NearestPoints
{
    double squaredDistance;
    DoublePoint onFirst;
    DoublePoint onSecond;
};

/// Returns whether the points of `a` come before those of `b`: by the distance, then by the
/// coordinates. It makes one choice of several pairs of points that are equally near.
bool isNearer(const NearestPoints& a, const NearestPoints& b);

/// Returns the nearest points of two triangles that have no point in common. Of triangles that
/// have, the result is some pair of points, one on each.
///
/// The least distance is that of an edge to an edge, or of a vertex to the face above which it is.
/// All of these are computed, with the direction between two lines and the foot of a vertex from
/// cross products, whose error moves them along the lines and the face where it matters least. The
/// distance is that of the two points that are returned, so it is never too small by more than its
/// own rounding. The result does not depend on the order of a triangle's vertices and, but for the
/// exchange of the points, on that of the triangles.
NearestPoints nearestPoints(const ExactTriangle& t, const ExactTriangle& u);

/// Returns a point that both triangles have in common, within rounding, for triangles that
/// haveCommonPoint().
DoublePoint commonPoint(const ExactTriangle& t, const ExactTriangle& u);

} // namespace collision
