// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>

// Placed meshes and their grids: cells and their order, boxes, default cell size, and meshes that
// cannot be divided.

#include <CoreAlgorithms/collision/CellTree_p.h>
#include <CoreAlgorithms/model/data/Shapes.h>

#include <tests/support/CollisionBuilders.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using collision::BoundedObject;
using collision::makeBoundedObject;
using collision::makeBoundedTriangles;
using primitives::BoundingBox;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// Small triangles whose boxes are points, at these places.
geometry::Mesh dots(const QList<QVector3D>& places)
{
    geometry::Mesh mesh(places, {});
    for (int i = 0; i < static_cast<int>(places.size()); ++i)
        mesh.addTriangle(i, i, i);
    return mesh;
}

geometry::Mesh oneTriangle(const QVector3D& a, const QVector3D& b, const QVector3D& c)
{
    geometry::Mesh mesh({a, b, c}, {});
    mesh.addTriangle(0, 1, 2);
    return mesh;
}

QList<QList<int>> triangles(const QList<geometry::BoundedTriangles>& cells)
{
    QList<QList<int>> lists;
    for (const auto& cell : cells)
        lists.append(cell.triangles);
    return lists;
}

QList<BoundingBox> boxes(const QList<geometry::BoundedTriangles>& cells)
{
    QList<BoundingBox> all;
    for (const auto& cell : cells)
        all.append(cell.box);
    return all;
}

const BoundingBox kTen(0.0F, 0.0F, 0.0F, 10.0F, 10.0F, 10.0F);

// ---- the grid

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

// In cells of 0.5 mm, 3e38 and -3e38 are infinitely many cells away: cell 0, though the box ends
// long before.
TEST(BoundedTriangles, InfinitelyManyCellsAwayAreInTheFirst)
{
    const BoundingBox one(0.0F, 0.0F, 0.0F, 1.0F, 0.25F, 0.25F);
    const auto cells = makeBoundedTriangles(
        dots({{3e38F, 0.0F, 0.0F}, {-3e38F, 0.0F, 0.0F}, {0.75F, 0.0F, 0.0F}, {1e38F, 0.0F, 0.0F}}),
        one, 0.5F);
    EXPECT_EQ(triangles(cells), (QList<QList<int>>{{0, 1}, {2, 3}}));
}

TEST(BoundedTriangles, OneCellForACellSizeWithoutSense)
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

// Triangles that touch all of these cells, then points in the first.
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

// ---- objects from trees

TEST(BoundedObjectOfATree, PlacesEveryShapeByObjectThenCumulativeTransformWithoutTheRootsByDesign)
{
    geometry::ShapeNode root(QStringLiteral("root"));
    root.setTransform(test::translation(1000.0F, 0.0F, 0.0F)); // left out
    auto* outer = new geometry::ShapeNode(QStringLiteral("outer"));
    outer->setTransform(test::translation(10.0F, 0.0F, 0.0F));
    outer->setShape(
        geometry::Shape(oneTriangle({0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 1.0F})));
    auto* inner = new geometry::ShapeNode(QStringLiteral("inner"));
    inner->setTransform(test::translation(0.0F, 5.0F, 0.0F));
    inner->setShape(
        geometry::Shape(oneTriangle({0.0F, 0.0F, 0.0F}, {2.0F, 0.0F, 0.0F}, {0.0F, 2.0F, 2.0F})));
    outer->addChild(inner);
    root.addChild(outer);
    QMatrix4x4 object; // doubles, then lifts: on the left of the nodes' transforms
    object.translate(0.0F, 0.0F, 100.0F);
    object.scale(2.0F);

    const BoundedObject bounded = makeBoundedObject(root, object, 100.0F);
    EXPECT_EQ(bounded.box, BoundingBox(20.0F, 0.0F, 100.0F, 24.0F, 14.0F, 104.0F));
    ASSERT_EQ(bounded.meshes.size(), 2);
    EXPECT_EQ(
        bounded.meshes[0].mesh.getVertices(),
        (QList<QVector3D>{{20.0F, 0.0F, 100.0F}, {22.0F, 0.0F, 100.0F}, {20.0F, 2.0F, 102.0F}}));
    EXPECT_EQ(bounded.meshes[0].box, BoundingBox(20.0F, 0.0F, 100.0F, 22.0F, 2.0F, 102.0F));
    EXPECT_EQ(bounded.meshes[1].mesh.getVertices().first(), QVector3D(20.0F, 10.0F, 100.0F));
    EXPECT_EQ(bounded.meshes[1].box, BoundingBox(20.0F, 10.0F, 100.0F, 24.0F, 14.0F, 104.0F));
    EXPECT_EQ(boxes(bounded.meshes[1].cells), (QList<BoundingBox>{bounded.meshes[1].box}));
}

