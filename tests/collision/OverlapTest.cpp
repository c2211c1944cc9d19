// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>

// The cascade of objects, meshes, cells and triangles: touching boxes, objects inside others, which
// pairs of triangles the cells let through, and meshes that are invalid or of any extent.

#include <CoreAlgorithms/collision/CellTree_p.h>
#include <CoreAlgorithms/collision/ImplantSafetyZone.h>

#include <tests/collision/BoundedMeshBuilders.h>
#include <tests/support/CollisionBuilders.h>
#include <tests/support/PlainOverlap.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace {

using collision::BoundedMesh;
using collision::BoundedObject;
using collision::overlaps;
using primitives::BoundingBox;
using test::oneTriangle;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

// Returns a mesh that has one cell; both have the given box.
BoundedMesh inOneCell(const geometry::Mesh& mesh, const BoundingBox& box)
{
    QList<int> all;
    for (int t = 0; t < mesh.getNumIndices() / 4; ++t)
        all.append(t);
    return {mesh, box, {{box, all}}, nullptr};
}

BoundedObject objectOf(geometry::ShapeNode* node, const QMatrix4x4& placement = {})
{
    const std::unique_ptr<geometry::ShapeNode> owned(node);
    return collision::makeBoundedObject(*owned, placement, 100.0F);
}

class OverlapTest : public testing::Test
{
protected:
    BoundedObject cylinder(float radius, float height, const QMatrix4x4& placement = {})
    {
        return objectOf(factory.generateCylinder(radius, height, false, false), placement);
    }

    geometry::ShapeLoader loader;
    geometry::ShapeFactory factory{loader};
    const BoundingBox everywhere{-100.0F, -100.0F, -100.0F, 100.0F, 100.0F, 100.0F};
    const geometry::Mesh floor =
        oneTriangle({0.0F, 0.0F, 0.0F}, {4.0F, 0.0F, 0.0F}, {0.0F, 4.0F, 0.0F});
    const geometry::Mesh wall =
        oneTriangle({1.0F, 1.0F, -1.0F}, {1.0F, 1.0F, 1.0F}, {2.0F, 1.0F, 1.0F});
};

// ---- objects

TEST_F(OverlapTest, CylindersThatPassThroughEachOtherOverlap)
{
    QMatrix4x4 across;
    across.rotate(90.0F, 1.0F, 0.0F, 0.0F);
    EXPECT_TRUE(overlaps(cylinder(1.0F, 10.0F), cylinder(1.0F, 10.0F, across)));
}

TEST_F(OverlapTest, CylindersApartDoNotOverlap)
{
    EXPECT_FALSE(overlaps(cylinder(1.0F, 10.0F),
                          cylinder(1.0F, 10.0F, test::translation(2.5F, 0.0F, 0.5F))));
    EXPECT_FALSE(overlaps(cylinder(1.0F, 10.0F),
                          cylinder(1.0F, 10.0F, test::translation(50.0F, 0.0F, 0.0F))));
}

TEST_F(OverlapTest, CylindersThatTouchAlongALineOverlap)
{
    // The vertices at (1, 0, z) of one coincide with those at (-1, 0, z) of the other.
    EXPECT_TRUE(overlaps(cylinder(1.0F, 10.0F),
                         cylinder(1.0F, 10.0F, test::translation(2.0F, 0.0F, 0.0F))));
}

TEST_F(OverlapTest, CylindersThatTouchWithTheirLidsOverlap)
{
    EXPECT_TRUE(overlaps(cylinder(1.0F, 10.0F),
                         cylinder(1.0F, 10.0F, test::translation(0.5F, 0.0F, 10.0F))));
    EXPECT_FALSE(overlaps(cylinder(1.0F, 10.0F),
                          cylinder(1.0F, 10.0F, test::translation(0.5F, 0.0F, 10.001F))));
}

TEST_F(OverlapTest, AnObjectInsideAnotherDoesNotOverlap)
{
    EXPECT_FALSE(overlaps(cylinder(5.0F, 20.0F), cylinder(1.0F, 10.0F)));
    EXPECT_FALSE(overlaps(cylinder(1.0F, 10.0F), cylinder(5.0F, 20.0F)));
}

