// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/CalculatePercentile.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>
#include <vector>

namespace {

// A whole number for each float, in the order of the floats: -0 before 0, NaN last.
using Key = std::uint32_t;
constexpr Key kSignBit = 0x80000000U;
constexpr Key kKeyOfNan = 0xffffffffU;

Key keyOf(float value)
{
    if (std::isnan(value))
        return kKeyOfNan;
    const auto bits = std::bit_cast<Key>(value);
    return (bits & kSignBit) != 0U ? ~bits : bits | kSignBit;
}

float valueOf(Key key)
{
    if (key == kKeyOfNan)
        return std::numeric_limits<float>::quiet_NaN();
    return std::bit_cast<float>((key & kSignBit) != 0U ? key & ~kSignBit : ~key);
}

// Sorts by radix: three passes over 11 bits each, from the lowest.
void sortByDigits(std::vector<Key>& keys)
{
    constexpr unsigned digitBits = 11;
    constexpr unsigned passes = 3;
    constexpr std::size_t digits = std::size_t(1) << digitBits;
    const auto digitOf = [](Key key, unsigned pass) {
        return (key >> (pass * digitBits)) % digits;
    };

    std::vector<std::size_t> counts(passes * digits);
    for (const Key key : keys) {
        for (unsigned pass = 0; pass < passes; ++pass)
            ++counts[pass * digits + digitOf(key, pass)];
    }
    std::vector<Key> sorted(keys.size());
    for (unsigned pass = 0; pass < passes; ++pass) {
        std::size_t* next = &counts[pass * digits];
        std::exclusive_scan(next, next + digits, next, std::size_t(0));
        for (const Key key : keys)
            sorted[next[digitOf(key, pass)]++] = key;
        keys.swap(sorted);
    }
}

void sortAscending(QList<float>& values)
{
    constexpr qsizetype fewForDigits = 2000; // the counts of the digits cost more below
    std::vector<Key> keys(values.size());
    std::ranges::transform(std::as_const(values), keys.begin(), keyOf);
    if (values.size() < fewForDigits)
        std::ranges::sort(keys);
    else
        sortByDigits(keys);
    std::ranges::transform(keys, values.begin(), valueOf);
}

// Returns the percentile between the k-th and the (k + 1)-th of n samples, k from 1.
float between(float lo, float hi, qsizetype k, qsizetype n, float percentile)
{
    const auto rankLo =
        static_cast<float>((static_cast<double>(k) - 0.5) * 100.0 / static_cast<double>(n));
    const auto rankHi =
        static_cast<float>((static_cast<double>(k) + 0.5) * 100.0 / static_cast<double>(n));
    // Beyond some ten million samples single precision cannot tell the ranks apart.
    if (!(rankHi > rankLo))
        return lo;
    return (hi - lo) * (percentile - rankLo) / (rankHi - rankLo) + lo;
}

} // namespace

CalculatePercentile::CalculatePercentile() = default;

CalculatePercentile::CalculatePercentile(const CalculatePercentile& other)
    : data(other.data ? std::make_unique<QList<float>>(*other.data) : nullptr),
      percentile(other.percentile),
      result(other.result),
      isSorted(other.isSorted)
{}

CalculatePercentile& CalculatePercentile::operator=(const CalculatePercentile& other)
{
    if (this == &other)
        return *this;
    data = other.data ? std::make_unique<QList<float>>(*other.data) : nullptr;
    percentile = other.percentile;
    result = other.result;
    isSorted = other.isSorted;
    return *this;
}

CalculatePercentile::~CalculatePercentile() = default;

void CalculatePercentile::setData(float* values, int count)
{
    data = values && count > 0 ? std::make_unique<QList<float>>(values, values + count)
                               : std::make_unique<QList<float>>();
    isSorted = false;
}

void CalculatePercentile::setData(QList<float>* values)
{
    data = values ? std::make_unique<QList<float>>(*values) : std::make_unique<QList<float>>();
    isSorted = false;
}

void CalculatePercentile::setPercentile(float percent)
{
    percentile = percent;
}

bool CalculatePercentile::execute()
{
    if (!(percentile >= 0.0F && percentile <= 100.0F) || !data || data->isEmpty())
        return false;
    if (!isSorted) {
        sortAscending(*data);
        isSorted = true;
    }
    const QList<float>& samples = *data;
    const qsizetype n = samples.size();
    const float product = static_cast<float>(n) * percentile;
    // Rounds half up in single precision, as the ranks are defined.
    // NOLINTNEXTLINE(bugprone-incorrect-roundings)
    const auto k = static_cast<qsizetype>(static_cast<float>(product / 100.0 + 0.5));
    if (k < 1)
        result = samples.first();
    else if (k <= n - 1)
        result = between(samples[k - 1], samples[k], k, n, percentile);
    else
        result = samples.last();
    return true;
}

float CalculatePercentile::getResult() const
{
    return result;
}
