// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <cstdint>
#include <utility>
#include <vector>

/// Counts the grey values of a sample of voxels in bins and finds the two that dominate it.
///
/// Bin i covers the grey values from start + i * width up to, but not including,
/// start + (i + 1) * width. Its center is start + i * width + width / 2, the half truncated. The
/// start is a multiple of the width: for the smallest value v it is
///
///     t - t rem width      with t = v - width + 1 and the remainder truncated toward zero
///
/// It is 90 in bins of 10 for v = 100, 90 for 99, 80 for 98 and -1010 for -1005. If t is negative,
/// the start is less than one width below v; otherwise it is from width - 1 to 2 * width - 2 below.
///
/// A new histogram is a density: bin = count / (width * number of values), in single precision.
///
/// (1) The sum of bin * width over the bins of a new histogram is 1, up to rounding.
///
/// (2) If all values are at least 2 * width, adding a positive multiple of the width to all of them
/// moves the maxima by as much.
///
/// (3) addLowBin() leaves every bin at its grey values.
class COREALGORITHMS_EXPORT TissueEstimationHistogram
{
public:
    /// Counts the values, in any order, in bins of a width in grey values.
    ///
    /// The histogram has no bins if there are no values, if the width is not positive, if more than
    /// 2^20 bins would be needed, or if the start would be below the range of int.
    TissueEstimationHistogram(const std::vector<int>& values, int binWidth);

    /// Returns the heights of the bins, from the lowest grey values up.
    const std::vector<float>& getBins() const;
    /// Returns the width of a bin in grey values.
    int getBinWidth() const { return binWidth; }
    /// Returns the grey value at which the first bin starts, or 0 without bins.
    int getLowestBinStart() const { return lowestBinStart; }

    /// Inserts an empty bin in front, so that the former first bin can be a maximum. Does nothing
    /// to a histogram without bins, or if the start would leave the range of int.
    void addLowBin();

    /// Sets every bin to 0 for which width * bin is below 0.001. In a new histogram these are the
    /// bins with less than a thousandth of the values.
    void restrict();

    /// Replaces every bin by the mean of itself and its neighbors, weighted 1, 3, 6, 3, 1 over 14.
    /// Beyond either end the outermost bin is taken for the missing ones. The total therefore stays
    /// the same only if the two outermost bins at each end are equal.
    void smooth();

    /// Returns the centers of the two dominating bins, the lower grey value first, or nothing if
    /// there are no two.
    ///
    /// A maximum is a bin strictly higher than both its neighbors. The first and the last bin are
    /// never maxima, nor are two equal bins side by side. The result is the highest maximum and the
    /// highest of the others that are at least 18 % of getRangeOfPositiveBinCenters() away from it.
    /// If maxima are equally high, that of the lowest grey value counts as the highest. Centers
    /// are limited to the range of int.
    utility::Optional<std::pair<int, int>> findMaxima() const;

    /// Returns the distance, in grey values, between the centers of the first and the last bin that
    /// are not empty, limited to the range of int. Returns 0 if all bins are empty.
    int getRangeOfPositiveBinCenters() const;

private:
    friend struct TissueEstimationHistogramTestAccess;

    void addValues(const std::vector<int>& values);
    void normalize();
    int binIndex(int value) const;
    int binCenter(int index) const;

    std::int32_t binWidth;
    std::int32_t lowestBinStart = 0;
    std::vector<float> bins;
};
