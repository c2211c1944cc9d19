// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/CellGrid_p.h>

namespace collision {
namespace {

constexpr float kLargestGrid = 1 << 20; // cells

// Returns the number of leading cells that have the property, if no cell behind the first one
// without it has it. Searches, since a division could be off by a cell after rounding.
template <typename Property>
int numLeadingCells(int count, Property hasProperty)
{
    int low = 0;
    int high = count;
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (hasProperty(middle))
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

} // namespace

int Axis::firstReaching(float coordinate) const
{
    return numLeadingCells(count, [&](int cell) { return !(coordinate <= endOf(cell)); });
}

int Axis::lastStartingBy(float coordinate) const
{
    return numLeadingCells(count, [&](int cell) { return startOf(cell) <= coordinate; }) - 1;
}

std::int64_t numCells(const CellRange& range)
{
    std::int64_t count = 1;
    for (const CellSpan& span : range)
        count *= std::max(0, span.last - span.first + 1);
    return count;
}

primitives::BoundingBox CellGrid::boxOf(int x, int y, int z) const
{
    return {axes[0].startOf(x), axes[1].startOf(y), axes[2].startOf(z),
            axes[0].endOf(x),   axes[1].endOf(y),   axes[2].endOf(z)};
}

primitives::BoundingBox CellGrid::hull() const
{
    return {axes[0].startOf(0),
            axes[1].startOf(0),
            axes[2].startOf(0),
            axes[0].endOf(axes[0].count - 1),
            axes[1].endOf(axes[1].count - 1),
            axes[2].endOf(axes[2].count - 1)};
}

CellRange CellGrid::rangeTouching(const primitives::BoundingBox& box) const
{
    const QVector3D low = box.min();
    const QVector3D high = box.max();
    CellRange range{};
    for (int axis = 0; axis < 3; ++axis)
        range[axis] = {axes[axis].firstReaching(low[axis]), axes[axis].lastStartingBy(high[axis])};
    return range;
}

CellGrid oneCell(const primitives::BoundingBox& box)
{
    const QVector3D start = box.min();
    return {{{{start.x(), box.deltaX(), 1},
              {start.y(), box.deltaY(), 1},
              {start.z(), box.deltaZ(), 1}}}};
}

CellGrid divide(const primitives::BoundingBox& box, float cellSize)
{
    const std::array<float, 3> extents{box.deltaX(), box.deltaY(), box.deltaZ()};
    CellGrid grid = oneCell(box);
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

bool touchAlong(const Axis& axisA, CellSpan a, const Axis& axisB, CellSpan b)
{
    while (a.first <= a.last && b.first <= b.last) {
        const float startA = axisA.startOf(a.first);
        const float startB = axisB.startOf(b.first);
        if (startB <= axisA.endOf(a.first) && startA <= axisB.endOf(b.first))
            return true;
        // A cell that ends before the other one starts touches none of the cells behind it either.
        if (axisA.endOf(a.first) < startB)
            a.first = std::max(a.first + 1, axisA.firstReaching(startB));
        else
            b.first = std::max(b.first + 1, axisB.firstReaching(startA));
    }
    return false;
}

} // namespace collision
