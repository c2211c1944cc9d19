// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/TriangleIntersection_p.h>

// The test of two triangles that cross, touch or are apart, that are coplanar in planes along every
// axis, or that are degenerate, and the limits that rounding sets. Coordinates are exactly
// representable unless a comment says otherwise.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace {

using TestTriangle = std::array<QVector3D, 3>;

bool intersect(const TestTriangle& v, const TestTriangle& u)
{
    return collision::trianglesIntersect(v[0], v[1], v[2], u[0], u[1], u[2]);
}

// Checks both orders of the triangles and all orders of their vertices.
void expectInAllOrders(bool expected, const TestTriangle& v, const TestTriangle& u)
{
    constexpr std::array<std::array<std::size_t, 3>, 6> orders{
        {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}}};
    for (const auto& a : orders) {
        for (const auto& b : orders) {
            const TestTriangle turnedV{v[a[0]], v[a[1]], v[a[2]]};
            const TestTriangle turnedU{u[b[0]], u[b[1]], u[b[2]]};
            EXPECT_EQ(intersect(turnedV, turnedU), expected)
                << a[0] << a[1] << a[2] << b[0] << b[1] << b[2];
            EXPECT_EQ(intersect(turnedU, turnedV), expected)
                << a[0] << a[1] << a[2] << b[0] << b[1] << b[2];
        }
    }
}

// A triangle in the plane z = 0.
const TestTriangle kFloor{{{0.0F, 0.0F, 0.0F}, {4.0F, 0.0F, 0.0F}, {0.0F, 4.0F, 0.0F}}};

TEST(TrianglesIntersect, IfTheyCross)
{
    expectInAllOrders(true, kFloor,
                      {{{1.0F, 1.0F, -1.0F}, {1.0F, 1.0F, 1.0F}, {2.0F, 1.0F, 1.0F}}});
}

TEST(TrianglesIntersect, NotIfOneIsOnOneSideOfTheOthersPlane)
{
    expectInAllOrders(false, kFloor,
                      {{{1.0F, 1.0F, 1.0F}, {1.0F, 1.0F, 2.0F}, {2.0F, 1.0F, 1.0F}}});
}

TEST(TrianglesIntersect, NotIfTheirIntervalsOnTheLineAreApart)
{
    // The second crosses z = 0 from (5, 1, 0) to (6, 1, 0); kFloor ends at (3, 1, 0) on that line.
    expectInAllOrders(false, kFloor,
                      {{{5.0F, 1.0F, -1.0F}, {5.0F, 1.0F, 1.0F}, {7.0F, 1.0F, 1.0F}}});
}

TEST(TrianglesIntersect, IfTheyTouchAtAVertexInsideTheFace)
{
    expectInAllOrders(true, kFloor, {{{1.0F, 1.0F, 0.0F}, {1.0F, 1.0F, 2.0F}, {2.0F, 1.0F, 1.0F}}});
}

TEST(TrianglesIntersect, IfTheyShareOneVertexOnly)
{
    expectInAllOrders(true, kFloor, {{{4.0F, 0.0F, 0.0F}, {6.0F, 0.0F, 1.0F}, {6.0F, 1.0F, 2.0F}}});
}

TEST(TrianglesIntersect, IfTheyShareAnEdge)
{
    expectInAllOrders(true, kFloor, {{{0.0F, 0.0F, 0.0F}, {4.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 3.0F}}});
}

TEST(TrianglesIntersect, IfTheirIntervalsOnlyTouch)
{
    // The second meets z = 0 from (3, 1, 0) to (5, 1, 0), kFloor ends at (3, 1, 0).
    expectInAllOrders(true, kFloor,
                      {{{3.0F, 1.0F, -1.0F}, {3.0F, 1.0F, 1.0F}, {7.0F, 1.0F, 1.0F}}});
}

