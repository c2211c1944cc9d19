// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/ImageVolume.h>

#include <utility>

const VexelImage3D& ImageVolume::getImage() const
{
    static const VexelImage3D none;
    return image ? *image : none;
}

void ImageVolume::setImage(std::shared_ptr<const VexelImage3D> voxels)
{
    image = std::move(voxels);
    changed();
}

void ImageVolume::setImage(VexelImage3D&& voxels)
{
    setImage(std::make_shared<const VexelImage3D>(std::move(voxels)));
}