// 64 triangles in a box of 8 x 8 x 8: p = 64^0.6666666865348816 = 16.0000013..., in single
// precision 16.000002, and the cube root of 8 * 64 / 16.000002 is 3.1748 mm: ceil(8 / 3.1748) = 3
// cells of 8 / 3 along every axis.
TEST(BoundedObjectOfATree, WithoutCellSizeGetsAboutCountToTheTwoThirdsCells)
{
    QList<QVector3D> places;
    for (int i = 0; i < 64; ++i) {
        const int column = i % 4;
        const int row = i / 4 % 4;
        const int layer = i / 16;
        const QVector3D place(static_cast<float>(column), static_cast<float>(row),
                              static_cast<float>(layer));
        places.append(i == 63 ? QVector3D(8.0F, 8.0F, 8.0F) : 2.0F * place);
    }
    geometry::ShapeNode root(QStringLiteral("root"));
    root.setShape(geometry::Shape(dots(places)));
    const BoundedObject bounded = makeBoundedObject(root, {}, std::nullopt);
    ASSERT_EQ(bounded.meshes.size(), 1);
    EXPECT_EQ(bounded.meshes[0].cells.first().box,
              BoundingBox(0.0F, 0.0F, 0.0F, 8.0F / 3.0F, 8.0F / 3.0F, 8.0F / 3.0F));
    EXPECT_EQ(bounded.meshes[0].cells.size(), 27);
    EXPECT_EQ(makeBoundedObject(root, {}, 100.0F).meshes[0].cells.size(), 1);
}

// Each literal is one unit in the last place away from what another precision or order gives: the
// first from an exponent of 2/3 in double precision and from depth * height * width and depth *
// width * height, the second from a power in single precision, the third from a product and from a
// quotient in double precision.
TEST(DefaultCellSize, IsAPowerInDoublePrecisionAndTheRestInSingle)
{
    using collision::defaultCellSize;
    EXPECT_EQ(
        defaultCellSize(231256, {0.0F, 0.0F, 0.0F, 0x1.3f32p+5F, 0x1.86014p+6F, 0x1.9303p+4F}),
        0x1.7b3d6ap+1F);
    EXPECT_EQ(
        defaultCellSize(295123, {0.0F, 0.0F, 0.0F, 0x1.1c84p+7F, 0x1.8c272p+7F, 0x1.514ecp+6F}),
        0x1.03f286p+3F);
    EXPECT_EQ(defaultCellSize(4352, {0.0F, 0.0F, 0.0F, 0x1.4607p+5F, 0x1.71412p+7F, 0x1.1745cp+7F}),
              0x1.f97b34p+3F);
}

TEST(BoundedObjectOfATree, WithoutShapesOrTrianglesIsEmpty)
{
    geometry::ShapeNode root(QStringLiteral("root"));
    EXPECT_TRUE(makeBoundedObject(root, {}, 100.0F).meshes.isEmpty());
    EXPECT_TRUE(makeBoundedObject(root, {}, 100.0F).box.isNull());
    root.setShape(geometry::Shape(geometry::Mesh()));
    ASSERT_EQ(makeBoundedObject(root, {}, std::nullopt).meshes.size(), 1);
    EXPECT_TRUE(makeBoundedObject(root, {}, std::nullopt).meshes[0].cells.isEmpty());
}

