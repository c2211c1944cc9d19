// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <cstdint>
#include <utility>
#include <vector>

/// Which two grey values dominate a sample of voxels?
///
/// Bin i covers the grey values from start + i * width up to, not including, start + (i + 1) *
/// width; its centre is start + i * width + width / 2, the half truncated. The start is a multiple
/// of the width, for the smallest value v it is t - t rem width with t = v - width + 1 and the
/// truncating remainder: 90 for v = 100 and width 10, 90 for 99, 80 for 98, and -1010 for -1005.
/// Where t is negative it lies less than one width below v, else from width - 1 to 2 * width - 2.
///
/// A new histogram is a density: bin = count / (width * number of values), all in single precision.
///
/// (1) The sum of bin * width over the bins of a new histogram is 1, up to rounding.
///
/// (2) Adding a positive multiple of the width to all values, of at least 2 * width, moves the
/// maxima by it.
///
/// (3) addLowBin() leaves every bin at its grey values.
///
/// No values, a width that is not positive, more than 2^20 bins, or a start below the range of int
/// give the histogram without bins. Grey values beyond the range of int, of centres or distances,
/// are limited to it.
class COREALGORITHMS_EXPORT TissueEstimationHistogram
{
public:
    /// Grey values in any order; the width of a bin in grey values.
    TissueEstimationHistogram(const std::vector<int>& values, int binWidth);

    const std::vector<float>& getBins() const;
    /// Where the bins stand, for whoever draws them.
    int getBinWidth() const { return binWidth; }
    int getLowestBinStart() const { return lowestBinStart; }

    /// Puts an empty bin in front, so that the former first bin may be a maximum. Nothing happens
    /// to a histogram without bins, or if the start would leave the range of int.
    void addLowBin();

    /// Zeroes the bins whose width * bin is below 0.001, which are those with less than a
    /// thousandth of the values.
    void restrict();

    /// Weighs every bin with its neighbours, 1, 3, 6, 3, 1 over 14. Beyond either end the outermost
    /// bin stands in for the missing ones; the total is therefore kept only where the two outermost
    /// bins at each end are equal.
    void smooth();

    /// The centres of the highest maximum and of the highest of the others that are at least 18 %
    /// of getRangeOfPositiveBinCenters() away from it, the lower grey value first. Of equally high
    /// maxima the one of lower grey value counts as higher. A maximum is a bin strictly higher than
    /// both its neighbours: neither the first nor the last bin can be one, nor can a top of two
    /// equal bins. Empty if there are no two.
    utility::Optional<std::pair<int, int>> findMaxima() const;

    /// Distance in grey values between the centres of the first and of the last bin that is not
    /// empty; 0 if all are.
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
