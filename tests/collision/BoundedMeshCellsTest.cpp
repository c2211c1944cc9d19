// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>

// The cells of a mesh: their order, their boxes and their triangles, and meshes that get one cell.

#include <tests/collision/BoundedMeshBuilders.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using collision::makeBoundedTriangles;
using primitives::BoundingBox;
using test::boxes;
using test::dots;
using test::triangles;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

const BoundingBox kTen(0.0F, 0.0F, 0.0F, 10.0F, 10.0F, 10.0F);

TEST(BoundedTriangles, FollowEachOtherAlongXThenYThenZ)
{
    const geometry::Mesh mesh = dots({{9.0F, 9.0F, 9.0F},
                                      {1.0F, 9.0F, 1.0F},
                                      {9.0F, 1.0F, 1.0F},
                                      {1.0F, 1.0F, 9.0F},
                                      {1.0F, 1.0F, 1.0F}});
    const auto cells = makeBoundedTriangles(mesh, kTen, 5.0F);
    EXPECT_EQ(triangles(cells), (QList<QList<int>>{{4}, {2}, {1}, {3}, {0}}));
    EXPECT_EQ(boxes(cells), (QList<BoundingBox>{{0.0F, 0.0F, 0.0F, 5.0F, 5.0F, 5.0F},
                                                {5.0F, 0.0F, 0.0F, 10.0F, 5.0F, 5.0F},
                                                {0.0F, 5.0F, 0.0F, 5.0F, 10.0F, 5.0F},
                                                {0.0F, 0.0F, 5.0F, 5.0F, 5.0F, 10.0F},
                                                {5.0F, 5.0F, 5.0F, 10.0F, 10.0F, 10.0F}}));
}

TEST(BoundedTriangles, CellsAreNeverLongerThanTheCellSize)
{
    // ceil(10 / 4) = 3 cells of 10 / 3 along every axis
    const auto cells = makeBoundedTriangles(dots({{9.0F, 4.0F, 0.0F}}), kTen, 4.0F);
    ASSERT_EQ(cells.size(), 1);
    EXPECT_EQ(cells[0].box.min(), QVector3D(2.0F * (10.0F / 3.0F), 10.0F / 3.0F, 0.0F));
}

TEST(BoundedTriangles, AnAxisShorterThanTheCellSizeHasOneCell)
{
    const BoundingBox flat(0.0F, 0.0F, 0.0F, 10.0F, 4.0F, 5.0F);
    const auto cells =
        makeBoundedTriangles(dots({{1.0F, 1.0F, 1.0F}, {9.0F, 3.0F, 4.0F}}), flat, 5.0F);
    EXPECT_EQ(boxes(cells), (QList<BoundingBox>{{0.0F, 0.0F, 0.0F, 5.0F, 4.0F, 5.0F},
                                                {5.0F, 0.0F, 0.0F, 10.0F, 4.0F, 5.0F}}));
}

TEST(BoundedTriangles, AreInEveryCellThatTheirBoxTouchesInAscendingOrder)
{
    geometry::Mesh mesh(
        {{1.0F, 1.0F, 1.0F}, {9.0F, 1.0F, 1.0F}, {1.0F, 9.0F, 1.0F}, {2.0F, 2.0F, 2.0F}}, {});
    mesh.addTriangle(3, 3, 3);
    mesh.addTriangle(0, 1, 2); // its box reaches the cell at (1, 1), the triangle does not
    mesh.addTriangle(3, 3, 3);
    EXPECT_EQ(triangles(makeBoundedTriangles(mesh, kTen, 5.0F)),
              (QList<QList<int>>{{0, 1, 2}, {1}, {1}, {1}}));
}

TEST(BoundedTriangles, OnABoundaryBelongToTheUpperCell)
{
    EXPECT_EQ(makeBoundedTriangles(dots({{5.0F, 0.0F, 0.0F}}), kTen, 5.0F)[0].box.min(),
              QVector3D(5.0F, 0.0F, 0.0F));
    EXPECT_EQ(makeBoundedTriangles(dots({{std::nextafter(5.0F, 0.0F), 0.0F, 0.0F}}), kTen, 5.0F)[0]
                  .box.min(),
              QVector3D(0.0F, 0.0F, 0.0F));
}

