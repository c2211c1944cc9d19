// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Maps 100,000 points into a panoramic view of 1,000 columns. Compares the list operation with a
// plain transcription that searches the nearest sample and inverts two matrices for every point,
// after a check that their results are equal bit for bit. Also maps the whole view of 1,000 x 400
// pixels to world positions, compared with a loop over Eigen vectors that reads the geometry once,
// and a short segment, compared with the operation for one point for each of its samples.
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <tests/support/ExactComparison.h>
#include <tests/support/ResliceBuilders.h>

#include <Eigen/Core>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

using Images = QList<std::pair<QPointF, PointInPlane>>;

constexpr int kColumns = 1000;
constexpr int kRows = 400;
constexpr float kPixelMm = 0.15F;
constexpr int kPoints = 100'000;

struct Scene
{
    Scene()
    {
        // The arch is a parabola 50 mm wide and 60 mm deep, with samples 0.15 mm apart.
        QList<QVector3D> path;
        float x = -50.0F;
        for (int i = 0; i < kColumns; ++i) {
            path.append({x, 0.024F * x * x, 5.0F});
            const float slope = 0.048F * x;
            x += kPixelMm / std::sqrt(1.0F + slope * slope);
        }
        reslice = test::makePanoramicReslice(path, kPixelMm, -30.0F, 30.0F);
        reslice->setSampleSize(QVector3D(kPixelMm, kPixelMm, 1.0F));
        reslice->setDimensions(QSizeF(kColumns, kRows));
        reslice->setType(ThickSlab);
        reslice->setThickness(20.0F);
        test::RandomGeometry random(1);
        for (int i = 0; i < kPoints; ++i)
            points.append(path[i * 7919 % kColumns] +
                          random.point(15.0F)); // no point follows a neighbor
    }

    std::shared_ptr<PanoramicReslice> reslice;
    QList<QVector3D> points;
};

const Scene& scene()
{
    static const Scene once;
    return once;
}

int nearestSample(const QVector3D& point, const QList<QVector3D>& path)
{
    int nearest = 0;
    float smallest = (path[0] - point).lengthSquared();
    for (int i = 1; i < path.size(); ++i) {
        const float distance = (path[i] - point).lengthSquared();
        if (smallest > distance) {
            smallest = distance;
            nearest = i;
        }
    }
    return nearest;
}

QVector3D localCoordinates(const QList<QVector3D>& path, int segment, const QVector3D& up,
                           float lowest, const QVector3D& point)
{
    QVector3D e = path[segment + 1] - path[segment];
    e.normalize();
    QVector3D u = up;
    u.normalize();
    const QVector3D w = QVector3D::crossProduct(e, u);
    const QVector3D o = path[segment] + up * lowest;
    QMatrix4x4 worldFromLocal;
    worldFromLocal.setColumn(0, QVector4D(e, 0.0F));
    worldFromLocal.setColumn(1, QVector4D(u, 0.0F));
    worldFromLocal.setColumn(2, QVector4D(w, 0.0F));
    worldFromLocal.setColumn(3, QVector4D(o, 1.0F));
    return worldFromLocal.inverted().map(point);
}

Images transcribed(const QList<QVector3D>& points, const PanoramicReslice& reslice)
{
    const QList<QVector3D> path = reslice.getPath();
    const QVector3D up = reslice.getGuidingLine()->getUpperDirection();
    const math::Range<float> range = reslice.getVerticalRange();
    const int last = static_cast<int>(path.size()) - 2;
    Images images;
    images.reserve(points.size());
    for (const QVector3D& point : points) {
        const int k = nearestSample(point, path);
        const int after = std::clamp(k, 0, last);
        const int before = std::clamp(k - 1, 0, last);
        const QVector3D inAfter = localCoordinates(path, after, up, range.min, point);
        const QVector3D inBefore = localCoordinates(path, before, up, range.min, point);
        const bool isAfter = std::abs(inAfter.z()) < std::abs(inBefore.z());
        const QVector3D local = isAfter ? inAfter : inBefore;
        if (!(reslice.getThickness() * 0.5F >= std::abs(local.z()))) {
            images.append({QPointF(), PointInPlane::OutOfPlane});
            continue;
        }
        const float x =
            static_cast<float>(isAfter ? after : before) * reslice.getSampleSize().x() + local.x();
        const float y = (range.max - range.min) - local.y();
        images.append({QPointF(x, y), PointInPlane::InPlane});
    }
    return images;
}

