// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/Meshes.h>

// Covered: tubeMesh(), placedMesh() and cutMesh(): closed tubes, and the outlines of cuts.

#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace {

const QList<QVector3D> kUpright = {{0, 0, 0}, {0, 0, 4}, {0, 0, 10}};

// A plane through (x, y, z) - half its size of 40 mm, with the given directions.
std::shared_ptr<PlanarReslice> plane(const QVector3D& middle, const QVector3D& direction0,
                                     const QVector3D& direction1)
{
    QMatrix4x4 frame;
    frame.setColumn(0, QVector4D(direction0, 0.0F));
    frame.setColumn(1, QVector4D(direction1, 0.0F));
    frame.setColumn(2, QVector4D(QVector3D::crossProduct(direction0, direction1), 0.0F));
    frame.setColumn(3, QVector4D(middle - 20.0F * direction0 - 20.0F * direction1, 1.0F));
    return test::makePlanarReslice(40.0F, 40.0F, 1.0F, frame);
}

double signedVolume(const geometry::Mesh& mesh)
{
    double volume = 0.0;
    const auto corner = [&mesh](qsizetype i) { return mesh.getVertices()[mesh.getIndices()[i]]; };
    for (qsizetype i = 0; i < mesh.getNumIndices(); i += 4)
        volume += double(QVector3D::dotProduct(
                      corner(i), QVector3D::crossProduct(corner(i + 1), corner(i + 2)))) /
                  6.0;
    return volume;
}

// Every edge is passed once in each direction.
bool isClosed(const geometry::Mesh& mesh)
{
    std::map<std::pair<int, int>, int> passed;
    for (qsizetype i = 0; i < mesh.getNumIndices(); i += 4) {
        for (int k = 0; k < 3; ++k)
            ++passed[{mesh.getIndices()[i + k], mesh.getIndices()[i + (k + 1) % 3]}];
    }
    return std::all_of(passed.cbegin(), passed.cend(), [&passed](const auto& edge) {
        const auto back = passed.find({edge.first.second, edge.first.first});
        return edge.second == 1 && back != passed.cend() && back->second == 1;
    });
}

TEST(TubeMesh, IsClosedAndTurnedOutwards)
{
    const geometry::Mesh tube = planner::tubeMesh(kUpright, 2.0F);
    EXPECT_TRUE(isClosed(tube));
    EXPECT_EQ(tube.getNumIndices() / 4, 2 * 24 * 2 + 2 * 24);
    // A prism over 24 triangles with two sides of 2 mm and 15 degrees between them, 10 mm high.
    EXPECT_NEAR(signedVolume(tube), 24 * 0.5 * 4.0 * 0.25881904510252074 * 10.0, 1e-3);
}

TEST(TubeMesh, IsClosedRoundACorner)
{
    EXPECT_TRUE(isClosed(planner::tubeMesh({{0, 0, 0}, {0, 0, 5}, {5, 0, 5}, {5, 5, 5}}, 1.0F)));
}

TEST(TubeMesh, HasItsRadiusEverywhere)
{
    const QList<QVector3D> vertices = planner::tubeMesh(kUpright, 2.0F).getVertices();
    for (const QVector3D& vertex : vertices.first(72)) // three rings of 24
        EXPECT_NEAR(std::hypot(vertex.x(), vertex.y()), 2.0F, 1e-6F);
}

TEST(TubeMesh, IsEmptyForALineWithoutLength)
{
    EXPECT_EQ(planner::tubeMesh({}, 1.0F).getNumIndices(), 0);
    EXPECT_EQ(planner::tubeMesh({{1, 2, 3}}, 1.0F).getNumIndices(), 0);
}

