// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <phantom/Jaws_p.h>

#include <array>

namespace phantom {

namespace {

constexpr double kFarOutside = -1000.0; // mm, where the exact depth does not matter

// offset, y, crestZ, baseZ, halfCrest, halfBase, lean
constexpr auto kMandibleSections = std::to_array<RidgeSection>({
    {0.0, 38.0, 50.5, 18.0, 4.6, 6.6, -1.8},
    {6.0, 38.9, 50.5, 18.2, 4.6, 6.6, -1.5},
    {11.5, 41.5, 50.5, 19.2, 4.8, 6.2, 0.0},
    {15.5, 46.0, 50.8, 20.3, 5.2, 6.2, 1.8},
    {18.3, 52.0, 51.0, 21.2, 5.6, 6.2, 3.2},
    {21.0, 60.0, 51.5, 22.5, 6.4, 6.2, 4.8},
    {23.5, 69.0, 52.0, 24.5, 6.6, 6.0, 6.5},
    {28.5, 76.5, 52.5, 27.5, 6.4, 5.6, 7.5},
    {35.5, 82.5, 52.0, 31.0, 5.4, 5.0, 6.0},
    {43.0, 90.0, 50.0, 36.0, 4.4, 4.4, 2.5},
});

constexpr auto kMaxillaSections = std::to_array<RidgeSection>({
    {0.0, 34.5, 71.0, 89.0, 5.0, 4.6, -4.0},
    {7.0, 35.5, 71.0, 89.0, 5.0, 5.0, -4.0},
    {13.0, 39.0, 71.0, 89.0, 5.0, 5.0, -3.0},
    {18.0, 45.0, 70.8, 88.0, 5.4, 5.4, -1.5},
    {21.0, 52.0, 70.2, 86.5, 6.0, 6.2, -0.5},
    {23.5, 60.0, 69.6, 86.0, 7.2, 7.4, 0.0},
    {25.5, 69.0, 69.0, 86.0, 7.0, 7.0, 0.0},
    {25.5, 76.0, 69.5, 86.0, 5.0, 6.0, 0.0},
});

// The ramus seen from the patient's right, (y, z), from the angle up the posterior border.
constexpr auto kRamusOutline = std::to_array<Point>({
    {0.0, 96.5, 40.0},
    {0.0, 100.5, 52.0},
    {0.0, 101.5, 68.0},
    {0.0, 103.5, 82.0},
    {0.0, 107.5, 95.0},
    {0.0, 101.5, 96.0},
    {0.0, 96.5, 86.5},
    {0.0, 90.0, 82.5},
    {0.0, 84.5, 87.0},
    {0.0, 80.5, 95.0},
    {0.0, 76.5, 92.5},
    {0.0, 77.5, 80.0},
    {0.0, 77.0, 68.0},
    {0.0, 75.0, 56.0},
    {0.0, 78.0, 46.0},
    {0.0, 82.0, 37.0},
    {0.0, 90.0, 35.5},
});

constexpr int kSectionsPerSpan = 4;
constexpr double kEdgeRounding = 0.7; // of the half-thickness
// The distance, in mm, within which the parts of the mandible run smoothly into each other.
constexpr double kFillet = 5.0;

std::vector<Point> smoothLoop(std::span<const Point> corners, int steps)
{
    const std::size_t count = corners.size();
    std::vector<Point> loop;
    for (std::size_t i = 0; i < count; ++i) {
        for (int step = 0; step < steps; ++step)
            loop.push_back(onSpline(corners[(i + count - 1) % count], corners[i],
                                    corners[(i + 1) % count], corners[(i + 2) % count],
                                    double(step) / steps));
    }
    return loop;
}

// Returns the distance to a loop in the plane x = 0, positive inside.
double depthInLoop(const std::vector<Point>& loop, const Point& position)
{
    double nearestSquared = square(kFarOutside);
    bool inside = false;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const Point& start = loop[i];
        const Point& end = loop[(i + 1) % loop.size()];
        const Point along = end - start;
        const Point away = position - (start + closestFraction(position, start, along) * along);
        nearestSquared = std::min(nearestSquared, dot(away, away));
        const bool crosses = (start.z > position.z) != (end.z > position.z);
        if (crosses && position.y < start.y + along.y * (position.z - start.z) / along.z)
            inside = !inside;
    }
    return inside ? std::sqrt(nearestSquared) : -std::sqrt(nearestSquared);
}

// Returns the larger of two depths, with a fillet where they are nearly equal.
double joined(double a, double b)
{
    const double overlap = std::max(kFillet - std::abs(a - b), 0.0) / kFillet;
    return std::max(a, b) + 0.25 * kFillet * square(overlap);
}

// The left half of the mandible flares: from the molars backward it is up to 1.5 mm farther from
// the midline.
double leftFlare(double y)
{
    constexpr double flare = 1.5;
    return flare * smoothStep((y - 55.0) / 30.0);
}

} // namespace

Ridge::Ridge(std::span<const RidgeSection> sectionsFromMidline)
    : sections(smoothThrough(sectionsFromMidline, kSectionsPerSpan))
{}