TEST(BoundedTriangles, BeyondTheBoxAreInItsOutermostCells)
{
    const auto cells = makeBoundedTriangles(
        dots({{-3.0F, 1.0F, 1.0F}, {10.0F, 1.0F, 1.0F}, {3e38F, 1.0F, 1.0F}, {-3e38F, 1.0F, 1.0F}}),
        kTen, 5.0F);
    EXPECT_EQ(triangles(cells), (QList<QList<int>>{{0, 3}, {1, 2}}));
}

TEST(BoundedTriangles, ThereAreNoneWithoutFourEntries)
{
    EXPECT_TRUE(makeBoundedTriangles(geometry::Mesh(), kTen, 5.0F).isEmpty());
    EXPECT_TRUE(makeBoundedTriangles(geometry::Mesh({{1.0F, 1.0F, 1.0F}}, {0, 0, 0}), kTen, 5.0F)
                    .isEmpty());
    EXPECT_EQ(makeBoundedTriangles(geometry::Mesh({{1.0F, 1.0F, 1.0F}}, {0, 0, 0, 7, 0, 0, 0}),
                                   kTen, 5.0F)
                  .size(),
              1);
}

TEST(BoundedTriangles, FourthEntryIsNotRead)
{
    const geometry::Mesh mesh({{1.0F, 1.0F, 1.0F}}, {0, 0, 0, 2000000000, 0, 0, 0, -2000000000});
    EXPECT_EQ(triangles(makeBoundedTriangles(mesh, kTen, 5.0F)), (QList<QList<int>>{{0, 1}}));
}

TEST(BoundedTriangles, InAFlatBoxAreInTheFirstCellAlongIt)
{
    // Along z the extent of a cell is 0: 0 / 0 and 1 / 0 are cell 0.
    const BoundingBox flat(0.0F, 0.0F, 2.0F, 10.0F, 10.0F, 2.0F);
    const auto cells = makeBoundedTriangles(
        dots({{1.0F, 1.0F, 2.0F}, {1.0F, 1.0F, 3.0F}, {1.0F, 1.0F, 1.0F}}), flat, 5.0F);
    EXPECT_EQ(triangles(cells), (QList<QList<int>>{{0, 1, 2}}));
    EXPECT_EQ(cells[0].box, BoundingBox(0.0F, 0.0F, 2.0F, 5.0F, 5.0F, 2.0F));
}

// Divided by 0.5 mm, 3e38 and -3e38 are infinite. Both are in cell 0, though 3e38 is beyond the
// last one.
TEST(BoundedTriangles, InfinitelyManyCellsAwayAreInTheFirst)
{
    const BoundingBox one(0.0F, 0.0F, 0.0F, 1.0F, 0.25F, 0.25F);
    const auto cells = makeBoundedTriangles(
        dots({{3e38F, 0.0F, 0.0F}, {-3e38F, 0.0F, 0.0F}, {0.75F, 0.0F, 0.0F}, {1e38F, 0.0F, 0.0F}}),
        one, 0.5F);
    EXPECT_EQ(triangles(cells), (QList<QList<int>>{{0, 1}, {2, 3}}));
}

TEST(BoundedTriangles, OneCellForAnInvalidCellSize)
{
    const geometry::Mesh mesh = dots({{1.0F, 1.0F, 1.0F}, {9.0F, 9.0F, 9.0F}});
    for (const float cellSize : {0.0F, -1.0F, kNan, kInfinity, -kInfinity}) {
        const auto cells = makeBoundedTriangles(mesh, kTen, cellSize);
        EXPECT_EQ(triangles(cells), (QList<QList<int>>{{0, 1}})) << cellSize;
        EXPECT_EQ(boxes(cells), (QList<BoundingBox>{kTen})) << cellSize;
    }
}

