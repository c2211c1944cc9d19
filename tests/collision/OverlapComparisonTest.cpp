// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>

// The overlap test beside the plain transcription over random input: equal verdicts, pair by pair
// and mesh by mesh, and equal cells. COREALGORITHMS_FUZZ_ROUNDS multiplies the number of pairs; the
// label fuzz runs it with many.

#include <CoreAlgorithms/collision/CellTree_p.h>
#include <CoreAlgorithms/collision/ImplantSafetyZone.h>
#include <CoreAlgorithms/collision/TriangleIntersection_p.h>

#include <tests/support/CollisionBuilders.h>
#include <tests/support/PlainOverlap.h>
#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>

namespace {

namespace plain = test::plain;

using Corners = std::array<QVector3D, 3>;

int rounds()
{
    bool given = false;
    const int number = qEnvironmentVariableIntValue("COREALGORITHMS_FUZZ_ROUNDS", &given);
    return given && number > 0 ? number : 1;
}

// Pairs of triangles of every kind that is hard on rounding.
class RandomTriangles
{
public:
    explicit RandomTriangles(unsigned seed) : random(seed) {}

    static constexpr int KINDS = 12;

    void draw(int kind, Corners& v, Corners& u)
    {
        switch (kind) {
        case 0: // anywhere, mostly apart
            v = around({}, 10.0F);
            u = around({}, 10.0F);
            break;
        case 1: // close to each other at the coordinates of a jaw
        {
            const QVector3D centre = random.point(100.0F);
            v = around(centre, 2.0F);
            u = around(centre, 2.0F);
            break;
        }
        case 2: // on a lattice: touching, coplanar, degenerate, upright
            v = onLattice(2);
            u = onLattice(2);
            break;
        case 3: // the same, tilted: nearly touching, nearly coplanar
            v = onLattice(2);
            u = onLattice(2);
            map(v, u, random.rigidPlacement());
            break;
        case 4: // in one plane, upright
            v = flat(2.0F);
            u = flat(2.0F);
            break;
        case 5: // in one plane, tilted
            v = flat(2.0F);
            u = flat(2.0F);
            map(v, u, random.rigidPlacement());
            break;
        case 6: // parallel planes, a hair apart
        {
            v = flat(2.0F);
            u = flat(2.0F);
            const float gap = std::ldexp(1.0F, -static_cast<int>(random.number(0.0F, 30.0F)));
            for (QVector3D& p : u)
                p.setZ(gap);
            map(v, u, random.rigidPlacement());
            break;
        }
        case 7: // common vertices
            v = around(random.point(60.0F), 3.0F);
            u = around(v[0], 3.0F);
            u[0] = v[0];
            if (random.number(0.0F, 1.0F) < 0.5F)
                u[1] = v[1];
            break;
        case 8: // a vertex in the other's face or on its edge
        {
            v = around(random.point(60.0F), 3.0F);
            u = around(v[0], 3.0F);
            const float s = random.number(0.0F, 1.0F);
            const float t = random.number(0.0F, 2.0F) < 1.0F ? 0.0F : random.number(0.0F, 1.0F - s);
            u[2] = v[0] + s * (v[1] - v[0]) + t * (v[2] - v[0]);
            break;
        }
        case 9: // without area
            v = around(random.point(60.0F), 3.0F);
            u = around(v[0], 3.0F);
            u[1] = u[0];
            if (random.number(0.0F, 1.0F) < 0.5F)
                v[2] = v[0] + random.number(-1.0F, 2.0F) * (v[1] - v[0]);
            if (random.number(0.0F, 1.0F) < 0.2F)
                u[2] = u[0];
            break;
        case 10: // needles and large beside small
            v = around({}, 200.0F);
            u = around(v[0], 0.01F);
            u[0] = v[1];
            break;
        default: // so large or small that products overflow or underflow
        {
            const float scale = std::ldexp(1.0F, static_cast<int>(random.number(-140.0F, 125.0F)));
            v = around({}, 1.0F);
            u = around({}, 1.0F);
            for (std::size_t i = 0; i < 3; ++i) {
                v[i] *= scale;
                u[i] *= scale;
            }
            break;
        }
        }
    }

