// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Samples sixty oriented boxes of a 512 x 512 x 400 volume. Compares the sampling of the histogram
// creator with a triple loop that tests every voxel of a box's hull. Before it measures, the
// program checks that both give equal values in equal order and how much memory ours takes beyond
// its result.
#include <CoreAlgorithms/greyvalue/BoxSampling_p.h>
#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/math/OrientedBoundingBox.h>

#include <tests/support/ResliceBuilders.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <vector>

namespace {

std::atomic<std::size_t> allocated{0};
std::atomic<std::size_t> mostAllocated{0};

// Stores the size in front of the block.
constexpr std::size_t kHeader = alignof(std::max_align_t);

} // namespace

void* operator new(std::size_t size)
{
    auto* block = static_cast<std::byte*>(std::malloc(size + kHeader));
    if (!block)
        throw std::bad_alloc();
    new (block) std::size_t(size);
    const std::size_t now = allocated += size;
    std::size_t most = mostAllocated;
    while (now > most && !mostAllocated.compare_exchange_weak(most, now)) {
    }
    return block + kHeader;
}

void operator delete(void* memory) noexcept
{
    if (!memory)
        return;
    auto* block = static_cast<std::byte*>(memory) - kHeader;
    allocated -= *reinterpret_cast<std::size_t*>(block);
    std::free(block);
}

void operator delete(void* memory, std::size_t) noexcept
{
    operator delete(memory);
}

namespace {

using primitives::BoundingBox;

constexpr math::Ivec3 kSize{512, 512, 400};
constexpr float kVoxelMm = 0.3F;
constexpr std::size_t kMostBytesBeyond = std::size_t(1) << 20U;

struct Scene
{
    Scene() : image(kSize, {kVoxelMm, kVoxelMm, kVoxelMm}, image::Int16)
    {
        auto* voxel = static_cast<std::int16_t*>(image.dataPtr());
        for (std::size_t i = 0; i < image.voxelCount(); ++i)
            voxel[i] = static_cast<std::int16_t>(i * 2654435761U >> 16U);
        // The head is tilted in the scanner.
        QMatrix4x4 worldFromVoxel;
        worldFromVoxel.rotate(12.0F, 1.0F, 0.3F, -0.2F);
        worldFromVoxel.scale(kVoxelMm);
        voxelFromWorld = worldFromVoxel.inverted();
        test::RandomGeometry random(1);
        for (int i = 0; i < 60; ++i) {
            const QVector3D center =
                worldFromVoxel.map({random.number(60.0F, 450.0F), random.number(60.0F, 450.0F),
                                    random.number(60.0F, 340.0F)});
            // Every other box has the size of a landmark's region, the rest that of a tooth's.
            const QVector3D half =
                i % 2 == 0 ? QVector3D(5.0F, 5.0F, 5.0F) : QVector3D(2.5F, 2.5F, 4.0F);
            boxes.emplace_back(center - half, center + half);
        }
    }

    VexelImage3D image;
    QMatrix4x4 voxelFromWorld;
    std::vector<BoundingBox> boxes;
};

const Scene& scene()
{
    static const Scene once;
    return once;
}

std::vector<int> plainLoop(const Scene& scene)
{
    std::vector<int> values;
    const auto* voxels = static_cast<const std::int16_t*>(scene.image.dataPtr());
    for (const BoundingBox& box : scene.boxes) {
        const auto placed = primitives::OrientedBoundingBox(box).transformed(scene.voxelFromWorld);
        const BoundingBox hull = placed.getAABBOfTransformedBoundingBox();
        const auto first = [](float bound) { return std::max(0, int(std::round(bound))); };
        const auto last = [](float bound, int size) {
            return std::min(size - 1, int(std::round(bound)));
        };
        for (int z = first(hull.min().z()); z <= last(hull.max().z(), kSize.z); ++z) {
            for (int y = first(hull.min().y()); y <= last(hull.max().y(), kSize.y); ++y) {
                for (int x = first(hull.min().x()); x <= last(hull.max().x(), kSize.x); ++x) {
                    if (placed.isInside({float(x), float(y), float(z)}))
                        values.push_back(
                            voxels[(std::size_t(z) * kSize.y + std::size_t(y)) * kSize.x +
                                   std::size_t(x)]);
                }
            }
        }
    }
    return values;
}

void sampleBoxes(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            greyvalue::sampleBoxes(scene().image, scene().boxes, scene().voxelFromWorld));
}

void tripleLoop(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(plainLoop(scene()));
}

BENCHMARK(sampleBoxes)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();
BENCHMARK(tripleLoop)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();

// Returns whether ours equals the plain loop and takes less than 1 MiB beyond its result.
bool check()
{
    const Scene& once = scene();
    const std::vector<int> expected = plainLoop(once);
    const std::size_t before = allocated;
    mostAllocated = before;
    const std::vector<int> values =
        greyvalue::sampleBoxes(once.image, once.boxes, once.voxelFromWorld);
    const std::size_t beyond = mostAllocated - before - values.size() * sizeof(int);
    std::printf("%zu values, %s; %zu bytes beyond the result\n", values.size(),
                values == expected ? "equal in equal order" : "NOT EQUAL", beyond);
    return values == expected && beyond < kMostBytesBeyond;
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (!check())
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
