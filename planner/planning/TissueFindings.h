// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/planning/GreyRegions.h>

#include <CoreAlgorithms/model/data/Tissues.h>
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>
#include <CoreAlgorithms/model/math/Range.h>

#include <QPointF>
#include <QString>

#include <memory>
#include <optional>

namespace planner {

/// The tissue levels of a scan, estimated in both ways; nothing where there is no estimate.
struct TissueEstimates
{
    bool hasLandmarks = false;
    std::optional<colormap::Tissues> fromLandmarks;
    std::optional<colormap::Tissues> fromTeeth;

    /// Returns the estimate that an application uses: without landmarks, the one from the teeth.
    const std::optional<colormap::Tissues>& best() const
    {
        return hasLandmarks ? fromLandmarks : fromTeeth;
    }
};

/// Estimates the levels of a scan from its landmarks, if it has any, and from its teeth.
TissueEstimates estimateTissues(const GreyScan& scan);

/// Returns the window that shows a scan with these levels as a calibrated medical CT looks; without
/// levels, the window of that CT.
math::Range<float> windowFor(const std::optional<colormap::Tissues>& tissues);

/// What a badly calibrated scanner makes of grey values.
inline constexpr float kOtherGain = 0.6F;
inline constexpr float kOtherOffset = 300.0F;

/// The estimate for the voxels that the badly calibrated scanner gives.
struct OtherEstimate
{
    std::optional<colormap::Tissues> tissues;
};

/// Estimates the levels of the voxels that the badly calibrated scanner gives. Returns nothing if
/// the voxels cannot be converted.
std::optional<OtherEstimate> estimateForOtherScanner(const GreyScan& scan, bool withLandmarks);

/// Returns the height in mm at which most boxes of the teeth of an arch are cut; if the arch has no
/// teeth, of all teeth; without any, the middle of the volume.
float heightOfTeeth(const GreyScan& scan, const Volume& volume, ToothChart::ArchType arch);

/// The kinds of functions that BoneThresholdModifier changes.
enum class ColormapKind { LevelWindow, Threshold, Pulp, Transfer };

/// A volume object with one function of each kind, set up for the tissues of a scan.
struct ColormapDisplay
{
    /// Sets the functions up for the tissues, or for the default levels of a medical CT. The scan
    /// must outlive the display.
    ColormapDisplay(const GreyScan& scan, const std::optional<colormap::Tissues>& estimated);

    /// Applies a drag of the mouse, in pixels, to the function of a kind.
    void drag(ColormapKind kind, const QPointF& pixels);
    /// Returns the parameters of the function of a kind in words.
    QString parameters(ColormapKind kind) const;
    /// Returns the grey value from which the threshold function shows a voxel.
    int threshold() const;
    /// Returns the grey values up to which there is pulp and from which there is restoration
    /// material; nothing if the volume has no range of grey values.
    std::optional<math::Range<float>> pulpAndRestoration() const;

    math::Range<float> window; ///< for the tissues; no drag changes it
    math::Range<float> range;  ///< of the grey values in the volume
    CTDataVolumeObject volume;
    std::shared_ptr<colormap::ThresholdFunction> thresholdFunction =
        std::make_shared<colormap::ThresholdFunction>();
    std::shared_ptr<colormap::PulpFunction> pulp = std::make_shared<colormap::PulpFunction>();
    std::shared_ptr<colormap::TransferFunction> transfer =
        std::make_shared<colormap::TransferFunction>();
};

} // namespace planner
