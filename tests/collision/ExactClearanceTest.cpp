// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/Clearance.h>

// Clearances compared with a brute-force computation in exact arithmetic, CGAL's.

#include <CoreAlgorithms/collision/ExactTriangles_p.h>
#include <CoreAlgorithms/collision/TriangleDistance_p.h>
#include <CoreAlgorithms/model/data/Mesh.h>
#include <tests/support/FuzzRounds.h>

#include <CGAL/Exact_predicates_exact_constructions_kernel.h>
#include <QMatrix4x4>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using collision::ExactPoint;
using collision::ExactTriangle;
using collision::PlacedSurface;
using collision::Relation;
using Kernel = CGAL::Exact_predicates_exact_constructions_kernel;

constexpr double kTolerance = 1e-9; // mm

Kernel::Point_3 exact(const ExactPoint& p)
{
    return {double(p[0]), double(p[1]), double(p[2])};
}

Kernel::Point_3 exact(const std::array<double, 3>& p)
{
    return {p[0], p[1], p[2]};
}

// Any random numbers, the same with every standard library.
class Random
{
public:
    explicit Random(unsigned seed) : engine(seed) {}

    float between(float from, float to)
    {
        return from + (to - from) * static_cast<float>(engine() >> 8) * 0x1p-24F;
    }
    int whole(int from, int to) // both inclusive
    {
        return from + static_cast<int>(engine() % static_cast<unsigned>(to - from + 1));
    }
    ExactPoint point(float half)
    {
        return {between(-half, half), between(-half, half), between(-half, half)};
    }
    ExactPoint wholePoint(int half)
    {
        return {float(whole(-half, half)), float(whole(-half, half)), float(whole(-half, half))};
    }

private:
    std::mt19937 engine;
};

// ---- exact arithmetic, in the plainest way

using Part =
    std::vector<Kernel::Point_3>; // a point, the ends of a segment, or the corners of a triangle

Part partOf(const ExactTriangle& triangle)
{
    Part points{exact(triangle[0]), exact(triangle[1]), exact(triangle[2])};
    if (!CGAL::collinear(points[0], points[1], points[2]))
        return points;
    std::sort(points.begin(), points.end());
    if (points.front() == points.back())
        return {points.front()};
    return {points.front(), points.back()};
}

Kernel::FT squaredDistance(const Part& a, const Part& b)
{
    if (a.size() > b.size())
        return squaredDistance(b, a);
    const auto segment = [](const Part& part, int i, int j) {
        return Kernel::Segment_3(part[i], part[j]);
    };
    const auto triangle = [](const Part& part) {
        return Kernel::Triangle_3(part[0], part[1], part[2]);
    };
    if (b.size() == 3) {
        // The least distance is that of an edge to the other triangle.
        if (a.size() == 1)
            return CGAL::squared_distance(a[0], triangle(b));
        if (a.size() == 2) {
            if (CGAL::do_intersect(segment(a, 0, 1), triangle(b)))
                return 0;
            Kernel::FT least = CGAL::min(CGAL::squared_distance(a[0], triangle(b)),
                                         CGAL::squared_distance(a[1], triangle(b)));
            for (int i = 0; i < 3; ++i)
                least = CGAL::min(
                    least, CGAL::squared_distance(segment(a, 0, 1), segment(b, i, (i + 1) % 3)));
            return least;
        }
        if (CGAL::do_intersect(triangle(a), triangle(b)))
            return 0;
        Kernel::FT least = CGAL::squared_distance(a[0], triangle(b));
        for (int i = 0; i < 3; ++i) {
            least = CGAL::min(least, CGAL::squared_distance(a[i], triangle(b)));
            least = CGAL::min(least, CGAL::squared_distance(b[i], triangle(a)));
            for (int j = 0; j < 3; ++j)
                least = CGAL::min(least, CGAL::squared_distance(segment(a, i, (i + 1) % 3),
                                                                segment(b, j, (j + 1) % 3)));
        }
        return least;
    }
    if (b.size() == 2)
        return a.size() == 1 ? CGAL::squared_distance(a[0], segment(b, 0, 1))
                             : CGAL::squared_distance(segment(a, 0, 1), segment(b, 0, 1));
    return CGAL::squared_distance(a[0], b[0]);
}

double exactDistance(const ExactTriangle& t, const ExactTriangle& u)
{
    return std::sqrt(CGAL::to_double(squaredDistance(partOf(t), partOf(u))));
}

double distanceFrom(const std::array<double, 3>& point, const ExactTriangle& triangle)
{
    return std::sqrt(CGAL::to_double(squaredDistance({exact(point)}, partOf(triangle))));
}

// ---- pairs of triangles of all kinds

ExactPoint plus(const ExactPoint& p, const ExactPoint& q, float factor = 1.0F)
{
    return {p[0] + factor * q[0], p[1] + factor * q[1], p[2] + factor * q[2]};
}

struct TrianglePair
{
    ExactTriangle t;
    ExactTriangle u;
};

enum class Kind {
    General,
    Near,
    WholeNumbers,
    SharedVertex,
    SharedEdge,
    Coplanar,
    Parallel,
    NarrowAndNear,
    NearlyParallelEdges,
    WithoutArea
};

