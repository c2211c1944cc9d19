// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>

// Objects in the scene: the placement of their meshes, their boxes, their cell sizes, their memory,
// and meshes that are unusable.

#include <CoreAlgorithms/collision/CellTree_p.h>
#include <CoreAlgorithms/model/data/Shapes.h>

#include <tests/collision/BoundedMeshBuilders.h>
#include <tests/support/CollisionBuilders.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using collision::BoundedObject;
using collision::makeBoundedObject;
using primitives::BoundingBox;
using test::boxes;
using test::dots;
using test::oneTriangle;
using test::triangles;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

const BoundingBox kTen(0.0F, 0.0F, 0.0F, 10.0F, 10.0F, 10.0F);

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
    QMatrix4x4 object; // doubles, then lifts by 100 mm, after the nodes' transforms
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
TEST(DefaultCellSize, HasAnExponentInSingleAndAPowerInDoublePrecisionByDesign)
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

TEST(BoundedObjectOfASurface, IsWhereTheSurfaceIsInTheSceneInCellsOfFive)
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

// A host's surface may have a larger box than that of its vertices.
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
