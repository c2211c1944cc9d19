// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/Clearance.h>

// Laws of the clearance of two surfaces: known distances, symmetry, motion, limits, containment and
// bad input. ExactClearanceTest.cpp compares it with exact arithmetic.

#include <CoreAlgorithms/collision/ImplantSafetyZone.h>
#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/data/Shapes.h>
#include <tests/support/CollisionBuilders.h>

#include <QMatrix4x4>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <numbers>
#include <numeric>
#include <optional>
#include <random>
#include <vector>

namespace {

using collision::Clearance;
using collision::clearance;
using collision::PlacedSurface;
using collision::Relation;
using test::makeCanal;
using test::makeImplant;

constexpr float kInfinity = std::numeric_limits<float>::infinity();

struct ClearanceTest : testing::Test
{
    geometry::ShapeLoader loader;
    std::unique_ptr<geometry::ShapeFactory> factory =
        std::make_unique<geometry::ShapeFactory>(loader);
    std::mt19937 engine{5};

    float between(float from, float to)
    {
        return from + (to - from) * static_cast<float>(engine() >> 8) * 0x1p-24F;
    }
    QMatrix4x4 randomPlacement(float reach)
    {
        QMatrix4x4 placement;
        placement.translate(between(-reach, reach), between(-reach, reach), between(-reach, reach));
        placement.rotate(between(0.0F, 360.0F), between(-1.0F, 1.0F), between(-1.0F, 1.0F),
                         between(-1.0F, 1.0F));
        return placement;
    }
    PlacedSurface body(float diameter, float length, const QMatrix4x4& placement, float margin = 0)
    {
        return {factory, *makeImplant(diameter, length, placement), margin};
    }
};

// A box of faces with two triangles each; the first `numFaces` of six.
geometry::Mesh box(const QVector3D& low, const QVector3D& high, int numFaces = 6)
{
    QList<QVector3D> corners;
    for (int i = 0; i < 8; ++i)
        corners.append({(i & 1) != 0 ? high.x() : low.x(), (i & 2) != 0 ? high.y() : low.y(),
                        (i & 4) != 0 ? high.z() : low.z()});
    geometry::Mesh mesh(corners, {});
    constexpr std::array<std::array<int, 4>, 6> kFaces{
        {{0, 1, 3, 2}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 3, 7, 6}, {0, 2, 6, 4}, {1, 3, 7, 5}}};
    for (int face = 0; face < numFaces; ++face) {
        mesh.addTriangle(kFaces[face][0], kFaces[face][1], kFaces[face][2]);
        mesh.addTriangle(kFaces[face][0], kFaces[face][2], kFaces[face][3]);
    }
    return mesh;
}

geometry::Mesh cube(float from, float to, int numFaces = 6)
{
    return box({from, from, from}, {to, to, to}, numFaces);
}

PlacedSurface surface(const geometry::Mesh& mesh)
{
    return {mesh, {}};
}

double distanceOf(const std::array<double, 3>& a, const std::array<double, 3>& b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

Clearance exchanged(Clearance result)
{
    std::swap(result.pointOnFirst, result.pointOnSecond);
    std::swap(result.firstIsInside, result.secondIsInside);
    return result;
}

TEST_F(ClearanceTest, OfBoxesIsTheGapBetweenThem)
{
    const auto found = clearance(surface(box({0, 0, 0}, {1, 1, 1})),
                                 surface(box({3, 0.25F, 0.25F}, {4, 0.75F, 0.75F})));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->relation, Relation::Apart);
    EXPECT_EQ(found->distance, 2.0);
    EXPECT_EQ(found->pointOnFirst[0], 1.0);
    EXPECT_EQ(found->pointOnSecond[0], 3.0);
    EXPECT_FALSE(found->isAtLeast);
}