TEST(TrianglesIntersect, NotIfTheirIntervalsAreOneStepApart)
{
    // The same triangles, one float apart.
    const float beyond = std::nextafter(3.0F, 4.0F);
    const TestTriangle u{{{beyond, 1.0F, -1.0F}, {beyond, 1.0F, 1.0F}, {7.0F, 1.0F, 1.0F}}};
    EXPECT_FALSE(intersect(kFloor, u));
    EXPECT_FALSE(intersect(u, kFloor));
}

TEST(TrianglesIntersect, IfAnEdgeLiesInTheFace)
{
    expectInAllOrders(true, kFloor, {{{1.0F, 1.0F, 0.0F}, {2.0F, 1.0F, 0.0F}, {1.0F, 1.0F, 2.0F}}});
}

TEST(TrianglesIntersect, NotIfTheyAreParallel)
{
    expectInAllOrders(false, kFloor,
                      {{{0.0F, 0.0F, 0.5F}, {4.0F, 0.0F, 0.5F}, {0.0F, 4.0F, 0.5F}}});
}

// ---- in one plane

// Checks the same pair in the planes z = 0, x = 0, y = 0 and x + y + z = 0.
void expectInOnePlane(bool expected, const TestTriangle& v, const TestTriangle& u)
{
    const auto turned = [](const TestTriangle& t, int how) {
        TestTriangle result = t;
        for (QVector3D& p : result) {
            if (how == 1)
                p = {0.0F, p.x(), p.y()};
            else if (how == 2)
                p = {p.x(), 0.0F, p.y()};
            else if (how == 3)
                p = {p.x(), p.y(), -p.x() - p.y()};
        }
        return result;
    };
    for (int how = 0; how < 4; ++how) {
        SCOPED_TRACE(how);
        expectInAllOrders(expected, turned(v, how), turned(u, how));
    }
}

TEST(CoplanarTriangles, IntersectIfTheirEdgesCross)
{
    expectInOnePlane(true, kFloor,
                     {{{1.0F, -1.0F, 0.0F}, {2.0F, 3.0F, 0.0F}, {3.0F, -1.0F, 0.0F}}});
}

TEST(CoplanarTriangles, IntersectIfOneLiesInTheOther)
{
    expectInOnePlane(true, kFloor, {{{0.5F, 0.5F, 0.0F}, {1.0F, 0.5F, 0.0F}, {0.5F, 1.0F, 0.0F}}});
}

TEST(CoplanarTriangles, IntersectIfTheyShareAVertex)
{
    expectInOnePlane(true, kFloor, {{{4.0F, 0.0F, 0.0F}, {6.0F, 1.0F, 0.0F}, {6.0F, -1.0F, 0.0F}}});
}

TEST(CoplanarTriangles, IntersectIfTheyAreTheSame)
{
    expectInOnePlane(true, kFloor, kFloor);
}

TEST(CoplanarTriangles, DoNotIntersectIfTheyAreApart)
{
    expectInOnePlane(false, kFloor, {{{5.0F, 5.0F, 0.0F}, {6.0F, 5.0F, 0.0F}, {5.0F, 6.0F, 0.0F}}});
    expectInOnePlane(false, kFloor,
                     {{{4.5F, 0.0F, 0.0F}, {6.0F, 1.0F, 0.0F}, {6.0F, -1.0F, 0.0F}}});
}

// The coordinate along which the normal is longest is dropped. For the normal (1, 1, 0), this is y:
// projected along y, the triangles are apart; projected along z, they would be lines.
TEST(CoplanarTriangles, AreProjectedAlongYIfTheNormalIsAsLongAlongXAndY)
{
    const TestTriangle v{{{0.0F, 0.0F, 0.0F}, {2.0F, -2.0F, 0.0F}, {0.0F, 0.0F, 2.0F}}};
    const TestTriangle apart{{{3.0F, -3.0F, 0.0F}, {4.0F, -4.0F, 0.0F}, {3.0F, -3.0F, 2.0F}}};
    const TestTriangle meeting{{{0.5F, -0.5F, 0.5F}, {4.0F, -4.0F, 0.0F}, {3.0F, -3.0F, 2.0F}}};
    expectInAllOrders(false, v, apart);
    expectInAllOrders(true, v, meeting);
}

