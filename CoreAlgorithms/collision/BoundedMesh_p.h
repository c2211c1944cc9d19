// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/Mesh.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QList>

#include <memory>
#include <optional>

class QMatrix4x4;
class Surface3DModel;

namespace geometry {
class ShapeNode;
} // namespace geometry

namespace collision {

class CellTrees;

/// One mesh of an object, placed in the scene and divided into the cells of a grid.
struct BoundedMesh
{
    geometry::Mesh mesh;
    primitives::BoundingBox box;
    QList<geometry::BoundedTriangles> cells;
    /// What speeds up the tests of this mesh, shared by all copies; see CellTrees. Kept here, after what describes the
    /// mesh, since it lives and dies with the placed vertices. A mesh without it gives the same verdicts.
    std::shared_ptr<CellTrees> trees;
};

/// The meshes of one object and the box of the whole. An empty one collides with nothing.
struct BoundedObject
{
    QList<BoundedMesh> meshes;
    primitives::BoundingBox box;
};

/// The meshes of a tree of shapes, placed by the transform. Without a cell size, a mesh gets about
/// count^(2/3) cells of equal size for its `count` triangles.
///
/// Here and below: if a mesh has a vertex that is not finite, or an index entry that names no vertex, the whole
/// object is empty.
BoundedObject makeBoundedObject(const geometry::ShapeNode& root, const QMatrix4x4& transform,
                                std::optional<float> cellSize);

/// The mesh of a surface where it stands in the scene, in cells of 5 mm.
BoundedObject makeBoundedObject(const Surface3DModel& model);

/// Divides the box into cells of about `cellSize` (never longer) and sorts every triangle into the cells that its
/// box touches; cells without triangles are left out. Cell (x, y, z) follows (x - 1, y, z).
///
/// One cell is made where the grid would be without sense or measure: for a cell size or box that is not positive
/// and finite, a vertex that is not finite, more than 2^20 cells, or more than 2^26 entries in their lists. A
/// triangle with an index entry that names no vertex is in no cell.
QList<geometry::BoundedTriangles> makeBoundedTriangles(const geometry::Mesh& mesh,
                                                       const primitives::BoundingBox& box, float cellSize);

/// Whether the surfaces intersect: some triangle of a with some triangle of b. An object inside another does not.
///
/// Objects are compared by their boxes, meshes by theirs, cells by theirs, and a triangle of a by its box with the
/// cell of b; what passes is decided by trianglesIntersect() with the triangle of a first. All box tests are
/// closed. The verdict may depend on the order of a and b.
bool overlaps(const BoundedObject& a, const BoundedObject& b);
bool overlaps(const BoundedMesh& a, const BoundedMesh& b);

/// The same with the registers that every machine has, where overlaps() uses the widest of this one.
bool overlapsWithPlainRegisters(const BoundedMesh& a, const BoundedMesh& b);

} // namespace collision
