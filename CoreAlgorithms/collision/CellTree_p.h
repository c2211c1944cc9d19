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

/// Eight triangles with their planes, as planeOf() gives them.
struct alignas(kLaneAlignment) TriangleBlock
{
    Lanes vertex[3][3]; // by vertex, then by axis
    Lanes normal[3];
    Lanes offset;
};

/// Eight boxes.
struct alignas(kLaneAlignment) BoxBlock
{
    Lanes low[3];
    Lanes high[3];
};

/// The triangles of one cell of a mesh in blocks of neighbours, and a tree of boxes over the blocks
/// with eight children a node. Triangles with a vertex that is not finite, or whose entries name no
/// vertex, are left out.
///
/// Level 0 of the tree holds the boxes of the blocks, eight to a BoxBlock: box c of its node n is
/// that of block 8n + c. Box c of node n of a higher level is that of node 8n + c of the level
/// below. Places beyond the last triangle, block or node repeat the last.
class CellTree
{
public:
    CellTree(const geometry::Mesh& mesh, const QList<int>& triangles);

    int numTriangles = 0;
    std::vector<TriangleBlock> blocks;
    std::vector<BoxBlock> nodes; // level after level
    struct Level
    {
        int start;    // of its nodes
        int numBoxes; // boxes that do not repeat the last
    };
    std::vector<Level> levels; // the last is the root's
    std::array<float, 3> low{};
    std::array<float, 3> high{};
};

/// Where the cells of a mesh are in the grid that they come from.
struct CellPlaces
{
    CellGrid grid;
    std::vector<int> numbers; // of the cells, ascending
    QList<int> wideTriangles; // in more than eight cells, ascending
};

/// The trees that speed up the tests of one mesh. Each is made when it is first needed, since most
/// cells never come near anything; any thread may be the one that makes it.
///
/// A triangle is in the trees of all its cells unless it is wide. Wide triangles have one tree, so
/// that the trees of a mesh grow with its triangles, whatever its extent. Whether the cells let a
/// pair with a wide triangle through is computed from the grid.
///
/// Keeps the vertices, indices and cells from which it was made, shared with the mesh. They do not
/// change here when those of the mesh do.
class CellTrees
{
public:
    /// Makes trees for cells of any origin: all triangles are treated as narrow.
    CellTrees(const geometry::Mesh& sourceMesh,
              const QList<geometry::BoundedTriangles>& sourceCells);
    CellTrees(const geometry::Mesh& sourceMesh,
              const QList<geometry::BoundedTriangles>& sourceCells, CellPlaces placesOfCells);

    /// Returns whether these are the vertices, indices and cells of the trees: the same data, not
    /// only equal ones.
    bool areOf(const geometry::Mesh& mesh, const QList<geometry::BoundedTriangles>& cells) const;

    /// Returns the number of cells that hold narrow triangles; they are numbered from 0 here.
    int numCells() const { return static_cast<int>(narrowCells.size()); }
    const primitives::BoundingBox& boxOf(int cell) const
    {
        return cells[narrowCells[cell].place].box;
    }
    /// Returns the tree of a cell's narrow triangles.
    const CellTree& treeOf(int cell) const;
    /// Calls `test` with the number of each cell that may touch the box until one call returns
    /// true, and returns whether one did.
    template <typename Test>
    bool anyCellNear(const primitives::BoundingBox& box, Test test) const;

    /// Returns whether the cells are known to be those of a grid.
    bool hasGrid() const { return isOfGrid; }
    bool hasWideTriangles() const { return !places.wideTriangles.isEmpty(); }
    const CellTree& wideTree() const;
    /// Returns the grid of the cells, if hasGrid().
    const CellGrid& grid() const { return places.grid; }

private:
    static constexpr int kFewCells = 8; // which are compared one by one

    // A tree that the first thread to need it makes.
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
        int number; // in the grid
        int place;  // in `cells`
    };

    geometry::Mesh mesh;
    QList<geometry::BoundedTriangles> cells;
    CellPlaces places{};
    bool isOfGrid = false;
    std::vector<NarrowCell> narrowCells;
    std::vector<LazyTree> trees; // of the narrow cells
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
    if (numCells() <= kFewCells || !isOfGrid)
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
