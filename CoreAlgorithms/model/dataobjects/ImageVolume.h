// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <memory>

/// Shares the voxels of a scan.
class COREALGORITHMS_MODEL_EXPORT ImageVolume : public DataObject
{
    COREALGORITHMS_TYPE(ImageVolume, DataObject)

public:
    /// Returns the image, which has no voxels until one is set.
    virtual const VexelImage3D& getImage() const;
    /// Sets the image; null sets the image without voxels. Notifies the observers.
    virtual void setImage(std::shared_ptr<const VexelImage3D> voxels);
    /// Takes over the image, as the operation above does.
    void setImage(VexelImage3D&& voxels);

private:
    std::shared_ptr<const VexelImage3D> image;
};
