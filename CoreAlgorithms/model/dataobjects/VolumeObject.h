// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QHash>
#include <QList>
#include <QUuid>

#include <memory>

class CTData;

namespace colormap {
class ColormapFunction;
} // namespace colormap

/// Represents a volume as it is shown: its voxels, the color-map functions from which the user
/// chooses, and their parameters. Setters store what they are given and notify the observers.
class COREALGORITHMS_MODEL_EXPORT VolumeObject : public DataObject
{
    COREALGORITHMS_TYPE(VolumeObject, DataObject)

public:
    /// Returns the image, which has no voxels until one is set.
    virtual const VexelImage3D& getImage() const;
    /// Sets the image; null sets the image without voxels.
    virtual void setImage(std::shared_ptr<const VexelImage3D> voxels);

    /// Returns the level of the maximum-intensity projection: the middle of the grey values that it
    /// shows; 0 at first.
    virtual float getMIPLevel() const;
    /// Returns the window of the maximum-intensity projection: the width of the range of grey
    /// values that it shows; 0 at first.
    virtual float getMIPWindow() const;
    /// Sets level and window of the maximum-intensity projection.
    virtual void setMIPLevelWindow(float level, float window);

    /// Returns the smallest grey value that the function with this UUID shows; 0 until one is set.
    virtual int getThreshold(const QUuid& functionUuid) const;
    /// Sets the smallest grey value that the function with this UUID shows.
    virtual void setThreshold(const QUuid& functionUuid, int threshold);

    /// Returns the function in use, or null until one is set.
    virtual std::shared_ptr<colormap::ColormapFunction> getActiveVisualizationFunction() const;
    /// Sets the function in use, which may be null.
    virtual void
    setActiveVisualizationFunction(std::shared_ptr<colormap::ColormapFunction> function);
    /// Returns the functions from which the user chooses.
    virtual QList<std::shared_ptr<colormap::ColormapFunction>> getAllVisualizationFunctions() const;
    /// Sets the functions from which the user chooses.
    virtual void setAllVisualizationFunctions(
        const QList<std::shared_ptr<colormap::ColormapFunction>>& functions);

    /// Notifies the observers that the volume looks different if `redraw` is true, and does nothing
    /// otherwise.
    virtual void visualizationChanged(bool redraw);

private:
    std::shared_ptr<const VexelImage3D> image;
    float mipLevel = 0.0F;
    float mipWindow = 0.0F;
    QHash<QUuid, int> thresholds; // by function
    std::shared_ptr<colormap::ColormapFunction> activeFunction;
    QList<std::shared_ptr<colormap::ColormapFunction>> allFunctions;
};

/// Represents the volume of a CT scan.
class COREALGORITHMS_MODEL_EXPORT CTDataVolumeObject : public VolumeObject
{
    COREALGORITHMS_TYPE(CTDataVolumeObject, VolumeObject)

public:
    /// Returns the scan, or null until one is set.
    virtual std::shared_ptr<CTData> getCTData() const;
    /// Sets the scan, which may be null. Notifies the observers.
    virtual void setCTData(std::shared_ptr<CTData> scan);
    /// Returns the image that was set here, or else that of the scan, or else the image without
    /// voxels.
    const VexelImage3D& getImage() const override;

private:
    std::shared_ptr<CTData> ctData;
};
