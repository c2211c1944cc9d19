// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>

#include <memory>
#include <utility>

namespace test {

/// Returns an image whose voxel (x, y, z) is valueAt(x, y, z), which Element must be able to hold.
template <typename Element, typename ValueAt>
std::shared_ptr<VexelImage3D> makeImage(const math::Ivec3& size, const QVector3D& voxelSizeMm,
                                        image::DataType type, ValueAt valueAt)
{
    auto image = std::make_shared<VexelImage3D>(size, voxelSizeMm, type);
    auto* voxel = static_cast<Element*>(image->dataPtr());
    for (int z = 0; z < size.z; ++z) {
        for (int y = 0; y < size.y; ++y) {
            for (int x = 0; x < size.x; ++x)
                *voxel++ = static_cast<Element>(valueAt(x, y, z));
        }
    }
    return image;
}

/// Sets the voxels of a scan.
inline void setImage(CTData& ct, std::shared_ptr<const VexelImage3D> image)
{
    auto volume = std::make_shared<ImageVolume>();
    volume->setImage(std::move(image));
    ct.setImageVolume(volume);
}

/// Returns a landmark with a position in the volume frame.
inline std::shared_ptr<dataobject::LandmarkAnnotation> makeLandmark(int type,
                                                                    const QVector3D& positionMm)
{
    auto landmark = std::make_shared<dataobject::LandmarkAnnotation>(
        static_cast<landmarkDetection::LandmarkType>(type));
    landmark->setPosition(VolumeContext, positionMm);
    return landmark;
}

} // namespace test
