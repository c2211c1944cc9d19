// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/data/Shapes.h>

// Trees of shapes: ownership, the walk over nodes with a shape, boxes; the factory's solids and the
// loader.

#include <tests/support/Matrices.h>

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace {

using geometry::ShapeNode;

// A triangle whose box is (0, 0, 0) to (1, 1, 1).
geometry::Shape unitShape()
{
    geometry::Mesh mesh({{0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 1.0F}, {0.0F, 1.0F, 0.0F}}, {});
    mesh.addTriangle(0, 1, 2);
    return geometry::Shape(mesh);
}

ShapeNode* addNode(ShapeNode& parent, const char* name, const QMatrix4x4& transform, bool withShape)
{
    auto* node = new ShapeNode(QString::fromLatin1(name)); // owned by the parent
    node->setTransform(transform);
    if (withShape)
        node->setShape(unitShape());
    parent.addChild(node);
    return node;
}

std::vector<std::pair<QString, QVector3D>> walk(const ShapeNode& root)
{
    std::vector<std::pair<QString, QVector3D>> visits;
    const auto end = root.cend();
    for (auto node = root.cbeginNodesWithShape(); node != end; ++node)
        visits.emplace_back(node->getName(), node.getCumulativeTransform().map(QVector3D()));
    return visits;
}

// ---- trees

TEST(ShapeNode, IsNewWithANameAndNothingElse)
{
    const ShapeNode node(QStringLiteral("Pin"));
    EXPECT_EQ(node.getName(), QStringLiteral("Pin"));
    EXPECT_TRUE(node.getTransform().isIdentity());
    EXPECT_EQ(node.getShape(), nullptr);
    EXPECT_EQ(node.getNumChildren(), 0);
    EXPECT_EQ(node.getChild(0), nullptr);
    EXPECT_EQ(node.getChild(-1), nullptr);
    EXPECT_TRUE(node.getBoundingBox().isNull());
    EXPECT_FALSE(node.cbeginNodesWithShape() != node.cend());
}

TEST(ShapeNode, WalkVisitsANodeBeforeItsChildrenAndSkipsThoseWithoutShape)
{
    ShapeNode root(QStringLiteral("root"));
    ShapeNode* a = addNode(root, "a", test::translation(1.0F, 0.0F, 0.0F), true);
    addNode(*a, "a1", test::translation(0.0F, 1.0F, 0.0F), true);
    ShapeNode* b = addNode(root, "b", test::translation(2.0F, 0.0F, 0.0F), false);
    addNode(*b, "b1", test::translation(0.0F, 0.0F, 3.0F), true);
    addNode(root, "c", test::translation(4.0F, 0.0F, 0.0F), true);
    const std::vector<std::pair<QString, QVector3D>> expected{
        {QStringLiteral("a"), {1.0F, 0.0F, 0.0F}},
        {QStringLiteral("a1"), {1.0F, 1.0F, 0.0F}},
        {QStringLiteral("b1"), {2.0F, 0.0F, 3.0F}},
        {QStringLiteral("c"), {4.0F, 0.0F, 0.0F}},
    };
    EXPECT_EQ(walk(root), expected);
}

TEST(ShapeNode, CumulativeTransformsLeaveOutThatOfTheRoot)
{
    ShapeNode root(QStringLiteral("root"));
    root.setTransform(test::translation(100.0F, 0.0F, 0.0F));
    root.setShape(unitShape());
    addNode(root, "a", test::translation(1.0F, 0.0F, 0.0F), true);
    const std::vector<std::pair<QString, QVector3D>> expected{
        {QStringLiteral("root"), {0.0F, 0.0F, 0.0F}},
        {QStringLiteral("a"), {1.0F, 0.0F, 0.0F}},
    };
    EXPECT_EQ(walk(root), expected);
}

TEST(ShapeNode, OuterTransformsAreLeftFactors)
{
    ShapeNode root(QStringLiteral("root"));
    QMatrix4x4 turn; // x to y
    turn.rotate(90.0F, 0.0F, 0.0F, 1.0F);
    ShapeNode* a = addNode(root, "a", turn, false);
    addNode(*a, "a1", test::translation(1.0F, 0.0F, 0.0F), true);
    const QVector3D image = walk(root).front().second;
    EXPECT_NEAR(image.x(), 0.0F, 1e-6F);
    EXPECT_NEAR(image.y(), 1.0F, 1e-6F);
}

TEST(ShapeNode, IteratorStaysAtTheEnd)
{
    const ShapeNode root(QStringLiteral("root"));
    auto node = root.cbeginNodesWithShape();
    ++node;
    EXPECT_FALSE(node != root.cend());
    EXPECT_TRUE(node.getCumulativeTransform().isIdentity());
}

TEST(ShapeNode, BoxOfAChildWithAShapeIsThatOfItsShapeBeforeItsTransform)
{
    ShapeNode root(QStringLiteral("root"));
    ShapeNode* a = addNode(root, "a", test::translation(1.0F, 0.0F, 0.0F), true);
    addNode(*a, "a1", test::translation(50.0F, 0.0F, 0.0F), true);
    EXPECT_EQ(a->getBoundingBox(), primitives::BoundingBox(0.0F, 0.0F, 0.0F, 1.0F, 1.0F, 1.0F));
}

TEST(ShapeNode, BoxOfTheRootHoldsTheWholeTreeWithoutTheRootsTransform)
{
    ShapeNode root(QStringLiteral("root"));
    root.setTransform(test::translation(100.0F, 0.0F, 0.0F));
    ShapeNode* a = addNode(root, "a", test::translation(1.0F, 0.0F, 0.0F), false);
    addNode(*a, "a1", test::translation(0.0F, 2.0F, 0.0F), true);
    addNode(root, "b", test::translation(0.0F, 0.0F, -3.0F), true);
    EXPECT_EQ(root.getBoundingBox(), primitives::BoundingBox(0.0F, 0.0F, -3.0F, 2.0F, 3.0F, 1.0F));
    EXPECT_EQ(a->getBoundingBox(), primitives::BoundingBox(0.0F, 2.0F, 0.0F, 1.0F, 3.0F, 1.0F));
}

TEST(ShapeNode, RootWithAShapeCountsItTogetherWithItsChildren)
{
    ShapeNode root(QStringLiteral("root"));
    root.setShape(unitShape());
    addNode(root, "a", test::translation(5.0F, 0.0F, 0.0F), true);
    EXPECT_EQ(root.getBoundingBox(), primitives::BoundingBox(0.0F, 0.0F, 0.0F, 6.0F, 1.0F, 1.0F));
}

TEST(ShapeNode, AChildIsMovedFromItsFormerParent)
{
    ShapeNode first(QStringLiteral("first"));
    ShapeNode second(QStringLiteral("second"));
    ShapeNode* child = addNode(first, "child", {}, true);
    second.addChild(child);
    EXPECT_EQ(first.getNumChildren(), 0);
    ASSERT_EQ(second.getNumChildren(), 1);
    EXPECT_EQ(second.getChild(0), child);
    EXPECT_EQ(child->getParent(), &second);
}

TEST(ShapeNode, NullAndAncestorsAreNoChildren)
{
    ShapeNode root(QStringLiteral("root"));
    ShapeNode* a = addNode(root, "a", {}, false);
    root.addChild(nullptr);
    root.addChild(&root);
    a->addChild(&root);
    EXPECT_EQ(root.getNumChildren(), 1);
    EXPECT_EQ(a->getNumChildren(), 0);
}

TEST(ShapeNode, ADeepTreeIsWalkedAndDestroyed)
{
    auto root = std::make_unique<ShapeNode>(QStringLiteral("root"));
    ShapeNode* deepest = root.get();
    auto subtree = std::make_unique<ShapeNode>(QStringLiteral("leaf"));
    subtree->setShape(unitShape());
    // Builds the tree from the leaf up, because addChild() visits the ancestors of its node.
    for (int depth = 0; depth < 200000; ++depth) {
        auto parent = std::make_unique<ShapeNode>(QString());
        parent->addChild(subtree.release());
        subtree = std::move(parent);
    }
    deepest->addChild(subtree.release());
    EXPECT_EQ(walk(*root).size(), 1U);
    root.reset();
}

// ---- the factory

// Returns six times the enclosed volume, positive if the triangles are counterclockwise seen from
// outside.
double sixfoldVolume(const geometry::Mesh& mesh)
{
    double sum = 0.0;
    const QList<int>& indices = mesh.getIndices();
    for (qsizetype first = 0; first < mesh.getNumIndices(); first += 4) {
        const QVector3D a = mesh.getVertices()[indices[first]];
        const QVector3D b = mesh.getVertices()[indices[first + 1]];
        const QVector3D c = mesh.getVertices()[indices[first + 2]];
        sum += double(QVector3D::dotProduct(a, QVector3D::crossProduct(b, c)));
    }
    return sum;
}

// Returns the number of edges that do not occur once in each direction.
int openEdges(const geometry::Mesh& mesh)
{
    std::map<std::pair<int, int>, int> balance;
    const QList<int>& indices = mesh.getIndices();
    for (int t = 0; t < mesh.getNumIndices() / 4; ++t) {
        for (int corner = 0; corner < 3; ++corner) {
            const int a = indices[4 * t + corner];
            const int b = indices[4 * t + (corner + 1) % 3];
            balance[std::minmax(a, b)] += a < b ? 1 : -1;
        }
    }
    int open = 0;
    for (const auto& edge : balance)
        open += edge.second != 0 ? 1 : 0;
    return open;
}

class ShapeFactoryTest : public testing::Test
{
protected:
    const geometry::Mesh& mesh(geometry::ShapeNode* made)
    {
        node.reset(made);
        return node->getShape()->getMesh();
    }

    geometry::ShapeLoader loader;
    geometry::ShapeFactory factory{loader};
    std::unique_ptr<ShapeNode> node;
};

// The area of a regular polygon of 32 sides in the unit circle, 16 sin(pi / 16).
constexpr double kPolygonArea = 3.1214451522580524;

TEST_F(ShapeFactoryTest, CylinderIsCentredOnItsOriginAlongZ)
{
    const geometry::Mesh& cylinder = mesh(factory.generateCylinder(3.5F, 10.0F, false, false));
    EXPECT_EQ(cylinder.getBoundingBox(),
              primitives::BoundingBox(-3.5F, -3.5F, -5.0F, 3.5F, 3.5F, 5.0F));
    EXPECT_EQ(node->getName(), QStringLiteral("Cylinder"));
    EXPECT_TRUE(node->getTransform().isIdentity());
}

TEST_F(ShapeFactoryTest, CylinderOf32SegmentsIsASolidWithItsTrianglesOutwards)
{
    const geometry::Mesh& cylinder = mesh(factory.generateCylinder(2.0F, 10.0F, false, false));
    EXPECT_EQ(cylinder.getNumIndices() / 4, 128);
    EXPECT_EQ(openEdges(cylinder), 0);
    EXPECT_NEAR(sixfoldVolume(cylinder), 6.0 * kPolygonArea * 4.0 * 10.0, 1e-3);
}

TEST_F(ShapeFactoryTest, CylinderLeavesOutTheLidsOfOpenEnds)
{
    const auto lids = [this](bool openTop, bool openBottom) {
        std::set<float> levels; // at which a lid has its center
        const geometry::Mesh& cylinder =
            mesh(factory.generateCylinder(2.0F, 10.0F, openTop, openBottom));
        for (int i = 0; i < cylinder.getNumIndices(); ++i) {
            const int number = cylinder.getIndices()[i];
            if (number >= 0 && cylinder.getVertices()[number].x() == 0.0F &&
                cylinder.getVertices()[number].y() == 0.0F)
                levels.insert(cylinder.getVertices()[number].z());
        }
        return levels;
    };
    EXPECT_EQ(lids(false, false), (std::set<float>{-5.0F, 5.0F}));
    EXPECT_EQ(lids(true, false), (std::set<float>{-5.0F}));
    EXPECT_EQ(lids(false, true), (std::set<float>{5.0F}));
    EXPECT_EQ(lids(true, true), (std::set<float>{}));
}

TEST_F(ShapeFactoryTest, ConeHasItsBaseAtTheOriginAndTheTipUp)
{
    const geometry::Mesh& cone = mesh(factory.generateCone(3.5F, 3.0F, false));
    EXPECT_EQ(cone.getBoundingBox(), primitives::BoundingBox(-3.5F, -3.5F, 0.0F, 3.5F, 3.5F, 3.0F));
    EXPECT_EQ(cone.getNumIndices() / 4, 64);
    EXPECT_EQ(openEdges(cone), 0);
    EXPECT_NEAR(sixfoldVolume(cone), 2.0 * kPolygonArea * 12.25 * 3.0, 1e-3);
    int vertexAtTip = 0;
    for (const QVector3D& vertex : cone.getVertices())
        vertexAtTip += vertex == QVector3D(0.0F, 0.0F, 3.0F) ? 1 : 0;
    EXPECT_EQ(vertexAtTip, 1);
    EXPECT_EQ(node->getName(), QStringLiteral("Cone"));
}

TEST_F(ShapeFactoryTest, OpenConeHasNoBase)
{
    EXPECT_EQ(mesh(factory.generateCone(3.5F, 3.0F, true)).getNumIndices() / 4, 32);
}

TEST_F(ShapeFactoryTest, ConeOfHeightZeroIsAFlatDisc)
{
    const geometry::Mesh& disc = mesh(factory.generateCone(2.0F, 0.0F, false));
    EXPECT_EQ(disc.getNumIndices() / 4, 64);
    EXPECT_EQ(disc.getBoundingBox(), primitives::BoundingBox(-2.0F, -2.0F, 0.0F, 2.0F, 2.0F, 0.0F));
}

TEST_F(ShapeFactoryTest, RingsAreRegularAndExactlySymmetric)
{
    const geometry::Mesh& cylinder = mesh(factory.generateCylinder(1.0F, 1.0F, false, false));
    for (int segment = 0; segment < 32; ++segment) {
        const QVector3D vertex = cylinder.getVertices()[segment];
        const double angle = segment * 3.14159265358979323846 / 16.0;
        EXPECT_NEAR(double(vertex.x()), std::cos(angle), 6e-8) << segment;
        EXPECT_NEAR(double(vertex.y()), std::sin(angle), 6e-8) << segment;
        const QVector3D opposite = cylinder.getVertices()[(segment + 16) % 32];
        EXPECT_EQ(vertex.x(), -opposite.x());
        EXPECT_EQ(vertex.y(), -opposite.y());
    }
}

TEST_F(ShapeFactoryTest, TakesLengthsAsTheyAre)
{
    EXPECT_EQ(mesh(factory.generateCylinder(0.0F, 2.0F, false, false)).getBoundingBox(),
              primitives::BoundingBox(0.0F, 0.0F, -1.0F, 0.0F, 0.0F, 1.0F));
    EXPECT_EQ(mesh(factory.generateCone(1.0F, -2.0F, false)).getBoundingBox(),
              primitives::BoundingBox(-1.0F, -1.0F, -2.0F, 1.0F, 1.0F, 0.0F));
    EXPECT_TRUE(mesh(factory.generateCone(std::nanf(""), 1.0F, false)).getNumIndices() / 4 == 64);
}

// ---- the loader

TEST_F(ShapeFactoryTest, MakesShapesOfTheLoader)
{
    loader.insert(QStringLiteral("Screw"), unitShape());
    EXPECT_EQ(mesh(factory.generateLoaded(QStringLiteral("Screw"))).getNumIndices(), 4);
    EXPECT_EQ(node->getName(), QStringLiteral("Screw"));
}

TEST_F(ShapeFactoryTest, MakesANodeWithoutShapeForANameThatTheLoaderDoesNotKnow)
{
    node.reset(factory.generateLoaded(QStringLiteral("Screw")));
    EXPECT_EQ(node->getShape(), nullptr);
    EXPECT_EQ(loader.load(QStringLiteral("Screw")), nullptr);
}

} // namespace
