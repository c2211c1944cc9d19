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

/// Holds a mesh in the frame of the node that carries it, and the box of the mesh.
class COREALGORITHMS_MODEL_EXPORT Shape
{
public:
    /// Copies the mesh and computes its box.
    explicit Shape(const Mesh& surface);

    /// Returns the mesh.
    const Mesh& getMesh() const { return mesh; }
    /// Returns the smallest box around the mesh.
    const primitives::BoundingBox& getBoundingBox() const { return box; }

private:
    Mesh mesh;
    primitives::BoundingBox box;
};

/// Represents a named node of a tree of shapes. A node may carry a shape; its transform maps its
/// own frame into that of its parent. A node owns its children.
class COREALGORITHMS_MODEL_EXPORT ShapeNode
{
public:
    /// Constructs a root without a shape, placed by the identity. Its name does not change.
    explicit ShapeNode(const QString& nodeName);
    ShapeNode(const ShapeNode&) = delete;
    ShapeNode& operator=(const ShapeNode&) = delete;
    /// Deletes the children without recursion, so that the depth of the tree takes no stack.
    ~ShapeNode();

    /// Returns the name.
    const QString& getName() const { return name; }
    /// Returns the matrix from the node's own frame into that of its parent.
    const QMatrix4x4& getTransform() const { return transform; }
    /// Sets the matrix from the node's own frame into that of its parent.
    void setTransform(const QMatrix4x4& parentFromNode);

    /// Returns the shape, or null for a node that only holds children.
    const Shape* getShape() const { return shape ? &*shape : nullptr; }
    /// Copies the shape into the node.
    void setShape(const Shape& carried);

    /// Appends a child and takes ownership, also if it is a child of another node. Does nothing for
    /// null, for this node and for a node above it; these stay with the caller.
    void addChild(ShapeNode* child);
    /// Returns the number of children.
    int getNumChildren() const { return static_cast<int>(children.size()); }
    /// Returns a child, or null for a number out of range.
    ShapeNode* getChild(int number) const;
    /// Returns the parent, or null for a root.
    ShapeNode* getParent() const { return parent; }

    /// Returns a box in the node's own frame, without its transform. A child with a shape has the
    /// box of the shape. A root, and a child without a shape, has the box around its own shape and
    /// the placed boxes of all shapes below. Returns the null box if there are none.
    primitives::BoundingBox getBoundingBox() const;

    /// Begins a walk through the nodes with a shape from this node down: a node before its
    /// children, children in order.
    ConstShapeNodeIteratorBase cbeginNodesWithShape() const;
    /// Returns the end of every walk.
    ConstShapeNodeIteratorBase cend() const;

private:
    friend class ShapeNodeIteratorBase;

    QString name;
    QMatrix4x4 transform;
    std::optional<Shape> shape;
    ShapeNode* parent = nullptr;
    std::vector<std::unique_ptr<ShapeNode>> children;
};

/// Marks a position in the walk through a tree of shapes. The tree must not change during the walk.
class COREALGORITHMS_MODEL_EXPORT ShapeNodeIteratorBase
{
public:
    /// Moves to the next node with a shape. Does nothing at the end.
    ShapeNodeIteratorBase& operator++();
    /// Returns true if the two are at different nodes.
    bool operator!=(const ShapeNodeIteratorBase& other) const;

    /// Returns the product of the transforms on the way from the start of the walk down to this
    /// node, outermost left and without that of the start. Returns the identity at the end.
    QMatrix4x4 getCumulativeTransform() const;

protected:
    /// Begins at the first node with a shape from `start` down, or at the end for null.
    explicit ShapeNodeIteratorBase(const ShapeNode* start);
    /// Returns the current node, or null at the end.
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

/// Walks through a tree without changing its nodes.
class COREALGORITHMS_MODEL_EXPORT ConstShapeNodeIteratorBase : public ShapeNodeIteratorBase
{
public:
    /// Returns the current node, or null at the end.
    const ShapeNode* operator->() const { return node(); }
    /// Returns the current node. Must not be called at the end.
    const ShapeNode& operator*() const { return *node(); }

private:
    friend class ShapeNode;
    using ShapeNodeIteratorBase::ShapeNodeIteratorBase;
};

/// Loads shapes that are not built from measures, for instance from a catalog of implants. This one
/// returns what was inserted.
class COREALGORITHMS_MODEL_EXPORT ShapeLoader
{
public:
    ShapeLoader() = default;
    ShapeLoader(const ShapeLoader&) = delete;
    ShapeLoader& operator=(const ShapeLoader&) = delete;
    virtual ~ShapeLoader();

    /// Adds or replaces the shape of a name.
    void insert(const QString& shapeName, const Shape& shape);
    /// Returns a copy of the shape of a name, or null for an unknown name.
    virtual std::unique_ptr<Shape> load(const QString& shapeName) const;

private:
    QHash<QString, Shape> shapes;
};

/// Makes nodes with shapes, which the caller owns. Round shapes have 32 segments, the first vertex
/// of every ring on the x axis, and triangles that are counterclockwise seen from outside.
///
/// Lengths in mm are used as given: a radius of 0 gives a line, a negative height turns the shape
/// upside down, and NaN gives vertices of NaN.
class COREALGORITHMS_MODEL_EXPORT ShapeFactory
{
public:
    /// Constructs a factory that loads shapes with this loader, which must outlive it.
    explicit ShapeFactory(ShapeLoader& shapeLoader);
    ShapeFactory(const ShapeFactory&) = delete;
    ShapeFactory& operator=(const ShapeFactory&) = delete;
    virtual ~ShapeFactory();

    /// Returns a cylinder along z, centered on its own origin. An open end has no lid.
    virtual ShapeNode* generateCylinder(float radius, float height, bool openTop,
                                        bool openBottom) const;
    /// Returns a cone whose base is at its own origin and whose tip is at z = height. With height
    /// 0, returns a flat disc. An open base has no lid.
    virtual ShapeNode* generateCone(float radius, float height, bool openBase) const;
    /// Returns a node with a shape of the loader. For an unknown name, returns a node without a
    /// shape.
    virtual ShapeNode* generateLoaded(const QString& shapeName) const;

private:
    ShapeLoader& loader; // not owned
};

} // namespace geometry
