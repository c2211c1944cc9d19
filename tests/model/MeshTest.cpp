// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/data/Mesh.h>

// Point sets, meshes with four entries for each triangle, and grid cells.

#include <QMatrix4x4>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
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
    EXPECT_EQ(points.getVertices(),
              (QList<QVector3D>{{12.0F, 20.0F, 30.0F}, {10.0F, 24.0F, 38.0F}}));
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
    EXPECT_EQ(points.getBoundingBox(),
              primitives::BoundingBox(-1.0F, -2.0F, 4.0F, 1.0F, 3.0F, 6.0F));
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

// Every kind of matrix, including those that have a separate loop.
TEST(PointSet, TransformationHasTheBitsOfTheMatrixsOwnMap)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    QList<QVector3D> points{
        {0.0F, 0.0F, 0.0F},       {-0.0F, -0.0F, -0.0F},      {1.0F, -2.0F, 3.0F},
        {kNan, 1.0F, 1.0F},       {1.0F, infinity, 1.0F},     {1.0F, 1.0F, -infinity},
        {3e38F, -3e38F, 3e38F},   {1e-40F, -1e-45F, 1e-38F},  {infinity, kNan, -infinity},
        {123.456F, 0.1F, -77.7F}, {-0.33333F, 1e10F, -1e-10F}};
    QMatrix4x4 shift;
    shift.translate(1.5F, -2.25F, 1e-3F);
    QMatrix4x4 flatTurn;
    flatTurn.rotate(33.0F, 0.0F, 0.0F, 1.0F);
    QMatrix4x4 rigid = shift;
    rigid.rotate(71.0F, 1.0F, 2.0F, -3.0F);
    QMatrix4x4 scaled = rigid;
    scaled.scale(1e30F);
    QMatrix4x4 perspective;
    perspective.perspective(60.0F, 1.3F, 0.5F, 100.0F);
    QMatrix4x4 identityOfUnknownContents;
    identityOfUnknownContents(0, 0) = 1.0F;
    QMatrix4x4 odd = rigid;
    odd(1, 2) = kNan;
    QMatrix4x4 halved = rigid;
    halved(3, 3) = 2.0F;

    const auto sameBits = [](float a, float b) {
        return (std::isnan(a) && std::isnan(b)) ||
               std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
    };
    for (const QMatrix4x4& matrix :
         {QMatrix4x4(), shift, flatTurn, rigid, scaled, perspective, identityOfUnknownContents, odd,
          halved, rigid * rigid.inverted()}) {
        geometry::PointSet set(points);
        set.applyTransformation(matrix);
        for (int i = 0; i < points.size(); ++i) {
            const QVector3D expected = matrix.map(points[i]);
            const QVector3D actual = set.getVertices()[i];
            EXPECT_TRUE(sameBits(actual.x(), expected.x()) && sameBits(actual.y(), expected.y()) &&
                        sameBits(actual.z(), expected.z()))
                << "point " << i;
        }
    }
}

TEST(PointSet, VerticesThatNobodyElseHoldsAreMovedInPlace)
{
    geometry::PointSet set(QList<QVector3D>(100, QVector3D(1.0F, 2.0F, 3.0F)));
    const QVector3D* before = set.getVertices().constData();
    QMatrix4x4 matrix;
    matrix.rotate(71.0F, 1.0F, 2.0F, -3.0F);
    set.applyTransformation(matrix);
    EXPECT_EQ(set.getVertices().constData(), before);
}

} // namespace
