// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/data/Mesh.h>

// Point sets, meshes with four entries a triangle, and grid cells.

#include <QMatrix4x4>

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

TEST(PointSet, IsEmptyAtFirst)
{
    const geometry::PointSet points;
    EXPECT_EQ(points.getNumVertices(), 0);
    EXPECT_TRUE(points.getVertices().isEmpty());
    EXPECT_TRUE(points.getBoundingBox().isNull());
}

TEST(PointSet, MovesEveryVertex)
{
    geometry::PointSet points({{1.0F, 0.0F, 0.0F}, {0.0F, 2.0F, 4.0F}});
    QMatrix4x4 matrix;
    matrix.translate(10.0F, 20.0F, 30.0F);
    matrix.scale(2.0F);
    points.applyTransformation(matrix);
    EXPECT_EQ(points.getVertices(), (QList<QVector3D>{{12.0F, 20.0F, 30.0F}, {10.0F, 24.0F, 38.0F}}));
}

TEST(PointSet, CopiesAreIndependent)
{
    geometry::PointSet points({{1.0F, 0.0F, 0.0F}});
    const geometry::PointSet copy = points;
    QMatrix4x4 matrix;
    matrix.translate(1.0F, 1.0F, 1.0F);
    points.applyTransformation(matrix);
    EXPECT_EQ(copy.getVertices().first(), QVector3D(1.0F, 0.0F, 0.0F));
}

TEST(PointSet, BoxHoldsTheOriginAlsoIfItComesFirst)
{
    const geometry::PointSet points({{0.0F, 0.0F, 0.0F}, {1.0F, 2.0F, 3.0F}});
    EXPECT_EQ(points.getBoundingBox(), primitives::BoundingBox(0.0F, 0.0F, 0.0F, 1.0F, 2.0F, 3.0F));
}

TEST(PointSet, BoxIsSmallest)
{
    const geometry::PointSet points({{1.0F, -2.0F, 5.0F}, {-1.0F, 3.0F, 4.0F}, {0.0F, 0.0F, 6.0F}});
    EXPECT_EQ(points.getBoundingBox(), primitives::BoundingBox(-1.0F, -2.0F, 4.0F, 1.0F, 3.0F, 6.0F));
}

TEST(PointSet, VerticesWithNanExtendNothing)
{
    const geometry::PointSet points({{kNan, 9.0F, 9.0F}, {1.0F, 2.0F, 3.0F}, {9.0F, 9.0F, kNan}});
    EXPECT_EQ(points.getBoundingBox(), primitives::BoundingBox(1.0F, 2.0F, 3.0F, 1.0F, 2.0F, 3.0F));
    EXPECT_TRUE(geometry::PointSet({{kNan, kNan, kNan}}).getBoundingBox().isNull());
}

TEST(Mesh, HasFourEntriesATriangle)
{
    geometry::Mesh mesh({{0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}}, {});
    mesh.addTriangle(0, 1, 2);
    mesh.addTriangle(2, 1, 0);
    EXPECT_EQ(mesh.getNumIndices(), 8);
    EXPECT_EQ(mesh.getIndices(), (QList<int>{0, 1, 2, -1, 2, 1, 0, -1}));
}

TEST(Mesh, KeepsEntriesThatNameNoVertex)
{
    const geometry::Mesh mesh({}, {7, -3, 2000000000});
    EXPECT_EQ(mesh.getNumIndices(), 3);
    EXPECT_EQ(mesh.getIndices(), (QList<int>{7, -3, 2000000000}));
}

TEST(Mesh, MovesWithItsTrianglesUnchanged)
{
    geometry::Mesh mesh({{1.0F, 2.0F, 3.0F}}, {0, 0, 0, -1});
    QMatrix4x4 matrix;
    matrix.translate(1.0F, 1.0F, 1.0F);
    mesh.applyTransformation(matrix);
    EXPECT_EQ(mesh.getVertices().first(), QVector3D(2.0F, 3.0F, 4.0F));
    EXPECT_EQ(mesh.getIndices(), (QList<int>{0, 0, 0, -1}));
}

TEST(BoundedTriangles, IsAnEmptyCellAtFirst)
{
    const geometry::BoundedTriangles cell;
    EXPECT_TRUE(cell.box.isNull());
    EXPECT_TRUE(cell.triangles.isEmpty());
}

} // namespace
