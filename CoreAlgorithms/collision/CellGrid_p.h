// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QVector3D>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace collision {

/// Describes one axis of a grid in scene mm. From one cell to the next, neither the start nor the
/// end decreases.
struct Axis
{
    float start;
    float cellExtent;
    int count;

    /// Returns where the cell starts.
    float startOf(int cell) const { return start + static_cast<float>(cell) * cellExtent; }
    /// Returns where the cell ends. The next cell may start a rounding error before or behind it.
    float endOf(int cell) const { return startOf(cell) + cellExtent; }
    /// Returns the cell that contains the coordinate, or the first or last cell if the coordinate
    /// is beyond the ends. Returns the first cell if the quotient is not finite, as for the cells
    /// of a flat box, which have no extent.
    int cellOf(float coordinate) const
    {
        const float cell = (coordinate - start) / cellExtent;
        if (!std::isfinite(cell) || cell < 0.0F)
            return 0;
        return cell >= static_cast<float>(count) ? count - 1 : static_cast<int>(cell);
    }
    /// Returns the first cell that ends at or beyond the coordinate, or `count`.
    int firstReaching(float coordinate) const;
    /// Returns the last cell that starts at or before the coordinate, or -1.
    int lastStartingBy(float coordinate) const;
};

/// Names the cells from `first` to `last` of one axis, both included. The span is empty if `last`
/// is less than `first`.
struct CellSpan
{
    int first;
    int last;
};

/// Names a block of cells by its spans along x, y and z.
using CellRange = std::array<CellSpan, 3>;

/// Returns the number of cells in the range, which is 0 if a span is empty.
std::int64_t numCells(const CellRange& range);

/// Divides a box into cells of equal size. Cell (x, y, z) has the number (z * ny + y) * nx + x.
struct CellGrid
{
    std::array<Axis, 3> axes;

    /// Returns the number of cells, with and without triangles.
    int numCells() const { return axes[0].count * axes[1].count * axes[2].count; }
    /// Returns the number of the cell (x, y, z).
    int numberOf(int x, int y, int z) const { return (z * axes[1].count + y) * axes[0].count + x; }
    /// Returns the box of the cell (x, y, z).
    primitives::BoundingBox boxOf(int x, int y, int z) const;
    /// Returns the box from the start of the first cell to the end of the last one. It contains the
    /// boxes of all cells.
    primitives::BoundingBox hull() const;
    /// Returns the cells that touch the box. Spans may be empty.
    CellRange rangeTouching(const primitives::BoundingBox& box) const;
    /// Returns, for each axis, the cells from that of the least coordinate of three points to that
    /// of the greatest.
    CellRange rangeOf(const QVector3D& p, const QVector3D& q, const QVector3D& r) const
    {
        CellRange range{};
        for (int axis = 0; axis < 3; ++axis) {
            const float least = std::min(std::min(p[axis], q[axis]), r[axis]);
            const float greatest = std::max(std::max(p[axis], q[axis]), r[axis]);
            range[axis] = {axes[axis].cellOf(least), axes[axis].cellOf(greatest)};
        }
        return range;
    }
};

/// Returns the grid whose only cell is the whole box.
CellGrid oneCell(const primitives::BoundingBox& box);

/// Returns the grid over the box with the fewest cells of at most `cellSize` mm along each axis. An
/// axis along which the box has no extent has one cell. Returns oneCell() if the cell size is not
/// positive and finite, if the box is not finite, or if there would be more than 2^20 cells.
CellGrid divide(const primitives::BoundingBox& box, float cellSize);

/// Returns whether a cell of span `a` touches a cell of span `b` along one axis.
bool touchAlong(const Axis& axisA, CellSpan a, const Axis& axisB, CellSpan b);

} // namespace collision
