// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/CellGrid_p.h>

// The cells of a grid near a place are computed. They must be those that a look at every cell
// finds, even where cells are smaller than the steps between floats.

#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using collision::Axis;
using collision::CellGrid;
using collision::CellRange;
using collision::CellSpan;
using primitives::BoundingBox;

bool touch(const Axis& a, int cellA, const Axis& b, int cellB)
{
    return a.startOf(cellA) <= b.endOf(cellB) && b.startOf(cellB) <= a.endOf(cellA);
}

// Draws an axis with cells of 0.1 to 9 mm that starts between the origin and 1e9 mm, where floats
// are 64 mm apart.
Axis randomAxis(test::RandomGeometry& random)
{
    const float start =
        std::floor(random.number(-2.0F, 2.0F)) * std::exp2(std::floor(random.number(-3.0F, 30.0F)));
    const float extent = random.number(0.0F, 4.0F) < 1.0F ? 5.0F : random.number(0.1F, 9.0F);
    return {start, extent, 1 + static_cast<int>(random.number(0.0F, 40.0F))};
}

// Draws a place on a boundary between cells, one float away from it, or anywhere near it.
float randomPlace(test::RandomGeometry& random, const Axis& axis)
{
    const float boundary =
        axis.startOf(static_cast<int>(random.number(-2.0F, float(axis.count + 3))));
    const float side = random.number(-1.5F, 1.5F);
    if (side > 1.0F)
        return std::nextafter(boundary, std::numeric_limits<float>::max());
    if (side < -1.0F)
        return std::nextafter(boundary, -std::numeric_limits<float>::max());
    return side < 0.0F ? boundary : boundary + random.number(-1.0F, 1.0F) * axis.cellExtent;
}

TEST(CellGridAxis, FindsTheFirstCellThatReachesAPlaceAndTheLastThatStartsByIt)
{
    test::RandomGeometry random(31);
    for (int i = 0; i < 20000; ++i) {
        const Axis axis = randomAxis(random);
        const float place = randomPlace(random, axis);
        int first = 0;
        while (first < axis.count && axis.endOf(first) < place)
            ++first;
        int last = axis.count - 1;
        while (last >= 0 && axis.startOf(last) > place)
            --last;
        ASSERT_EQ(axis.firstReaching(place), first)
            << axis.start << ' ' << axis.cellExtent << ' ' << place;
        ASSERT_EQ(axis.lastStartingBy(place), last)
            << axis.start << ' ' << axis.cellExtent << ' ' << place;
    }
}

// At 1e9 mm, rounding leaves gaps between cells, and a flat cell can be in one of them.
TEST(CellGridAxis, CellsTouchIfAnyTwoOfThemDo)
{
    test::RandomGeometry random(32);
    int touching = 0;
    constexpr int rounds = 40000;
    for (int i = 0; i < rounds; ++i) {
        const Axis a = randomAxis(random);
        Axis b = randomAxis(random);
        b.start = randomPlace(random, a);
        if (i % 4 == 0)
            b = {b.start, 0.0F, 1};
        const auto spanOf = [&random](const Axis& axis) {
            const int first = static_cast<int>(random.number(0.0F, float(axis.count)));
            return CellSpan{
                first, static_cast<int>(random.number(float(first) - 1.0F, float(axis.count)))};
        };
        const CellSpan spanA = spanOf(a);
        const CellSpan spanB = spanOf(b);
        bool expected = false;
        for (int cellA = spanA.first; cellA <= spanA.last; ++cellA) {
            for (int cellB = spanB.first; cellB <= spanB.last; ++cellB)
                expected = expected || touch(a, cellA, b, cellB);
        }
        touching += expected ? 1 : 0;
        ASSERT_EQ(touchAlong(a, spanA, b, spanB), expected) << "round " << i;
        ASSERT_EQ(touchAlong(b, spanB, a, spanA), expected) << "round " << i;
    }
    EXPECT_GT(touching, rounds / 10);
    EXPECT_LT(touching, rounds * 9 / 10);
}

TEST(CellGrid, CellsNearABoxAreThoseThatTouchIt)
{
    const CellGrid grid = collision::divide({0.0F, 0.0F, 0.0F, 40.0F, 20.0F, 5.0F}, 5.0F);
    const CellRange near = grid.rangeTouching({10.0F, 1.0F, -3.0F, 14.0F, 5.0F, -1.0F});
    EXPECT_EQ(near[0].first, 1); // ends at x = 10
    EXPECT_EQ(near[0].last, 2);
    EXPECT_EQ(near[1].first, 0);
    EXPECT_EQ(near[1].last, 1);              // starts at y = 5
    EXPECT_EQ(collision::numCells(near), 0); // the box is below the grid
}

TEST(CellGrid, HullContainsTheBoxesOfAllCells)
{
    test::RandomGeometry random(33);
    for (int i = 0; i < 300; ++i) {
        const QVector3D low = random.point(1e4F);
        const QVector3D extent = random.point(15.0F) + QVector3D(16.0F, 16.0F, 16.0F);
        const CellGrid grid = collision::divide({low, low + extent}, random.number(1.0F, 9.0F));
        const BoundingBox hull = grid.hull();
        const auto [nx, ny, nz] =
            std::array{grid.axes[0].count, grid.axes[1].count, grid.axes[2].count};
        for (int x = 0; x < nx; ++x) {
            const BoundingBox box = grid.boxOf(x, x % ny, x % nz);
            ASSERT_TRUE(hull.contains(box.min()) && hull.contains(box.max())) << "grid " << i;
        }
    }
}

} // namespace
