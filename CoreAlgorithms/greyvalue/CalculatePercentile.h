// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QList>

#include <memory>

/// Finds the value below which a given percentage of the samples lies.
///
/// The i-th smallest of n samples, i from 1, has the percent rank 100 * (i - 0.5) / n. Between two
/// ranks the result is interpolated linearly. Below the first rank it is the smallest sample, above
/// the last rank the largest. All of it is computed in single precision.
///
/// This rank is the plotting position of A. Hazen, "Storage to be provided in impounding reservoirs
/// for municipal water supply", Transactions of the American Society of Civil Engineers 77 (1914).
/// It is definition 5 of R. J. Hyndman and Y. Fan, "Sample quantiles in statistical packages", The
/// American Statistician 50 (1996).
///
/// Example (examples/find_a_percentile.cpp):
/// \code
/// QList<float> samples{40.0F, 10.0F, 50.0F, 30.0F, 20.0F};
/// CalculatePercentile calculator;
/// calculator.setData(&samples);
/// calculator.setPercentile(60.0F);
/// if (!calculator.execute())
///     return 1;
/// const float percentile = calculator.getResult(); // 35, midway between 30 and 40
/// \endcode
///
/// (1) The result does not fall while the percentile rises, up to rounding.
///
/// (2) The result does not depend on the order of the samples.
class COREALGORITHMS_EXPORT CalculatePercentile
{
public:
    /// Creates a calculator without data, for percentile 50.
    CalculatePercentile();
    /// Copies the data, the percentile and the result.
    CalculatePercentile(const CalculatePercentile& other);
    /// Replaces the data, the percentile and the result by those of another calculator.
    CalculatePercentile& operator=(const CalculatePercentile& other);
    virtual ~CalculatePercentile();

    /// Copies `count` samples. There are no data if the count is not positive or the pointer null.
    void setData(float* values, int count);
    /// Copies the samples of a list. Null counts as an empty list.
    void setData(QList<float>* values);
    /// Sets the percentile, which execute() expects from 0 to 100.
    void setPercentile(float percentile);

    /// Computes the percentile. Returns false, and keeps the former result, if the percentile is
    /// not from 0 to 100 or if there are no data.
    ///
    /// The first call after setData() sorts the samples. It takes time linear in their number and
    /// allocates twice the memory of the samples for that time; further calls take constant time.
    /// Data and percentile are kept for them.
    ///
    /// NaN counts as larger than all numbers and -0 as smaller than 0. Interpolation next to an
    /// infinite sample gives infinity or NaN. If the ranks on both sides of the percentile are
    /// equal in single precision, which needs more than 13 million samples, the result is the
    /// smaller of the two samples.
    bool execute();
    /// Returns the result of the last successful execute(), or 0 before the first one.
    float getResult() const;

private:
    std::unique_ptr<QList<float>> data;
    float percentile = 50.0F;
    float result = 0.0F;
    bool isSorted = false;
};