// ---- degenerate triangles: all distances from their planes are zero, so that they give no
// intervals

TEST(DegenerateTriangles, AreProjectedIntoThePlaneOfTheFirst)
{
    const TestTriangle needle{{{1.0F, 1.0F, -1.0F}, {1.0F, 1.0F, 1.0F}, {1.0F, 1.0F, 1.0F}}};
    // The two distinct ends of the needle are on either side of kFloor, and its plane has no
    // normal. Projected into the plane z = 0, it is the point (1, 1), which is inside kFloor.
    EXPECT_TRUE(intersect(kFloor, needle));
    const TestTriangle beside{{{3.0F, 3.0F, -1.0F}, {3.0F, 3.0F, 1.0F}, {3.0F, 3.0F, 1.0F}}};
    EXPECT_FALSE(intersect(kFloor, beside));
}

TEST(DegenerateTriangles, ThatArePointsMeetNothingTheyDoNotTouch)
{
    const TestTriangle point{{{1.0F, 1.0F, 1.0F}, {1.0F, 1.0F, 1.0F}, {1.0F, 1.0F, 1.0F}}};
    EXPECT_FALSE(intersect(kFloor, point));
    EXPECT_FALSE(intersect(point, kFloor));
}

// The plane of the wide triangle is half of the largest float above the floor, but its normal
// overflows, and distances that are NaN rule nothing out. The plane of the triangle below can still
// show that all of the wide one is above it.
TEST(DegenerateTriangles, OfTheLargestFloatsAreReportedUnlessTheOthersPlaneRulesThemOut)
{
    const float huge = std::numeric_limits<float>::max();
    const TestTriangle wide{{{-huge, -huge, 0.0F}, {huge, -huge, 0.0F}, {0.0F, huge, huge}}};
    const TestTriangle below{{{0.0F, 0.0F, -9.0F}, {4.0F, 0.0F, -9.0F}, {0.0F, 4.0F, -9.0F}}};
    expectInAllOrders(true, wide, kFloor);
    expectInAllOrders(true, wide, wide);
    expectInAllOrders(false, wide, below);
}

// If all products underflow, a triangle has neither a plane nor edges, and does not even meet
// itself.
TEST(DegenerateTriangles, OfTheSmallestFloatsDoNotMeetThemselves)
{
    const auto atTheCorner = [](float size) {
        return TestTriangle{{{size, 0.0F, 0.0F}, {0.0F, size, 0.0F}, {0.0F, 0.0F, size}}};
    };
    const TestTriangle narrow = atTheCorner(std::numeric_limits<float>::denorm_min());
    expectInAllOrders(false, narrow, narrow);
    expectInAllOrders(true, atTheCorner(1e-18F), atTheCorner(1e-18F));
}

// ---- what rounding does

// The two triangles were drawn in one tilted plane and their vertices rounded, so that the
// distances from each other's planes are rounding noise. By exact arithmetic, they are 1.03 mm
// apart.
TEST(TrianglesIntersect, KnownLimitNearlyCoplanarTrianglesApartMayBeReported)
{
    const TestTriangle v{{{0x1.cc153ap+4F, -0x1.10eadp+5F, 0x1.66cd6ep+4F},
                          {0x1.a9001p+4F, -0x1.13c732p+5F, 0x1.5d60bp+4F},
                          {0x1.bcc3ap+4F, -0x1.151eccp+5F, 0x1.5c8226p+4F}}};
    const TestTriangle u{{{0x1.c63c1ep+4F, -0x1.1a356ep+5F, 0x1.52cb24p+4F},
                          {0x1.a6a93p+4F, -0x1.1d7eeap+5F, 0x1.48d24ap+4F},
                          {0x1.d40fecp+4F, -0x1.24feaap+5F, 0x1.3d9684p+4F}}};
    EXPECT_TRUE(intersect(v, u));
    EXPECT_TRUE(intersect(u, v));
}

} // namespace
