// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/data/Shapes.h>

#include <iterator>
#include <utility>

namespace geometry {
namespace {

constexpr int kSegments = 32;
constexpr int kSegmentsPerQuadrant = kSegments / 4;

// Holds cos(i * 11.25 degrees). The table is needed because the cosines of two standard libraries
// may differ in the last bit. It also makes the four quadrants exactly alike.
constexpr float kCosines[kSegmentsPerQuadrant + 1] = {
    1.0F,        0.980785251F, 0.923879504F, 0.831469595F, 0.707106769F,
    0.55557023F, 0.382683426F, 0.195090324F, 0.0F,
};

// Returns a point of the unit circle, counterclockwise from the x axis.
QVector3D directionOf(int segment)
{
    const int step = segment % kSegmentsPerQuadrant;
    const float along = kCosines[step];
    const float across = kCosines[kSegmentsPerQuadrant - step];
    switch (segment / kSegmentsPerQuadrant % 4) {
    case 0:
        return {along, across, 0.0F};
    case 1:
        return {-across, along, 0.0F};
    case 2:
        return {-along, -across, 0.0F};
    default:
        return {across, -along, 0.0F};
    }
}

void appendRing(QList<QVector3D>& vertices, float radius, float z)
{
    for (int segment = 0; segment < kSegments; ++segment) {
        const QVector3D direction = directionOf(segment);
        vertices.append({radius * direction.x(), radius * direction.y(), z});
    }
}

// Collects the index list of a mesh; the reserved size is enough for any shape here.
struct Triangles
{
    Triangles() { indices.reserve(qsizetype(4) * 4 * kSegments); }
    void add(int a, int b, int c) { indices << a << b << c << -1; }

