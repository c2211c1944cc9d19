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

/// Holds one mesh of an object, placed in the scene and divided into the cells of a grid. Lengths
/// are scene mm.
///
/// This is a value type: copies share data, and changing one copy changes no other. Several threads
/// may test the same mesh or copies of it.
struct BoundedMesh
{
    geometry::Mesh mesh;
    primitives::BoundingBox box;
    QList<geometry::BoundedTriangles> cells;
    /// Speeds up the tests of this mesh; see CellTrees. May be null. Is ignored unless the
    /// vertices, the indices and the cells are still the data from which it was made.
    std::shared_ptr<const CellTrees> trees;
};

/// Holds the meshes of one object and the box of the whole object. An object without meshes
/// collides with nothing.
struct BoundedObject
{
    QList<BoundedMesh> meshes;
    primitives::BoundingBox box;
};

/// Moves the meshes of a tree of shapes into the scene by `transform` and divides them into cells
/// of `cellSize` mm, or of defaultCellSize() if there is none. The root's own transform is left
/// out.
///
/// Returns an empty object if a placed mesh has a vertex that is not finite, or an index entry that
/// names no vertex.
BoundedObject makeBoundedObject(const geometry::ShapeNode& root, const QMatrix4x4& transform,
                                std::optional<float> cellSize);

/// Moves the mesh of a surface into the scene by its object transform and divides it into cells of
/// 5 mm. Both boxes are the model's scene bounding box.
///
/// Queries the scene bounding box, then the mesh, then the object transform, once each. Returns an
/// empty object if the placed mesh has a vertex that is not finite, or an index entry that names no
/// vertex.
BoundedObject makeBoundedObject(const Surface3DModel& model);

/// Returns the cell size in mm that divides the box of a mesh of `numTriangles` into about
/// numTriangles^(2/3) cells. The result is not finite for a mesh without triangles.
float defaultCellSize(int numTriangles, const primitives::BoundingBox& box);

/// Divides the box into cells that are at most `cellSize` mm long along each axis, and lists every
/// triangle in the cells that its box touches. Returns the cells that have triangles, ordered along
/// x, then y, then z.
///
/// Returns one cell with all triangles
/// - if the cell size is not positive and finite, or the box or a vertex is not finite,
/// - if there would be more than 2^20 cells,
/// - if, for a mesh of n triangles, more than 2^16 + n cells would have triangles, or their lists
///   more than 2^20 + 16 n entries. In this last case, overlaps() still gives the verdict of the
///   cells that there would be.
///
/// A triangle with an index entry that names no vertex is in no cell.
QList<geometry::BoundedTriangles> makeBoundedTriangles(const geometry::Mesh& mesh,
                                                       const primitives::BoundingBox& box,
                                                       float cellSize);

/// Returns whether a triangle of `a` intersects a triangle of `b`. An object inside another one,
/// whose surfaces do not meet, does not overlap it.
///
/// Compares the boxes of the objects, then those of the meshes, then those of the cells, then the
/// box of a triangle of `a` with the cell of `b`. Boxes that only touch pass. The pairs that are
/// left are decided by trianglesIntersect(), with the triangle of `a` first. The verdict can depend
/// on the order of `a` and `b`. Safe to call from several threads.
bool overlaps(const BoundedObject& a, const BoundedObject& b);
/// Returns whether a triangle of mesh `a` intersects a triangle of mesh `b`, as for objects.
bool overlaps(const BoundedMesh& a, const BoundedMesh& b);

/// Returns what overlaps() returns, computed with the registers that every machine has; overlaps()
/// uses the widest registers of this machine.
bool overlapsWithPlainRegisters(const BoundedMesh& a, const BoundedMesh& b);

} // namespace collision
