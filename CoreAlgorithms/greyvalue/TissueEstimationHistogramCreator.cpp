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
// Grey values between the outermost bins, below which narrow bins serve.
constexpr int kNarrowRange = 1000;
constexpr float kToothHalfWidth = 2.5F;
constexpr float kToothHalfHeight = 4.0F;

primitives::BoundingBox boxAround(const QVector3D& centre, const QVector3D& halfSize)
{
    return {centre - halfSize, centre + halfSize};
}

Boxes boxesAroundLandmarks(const CTData& ct, const QMatrix4x4& worldFromVolume,
                           std::span<const greyvalue::LandmarkBox> table)
{
    Boxes boxes;
    for (const auto& landmark : ct.getLandmarkAnnotations({})) {
        if (!landmark)
            continue;
        const auto type = static_cast<int>(landmark->getType());
        const auto row =
            std::find_if(table.begin(), table.end(), [type](const greyvalue::LandmarkBox& box) {
                return box.landmarkType == type;
            });
        if (row == table.end())
            continue;
        const auto position = landmark->getPosition(Context(hostvalues::kVolumeContext));
        if (position)
            boxes.push_back(
                boxAround(worldFromVolume.map(position.value()) + row->offset, row->halfSize));
    }
    return boxes;
}

// From the occlusal surface to the middle of the root's box, in mm along z.
// Intended: deeper for lower back teeth than for all others; their roots stand in the thick body of
// the mandible.
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
    // Intended: in the region in front of the face the lowest bin is air, which must be found as a
    // maximum.
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
    return static_cast<int>(std::count_if(boxes.begin(), boxes.end(), [&](const auto& box) {
        const auto corners =
            primitives::OrientedBoundingBox(box).transformed(volumeFromWorld).getCornerPoints();
        return std::all_of(corners.begin(), corners.end(),
                           [&extent](const QVector3D& corner) { return extent.contains(corner); });
    }));
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
