// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>

#include <utility>

const VexelImage3D& VolumeObject::getImage() const
{
    static const VexelImage3D none;
    return image ? *image : none;
}

void VolumeObject::setImage(std::shared_ptr<const VexelImage3D> voxels)
{
    image = std::move(voxels);
    changed();
}

float VolumeObject::getMIPLevel() const
{
    return mipLevel;
}

float VolumeObject::getMIPWindow() const
{
    return mipWindow;
}

void VolumeObject::setMIPLevelWindow(float level, float window)
{
    mipLevel = level;
    mipWindow = window;
    changed();
}

int VolumeObject::getThreshold(const QUuid& functionUuid) const
{
    return thresholds.value(functionUuid);
}

void VolumeObject::setThreshold(const QUuid& functionUuid, int threshold)
{
    thresholds.insert(functionUuid, threshold);
    changed();
}

std::shared_ptr<colormap::ColormapFunction> VolumeObject::getActiveVisualizationFunction() const
{
    return activeFunction;
}

void VolumeObject::setActiveVisualizationFunction(
    std::shared_ptr<colormap::ColormapFunction> function)
{
    activeFunction = std::move(function);
    changed();
}

QList<std::shared_ptr<colormap::ColormapFunction>>
VolumeObject::getAllVisualizationFunctions() const
{
    return allFunctions;
}

void VolumeObject::setAllVisualizationFunctions(
    const QList<std::shared_ptr<colormap::ColormapFunction>>& functions)
{
    allFunctions = functions;
    changed();
}

void VolumeObject::visualizationChanged(bool redraw)
{
    if (redraw)
        changed();
}

std::shared_ptr<CTData> CTDataVolumeObject::getCTData() const
{
    return ctData;
}

void CTDataVolumeObject::setCTData(std::shared_ptr<CTData> scan)
{
    ctData = std::move(scan);
    changed();
}

const VexelImage3D& CTDataVolumeObject::getImage() const
{
    const VexelImage3D& own = VolumeObject::getImage();
    if (!own.isEmpty() || !ctData)
        return own;
    const auto volume = ctData->getImageVolume();
    return volume ? volume->getImage() : own;
}
