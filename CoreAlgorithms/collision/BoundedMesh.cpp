// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>

#include <CoreAlgorithms/collision/CellTree_p.h>
#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <QMatrix4x4>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace collision {
namespace {

constexpr float kSurfaceCellSize = 5.0F; // mm; a nerve is long and thin
constexpr float kLargestGrid = 1 << 20;  // cells
constexpr std::int64_t kMostEntries = 1 << 26;

bool hasFiniteVertices(const geometry::Mesh& mesh)
{
    const QList<QVector3D>& vertices = mesh.getVertices();
    return std::all_of(vertices.begin(), vertices.end(),
                       [](const QVector3D& vertex) { return finiteness::isFinite(vertex); });
}

int numTriangles(const geometry::Mesh& mesh)
{
    return static_cast<int>(mesh.getNumIndices()) / 4;
}

// The three entries of a triangle.
const int* entriesOf(const QList<int>& indices, int triangle)
{
    return indices.constData() + 4 * qsizetype(triangle);
}

bool namesVertices(const int* entries, qsizetype numVertices)
{
    const auto isVertex = [numVertices](int number) { return number >= 0 && number < numVertices; };
    return isVertex(entries[0]) && isVertex(entries[1]) && isVertex(entries[2]);
}

bool isUsable(const geometry::Mesh& mesh)
{
    const QList<int>& indices = mesh.getIndices();
    const qsizetype numVertices = mesh.getVertices().size();
    for (int triangle = 0; triangle < numTriangles(mesh); ++triangle) {
        if (!namesVertices(entriesOf(indices, triangle), numVertices))
            return false;
    }
    return hasFiniteVertices(mesh);
}

// ---- the grid

// One axis of a grid.
struct Axis
{
    float start;
    float cellExtent;
    int count;

    // The cell of a coordinate, the first or last beyond the ends. A flat box has cells without extent; whatever
    // cannot be divided by it is in the first.
    int cellOf(float coordinate) const
    {
        const float cell = (coordinate - start) / cellExtent;
        if (!std::isfinite(cell) || cell < 0.0F)
            return 0;
        return cell >= static_cast<float>(count) ? count - 1 : static_cast<int>(cell);
    }
    float startOf(int cell) const { return start + static_cast<float>(cell) * cellExtent; }
};

struct Grid
{
    std::array<Axis, 3> axes;

    int numCells() const { return axes[0].count * axes[1].count * axes[2].count; }
    int numberOf(int x, int y, int z) const { return (z * axes[1].count + y) * axes[0].count + x; }
    primitives::BoundingBox boxOf(int x, int y, int z) const
    {
        const QVector3D corner(axes[0].startOf(x), axes[1].startOf(y), axes[2].startOf(z));
        return {corner, corner + QVector3D(axes[0].cellExtent, axes[1].cellExtent, axes[2].cellExtent)};
    }
};

Grid oneCell(const primitives::BoundingBox& box)
{
    const QVector3D start = box.min();
    return {{{{start.x(), box.deltaX(), 1}, {start.y(), box.deltaY(), 1}, {start.z(), box.deltaZ(), 1}}}};
}

Grid divide(const primitives::BoundingBox& box, float cellSize)
{
    const std::array<float, 3> extents{box.deltaX(), box.deltaY(), box.deltaZ()};
    Grid grid = oneCell(box);
    if (!std::isfinite(cellSize) || cellSize <= 0.0F)
        return grid;
    float numCells = 1.0F;
    for (int axis = 0; axis < 3; ++axis) {
        const float count = std::ceil(extents[axis] / cellSize);
        if (count >= 2.0F)
            numCells *= count;
        if (!(numCells <= kLargestGrid) || !std::isfinite(extents[axis]))
            return oneCell(box);
        grid.axes[axis].count = count >= 2.0F ? static_cast<int>(count) : 1;
        grid.axes[axis].cellExtent = extents[axis] / static_cast<float>(grid.axes[axis].count);
    }
    return grid;
}

// First and last cell along each axis that a triangle's box touches.
struct CellRange
{
    std::array<int, 3> first;
    std::array<int, 3> last;

    std::int64_t numCells() const
    {
        std::int64_t count = 1;
        for (int axis = 0; axis < 3; ++axis)
            count *= std::max(0, last[axis] - first[axis] + 1);
        return count;
    }
    template <typename Visit>
    void visitCells(const Grid& grid, Visit visit) const
    {
        for (int z = first[2]; z <= last[2]; ++z) {
            for (int y = first[1]; y <= last[1]; ++y) {
                for (int x = first[0]; x <= last[0]; ++x)
                    visit(grid.numberOf(x, y, z));
            }
        }
    }
};

constexpr int kNoCell = -1;
constexpr int kSeveralCells = -2;

// Sorts the triangles of a mesh into the cells of a grid.
class GridFiller
{
public:
    GridFiller(const geometry::Mesh& meshToDivide, const Grid& gridOverMesh)
        : vertices(meshToDivide.getVertices()),
          indices(meshToDivide.getIndices()),
          grid(gridOverMesh),
          cellOfTriangle(static_cast<std::size_t>(numTriangles(meshToDivide))),
          entriesOfCell(static_cast<std::size_t>(gridOverMesh.numCells()), 0)
    {
        findCells();
    }

    bool hasTooManyEntries() const { return numEntries > kMostEntries; }