TEST_F(OverlapTest, EveryMeshOfAnObjectCounts)
{
    geometry::ShapeNode root(QStringLiteral("two"));
    geometry::ShapeNode* far = factory.generateCylinder(1.0F, 10.0F, false, false);
    far->setTransform(test::translation(40.0F, 0.0F, 0.0F));
    root.addChild(far);
    root.addChild(factory.generateCylinder(1.0F, 10.0F, false, false));
    const BoundedObject two = collision::makeBoundedObject(root, {}, 100.0F);
    QMatrix4x4 across;
    across.rotate(90.0F, 1.0F, 0.0F, 0.0F);
    EXPECT_TRUE(overlaps(two, cylinder(1.0F, 10.0F, across)));
    EXPECT_TRUE(overlaps(cylinder(1.0F, 10.0F, across), two));
    EXPECT_TRUE(
        overlaps(two, cylinder(1.0F, 10.0F, test::translation(40.0F, 0.0F, 0.0F) * across)));
    EXPECT_FALSE(
        overlaps(two, cylinder(1.0F, 10.0F, test::translation(20.0F, 0.0F, 0.0F) * across)));
}

TEST_F(OverlapTest, AnEmptyObjectOverlapsNothingEvenAtTheOrigin)
{
    EXPECT_FALSE(overlaps(BoundedObject(), cylinder(1.0F, 10.0F)));
    EXPECT_FALSE(overlaps(cylinder(1.0F, 10.0F), BoundedObject()));
    EXPECT_FALSE(overlaps(BoundedObject(), BoundedObject()));
}

TEST_F(OverlapTest, BoxesOfObjectsDecideFirst)
{
    const BoundingBox away(50.0F, 50.0F, 50.0F, 60.0F, 60.0F, 60.0F);
    const BoundedObject a{{inOneCell(floor, everywhere)}, everywhere};
    BoundedObject b{{inOneCell(wall, everywhere)}, everywhere};
    EXPECT_TRUE(overlaps(a, b));
    b.box = away;
    EXPECT_TRUE(overlaps(a, b)); // within the box of a
    EXPECT_FALSE(overlaps({a.meshes, {0.0F, 0.0F, 0.0F, 40.0F, 40.0F, 40.0F}}, b));
    EXPECT_TRUE(overlaps({a.meshes, {0.0F, 0.0F, 0.0F, 50.0F, 50.0F, 50.0F}},
                         b)); // touching boxes intersect
}

// ---- meshes and cells

TEST_F(OverlapTest, BoxesOfMeshesDecideBeforeCells)
{
    const BoundedMesh a = inOneCell(floor, everywhere);
    BoundedMesh b = inOneCell(wall, everywhere);
    EXPECT_TRUE(overlaps(a, b));
    b.box = {200.0F, 0.0F, 0.0F, 300.0F, 1.0F, 1.0F};
    EXPECT_FALSE(overlaps(a, b));
    b.box = {100.0F, 0.0F, 0.0F, 300.0F, 1.0F, 1.0F};
    EXPECT_TRUE(overlaps(a, b));
}

TEST_F(OverlapTest, ACellOfTheFirstMustTouchTheMeshOfTheSecond)
{
    BoundedMesh a = inOneCell(floor, everywhere);
    a.cells[0].box = {-10.0F, -10.0F, -10.0F, -5.0F, -5.0F, -5.0F};
    BoundedMesh b = inOneCell(wall, everywhere);
    EXPECT_TRUE(overlaps(a, b));
    b.box = {0.0F, 0.0F, 0.0F, 10.0F, 10.0F, 10.0F}; // its cell would touch that of a
    EXPECT_FALSE(overlaps(a, b));
}

