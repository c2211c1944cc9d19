// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Finds the visible content, near the center, of an image of 4,000 x 4,000 pixels. Compares
// ImageBoundingBoxCalculator with four searches by QImage::pixel(), for every image format. The
// program checks first that their results are equal.
#include <CoreAlgorithms/reslice/ImageBoundingBoxCalculator.h>

#include <QImage>

#include <benchmark/benchmark.h>

namespace {

constexpr int kSide = 4000;

QImage centered(QImage::Format format, int side)
{
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(0U);
    const int from = side / 2 - side / 40;
    for (int y = from; y < from + side / 20; ++y) {
        for (int x = from; x < from + side / 20; ++x)
            image.setPixel(x, y, qRgba(180, 190, 200, 255));
    }
    return image.convertToFormat(format);
}

bool content(const QImage& image, int x, int y)
{
    return (image.pixel(x, y) & 0xff000000U) > (10U << 24U);
}

template <typename Line>
int search(int from, int to, int step, int length, const Line& hasContent)
{
    for (int line = from; line != to; line += step) {
        for (int i = 0; i < length; ++i) {
            if (hasContent(line, i))
                return line;
        }
    }
    return 0;
}

QRect pixelByPixel(const QImage& image)
{
    const int w = image.width();
    const int h = image.height();
    const auto inRow = [&image](int row, int i) { return content(image, i, row); };
    const auto inColumn = [&image](int column, int i) { return content(image, column, i); };
    const int top = search(0, h, 1, w, inRow);
    const int left = search(0, w, 1, h, inColumn);
    const int bottom = search(h - 1, 0, -1, w, inRow);
    const int right = search(w - 1, 0, -1, h, inColumn);
    return {QPoint(left, top), QPoint(right, bottom)};
}

bool formatsAgree()
{
    for (int format = QImage::Format_Invalid + 1; format < QImage::NImageFormats; ++format) {
        const QImage image = centered(static_cast<QImage::Format>(format), 200);
        if (ImageBoundingBoxCalculator::createBoundingBox(image) != pixelByPixel(image))
            return false;
    }
    return true;
}

void boundingBox(benchmark::State& state)
{
    const QImage image = centered(QImage::Format_ARGB32, kSide);
    if (!formatsAgree() ||
        ImageBoundingBoxCalculator::createBoundingBox(image) != pixelByPixel(image)) {
        state.SkipWithError("the rectangle differs from the one by pixels");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(ImageBoundingBoxCalculator::createBoundingBox(image));
}

void boundingBoxByPixels(benchmark::State& state)
{
    const QImage image = centered(QImage::Format_ARGB32, kSide);
    for (auto _ : state)
        benchmark::DoNotOptimize(pixelByPixel(image));
}

BENCHMARK(boundingBox)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();
BENCHMARK(boundingBoxByPixels)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

} // namespace
