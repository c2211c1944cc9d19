// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <phantom/Geometry_p.h>
#include <phantom/Jaws_p.h>

#include <QVarLengthArray>

#include <vector>

namespace phantom {

inline constexpr double kCanalRadius = 1.2; // mm
inline constexpr double kCanalRim = 0.5;    // mm of cortical bone around the nerve

/// A mandibular canal: a tube along a chain of samples.
class CanalShape
{
public:
    /// The stretches of the chain that a line in x may come close to.
    using Row = QVarLengthArray<int, 32>;

    explicit CanalShape(std::vector<Point> samples);

    const std::vector<Point>& centerLine() const { return chain; }
    /// Adds the stretches that a line in x at (y, z) may come close to.
    void addReachable(Row& row, double y, double z) const;
    /// Returns the squared distance from the center line, at most `limit`.
    double squaredDistance(const Row& row, const Point& position, double limit) const;

private:
    std::vector<Point> chain;
    Point low;
    Point high;
};

/// Returns the center line of the right canal from the mandibular to the mental foramen, both on
/// the surface of the bone, in samples less than 1 mm apart.
std::vector<Point> courseOfRightCanal(const Mandible& mandible);
/// Does the same for the left canal.
std::vector<Point> courseOfLeftCanal(const Mandible& mandible);

} // namespace phantom