TEST_F(OverlapTest, CellsMustTouchEachOther)
{
    BoundedMesh a = inOneCell(floor, everywhere);
    BoundedMesh b = inOneCell(wall, everywhere);
    a.cells[0].box = {-10.0F, -10.0F, -10.0F, 1.0F, 1.0F, 1.0F};
    b.cells[0].box = {1.0F, 1.0F, 1.0F, 10.0F, 10.0F, 10.0F};
    EXPECT_FALSE(overlaps(a, b)); // the box of the floor does not reach z = 1
    b.cells[0].box = {1.0F, 1.0F, 0.0F, 10.0F, 10.0F, 10.0F};
    EXPECT_TRUE(overlaps(a, b));
    b.cells[0].box = {1.5F, 1.0F, 0.0F, 10.0F, 10.0F, 10.0F};
    EXPECT_FALSE(overlaps(a, b));
}

// The box of the first mesh's triangle is compared with the cell of the second, the box of the
// second mesh's triangle with nothing but itself. So a pair counts even if the second's triangle is
// outside its cell, and does not count if the first's is outside the other's cell.
TEST_F(OverlapTest, OnlyTheFirstsTriangleMustTouchTheOthersCellByDesign)
{
    const BoundingBox corner(50.0F, 50.0F, 50.0F, 60.0F, 60.0F, 60.0F);
    BoundedMesh a = inOneCell(floor, everywhere);
    BoundedMesh b = inOneCell(wall, everywhere);
    a.cells[0].box = corner; // away from both triangles
    EXPECT_TRUE(overlaps(a, b));
    EXPECT_FALSE(overlaps(b, a));
}

// Two triangles in one tilted plane, 1.03 mm apart, that the triangle test reports because of its
// rounding. A comparison of their boxes would rule them out.
TEST_F(OverlapTest, BoxesOfTwoTrianglesAreNotComparedByDesign)
{
    const geometry::Mesh v = oneTriangle({0x1.cc153ap+4F, -0x1.10eadp+5F, 0x1.66cd6ep+4F},
                                         {0x1.a9001p+4F, -0x1.13c732p+5F, 0x1.5d60bp+4F},
                                         {0x1.bcc3ap+4F, -0x1.151eccp+5F, 0x1.5c8226p+4F});
    const geometry::Mesh u = oneTriangle({0x1.c63c1ep+4F, -0x1.1a356ep+5F, 0x1.52cb24p+4F},
                                         {0x1.a6a93p+4F, -0x1.1d7eeap+5F, 0x1.48d24ap+4F},
                                         {0x1.d40fecp+4F, -0x1.24feaap+5F, 0x1.3d9684p+4F});
    ASSERT_FALSE(v.getBoundingBox().intersects(u.getBoundingBox()));
    EXPECT_TRUE(overlaps(inOneCell(v, everywhere), inOneCell(u, everywhere)));
    EXPECT_TRUE(overlaps(inOneCell(u, everywhere), inOneCell(v, everywhere)));
}

// Level, parallel implants of 4 x 10 mm in a tilted frame, 0.94 mm apart: their platforms are in
// nearly one plane, and so are their flat cones. The placement was found by a search.
TEST_F(OverlapTest, KnownLimitLevelParallelImplantsApartCanBeReportedInOneOrderOnly)
{
    const QMatrix4x4 tilted =
        QMatrix4x4(0x1.e9ee62p-1F, 0x1.e05dd2p-3F, 0x1.5ec1f8p-3F, 0x0p+0F, -0x1.18840ep-2F,
                   0x1.d97ed8p-1F, 0x1.0e5c5ep-2F, 0x0p+0F, -0x1.8b1a1p-4F, -0x1.32c03ap-2F,
                   0x1.e5fc02p-1F, 0x0p+0F, 0x1.e213p+2F, -0x1.dd142p+1F, 0x1.dc765p+4F, 0x1p+0F)
            .transposed();
    const auto zone = [this](const QMatrix4x4& placement) {
        const auto implant = test::makeImplant(4.0F, 10.0F);
        auto owned = std::make_unique<geometry::ShapeFactory>(loader);
        return collision::makeBoundedObject(*collision::generateSafetyZone(owned, *implant, 0.0F),
                                            placement, 100.0F);
    };
    const BoundedObject a = zone(tilted);
    const BoundedObject b = zone(tilted * test::translation(4.0F + 0x1.e28dd8p-1F, 0.0F, 0.0F));
    EXPECT_TRUE(overlaps(a, b));
    EXPECT_FALSE(overlaps(b, a));
}

