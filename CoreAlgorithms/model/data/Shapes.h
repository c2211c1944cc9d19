// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QHash>
#include <QMatrix4x4>
#include <QString>

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace geometry {

class ConstShapeNodeIteratorBase;

/// A mesh in the frame of the node that carries it.
class COREALGORITHMS_MODEL_EXPORT Shape
{
public:
    explicit Shape(const Mesh& surface);

    const Mesh& getMesh() const { return mesh; }
    const primitives::BoundingBox& getBoundingBox() const { return box; }

private:
    Mesh mesh;
    primitives::BoundingBox box;
};

/// A named node of a tree of shapes. A node may carry a shape; its transform maps its own frame
/// into that of its parent. A node owns its children.
class COREALGORITHMS_MODEL_EXPORT ShapeNode
{
public:
    explicit ShapeNode(const QString& nodeName);
    ShapeNode(const ShapeNode&) = delete;
    ShapeNode& operator=(const ShapeNode&) = delete;
    /// Takes no stack that grows with the depth of the tree.
    ~ShapeNode();

    const QString& getName() const { return name; }
    const QMatrix4x4& getTransform() const { return transform; }
    void setTransform(const QMatrix4x4& parentFromNode);

    /// Null for a node that only holds children.
    const Shape* getShape() const { return shape ? &*shape : nullptr; }
    void setShape(const Shape& carried);

    /// Takes ownership, also of a node that is another's child by now. A null child, and one that
    /// this node stands below, are ignored and stay with the caller.
    void addChild(ShapeNode* child);
    int getNumChildren() const { return static_cast<int>(children.size()); }
    /// Null if there is no child of that number.
    ShapeNode* getChild(int number) const;
    ShapeNode* getParent() const { return parent; }

    /// In the node's own frame, its transform left out: of a child with a shape, the box of its
    /// shape; of a root, and of a child without a shape, the box round the placed boxes of all
    /// shapes below and of its own. Null if there is none.
    primitives::BoundingBox getBoundingBox() const;

    /// The nodes that have a shape, from this node downwards: a node before its children, children
    /// in order.
    ConstShapeNodeIteratorBase cbeginNodesWithShape() const;
    ConstShapeNodeIteratorBase cend() const;

private:
    friend class ShapeNodeIteratorBase;

    QString name;
    QMatrix4x4 transform;
    std::optional<Shape> shape;
    ShapeNode* parent = nullptr;
    std::vector<std::unique_ptr<ShapeNode>> children;
};

/// A place in the walk through a tree of shapes. The tree must not change meanwhile.
class COREALGORITHMS_MODEL_EXPORT ShapeNodeIteratorBase
{
public:
    /// The next node with a shape. At the end it does nothing.
    ShapeNodeIteratorBase& operator++();
    bool operator!=(const ShapeNodeIteratorBase& other) const;

    /// The product of the transforms from the children of the node where the walk began down to
    /// this node, outermost left; the transform of the node where the walk began is left out.
    /// Identity at the end.
    QMatrix4x4 getCumulativeTransform() const;

protected:
    /// The first node with a shape from `start` downwards; the end for null.
    explicit ShapeNodeIteratorBase(const ShapeNode* start);
    const ShapeNode* node() const { return path.empty() ? nullptr : path.back().node; }

private:
    struct Step
    {
        const ShapeNode* node;
        QMatrix4x4 cumulative;
        std::size_t nextChild;
    };

    void advance();

    std::vector<Step> path; // from the start to the current node; empty at the end
};

/// The walk that leaves the nodes as they are. At the end it must not be followed.
class COREALGORITHMS_MODEL_EXPORT ConstShapeNodeIteratorBase : public ShapeNodeIteratorBase
{
public:
    const ShapeNode* operator->() const { return node(); }
    const ShapeNode& operator*() const { return *node(); }

private:
    friend class ShapeNode;
    using ShapeNodeIteratorBase::ShapeNodeIteratorBase;
};

/// Where shapes come from that are not built from numbers, for instance a catalogue of implants.
/// This one keeps what it is given.
class COREALGORITHMS_MODEL_EXPORT ShapeLoader
{
public:
    ShapeLoader() = default;
    ShapeLoader(const ShapeLoader&) = delete;
    ShapeLoader& operator=(const ShapeLoader&) = delete;
    virtual ~ShapeLoader();

    void insert(const QString& shapeName, const Shape& shape);
    /// Null for a name that the loader does not know.
    virtual std::unique_ptr<Shape> load(const QString& shapeName) const;

private:
    QHash<QString, Shape> shapes;
};

/// Makes nodes with shapes; the caller owns them. Round shapes have 32 segments, the first vertex
/// of every ring on the x axis, and triangles that are counter-clockwise seen from outside.
///
/// Lengths are taken as they are: a radius of 0 gives a needle, a negative height turns the shape
/// over, NaN gives vertices of NaN.
class COREALGORITHMS_MODEL_EXPORT ShapeFactory
{
public:
    explicit ShapeFactory(ShapeLoader& shapeLoader);
    ShapeFactory(const ShapeFactory&) = delete;
    ShapeFactory& operator=(const ShapeFactory&) = delete;
    virtual ~ShapeFactory();

    /// Centred on its own origin along z. The open ends are left without a lid.
    virtual ShapeNode* generateCylinder(float radius, float height, bool openTop,
                                        bool openBottom) const;
    /// Stands on its own origin with the tip at z = height; of height 0, a flat disc.
    virtual ShapeNode* generateCone(float radius, float height, bool openBase) const;
    /// A shape of the loader; a node without a shape if the loader does not know the name.
    virtual ShapeNode* generateLoaded(const QString& shapeName) const;

private:
    ShapeLoader& loader; // not owned
};

} // namespace geometry