TEST(PlacedMesh, JoinsTheShapesOfATree)
{
    geometry::ShapeNode root(QStringLiteral("root"));
    for (const float x : {0.0F, 5.0F}) {
        auto* child = new geometry::ShapeNode(QStringLiteral("child"));
        geometry::Mesh triangle({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {});
        triangle.addTriangle(0, 1, 2);
        child->setShape(geometry::Shape(triangle));
        QMatrix4x4 aside;
        aside.translate(x, 0.0F, 0.0F);
        child->setTransform(aside);
        root.addChild(child);
    }
    QMatrix4x4 up;
    up.translate(0.0F, 0.0F, 7.0F);
    const geometry::Mesh mesh = planner::placedMesh(root, up);
    const QList<QVector3D> vertices = {{0, 0, 7}, {1, 0, 7}, {0, 1, 7},
                                       {5, 0, 7}, {6, 0, 7}, {5, 1, 7}};
    EXPECT_EQ(mesh.getVertices(), vertices);
    EXPECT_EQ(mesh.getIndices(), QList<int>({0, 1, 2, -1, 3, 4, 5, -1}));
}

TEST(PlacedMesh, OfASurfaceStandsInTheScene)
{
    Surface3DModel model;
    model.setMesh(geometry::Mesh({{1, 2, 3}}, {}));
    QMatrix4x4 up;
    up.translate(0.0F, 0.0F, 7.0F);
    model.setObjectTransform(up);
    EXPECT_EQ(planner::placedMesh(model).getVertices(), QList<QVector3D>({{1, 2, 10}}));
}

TEST(CutMesh, AlongTheAxisOfATubeIsARectangle)
{
    // 0.01 mm beside the axis, so that no vertex lies in the plane. The view's origin is (-20, 25)
    // and its y down.
    const auto reslice = plane({0.0F, 0.01F, 5.0F}, {1, 0, 0}, {0, 0, 1});
    const QList<QPolygonF> outlines = planner::cutMesh(planner::tubeMesh(kUpright, 2.0F), *reslice);
    ASSERT_EQ(outlines.size(), 1);
    EXPECT_TRUE(outlines.first().isClosed());
    const QRectF box = outlines.first().boundingRect();
    EXPECT_NEAR(box.left(), 18.0, 0.01);
    EXPECT_NEAR(box.right(), 22.0, 0.01);
    EXPECT_NEAR(box.top(), 15.0, 1e-4);
    EXPECT_NEAR(box.bottom(), 25.0, 1e-4);
}

TEST(CutMesh, AcrossATubeIsItsRing)
{
    const auto reslice = plane({0, 0, 2}, {1, 0, 0}, {0, 1, 0});
    const QList<QPolygonF> outlines = planner::cutMesh(planner::tubeMesh(kUpright, 2.0F), *reslice);
    ASSERT_EQ(outlines.size(), 1);
    EXPECT_TRUE(outlines.first().isClosed());
    EXPECT_EQ(outlines.first().size(),
              2 * 24 + 1); // a side has two triangles: its edges and its diagonals
    for (const QPointF& point : outlines.first()) {
        const double radius = std::hypot(point.x() - 20.0, point.y() - 20.0);
        EXPECT_LE(radius, 2.0 + 1e-5);
        EXPECT_GE(radius, 2.0 * std::cos(std::acos(-1.0) / 24.0) - 1e-5);
    }
}

TEST(CutMesh, ThroughVerticesIsClosedToo)
{
    const auto reslice = plane({0, 0, 4}, {1, 0, 0}, {0, 1, 0}); // the ring in the middle
    const QList<QPolygonF> outlines = planner::cutMesh(planner::tubeMesh(kUpright, 2.0F), *reslice);
    ASSERT_EQ(outlines.size(), 1);
    EXPECT_TRUE(outlines.first().isClosed());
}

TEST(CutMesh, OfATubeThatComesBackIsTwoOutlines)
{
    const auto reslice = plane({0, 0, 2}, {1, 0, 0}, {0, 1, 0});
    const geometry::Mesh bow =
        planner::tubeMesh({{0, 0, 0}, {0, 0, 8}, {8, 0, 8}, {8, 0, 0}}, 1.0F);
    EXPECT_EQ(planner::cutMesh(bow, *reslice).size(), 2);
}

TEST(CutMesh, BesideAMeshIsNothing)
{
    const auto reslice = plane({0, 0, 11}, {1, 0, 0}, {0, 1, 0});
    EXPECT_TRUE(planner::cutMesh(planner::tubeMesh(kUpright, 2.0F), *reslice).isEmpty());
    EXPECT_TRUE(planner::cutMesh(geometry::Mesh(), *reslice).isEmpty());
}

} // namespace
