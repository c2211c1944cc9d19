// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/greyvalue/TissueEstimationHistogramCreator.h>
#include <CoreAlgorithms/model/data/Tissues.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>
#include <CoreAlgorithms/model/math/Range.h>

#include <utility>
#include <vector>

/// Estimates at which grey values a scan shows the tissues, and the window in which it looks
/// calibrated.
///
/// Scanners differ in offset and gain. Two or three peaks of the histograms of small regions place
/// the levels of a calibrated medical CT on the scale of the scan. The levels T0 to T10 are the
/// fields of colormap::Tissues in their order. The first landmark region gives T0 (air), the second
/// T3 and T9 (soft tissue and dense bone), the teeth T3 and T7 (soft tissue and dentine). All
/// levels are limited to the range of int. docs/greyvalue.md has the formulas.
///
/// Example (examples/estimate_the_tissues_of_a_scan.cpp):
/// \code
/// TissueEstimator estimator(scan, occlusalPoints, worldFromVolume);
/// if (!estimator.estimate())
///     return 1; // neither the landmarks nor the teeth show two peaks in the right order
/// const colormap::Tissues tissues = estimator.getEstimatedTissues().value();
/// const math::Range<float> window =
///     TissueEstimator::calculateLevelWindow(tissues, TissueEstimator::DEFAULT_MEDICAL_CT_LW);
/// \endcode
///
/// (1) The levels that are not peaks divide the distances between the peaks in the proportions of
/// the default levels, rounded to whole numbers. Peaks at their default levels give the default
/// levels exactly.
///
/// (2) calculateLevelWindow(default levels, range) is the range, up to rounding.
///
/// (3) Levels shifted by k shift the range by k. Levels scaled by f about 0 scale it by f.
///
/// The scan must outlive the estimator and its copies.
class COREALGORITHMS_EXPORT TissueEstimator
{
public:
    // NOLINTBEGIN(readability-identifier-naming): names that callers know
    static const math::Range<float> DEFAULT_MEDICAL_CT_LW;     ///< -1000 to 2200
    static const colormap::Tissues DEFAULT_MEDICAL_CT_TISSUES; ///< -1000 ... 2800
    // NOLINTEND(readability-identifier-naming)

    /// Creates an estimator without an estimate. The positions of the teeth are points of their
    /// chewing surfaces, in natural head position and mm. The matrix maps the volume frame to the
    /// world, in which the sampled boxes are upright.
    TissueEstimator(const CTData& scan,
                    std::vector<std::pair<ToothChart::Tooth, QVector3D>> toothPositions,
                    const QMatrix4x4& worldFromVolume);
    /// Refuses a temporary scan, which the estimator would outlive.
    TissueEstimator(const CTData&& scan,
                    std::vector<std::pair<ToothChart::Tooth, QVector3D>> toothPositions,
                    const QMatrix4x4& worldFromVolume) = delete;
    TissueEstimator(const TissueEstimator&) = default;
    TissueEstimator& operator=(const TissueEstimator&) = default;
    virtual ~TissueEstimator();

    /// Estimates the levels from the landmark regions and returns whether an estimate is held
    /// afterwards.
    ///
    /// Peaks that are not in ascending order clear a held estimate; missing peaks leave it
    /// unchanged. The teeth are used if no estimate is held then, or if one of the landmark regions
    /// has fewer than two boxes wholly inside the scan. Their peaks replace or clear what the
    /// landmarks gave.
    bool estimate();

    /// Returns a copy of the estimate, or nothing before the first one and after one was cleared.
    utility::Optional<colormap::Tissues> getEstimatedTissues();

    /// Returns the range of a scan's grey values that corresponds to a range of a calibrated CT.
    ///
    /// The range is fitted by least squares to the levels whose default is strictly inside the
    /// given range, with Jacobi's singular value decomposition. With one such level the result is
    /// the solution of the smallest norm. It is (0, 0) without any, as for a range without width or
    /// with NaN.
    static math::Range<float> calculateLevelWindow(const colormap::Tissues& tissues,
                                                   const math::Range<float>& range);

private:
    friend struct TissueEstimatorTestAccess;

    bool useTeethFallback() const;

    utility::Optional<colormap::Tissues> estimatedTissues;
    TissueEstimationHistogramCreator histogramCreator;
};
