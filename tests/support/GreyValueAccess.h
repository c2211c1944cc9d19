// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/greyvalue/TissueEstimationHistogram.h>
#include <CoreAlgorithms/greyvalue/TissueEstimationHistogramCreator.h>
#include <CoreAlgorithms/greyvalue/TissueEstimator.h>

#include <memory>
#include <utility>
#include <vector>

// These give tests access to what the classes keep private.

struct TissueEstimationHistogramTestAccess
{
    static TissueEstimationHistogram withBins(int width, int start, std::vector<float> bins)
    {
        TissueEstimationHistogram histogram({}, width);
        histogram.lowestBinStart = start;
        histogram.bins = std::move(bins);
        return histogram;
    }
    static int indexOf(const TissueEstimationHistogram& histogram, int value)
    {
        return histogram.binIndex(value);
    }
    static int centerOf(const TissueEstimationHistogram& histogram, int index)
    {
        return histogram.binCenter(index);
    }
    static void add(TissueEstimationHistogram& histogram, const std::vector<int>& values)
    {
        histogram.addValues(values);
    }
    static void normalize(TissueEstimationHistogram& histogram) { histogram.normalize(); }
};

struct TissueEstimationHistogramCreatorTestAccess
{
    static std::vector<primitives::BoundingBox>
    boxes(const TissueEstimationHistogramCreator& creator,
          TissueEstimationHistogramCreator::EstimatedRegion region)
    {
        return creator.getBBsForRegion(region);
    }
    static std::unique_ptr<TissueEstimationHistogram>
    histogram(const TissueEstimationHistogramCreator& creator, const std::vector<int>& values,
              int width)
    {
        return creator.createHistogram(values, width);
    }
};

struct TissueEstimatorTestAccess
{
    static bool useTeethFallback(const TissueEstimator& estimator)
    {
        return estimator.useTeethFallback();
    }
};
