// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <phantom/Canals_p.h>

#include <array>

namespace phantom {

namespace {

// (offset from the midline, y, z). The first and the last point are outside the bone, their
// neighbors inside: the foramina are where the line between them meets the surface.
constexpr auto kRightCourse = std::to_array<Point>({
    {37.0, 90.0, 72.0},
    {43.5, 87.5, 66.0},
    {43.0, 84.5, 57.0},
    {37.6, 79.5, 47.5},
    {31.8, 72.6, 40.2},
    {27.8, 66.0, 36.0},
    {24.8, 59.0, 34.2},
    {22.8, 53.0, 33.9},
    {21.6, 49.4, 37.2},
    {27.0, 47.6, 42.2},
});
constexpr auto kLeftCourse = std::to_array<Point>({
    {37.5, 90.5, 72.0},
    {44.5, 87.5, 66.0},
    {44.0, 84.0, 56.5},
    {38.0, 78.8, 46.5},
    {32.2, 72.2, 38.8},
    {28.1, 65.5, 34.6},
    {24.8, 58.5, 32.8},
    {22.6, 52.6, 33.2},
    {21.5, 48.9, 38.0},
    {27.0, 47.0, 44.4},
});

constexpr double kSampleDistance = 0.7; // mm, the longest

// Returns where the line from a point outside to a point inside enters the bone.
Point entryIntoBone(const Mandible& mandible, Point outside, Point inside)
{
    constexpr int halvings = 40;
    for (int i = 0; i < halvings; ++i) {
        const Point middle = 0.5 * (outside + inside);
        (mandible.depthAt(middle) < 0.0 ? outside : inside) = middle;
    }
    return inside;
}

// side: -1 for the patient's right, 1 for the left.
std::vector<Point> canalThrough(const Mandible& mandible, std::span<const Point> course,
                                double side)
{
    std::vector<Point> points;
    for (const Point& corner : course)
        points.push_back({kMidlineX + side * corner.x, corner.y, corner.z});
    const std::size_t last = points.size() - 1;
    points[0] = entryIntoBone(mandible, points[0], points[1]);
    points[last] = entryIntoBone(mandible, points[last], points[last - 1]);

    constexpr int finely = 64;
    const std::vector<Point> fine = smoothThrough(std::span<const Point>(points), finely);
    std::vector<Point> samples = {fine.front()};
    for (std::size_t i = 1; i + 1 < fine.size(); ++i) {
        if (length(fine[i + 1] - samples.back()) > kSampleDistance)
            samples.push_back(fine[i]);
    }
    samples.push_back(fine.back());
    return samples;
}

} // namespace

CanalShape::CanalShape(std::vector<Point> samples)
    : chain(std::move(samples)), low(chain.front()), high(chain.front())
{
    constexpr double reach = kCanalRadius + kCanalRim;
    for (const Point& sample : chain) {
        low = {std::min(low.x, sample.x - reach), std::min(low.y, sample.y - reach),
               std::min(low.z, sample.z - reach)};
        high = {std::max(high.x, sample.x + reach), std::max(high.y, sample.y + reach),
                std::max(high.z, sample.z + reach)};
    }
}

void CanalShape::addReachable(Row& row, double y, double z) const
{
    if (y < low.y || y > high.y || z < low.z || z > high.z)
        return;
    constexpr double reach = kCanalRadius + kCanalRim;
    for (std::size_t i = 0; i + 1 < chain.size(); ++i) {
        const Point& a = chain[i];
        const Point& b = chain[i + 1];
        if (y >= std::min(a.y, b.y) - reach && y <= std::max(a.y, b.y) + reach &&
            z >= std::min(a.z, b.z) - reach && z <= std::max(a.z, b.z) + reach)
            row.append(int(i));
    }
}

double CanalShape::squaredDistance(const Row& row, const Point& position, double limit) const
{
    double nearest = limit;
    if (position.x < low.x || position.x > high.x)
        return nearest;
    for (const int i : row) {
        const Point& start = chain[i];
        const Point along = chain[i + 1] - start;
        const Point away = position - (start + closestFraction(position, start, along) * along);
        nearest = std::min(nearest, dot(away, away));
    }
    return nearest;
}

std::vector<Point> courseOfRightCanal(const Mandible& mandible)
{
    return canalThrough(mandible, kRightCourse, -1.0);
}

std::vector<Point> courseOfLeftCanal(const Mandible& mandible)
{
    return canalThrough(mandible, kLeftCourse, 1.0);
}

} // namespace phantom
