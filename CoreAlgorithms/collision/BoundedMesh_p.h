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

/// One mesh of an object, placed in the scene and divided into the cells of a grid. A value: copies
/// share data, but a change of one copy changes no other, and several threads may test the same
/// mesh or copies of it.
struct BoundedMesh
{
    geometry::Mesh mesh;
    primitives::BoundingBox box;
    QList<geometry::BoundedTriangles> cells;
    /// Speeds up the tests of this mesh; see CellTrees. It comes after what describes the mesh. It
    /// is ignored if the vertices, the indices or the cells are no longer those it was made from,
    /// and may be null.
    std::shared_ptr<const CellTrees> trees;
};

/// The meshes of one object and the box of the whole. An empty one collides with nothing.
struct BoundedObject
{
    QList<BoundedMesh> meshes;
    primitives::BoundingBox box;
};

/// Places the meshes of a tree of shapes by the transform. Without a cell size, a mesh gets cells
/// of defaultCellSize().
///
/// Here and below, the whole object is empty if a mesh has a vertex that is not finite, or an index
/// entry that names no vertex.
BoundedObject makeBoundedObject(const geometry::ShapeNode& root, const QMatrix4x4& transform,
                                std::optional<float> cellSize);

/// Places the mesh of a surface in the scene, in cells of 5 mm. Queries the scene bounding box,
/// then the mesh, then the object transform, once each.
BoundedObject makeBoundedObject(const Surface3DModel& model);

/// Returns the cell size in mm that gives a mesh of `numTriangles` in the box about
/// numTriangles^(2/3) cells.
float defaultCellSize(int numTriangles, const primitives::BoundingBox& box);

/// Divides the box into cells of about `cellSize` (never longer) and sorts every triangle into the
/// cells that its box touches. Cells without triangles are left out. Cell (x, y, z) follows
/// (x - 1, y, z).
///
/// There is one cell for a cell size or a box that is not positive and finite, for a vertex that is
/// not finite, and instead of more than 2^20 cells. For a mesh of n triangles, there is also one
/// cell instead of more than 2^16 + n cells with triangles, or of more than 2^20 + 16 n entries in
/// their lists; overlaps() then gives the verdict of these cells all the same. A triangle with an
/// index entry that names no vertex is in no cell.
QList<geometry::BoundedTriangles> makeBoundedTriangles(const geometry::Mesh& mesh,
                                                       const primitives::BoundingBox& box,
                                                       float cellSize);

/// Returns whether the surfaces intersect: some triangle of `a` and some triangle of `b`. An object
/// inside another one does not overlap it.
///
/// The boxes of the objects are compared, then those of the meshes, then those of the cells, then
/// the box of a triangle of `a` with the cell of `b`. trianglesIntersect() decides the rest, with
/// the triangle of `a` first. All box tests are closed. The verdict may depend on the order of `a`
/// and `b`. Safe to call from several threads.
bool overlaps(const BoundedObject& a, const BoundedObject& b);
/// Returns the same for two meshes.
bool overlaps(const BoundedMesh& a, const BoundedMesh& b);

/// Returns the same with the registers that every machine has; overlaps() uses the widest ones of
/// this machine.
bool overlapsWithPlainRegisters(const BoundedMesh& a, const BoundedMesh& b);

} // namespace collision
