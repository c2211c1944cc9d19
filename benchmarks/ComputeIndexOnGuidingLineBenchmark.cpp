// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Finds the sample of a path that is nearest to a point. Compares ComputeIndexOnGuidingLine with a
// plain loop and with a k-d tree (nanoflann) that is built for the call. Arguments: the numbers of
// samples and of points. All three return the first of equally near samples. readPath only reads
// the bytes of the path, which shows the speed of the memory.
#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>

#include <tests/support/ResliceBuilders.h>

#include <benchmark/benchmark.h>
#include <nanoflann.hpp>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <numbers>
#include <vector>

namespace {

using Path = QList<QVector3D>;

// Returns half an ellipse of the size of an arch. Coordinates are multiples of 1/64 mm, so that the
// longer paths have equal samples.
Path makePath(int size)
{
    Path path;
    path.reserve(size);
    const auto grid = [](double mm) { return static_cast<float>(std::round(mm * 64.0) / 64.0); };
    for (int i = 0; i < size; ++i) {
        const double angle = std::numbers::pi * i / size;
        path.append({grid(-28.0 * std::cos(angle)), grid(-50.0 * std::sin(angle)),
                     grid(std::sin(5.0 * angle))});
    }
    return path;
}

struct Scene
{
    Scene(int samples, int queries) : path(makePath(samples))
    {
        test::RandomGeometry random(1);
        for (int i = 0; i < queries; ++i) {
            const auto sample =
                static_cast<qsizetype>(random.number(0.0F, 1.0F) * static_cast<float>(samples - 1));
            points.push_back(path[sample] + random.point(5.0F));
        }
    }

    Path path;
    std::vector<QVector3D> points;
};

int plainLoop(const QVector3D& point, const Path& path)
{
    int nearest = 0;
    float smallest = (path[0] - point).lengthSquared();
    for (int i = 1; i < static_cast<int>(path.size()); ++i) {
        const float distance = (path[i] - point).lengthSquared();
        if (smallest > distance) {
            smallest = distance;
            nearest = i;
        }
    }
    return nearest;
}

struct PointCloud
{
    const Path& path;

    std::size_t kdtree_get_point_count() const { return static_cast<std::size_t>(path.size()); }
    float kdtree_get_pt(std::size_t i, std::size_t axis) const
    {
        return path[static_cast<qsizetype>(i)][static_cast<int>(axis)];
    }
    template <typename Box>
    bool kdtree_get_bbox(Box&) const
    {
        return false;
    }
};

using Tree = nanoflann::KDTreeSingleIndexAdaptor<nanoflann::L2_Simple_Adaptor<float, PointCloud>,
                                                 PointCloud, 3>;

// Keeps the first of equally near samples. The tree skips samples that are not nearer than
// worstDist(), by sums that it rounds in another order, so worstDist() is a little larger than the
// smallest distance.
class FirstNearest
{
public:
    using DistanceType = float;

    bool addPoint(float distance, std::uint32_t index)
    {
        if (distance < smallest || (distance == smallest && index < nearest)) {
            smallest = distance;
            nearest = index;
        }
        return true;
    }
    float worstDist() const { return smallest * 1.0001F + 1e-6F; }
    bool full() const { return true; }
    int index() const { return static_cast<int>(nearest); }

private:
    float smallest = std::numeric_limits<float>::max() / 2.0F;
    std::uint32_t nearest = 0;
};

int treeSearch(const QVector3D& point, const Tree& tree)
{
    const float coordinates[3] = {point.x(), point.y(), point.z()};
    FirstNearest result;
    tree.findNeighbors(result, coordinates, nanoflann::SearchParams());
    return result.index();
}

Tree makeTree(const PointCloud& cloud)
{
    return Tree(3, cloud, nanoflann::KDTreeSingleIndexAdaptorParams(10));
}

void computeIndex(benchmark::State& state)
{
    const Scene scene(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        for (const QVector3D& point : scene.points)
            benchmark::DoNotOptimize(ComputeIndexOnGuidingLine::getIndexOf(point, scene.path));
    }
    state.SetBytesProcessed(state.iterations() * state.range(0) * state.range(1) * 12);

    const PointCloud cloud{scene.path};
    const Tree tree = makeTree(cloud);
    for (const QVector3D& point : scene.points) {
        const int index = ComputeIndexOnGuidingLine::getIndexOf(point, scene.path);
        if (index != plainLoop(point, scene.path) || index != treeSearch(point, tree))
            state.SkipWithError("the indices differ");
    }
}

void plain(benchmark::State& state)
{
    const Scene scene(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        for (const QVector3D& point : scene.points)
            benchmark::DoNotOptimize(plainLoop(point, scene.path));
    }
    state.SetBytesProcessed(state.iterations() * state.range(0) * state.range(1) * 12);
}

void kdTree(benchmark::State& state)
{
    const Scene scene(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        const PointCloud cloud{scene.path};
        const Tree tree = makeTree(cloud);
        for (const QVector3D& point : scene.points)
            benchmark::DoNotOptimize(treeSearch(point, tree));
    }
}

void readPath(benchmark::State& state)
{
    const Path path = makePath(static_cast<int>(state.range(0)));
    // memchr reads at the full speed of the machine. The byte that it looks for does not occur
    // before the end.
    std::vector<unsigned char> bytes(static_cast<std::size_t>(path.size()) * sizeof(QVector3D) + 1,
                                     1);
    bytes.back() = 2;
    for (auto _ : state)
        benchmark::DoNotOptimize(std::memchr(bytes.data(), 2, bytes.size()));
    state.SetBytesProcessed(state.iterations() * state.range(0) * 12);
}

void pathsAndPoints(benchmark::internal::Benchmark* bench)
{
    for (const int samples : {1'000, 10'000, 1'000'000}) {
        for (const int points : {1, 1'000})
            bench->Args({samples, points});
    }
}

BENCHMARK(computeIndex)
    ->Apply(pathsAndPoints)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();
BENCHMARK(plain)
    ->Apply(pathsAndPoints)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();
BENCHMARK(kdTree)
    ->Apply(pathsAndPoints)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();
BENCHMARK(readPath)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();

} // namespace