    test::RandomGeometry random;

private:
    Corners around(const QVector3D& centre, float reach)
    {
        return {centre + random.point(reach), centre + random.point(reach),
                centre + random.point(reach)};
    }

    QVector3D latticePoint(int reach)
    {
        const auto whole = [&] {
            return std::floor(random.number(0.0F, static_cast<float>(2 * reach + 1))) -
                   float(reach);
        };
        const float x = whole();
        const float y = whole();
        return {x, y, whole()};
    }

    Corners onLattice(int reach)
    {
        return {latticePoint(reach), latticePoint(reach), latticePoint(reach)};
    }

    Corners flat(float reach)
    {
        Corners corners = around({}, reach);
        for (QVector3D& p : corners)
            p.setZ(0.0F);
        return corners;
    }

    static void map(Corners& v, Corners& u, const QMatrix4x4& placement)
    {
        for (std::size_t i = 0; i < 3; ++i) {
            v[i] = placement.map(v[i]);
            u[i] = placement.map(u[i]);
        }
    }
};

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
    for (int i = 0; i < 1200000 * rounds(); ++i) {
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
    EXPECT_GT(hits, 200000 * rounds());
}

// Meshes of one triangle against meshes of one, in cells that let everything through: every pair
// goes through the tests that handle eight triangles at once.
TEST(OverlapComparison, MeshesOfOneTriangleHaveThePlainVerdict)
{
    const primitives::BoundingBox everywhere(QVector3D(-1e38F, -1e38F, -1e38F) * 3.0F,
                                             QVector3D(1e38F, 1e38F, 1e38F) * 3.0F);
    const QList<geometry::BoundedTriangles> cells{{everywhere, {0}}};
    const QList<int> indices{0, 1, 2, -1};
    RandomTriangles triangles(12);
    for (int i = 0; i < 600000 * rounds(); ++i) {
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

// Soups of triangles of all kinds against one triangle each: all places in the blocks and all
// levels of the trees.
TEST(OverlapComparison, SoupsHaveThePlainVerdict)
{
    RandomTriangles triangles(13);
    long hits = 0;
    long pairs = 0;
    for (int i = 0; i < 1500 * rounds(); ++i) {
        constexpr std::array<int, 3> uprightKinds{0, 2, 4};
        const int kind = uprightKinds[static_cast<std::size_t>(i) % uprightKinds.size()];
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
    EXPECT_GT(hits, 100 * rounds());
    EXPECT_GT(pairs, 200000L * rounds());
}

// Triangles of 1 to 30 mm in cells of 5 mm: some touch a few cells, some many. All are in one
// tilted plane or near it, where triangles are reported across gaps and the cells decide which of
// these count.
TEST(OverlapComparison, NarrowAndWideTrianglesHaveThePlainVerdictInBothOrders)
{
    test::RandomGeometry random(17);
    long hits = 0;
    long sideways = 0;
    constexpr int pairs = 6000;
    for (int i = 0; i < pairs * rounds(); ++i) {
        const QMatrix4x4 frame = i % 5 == 0 ? QMatrix4x4() : random.rigidPlacement();
        const float thickness = i % 3 == 0 ? 1.0F : 0.0F;
        const auto surfaceAt = [&](float shift) {
            geometry::Mesh mesh;
            QList<QVector3D> vertices;
            const int count = 1 + static_cast<int>(random.number(0.0F, 4.0F));
            for (int n = 0; n < count; ++n) {
                const float size = random.number(0.0F, 2.0F) < 1.0F ? 2.0F : 15.0F;
                const QVector3D centre = random.point(12.0F);
                for (int corner = 0; corner < 3; ++corner) {
                    const QVector3D p = centre + random.point(size);
                    vertices.append({p.x() + shift, p.y(), p.z() * thickness});
                }
            }
            mesh.setVertices(vertices);
            for (int n = 0; n < count; ++n)
                mesh.addTriangle(3 * n, 3 * n + 1, 3 * n + 2);
            Surface3DModel surface;
            surface.setMesh(mesh);
            surface.setObjectTransform(frame);
            return std::pair(collision::makeBoundedObject(surface),
                             plain::makeBoundedObject(surface));
        };
        const auto [a, plainA] = surfaceAt(0.0F);
        const auto [b, plainB] = surfaceAt(random.number(0.0F, 40.0F));
        const bool expected = plain::overlaps(plainA, plainB);
        const bool turned = plain::overlaps(plainB, plainA);
        ASSERT_EQ(collision::overlaps(a, b), expected) << "pair " << i;
        ASSERT_EQ(collision::overlaps(b, a), turned) << "pair " << i;
        ASSERT_EQ(collision::overlapsWithPlainRegisters(a.meshes[0], b.meshes[0]),
                  plain::overlaps(plainA.meshes[0], plainB.meshes[0]))
            << "pair " << i;
        hits += expected ? 1 : 0;
        sideways += expected != turned ? 1 : 0;
    }
    EXPECT_GT(hits, pairs * rounds() / 10);
    EXPECT_LT(hits, pairs * rounds() * 9 / 10);
    EXPECT_GT(sideways, 0) << "no pair whose verdict depends on the order";
}

// Meshes whose cells would be too many have the verdict of these cells though they keep one: they
// are not reported across larger gaps than with their cells.
TEST(OverlapComparison, MeshesBeyondTheLargestListsHaveThePlainVerdict)
{
    test::RandomGeometry random(18);
    long hits = 0;
    int beyond = 0;
    for (int i = 0; i < 6 * rounds(); ++i) {
        const QMatrix4x4 frame = i % 4 == 0 ? QMatrix4x4() : random.rigidPlacement();
        // Triangles in one plane, in turns around a place and around the opposite one.
        const auto flatSurface = [&](int count, float reach, float size) {
            QList<QVector3D> vertices;
            geometry::Mesh mesh;
            const QVector3D place = random.point(reach);
            for (int n = 0; n < count; ++n) {
                const QVector3D centre = n % 2 == 0 ? place : -place;
                for (int corner = 0; corner < 3; ++corner) {
                    const QVector3D p = centre + random.point(size);
                    vertices.append({p.x(), p.y(), 0.0F});
                }
            }
            mesh.setVertices(vertices);
            for (int n = 0; n < count; ++n)
                mesh.addTriangle(3 * n, 3 * n + 1, 3 * n + 2);
            Surface3DModel surface;
            surface.setMesh(mesh);
            surface.setObjectTransform(frame);
            return std::pair(collision::makeBoundedObject(surface),
                             plain::makeBoundedObject(surface));
        };
        const auto [large, plainLarge] = flatSurface(1200, 150.0F, 70.0F);
        beyond +=
            large.meshes[0].cells.size() == 1 && plainLarge.meshes[0].cells.size() > 1 ? 1 : 0;
        for (int n = 0; n < 60; ++n) {
            const auto [other, plainOther] = flatSurface(1, 150.0F, 12.0F);
            const bool expected = plain::overlaps(plainLarge, plainOther);
            const bool turned = plain::overlaps(plainOther, plainLarge);
            ASSERT_EQ(collision::overlaps(large, other), expected)
                << "mesh " << i << ", other " << n;
            ASSERT_EQ(collision::overlaps(other, large), turned) << "mesh " << i << ", other " << n;
            hits += expected ? 1 : 0;
        }
    }
    EXPECT_GE(beyond, 3 * rounds());
    EXPECT_GT(hits, 0);
}

bool sameCells(const QList<geometry::BoundedTriangles>& a,
               const QList<geometry::BoundedTriangles>& b)
{
    if (a.size() != b.size())
        return false;
    for (qsizetype i = 0; i < a.size(); ++i) {
        if (!(a[i].box == b[i].box) || a[i].triangles != b[i].triangles)
            return false;
    }
    return true;
}

TEST(OverlapComparison, CellsAreThePlainOnes)
{
    test::RandomGeometry random(14);
    for (int i = 0; i < 60 * rounds(); ++i) {
        geometry::Mesh mesh = test::makeCanal(200 + i * 40, random.number(0.5F, 6.0F));
        if (i % 2 == 0)
            mesh.applyTransformation(random.rigidPlacement());
        primitives::BoundingBox box = mesh.getBoundingBox();
        if (i % 5 == 0) // not the mesh's own: triangles beyond it
            box = primitives::BoundingBox(box.min() + random.point(4.0F),
                                          box.max() + random.point(4.0F));
        const float cellSize = random.number(0.7F, 12.0F);
        EXPECT_TRUE(sameCells(collision::makeBoundedTriangles(mesh, box, cellSize),
                              plain::makeBoundedTriangles(mesh, box, cellSize)))
            << "mesh " << i << ", cell size " << cellSize;
    }
}

// Zones, pins and nerves as the detector meets them: upright and tilted, far, close, touching and
// crossing.
TEST(OverlapComparison, ZonesPinsAndNervesHaveThePlainVerdictInBothOrders)
{
    test::RandomGeometry random(15);
    geometry::ShapeLoader loader;
    const auto factory = std::make_unique<geometry::ShapeFactory>(loader);
    QList<std::shared_ptr<dataobject::Nerve>> nerves;
    for (const int count : {60, 400, 2000, 9000})
        nerves.append(test::makeNerve(test::makeCanal(count)));
    long hits = 0;
    long sideways = 0;
    for (int i = 0; i < 1500 * rounds(); ++i) {
        const QMatrix4x4 frame = i % 3 == 0 ? QMatrix4x4() : random.rigidPlacement();
        // Half of the placements on a lattice of 0.5 mm and turned by right angles: exact contacts.
        const auto placement = [&](const QVector3D& centre) {
            QMatrix4x4 local;
            const QVector3D offset = random.point(5.0F);
            if (i % 2 == 0) {
                local.translate(
                    std::round(centre.x() * 2.0F) * 0.5F + std::round(offset.x()) * 0.5F,
                    std::round(centre.y() * 2.0F) * 0.5F + std::round(offset.y()) * 0.5F,
                    std::round(centre.z() * 2.0F) * 0.5F + std::round(offset.z()) * 0.5F);
                local.rotate(90.0F * std::floor(random.number(0.0F, 4.0F)), 1.0F, 0.0F, 0.0F);
            } else {
                local.translate(centre + offset);
                local.rotate(random.number(-60.0F, 60.0F), random.point(1.0F));
            }
            return frame * local;
        };
        const auto implant = test::makeImplant(3.0F + std::floor(random.number(0.0F, 3.0F)), 10.0F);
        const float margin = i % 4 == 0 ? 0.0F : 3.0F;
        const auto zone = collision::generateSafetyZone(factory, *implant, margin);

        collision::BoundedObject a;
        plain::BoundedObject plainA;
        QMatrix4x4 placementB;
        if (margin == 0.0F) { // two implants
            const auto otherZone = collision::generateSafetyZone(factory, *implant, margin);
            const QMatrix4x4 placementA = placement({});
            a = collision::makeBoundedObject(*otherZone, placementA, 100.0F);
            plainA = plain::makeBoundedObject(*otherZone, placementA, 100.0F);
            placementB = placement({3.0F, 0.0F, 0.0F});
        } else if (i % 4 == 1) { // a pin
            const auto pin = test::makePin(1.0F, 14.0F, placement({}));
            a = collision::makeBoundedObject(*pin->getShapeNode(), pin->getObjectTransform(),
                                             100.0F);
            plainA =
                plain::makeBoundedObject(*pin->getShapeNode(), pin->getObjectTransform(), 100.0F);
            placementB = placement({3.0F, 1.0F, 0.0F});
        } else { // a nerve
            auto nerve = test::makeNerve(nerves[i % nerves.size()]->getMesh());
            nerve->setObjectTransform(frame);
            if (i % 7 == 0)
                nerve->refresh();
            a = collision::makeBoundedObject(*nerve);
            plainA = plain::makeBoundedObject(*nerve);
            const QList<QVector3D>& vertices = nerves[0]->getMesh().getVertices();
            placementB =
                placement(vertices[static_cast<int>(random.number(0.0F, float(vertices.size())))] +
                          QVector3D(0.0F, 0.0F, 11.0F));
        }
        const collision::BoundedObject b = collision::makeBoundedObject(*zone, placementB, 100.0F);
        const plain::BoundedObject plainB = plain::makeBoundedObject(*zone, placementB, 100.0F);
        ASSERT_EQ(a.meshes.size(), plainA.meshes.size());
        const bool expected = plain::overlaps(plainA, plainB);
        const bool turned = plain::overlaps(plainB, plainA);
        ASSERT_EQ(collision::overlaps(a, b), expected) << "pair " << i;
        ASSERT_EQ(collision::overlaps(b, a), turned) << "pair " << i;
        hits += expected ? 1 : 0;
        sideways += expected != turned ? 1 : 0;
    }
    EXPECT_GT(hits, 150 * rounds());
    EXPECT_GT(sideways, 0) << "no pair whose verdict depends on the order";
    RecordProperty("hits", std::to_string(hits));
    RecordProperty("order_dependent", std::to_string(sideways));
}

// A hair beside contact: zones are moved until they just do not collide, where rounding decides.
TEST(OverlapComparison, ZonesAtTheVeryEdgeOfContactHaveThePlainVerdict)
{
    test::RandomGeometry random(16);
    geometry::ShapeLoader loader;
    const auto factory = std::make_unique<geometry::ShapeFactory>(loader);
    const auto implant = test::makeImplant(4.0F, 10.0F);
    const auto zone = collision::generateSafetyZone(factory, *implant, 3.0F);
    for (int i = 0; i < 20 * rounds(); ++i) {
        const QMatrix4x4 frame = i % 2 == 0 ? QMatrix4x4() : random.rigidPlacement();
        const auto nerve = test::makeNerve(test::makeCanal(i % 2 == 0 ? 600 : 2500));
        nerve->setObjectTransform(frame);
        const collision::BoundedObject a = collision::makeBoundedObject(*nerve);
        const plain::BoundedObject plainA = plain::makeBoundedObject(*nerve);
        const QVector3D start = nerve->getMesh().getVertices()[static_cast<int>(
            random.number(0.0F, float(nerve->getMesh().getNumVertices())))];
        const float tilt = i % 4 < 2 ? 0.0F : random.number(-30.0F, 30.0F);
        const auto at = [&](float height) {
            QMatrix4x4 local;
            local.translate(start + QVector3D(0.0F, 0.0F, height));
            local.rotate(tilt, 1.0F, 0.5F, 0.0F);
            return frame * local;
        };
        float hitting = 10.0F;
        float missing = 40.0F;
        for (int step = 0; step < 26; ++step) {
            const float middle = (hitting + missing) * 0.5F;
            const bool expected =
                plain::overlaps(plainA, plain::makeBoundedObject(*zone, at(middle), 100.0F));
            ASSERT_EQ(
                collision::overlaps(a, collision::makeBoundedObject(*zone, at(middle), 100.0F)),
                expected)
                << "case " << i << ", height " << middle;
            (expected ? hitting : missing) = middle;
        }
    }
}

} // namespace