TEST(BoundedObjectOfATree, WithAMeshThatCannotBeUsedIsEmptyAsAWhole)
{
    geometry::ShapeNode root(QStringLiteral("root"));
    root.setShape(
        geometry::Shape(oneTriangle({0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 1.0F})));
    auto* child = new geometry::ShapeNode(QStringLiteral("child"));
    root.addChild(child);
    EXPECT_EQ(makeBoundedObject(root, {}, 100.0F).meshes.size(), 1);
    child->setShape(geometry::Shape(geometry::Mesh({{0.0F, 0.0F, 0.0F}}, {0, 0, 1, -1})));
    EXPECT_TRUE(makeBoundedObject(root, {}, 100.0F).meshes.isEmpty());
    EXPECT_TRUE(makeBoundedObject(root, {}, 100.0F).box.isNull());
    child->setShape(
        geometry::Shape(oneTriangle({0.0F, 0.0F, kNan}, {1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 1.0F})));
    EXPECT_TRUE(makeBoundedObject(root, {}, 100.0F).meshes.isEmpty());
    child->setShape(
        geometry::Shape(oneTriangle({0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 1.0F})));
    EXPECT_EQ(makeBoundedObject(root, {}, 100.0F).meshes.size(), 2);
    QMatrix4x4 broken;
    broken(0, 3) = kInfinity;
    EXPECT_TRUE(makeBoundedObject(root, broken, 100.0F).meshes.isEmpty());
}

// ---- objects from surfaces

TEST(BoundedObjectOfASurface, StandsWhereTheSurfaceIsInTheSceneInCellsOfFive)
{
    Surface3DModel surface;
    surface.setMesh(dots({{0.0F, 0.0F, 0.0F}, {11.0F, 4.0F, 5.0F}}));
    surface.setObjectTransform(test::translation(100.0F, 0.0F, 0.0F));
    const BoundingBox box(100.0F, 0.0F, 0.0F, 111.0F, 4.0F, 5.0F);
    for (int round = 0; round < 2; ++round) {
        const BoundedObject bounded = makeBoundedObject(surface);
        EXPECT_EQ(bounded.box, box);
        ASSERT_EQ(bounded.meshes.size(), 1);
        EXPECT_EQ(bounded.meshes[0].box, box);
        EXPECT_EQ(bounded.meshes[0].mesh.getVertices().last(), QVector3D(111.0F, 4.0F, 5.0F));
        EXPECT_EQ(triangles(bounded.meshes[0].cells),
                  (QList<QList<int>>{{0}, {1}})); // of three cells along x
        EXPECT_EQ(bounded.meshes[0].cells[0].box.max().x(), 100.0F + 11.0F / 3.0F);
        surface.refresh();
    }
}

// A model may know a wider box than that of its vertices.
class WideSurface : public Surface3DModel
{
public:
    BoundingBox getSceneBoundingBox() const override { return kTen; }
};

TEST(BoundedObjectOfASurface, HasTheBoxThatTheModelGives)
{
    WideSurface surface;
    surface.setMesh(dots({{1.0F, 1.0F, 1.0F}}));
    const BoundedObject bounded = makeBoundedObject(surface);
    EXPECT_EQ(bounded.box, kTen);
    ASSERT_EQ(bounded.meshes.size(), 1);
    EXPECT_EQ(bounded.meshes[0].box, kTen);
    EXPECT_EQ(boxes(bounded.meshes[0].cells),
              (QList<BoundingBox>{{0.0F, 0.0F, 0.0F, 5.0F, 5.0F, 5.0F}}));
}

