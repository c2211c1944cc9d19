// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QList>

#include <memory>

/// Below which value lie p percent of the samples?
///
/// The i-th smallest of n samples, i from 1, has the percent rank 100 * (i - 0.5) / n: the plotting
/// position of A. Hazen, Storage to be provided in impounding reservoirs, Transactions ASCE 77
/// (1914), which is definition 5 of R. J. Hyndman and Y. Fan, Sample quantiles in statistical
/// packages, The American Statistician 50 (1996). Between two ranks the result is interpolated
/// linearly, below the first and above the last it is the smallest or the largest sample. Single
/// precision.
///
///     CalculatePercentile percentile;
///     percentile.setData(values, count);
///     percentile.setPercentile(95.0F);
///     if (percentile.execute())
///         use(percentile.getResult());
///
/// (1) The result does not fall while the percentile rises, up to rounding.
/// (2) The order of the samples plays no part.
///
/// Data and percentile stay for further calls. The first execute() after setData() sorts, in time
/// linear in the number of samples and with twice as much memory again; further ones take constant
/// time. Among samples, NaN counts as larger than all numbers and -0 as smaller than 0.
/// Interpolation beside an infinite sample gives infinity or NaN. Where the two ranks beside the
/// percentile are one in single precision, which needs some ten million samples, the result is the
/// lower of the two samples.
class COREALGORITHMS_EXPORT CalculatePercentile
{
public:
    CalculatePercentile();
    CalculatePercentile(const CalculatePercentile& other);
    CalculatePercentile& operator=(const CalculatePercentile& other);
    virtual ~CalculatePercentile();

    /// Copies the values; none if the count is not positive or the pointer null.
    void setData(float* values, int count);
    /// Copies the list; null counts as an empty list.
    void setData(QList<float>* values);
    /// 50 at first. Not checked before execute().
    void setPercentile(float percentile);

    /// False, with the former result kept, if the percentile is not from 0 to 100, or without data.
    bool execute();
    /// Of the last execute() that was true; 0 before.
    float getResult() const;

private:
    std::unique_ptr<QList<float>> data;
    float percentile = 50.0F;
    float result = 0.0F;
    bool isSorted = false;
};