TEST_F(ClearanceTest, OfAVertexAboveAFaceIsItsHeight)
{
    geometry::Mesh tip({{0.25F, 0.5F, 3.5F}, {0, 0, 9}, {1, 0, 9}}, {});
    tip.addTriangle(0, 1, 2);
    const auto found = clearance(surface(cube(0, 1)), surface(tip));
    ASSERT_TRUE(found);
    EXPECT_DOUBLE_EQ(found->distance, 2.5);
    EXPECT_NEAR(distanceOf(found->pointOnFirst, {0.25, 0.5, 1.0}), 0.0, 1e-12);
    EXPECT_EQ(found->pointOnSecond, (std::array<double, 3>{0.25, 0.5, 3.5}));
}

TEST_F(ClearanceTest, SurfacesThatTouchOverlapAtACommonPoint)
{
    for (const QVector3D& low : {QVector3D(1, 0, 0), QVector3D(1, 1, 0), QVector3D(1, 1, 1)}) {
        const auto found =
            clearance(surface(cube(0, 1)), surface(box(low, low + QVector3D(1, 1, 1))));
        ASSERT_TRUE(found);
        EXPECT_EQ(found->relation, Relation::Overlapping);
        EXPECT_EQ(found->distance, 0.0);
        EXPECT_EQ(found->pointOnFirst, found->pointOnSecond);
        EXPECT_EQ(found->pointOnFirst[0], 1.0);
    }
}

TEST_F(ClearanceTest, SurfacesThatShareNoPointByOneRoundingAreApart)
{
    const float above = std::nextafter(1.0F, 2.0F);
    const auto found = clearance(surface(cube(0, 1)), surface(box({above, 0, 0}, {2, 1, 1})));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->relation, Relation::Apart);
    EXPECT_EQ(found->distance, static_cast<double>(above) - 1.0);
}

// ---- containment

TEST_F(ClearanceTest, AClosedSurfaceContainsWhatIsInside)
{
    const auto found = clearance(surface(cube(4, 5)), surface(cube(0, 10)));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->relation, Relation::Contained);
    EXPECT_TRUE(found->firstIsInside);
    EXPECT_FALSE(found->secondIsInside);
    EXPECT_EQ(found->distance, 0.0);
    EXPECT_DOUBLE_EQ(distanceOf(found->pointOnFirst, found->pointOnSecond), 4.0);
}

TEST_F(ClearanceTest, AnOpenSurfaceContainsNothing)
{
    const auto found = clearance(surface(cube(4, 5)), surface(cube(0, 10, 5)));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->relation, Relation::Apart);
    EXPECT_DOUBLE_EQ(found->distance, 4.0);
}

TEST_F(ClearanceTest, TheHollowOfAMeshIsOutside)
{
    geometry::Mesh shell = cube(0, 10);
    const geometry::Mesh hollow = cube(2, 8);
    QList<QVector3D> vertices = shell.getVertices();
    QList<int> indices = shell.getIndices();
    for (const int entry : hollow.getIndices())
        indices.append(entry < 0 ? entry : entry + static_cast<int>(vertices.size()));
    vertices += hollow.getVertices();
    const auto found = clearance(surface(cube(4, 5)), surface(geometry::Mesh(vertices, indices)));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->relation, Relation::Apart);
    EXPECT_DOUBLE_EQ(found->distance, 2.0);
}

TEST_F(ClearanceTest, OneConnectedPartInsideIsEnough)
{
    geometry::Mesh parts = cube(4, 5);
    const geometry::Mesh outside = cube(20, 21);
    QList<QVector3D> vertices = outside.getVertices() + parts.getVertices();
    QList<int> indices = outside.getIndices();
    for (const int entry : parts.getIndices())
        indices.append(entry < 0 ? entry : entry + 8);
    const auto found = clearance(surface(geometry::Mesh(vertices, indices)), surface(cube(0, 10)));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->relation, Relation::Contained);
    EXPECT_TRUE(found->firstIsInside);
}

TEST_F(ClearanceTest, VerticesWithEqualCoordinatesCloseASurface)
{
    const geometry::Mesh solid = cube(0, 10);
    geometry::Mesh loose;
    QList<QVector3D> vertices;
    QList<int> indices;
    for (const int entry : solid.getIndices()) {
        indices.append(entry < 0 ? -1 : static_cast<int>(vertices.size()));
        if (entry >= 0)
            vertices.append(solid.getVertices()[entry]);
    }
    const auto found = clearance(surface(geometry::Mesh(vertices, indices)), surface(cube(4, 5)));
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->secondIsInside);
}

