// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes meshes, trees of shapes and their factory.

#include <CoreAlgorithms/model/contract/Requirements.h>

#include <QList>
#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

#include <concepts>
#include <type_traits>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes geometry::Mesh. Its index list has four entries per triangle, of which the fourth is
/// not read. The lists are references, so that searches of them copy nothing.
template <typename Mesh>
concept MeshValue = std::copyable<Mesh> && std::default_initializable<Mesh> &&
    requires(const Mesh& mesh, Mesh& changeable, const QMatrix4x4& matrix)
{
    { mesh.getVertices() } -> ReferenceTo<QList<QVector3D>>;
    { mesh.getIndices() } -> ReferenceTo<QList<int>>;
    { mesh.getNumIndices() } -> std::convertible_to<int>;
    changeable.applyTransformation(matrix);
};

/// Describes geometry::BoundedTriangles: one cell of a grid over a mesh, created from its box and
/// the numbers of its triangles.
template <typename Cell, typename Box>
concept GridCellValue = std::copyable<Cell> && BracedFrom<Cell, Box, QList<int>> &&
    requires(Cell& cell)
{
    { cell.box } -> Exactly<Box>;
    { cell.triangles } -> Exactly<QList<int>>;
};

/// Describes the iterators of geometry::ShapeNode over the nodes that carry a shape.
template <typename Iterator, typename End, typename Mesh, typename Box>
concept ShapeNodeIterator = requires(Iterator& node, const End& end)
{
    { node != end } -> std::convertible_to<bool>;
    ++node;
    { node.getCumulativeTransform() } -> Exactly<QMatrix4x4>;
    { node->getBoundingBox() } -> Exactly<Box>;
    { node->getShape()->getMesh() } -> Exactly<Mesh>;
};

/// Describes geometry::ShapeNode, its iterators, and the meshes and boxes to which it leads. The
/// boxes of nodes and the cumulative transforms are those that the bundled class documents.
template <typename ShapeNode, typename Mesh, typename Box>
concept ShapeNodeFamily = std::constructible_from<ShapeNode, QString> &&
    requires(const ShapeNode& node, ShapeNode& changeable, ShapeNode* child,
             const QMatrix4x4& matrix)
{
    { node.getTransform() } -> Exactly<QMatrix4x4>;
    changeable.setTransform(matrix);
    changeable.addChild(child);
    { node.getBoundingBox() } -> Exactly<Box>;
    requires ShapeNodeIterator<std::decay_t<decltype(node.cbeginNodesWithShape())>,
                               std::decay_t<decltype(node.cend())>, Mesh, Box>;
};

/// Describes geometry::ShapeFactory, which is created over a geometry::ShapeLoader. A cylinder is
/// centered on its own origin along z. The base of a cone is at its own origin, and its tip points
/// towards +z. False flags make closed solids. The caller owns the nodes.
template <typename ShapeFactory, typename ShapeLoader, typename ShapeNode>
concept ShapeFactoryFamily = std::constructible_from<ShapeFactory, ShapeLoader&> &&
    requires(const ShapeFactory& factory, float length, bool open)
{
    { factory.generateCylinder(length, length, open, open) } -> std::convertible_to<ShapeNode*>;
    { factory.generateCone(length, length, open) } -> std::convertible_to<ShapeNode*>;
};

// clang-format on

} // namespace hostcontract