TEST_F(OverlapTest, MeshesWithoutTrianglesOverlapNothing)
{
    const BoundedMesh nothing =
        inOneCell(geometry::Mesh({{1.0F, 1.0F, 0.0F}}, {0, 0, 0}), everywhere);
    EXPECT_FALSE(overlaps(nothing, inOneCell(wall, everywhere)));
    EXPECT_FALSE(overlaps(inOneCell(wall, everywhere), nothing));
}

TEST_F(OverlapTest, TrianglesThatDoNotExistOrAreNotFiniteAreLeftOut)
{
    geometry::Mesh broken(
        {{1.0F, 1.0F, -1.0F}, {1.0F, 1.0F, 1.0F}, {2.0F, 1.0F, 1.0F}, {kNan, 1.0F, 1.0F}}, {});
    broken.addTriangle(0, 1, 3);
    broken.addTriangle(0, 1, 4);
    broken.addTriangle(-1, 1, 2);
    BoundedMesh mesh = inOneCell(broken, everywhere);
    mesh.cells[0].triangles << 3 << 2000000000 << -1 << std::numeric_limits<int>::min();
    EXPECT_FALSE(overlaps(mesh, inOneCell(floor, everywhere)));
    EXPECT_FALSE(overlaps(inOneCell(floor, everywhere), mesh));

    broken.addTriangle(0, 1, 2); // the wall, among the others
    const BoundedMesh mended = inOneCell(broken, everywhere);
    EXPECT_TRUE(overlaps(mended, inOneCell(floor, everywhere)));
    EXPECT_TRUE(overlaps(inOneCell(floor, everywhere), mended));
}

TEST_F(OverlapTest, MeshesWithoutTreesHaveTheSameVerdict)
{
    const BoundedObject a = cylinder(1.0F, 10.0F);
    const BoundedObject b = cylinder(1.0F, 10.0F, test::translation(1.5F, 0.0F, 0.0F));
    BoundedMesh withoutTrees = a.meshes[0];
    withoutTrees.trees = nullptr;
    EXPECT_NE(a.meshes[0].trees, nullptr);
    EXPECT_TRUE(overlaps(a.meshes[0], b.meshes[0]));
    EXPECT_TRUE(overlaps(withoutTrees, b.meshes[0]));
    EXPECT_TRUE(overlaps(b.meshes[0], withoutTrees));
}

// The same as ACellOfTheFirstMustTouchTheMeshOfTheSecond, for triangles in many cells.
TEST_F(OverlapTest, ACellOfAWideTriangleMustTouchTheMeshOfTheSecond)
{
    const auto inCellsOfFive = [](const geometry::Mesh& mesh) {
        Surface3DModel surface;
        surface.setMesh(mesh);
        return collision::makeBoundedObject(surface).meshes[0];
    };
    const BoundedMesh a =
        inCellsOfFive(oneTriangle({0.0F, 0.0F, 0.0F}, {30.0F, 0.0F, 0.0F}, {0.0F, 30.0F, 0.0F}));
    BoundedMesh b = inCellsOfFive(
        oneTriangle({12.0F, 2.0F, -15.0F}, {12.0F, 2.0F, 15.0F}, {12.0F, 14.0F, 15.0F}));
    EXPECT_TRUE(overlaps(a, b));
    b.box = {0.0F, 0.0F, -15.0F, 4.0F, 14.0F, 15.0F}; // away from the cells where they meet
    EXPECT_FALSE(overlaps(a, b));
}

// ---- copies, which share the trees that the first test has made

struct CopiesTest : OverlapTest
{
    CopiesTest()
    {
        EXPECT_TRUE(overlaps(a, b));
        EXPECT_TRUE(overlaps(b, a));
    }

    const BoundedMesh a = cylinder(1.0F, 10.0F).meshes[0];
    const BoundedMesh b = cylinder(1.0F, 10.0F, test::translation(1.5F, 0.0F, 0.0F)).meshes[0];
    BoundedMesh copy = a;
};

