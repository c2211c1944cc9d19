// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/BoundedMesh_p.h>

#include <CoreAlgorithms/collision/CellGrid_p.h>
#include <CoreAlgorithms/collision/CellTree_p.h>
#include <CoreAlgorithms/model/Finite_p.h>
#include <CoreAlgorithms/model/data/Shapes.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <QMatrix4x4>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <numeric>
#include <utility>
#include <vector>

namespace collision {
namespace {

// The cell size of surfaces in mm. A nerve is long and thin: in a single cell, each of its
// triangles would take part in every test.
constexpr float kSurfaceCellSize = 5.0F;

// Without limits, a mesh of a few triangles but of any extent could fill all cells of a grid. The
// limits grow with the number of triangles, so that time and memory are linear in it.
constexpr std::int64_t kMostCells = 1 << 16; // and one more for every triangle of the mesh
constexpr std::int64_t kMostEntries = 1 << 20;
constexpr std::int64_t kFurtherEntriesPerTriangle = 16;

// Eight cells meet in one corner, so a triangle that is smaller than a cell is in at most eight. A
// triangle in more cells is wide; see CellTrees.
constexpr std::int64_t kMostCellsOfNarrow = 8;

// Intended: the exponent of the default cell size is 2/3 rounded to single precision, though the
// power is computed in double precision. The cells of existing plans rely on it.
constexpr double kTwoThirdsInFloat = 0.6666666865348816;
static_assert(kTwoThirdsInFloat == static_cast<double>(2.0F / 3.0F));

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

// Returns the three entries of a triangle. The fourth is never read.
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

// ---- the cells

constexpr int kNoCell = -1;
constexpr int kSeveralCells = -2;

struct Division
{
    QList<geometry::BoundedTriangles> cells;
    CellPlaces places;
};

// Sorts the triangles of a mesh into the cells of a grid.
class GridFiller
{
public:
    GridFiller(const geometry::Mesh& meshToDivide, const CellGrid& gridOverMesh)
        : vertices(meshToDivide.getVertices()),
          indices(meshToDivide.getIndices()),
          grid(gridOverMesh),
          cellOfTriangle(collision::numTriangles(meshToDivide)),
          entriesOfCell(gridOverMesh.numCells(), 0)
    {
        findCells();
    }

    bool isTooLarge() const
    {
        return hasTooManyEntries() || numFilledCells() > kMostCells + numTriangles();
    }

    Division division() const
    {
        Division result{{}, {grid, {}, wideTriangles}};
        result.cells.reserve(numFilledCells());
        std::vector<int*> nextEntry(entriesOfCell.size(), nullptr);
        for (int z = 0; z < grid.axes[2].count; ++z) {
            for (int y = 0; y < grid.axes[1].count; ++y) {
                for (int x = 0; x < grid.axes[0].count; ++x) {
                    const int number = grid.numberOf(x, y, z);
                    if (entriesOfCell[number] == 0)
                        continue;
                    result.cells.append({grid.boxOf(x, y, z), QList<int>(entriesOfCell[number])});
                    result.places.numbers.push_back(number);
                    nextEntry[number] = result.cells.last().triangles.data();
                }
            }
        }
        for (int triangle = 0; triangle < static_cast<int>(cellOfTriangle.size()); ++triangle) {
            const int cell = cellOfTriangle[triangle];
            if (cell == kSeveralCells)
                visitCells(rangeOf(triangle),
                           [&](int touched) { *nextEntry[touched]++ = triangle; });
            else if (cell != kNoCell)
                *nextEntry[cell]++ = triangle;
        }
        return result;
    }

private:
    std::int64_t numTriangles() const { return static_cast<std::int64_t>(cellOfTriangle.size()); }

    bool hasTooManyEntries() const
    {
        return numEntries > kMostEntries + kFurtherEntriesPerTriangle * numTriangles();
    }

    std::int64_t numFilledCells() const
    {
        const auto numEmpty = std::count(entriesOfCell.begin(), entriesOfCell.end(), 0);
        return static_cast<std::int64_t>(entriesOfCell.size()) - numEmpty;
    }

    void findCells()
    {
        // The least and the greatest coordinates of a triangle are coordinates of its vertices. So
        // a triangle whose vertices share a cell is in no other cell.
        const std::vector<int> cellOfVertex = cellsOfVertices();
        for (int triangle = 0; triangle < static_cast<int>(cellOfTriangle.size()); ++triangle) {
            const int* entries = entriesOf(indices, triangle);
            int& cell = cellOfTriangle[triangle];
            if (!namesVertices(entries, vertices.size())) {
                cell = kNoCell;
                continue;
            }
            cell = cellOfVertex[entries[0]];
            if (cell == cellOfVertex[entries[1]] && cell == cellOfVertex[entries[2]]) {
                ++entriesOfCell[cell];
                ++numEntries;
                continue;
            }
            cell = kSeveralCells;
            const CellRange range = rangeOf(triangle);
            const std::int64_t numTouched = numCells(range);
            numEntries += numTouched;
            if (hasTooManyEntries())
                return;
            if (numTouched > kMostCellsOfNarrow)
                wideTriangles.append(triangle);
            visitCells(range, [this](int touched) { ++entriesOfCell[touched]; });
        }
    }

