// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/CTData.h>

#include <algorithm>
#include <utility>

std::shared_ptr<ImageVolume> CTData::getImageVolume() const
{
    return imageVolume;
}

void CTData::setImageVolume(std::shared_ptr<ImageVolume> volume)
{
    imageVolume = std::move(volume);
    changed();
}

primitives::BoundingBox CTData::getBoundingBox() const
{
    const auto volume = getImageVolume();
    if (!volume || volume->getImage().isEmpty())
        return {};
    const VexelImage3D& image = volume->getImage();
    const math::Ivec3 size = image.imageSize();
    const QVector3D counts(static_cast<float>(size.x), static_cast<float>(size.y),
                           static_cast<float>(size.z));
    const QVector3D half(0.5F, 0.5F, 0.5F);
    return {-half * image.voxelSize(), (counts - half) * image.voxelSize()};
}

primitives::BoundingBox CTData::getTotalResampleTransformedBoundingBox() const
{
    return getBoundingBox().transformed(getTotalResampleNHPTransformation());
}

QMatrix4x4 CTData::getTotalResampleNHPTransformation() const
{
    return resampleTransformation;
}

void CTData::setTotalResampleNHPTransformation(const QMatrix4x4& naturalHeadPositionFromVolume)
{
    resampleTransformation = naturalHeadPositionFromVolume;
    changed();
}

std::vector<std::shared_ptr<dataobject::LandmarkAnnotation>>
CTData::getLandmarkAnnotations(const std::vector<landmarkDetection::LandmarkType>& types) const
{
    if (types.empty())
        return landmarks;
    std::vector<std::shared_ptr<dataobject::LandmarkAnnotation>> wanted;
    for (const auto& landmark : landmarks) {
        if (std::find(types.begin(), types.end(), landmark->getType()) != types.end())
            wanted.push_back(landmark);
    }
    return wanted;
}

void CTData::addLandmarkAnnotation(std::shared_ptr<dataobject::LandmarkAnnotation> landmark)
{
    if (!landmark)
        return;
    landmarks.push_back(std::move(landmark));
    changed();
}

CTData::OcclusalPlaneDefinition CTData::getOcclusalPlaneDefinition() const
{
    return occlusalPlaneDefinition;
}

void CTData::setOcclusalPlaneDefinition(OcclusalPlaneDefinition definition)
{
    occlusalPlaneDefinition = definition;
    changed();
}
