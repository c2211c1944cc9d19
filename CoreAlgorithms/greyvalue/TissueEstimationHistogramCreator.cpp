// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/TissueEstimationHistogramCreator.h>

#include <CoreAlgorithms/greyvalue/BoxSampling_p.h>
#include <CoreAlgorithms/greyvalue/LandmarkTables_p.h>
#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/math/OrientedBoundingBox.h>

#include <algorithm>
#include <span>
#include <utility>

namespace {

using Boxes = std::vector<primitives::BoundingBox>;

constexpr int kBinWidth = 50;
constexpr int kNarrowBinWidth = 10;
// The distance of the outermost bins, in grey values, below which narrow bins are used.
constexpr int kNarrowRange = 1000;
constexpr float kToothHalfWidth = 2.5F;
constexpr float kToothHalfHeight = 4.0F;

primitives::BoundingBox boxAround(const QVector3D& center, const QVector3D& halfSize)
{
    return {center - halfSize, center + halfSize};
}

Boxes boxesAroundLandmarks(const CTData& ct, const QMatrix4x4& worldFromVolume,
                           std::span<const greyvalue::LandmarkBox> table)
{
    Boxes boxes;
    for (const auto& landmark : ct.getLandmarkAnnotations({})) {
        if (!landmark)
            continue;
        const auto type = static_cast<int>(landmark->getType());
        const auto row = std::ranges::find(table, type, &greyvalue::LandmarkBox::landmarkType);
        if (row == table.end())
            continue;
        const auto position = landmark->getPosition(Context(hostvalues::kVolumeContext));
        if (position)
            boxes.push_back(
                boxAround(worldFromVolume.map(position.value()) + row->offset, row->halfSize));
    }
    return boxes;
}

// Returns the way from the chewing surface to the middle of the tooth's box, in mm along z.
// Intended: it is longer for lower back teeth than for all others. Their roots are in the thick
// body of the mandible, and the fallback on the teeth relies on bone around them.
float depthOfBox(ToothChart::Tooth tooth)
{
    const bool isUpper = ToothChart::isUpperTooth(tooth);
    if (ToothChart::isMolar(tooth) || ToothChart::isPremolar(tooth))
        return isUpper ? 6.0F : -12.0F;
    return isUpper ? 8.0F : -8.0F;
}

primitives::BoundingBox boxAtTooth(ToothChart::Tooth tooth, const QVector3D& p)
{
    const float depth = depthOfBox(tooth);
    return {p.x() - kToothHalfWidth, p.y() - kToothHalfWidth, p.z() + depth - kToothHalfHeight,
            p.x() + kToothHalfWidth, p.y() + kToothHalfWidth, p.z() + depth + kToothHalfHeight};
}

} // namespace

TissueEstimationHistogramCreator::TissueEstimationHistogramCreator(
    const CTData& scan, std::vector<std::pair<ToothChart::Tooth, QVector3D>> toothPositions,
    const QMatrix4x4& worldFromVolume)
    : ctData(&scan), teethPositions(std::move(toothPositions)), volumeToWorld(worldFromVolume)
{}

TissueEstimationHistogramCreator::~TissueEstimationHistogramCreator() = default;

std::unique_ptr<TissueEstimationHistogram>
TissueEstimationHistogramCreator::createHistogram(EstimatedRegion region) const
{
    std::vector<int> values;
    if (const auto volume = ctData->getImageVolume()) {
        const VexelImage3D& image = volume->getImage();
        QMatrix4x4 volumeFromVoxel;
        volumeFromVoxel.scale(image.voxelSize());
        const QMatrix4x4 voxelFromWorld = (volumeToWorld * volumeFromVoxel).inverted();
        values = greyvalue::sampleBoxes(image, getBBsForRegion(region), voxelFromWorld);
    }
    auto histogram = createHistogram(values, kBinWidth);
    if (histogram->getRangeOfPositiveBinCenters() < kNarrowRange)
        histogram = createHistogram(values, kNarrowBinWidth);
    // Intended: only this region gets a low bin. Its lowest bin is air, which the estimate needs as
    // a maximum.
    if (region == FirstLandmarkRegion)
        histogram->addLowBin();
    return histogram;
}

int TissueEstimationHistogramCreator::getNumberOfVOIsFullyContainedInVolume(
    EstimatedRegion region) const
{
    const primitives::BoundingBox extent = ctData->getBoundingBox();
    const QMatrix4x4 volumeFromWorld = volumeToWorld.inverted();
    const Boxes boxes = getBBsForRegion(region);
    const auto isInside = [&](const primitives::BoundingBox& box) {
        const auto corners =
            primitives::OrientedBoundingBox(box).transformed(volumeFromWorld).getCornerPoints();
        return std::ranges::all_of(
            corners, [&extent](const QVector3D& corner) { return extent.contains(corner); });
    };
    return static_cast<int>(std::ranges::count_if(boxes, isInside));
}

std::unique_ptr<TissueEstimationHistogram>
TissueEstimationHistogramCreator::createHistogram(const std::vector<int>& values,
                                                  int binWidth) const
{
    auto histogram = std::make_unique<TissueEstimationHistogram>(values, binWidth);
    histogram->smooth();
    histogram->restrict();
    return histogram;
}

Boxes TissueEstimationHistogramCreator::getBBsForRegion(EstimatedRegion region) const
{
    if (region == FirstLandmarkRegion)
        return boxesAroundLandmarks(*ctData, volumeToWorld, greyvalue::kFirstLandmarkBoxes);
    if (region == SecondLandmarkRegion)
        return boxesAroundLandmarks(*ctData, volumeToWorld, greyvalue::kSecondLandmarkBoxes);

    const QMatrix4x4 worldFromHeadPosition =
        volumeToWorld * ctData->getTotalResampleNHPTransformation().inverted();
    Boxes boxes;
    boxes.reserve(teethPositions.size());
    for (const auto& [tooth, position] : teethPositions)
        boxes.push_back(boxAtTooth(tooth, worldFromHeadPosition.map(position)));
    return boxes;
}