TEST(BoundedTriangles, OneCellForMoreThanTwoToTheTwentiethCells)
{
    const geometry::Mesh mesh = dots({{1.0F, 1.0F, 1.0F}, {9.0F, 9.0F, 9.0F}});
    EXPECT_EQ(makeBoundedTriangles(mesh, {0.0F, 0.0F, 0.0F, 128.0F, 128.0F, 64.0F}, 1.0F).size(),
              2); // 2^20
    EXPECT_EQ(makeBoundedTriangles(mesh, {0.0F, 0.0F, 0.0F, 128.0F, 128.0F, 64.5F}, 1.0F).size(),
              1);
    EXPECT_EQ(makeBoundedTriangles(mesh, kTen, 10.0F / 101.0F).size(),
              2); // 101^3 cells, below 2^20
    EXPECT_EQ(makeBoundedTriangles(mesh, kTen, 10.0F / 102.0F).size(), 1); // 102^3 cells, above
    EXPECT_EQ(makeBoundedTriangles(mesh, kTen, 1e-30F).size(), 1);
    EXPECT_EQ(makeBoundedTriangles(mesh, {0.0F, 0.0F, 0.0F, 3e38F, 1.0F, 1.0F}, 1.0F).size(), 1);
}

TEST(BoundedTriangles, OneCellForABoxOrVertexThatIsNotFinite)
{
    const geometry::Mesh mesh = dots({{1.0F, 1.0F, 1.0F}, {9.0F, 9.0F, 9.0F}});
    EXPECT_EQ(makeBoundedTriangles(mesh, {0.0F, 0.0F, 0.0F, kInfinity, 1.0F, 1.0F}, 5.0F).size(),
              1);
    EXPECT_EQ(makeBoundedTriangles(mesh, {kNan, 0.0F, 0.0F, 1.0F, 1.0F, 1.0F}, 5.0F).size(), 1);
    EXPECT_EQ(makeBoundedTriangles(mesh, {-3e38F, 0.0F, 0.0F, 3e38F, 1.0F, 1.0F}, 5.0F).size(), 1);
    const geometry::Mesh withNan =
        dots({{1.0F, 1.0F, 1.0F}, {9.0F, kNan, 9.0F}, {9.0F, 9.0F, kInfinity}});
    EXPECT_EQ(triangles(makeBoundedTriangles(withNan, kTen, 5.0F)), (QList<QList<int>>{{0, 1, 2}}));
}

// 40 * 40 * 41 cells of 1 mm.
const BoundingBox kManyCells(0.0F, 0.0F, 0.0F, 40.0F, 40.0F, 41.0F);

// Returns triangles that touch all of these cells, then points in the first cell.
geometry::Mesh wideTrianglesAndPoints(int numWide, int numPoints)
{
    geometry::Mesh mesh({{0.0F, 0.0F, 0.0F}, {40.0F, 0.0F, 41.0F}, {0.0F, 40.0F, 41.0F}}, {});
    for (int i = 0; i < numWide; ++i)
        mesh.addTriangle(0, 1, 2);
    for (int i = 0; i < numPoints; ++i)
        mesh.addTriangle(0, 0, 0);
    return mesh;
}

// 65,600 = 2^16 + 64.
TEST(BoundedTriangles, OneCellInsteadOfMoreFilledOnesThanTrianglesAndTwoToTheSixteenth)
{
    EXPECT_EQ(makeBoundedTriangles(wideTrianglesAndPoints(1, 62), kManyCells, 1.0F).size(), 1);
    EXPECT_EQ(makeBoundedTriangles(wideTrianglesAndPoints(1, 63), kManyCells, 1.0F).size(), 65600);
}

// 19 * 65,600 + 13,168 = 2^20 + 16 * (19 + 13,168).
TEST(BoundedTriangles, OneCellInsteadOfMoreThan16EntriesATriangleAndTwoToTheTwentieth)
{
    EXPECT_EQ(makeBoundedTriangles(wideTrianglesAndPoints(19, 13167), kManyCells, 1.0F).size(), 1);
    EXPECT_EQ(makeBoundedTriangles(wideTrianglesAndPoints(19, 13168), kManyCells, 1.0F).size(),
              65600);
}

TEST(BoundedTriangles, WhoseEntriesNameNoVertexAreInNoCell)
{
    const geometry::Mesh mesh({{1.0F, 1.0F, 1.0F}}, {0,  0,  0,          -1, 0, 1,  0, -1, 0, 0,
                                                     -1, -1, 2000000000, 0,  0, -1, 0, 0,  0, -1});
    EXPECT_EQ(triangles(makeBoundedTriangles(mesh, kTen, 5.0F)), (QList<QList<int>>{{0, 4}}));
    EXPECT_EQ(triangles(makeBoundedTriangles(mesh, kTen, 100.0F)), (QList<QList<int>>{{0, 4}}));
}

} // namespace
