// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/JawScans.h>

#include <phantom/Phantom.h>

#include <QVector3D>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace planner {

namespace {

constexpr float kStepMm = 0.5F;
constexpr float kCrownMm = 6.0F; // kept of each tooth, from its occlusal point toward the root
constexpr float kRoundMm = 7.0F; // of every tooth's axis, wide enough for a molar
constexpr float kAboveMm = 2.0F; // beyond the highest occlusal point, for cusps

// How much of a place's neighborhood is tooth, 0 to 1, on a grid around one arch.
class ToothGrid
{
public:
    ToothGrid(const phantom::Patient& patient, ToothChart::ArchType arch,
              const std::function<void(double)>& progress)
        : archType(arch)
    {
        for (const phantom::Tooth& tooth : patient.teeth()) {
            if (ToothChart::getArchTypeOfTooth(tooth.number) == arch)
                teeth.push_back(tooth);
        }
        const bool upper = arch == ToothChart::UpperArch;
        crownwards = upper ? -1.0F : 1.0F;
        QVector3D low = teeth.front().occlusalPoint;
        QVector3D high = low;
        for (const phantom::Tooth& tooth : teeth) {
            for (int axis = 0; axis < 3; ++axis) {
                low[axis] = std::min(low[axis], tooth.occlusalPoint[axis]);
                high[axis] = std::max(high[axis], tooth.occlusalPoint[axis]);
            }
        }
        const QVector3D round(kRoundMm, kRoundMm, 0.0F);
        const float rootwards = kCrownMm;
        low -= round + QVector3D(0.0F, 0.0F, upper ? kAboveMm : rootwards);
        high += round + QVector3D(0.0F, 0.0F, upper ? rootwards : kAboveMm);
        origin = low;
        for (int axis = 0; axis < 3; ++axis)
            size[axis] = static_cast<int>(std::ceil((high[axis] - low[axis]) / kStepMm)) + 1;
        std::vector<float> isTooth(static_cast<std::size_t>(size[0]) * size[1] * size[2], 0.0F);
        for (int z = 0; z < size[2]; ++z) {
            for (int y = 0; y < size[1]; ++y) {
                for (int x = 0; x < size[0]; ++x)
                    isTooth[number(x, y, z)] = toothAt(patient, position(x, y, z)) ? 1.0F : 0.0F;
            }
            if (progress)
                progress(double(z + 1) / size[2]);
        }
        smooth(isTooth);
    }

    int extent(int axis) const { return size[axis]; }
    float fraction(int x, int y, int z) const { return fractions[number(x, y, z)]; }
    QVector3D position(int x, int y, int z) const
    {
        return origin + QVector3D(float(x), float(y), float(z)) * kStepMm;
    }

private:
    std::size_t number(int x, int y, int z) const
    {
        return (static_cast<std::size_t>(z) * size[1] + y) * size[0] + x;
    }

    bool toothAt(const phantom::Patient& patient, const QVector3D& place) const
    {
        // Only near a tooth and within its crown: the patient is dear to ask.
        const bool near = std::ranges::any_of(teeth, [&](const phantom::Tooth& tooth) {
            const QVector3D offset = place - tooth.occlusalPoint;
            return std::hypot(offset.x(), offset.y()) < kRoundMm &&
                   offset.z() * crownwards > -kCrownMm;
        });
        if (!near)
            return false;
        const ToothChart::Tooth tooth = patient.toothAt(place);
        return tooth != ToothChart::NoTooth && ToothChart::getArchTypeOfTooth(tooth) == archType;
    }

    // The mean over the 27 places around.
    void smooth(const std::vector<float>& isTooth)
    {
        fractions.resize(isTooth.size());
        const auto clamped = [this](int axis, int index) {
            return std::clamp(index, 0, size[axis] - 1);
        };
        for (int z = 0; z < size[2]; ++z) {
            for (int y = 0; y < size[1]; ++y) {
                for (int x = 0; x < size[0]; ++x) {
                    float sum = 0.0F;
                    for (int n = 0; n < 27; ++n)
                        sum +=
                            isTooth[number(clamped(0, x + n % 3 - 1), clamped(1, y + n / 3 % 3 - 1),
                                           clamped(2, z + n / 9 - 1))];
                    fractions[number(x, y, z)] = sum / 27.0F;
                }
            }
        }
    }

