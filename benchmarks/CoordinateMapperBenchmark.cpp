// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Maps a million points onto a planar reslice. Compares the list operation of CoordinateMapper with
// a loop over an Eigen affine transform that fills the same list, and with the operation for one
// point, which inverts the reslice's matrix for every point.
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <tests/support/ResliceBuilders.h>

#include <Eigen/Geometry>
#include <benchmark/benchmark.h>

#include <cmath>

namespace {

using Images = QList<std::pair<QPointF, PointInPlane>>;

constexpr int kPoints = 1'000'000;

struct Scene
{
    Scene()
    {
        test::RandomGeometry random(1);
        reslice = test::makePlanarReslice(120.0F, 90.0F, 1.0F, random.rigidPlacement());
        points.reserve(kPoints);
        for (int i = 0; i < kPoints; ++i)
            points.append(random.point(100.0F));
    }

    std::shared_ptr<PlanarReslice> reslice;
    QList<QVector3D> points;
};

const Scene& scene()
{
    static const Scene once;
    return once;
}

void coordinateMapperList(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            CoordinateMapper::mapAllPointsOntoReslice(scene().points, *scene().reslice));
}

void eigenAffineLoop(benchmark::State& state)
{
    const QMatrix4x4 placement = scene().reslice->getTransformationFromResliceToWorld();
    Eigen::Affine3f worldFromLocal;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            worldFromLocal(row, column) = placement(row, column);
    }
    for (auto _ : state) {
        const Eigen::Affine3f localFromWorld = worldFromLocal.inverse();
        const float height = scene().reslice->getHeight();
        const float half = scene().reslice->getSampleSize().z() * 0.5F;
        Images images;
        images.reserve(scene().points.size());
        for (const QVector3D& point : scene().points) {
            const Eigen::Vector3f local =
                localFromWorld * Eigen::Vector3f(point.x(), point.y(), point.z());
            images.append(
                {QPointF(local.x(), double(height) - double(local.y())),
                 std::abs(local.z()) <= half ? PointInPlane::InPlane : PointInPlane::OutOfPlane});
        }
        benchmark::DoNotOptimize(images);
    }
}

void pointByPoint(benchmark::State& state)
{
    for (auto _ : state) {
        Images images;
        images.reserve(scene().points.size());
        for (const QVector3D& point : scene().points) {
            const auto [image, inPlane, inSlice] =
                CoordinateMapper::_3D_To_2D_Planar(scene().reslice.get(), point);
            images.append({image, inPlane});
        }
        benchmark::DoNotOptimize(images);
    }
}

BENCHMARK(coordinateMapperList)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();
BENCHMARK(eigenAffineLoop)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();
BENCHMARK(pointByPoint)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();

} // namespace