// The ray goes through edges and vertices of the outer surface.
TEST_F(ClearanceTest, APointBelowAnEdgeOrAVertexIsInsideOnce)
{
    for (const float x : {0.0F, 1.0F, -1.0F}) {
        geometry::Mesh roof({{-2, -2, 0}, {2, -2, 0}, {2, 2, 0}, {-2, 2, 0}, {0, 0, 5}}, {});
        for (int i = 0; i < 4; ++i)
            roof.addTriangle(i, (i + 1) % 4, 4);
        roof.addTriangle(0, 1, 2);
        roof.addTriangle(0, 2, 3);
        const PlacedSurface point = surface(box({x, 0, 0.5F}, {x + 0.125F, 0.125F, 0.625F}));
        const auto found = clearance(point, surface(roof));
        ASSERT_TRUE(found);
        EXPECT_TRUE(found->firstIsInside) << x;
    }
}

// ---- laws

TEST_F(ClearanceTest, ExchangingTheSurfacesExchangesThePoints)
{
    for (int round = 0; round < 300; ++round) {
        const PlacedSurface a = body(4, 10, randomPlacement(8));
        const PlacedSurface b = body(3, 12, randomPlacement(8), 3);
        const auto forwards = clearance(a, b);
        const auto backwards = clearance(b, a);
        ASSERT_TRUE(forwards && backwards);
        EXPECT_EQ(*forwards, exchanged(*backwards));
    }
}

TEST_F(ClearanceTest, NeitherTheOrderOfTrianglesNorThatOfVerticesMatters)
{
    const geometry::Mesh canal = makeCanal(600);
    std::vector<int> order(canal.getNumIndices() / 4);
    std::iota(order.begin(), order.end(), 0);
    for (int round = 0; round < 50; ++round) {
        std::shuffle(order.begin(), order.end(), engine);
        QList<int> indices;
        for (const int triangle : order) {
            const int turn = static_cast<int>(engine() % 3);
            for (int corner = 0; corner < 3; ++corner)
                indices.append(canal.getIndices()[4 * triangle + (corner + turn) % 3]);
            indices.append(-1);
        }
        QMatrix4x4 placement;
        placement.translate(between(20, 45), between(-45, 0), between(-14, 0));
        const PlacedSurface implant = body(4, 10, placement);
        EXPECT_EQ(clearance(implant, surface(canal)),
                  clearance(implant, surface(geometry::Mesh(canal.getVertices(), indices))));
    }
}

// A quarter turn about each axis in turn moves vertices without rounding; any other motion rounds
// them to single precision, 2e-6 mm at these coordinates.
TEST_F(ClearanceTest, ARigidMotionOfBothKeepsTheDistance)
{
    QMatrix4x4 turn;
    turn.setRow(0, {0, 0, 1, 0});
    turn.setRow(1, {1, 0, 0, 0});
    turn.setRow(2, {0, 1, 0, 0});
    for (int round = 0; round < 200; ++round) {
        const QMatrix4x4 placementOfA = randomPlacement(8);
        const QMatrix4x4 placementOfB = randomPlacement(8);
        const QMatrix4x4 motion = randomPlacement(1);
        const auto before = clearance(body(4, 10, placementOfA), body(3, 12, placementOfB));
        const auto turned =
            clearance(body(4, 10, turn * placementOfA), body(3, 12, turn * placementOfB));
        const auto moved =
            clearance(body(4, 10, motion * placementOfA), body(3, 12, motion * placementOfB));
        ASSERT_TRUE(before && turned && moved);
        EXPECT_EQ(turned->relation, before->relation);
        EXPECT_NEAR(turned->distance, before->distance, 1e-12);
        EXPECT_NEAR(moved->distance, before->distance, 1e-5);
    }
}

