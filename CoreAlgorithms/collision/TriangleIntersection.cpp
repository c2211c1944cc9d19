// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/TriangleIntersection_p.h>

#include <cmath>
#include <optional>
#include <utility>

namespace collision {
namespace {

struct Interval
{
    float from;
    float to;
};

// The coordinates of a triangle's vertices along the line where the planes intersect.
using Projections = std::array<float, 3>;

// Returns where the two edges that meet in the vertex `alone` cross the other triangle's plane.
Interval crossings(const Projections& p, const Distances& d, int alone, int a, int b)
{
    const auto crossingTowards = [&](int other) {
        return p[alone] + (p[other] - p[alone]) * d[alone] / (d[alone] - d[other]);
    };
    Interval interval{crossingTowards(a), crossingTowards(b)};
    if (interval.from > interval.to)
        std::swap(interval.from, interval.to);
    return interval;
}

// Returns the part of the line that is inside the triangle, or nothing if all three vertices are in
// the other triangle's plane. The order of the cases decides which vertex counts as alone if
// distances are zero, and with it the rounding.
std::optional<Interval> intervalOnLine(const Projections& p, const Distances& d)
{
    if (d[0] * d[1] > 0.0F)
        return crossings(p, d, 2, 0, 1);
    if (d[0] * d[2] > 0.0F)
        return crossings(p, d, 1, 0, 2);
    if (d[1] * d[2] > 0.0F || d[0] != 0.0F)
        return crossings(p, d, 0, 1, 2);
    if (d[1] != 0.0F)
        return crossings(p, d, 1, 0, 2);
    if (d[2] != 0.0F)
        return crossings(p, d, 2, 0, 1);
    return std::nullopt;
}

// Returns the coordinate along which a direction is longest, or the first of equally long ones.
float Point::*longestAxis(const Point& direction)
{
    float Point::*axis = &Point::x;
    float longest = std::abs(direction.x);
    if (std::abs(direction.y) > longest) {
        axis = &Point::y;
        longest = std::abs(direction.y);
    }
    if (std::abs(direction.z) > longest)
        axis = &Point::z;
    return axis;
}

// ---- triangles in one plane, projected along a coordinate

struct Point2
{
    float x;
    float y;
};

using Triangle2 = std::array<Point2, 3>;

// Drops the coordinate along which the plane's normal is longest. The order of the comparisons
// decides which one is dropped if two are equal.
Triangle2 withoutLongestAxis(const Triangle& triangle, const Point& normal)
{
    const float x = std::abs(normal.x);
    const float y = std::abs(normal.y);
    const float z = std::abs(normal.z);
    const bool dropX = x > y && x > z;
    const bool dropZ = x > y ? !dropX : z > y;
    Triangle2 flat;
    for (int i = 0; i < 3; ++i) {
        const Point& p = triangle[i];
        if (dropX)
            flat[i] = {p.y, p.z};
        else if (dropZ)
            flat[i] = {p.x, p.y};
        else
            flat[i] = {p.x, p.z};
    }
    return flat;
}

// Returns whether the edge from `start` to `start + edge` meets the edge from u0 to u1. Parallel
// edges do not meet, even if they overlap.
bool edgesMeet(const Point2& start, const Point2& edge, const Point2& u0, const Point2& u1)
{
    const Point2 back{u0.x - u1.x, u0.y - u1.y};
    const Point2 between{start.x - u0.x, start.y - u0.y};
    const float scale = edge.y * back.x - edge.x * back.y;
    const float alongEdge = back.y * between.x - back.x * between.y;
    const bool hitsLine = (scale > 0.0F && alongEdge >= 0.0F && alongEdge <= scale) ||
                          (scale < 0.0F && alongEdge <= 0.0F && alongEdge >= scale);
    if (!hitsLine)
        return false;
    const float alongOther = edge.x * between.y - edge.y * between.x;
    return scale > 0.0F ? alongOther >= 0.0F && alongOther <= scale
                        : alongOther <= 0.0F && alongOther >= scale;
}

bool edgeMeetsTriangle(const Point2& start, const Point2& end, const Triangle2& u)
{
    const Point2 edge{end.x - start.x, end.y - start.y};
    return edgesMeet(start, edge, u[0], u[1]) || edgesMeet(start, edge, u[1], u[2]) ||
           edgesMeet(start, edge, u[2], u[0]);
}

// Returns a number whose sign is the side of the line from `from` to `to` on which the point is.
float sideOf(const Point2& from, const Point2& to, const Point2& point)
{
    const float a = to.y - from.y;
    const float b = -(to.x - from.x);
    const float c = -a * from.x - b * from.y;
    return a * point.x + b * point.y + c;
}

// Returns whether the point is strictly inside the triangle.
bool isInside(const Point2& point, const Triangle2& u)
{
    const float side0 = sideOf(u[0], u[1], point);
    const float side1 = sideOf(u[1], u[2], point);
    const float side2 = sideOf(u[2], u[0], point);
    return side0 * side1 > 0.0F && side0 * side2 > 0.0F;
}

bool coplanarTrianglesIntersect(const Point& normal, const Triangle& triangleV,
                                const Triangle& triangleU)
{
    const Triangle2 v = withoutLongestAxis(triangleV, normal);
    const Triangle2 u = withoutLongestAxis(triangleU, normal);
    return edgeMeetsTriangle(v[0], v[1], u) || edgeMeetsTriangle(v[1], v[2], u) ||
           edgeMeetsTriangle(v[2], v[0], u) || isInside(v[0], u) || isInside(u[0], v);
}

} // namespace

bool intervalsOverlap(const Triangle& v, const TrianglePlane& planeV, const Distances& fromU,
                      const Triangle& u, const TrianglePlane& planeU, const Distances& fromV)
{
    // The coordinate along which the line is longest orders points as the line itself does, and
    // needs no product to read.
    float Point::*const axis = longestAxis(cross(planeV.normal, planeU.normal));
    const auto intervalV = intervalOnLine({v[0].*axis, v[1].*axis, v[2].*axis}, fromU);
    if (!intervalV)
        return coplanarTrianglesIntersect(planeV.normal, v, u);
    const auto intervalU = intervalOnLine({u[0].*axis, u[1].*axis, u[2].*axis}, fromV);
    if (!intervalU)
        return coplanarTrianglesIntersect(planeV.normal, v, u);
    return !(intervalV->to < intervalU->from || intervalU->to < intervalV->from);
}

bool trianglesIntersect(const QVector3D& V0, const QVector3D& V1, const QVector3D& V2,
                        const QVector3D& U0, const QVector3D& U1, const QVector3D& U2)
{
    const auto point = [](const QVector3D& p) { return Point{p.x(), p.y(), p.z()}; };
    const Triangle v{point(V0), point(V1), point(V2)};
    const Triangle u{point(U0), point(U1), point(U2)};

    const TrianglePlane planeU = planeOf(u);
    const Distances fromU = distancesFrom(planeU, v);
    if (onOneSide(fromU))
        return false;
    const TrianglePlane planeV = planeOf(v);
    const Distances fromV = distancesFrom(planeV, u);
    if (onOneSide(fromV))
        return false;
    return intervalsOverlap(v, planeV, fromU, u, planeU, fromV);
}

} // namespace collision
