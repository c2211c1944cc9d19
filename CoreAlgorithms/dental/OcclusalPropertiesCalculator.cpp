// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/OcclusalPropertiesCalculator.h>

#include <CoreAlgorithms/model/HostValues_p.h>

#include <cmath>
#include <memory>

namespace {

constexpr float kPercentageBelowCenter = 0.6F;

int truncated(float value)
{
    return std::abs(value) < 0x1p31F ? static_cast<int>(value) : 0;
}

} // namespace

float occlusalPropertiesCalculator::getOcclusalCenterPercentage(
    CTData::OcclusalPlaneDefinition definition)
{
    return static_cast<int>(definition) == hostvalues::kOcclusalPlaneAtCenter
               ? 1.0F
               : kPercentageBelowCenter;
}

int occlusalPropertiesCalculator::getOcclusalIndex(const CTData& ct, const QVector3D& point)
{
    const primitives::BoundingBox box = ct.getTotalResampleTransformedBoundingBox();
    const std::shared_ptr<ImageVolume> volume = ct.getImageVolume();
    if (!volume)
        return 0;
    const float sliceDistance = volume->getImage().voxelSize().z();
    if (box.min().z() > point.z())
        return 0;
    // Intended: above the scan a length in mm serves as a slice number; stored plans hold such
    // indices.
    if (point.z() >= box.max().z())
        return truncated(box.height() - 1.0F);
    return truncated((point.z() - box.min().z()) / sliceDistance);
}
