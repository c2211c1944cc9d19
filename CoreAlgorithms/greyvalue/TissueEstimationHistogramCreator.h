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

/// Samples the grey values around the landmarks of a scan, or at its teeth, and makes histograms.
///
/// The voxels are sampled in boxes of three regions. There are three frames, all in mm: the volume
/// frame, which holds the scan's landmarks and its extent; natural head position (the frame of a
/// head that looks straight ahead), in which the teeth are given; and the world, in which the boxes
/// are upright.
///
/// (1) A histogram counts the voxels whose centers lie inside a box of the region or on a face of
/// it. A voxel inside several boxes counts once for each of them.
///
/// The scan must outlive the creator and its copies.
class COREALGORITHMS_EXPORT TissueEstimationHistogramCreator
{
public:
    enum EstimatedRegion : int {
        FirstLandmarkRegion = 0,  ///< in front of the face: air and the surface of the skin
        SecondLandmarkRegion = 1, ///< on the skull: soft tissue and dense bone
        TeethRegion = 2           ///< at the roots of the teeth: soft tissue and dentine
    };

    /// Creates a creator for a scan. The positions of the teeth are points of their chewing
    /// surfaces, in natural head position. The matrix maps the volume frame to the world.
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

    /// Returns the histogram of a region, smoothed and then restricted. Its bins are 50 grey values
    /// wide, or 10 if the outermost occupied bins of 50 are less than 1000 grey values apart. For
    /// the first landmark region an empty bin is added in front. Any other number counts as the
    /// region of the teeth.
    ///
    /// The result is never null. It has no bins if there are no values: without an image volume or
    /// voxels, without landmarks of the region's types that have a position, or if no box reaches
    /// the image. A box with a bound that is NaN gives no values, and a box that would bring the
    /// region beyond 2^27 voxels is left out.
    ///
    /// Unsigned and signed 16-bit and unsigned 8-bit voxels are read. Voxels of the element types 3
    /// to 6 are not read, with one warning for each box; those of further types are not read
    /// either.
    std::unique_ptr<TissueEstimationHistogram> createHistogram(EstimatedRegion region) const;

    /// Returns how many of the region's boxes have all their corners inside the scan's extent or on
    /// a face of it.
    int getNumberOfVOIsFullyContainedInVolume(EstimatedRegion region) const;

private:
    friend struct TissueEstimationHistogramCreatorTestAccess;

    std::unique_ptr<TissueEstimationHistogram> createHistogram(const std::vector<int>& values,
                                                               int binWidth) const;
    /// Returns the region's boxes in the world, in the order of the landmarks or teeth.
    std::vector<primitives::BoundingBox> getBBsForRegion(EstimatedRegion region) const;

    const CTData* ctData;
    std::vector<std::pair<ToothChart::Tooth, QVector3D>> teethPositions;
    QMatrix4x4 volumeToWorld;
};