    std::vector<int> cellsOfVertices() const
    {
        std::vector<int> numbers(vertices.size(), 0);
        if (grid.numCells() == 1)
            return numbers;
        std::transform(vertices.begin(), vertices.end(), numbers.begin(),
                       [this](const QVector3D& vertex) {
                           return grid.numberOf(grid.axes[0].cellOf(vertex.x()),
                                                grid.axes[1].cellOf(vertex.y()),
                                                grid.axes[2].cellOf(vertex.z()));
                       });
        return numbers;
    }

    CellRange rangeOf(int triangle) const
    {
        const int* entries = entriesOf(indices, triangle);
        return grid.rangeOf(vertices[entries[0]], vertices[entries[1]], vertices[entries[2]]);
    }

    template <typename Visit>
    void visitCells(const CellRange& range, Visit visit) const
    {
        for (int z = range[2].first; z <= range[2].last; ++z) {
            for (int y = range[1].first; y <= range[1].last; ++y) {
                for (int x = range[0].first; x <= range[0].last; ++x)
                    visit(grid.numberOf(x, y, z));
            }
        }
    }

    const QList<QVector3D>& vertices;
    const QList<int>& indices;
    CellGrid grid;
    std::vector<int> cellOfTriangle;
    std::vector<int> entriesOfCell;
    QList<int> wideTriangles;
    std::int64_t numEntries = 0;
};

Division divideMesh(const geometry::Mesh& mesh, const primitives::BoundingBox& box, float cellSize)
{
    if (numTriangles(mesh) < 1)
        return {{}, {oneCell(box), {}, {}}};
    const CellGrid grid = hasFiniteVertices(mesh) ? divide(box, cellSize) : oneCell(box);
    const GridFiller filler(mesh, grid);
    if (!filler.isTooLarge())
        return filler.division();
    // The mesh keeps one cell. All its triangles are treated as wide triangles of the grid, so that
    // the verdicts are those of the grid's cells.
    Division division = GridFiller(mesh, oneCell(box)).division();
    division.places.grid = grid;
    division.places.wideTriangles.resize(numTriangles(mesh));
    std::iota(division.places.wideTriangles.begin(), division.places.wideTriangles.end(), 0);
    return division;
}

BoundedMesh makeBoundedMesh(const geometry::Mesh& mesh, const primitives::BoundingBox& box,
                            float cellSize)
{
    Division division = divideMesh(mesh, box, cellSize);
    auto trees =
        std::make_shared<const CellTrees>(mesh, division.cells, std::move(division.places));
    return {mesh, box, division.cells, std::move(trees)};
}

} // namespace

float defaultCellSize(int numTriangles, const primitives::BoundingBox& box)
{
    const auto share =
        static_cast<float>(std::pow(static_cast<double>(numTriangles), kTwoThirdsInFloat));
    return std::cbrt(box.depth() * (box.height() * box.width()) / share);
}

QList<geometry::BoundedTriangles>
makeBoundedTriangles(const geometry::Mesh& mesh, const primitives::BoundingBox& box, float cellSize)
{
    return divideMesh(mesh, box, cellSize).cells;
}

BoundedObject makeBoundedObject(const geometry::ShapeNode& root, const QMatrix4x4& transform,
                                std::optional<float> cellSize)
{
    BoundedObject object;
    object.box = root.getBoundingBox().transformed(transform);
    const auto end = root.cend();
    for (auto node = root.cbeginNodesWithShape(); node != end; ++node) {
        // Intended: the root's own transform is left out, since cumulative transforms start at its
        // children. The object's transform takes its place; the verdicts of existing plans rely on
        // that.
        const QMatrix4x4 sceneFromNode = transform * node.getCumulativeTransform();
        geometry::Mesh mesh = node->getShape()->getMesh();
        mesh.applyTransformation(sceneFromNode);
        if (!isUsable(mesh))
            return {};
        const primitives::BoundingBox box = node->getBoundingBox().transformed(sceneFromNode);
        object.meshes.append(makeBoundedMesh(
            mesh, box, cellSize ? *cellSize : defaultCellSize(numTriangles(mesh), box)));
    }
    return object;
}

BoundedObject makeBoundedObject(const Surface3DModel& model)
{
    // Queried first, even if the mesh turns out to be unusable: the order of the calls on the host
    // is fixed.
    const primitives::BoundingBox box = model.getSceneBoundingBox();
    geometry::Mesh mesh = model.getMesh();
    mesh.applyTransformation(model.getObjectTransform());
    if (!isUsable(mesh))
        return {};
    BoundedObject object;
    object.box = box;
    object.meshes.append(makeBoundedMesh(mesh, box, kSurfaceCellSize));
    return object;
}

} // namespace collision
