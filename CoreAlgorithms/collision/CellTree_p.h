// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/collision/CellGrid_p.h>
#include <CoreAlgorithms/collision/Lanes_p.h>
#include <CoreAlgorithms/model/data/Mesh.h>

#include <QList>

#include <algorithm>
#include <array>
#include <atomic>
#include <vector>

namespace collision {

/// Holds eight triangles with their planes, as planeOf() computes them.
struct alignas(kLaneAlignment) TriangleBlock
{
    Lanes vertex[3][3]; // by vertex, then by axis
    Lanes normal[3];
    Lanes offset;
};

/// Holds eight boxes.
struct alignas(kLaneAlignment) BoxBlock
{
    Lanes low[3];
    Lanes high[3];
};

/// Holds the triangles of one cell of a mesh in blocks of neighbors, and a tree of boxes over the
/// blocks with eight children per node.
///
/// Level 0 of the tree holds the boxes of the blocks, eight to a BoxBlock: box c of its node n is
/// that of block 8n + c. Box c of node n of a higher level is that of node 8n + c of the level
/// below. Places beyond the last triangle, block or node repeat the last one.
class CellTree
{
public:
    /// Builds the tree over these triangles of the mesh. Leaves out triangles that the mesh does
    /// not have, that have a vertex that is not finite, or whose entries name no vertex. Without
    /// triangles, the tree has no blocks, nodes or levels.
    CellTree(const geometry::Mesh& mesh, const QList<int>& triangles);

    int numTriangles = 0;
    std::vector<TriangleBlock> blocks;
    std::vector<BoxBlock> nodes; // level after level
    struct Level
    {
        int start;    // the place of the level's first node in `nodes`
        int numBoxes; // without those that repeat the last box
    };
    std::vector<Level> levels;   // the root's level is the last one
    std::array<float, 3> low{};  // the least coordinates of all triangles
    std::array<float, 3> high{}; // the greatest ones
};

/// Describes the grid from which the cells of a mesh come.
struct CellPlaces
{
    CellGrid grid;
    std::vector<int> numbers; // those of the cells in the grid, ascending
    QList<int> wideTriangles; // those in more than eight cells, ascending
};

/// Holds the trees that speed up the tests of one mesh. Each tree is made when it is first needed,
/// since most cells of a long mesh never come near another object. Several threads may use the same
/// trees.
///
/// A triangle is in the trees of all its cells unless it is wide, that is, in more than eight
/// cells. All wide triangles share one tree, so that the size of the trees grows with the number of
/// triangles and not with the extent of the mesh. Whether the cells let a pair with a wide triangle
/// through is computed from the grid.
///
/// The trees share the vertices, indices and cells of the mesh from which they were made. A later
/// change of the mesh does not change them; see areOf().
class CellTrees
{
public:
    /// Prepares trees for cells that need not come from a grid. All triangles are treated as
    /// narrow.
    CellTrees(const geometry::Mesh& sourceMesh,
              const QList<geometry::BoundedTriangles>& sourceCells);
    /// Prepares trees for the cells of a grid.
    CellTrees(const geometry::Mesh& sourceMesh,
              const QList<geometry::BoundedTriangles>& sourceCells, CellPlaces placesOfCells);

    /// Returns whether the vertices, indices and cells are those of the trees: the same data in
    /// memory, not only equal data.
    bool areOf(const geometry::Mesh& mesh, const QList<geometry::BoundedTriangles>& cells) const;

    /// Returns the number of cells that hold narrow triangles. The operations below number these
    /// cells from 0.
    int numCells() const { return static_cast<int>(narrowCells.size()); }
    /// Returns the box of a cell.
    const primitives::BoundingBox& boxOf(int cell) const
    {
        return cells[narrowCells[cell].place].box;
    }
    /// Returns the tree of a cell's narrow triangles, and makes it at the first call.
    const CellTree& treeOf(int cell) const;
    /// Calls `test` with the number of each cell that may touch the box until a call returns true,
    /// and returns whether one did. Few cells, and cells that do not come from a grid, are all
    /// visited.
    template <typename Test>
    bool anyCellNear(const primitives::BoundingBox& box, Test test) const;

    /// Returns whether the trees were made with the grid of the cells.
    bool hasGrid() const { return isOfGrid; }
    /// Returns whether there are wide triangles, which implies hasGrid().
    bool hasWideTriangles() const { return !places.wideTriangles.isEmpty(); }
    /// Returns the tree of all wide triangles, and makes it at the first call.
    const CellTree& wideTree() const;
    /// Returns the grid of the cells. Call this only if hasGrid().
    const CellGrid& grid() const { return places.grid; }

private:
    // Up to this many cells, a look at each costs less than a search for those near the box.
    static constexpr int FEW_CELLS = 8;

    // Holds a tree that is made when it is first needed, by whichever thread needs it.
    class LazyTree
    {
    public:
        LazyTree() = default;
        LazyTree(const LazyTree&) = delete;
        LazyTree& operator=(const LazyTree&) = delete;
        ~LazyTree() { delete made.load(std::memory_order_relaxed); }
        template <typename Make>
        const CellTree& get(Make make) const;

    private:
        mutable std::atomic<const CellTree*> made{nullptr};
    };

    struct NarrowCell
    {
        int number; // its number in the grid
        int place;  // its place in `cells`
    };

    geometry::Mesh mesh;
    QList<geometry::BoundedTriangles> cells;
    CellPlaces places{};
    bool isOfGrid = false;
    std::vector<NarrowCell> narrowCells;
    std::vector<LazyTree> trees; // one for each narrow cell
    LazyTree treeOfWide;
};

template <typename Test>
bool CellTrees::anyCellNear(const primitives::BoundingBox& box, Test test) const
{
    const auto anyOf = [&](auto begin, auto end) {
        for (auto cell = begin; cell != end; ++cell) {
            if (test(static_cast<int>(cell - narrowCells.begin())))
                return true;
        }
        return false;
    };
    if (numCells() <= FEW_CELLS || !isOfGrid)
        return anyOf(narrowCells.begin(), narrowCells.end());
    const CellRange range = places.grid.rangeTouching(box);
    if (collision::numCells(range) == 0)
        return false;
    if (collision::numCells({CellSpan{0, 0}, range[1], range[2]}) >= numCells())
        return anyOf(narrowCells.begin(), narrowCells.end());
    const auto firstFrom = [this](int x, int y, int z) {
        return std::lower_bound(
            narrowCells.begin(), narrowCells.end(), places.grid.numberOf(x, y, z),
            [](const NarrowCell& cell, int number) { return cell.number < number; });
    };
    for (int z = range[2].first; z <= range[2].last; ++z) {
        for (int y = range[1].first; y <= range[1].last; ++y) {
            const auto begin = firstFrom(range[0].first, y, z);
            if (anyOf(begin, firstFrom(range[0].last + 1, y, z)))
                return true;
        }
    }
    return false;
}

} // namespace collision