TEST_F(ClearanceTest, AStepOfADragChangesTheDistanceByNoMoreThanTheStep)
{
    const PlacedSurface canal = surface(makeCanal(2000));
    const auto at = [](int step) {
        QMatrix4x4 placement;
        placement.translate(30.0F, -20.0F, 10.0F - 0.0625F * static_cast<float>(step));
        return placement;
    };
    double before = clearance(body(4, 10, at(0)), canal)->distance;
    for (int step = 1; step < 200; ++step) {
        const QMatrix4x4 placement = at(step);
        const auto found = clearance(body(4, 10, placement), canal);
        ASSERT_TRUE(found);
        EXPECT_LE(std::abs(found->distance - before), 0.0625 + 1e-5);
        before = found->distance;
    }
}

// ---- limits

TEST_F(ClearanceTest, ALimitEndsTheSearchBeyondItAndChangesNothingBelow)
{
    const PlacedSurface a = surface(cube(0, 1));
    const PlacedSurface b = surface(box({3, 0, 0}, {4, 1, 1}));
    const auto beyond = clearance(a, b, 1.5);
    ASSERT_TRUE(beyond);
    EXPECT_TRUE(beyond->isAtLeast);
    EXPECT_EQ(beyond->distance, 1.5);
    EXPECT_TRUE(std::isnan(beyond->pointOnFirst[0]));
    EXPECT_TRUE(clearance(a, b, 2.0)->isAtLeast);
    EXPECT_EQ(clearance(a, b, 2.0)->distance, 2.0);
    EXPECT_EQ(clearance(a, b, 2.5), clearance(a, b));
    for (const double limit : {-1.0, 0.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_TRUE(clearance(a, b, limit)->isAtLeast);
        EXPECT_EQ(clearance(a, b, limit)->distance, 0.0);
        EXPECT_EQ(clearance(a, a, limit)->relation, Relation::Overlapping);
    }
    EXPECT_EQ(clearance(surface(cube(4, 5)), surface(cube(0, 10)), 1.0)->relation,
              Relation::Contained);
}

// ---- objects of a plan

// The sides of the bodies are apart by the distance of their outlines, 32-gons, seen along the
// axes. Vertices in single precision are up to 1e-5 mm off there.
double distanceOfOutlines(float radiusA, float radiusB, float distance, float angle)
{
    using Point = std::array<double, 2>;
    const auto outline = [](double radius, double x, double y) {
        std::vector<Point> corners;
        for (int i = 0; i < 32; ++i) {
            const double turn = 2.0 * std::numbers::pi * i / 32.0;
            corners.push_back({x + radius * std::cos(turn), y + radius * std::sin(turn)});
        }
        return corners;
    };
    const auto a = outline(static_cast<double>(radiusA), 0.0, 0.0);
    const auto b = outline(static_cast<double>(radiusB),
                           static_cast<double>(distance) * std::cos(static_cast<double>(angle)),
                           static_cast<double>(distance) * std::sin(static_cast<double>(angle)));
    const auto toSide = [](const Point& p, const Point& from, const Point& to) {
        const Point side{to[0] - from[0], to[1] - from[1]};
        const double share = std::clamp(((p[0] - from[0]) * side[0] + (p[1] - from[1]) * side[1]) /
                                            (side[0] * side[0] + side[1] * side[1]),
                                        0.0, 1.0);
        return std::hypot(p[0] - from[0] - share * side[0], p[1] - from[1] - share * side[1]);
    };
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < 32; ++i) {
        for (std::size_t j = 0; j < 32; ++j) {
            least = std::min(
                {least, toSide(a[i], b[j], b[(j + 1) % 32]), toSide(b[i], a[j], a[(j + 1) % 32])});
        }
    }
    return least;
}