Ridge::Column Ridge::columnAt(double offsetFromMidline, double y) const
{
    constexpr double farthestBone = 20.0; // mm from the crest, lean and thickness taken together
    const Point here = {offsetFromMidline, y, 0.0};
    double nearestSquared = square(farthestBone);
    Column column{sections.front(), 0.0, false};
    for (std::size_t i = 0; i + 1 < sections.size(); ++i) {
        const Point start = {sections[i].offset, sections[i].y, 0.0};
        const Point along = Point{sections[i + 1].offset, sections[i + 1].y, 0.0} - start;
        const double t = closestFraction(here, start, along);
        const Point away = here - (start + t * along);
        const double squared = dot(away, away);
        if (squared >= nearestSquared)
            continue;
        nearestSquared = squared;
        const bool isOutside = away.x * along.y - away.y * along.x > 0.0;
        column.section = (1.0 - t) * sections[i] + t * sections[i + 1];
        column.outwards = isOutside ? std::sqrt(squared) : -std::sqrt(squared);
        column.isNear = true;
    }
    return column;
}

double Ridge::depthAt(const Column& column, double z)
{
    if (!column.isNear)
        return kFarOutside;
    const RidgeSection& section = column.section;
    const double low = std::min(section.crestZ, section.baseZ);
    const double high = std::max(section.crestZ, section.baseZ);
    if (z < low - kFillet || z > high + kFillet)
        return kFarOutside;
    const double towardsCrest =
        std::clamp((z - section.baseZ) / (section.crestZ - section.baseZ), 0.0, 1.0);
    const double middle = section.lean * (1.0 - towardsCrest);
    const double half = mix(section.halfBase, section.halfCrest, towardsCrest);
    const double pastSide = std::max(column.outwards - middle, middle - column.outwards) - half;
    const double pastEnd = std::max(z - high, low - z);
    return depthInRoundedBox(pastSide, pastEnd, kEdgeRounding * half);
}

Ramus::Ramus() : outline(smoothLoop(kRamusOutline, 4)) {}

Ramus::Row Ramus::rowAt(double y, double z) const
{
    constexpr double lowest = 25.0;
    constexpr double highest = 102.0;
    constexpr double foremost = 65.0;
    constexpr double hindmost = 112.0;
    Row row{kFarOutside, 0.0, 1.0};
    if (z < lowest || z > highest || y < foremost || y > hindmost)
        return row;
    row.insideOutline = depthInLoop(outline, {0.0, y, z});
    // The plate flares upward and comes in forward, where it meets the body.
    row.middle = 45.0 + 0.2 * std::max(z - 70.0, 0.0) - 0.45 * std::max(86.0 - y, 0.0);
    row.halfThickness = mix(3.4, 4.6, smoothStep((100.0 - z) / 40.0));
    return row;
}

double Ramus::depthAt(const Row& row, double offsetFromMidline)
{
    if (row.insideOutline < -kFillet)
        return kFarOutside;
    const double aside = offsetFromMidline - row.middle;
    const double pastSide = std::max(aside, -aside) - row.halfThickness;
    return depthInRoundedBox(pastSide, -row.insideOutline, kEdgeRounding * row.halfThickness);
}

Mandible::Mandible()
    : body(kMandibleSections), condyle{{47.0, 104.5, 96.5}, {55.0, 105.5, 96.0}, {4.0, 4.6, 4.6}}
{}

Mandible::Column Mandible::columnAt(double x, double y) const
{
    const double offset =
        x < kMidlineX ? kMidlineX - x : std::max(x - kMidlineX - leftFlare(y), 0.0);
    return {offset, body.columnAt(offset, y)};
}

Mandible::Row Mandible::rowAt(double y, double z) const
{
    return {ramus.rowAt(y, z), condyle.reaches(y, z), y, z};
}

double Mandible::depthAt(const Column& column, const Row& row) const
{
    double depth =
        joined(Ridge::depthAt(column.body, row.z), Ramus::depthAt(row.ramus, column.offset));
    if (row.reachesCondyle)
        depth = joined(depth, condyle.depthOf({column.offset, row.y, row.z}));
    return depth;
}

double Mandible::depthAt(const Point& position) const
{
    return depthAt(columnAt(position.x, position.y), rowAt(position.y, position.z));
}

Maxilla::Maxilla() : process(kMaxillaSections) {}

Ridge::Column Maxilla::columnAt(double x, double y) const
{
    return process.columnAt(std::abs(x - kMidlineX), y);
}

double Maxilla::depthAt(const Ridge::Column& column, double x, double y, double z) const
{
    constexpr double palateMiddleZ = 83.8;
    constexpr double palateHalfThickness = 2.0;
    constexpr double palateEndY = 77.0;
    constexpr double palateFrontY = 36.0;
    constexpr double palateHalfWidth = 24.0;
    const double depth = Ridge::depthAt(column, z);
    if (column.isNear && column.outwards > 0.0)
        return depth;
    const double aside = std::abs(x - kMidlineX);
    // Vaulted: highest on the midline.
    const double middleZ = palateMiddleZ - 0.004 * aside * aside;
    const double pastFaces = std::max(z - middleZ, middleZ - z) - palateHalfThickness;
    const double pastEdges = std::max({y - palateEndY, palateFrontY - y, aside - palateHalfWidth});
    return std::max(depth, depthInRoundedBox(pastFaces, pastEdges, palateHalfThickness));
}

} // namespace phantom