ExactTriangle randomTriangle(Random& random, const ExactPoint& center, float size)
{
    return {plus(center, random.point(size)), plus(center, random.point(size)),
            plus(center, random.point(size))};
}

TrianglePair pairOf(Kind kind, Random& random)
{
    const float reach = std::array{1.0F, 10.0F, 500.0F}[random.whole(0, 2)];
    const float size = std::array{0.05F, 1.0F, 40.0F}[random.whole(0, 2)];
    const ExactPoint center = random.point(reach);
    ExactTriangle t = randomTriangle(random, center, size);
    switch (kind) {
    case Kind::General:
        return {t, randomTriangle(random, random.point(reach), size)};
    case Kind::Near:
        return {t, randomTriangle(random, center, size)};
    case Kind::WholeNumbers: {
        const auto triangle = [&random] {
            return ExactTriangle{random.wholePoint(3), random.wholePoint(3), random.wholePoint(3)};
        };
        return {triangle(), triangle()};
    }
    case Kind::SharedVertex: {
        ExactTriangle u = randomTriangle(random, center, size);
        u[random.whole(0, 2)] = t[random.whole(0, 2)];
        return {t, u};
    }
    case Kind::SharedEdge: {
        ExactTriangle u = randomTriangle(random, center, size);
        u[0] = t[0];
        u[1] = t[1];
        return {t, u};
    }
    case Kind::Coplanar: {
        // Multiples of two whole vectors: exactly in one plane.
        const ExactPoint a = random.wholePoint(4);
        const ExactPoint b = random.wholePoint(4);
        const auto inPlane = [&] {
            return plus(plus({}, a, float(random.whole(-6, 6))), b, float(random.whole(-6, 6)));
        };
        return {{inPlane(), inPlane(), inPlane()}, {inPlane(), inPlane(), inPlane()}};
    }
    case Kind::Parallel: {
        const ExactPoint shift = random.point(0.01F);
        return {t, {plus(t[0], shift), plus(t[1], shift), plus(t[2], shift)}};
    }
    case Kind::NarrowAndNear: {
        const auto narrow = [&](ExactTriangle triangle) {
            const float width = std::array{1e-3F, 1e-5F, 0.0F}[random.whole(0, 2)];
            triangle[2] = plus(plus(triangle[0], plus(triangle[1], triangle[0], -1.0F), 0.5F),
                               random.point(1.0F), width);
            return triangle;
        };
        return {narrow(t), narrow(randomTriangle(random, center, size))};
    }
    case Kind::NearlyParallelEdges: {
        const ExactPoint step = random.point(size);
        const float off = std::array{1e-2F, 1e-4F, 1e-6F}[random.whole(0, 2)];
        ExactTriangle u = randomTriangle(random, center, size);
        u[0] = plus(t[0], random.point(1.0F), off);
        u[1] = plus(t[1], random.point(1.0F), off);
        t[2] = plus(t[2], step);
        u[2] = plus(u[2], step, -1.0F);
        return {t, u};
    }
    case Kind::WithoutArea: {
        ExactTriangle u = randomTriangle(random, center, size);
        switch (random.whole(0, 3)) {
        case 0:
            u[1] = u[0];
            break;
        case 1:
            u[1] = u[2] = u[0];
            break;
        case 2:
            u = {ExactPoint{0, 0, 0}, random.wholePoint(2), ExactPoint{}};
            u[2] = plus(u[1], u[1]);
            break;
        default:
            u[1] = u[0] = t[random.whole(0, 2)];
            break;
        }
        if (random.whole(0, 2) == 0)
            t[1] = t[0];
        return {t, u};
    }
    }
    return {};
}

class ExactClearanceOfTriangles : public testing::TestWithParam<Kind>
{};

TEST_P(ExactClearanceOfTriangles, HasTheRelationAndTheDistanceOfExactArithmetic)
{
    Random random(7 + static_cast<unsigned>(GetParam()));
    const int rounds = 2500 * test::fuzzRounds();
    for (int round = 0; round < rounds; ++round) {
        const auto [t, u] = pairOf(GetParam(), random);
        const double expected = exactDistance(t, u);
        const bool meets = collision::haveCommonPoint(t, u);
        ASSERT_EQ(meets, expected == 0.0) << "round " << round;
        ASSERT_EQ(meets, collision::haveCommonPoint(u, t)) << "round " << round;
        if (meets) {
            const auto common = collision::commonPoint(t, u);
            ASSERT_LT(distanceFrom(common, t), kTolerance) << "round " << round;
            ASSERT_LT(distanceFrom(common, u), kTolerance) << "round " << round;
            continue;
        }
        const auto nearest = collision::nearestPoints(t, u);
        ASSERT_NEAR(std::sqrt(nearest.squaredDistance), expected, kTolerance) << "round " << round;
        ASSERT_LT(distanceFrom(nearest.onFirst, t), kTolerance) << "round " << round;
        ASSERT_LT(distanceFrom(nearest.onSecond, u), kTolerance) << "round " << round;
        const auto exchanged = collision::nearestPoints({u[2], u[0], u[1]}, {t[1], t[0], t[2]});
        ASSERT_EQ(exchanged.squaredDistance, nearest.squaredDistance);
        ASSERT_EQ(exchanged.onFirst, nearest.onSecond);
        ASSERT_EQ(exchanged.onSecond, nearest.onFirst);
    }
}

