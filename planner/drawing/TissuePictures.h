// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/drawing/GreyPictures.h>
#include <planner/planning/TissueFindings.h>

#include <CoreAlgorithms/greyvalue/TissueEstimationHistogramCreator.h>

#include <QImage>
#include <QList>

namespace planner {

inline constexpr float kCutSpacingMm = 0.4F; ///< of the cuts that show tissues
inline constexpr int kTileWidth = 460;       ///< pixels

/// The cuts of a volume on which tissues are shown.
struct TissueCuts
{
    GreyCut roots;  ///< axial, at the height of the lower teeth
    GreyCut crowns; ///< axial, at the height of the upper teeth
    GreyCut projection;
};

/// Paints the boxes of all regions into the cut at the roots and, if the scan has landmarks of the
/// skull, into a sagittal and an axial cut through these.
QImage paintRegions(const GreyScan& scan, const Volume& volume, const Sampler& sampler,
                    const GreyCut& roots, const math::Range<float>& window, bool hasLandmarks);

/// Paints the histogram of a region with its two peaks, named as given, if they were found.
QImage paintHistogram(const TissueEstimationHistogram& histogram,
                      TissueEstimationHistogramCreator::EstimatedRegion region,
                      const QString& lowerPeak, const QString& higherPeak);

/// Paints a cut as scanned and, if given, as the badly calibrated scanner gives it, each with the
/// default window and with the one that is estimated.
QImage paintWindows(const GreyCut& cut, const std::optional<colormap::Tissues>& tissues,
                    const std::optional<OtherEstimate>& other);

/// Paints what the function of a kind shows.
QImage paintColormap(const ColormapDisplay& display, ColormapKind kind, const TissueCuts& cuts);

/// Returns the part of an axial cut around the teeth; without teeth, the whole.
GreyCut aroundTeeth(const GreyCut& cut, const GreyScan& scan);

/// Returns the limits of a window in whole grey values.
QString rangeText(const math::Range<float>& window);

} // namespace planner
