// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/greyvalue/TissueEstimationHistogram.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QMatrix4x4>
#include <QVector3D>

#include <memory>
#include <utility>
#include <vector>

class CTData;

/// Which grey values occur round the landmarks of a scan, or round its teeth?
///
/// Frames, all in mm: the volume frame, in which the scan's landmarks and its extent lie; natural
/// head position, in which the teeth are given; the world, in which the boxes stand upright. Boxes
/// are closed: a voxel whose centre lies on a face counts.
///
/// (1) The sampled values are those of the voxels inside the boxes, box after box, z before y
/// before x; a voxel inside several boxes counts in each.
///
/// The scan must outlive the creator and its copies. Without image volume or voxels, and in boxes
/// that miss the image or have a bound that is NaN, there are no values; landmarks without position
/// are passed over. A box that would bring a region beyond 2^27 voxels is left out.
class COREALGORITHMS_EXPORT TissueEstimationHistogramCreator
{
public:
    enum EstimatedRegion : int {
        FirstLandmarkRegion = 0,
        SecondLandmarkRegion = 1,
        TeethRegion = 2
    };

    /// Tooth positions are points of the occlusal surfaces in natural head position; the matrix
    /// maps the volume frame to the world.
    TissueEstimationHistogramCreator(
        const CTData& scan, std::vector<std::pair<ToothChart::Tooth, QVector3D>> toothPositions,
        const QMatrix4x4& worldFromVolume);
    /// Refuses a temporary scan, which the creator would outlive.
    TissueEstimationHistogramCreator(
        const CTData&& scan, std::vector<std::pair<ToothChart::Tooth, QVector3D>> toothPositions,
        const QMatrix4x4& worldFromVolume) = delete;
    TissueEstimationHistogramCreator(const TissueEstimationHistogramCreator&) = default;
    TissueEstimationHistogramCreator& operator=(const TissueEstimationHistogramCreator&) = default;
    virtual ~TissueEstimationHistogramCreator();

    /// Smoothed, then restricted; of bin width 50, or 10 if that leaves less than 1000 grey values
    /// between the outermost bins. The first landmark region's has an empty bin in front. Never
    /// null, but without bins if there are no values. Any other value is taken for the region of
    /// the teeth.
    ///
    /// Voxels may be unsigned and signed 16-bit and unsigned 8-bit. Those of types 3 to 6 are not
    /// read, with a warning for each box; those of other types are not read.
    std::unique_ptr<TissueEstimationHistogram> createHistogram(EstimatedRegion region) const;

    /// How many of the region's boxes have all their corners in the scan's extent.
    int getNumberOfVOIsFullyContainedInVolume(EstimatedRegion region) const;

private:
    friend struct TissueEstimationHistogramCreatorTestAccess;

    std::unique_ptr<TissueEstimationHistogram> createHistogram(const std::vector<int>& values,
                                                               int binWidth) const;
    /// In the world.
    std::vector<primitives::BoundingBox> getBBsForRegion(EstimatedRegion region) const;

    const CTData* ctData;
    std::vector<std::pair<ToothChart::Tooth, QVector3D>> teethPositions;
    QMatrix4x4 volumeToWorld;
};
