// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/CellTree_p.h>

#include <CoreAlgorithms/model/Finite_p.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <utility>

namespace collision {
namespace {

constexpr int kFewTriangles = 64; // all their blocks are below one node, whatever the order
constexpr int kMostBits = 4;      // an axis has at most 2^4 steps

using Corners = std::array<const QVector3D*, 3>;

std::vector<Corners> usableTriangles(const geometry::Mesh& mesh, const QList<int>& triangles)
{
    const QList<QVector3D>& vertices = mesh.getVertices();
    const QList<int>& indices = mesh.getIndices();
    const qsizetype numTriangles = indices.size() / 4;
    std::vector<Corners> usable;
    usable.reserve(static_cast<std::size_t>(triangles.size()));
    for (const int triangle : triangles) {
        if (triangle < 0 || triangle >= numTriangles)
            continue;
        const int* numbers = indices.constData() + 4 * qsizetype(triangle);
        Corners corners{};
        bool good = true;
        for (int corner = 0; good && corner < 3; ++corner) {
            good = numbers[corner] >= 0 && numbers[corner] < vertices.size();
            if (good) {
                corners[corner] = vertices.constData() + numbers[corner];
                good = finiteness::isFinite(*corners[corner]);
            }
        }
        if (good)
            usable.push_back(corners);
    }
    return usable;
}

// Holds each number below 16 with its bits moved to every third place. Three of them interleave to
// a key of Morton's curve.
constexpr std::array<int, 16> kSpread = [] {
    std::array<int, 16> spread{};
    for (int i = 0; i < 16; ++i)
        spread[i] = (i & 1) | (i & 2) << 2 | (i & 4) << 4 | (i & 8) << 6;
    return spread;
}();

// Sorts the triangles along Morton's curve, on which neighbors are close in space, so that the
// boxes of blocks are small whatever the order of the mesh.
std::vector<Corners> inOrderOfSpace(std::vector<Corners> triangles, const std::array<float, 3>& low,
                                    const std::array<float, 3>& high)
{
    if (triangles.size() <= kFewTriangles)
        return triangles;
    const int bits = triangles.size() <= 1024 ? kMostBits - 1 : kMostBits;
    const auto steps = static_cast<float>(1 << bits);
    std::array<float, 3> scale{};
    for (int axis = 0; axis < 3; ++axis)
        scale[axis] = steps / (3.0F * (high[axis] - low[axis])); // for the sum of three corners
    const auto keyOf = [&](const Corners& corners) {
        int key = 0;
        for (int axis = 0; axis < 3; ++axis) {
            const float sum = (*corners[0])[axis] - low[axis] + ((*corners[1])[axis] - low[axis]) +
                              ((*corners[2])[axis] - low[axis]);
            const float place = sum * scale[axis]; // NaN in a flat cell
            const int step = place > 0.0F ? static_cast<int>(std::min(place, steps - 1.0F)) : 0;
            key |= kSpread[step] << axis;
        }
        return static_cast<std::size_t>(key);
    };
    std::vector<std::uint16_t> keys(triangles.size());
    std::vector<std::size_t> place((std::size_t(1) << (3 * bits)) + 1, 0);
    for (std::size_t i = 0; i < triangles.size(); ++i) {
        const std::size_t key = keyOf(triangles[i]);
        keys[i] = static_cast<std::uint16_t>(key);
        ++place[key + 1];
    }
    for (std::size_t key = 1; key < place.size(); ++key)
        place[key] += place[key - 1];
    std::vector<Corners> ordered(triangles.size());
    for (std::size_t i = 0; i < triangles.size(); ++i)
        ordered[place[keys[i]]++] = triangles[i];
    return ordered;
}

TriangleBlock makeBlock(const std::vector<Corners>& triangles, std::size_t first)
{
    TriangleBlock block;
    for (int lane = 0; lane < kLanes; ++lane) {
        const Corners& corners =
            triangles[std::min(first + static_cast<std::size_t>(lane), triangles.size() - 1)];
        for (int vertex = 0; vertex < 3; ++vertex) {
            block.vertex[vertex][0][lane] = corners[vertex]->x();
            block.vertex[vertex][1][lane] = corners[vertex]->y();
            block.vertex[vertex][2][lane] = corners[vertex]->z();
        }
    }
    // Computes planeOf() for eight triangles, with the same operations in the same order.
    Lanes side1[3];
    Lanes side2[3];
    for (int axis = 0; axis < 3; ++axis) {
        side1[axis] = block.vertex[1][axis] - block.vertex[0][axis];
        side2[axis] = block.vertex[2][axis] - block.vertex[0][axis];
    }
    for (int axis = 0; axis < 3; ++axis) {
        const int next = (axis + 1) % 3;
        const int afterNext = (axis + 2) % 3;
        block.normal[axis] = side1[next] * side2[afterNext] - side1[afterNext] * side2[next];
    }
    block.offset = -(block.normal[0] * block.vertex[0][0] + block.normal[1] * block.vertex[0][1] +
                     block.normal[2] * block.vertex[0][2]);
    return block;
}

void setBox(BoxBlock& boxes, int place, const std::array<float, 3>& low,
            const std::array<float, 3>& high)
{
    for (int axis = 0; axis < 3; ++axis) {
        boxes.low[axis][place] = low[axis];
        boxes.high[axis][place] = high[axis];
    }
}

float smallest(const Lanes& lanes)
{
    float result = lanes[0];
    for (int lane = 1; lane < kLanes; ++lane)
        result = std::min<float>(result, lanes[lane]);
    return result;
}

float largest(const Lanes& lanes)
{
    float result = lanes[0];
    for (int lane = 1; lane < kLanes; ++lane)
        result = std::max<float>(result, lanes[lane]);
    return result;
}

} // namespace

CellTree::CellTree(const geometry::Mesh& mesh, const QList<int>& triangles)
{
    std::vector<Corners> usable = usableTriangles(mesh, triangles);
    if (usable.empty())
        return;
    numTriangles = static_cast<int>(usable.size());
    for (int axis = 0; axis < 3; ++axis) {
        low[axis] = high[axis] = (*usable[0][0])[axis];
        for (const Corners& corners : usable) {
            for (const QVector3D* corner : corners) {
                low[axis] = std::min(low[axis], (*corner)[axis]);
                high[axis] = std::max(high[axis], (*corner)[axis]);
            }
        }
    }
    usable = inOrderOfSpace(std::move(usable), low, high);

    blocks.reserve((usable.size() + kLanes - 1) / kLanes);
    for (std::size_t first = 0; first < usable.size(); first += kLanes)
        blocks.push_back(makeBlock(usable, first));

    // Level 0 has the boxes of the blocks, each further level those of the nodes of the level
    // below, until one node holds all.
    auto numBoxes = static_cast<int>(blocks.size());
    for (int level = 0;; ++level) {
        const int numNodes = (numBoxes + kLanes - 1) / kLanes;
        const int start = static_cast<int>(nodes.size());
        levels.push_back({start, numBoxes});
        nodes.resize(nodes.size() + static_cast<std::size_t>(numNodes));
        for (int place = 0; place < numNodes * kLanes; ++place) {
            const int child = std::min(place, numBoxes - 1);
            std::array<float, 3> childLow{};
            std::array<float, 3> childHigh{};
            for (int axis = 0; axis < 3; ++axis) {
                if (level == 0) {
                    const TriangleBlock& block = blocks[static_cast<std::size_t>(child)];
                    const auto& v = block.vertex;
                    childLow[axis] = smallest(smaller(smaller(v[0][axis], v[1][axis]), v[2][axis]));
                    childHigh[axis] = largest(larger(larger(v[0][axis], v[1][axis]), v[2][axis]));
                } else {
                    const int number = levels[static_cast<std::size_t>(level) - 1].start + child;
                    const BoxBlock& boxes = nodes[static_cast<std::size_t>(number)];
                    childLow[axis] = smallest(boxes.low[axis]);
                    childHigh[axis] = largest(boxes.high[axis]);
                }
            }
            const int node = start + place / kLanes;
            setBox(nodes[static_cast<std::size_t>(node)], place % kLanes, childLow, childHigh);
        }
        if (numNodes == 1)
            break;
        numBoxes = numNodes;
    }
}

// ---- the trees of a mesh

template <typename Make>
const CellTree& CellTrees::LazyTree::get(Make make) const
{
    const CellTree* tree = made.load(std::memory_order_acquire);
    if (tree)
        return *tree;
    auto own = std::make_unique<const CellTree>(make());
    // If another thread was faster, its tree is used, which is equal.
    if (made.compare_exchange_strong(tree, own.get(), std::memory_order_acq_rel))
        tree = own.release();
    return *tree;
}

CellTrees::CellTrees(const geometry::Mesh& sourceMesh,
                     const QList<geometry::BoundedTriangles>& sourceCells)
    : mesh(sourceMesh), cells(sourceCells), trees(sourceCells.size())
{
    narrowCells.reserve(cells.size());
    for (int place = 0; place < static_cast<int>(cells.size()); ++place)
        narrowCells.push_back({place, place});
}

CellTrees::CellTrees(const geometry::Mesh& sourceMesh,
                     const QList<geometry::BoundedTriangles>& sourceCells, CellPlaces placesOfCells)
    : mesh(sourceMesh), cells(sourceCells), places(std::move(placesOfCells)), isOfGrid(true)
{
    std::vector<bool> isWide(mesh.getNumIndices() / 4, false);
    for (const int triangle : places.wideTriangles)
        isWide[triangle] = true;
    const auto isNarrow = [&isWide](int triangle) { return !isWide[triangle]; };
    for (int place = 0; place < static_cast<int>(cells.size()); ++place) {
        const QList<int>& triangles = cells.at(place).triangles;
        if (std::any_of(triangles.begin(), triangles.end(), isNarrow))
            narrowCells.push_back({places.numbers[place], place});
    }
    trees = std::vector<LazyTree>(narrowCells.size());
}

bool CellTrees::areOf(const geometry::Mesh& otherMesh,
                      const QList<geometry::BoundedTriangles>& otherCells) const
{
    // Data that these trees share is copied when a mesh changes it, so equal addresses mean equal
    // data.
    const auto isSame = [](const auto& a, const auto& b) {
        return a.constData() == b.constData() && a.size() == b.size();
    };
    return isSame(mesh.getVertices(), otherMesh.getVertices()) &&
           isSame(mesh.getIndices(), otherMesh.getIndices()) && isSame(cells, otherCells);
}

const CellTree& CellTrees::treeOf(int cell) const
{
    return trees[cell].get([&] {
        const QList<int>& triangles = cells.at(narrowCells[cell].place).triangles;
        if (!hasWideTriangles())
            return CellTree(mesh, triangles);
        QList<int> narrow;
        std::set_difference(triangles.begin(), triangles.end(), places.wideTriangles.begin(),
                            places.wideTriangles.end(), std::back_inserter(narrow));
        return CellTree(mesh, narrow);
    });
}

const CellTree& CellTrees::wideTree() const
{
    return treeOfWide.get([&] { return CellTree(mesh, places.wideTriangles); });
}

} // namespace collision
