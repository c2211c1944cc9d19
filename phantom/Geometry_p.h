// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <utility>
#include <vector>

/// The geometry of the phantom's anatomy. Lengths are in mm, positions in the patient's frame.
///
/// It uses addition, multiplication, division, square root and comparison alone. These round in the
/// same way on every machine, and so the anatomy is the same everywhere.
namespace phantom {

struct Point
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

inline constexpr double kMidlineX = 75.0;
inline constexpr Point kExtent = {150.0, 165.0, 130.0}; ///< of the painted volume, from the origin

inline Point operator+(const Point& a, const Point& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline Point operator-(const Point& a, const Point& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline Point operator*(double factor, const Point& a)
{
    return {factor * a.x, factor * a.y, factor * a.z};
}

inline double dot(const Point& a, const Point& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline double length(const Point& a)
{
    return std::sqrt(dot(a, a));
}

inline double square(double value)
{
    return value * value;
}

inline double mix(double from, double to, double fraction)
{
    return from + (to - from) * fraction;
}

/// Returns 0 below 0, 1 above 1, and between them a cubic that is level at both ends.
inline double smoothStep(double value)
{
    const double t = std::clamp(value, 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

/// Returns the fraction of the way from `start` along `direction` at which the segment is closest
/// to the point.
inline double closestFraction(const Point& point, const Point& start, const Point& direction)
{
    const double squaredLength = dot(direction, direction);
    if (squaredLength <= 0.0)
        return 0.0;
    return std::clamp(dot(point - start, direction) / squaredLength, 0.0, 1.0);
}

/// Returns the depth below the surface of a box with rounded edges, negative outside. `pastA` and
/// `pastB` are the signed distances past the two pairs of faces, negative inside.
inline double depthInRoundedBox(double pastA, double pastB, double rounding)
{
    const double a = pastA + rounding;
    const double b = pastB + rounding;
    const double inside = std::min(std::max(a, b), 0.0);
    const double outside = std::sqrt(square(std::max(a, 0.0)) + square(std::max(b, 0.0)));
    return rounding - outside - inside;
}

/// Returns a point of the cubic from `b` (t = 0) to `c` (t = 1) whose tangents are parallel to ac
/// and bd.
template <typename Value>
Value onSpline(const Value& a, const Value& b, const Value& c, const Value& d, double t)
{
    const double t2 = t * t;
    const double t3 = t2 * t;
    return (0.5 * (2.0 * t2 - t3 - t)) * a + (0.5 * (3.0 * t3 - 5.0 * t2 + 2.0)) * b +
           (0.5 * (4.0 * t2 - 3.0 * t3 + t)) * c + (0.5 * (t3 - t2)) * d;
}

/// Returns a smooth open curve through all points, with `steps` samples for each span.
template <typename Value>
std::vector<Value> smoothThrough(std::span<const Value> points, int steps)
{
    std::vector<Value> curve;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const Value& before = points[i == 0 ? 0 : i - 1];
        const Value& after = points[std::min(i + 2, points.size() - 1)];
        for (int step = 0; step < steps; ++step)
            curve.push_back(
                onSpline(before, points[i], points[i + 1], after, double(step) / steps));
    }
    curve.push_back(points.back());
    return curve;
}

/// A smooth function through knots (position, value) in ascending position, constant beyond the
/// first and the last.
class Profile
{
public:
    Profile(std::initializer_list<std::pair<double, double>> knots) : all(knots) {}

    double at(double position) const
    {
        if (position <= all.front().first)
            return all.front().second;
        if (position >= all.back().first)
            return all.back().second;
        std::size_t i = 0;
        while (all[i + 1].first < position)
            ++i;
        const double span = all[i + 1].first - all[i].first;
        const double t = (position - all[i].first) / span;
        const double rise = square(t) * (3.0 - 2.0 * t);
        const double bend =
            t * square(1.0 - t) * span * slopeAt(i) - square(t) * (1.0 - t) * span * slopeAt(i + 1);
        return mix(all[i].second, all[i + 1].second, rise) + bend;
    }

private:
    // Returns the slope between the neighbors of a knot.
    double slopeAt(std::size_t knot) const
    {
        const auto& before = all[knot == 0 ? 0 : knot - 1];
        const auto& after = all[std::min(knot + 1, all.size() - 1)];
        return (after.second - before.second) / (after.first - before.first);
    }

    std::vector<std::pair<double, double>> all;
};

/// An ellipsoid moved along a segment, or the ellipsoid itself if both ends are equal.
struct Ovoid
{
    Point from;
    Point to;
    Point semiAxes;

    bool reaches(double y, double z) const
    {
        return y >= std::min(from.y, to.y) - semiAxes.y &&
               y <= std::max(from.y, to.y) + semiAxes.y &&
               z >= std::min(from.z, to.z) - semiAxes.z && z <= std::max(from.z, to.z) + semiAxes.z;
    }

    bool reachesAlongX(double x) const
    {
        return x >= std::min(from.x, to.x) - semiAxes.x && x <= std::max(from.x, to.x) + semiAxes.x;
    }

    /// Returns an estimate of the depth below the surface, negative outside and zero on it.
    double depthOf(const Point& point) const
    {
        const Point start = scaled(from);
        const Point direction = scaled(to) - start;
        const Point p = scaled(point);
        const double t = closestFraction(p, start, direction);
        const double radius = length(p - (start + t * direction));
        return (1.0 - radius) * std::min({semiAxes.x, semiAxes.y, semiAxes.z});
    }

private:
    Point scaled(const Point& p) const
    {
        return {p.x / semiAxes.x, p.y / semiAxes.y, p.z / semiAxes.z};
    }
};

} // namespace phantom
