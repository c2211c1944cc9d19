// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/PathSearch_p.h>

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/model/Finite_p.h>

#include <algorithm>
#include <limits>

namespace reslice {

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

struct Box
{
    // An empty box is infinitely far from everything.
    QVector3D low{kInfinity, kInfinity, kInfinity};
    QVector3D high{-kInfinity, -kInfinity, -kInfinity};

    void include(const Box& other)
    {
        for (int axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], other.low[axis]);
            high[axis] = std::max(high[axis], other.high[axis]);
        }
    }
};

// Returns how far a coordinate is outside an interval, 0 inside.
float beyond(float low, float high, float coordinate)
{
    return std::max(std::max(low - coordinate, coordinate - high), 0.0F);
}

// The sum has the order of QVector3D::lengthSquared().
float lengthSquared(float x, float y, float z)
{
    return x * x + y * y + z * z;
}

std::size_t countParts(std::size_t size, std::size_t partSize)
{
    return (size + partSize - 1) / partSize;
}

} // namespace

PathSearch::PathSearch(const QList<QVector3D>& samples)
    : path(samples),
      isSearchable(!samples.isEmpty() && samples.size() <= std::numeric_limits<int>::max() &&
                   std::ranges::all_of(samples, [](const QVector3D& sample) {
                       return finiteness::isFinite(sample);
                   }))
{
    if (!isSearchable)
        return;

    const std::size_t size = path.size();
    runs.resize(countParts(size, RUN_LENGTH));
    std::vector<Box> boxes(runs.size());
    for (std::size_t i = 0; i < runs.size() * RUN_LENGTH; ++i) {
        Run& run = runs[i / RUN_LENGTH];
        const std::size_t place = i % RUN_LENGTH;
        // The last run is filled up with positions that are infinitely far from every point.
        const QVector3D sample = i < size ? path[i] : QVector3D(kInfinity, kInfinity, kInfinity);
        run.x[place] = sample.x();
        run.y[place] = sample.y();
        run.z[place] = sample.z();
        if (i < size)
            boxes[i / RUN_LENGTH].include({sample, sample});
    }

    do {
        std::vector<BoxGroup> groups(countParts(boxes.size(), GROUP_SIZE));
        std::vector<Box> around(groups.size());
        for (std::size_t i = 0; i < groups.size() * GROUP_SIZE; ++i) {
            BoxGroup& group = groups[i / GROUP_SIZE];
            const std::size_t place = i % GROUP_SIZE;
            const Box box = i < boxes.size() ? boxes[i] : Box();
            group.lowX[place] = box.low.x();
            group.lowY[place] = box.low.y();
            group.lowZ[place] = box.low.z();
            group.highX[place] = box.high.x();
            group.highY[place] = box.high.y();
            group.highZ[place] = box.high.z();
            around[i / GROUP_SIZE].include(box);
        }
        levels.push_back(std::move(groups));
        boxes = std::move(around);
    } while (boxes.size() > 1);
}

int PathSearch::nearestTo(const QVector3D& point)
{
    if (!isSearchable || !finiteness::isFinite(point))
        return ComputeIndexOnGuidingLine::getIndexOf(point, path);
    Nearest nearest{nearestBefore, (path.at(nearestBefore) - point).lengthSquared()};
    searchGroup(levels.size() - 1, 0, point, nearest);
    nearestBefore = nearest.index;
    return nearest.index;
}

void PathSearch::searchGroup(std::size_t level, std::size_t group, const QVector3D& point,
                             Nearest& nearest) const
{
    const BoxGroup& boxes = levels[level][group];
    std::array<float, GROUP_SIZE> squaredDistances;
    for (std::size_t i = 0; i < GROUP_SIZE; ++i) {
        squaredDistances[i] = lengthSquared(beyond(boxes.lowX[i], boxes.highX[i], point.x()),
                                            beyond(boxes.lowY[i], boxes.highY[i], point.y()),
                                            beyond(boxes.lowZ[i], boxes.highZ[i], point.z()));
    }
    const std::size_t parts = level == 0 ? runs.size() : levels[level - 1].size();
    const auto search = [&](std::size_t place) {
        const std::size_t part = group * GROUP_SIZE + place;
        if (squaredDistances[place] > nearest.squaredDistance || part >= parts)
            return;
        if (level == 0)
            searchRun(part, point, nearest);
        else
            searchGroup(level - 1, part, point, nearest);
    };
    // The closest comes first: after it, the fewest of the others need to be searched.
    const std::size_t first = std::ranges::min_element(squaredDistances) - squaredDistances.begin();
    search(first);
    for (std::size_t place = 0; place < GROUP_SIZE; ++place) {
        if (place != first)
            search(place);
    }
}

void PathSearch::searchRun(std::size_t run, const QVector3D& point, Nearest& nearest) const
{
    const Run& samples = runs[run];
    std::array<float, RUN_LENGTH> squaredDistances;
    for (std::size_t i = 0; i < RUN_LENGTH; ++i) {
        squaredDistances[i] = lengthSquared(samples.x[i] - point.x(), samples.y[i] - point.y(),
                                            samples.z[i] - point.z());
    }
    const float smallest = std::ranges::min(squaredDistances);
    if (smallest > nearest.squaredDistance)
        return;
    const auto place = std::ranges::find(squaredDistances, smallest) - squaredDistances.begin();
    const int index = static_cast<int>(run) * RUN_LENGTH + static_cast<int>(place);
    if (smallest < nearest.squaredDistance || index < nearest.index)
        nearest = {index, smallest};
}

} // namespace reslice