    QList<int> indices;
};

// Adds the fan between a ring and a vertex on the axis, which is counterclockwise seen from above
// (+z), or clockwise.
void addFan(Triangles& triangles, int firstOfRing, int center, bool fromAbove)
{
    for (int segment = 0; segment < kSegments; ++segment) {
        const int a = firstOfRing + segment;
        const int b = firstOfRing + (segment + 1) % kSegments;
        if (fromAbove)
            triangles.add(a, b, center);
        else
            triangles.add(b, a, center);
    }
}

ShapeNode* makeNode(const QString& name, const QList<QVector3D>& vertices,
                    const Triangles& triangles)
{
    auto node = std::make_unique<ShapeNode>(name);
    node->setShape(Shape(Mesh(vertices, triangles.indices)));
    return node.release();
}

} // namespace

Shape::Shape(const Mesh& surface) : mesh(surface), box(surface.getBoundingBox()) {}

ShapeNode::ShapeNode(const QString& nodeName) : name(nodeName) {}

ShapeNode::~ShapeNode()
{
    std::vector<std::unique_ptr<ShapeNode>> pending = std::move(children);
    while (!pending.empty()) {
        const std::unique_ptr<ShapeNode> node = std::move(pending.back());
        pending.pop_back();
        pending.insert(pending.end(), std::make_move_iterator(node->children.begin()),
                       std::make_move_iterator(node->children.end()));
        node->children.clear();
    }
}

void ShapeNode::setTransform(const QMatrix4x4& parentFromNode)
{
    transform = parentFromNode;
}

void ShapeNode::setShape(const Shape& carried)
{
    shape = carried;
}

void ShapeNode::addChild(ShapeNode* child)
{
    if (!child)
        return;
    for (const ShapeNode* ancestor = this; ancestor; ancestor = ancestor->parent) {
        if (ancestor == child)
            return;
    }
    std::unique_ptr<ShapeNode> owned;
    if (child->parent) {
        auto& siblings = child->parent->children;
        for (auto sibling = siblings.begin(); sibling != siblings.end(); ++sibling) {
            if (sibling->get() == child) {
                owned = std::move(*sibling);
                siblings.erase(sibling);
                break;
            }
        }
    } else {
        owned.reset(child);
    }
    child->parent = this;
    children.push_back(std::move(owned));
}

ShapeNode* ShapeNode::getChild(int number) const
{
    return number >= 0 && number < getNumChildren()
               ? children[static_cast<std::size_t>(number)].get()
               : nullptr;
}

primitives::BoundingBox ShapeNode::getBoundingBox() const
{
    if (parent && shape)
        return shape->getBoundingBox();
    primitives::BoundingBox box;
    const auto end = cend();
    for (auto node = cbeginNodesWithShape(); node != end; ++node) {
        box = primitives::BoundingBox::createUnionOf(
            box, node->getShape()->getBoundingBox().transformed(node.getCumulativeTransform()));
    }
    return box;
}

ConstShapeNodeIteratorBase ShapeNode::cbeginNodesWithShape() const
{
    return ConstShapeNodeIteratorBase(this);
}

ConstShapeNodeIteratorBase ShapeNode::cend() const
{
    return ConstShapeNodeIteratorBase(nullptr);
}

ShapeNodeIteratorBase::ShapeNodeIteratorBase(const ShapeNode* start)
{
    if (!start)
        return;
    path.push_back({start, QMatrix4x4(), 0});
    if (!start->getShape())
        ++*this;
}

ShapeNodeIteratorBase& ShapeNodeIteratorBase::operator++()
{
    do
        advance();
    while (!path.empty() && !path.back().node->getShape());
    return *this;
}

bool ShapeNodeIteratorBase::operator!=(const ShapeNodeIteratorBase& other) const
{
    return node() != other.node();
}

QMatrix4x4 ShapeNodeIteratorBase::getCumulativeTransform() const
{
    return path.empty() ? QMatrix4x4() : path.back().cumulative;
}

void ShapeNodeIteratorBase::advance()
{
    while (!path.empty()) {
        Step& current = path.back();
        const auto& children = current.node->children;
        if (current.nextChild < children.size()) {
            const ShapeNode* child = children[current.nextChild++].get();
            const QMatrix4x4 cumulative = current.cumulative * child->getTransform();
            path.push_back({child, cumulative, 0});
            return;
        }
        path.pop_back();
    }
}

ShapeLoader::~ShapeLoader() = default;

void ShapeLoader::insert(const QString& shapeName, const Shape& shape)
{
    shapes.insert(shapeName, shape);
}

std::unique_ptr<Shape> ShapeLoader::load(const QString& shapeName) const
{
    const auto found = shapes.constFind(shapeName);
    return found != shapes.cend() ? std::make_unique<Shape>(*found) : nullptr;
}

ShapeFactory::ShapeFactory(ShapeLoader& shapeLoader) : loader(shapeLoader) {}

ShapeFactory::~ShapeFactory() = default;

ShapeNode* ShapeFactory::generateCylinder(float radius, float height, bool openTop,
                                          bool openBottom) const
{
    const float top = height * 0.5F;
    QList<QVector3D> vertices;
    vertices.reserve(2 * kSegments + 2);
    appendRing(vertices, radius, -top);
    appendRing(vertices, radius, top);
    vertices.append({0.0F, 0.0F, -top});
    vertices.append({0.0F, 0.0F, top});

    Triangles triangles;
    for (int segment = 0; segment < kSegments; ++segment) {
        const int next = (segment + 1) % kSegments;
        triangles.add(segment, next, kSegments + next);
        triangles.add(segment, kSegments + next, kSegments + segment);
    }
    if (!openBottom)
        addFan(triangles, 0, 2 * kSegments, false);
    if (!openTop)
        addFan(triangles, kSegments, 2 * kSegments + 1, true);
    return makeNode(QStringLiteral("Cylinder"), vertices, triangles);
}

ShapeNode* ShapeFactory::generateCone(float radius, float height, bool openBase) const
{
    QList<QVector3D> vertices;
    vertices.reserve(kSegments + 2);
    appendRing(vertices, radius, 0.0F);
    vertices.append({0.0F, 0.0F, 0.0F});
    vertices.append({0.0F, 0.0F, height});

    Triangles triangles;
    addFan(triangles, 0, kSegments + 1, true);
    if (!openBase)
        addFan(triangles, 0, kSegments, false);
    return makeNode(QStringLiteral("Cone"), vertices, triangles);
}

ShapeNode* ShapeFactory::generateLoaded(const QString& shapeName) const
{
    auto node = std::make_unique<ShapeNode>(shapeName);
    if (const std::unique_ptr<Shape> shape = loader.load(shapeName))
        node->setShape(*shape);
    return node.release();
}

} // namespace geometry
