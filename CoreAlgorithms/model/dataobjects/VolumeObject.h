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

/// A volume as it is shown: its voxels, the colour-map functions among which the user chooses, and
/// their parameters.
class COREALGORITHMS_MODEL_EXPORT VolumeObject : public DataObject
{
    COREALGORITHMS_TYPE(VolumeObject, DataObject)

public:
    /// The image without voxels until one is set.
    virtual const VexelImage3D& getImage() const;
    /// Null sets the image without voxels.
    virtual void setImage(std::shared_ptr<const VexelImage3D> voxels);

    /// Level and window of the maximum-intensity projection, grey values: its middle and its width.
    /// 0 at first.
    virtual float getMIPLevel() const;
    virtual float getMIPWindow() const;
    virtual void setMIPLevelWindow(float level, float window);

    /// Grey value from which the function with the UUID counts voxels in; 0 until one is set.
    virtual int getThreshold(const QUuid& functionUuid) const;
    virtual void setThreshold(const QUuid& functionUuid, int threshold);

    /// Null until one is set.
    virtual std::shared_ptr<colormap::ColormapFunction> getActiveVisualizationFunction() const;
    virtual void
    setActiveVisualizationFunction(std::shared_ptr<colormap::ColormapFunction> function);
    virtual QList<std::shared_ptr<colormap::ColormapFunction>> getAllVisualizationFunctions() const;
    virtual void setAllVisualizationFunctions(
        const QList<std::shared_ptr<colormap::ColormapFunction>>& functions);

    /// Tells the observers that the volume looks different, if `redraw`; with false, views are left
    /// as they are.
    virtual void visualizationChanged(bool redraw);

private:
    std::shared_ptr<const VexelImage3D> image;
    float mipLevel = 0.0F;
    float mipWindow = 0.0F;
    QHash<QUuid, int> thresholds; // by function
    std::shared_ptr<colormap::ColormapFunction> activeFunction;
    QList<std::shared_ptr<colormap::ColormapFunction>> allFunctions;
};

/// The volume of a CT scan, which it shows.
class COREALGORITHMS_MODEL_EXPORT CTDataVolumeObject : public VolumeObject
{
    COREALGORITHMS_TYPE(CTDataVolumeObject, VolumeObject)

public:
    /// Null until one is set.
    virtual std::shared_ptr<CTData> getCTData() const;
    virtual void setCTData(std::shared_ptr<CTData> scan);
    /// The scan's own, unless an image was set here; without either, the image without voxels.
    const VexelImage3D& getImage() const override;

private:
    std::shared_ptr<CTData> ctData;
};
