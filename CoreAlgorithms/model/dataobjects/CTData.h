// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/ImageVolume.h>
#include <CoreAlgorithms/model/dataobjects/Landmarks.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QMatrix4x4>

#include <memory>
#include <vector>

/// Represents a patient's CT scan: its voxels, their placement in natural head position, and the
/// landmarks found in it. The volume frame is in mm with its origin at the center of voxel
/// (0, 0, 0), see VexelImage3D. Setters notify the observers.
class COREALGORITHMS_MODEL_EXPORT CTData : public DataObject
{
    COREALGORITHMS_TYPE(CTData, DataObject)

public:
    /// Says where the occlusal plane is assumed before it is placed: at the height of the scan's
    /// center, or at six tenths of that height.
    enum OcclusalPlaneDefinition : int { OcclusalPlaneAtCenter = 0, OcclusalPlaneBelowCenter = 1 };

    /// Returns the voxels, or null until they are set.
    virtual std::shared_ptr<ImageVolume> getImageVolume() const;
    /// Sets the voxels, which may be null.
    virtual void setImageVolume(std::shared_ptr<ImageVolume> volume);

    /// Returns the box of the outer voxel faces in the volume frame, from -0.5 * voxelSize to
    /// (imageSize - 0.5) * voxelSize. Returns the null box without voxels.
    virtual primitives::BoundingBox getBoundingBox() const;
    /// Returns the box around getBoundingBox() in natural head position.
    virtual primitives::BoundingBox getTotalResampleTransformedBoundingBox() const;

    /// Returns the matrix from the volume frame to natural head position; the identity at first.
    virtual QMatrix4x4 getTotalResampleNHPTransformation() const;
    /// Sets the matrix from the volume frame to natural head position.
    virtual void setTotalResampleNHPTransformation(const QMatrix4x4& naturalHeadPositionFromVolume);

    /// Returns the landmarks of these types, or all for an empty list, in the order in which they
    /// were added.
    virtual std::vector<std::shared_ptr<dataobject::LandmarkAnnotation>>
    getLandmarkAnnotations(const std::vector<landmarkDetection::LandmarkType>& types) const;
    /// Adds a landmark. Does nothing for null.
    virtual void addLandmarkAnnotation(std::shared_ptr<dataobject::LandmarkAnnotation> landmark);

    /// Returns where the occlusal plane is assumed; OcclusalPlaneAtCenter at first.
    virtual OcclusalPlaneDefinition getOcclusalPlaneDefinition() const;
    /// Sets where the occlusal plane is assumed.
    virtual void setOcclusalPlaneDefinition(OcclusalPlaneDefinition definition);

private:
    std::shared_ptr<ImageVolume> imageVolume;
    QMatrix4x4 resampleTransformation;
    std::vector<std::shared_ptr<dataobject::LandmarkAnnotation>> landmarks;
    OcclusalPlaneDefinition occlusalPlaneDefinition = OcclusalPlaneAtCenter;
};
