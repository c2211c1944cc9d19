// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>

// The overlap test of meshes and their cells, compared with the plain transcription over random
// surfaces, zones, pins and nerves: equal verdicts and equal cells. COREALGORITHMS_FUZZ_ROUNDS
// multiplies the number of pairs; the label fuzz runs many.

#include <CoreAlgorithms/collision/ImplantSafetyZone.h>

#include <tests/support/CollisionBuilders.h>
#include <tests/support/FuzzRounds.h>
#include <tests/support/PlainOverlap.h>
#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>

namespace {

namespace plain = test::plain;
using test::fuzzRounds;

// Triangles of 1 to 30 mm in cells of 5 mm: some are narrow, some wide. Most pairs are in one
// tilted plane, where triangles are reported across gaps and the cells decide which of these count.
TEST(OverlapComparison, NarrowAndWideTrianglesHaveThePlainVerdictInBothOrders)
{
    test::RandomGeometry random(17);
    long hits = 0;
    long sideways = 0;
    constexpr int pairs = 6000;
    for (int i = 0; i < pairs * fuzzRounds(); ++i) {
        const QMatrix4x4 frame = i % 5 == 0 ? QMatrix4x4() : random.rigidPlacement();
        const float thickness = i % 3 == 0 ? 1.0F : 0.0F;
        const auto surfaceAt = [&](float shift) {
            geometry::Mesh mesh;
            QList<QVector3D> vertices;
            const int count = 1 + static_cast<int>(random.number(0.0F, 4.0F));
            for (int n = 0; n < count; ++n) {
                const float size = random.number(0.0F, 2.0F) < 1.0F ? 2.0F : 15.0F;
                const QVector3D center = random.point(12.0F);
                for (int corner = 0; corner < 3; ++corner) {
                    const QVector3D p = center + random.point(size);
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
    EXPECT_GT(hits, pairs * fuzzRounds() / 10);
    EXPECT_LT(hits, pairs * fuzzRounds() * 9 / 10);
    EXPECT_GT(sideways, 0) << "no pair whose verdict depends on the order";
}

// A mesh that would have too many cells keeps one cell, but has the verdict of the many: it is not
// reported across larger gaps.
TEST(OverlapComparison, MeshesBeyondTheLargestListsHaveThePlainVerdict)
{
    test::RandomGeometry random(18);
    long hits = 0;
    int beyond = 0;
    for (int i = 0; i < 6 * fuzzRounds(); ++i) {
        const QMatrix4x4 frame = i % 4 == 0 ? QMatrix4x4() : random.rigidPlacement();
        // Triangles in one plane, alternately around a place and around the opposite one.
        const auto flatSurface = [&](int count, float reach, float size) {
            QList<QVector3D> vertices;
            geometry::Mesh mesh;
            const QVector3D place = random.point(reach);
            for (int n = 0; n < count; ++n) {
                const QVector3D center = n % 2 == 0 ? place : -place;
                for (int corner = 0; corner < 3; ++corner) {
                    const QVector3D p = center + random.point(size);
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
    EXPECT_GE(beyond, 3 * fuzzRounds());
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
    for (int i = 0; i < 60 * fuzzRounds(); ++i) {
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

// Zones, pins and nerves as in a plan: parallel to the axes and tilted, far, close, touching and
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
    for (int i = 0; i < 1500 * fuzzRounds(); ++i) {
        const QMatrix4x4 frame = i % 3 == 0 ? QMatrix4x4() : random.rigidPlacement();
        // Half of the placements are on a lattice of 0.5 mm and turned by right angles, which gives
        // exact contacts.
        const auto placement = [&](const QVector3D& center) {
            QMatrix4x4 local;
            const QVector3D offset = random.point(5.0F);
            if (i % 2 == 0) {
                local.translate(
                    std::round(center.x() * 2.0F) * 0.5F + std::round(offset.x()) * 0.5F,
                    std::round(center.y() * 2.0F) * 0.5F + std::round(offset.y()) * 0.5F,
                    std::round(center.z() * 2.0F) * 0.5F + std::round(offset.z()) * 0.5F);
                local.rotate(90.0F * std::floor(random.number(0.0F, 4.0F)), 1.0F, 0.0F, 0.0F);
            } else {
                local.translate(center + offset);
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
    EXPECT_GT(hits, 150 * fuzzRounds());
    EXPECT_GT(sideways, 0) << "no pair whose verdict depends on the order";
    RecordProperty("hits", std::to_string(hits));
    RecordProperty("order_dependent", std::to_string(sideways));
}

// Bisects the height at which a zone begins to miss the nerve, down to where rounding decides.
TEST(OverlapComparison, ZonesAtTheEdgeOfContactHaveThePlainVerdict)
{
    test::RandomGeometry random(16);
    geometry::ShapeLoader loader;
    const auto factory = std::make_unique<geometry::ShapeFactory>(loader);
    const auto implant = test::makeImplant(4.0F, 10.0F);
    const auto zone = collision::generateSafetyZone(factory, *implant, 3.0F);
    for (int i = 0; i < 20 * fuzzRounds(); ++i) {
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
