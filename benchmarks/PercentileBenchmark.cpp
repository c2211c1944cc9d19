// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Computes percentiles of ten million floats. Compares the first one of CalculatePercentile, which
// sorts, and seven further ones with std::nth_element. percentile_numpy.py measures numpy on the
// same samples.
#include <CoreAlgorithms/greyvalue/CalculatePercentile.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace {

constexpr int kSamples = 10'000'000;
constexpr float kPercentiles[] = {0.5F, 5.0F, 25.0F, 50.0F, 75.0F, 95.0F, 99.5F};

// Returns grey values like those of a CT, from -1000 to 3000. percentile_numpy.py makes the same.
const std::vector<float>& samples()
{
    static const std::vector<float> once = [] {
        std::vector<float> values(kSamples);
        std::uint32_t state = 1;
        for (float& value : values) {
            state = state * 1664525U + 1013904223U;
            value = static_cast<float>(state >> 8U) * (4000.0F / 16777216.0F) - 1000.0F;
        }
        return values;
    }();
    return once;
}

void firstPercentile(benchmark::State& state)
{
    std::vector<float> values = samples();
    for (auto _ : state) {
        CalculatePercentile calculator;
        calculator.setData(values.data(), kSamples);
        calculator.setPercentile(95.0F);
        benchmark::DoNotOptimize(calculator.execute());
        benchmark::DoNotOptimize(calculator.getResult());
    }
}

// Interpolates between the two samples around the rank, as CalculatePercentile does.
float nthElement(std::vector<float>& values, float percent)
{
    const double place = static_cast<double>(percent) / 100.0 * kSamples - 0.5;
    const auto below = values.begin() + static_cast<std::ptrdiff_t>(place);
    std::nth_element(values.begin(), below, values.end());
    const float upper = *std::min_element(below + 1, values.end());
    return *below + (upper - *below) *
                        static_cast<float>(place - static_cast<double>(below - values.begin()));
}

void firstByNthElement(benchmark::State& state)
{
    for (auto _ : state) {
        std::vector<float> values = samples();
        benchmark::DoNotOptimize(nthElement(values, 95.0F));
    }
}

void sevenFurther(benchmark::State& state)
{
    std::vector<float> values = samples();
    CalculatePercentile calculator;
    calculator.setData(values.data(), kSamples);
    calculator.execute();
    for (auto _ : state) {
        for (const float percent : kPercentiles) {
            calculator.setPercentile(percent);
            benchmark::DoNotOptimize(calculator.execute());
            benchmark::DoNotOptimize(calculator.getResult());
        }
    }
}

void sevenFurtherByNthElement(benchmark::State& state)
{
    std::vector<float> values = samples();
    nthElement(values, 95.0F);
    for (auto _ : state) {
        for (const float percent : kPercentiles)
            benchmark::DoNotOptimize(nthElement(values, percent));
    }
}

BENCHMARK(firstPercentile)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(firstByNthElement)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(sevenFurther)->Unit(benchmark::kNanosecond)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(sevenFurtherByNthElement)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

} // namespace