    ToothChart::ArchType archType;
    std::vector<phantom::Tooth> teeth;
    float crownwards = 1.0F;
    QVector3D origin;
    std::array<int, 3> size{};
    std::vector<float> fractions;
};

constexpr float kBorder = 0.5F;

// One vertex for every cell that the surface passes, at the mean of its crossings with the cell's
// edges, and two triangles for every edge of the grid that it crosses, between the four cells
// around.
class SurfaceNet
{
public:
    explicit SurfaceNet(const ToothGrid& toothGrid) : grid(toothGrid)
    {
        cells.assign(static_cast<std::size_t>(grid.extent(0)) * grid.extent(1) * grid.extent(2),
                     -1);
        for (int z = 0; z + 1 < grid.extent(2); ++z) {
            for (int y = 0; y + 1 < grid.extent(1); ++y) {
                for (int x = 0; x + 1 < grid.extent(0); ++x)
                    addVertex({x, y, z});
            }
        }
        for (int z = 1; z + 1 < grid.extent(2); ++z) {
            for (int y = 1; y + 1 < grid.extent(1); ++y) {
                for (int x = 1; x + 1 < grid.extent(0); ++x) {
                    for (int axis = 0; axis < 3; ++axis)
                        addFace({x, y, z}, axis);
                }
            }
        }
    }

    geometry::Mesh mesh() const { return geometry::Mesh(vertices, indices); }

private:
    using Place = std::array<int, 3>;

    float fraction(const Place& place) const { return grid.fraction(place[0], place[1], place[2]); }
    QVector3D position(const Place& place) const
    {
        return grid.position(place[0], place[1], place[2]);
    }
    int& cell(const Place& place)
    {
        return cells[(static_cast<std::size_t>(place[2]) * grid.extent(1) + place[1]) *
                         grid.extent(0) +
                     place[0]];
    }

    void addVertex(const Place& place)
    {
        QVector3D sum;
        int crossings = 0;
        for (int corner = 0; corner < 8; ++corner) {
            const Place from{place[0] + (corner & 1), place[1] + (corner >> 1 & 1),
                             place[2] + (corner >> 2)};
            for (int axis = 0; axis < 3; ++axis) {
                if ((corner >> axis & 1) != 0)
                    continue;
                Place to = from;
                ++to[axis];
                const float a = fraction(from);
                const float b = fraction(to);
                if ((a >= kBorder) == (b >= kBorder))
                    continue;
                sum += position(from) + (position(to) - position(from)) * ((kBorder - a) / (b - a));
                ++crossings;
            }
        }
        if (crossings == 0)
            return;
        cell(place) = static_cast<int>(vertices.size());
        vertices.append(sum / float(crossings));
    }

    void addFace(const Place& place, int axis)
    {
        Place next = place;
        ++next[axis];
        const bool inside = fraction(place) >= kBorder;
        if (inside == (fraction(next) >= kBorder))
            return;
        const int second = (axis + 1) % 3;
        const int third = (axis + 2) % 3;
        std::array<int, 4> corners{};
        for (int n = 0; n < 4; ++n) {
            Place around = place;
            around[second] -= n == 0 || n == 3 ? 1 : 0;
            around[third] -= n < 2 ? 1 : 0;
            corners[n] = cell(around);
        }
        if (!inside)
            std::swap(corners[1], corners[3]);
        indices << corners[0] << corners[1] << corners[2] << -1;
        indices << corners[0] << corners[2] << corners[3] << -1;
    }

    const ToothGrid& grid;
    std::vector<int> cells;
    QList<QVector3D> vertices;
    QList<int> indices;
};

} // namespace

geometry::Mesh scanCrowns(const phantom::Patient& patient, ToothChart::ArchType arch,
                          const std::function<void(double)>& progress)
{
    const ToothGrid grid(patient, arch, progress);
    return SurfaceNet(grid).mesh();
}

} // namespace planner