void panoramicList(benchmark::State& state)
{
    const Images ours = CoordinateMapper::mapAllPointsOntoReslice(scene().points, *scene().reslice);
    const Images peer = transcribed(scene().points, *scene().reslice);
    const bool equal = std::equal(
        ours.begin(), ours.end(), peer.begin(), peer.end(), [](const auto& a, const auto& b) {
            return test::sameBits(a.first, b.first) && a.second == b.second;
        });
    if (!equal) {
        state.SkipWithError("the list differs from its transcription");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(
            CoordinateMapper::mapAllPointsOntoReslice(scene().points, *scene().reslice));
}

void panoramicTranscription(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(transcribed(scene().points, *scene().reslice));
}

void panoramicPointByPoint(benchmark::State& state)
{
    for (auto _ : state) {
        Images images;
        images.reserve(kPoints);
        for (const QVector3D& point : scene().points) {
            const auto [image, inPlane, inSlice] =
                CoordinateMapper::_3D_To_2D_Panoramic(scene().reslice.get(), point, false);
            images.append({image, inPlane});
        }
        benchmark::DoNotOptimize(images);
    }
}

constexpr float kStepMm = 0.15F;

struct Segment
{
    QVector3D p1;
    QVector3D p2;
};

// Returns a segment near the path that is half a step longer than the number of steps.
Segment segmentOf(std::int64_t steps)
{
    const QVector3D p1 = scene().reslice->getPath()[300] + QVector3D(0.01F, 0.02F, 3.0F);
    const QVector3D along =
        (scene().reslice->getPath()[301] - scene().reslice->getPath()[300]).normalized();
    return {p1, p1 + along * ((static_cast<float>(steps) + 0.5F) * kStepMm)};
}

QList<QLineF> segmentPointByPoint(const Segment& segment)
{
    const PanoramicReslice* reslice = scene().reslice.get();
    QVector3D direction = segment.p2 - segment.p1;
    const int count = static_cast<int>(direction.length() / kStepMm);
    direction.normalize();
    QList<QLineF> lines;
    bool inPlane = false;
    bool previousIn = false;
    QPointF previous =
        CoordinateMapper::_3D_To_2D_Panoramic(reslice, segment.p1, inPlane, previousIn, false);
    for (int i = 1; i <= count + 1; ++i) {
        const QVector3D sample =
            i <= count ? segment.p1 + direction * (static_cast<float>(i) * kStepMm) : segment.p2;
        bool in = false;
        const QPointF point =
            CoordinateMapper::_3D_To_2D_Panoramic(reslice, sample, inPlane, in, false);
        if (previousIn && in)
            lines.append({previous, point});
        previous = point;
        previousIn = in;
    }
    return lines;
}

void shortSegment(benchmark::State& state)
{
    const Segment segment = segmentOf(state.range(0));
    const auto draw = [&segment] {
        return CoordinateMapper::_3D_To_2D_Line_Panoramic(scene().reslice.get(), segment.p1,
                                                          segment.p2, false, kStepMm);
    };
    if (draw() != segmentPointByPoint(segment)) {
        state.SkipWithError("the lines differ from those point by point");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(draw());
}

void shortSegmentPointByPoint(benchmark::State& state)
{
    const Segment segment = segmentOf(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(segmentPointByPoint(segment));
}

void wholeViewToWorld(benchmark::State& state)
{
    std::vector<QVector3D> world(static_cast<std::size_t>(kColumns) * kRows);
    for (auto _ : state) {
        auto out = world.begin();
        for (int row = 0; row < kRows; ++row) {
            for (int column = 0; column < kColumns; ++column)
                *out++ = CoordinateMapper::_2D_To_3D_Panoramic(
                    scene().reslice.get(),
                    {(column + 0.5) * double(kPixelMm), (row + 0.5) * double(kPixelMm)});
        }
        benchmark::DoNotOptimize(world.data());
    }
}

void wholeViewByEigen(benchmark::State& state)
{
    std::vector<Eigen::Vector3f> world(static_cast<std::size_t>(kColumns) * kRows);
    for (auto _ : state) {
        std::vector<Eigen::Vector3f> path;
        for (const QVector3D& sample : scene().reslice->getPath())
            path.emplace_back(sample.x(), sample.y(), sample.z());
        const QVector3D direction = scene().reslice->getGuidingLine()->getUpperDirection();
        const Eigen::Vector3f up(direction.x(), direction.y(), direction.z());
        const float top = scene().reslice->getVerticalRange().max;
        auto out = world.begin();
        for (int row = 0; row < kRows; ++row) {
            const float height = top - (static_cast<float>(row) + 0.5F) * kPixelMm;
            for (int column = 0; column < kColumns; ++column) {
                const float f = static_cast<float>(column) + 0.5F;
                const auto left = static_cast<std::size_t>(f);
                const std::size_t right = std::min<std::size_t>(left + 1, kColumns - 1);
                *out++ = path[left] + (path[right] - path[left]) * (f - static_cast<float>(left)) +
                         up * height;
            }
        }
        benchmark::DoNotOptimize(world.data());
    }
}

BENCHMARK(panoramicList)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();
BENCHMARK(panoramicTranscription)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();
BENCHMARK(panoramicPointByPoint)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();
BENCHMARK(shortSegment)->Arg(1)->Arg(5)->Arg(20)->Arg(62)->Repetitions(9)->ReportAggregatesOnly();
BENCHMARK(shortSegmentPointByPoint)
    ->Arg(1)
    ->Arg(5)
    ->Arg(20)
    ->Arg(62)
    ->Repetitions(9)
    ->ReportAggregatesOnly();
BENCHMARK(wholeViewToWorld)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();
BENCHMARK(wholeViewByEigen)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();

} // namespace
