// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/CellTree_p.h>

// The trees of a mesh: which cells are visited near a box, and which triangles share a tree of
// their own.

#include <CoreAlgorithms/collision/BoundedMesh_p.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace {

using collision::BoundedMesh;
using collision::CellTrees;
using primitives::BoundingBox;

BoundedMesh meshOf(const QList<QVector3D>& vertices, const QList<int>& indices)
{
    Surface3DModel surface;
    surface.setMesh(geometry::Mesh(vertices, indices));
    return collision::makeBoundedObject(surface).meshes[0];
}

// Returns 20,000 points in a cube of 100 mm. They are in most of its 20^3 cells, but not in all.
BoundedMesh scatteredPoints()
{
    test::RandomGeometry random(41);
    QList<QVector3D> vertices;
    QList<int> indices;
    for (int i = 0; i < 20000; ++i) {
        indices << i << i << i << -1;
        vertices << random.point(50.0F);
    }
    return meshOf(vertices, indices);
}

std::set<int> visitedNear(const CellTrees& trees, const BoundingBox& box)
{
    std::set<int> visited;
    EXPECT_FALSE(trees.anyCellNear(box, [&visited](int cell) {
        EXPECT_TRUE(visited.insert(cell).second) << "twice";
        return false;
    }));
    return visited;
}

TEST(CellTrees, VisitTheCellsThatTouchABoxAndNoOthers)
{
    const BoundedMesh mesh = scatteredPoints();
    const CellTrees& trees = *mesh.trees;
    ASSERT_GT(trees.numCells(), 7000);
    ASSERT_LT(trees.numCells(), 8000);
    test::RandomGeometry random(42);
    for (int i = 0; i < 200; ++i) {
        const QVector3D low = random.point(60.0F);
        const BoundingBox box(low, low + QVector3D(6.0F, 6.0F, 6.0F) + random.point(6.0F));
        std::set<int> touching;
        for (int cell = 0; cell < trees.numCells(); ++cell) {
            if (trees.boxOf(cell).intersects(box))
                touching.insert(cell);
        }
        ASSERT_EQ(visitedNear(trees, box), touching) << "box " << i;
    }
}

TEST(CellTrees, VisitNoCellNearABoxThatIsNotInOrder)
{
    const BoundedMesh mesh = scatteredPoints();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE(visitedNear(*mesh.trees, {60.0F, 60.0F, 60.0F, -60.0F, -60.0F, -60.0F}).empty());
    EXPECT_TRUE(visitedNear(*mesh.trees, {nan, nan, nan, nan, nan, nan}).empty());
}

TEST(CellTrees, StopAtTheFirstCellThatPasses)
{
    const BoundedMesh mesh = scatteredPoints();
    int visited = 0;
    EXPECT_TRUE(mesh.trees->anyCellNear({-9.0F, -9.0F, -9.0F, 9.0F, 9.0F, 9.0F},
                                        [&visited](int) { return ++visited == 5; }));
    EXPECT_EQ(visited, 5);
}

// The cells are 5 mm long; one triangle is in eight of them, one in nine and one in 27.
TEST(CellTrees, TrianglesInMoreThanEightCellsHaveATreeOfTheirOwn)
{
    const BoundedMesh mesh =
        meshOf({{0.0F, 0.0F, 0.0F},
                {20.0F, 20.0F, 20.0F},
                {1.0F, 1.0F, 1.0F},
                {9.0F, 9.0F, 9.0F},
                {1.0F, 11.0F, 11.0F},
                {14.0F, 14.0F, 1.0F},
                {14.0F, 14.0F, 14.0F}},
               {0, 0, 0, -1, 1, 1, 1, -1, 2, 3, 3, -1, 2, 5, 5, -1, 2, 6, 6, -1});
    ASSERT_TRUE(mesh.trees->hasWideTriangles());
    EXPECT_EQ(mesh.trees->wideTree().numTriangles, 2);
    // The two points and the narrow triangle: the eight cells around (5, 5, 5) and the last one.
    EXPECT_EQ(mesh.trees->numCells(), 9);
    EXPECT_EQ(mesh.trees->treeOf(0).numTriangles, 2);
    EXPECT_EQ(mesh.trees->treeOf(1).numTriangles, 1);
}

TEST(CellTrees, AreThoseOfTheDataTheyWereMadeFromAlone)
{
    const BoundedMesh mesh = scatteredPoints();
    BoundedMesh copy = mesh;
    EXPECT_TRUE(mesh.trees->areOf(copy.mesh, copy.cells));
    copy.mesh.setVertices(
        QList<QVector3D>(mesh.mesh.getVertices().begin(), mesh.mesh.getVertices().end()));
    EXPECT_FALSE(mesh.trees->areOf(copy.mesh, copy.cells)); // equal data, but not the same
    copy = mesh;
    copy.mesh.addTriangle(0, 1, 2);
    EXPECT_FALSE(mesh.trees->areOf(copy.mesh, copy.cells));
    copy = mesh;
    copy.cells.removeLast();
    EXPECT_FALSE(mesh.trees->areOf(copy.mesh, copy.cells));
}

} // namespace
