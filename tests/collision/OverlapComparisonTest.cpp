// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>

// The triangle test and the tests of eight triangles at once, compared with the plain transcription
// over random triangles: equal verdicts, pair by pair. COREALGORITHMS_FUZZ_ROUNDS multiplies the
// number of pairs; the label fuzz runs many.

#include <CoreAlgorithms/collision/TriangleIntersection_p.h>

#include <tests/collision/RandomTriangles.h>
#include <tests/support/FuzzRounds.h>
#include <tests/support/Matrices.h>
#include <tests/support/PlainOverlap.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

namespace {

namespace plain = test::plain;
using test::Corners;
using test::fuzzRounds;
using test::RandomTriangles;

std::string describe(const Corners& v, const Corners& u)
{
    std::array<char, 400> text{};
    std::string all;
    for (const Corners& t : {v, u}) {
        for (const QVector3D& p : t) {
            std::snprintf(text.data(), text.size(), "(%a, %a, %a) ", double(p.x()), double(p.y()),
                          double(p.z()));
            all += text.data();
        }
    }
    return all;
}

bool plainVerdict(const Corners& v, const Corners& u)
{
    return plain::trianglesIntersect(v[0], v[1], v[2], u[0], u[1], u[2]);
}

TEST(OverlapComparison, TrianglesAloneHaveThePlainVerdictInBothOrders)
{
    RandomTriangles triangles(11);
    long hits = 0;
    for (int i = 0; i < 1200000 * fuzzRounds(); ++i) {
        Corners v;
        Corners u;
        triangles.draw(i % RandomTriangles::KINDS, v, u);
        const bool expected = plainVerdict(v, u);
        hits += expected ? 1 : 0;
        ASSERT_EQ(collision::trianglesIntersect(v[0], v[1], v[2], u[0], u[1], u[2]), expected)
            << describe(v, u);
        ASSERT_EQ(collision::trianglesIntersect(u[0], u[1], u[2], v[0], v[1], v[2]),
                  plainVerdict(u, v))
            << describe(u, v);
    }
    EXPECT_GT(hits, 200000 * fuzzRounds());
}

// The cells let every pair through, so that each is tested by the code that handles eight triangles
// at once.
TEST(OverlapComparison, MeshesOfOneTriangleHaveThePlainVerdict)
{
    const primitives::BoundingBox everywhere(QVector3D(-1e38F, -1e38F, -1e38F) * 3.0F,
                                             QVector3D(1e38F, 1e38F, 1e38F) * 3.0F);
    const QList<geometry::BoundedTriangles> cells{{everywhere, {0}}};
    const QList<int> indices{0, 1, 2, -1};
    RandomTriangles triangles(12);
    for (int i = 0; i < 600000 * fuzzRounds(); ++i) {
        Corners v;
        Corners u;
        triangles.draw(i % RandomTriangles::KINDS, v, u);
        const collision::BoundedMesh a{geometry::Mesh({v[0], v[1], v[2]}, indices), everywhere,
                                       cells, nullptr};
        const collision::BoundedMesh b{geometry::Mesh({u[0], u[1], u[2]}, indices), everywhere,
                                       cells, nullptr};
        const bool expected = plainVerdict(v, u);
        ASSERT_EQ(collision::overlaps(a, b), expected) << describe(v, u);
        ASSERT_EQ(collision::overlapsWithPlainRegisters(a, b), expected) << describe(v, u);
    }
}

// Many triangles against one: all places in the blocks and all levels of the trees are used.
TEST(OverlapComparison, SoupsHaveThePlainVerdict)
{
    RandomTriangles triangles(13);
    long hits = 0;
    long pairs = 0;
    for (int i = 0; i < 1500 * fuzzRounds(); ++i) {
        constexpr std::array<int, 3> kinds{0, 2, 4};
        const int kind = kinds[static_cast<std::size_t>(i) % kinds.size()];
        const int count =
            1 + static_cast<int>(triangles.random.number(0.0F, i % 50 == 0 ? 2000.0F : 150.0F));
        const QMatrix4x4 frame = i % 2 == 0 ? QMatrix4x4() : triangles.random.rigidPlacement();
        Corners v;
        Corners u;
        triangles.draw(kind, v, u);
        Surface3DModel other;
        other.setMesh(geometry::Mesh({u[0], u[1], u[2]}, {0, 1, 2, -1}));
        other.setObjectTransform(frame);
        QList<QVector3D> vertices;
        QList<int> indices;
        const float scale = i % 5 == 0 ? 0.25F : 1.0F;
        for (int n = 0; n < count; ++n) {
            triangles.draw(kind, v, u);
            for (const QVector3D& p : v) {
                indices << static_cast<int>(vertices.size());
                vertices << p * scale;
            }
            indices << -1;
        }
        Surface3DModel soup;
        soup.setMesh(geometry::Mesh(vertices, indices));
        const float lift = i % 3 == 0 ? 0.0F : triangles.random.number(0.0F, 6.0F);
        soup.setObjectTransform(frame * test::translation(0.0F, 0.0F, lift));
        pairs += 2L * count;
        const bool expected =
            plain::overlaps(plain::makeBoundedObject(soup), plain::makeBoundedObject(other));
        hits += expected ? 1 : 0;
        const collision::BoundedObject a = collision::makeBoundedObject(soup);
        const collision::BoundedObject b = collision::makeBoundedObject(other);
        ASSERT_EQ(collision::overlaps(a, b), expected) << "soup " << i;
        ASSERT_EQ(collision::overlapsWithPlainRegisters(a.meshes[0], b.meshes[0]), expected)
            << "soup " << i;
        ASSERT_EQ(collision::overlaps(b, a),
                  plain::overlaps(plain::makeBoundedObject(other), plain::makeBoundedObject(soup)))
            << "soup " << i;
    }
    EXPECT_GT(hits, 100 * fuzzRounds());
    EXPECT_GT(pairs, 200000L * fuzzRounds());
}

} // namespace
