// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace collision {

/// A vertex in single precision, in mm.
using ExactPoint = std::array<float, 3>;

using ExactTriangle = std::array<ExactPoint, 3>;

/// Returns the sign of the determinant |b - a, c - a, d - a|, as exact arithmetic gives it: -1, 0
/// or 1. It is 0 if the four points are in one plane.
///
/// The sign is computed in double precision with a bound of the rounding error, and exactly where
/// the bound does not decide, as in J. R. Shewchuk, "Adaptive Precision Floating-Point Arithmetic
/// and Fast Robust Geometric Predicates", Discrete & Computational Geometry 18 (1997) 305-363. The
/// exact sum has 48 terms, because the products of coordinates in single precision fit into few
/// doubles. Right for all finite coordinates.
int orientation(const ExactPoint& a, const ExactPoint& b, const ExactPoint& c, const ExactPoint& d);

/// Returns the sign of the determinant |b - a, c - a| of the coordinates `x` and `y` of the points,
/// likewise. It is positive if a, b, c turn counter-clockwise seen with x to the right and y up.
int turn(const ExactPoint& a, const ExactPoint& b, const ExactPoint& c, int x, int y);

/// Returns whether the two closed triangles have a point in common, as exact arithmetic decides it.
/// A triangle without area is the segment or the point that its vertices span.
bool haveCommonPoint(const ExactTriangle& t, const ExactTriangle& u);

} // namespace collision