std::string nameOf(const testing::TestParamInfo<Kind>& kind)
{
    constexpr std::array kNames{
        "General",  "Near",     "WholeNumbers",  "SharedVertex",        "SharedEdge",
        "Coplanar", "Parallel", "NarrowAndNear", "NearlyParallelEdges", "WithoutArea"};
    return kNames[static_cast<std::size_t>(kind.param)];
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, ExactClearanceOfTriangles,
                         testing::Values(Kind::General, Kind::Near, Kind::WholeNumbers,
                                         Kind::SharedVertex, Kind::SharedEdge, Kind::Coplanar,
                                         Kind::Parallel, Kind::NarrowAndNear,
                                         Kind::NearlyParallelEdges, Kind::WithoutArea),
                         nameOf);

// ---- surfaces

using Triangles = std::vector<ExactTriangle>;

geometry::Mesh meshOf(const Triangles& triangles)
{
    QList<QVector3D> vertices;
    QList<int> indices;
    for (const ExactTriangle& triangle : triangles) {
        for (const ExactPoint& point : triangle) {
            indices.append(static_cast<int>(vertices.size()));
            vertices.append({point[0], point[1], point[2]});
        }
        indices.append(-1);
    }
    return {vertices, indices};
}

// A closed tetrahedron or, without its last face, an open one.
Triangles tetrahedron(const ExactPoint& a, const ExactPoint& b, const ExactPoint& c,
                      const ExactPoint& d, bool isClosed)
{
    Triangles faces{{a, b, c}, {b, c, d}, {c, d, a}};
    if (isClosed)
        faces.push_back({d, a, b});
    return faces;
}

struct Body
{
    std::array<ExactPoint, 4> corners;
    bool isClosed;

    Triangles triangles() const
    {
        return tetrahedron(corners[0], corners[1], corners[2], corners[3], isClosed);
    }
    bool contains(const ExactPoint& point) const
    {
        const Kernel::Tetrahedron_3 solid(exact(corners[0]), exact(corners[1]), exact(corners[2]),
                                          exact(corners[3]));
        return isClosed && !solid.is_degenerate() && solid.has_on_bounded_side(exact(point));
    }
};

Body randomBody(Random& random, float half)
{
    Body body;
    const bool isWhole = random.whole(0, 1) == 0;
    for (ExactPoint& corner : body.corners)
        corner = isWhole ? random.wholePoint(static_cast<int>(half)) : random.point(half);
    body.isClosed = random.whole(0, 2) != 0;
    return body;
}

TEST(ExactClearance, SurfacesHaveTheRelationDistanceAndPointsOfExactArithmetic)
{
    Random random(41);
    const int rounds = 2000 * test::fuzzRounds();
    std::array<int, 3> numOf{};
    for (int round = 0; round < rounds; ++round) {
        const Body a = randomBody(random, 20.0F);
        const Body b = randomBody(random, random.whole(0, 1) == 0 ? 3.0F : 20.0F);
        double least = std::numeric_limits<double>::infinity();
        const Triangles trianglesOfA = a.triangles();
        const Triangles trianglesOfB = b.triangles();
        for (const ExactTriangle& t : trianglesOfA) {
            for (const ExactTriangle& u : trianglesOfB)
                least = std::min(least, exactDistance(t, u));
        }
        Relation expected = Relation::Apart;
        if (least == 0.0)
            expected = Relation::Overlapping;
        else if (a.contains(b.corners[0]) || b.contains(a.corners[0]))
            expected = Relation::Contained;
        ++numOf[static_cast<std::size_t>(expected)];

        const auto found = collision::clearance(PlacedSurface(meshOf(trianglesOfA), {}),
                                                PlacedSurface(meshOf(trianglesOfB), {}));
        ASSERT_TRUE(found);
        ASSERT_EQ(found->relation, expected) << "round " << round;
        ASSERT_NEAR(found->distance, expected == Relation::Apart ? least : 0.0, kTolerance);
        ASSERT_EQ(found->firstIsInside, least > 0.0 && b.contains(a.corners[0]));
        ASSERT_EQ(found->secondIsInside, least > 0.0 && a.contains(b.corners[0]));
        const auto distanceFromSurface = [](const auto& point, const Triangles& triangles) {
            double nearest = std::numeric_limits<double>::infinity();
            for (const ExactTriangle& triangle : triangles)
                nearest = std::min(nearest, distanceFrom(point, triangle));
            return nearest;
        };
        ASSERT_LT(distanceFromSurface(found->pointOnFirst, trianglesOfA), kTolerance);
        ASSERT_LT(distanceFromSurface(found->pointOnSecond, trianglesOfB), kTolerance);
    }
    for (const int number : numOf)
        EXPECT_GT(number, rounds / 200);
}

} // namespace
