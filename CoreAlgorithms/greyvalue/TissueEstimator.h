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

/// At which grey values does this scan show the tissues, and with which window does it look like
/// any other?
///
/// Scanners differ in offset and gain. The levels of a calibrated medical CT are carried over to
/// the scan by two or three peaks in small regions of it: the first landmark region gives T0, the
/// second T3 and T9, the teeth T3 and T7; the others lie between and beyond in the proportions of
/// the default levels. T0 to T10 are the fields of colormap::Tissues in their order.
///
/// (1) Peaks at their default levels, -1000, 40 and 1800, or 40 and 1300, give the default levels
/// exactly.
///
/// (2) calculateLevelWindow(default tissues, range) is the range, up to rounding.
///
/// (3) Levels shifted by k shift the range by k; levels scaled by f about 0 scale it by f.
///
/// Levels beyond the range of int are limited to it. The scan must outlive the estimator and its
/// copies.
class COREALGORITHMS_EXPORT TissueEstimator
{
public:
    // NOLINTBEGIN(readability-identifier-naming): names that callers know
    static const math::Range<float> DEFAULT_MEDICAL_CT_LW;     ///< -1000 to 2200
    static const colormap::Tissues DEFAULT_MEDICAL_CT_TISSUES; ///< -1000 ... 2800
    // NOLINTEND(readability-identifier-naming)

    /// As for TissueEstimationHistogramCreator.
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

    /// Estimates from the landmark regions, and from the teeth if that gives nothing or if one of
    /// the landmark regions has fewer than two boxes wholly inside the scan; the teeth then replace
    /// what the landmarks gave. True if an estimate is held afterwards. Peaks that are not in
    /// ascending order clear a held estimate; peaks that are missing leave it as it is.
    bool estimate();

    /// A copy; empty before an estimate and after one that was cleared.
    utility::Optional<colormap::Tissues> getEstimatedTissues();

    /// The range of this scan's grey values that corresponds to a range of a calibrated medical CT:
    /// least squares, by Jacobi's singular value decomposition, over the levels whose default lies
    /// strictly inside the range. With one such level it is the least of the ranges that fit, in
    /// the sense of the norm; (0, 0) with none, as for a range without width or with a NaN.
    static math::Range<float> calculateLevelWindow(const colormap::Tissues& tissues,
                                                   const math::Range<float>& range);

private:
    friend struct TissueEstimatorTestAccess;

    bool useTeethFallback() const;

    utility::Optional<colormap::Tissues> estimatedTissues;
    TissueEstimationHistogramCreator histogramCreator;
};
