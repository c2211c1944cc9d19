// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/collision/Lanes_p.h>
#include <CoreAlgorithms/model/data/Mesh.h>

#include <QList>

#include <array>
#include <memory>
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

/// The triangles of one cell of a mesh in blocks of neighbours, and a tree of boxes over the blocks with eight
/// children a node. Triangles with a vertex that is not finite, or whose entries name no vertex, are left out.
///
/// Level 0 of the tree holds the boxes of the blocks, eight to a BoxBlock: box c of its node n is that of block 8n +
/// c. Box c of node n of a higher level is that of node 8n + c of the level below. Places beyond the last triangle,
/// block or node repeat the last.
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

/// The trees of a mesh's cells, each made when it is first asked for: most cells never come near anything.
class CellTrees
{
public:
    const CellTree& ofCell(const geometry::Mesh& mesh, const QList<geometry::BoundedTriangles>& cells,
                           qsizetype number);

private:
    std::vector<std::unique_ptr<const CellTree>> trees;
};

} // namespace collision
