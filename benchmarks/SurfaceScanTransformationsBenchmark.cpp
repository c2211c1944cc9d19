// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Moves a scan of a million vertices. Compares one change of state with the same product in Eigen
// over the vertex array, in place and vertex by vertex. Also measures the height of the scan above
// its center, compared with a plain loop over QQuaternion::rotatedVector().
#include <CoreAlgorithms/model/dataobjects/SurfaceScans.h>
#include <CoreAlgorithms/model/math/Operations.h>
#include <CoreAlgorithms/transforms/SurfaceScanTransformations.h>

#include <tests/support/ScanBuilders.h>

#include <Eigen/Geometry>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kVertices = 1'000'000;

struct Scene
{
    Scene()
    {
        test::RandomGeometry random(1);
        QList<QVector3D> vertices;
        vertices.reserve(kVertices);
        for (int i = 0; i < kVertices; ++i)
            vertices.append(random.point(40.0F));
        planning = random.rigidPlacement();
        scan.setMesh(geometry::Mesh(vertices, {}));
        scan.setSurfaceScanAlignment(test::randomAlignment(random, true));
        for (const QVector3D& vertex : vertices)
            eigenVertices.emplace_back(vertex.x(), vertex.y(), vertex.z());
        center = scan.getCenterOfMass();
    }

    SurfaceScan scan;
    QMatrix4x4 planning;
    std::vector<Eigen::Vector3f> eigenVertices;
    QVector3D center;
};

Scene& scene()
{
    static Scene once;
    return once;
}

void changeOfState(benchmark::State& state)
{
    for (auto _ : state) {
        if (scene().scan.isFreehandAligned())
            SurfaceScanTransformations::freehandToRegistration(&scene().scan, scene().planning);
        else
            SurfaceScanTransformations::registratedToFreehand(&scene().scan, scene().planning);
    }
}

void eigenAffineInPlace(benchmark::State& state)
{
    const QMatrix4x4 matrix =
        SurfaceScanTransformations::getTotalTransform(&scene().scan, scene().planning);
    Eigen::Affine3f move;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            move(row, column) = matrix(row, column);
    }
    for (auto _ : state) {
        for (Eigen::Vector3f& vertex : scene().eigenVertices)
            vertex = move * vertex;
        move = move.inverse();
        benchmark::ClobberMemory();
    }
}

void eigenMatrixInPlace(benchmark::State& state)
{
    const QMatrix4x4 matrix =
        SurfaceScanTransformations::getTotalTransform(&scene().scan, scene().planning);
    Eigen::Affine3f move;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            move(row, column) = matrix(row, column);
    }
    for (auto _ : state) {
        Eigen::Map<Eigen::Matrix3Xf> vertices(scene().eigenVertices.front().data(), 3, kVertices);
        vertices = (move.linear() * vertices).colwise() + move.translation();
        move = move.inverse();
        benchmark::ClobberMemory();
    }
}

void heightOffset(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(SurfaceScanTransformations::computeInitialHeightOffset(
            &scene().scan, QVector3D(0.0F, 0.0F, -1.0F), 1.0F));
}

void heightOffsetByQtsRotation(benchmark::State& state)
{
    for (auto _ : state) {
        const QQuaternion q = math::Operations::getRotationTo(
            {0.0F, 0.0F, 1.0F}, {0.0F, 0.0F, -1.0F}, {1.0F, 0.0F, 0.0F});
        float h = -3.4028235e38F;
        for (const QVector3D& vertex : scene().scan.getMesh().getVertices()) {
            const float z = q.rotatedVector(vertex).z();
            if (z > h)
                h = z;
        }
        const float c = q.rotatedVector(scene().scan.getCenterOfMass()).z();
        benchmark::DoNotOptimize(std::abs(h - c) + 1.0F);
    }
}

void centerOfMass(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(scene().scan.getCenterOfMass());
}

BENCHMARK(changeOfState)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();
BENCHMARK(eigenAffineInPlace)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();
BENCHMARK(eigenMatrixInPlace)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();
BENCHMARK(heightOffset)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();
BENCHMARK(heightOffsetByQtsRotation)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();
BENCHMARK(centerOfMass)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();

} // namespace
