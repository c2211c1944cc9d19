// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/Point2DBoundingRectangleCalculator.h>

// Covered: the rectangle of a set of points, its anchor and sizes, the empty set, coordinates at
// the ends of int.

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace {

constexpr int kIntMin = std::numeric_limits<int>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();

static_assert(std::has_virtual_destructor_v<Point2DBoundingRectangleCalculator>);
static_assert(std::is_copy_constructible_v<Point2DBoundingRectangleCalculator> &&
              std::is_copy_assignable_v<Point2DBoundingRectangleCalculator>);

QRect rectangleOf(const QList<QPoint>& points)
{
    Point2DBoundingRectangleCalculator calculator;
    calculator.setPointSet(points);
    EXPECT_TRUE(calculator.run());
    return calculator.getBoundingRect();
}

TEST(Point2DBoundingRectangleCalculator,
     RectangleIsAnchoredAtTheLargestYAndItsSizesAreDifferencesByDesign)
{
    const QRect rectangle = rectangleOf({{1, 2}, {4, 7}, {3, 5}});
    EXPECT_EQ(rectangle.x(), 1);
    EXPECT_EQ(rectangle.y(), 7);
    EXPECT_EQ(rectangle.width(), 3);
    EXPECT_EQ(rectangle.height(), 5);
}

TEST(Point2DBoundingRectangleCalculator, SinglePointHasARectangleOfSizeZero)
{
    const QRect rectangle = rectangleOf({{5, 5}});
    EXPECT_EQ(rectangle.x(), 5);
    EXPECT_EQ(rectangle.y(), 5);
    EXPECT_EQ(rectangle.width(), 0);
    EXPECT_EQ(rectangle.height(), 0);
}

TEST(Point2DBoundingRectangleCalculator, OrderAndRepetitionOfPointsAreIgnored)
{
    EXPECT_EQ(rectangleOf({{-3, 9}, {8, -6}}), QRect(-3, 9, 11, 15));
    EXPECT_EQ(rectangleOf({{8, 9}, {-3, -6}, {8, 9}, {0, 0}}), QRect(-3, 9, 11, 15));
}

TEST(Point2DBoundingRectangleCalculator, HasANullRectangleBeforeTheFirstRun)
{
    Point2DBoundingRectangleCalculator calculator;
    EXPECT_EQ(calculator.getBoundingRect(), QRect());
    calculator.setPointSet({{1, 2}});
    EXPECT_EQ(calculator.getBoundingRect(), QRect());
}

TEST(Point2DBoundingRectangleCalculator, EmptySetIsRefusedAndKeepsTheResultBefore)
{
    Point2DBoundingRectangleCalculator calculator;
    EXPECT_FALSE(calculator.run());
    EXPECT_EQ(calculator.getBoundingRect(), QRect());

    calculator.setPointSet({{1, 2}, {4, 7}});
    EXPECT_TRUE(calculator.run());
    calculator.setPointSet({});
    EXPECT_FALSE(calculator.run());
    EXPECT_EQ(calculator.getBoundingRect(), QRect(1, 7, 3, 5));
}

TEST(Point2DBoundingRectangleCalculator, EachRunStartsAgain)
{
    Point2DBoundingRectangleCalculator calculator;
    calculator.setPointSet({{-100, -100}, {100, 100}});
    calculator.run();
    calculator.setPointSet({{1, 2}, {4, 7}});
    calculator.run();
    EXPECT_EQ(calculator.getBoundingRect(), QRect(1, 7, 3, 5));
}

TEST(Point2DBoundingRectangleCalculator, KeepsACopyOfThePoints)
{
    QList<QPoint> points = {{1, 2}, {4, 7}};
    Point2DBoundingRectangleCalculator calculator;
    calculator.setPointSet(points);
    points.append({50, 50});
    calculator.run();
    EXPECT_EQ(calculator.getBoundingRect(), QRect(1, 7, 3, 5));
}

TEST(Point2DBoundingRectangleCalculator, CopyTakesPointsAndResultAlong)
{
    Point2DBoundingRectangleCalculator calculator;
    calculator.setPointSet({{1, 2}, {4, 7}});
    calculator.run();
    Point2DBoundingRectangleCalculator copy(calculator);
    EXPECT_EQ(copy.getBoundingRect(), QRect(1, 7, 3, 5));
    calculator.setPointSet({});
    EXPECT_TRUE(copy.run());

    Point2DBoundingRectangleCalculator assigned;
    assigned = copy;
    EXPECT_EQ(assigned.getBoundingRect(), QRect(1, 7, 3, 5));
    EXPECT_TRUE(assigned.run());
}

TEST(Point2DBoundingRectangleCalculator, EndsWhereIntEnds)
{
    // Differences of 2^32 - 1, limited to 2^31 - 1: from -2^31 to -2 are so many columns.
    const QRect widest = rectangleOf({{kIntMin, 0}, {kIntMax, 0}});
    EXPECT_EQ(widest.left(), kIntMin);
    EXPECT_EQ(widest.right(), -2);
    EXPECT_EQ(widest.width(), kIntMax);

    // 10 up from the largest int but 4 would end 5 beyond it.
    const QRect highest = rectangleOf({{0, kIntMax - 14}, {0, kIntMax - 4}});
    EXPECT_EQ(highest.top(), kIntMax - 4);
    EXPECT_EQ(highest.bottom(), kIntMax);

    const QRect lowest = rectangleOf({{kIntMin, kIntMin}});
    EXPECT_EQ(lowest.topLeft(), QPoint(kIntMin, kIntMin));
    EXPECT_EQ(lowest.bottomRight(), QPoint(kIntMin, kIntMin));
}

} // namespace