TEST(BoundedObjectOfASurface, OfABrokenSurfaceIsEmpty)
{
    Surface3DModel surface;
    EXPECT_EQ(makeBoundedObject(surface).meshes.size(), 1); // a mesh without triangles
    EXPECT_TRUE(makeBoundedObject(surface).meshes[0].cells.isEmpty());
    surface.setMesh(dots({{0.0F, 0.0F, 0.0F}, {11.0F, kNan, 5.0F}}));
    EXPECT_TRUE(makeBoundedObject(surface).meshes.isEmpty());
    surface.setMesh(geometry::Mesh({{0.0F, 0.0F, 0.0F}}, {0, 0, -1, -1}));
    EXPECT_TRUE(makeBoundedObject(surface).meshes.isEmpty());
}

class RecordingSurface : public Surface3DModel
{
public:
    const geometry::Mesh& getMesh() const override
    {
        log.emplace_back("getMesh");
        return Surface3DModel::getMesh();
    }
    const QMatrix4x4& getObjectTransform() const override
    {
        log.emplace_back("getObjectTransform");
        return Surface3DModel::getObjectTransform();
    }
    BoundingBox getSceneBoundingBox() const override
    {
        log.emplace_back("getSceneBoundingBox");
        return kTen;
    }
    mutable std::vector<std::string> log;
};

TEST(BoundedObjectOfASurface, QueriesBoxThenMeshThenTransformAlsoOfABrokenSurface)
{
    const auto inOrder =
        testing::ElementsAre("getSceneBoundingBox", "getMesh", "getObjectTransform");
    RecordingSurface surface;
    surface.setMesh(dots({{1.0F, 1.0F, 1.0F}}));
    surface.log.clear();
    makeBoundedObject(surface);
    EXPECT_THAT(surface.log, inOrder);
    surface.setMesh(dots({{1.0F, kNan, 1.0F}}));
    surface.log.clear();
    EXPECT_TRUE(makeBoundedObject(surface).meshes.isEmpty());
    EXPECT_THAT(surface.log, inOrder);
}

TEST(BoundedObject, IsEmptyAtFirst)
{
    const BoundedObject object;
    EXPECT_TRUE(object.meshes.isEmpty());
    EXPECT_EQ(object.box, BoundingBox(0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F));
}

// ---- memory

qsizetype bytesOf(const collision::BoundedMesh& mesh)
{
    qsizetype bytes = mesh.mesh.getVertices().capacity() * qsizetype(sizeof(QVector3D)) +
                      mesh.mesh.getIndices().capacity() * qsizetype(sizeof(int));
    for (const geometry::BoundedTriangles& cell : mesh.cells)
        bytes += cell.triangles.capacity() * qsizetype(sizeof(int));
    for (int cell = 0; cell < mesh.trees->numCells(); ++cell) {
        const collision::CellTree& tree = mesh.trees->treeOf(cell);
        bytes += qsizetype(tree.blocks.capacity() * sizeof(collision::TriangleBlock)) +
                 qsizetype(tree.nodes.capacity() * sizeof(collision::BoxBlock)) +
                 qsizetype(sizeof(tree)) + 1000;
    }
    return bytes;
}

TEST(BoundedObject, OfANerveOf200000TrianglesTakesLessThanFiveTimesItsMeshWithAllTreesMade)
{
    Surface3DModel surface;
    surface.setMesh(test::makeCanal(200000));
    const geometry::Mesh& mesh = surface.getMesh();
    ASSERT_GT(mesh.getNumIndices() / 4, 190000);
    const qsizetype own = mesh.getNumVertices() * qsizetype(sizeof(QVector3D)) +
                          mesh.getNumIndices() * qsizetype(sizeof(int));
    const BoundedObject bounded = makeBoundedObject(surface);
    EXPECT_LT(bytesOf(bounded.meshes[0]), 5 * own);
    RecordProperty("times_the_mesh",
                   std::to_string(double(bytesOf(bounded.meshes[0])) / double(own)));
}

} // namespace