    QList<geometry::BoundedTriangles> cells() const
    {
        QList<geometry::BoundedTriangles> filled;
        std::vector<int*> nextEntry(entriesOfCell.size(), nullptr);
        for (int z = 0; z < grid.axes[2].count; ++z) {
            for (int y = 0; y < grid.axes[1].count; ++y) {
                for (int x = 0; x < grid.axes[0].count; ++x) {
                    const auto number = static_cast<std::size_t>(grid.numberOf(x, y, z));
                    if (entriesOfCell[number] == 0)
                        continue;
                    filled.append({grid.boxOf(x, y, z), QList<int>(entriesOfCell[number])});
                    nextEntry[number] = filled.last().triangles.data();
                }
            }
        }
        for (int triangle = 0; triangle < static_cast<int>(cellOfTriangle.size()); ++triangle) {
            const int cell = cellOfTriangle[static_cast<std::size_t>(triangle)];
            if (cell == kSeveralCells) {
                rangeOf(triangle).visitCells(
                    grid, [&](int touched) { *nextEntry[static_cast<std::size_t>(touched)]++ = triangle; });
            } else if (cell != kNoCell) {
                *nextEntry[static_cast<std::size_t>(cell)]++ = triangle;
            }
        }
        return filled;
    }

private:
    void findCells()
    {
        // Least and largest coordinate of a triangle are those of vertices: if these share a cell, it is the only one.
        const std::vector<int> cellOfVertex = cellsOfVertices();
        for (int triangle = 0; triangle < static_cast<int>(cellOfTriangle.size()); ++triangle) {
            const int* entries = entriesOf(indices, triangle);
            int& cell = cellOfTriangle[static_cast<std::size_t>(triangle)];
            if (!namesVertices(entries, vertices.size())) {
                cell = kNoCell;
                continue;
            }
            cell = cellOfVertex[static_cast<std::size_t>(entries[0])];
            if (cell == cellOfVertex[static_cast<std::size_t>(entries[1])] &&
                cell == cellOfVertex[static_cast<std::size_t>(entries[2])]) {
                ++entriesOfCell[static_cast<std::size_t>(cell)];
                ++numEntries;
                continue;
            }
            cell = kSeveralCells;
            const CellRange range = rangeOf(triangle);
            numEntries += range.numCells();
            if (hasTooManyEntries())
                return;
            range.visitCells(grid,
                             [this](int touched) { ++entriesOfCell[static_cast<std::size_t>(touched)]; });
        }
    }

    std::vector<int> cellsOfVertices() const
    {
        std::vector<int> numbers(static_cast<std::size_t>(vertices.size()), 0);
        if (grid.numCells() == 1)
            return numbers;
        std::transform(vertices.begin(), vertices.end(), numbers.begin(), [this](const QVector3D& vertex) {
            return grid.numberOf(grid.axes[0].cellOf(vertex.x()), grid.axes[1].cellOf(vertex.y()),
                                 grid.axes[2].cellOf(vertex.z()));
        });
        return numbers;
    }

    CellRange rangeOf(int triangle) const
    {
        const int* entries = entriesOf(indices, triangle);
        CellRange range{};
        for (int axis = 0; axis < 3; ++axis) {
            const float a = vertices[entries[0]][axis];
            const float b = vertices[entries[1]][axis];
            const float c = vertices[entries[2]][axis];
            range.first[axis] = grid.axes[axis].cellOf(std::min(std::min(a, b), c));
            range.last[axis] = grid.axes[axis].cellOf(std::max(std::max(a, b), c));
        }
        return range;
    }

    const QList<QVector3D>& vertices;
    const QList<int>& indices;
    Grid grid;
    std::vector<int> cellOfTriangle;
    std::vector<int> entriesOfCell;
    std::int64_t numEntries = 0;
};

// ---- objects

float defaultCellSize(const geometry::Mesh& mesh, const primitives::BoundingBox& box)
{
    const auto share =
        static_cast<float>(std::pow(static_cast<double>(numTriangles(mesh)), 0.6666666865348816));
    return std::cbrt(box.depth() * (box.height() * box.width()) / share);
}

} // namespace

QList<geometry::BoundedTriangles> makeBoundedTriangles(const geometry::Mesh& mesh,
                                                       const primitives::BoundingBox& box, float cellSize)
{
    if (numTriangles(mesh) < 1)
        return {};
    const GridFiller filler(mesh, hasFiniteVertices(mesh) ? divide(box, cellSize) : oneCell(box));
    return filler.hasTooManyEntries() ? GridFiller(mesh, oneCell(box)).cells() : filler.cells();
}

BoundedObject makeBoundedObject(const geometry::ShapeNode& root, const QMatrix4x4& transform,
                                std::optional<float> cellSize)
{
    BoundedObject object;
    object.box = root.getBoundingBox().transformed(transform);
    const auto end = root.cend();
    for (auto node = root.cbeginNodesWithShape(); node != end; ++node) {
        const QMatrix4x4 sceneFromNode = transform * node.getCumulativeTransform();
        geometry::Mesh mesh = node->getShape()->getMesh();
        mesh.applyTransformation(sceneFromNode);
        if (!isUsable(mesh))
            return {};
        const primitives::BoundingBox box = node->getBoundingBox().transformed(sceneFromNode);
        object.meshes.append(
            {mesh, box, makeBoundedTriangles(mesh, box, cellSize ? *cellSize : defaultCellSize(mesh, box)),
             std::make_shared<CellTrees>()});
    }
    return object;
}

BoundedObject makeBoundedObject(const Surface3DModel& model)
{
    geometry::Mesh mesh = model.getMesh();
    mesh.applyTransformation(model.getObjectTransform());
    if (!isUsable(mesh))
        return {};
    const primitives::BoundingBox box = model.getSceneBoundingBox();
    BoundedObject object;
    object.box = box;
    object.meshes.append(
        {mesh, box, makeBoundedTriangles(mesh, box, kSurfaceCellSize), std::make_shared<CellTrees>()});
    return object;
}

} // namespace collision