// These pairs are reported as colliding by the overlap test in many cases; see ExactOverlapTest.
TEST_F(ClearanceTest, LevelParallelImplantsInATiltedFrameAreApartByTheirGap)
{
    for (int pair = 0; pair < 3000; ++pair) {
        const QMatrix4x4 scene = randomPlacement(50);
        const float gap = between(0.01F, 3.0F);
        const float radiusA = between(1.5F, 2.5F);
        const float radiusB = between(1.5F, 2.5F);
        const float angle = between(0.0F, 6.28F);
        const float distance = radiusA + radiusB + gap;
        QMatrix4x4 placementOfB = scene;
        placementOfB.translate(distance * std::cos(angle), distance * std::sin(angle));
        const PlacedSurface a = body(2.0F * radiusA, 10, scene);
        const PlacedSurface b = body(2.0F * radiusB, 12, placementOfB);
        const auto found = clearance(a, b);
        ASSERT_TRUE(found);
        ASSERT_EQ(found->relation, Relation::Apart);
        ASSERT_NEAR(found->distance, distanceOfOutlines(radiusA, radiusB, distance, angle), 5e-5);
        ASSERT_EQ(clearance(b, a), exchanged(*found));
    }
}

TEST_F(ClearanceTest, ObjectsOfAPlanArePlacedAsTheDetectorPlacesThem)
{
    QMatrix4x4 aside;
    aside.translate(10, 0, 0);
    // The zone of margin 3 is 1.5 mm wider than the body on each side.
    const PlacedSurface pin(*test::makePin(1.0F, 10.0F, aside));
    const auto toBody = clearance(body(4, 10, {}), pin);
    const auto toZone = clearance(body(4, 10, {}, 3), pin);
    ASSERT_TRUE(toBody && toZone);
    EXPECT_NEAR(toBody->distance, 7.0, 1e-6);
    EXPECT_NEAR(toZone->distance, 5.5, 1e-6);
    auto nerve = test::makeNerve(cube(0, 1));
    nerve->setObjectTransform(aside);
    EXPECT_NEAR(clearance(body(4, 10, {}), PlacedSurface(*nerve))->distance, 8.0, 1e-6);
}

// ---- bad input

TEST_F(ClearanceTest, OfAnInvalidSurfaceIsNothing)
{
    const PlacedSurface valid = surface(cube(0, 1));
    geometry::Mesh withoutTriangle({{0, 0, 0}}, {});
    geometry::Mesh withInfinity({{0, 0, 0}, {1, 0, 0}, {0, kInfinity, 0}}, {});
    withInfinity.addTriangle(0, 1, 2);
    geometry::Mesh withUnnamedVertex({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {});
    withUnnamedVertex.addTriangle(0, 1, 3);
    QMatrix4x4 notANumber;
    notANumber.fill(std::numeric_limits<float>::quiet_NaN());
    const dataobject::AnchorPin3D pinWithoutShape;
    for (const PlacedSurface& invalid :
         {PlacedSurface(), surface({}), surface(withoutTriangle), surface(withInfinity),
          surface(withUnnamedVertex), PlacedSurface(cube(0, 1), notANumber),
          PlacedSurface(const_cast<dataobject::AnchorPin3D&>(pinWithoutShape)), body(0, 10, {}),
          body(4, -1, {}), body(kInfinity, 10, {}),
          PlacedSurface(nullptr, *makeImplant(4, 10), 0.0F)}) {
        EXPECT_FALSE(invalid.isValid());
        EXPECT_FALSE(clearance(invalid, valid));
        EXPECT_FALSE(clearance(valid, invalid));
    }
}

TEST_F(ClearanceTest, CoordinatesOfAnyMagnitudeGiveARelation)
{
    const float largest = std::numeric_limits<float>::max();
    const float least = std::numeric_limits<float>::denorm_min();
    const auto far = clearance(surface(box({-largest, 0, 0}, {0, 1, 1})),
                               surface(box({1, 0, 0}, {largest, 1, 1})));
    ASSERT_TRUE(far);
    EXPECT_EQ(far->relation, Relation::Apart);
    EXPECT_TRUE(std::isfinite(far->distance));
    const auto tiny = clearance(surface(cube(0, least)), surface(box({least, 0, 0}, {1, 1, 1})));
    ASSERT_TRUE(tiny);
    EXPECT_EQ(tiny->relation, Relation::Overlapping);
}

} // namespace
