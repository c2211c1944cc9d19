// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>

#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <QMatrix4x4>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace collision {
namespace {

constexpr float kSurfaceCellSize = 5.0F; // mm; a nerve is long and thin
constexpr float kLargestGrid = 1 << 20;  // cells
constexpr std::int64_t kMostEntries = 1 << 26;

bool isFinite(const QVector3D& v)
{
    return std::isfinite(v.x()) && std::isfinite(v.y()) && std::isfinite(v.z());
}

bool hasFiniteVertices(const geometry::Mesh& mesh)
{
    const QList<QVector3D>& vertices = mesh.getVertices();
    return std::all_of(vertices.begin(), vertices.end(), isFinite);
}

int numTriangles(const geometry::Mesh& mesh)
{
    return static_cast<int>(mesh.getNumIndices()) / 4;
}

bool namesVertices(const QList<int>& indices, int triangle, qsizetype numVertices)
{
    for (int corner = 0; corner < 3; ++corner) {
        const int number = indices[4 * qsizetype(triangle) + corner];
        if (number < 0 || number >= numVertices)
            return false;
    }
    return true;
}

bool isUsable(const geometry::Mesh& mesh)
{
    const QList<int>& indices = mesh.getIndices();
    const qsizetype numVertices = mesh.getVertices().size();
    for (int triangle = 0; triangle < numTriangles(mesh); ++triangle) {
        if (!namesVertices(indices, triangle, numVertices))
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

// The cells of every triangle; those of one whose entries name no vertex are none.
std::vector<CellRange> cellRanges(const geometry::Mesh& mesh, const Grid& grid)
{
    const QList<QVector3D>& vertices = mesh.getVertices();
    const QList<int>& indices = mesh.getIndices();
    std::vector<CellRange> ranges(static_cast<std::size_t>(numTriangles(mesh)), {{0, 0, 0}, {-1, -1, -1}});
    for (int triangle = 0; triangle < numTriangles(mesh); ++triangle) {
        if (!namesVertices(indices, triangle, vertices.size()))
            continue;
        const int* corner = &indices[4 * qsizetype(triangle)];
        CellRange& range = ranges[static_cast<std::size_t>(triangle)];
        for (int axis = 0; axis < 3; ++axis) {
            const float a = vertices[corner[0]][axis];
            const float b = vertices[corner[1]][axis];
            const float c = vertices[corner[2]][axis];
            range.first[axis] = grid.axes[axis].cellOf(std::min(std::min(a, b), c));
            range.last[axis] = grid.axes[axis].cellOf(std::max(std::max(a, b), c));
        }
    }
    return ranges;
}

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
    Grid grid = hasFiniteVertices(mesh) ? divide(box, cellSize) : oneCell(box);
    std::vector<CellRange> ranges = cellRanges(mesh, grid);

    std::int64_t numEntries = 0;
    for (const CellRange& range : ranges)
        numEntries += range.numCells();
    if (numEntries > kMostEntries) {
        grid = oneCell(box);
        ranges = cellRanges(mesh, grid);
    }

    std::vector<int> entriesOfCell(static_cast<std::size_t>(grid.numCells()), 0);
    for (const CellRange& range : ranges)
        range.visitCells(grid, [&](int cell) { ++entriesOfCell[static_cast<std::size_t>(cell)]; });

    QList<geometry::BoundedTriangles> cells;
    std::vector<int> placeOfCell(entriesOfCell.size(), -1);
    for (int z = 0; z < grid.axes[2].count; ++z) {
        for (int y = 0; y < grid.axes[1].count; ++y) {
            for (int x = 0; x < grid.axes[0].count; ++x) {
                const auto number = static_cast<std::size_t>(grid.numberOf(x, y, z));
                if (entriesOfCell[number] == 0)
                    continue;
                placeOfCell[number] = static_cast<int>(cells.size());
                cells.append({grid.boxOf(x, y, z), {}});
                cells.last().triangles.reserve(entriesOfCell[number]);
            }
        }
    }
    for (std::size_t triangle = 0; triangle < ranges.size(); ++triangle) {
        ranges[triangle].visitCells(grid, [&](int cell) {
            cells[placeOfCell[static_cast<std::size_t>(cell)]].triangles.append(static_cast<int>(triangle));
        });
    }
    return cells;
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
            {mesh, box, makeBoundedTriangles(mesh, box, cellSize ? *cellSize : defaultCellSize(mesh, box))});
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
    object.meshes.append({mesh, box, makeBoundedTriangles(mesh, box, kSurfaceCellSize)});
    return object;
}

} // namespace collision