TEST_F(CopiesTest, WithMovedVerticesHaveTheVerdictOfTheirPlace)
{
    copy.mesh.applyTransformation(
        test::translation(-1.0F, 0.0F, 0.0F)); // still in reach of its cell
    EXPECT_FALSE(overlaps(copy, b));
    EXPECT_FALSE(overlaps(b, copy));
    EXPECT_TRUE(overlaps(a, b));
    copy.mesh.applyTransformation(test::translation(1.0F, 0.0F, 0.0F));
    EXPECT_TRUE(overlaps(copy, b));
    EXPECT_TRUE(overlaps(b, copy));
}

TEST_F(CopiesTest, WithOtherIndicesHaveTheVerdictOfTheirTriangles)
{
    copy.mesh.setIndices({0, 0, 0, -1});
    EXPECT_FALSE(overlaps(copy, b));
    EXPECT_FALSE(overlaps(b, copy));
}

TEST_F(CopiesTest, WithOtherCellsHaveTheVerdictOfTheirCells)
{
    const QList<geometry::BoundedTriangles> cells = copy.cells;
    for (int more = 0; more < 100; ++more)
        copy.cells.prepend({{-1.0F, -1.0F, -5.0F, -0.5F, 1.0F, 5.0F}, {0}});
    EXPECT_TRUE(overlaps(copy, b)); // by the last cell
    EXPECT_TRUE(overlaps(b, copy));
    copy.cells.last().triangles.clear();
    EXPECT_FALSE(overlaps(copy, b));
    EXPECT_FALSE(overlaps(b, copy));
    copy.cells = cells;
    EXPECT_TRUE(overlaps(copy, b));
}

// ---- objects of any extent

// Returns one triangle whose box touches all 40^3 cells of 5 mm.
BoundedObject throughManyCells(float height)
{
    Surface3DModel surface;
    surface.setMesh(oneTriangle({0.0F, 0.0F, height}, {200.0F, 0.0F, 200.0F + height},
                                {0.0F, 200.0F, 200.0F + height}));
    return collision::makeBoundedObject(surface);
}

TEST_F(OverlapTest, MeshesOfManyCellsAreComparedByTheirTriangles)
{
    const BoundedObject mesh = throughManyCells(0.0F);
    ASSERT_EQ(mesh.meshes[0].cells.size(), 64000);
    EXPECT_EQ(mesh.meshes[0].trees->numCells(),
              0); // no cell is compared with those of another mesh
    EXPECT_FALSE(overlaps(mesh, throughManyCells(1.0F)));
    EXPECT_FALSE(overlaps(throughManyCells(1.0F), mesh));
    EXPECT_TRUE(overlaps(mesh, throughManyCells(0.0F)));
}

TEST_F(OverlapTest, NarrowAndWideTrianglesOfAnOutstretchedMeshAreFound)
{
    // A canal with one vertex 5 m away, whose six triangles touch all cells up to there.
    geometry::Mesh mesh = test::makeCanal(2000);
    QList<QVector3D> vertices = mesh.getVertices();
    const qsizetype middle = vertices.size() / 2;
    const QVector3D narrow = vertices[10];
    vertices[middle] = {5000.0F, 0.0F, 0.0F};
    const QVector3D wide = (vertices[middle] + vertices[middle + 1]) * 0.5F;
    mesh.setVertices(vertices);
    Surface3DModel surface;
    surface.setMesh(mesh);
    const BoundedObject canal = collision::makeBoundedObject(surface);
    ASSERT_GT(canal.meshes[0].cells.size(), 1000);
    for (const QVector3D& place : {narrow, wide}) {
        const auto at = test::translation(place.x(), place.y(), place.z());
        EXPECT_TRUE(overlaps(canal, cylinder(1.0F, 4.0F, at)));
        EXPECT_TRUE(overlaps(cylinder(1.0F, 4.0F, at), canal));
        const auto beside = at * test::translation(0.0F, 0.0F, 20.0F);
        EXPECT_FALSE(overlaps(canal, cylinder(1.0F, 4.0F, beside)));
        EXPECT_FALSE(overlaps(cylinder(1.0F, 4.0F, beside), canal));
    }
}

} // namespace
