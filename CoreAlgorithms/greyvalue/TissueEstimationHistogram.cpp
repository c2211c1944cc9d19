// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/TissueEstimationHistogram.h>

#include <CoreAlgorithms/greyvalue/SafeNumbers_p.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <iterator>
#include <limits>

namespace {

// 4 MiB of bins: sixteen bits of grey values need 65,538 bins of width 1.
constexpr std::int64_t kMostBins = std::int64_t(1) << 20U;
// The share of all values below which a bin is negligible.
constexpr float kNegligibleShare = 0.001F;
// The least distance of the two peaks, as a share of the occupied range of grey values.
constexpr float kLeastSeparation = 0.18F;
// 1, 3 and 6 fourteenths.
constexpr float kOuterWeight = 0.071428575F;
constexpr float kInnerWeight = 0.21428572F;
constexpr float kMiddleWeight = 0.42857143F;

using Bins = std::vector<float>;

// Intended: the remainder truncates toward zero. The start is up to two widths below a smallest
// value of at least width - 1, and less than one width below any other. The bins of all estimates
// rely on it.
std::int64_t startBelow(std::int64_t smallest, std::int64_t width)
{
    const std::int64_t t = smallest - width + 1;
    return t - t % width;
}

// Intended: neither the first nor the last bin can be a maximum, nor can a flat top. The creator of
// the histograms relies on it and adds a low bin where a peak in the first one matters.
std::vector<int> strictMaxima(const Bins& bins)
{
    std::vector<int> maxima;
    for (std::size_t i = 1; i + 1 < bins.size(); ++i) {
        if (bins[i] > bins[i - 1] && bins[i] > bins[i + 1])
            maxima.push_back(static_cast<int>(i));
    }
    return maxima;
}

// Returns the least distance of the two peaks in bins, for an occupied range of grey values.
int leastSeparation(int range, int width)
{
    const float share = static_cast<float>(range) * kLeastSeparation;
    return greyvalue::truncatedToInt(
        static_cast<double>(std::ceil(share / static_cast<float>(width))));
}

} // namespace

TissueEstimationHistogram::TissueEstimationHistogram(const std::vector<int>& values, int width)
    : binWidth(width)
{
    if (values.empty() || width <= 0)
        return;
    const auto [smallest, largest] = std::ranges::minmax(values);
    const std::int64_t start = startBelow(smallest, width);
    const std::int64_t count = (largest - start + width) / width;
    if (start < std::numeric_limits<std::int32_t>::min() || count > kMostBins)
        return;
    lowestBinStart = static_cast<std::int32_t>(start);
    bins.assign(count, 0.0F);
    addValues(values);
    normalize();
}

const std::vector<float>& TissueEstimationHistogram::getBins() const
{
    return bins;
}

void TissueEstimationHistogram::addLowBin()
{
    const std::int64_t start = std::int64_t(lowestBinStart) - binWidth;
    if (bins.empty() || start < std::numeric_limits<std::int32_t>::min())
        return;
    bins.insert(bins.begin(), 0.0F);
    lowestBinStart = static_cast<std::int32_t>(start);
}

void TissueEstimationHistogram::restrict()
{
    for (float& bin : bins) {
        if (static_cast<float>(binWidth) * bin < kNegligibleShare)
            bin = 0.0F;
    }
}

void TissueEstimationHistogram::smooth()
{
    const std::ptrdiff_t last = std::ssize(bins) - 1;
    // Intended: the outermost bin is taken for missing neighbors. The total changes if the two
    // outermost bins differ, and it is not normalized again; the estimates rely on these heights.
    const auto binAt = [this, last](std::ptrdiff_t i) {
        return bins[std::clamp<std::ptrdiff_t>(i, 0, last)];
    };
    Bins smoothed(bins.size());
    for (std::ptrdiff_t i = 0; i <= last; ++i) {
        smoothed[i] = binAt(i - 2) * kOuterWeight + binAt(i - 1) * kInnerWeight +
                      binAt(i) * kMiddleWeight + binAt(i + 1) * kInnerWeight +
                      binAt(i + 2) * kOuterWeight;
    }
    bins = std::move(smoothed);
}

utility::Optional<std::pair<int, int>> TissueEstimationHistogram::findMaxima() const
{
    std::vector<int> maxima = strictMaxima(bins);
    if (maxima.size() < 2)
        return {};
    // Intended: of equally high maxima the one of the lowest grey value comes first; the levels of
    // the estimates rely on it.
    std::ranges::stable_sort(maxima, std::ranges::greater(), [this](int i) { return bins[i]; });

    const int highest = maxima.front();
    const int separation = leastSeparation(getRangeOfPositiveBinCenters(), binWidth);
    // Intended: the second peak is the highest of those far enough away, not the second highest
    // maximum. The estimates rely on it where a tissue has two maxima.
    const auto second =
        std::ranges::find_if(maxima.begin() + 1, maxima.end(), [highest, separation](int index) {
            return std::abs(index - highest) >= separation;
        });
    if (second == maxima.end())
        return {};
    return std::pair(binCenter(std::min(highest, *second)), binCenter(std::max(highest, *second)));
}

int TissueEstimationHistogram::getRangeOfPositiveBinCenters() const
{
    const auto isPositive = [](float bin) { return bin > 0.0F; };
    const auto first = std::ranges::find_if(bins, isPositive);
    if (first == bins.end())
        return 0;
    const auto last = std::find_if(bins.rbegin(), bins.rend(), isPositive).base() - 1;
    return greyvalue::limitedToInt((last - first) * std::int64_t(binWidth));
}

void TissueEstimationHistogram::addValues(const std::vector<int>& values)
{
    for (const int value : values)
        bins[binIndex(value)] += 1.0F;
}

void TissueEstimationHistogram::normalize()
{
    float sum = 0.0F;
    for (const float bin : bins)
        sum += bin;
    if (!(sum > 0.0F))
        return;
    const float total = static_cast<float>(binWidth) * sum;
    for (float& bin : bins)
        bin /= total;
}

int TissueEstimationHistogram::binIndex(int value) const
{
    return greyvalue::limitedToInt((std::int64_t(value) - lowestBinStart) / binWidth);
}

int TissueEstimationHistogram::binCenter(int index) const
{
    return greyvalue::limitedToInt(binWidth / 2 + std::int64_t(binWidth) * index + lowestBinStart);
}
