// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/TriangleDistance_p.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace collision {
namespace {

constexpr int kFootRounds = 2;

DoublePoint operator-(const DoublePoint& a, const DoublePoint& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

DoublePoint along(const DoublePoint& start, double share, const DoublePoint& direction)
{
    return {start[0] + share * direction[0], start[1] + share * direction[1],
            start[2] + share * direction[2]};
}

double dot(const DoublePoint& a, const DoublePoint& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

DoublePoint cross(const DoublePoint& a, const DoublePoint& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double squaredDistance(const DoublePoint& a, const DoublePoint& b)
{
    const DoublePoint difference = a - b;
    return dot(difference, difference);
}

struct Edge
{
    DoublePoint start;
    DoublePoint direction;
    double squaredLength;
};

// A triangle with its vertices in ascending order, so that the result depends on none.
struct Sorted
{
    explicit Sorted(ExactTriangle triangle)
    {
        std::ranges::sort(triangle);
        for (int i = 0; i < 3; ++i) {
            for (int axis = 0; axis < 3; ++axis)
                vertices[i][axis] = static_cast<double>(triangle[i][axis]);
        }
        for (int i = 0; i < 3; ++i) {
            const DoublePoint direction = vertices[(i + 1) % 3] - vertices[i];
            edges[i] = {vertices[i], direction, dot(direction, direction)};
        }
        normal = cross(edges[0].direction, edges[1].direction);
        squaredNormal = dot(normal, normal);
    }

    std::array<DoublePoint, 3> vertices;
    std::array<Edge, 3> edges;
    DoublePoint normal;
    double squaredNormal;
};

// The share of a line at which it is nearest to a point, within the edge.
double shareNearest(const Edge& edge, const DoublePoint& point)
{
    if (!(edge.squaredLength > 0.0))
        return 0.0;
    const double share = dot(edge.direction, point - edge.start) / edge.squaredLength;
    return std::clamp(share, 0.0, 1.0);
}

void keepNearer(NearestPoints& nearest, const DoublePoint& onFirst, const DoublePoint& onSecond)
{
    const double squared = squaredDistance(onFirst, onSecond);
    if (squared < nearest.squaredDistance)
        nearest = {squared, onFirst, onSecond};
}

// The nearest point of e to the line of f, then of f to that, then of e to this: the order gives
// the nearest points of the edges, whether the lines are nearest within them or not.
void keepNearerOfEdges(NearestPoints& nearest, const Edge& e, const Edge& f)
{
    const DoublePoint normal = cross(e.direction, f.direction);
    const double squaredNormal = dot(normal, normal);
    double share = 0.0;
    if (squaredNormal > 0.0) {
        const DoublePoint between = f.start - e.start;
        share = dot(cross(between, f.direction), normal) / squaredNormal;
        share = std::clamp(share, 0.0, 1.0);
    }
    const DoublePoint first = along(e.start, share, e.direction);
    const DoublePoint onF = along(f.start, shareNearest(f, first), f.direction);
    const DoublePoint onE = along(e.start, shareNearest(e, onF), e.direction);
    keepNearer(nearest, onE, onF);
}

// The foot of a point above the plane of a triangle, if it is on the triangle. The foot of what is
// left between the point and the first foot corrects the foot on a narrow triangle.
bool findFoot(const Sorted& triangle, const DoublePoint& point, DoublePoint& foot)
{
    if (!(triangle.squaredNormal > 0.0))
        return false;
    const DoublePoint& origin = triangle.vertices[0];
    const DoublePoint& first = triangle.edges[0].direction;
    const DoublePoint second = triangle.vertices[2] - origin;
    double shareOfFirst = 0.0;
    double shareOfSecond = 0.0;
    DoublePoint rest = point - origin;
    for (int round = 0; round < kFootRounds; ++round) {
        shareOfFirst += dot(cross(rest, second), triangle.normal) / triangle.squaredNormal;
        shareOfSecond += dot(cross(first, rest), triangle.normal) / triangle.squaredNormal;
        foot = along(along(origin, shareOfFirst, first), shareOfSecond, second);
        rest = point - foot;
    }
    return shareOfFirst >= 0.0 && shareOfSecond >= 0.0 && shareOfFirst + shareOfSecond <= 1.0;
}

NearestPoints nearestOfSorted(const Sorted& t, const Sorted& u)
{
    NearestPoints nearest{std::numeric_limits<double>::infinity(), {}, {}};
    for (const Edge& edgeOfT : t.edges) {
        for (const Edge& edgeOfU : u.edges)
            keepNearerOfEdges(nearest, edgeOfT, edgeOfU);
    }
    DoublePoint foot;
    for (const DoublePoint& vertex : t.vertices) {
        if (findFoot(u, vertex, foot))
            keepNearer(nearest, vertex, foot);
    }
    for (const DoublePoint& vertex : u.vertices) {
        if (findFoot(t, vertex, foot))
            keepNearer(nearest, foot, vertex);
    }
    return nearest;
}

// The point at which an edge of t crosses the plane of u, if it crosses it.
bool findCrossing(const Edge& edge, const Sorted& u, DoublePoint& crossing)
{
    const double atStart = dot(u.normal, edge.start - u.vertices[0]);
    const double perEdge = dot(u.normal, edge.direction);
    if (!(std::abs(perEdge) > 0.0))
        return false;
    const double share = -atStart / perEdge;
    if (!(share >= 0.0 && share <= 1.0))
        return false;
    crossing = along(edge.start, share, edge.direction);
    return true;
}

// The point of a triangle that is nearest to a point, for points within rounding of its plane.
DoublePoint nearestOn(const Sorted& triangle, const DoublePoint& point)
{
    DoublePoint foot;
    if (findFoot(triangle, point, foot))
        return foot;
    NearestPoints nearest{std::numeric_limits<double>::infinity(), {}, {}};
    for (const Edge& edge : triangle.edges)
        keepNearer(nearest, point, along(edge.start, shareNearest(edge, point), edge.direction));
    return nearest.onSecond;
}

} // namespace

bool isNearer(const NearestPoints& a, const NearestPoints& b)
{
    if (a.squaredDistance != b.squaredDistance)
        return a.squaredDistance < b.squaredDistance;
    return std::pair(a.onFirst, a.onSecond) < std::pair(b.onFirst, b.onSecond);
}

NearestPoints nearestPoints(const ExactTriangle& t, const ExactTriangle& u)
{
    const Sorted sortedT(t);
    const Sorted sortedU(u);
    if (sortedU.vertices < sortedT.vertices) {
        NearestPoints nearest = nearestOfSorted(sortedU, sortedT);
        std::swap(nearest.onFirst, nearest.onSecond);
        return nearest;
    }
    return nearestOfSorted(sortedT, sortedU);
}

DoublePoint commonPoint(const ExactTriangle& t, const ExactTriangle& u)
{
    const Sorted sortedT(t);
    const Sorted sortedU(u);
    const bool exchanged = sortedU.vertices < sortedT.vertices;
    const Sorted& first = exchanged ? sortedU : sortedT;
    const Sorted& second = exchanged ? sortedT : sortedU;
    NearestPoints nearest = nearestOfSorted(first, second);
    DoublePoint crossing;
    for (const auto& [crossed, other] : {std::pair(&second, &first), std::pair(&first, &second)}) {
        for (const Edge& edge : other->edges) {
            if (findCrossing(edge, *crossed, crossing))
                keepNearer(nearest, crossing, nearestOn(*crossed, crossing));
        }
    }
    return nearest.onFirst;
}

} // namespace collision
