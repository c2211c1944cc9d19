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

/// One axis of a grid. The cells follow each other along it: neither their starts nor their ends
/// ever decrease.
struct Axis
{
    float start;
    float cellExtent;
    int count;

    float startOf(int cell) const { return start + static_cast<float>(cell) * cellExtent; }
    float endOf(int cell) const { return startOf(cell) + cellExtent; }
    /// Returns the cell of a coordinate, which is the first or the last beyond the ends. The cells
    /// of a flat box have no extent; what cannot be divided by it is in the first cell.
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

/// The cells from `first` to `last` of one axis, both included. There is none if `last` is less.
struct CellSpan
{
    int first;
    int last;
};

/// The box of cells that a triangle's box touches.
using CellRange = std::array<CellSpan, 3>;

std::int64_t numCells(const CellRange& range);

/// The division of a box into cells of equal size. Cell (x, y, z) has the number
/// (z * ny + y) * nx + x.
struct CellGrid
{
    std::array<Axis, 3> axes;

    int numCells() const { return axes[0].count * axes[1].count * axes[2].count; }
    int numberOf(int x, int y, int z) const { return (z * axes[1].count + y) * axes[0].count + x; }
    primitives::BoundingBox boxOf(int x, int y, int z) const;
    /// Returns the box from the start of the first cell to the end of the last one. It contains the
    /// boxes of all cells.
    primitives::BoundingBox hull() const;
    /// Returns the cells that touch the box. There may be none along an axis.
    CellRange rangeTouching(const primitives::BoundingBox& box) const;
    /// Returns the cells from that of the least to that of the greatest coordinate of three points,
    /// for each axis.
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

/// Returns the grid that has the whole box as its only cell.
CellGrid oneCell(const primitives::BoundingBox& box);

/// Returns the grid over the box whose cells have about the given size and are never longer. It is
/// one cell for a size or a box that is not positive and finite, and instead of more than 2^20
/// cells.
CellGrid divide(const primitives::BoundingBox& box, float cellSize);

/// Returns whether some cell of `a` touches some cell of `b`, both along one axis.
bool touchAlong(const Axis& axisA, CellSpan a, const Axis& axisB, CellSpan b);

} // namespace collision
