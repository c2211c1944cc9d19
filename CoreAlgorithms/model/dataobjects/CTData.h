// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QHash>
#include <QMatrix4x4>
#include <QVector3D>

#include <memory>
#include <vector>

namespace landmarkDetection {

/// Anatomical points of the skull that are found in a scan. The values are fixed, and those without
/// a name are valid too.
enum LandmarkType : int {
    SubspinalePoint = 0,
    SupramentalePoint = 4,
    InfradentalePoint = 5,
    GonionRight = 8,
    GonionLeft = 9,
    Nasion = 14,
    Sella = 19,
    PorionRight = 20,
    PorionLeft = 21,
    Pogonion = 26
};

} // namespace landmarkDetection

/// The frame in which a landmark's position is asked for.
enum Context : int { VolumeContext = 0, NaturalHeadPositionContext = 1 };

/// A named point of the anatomy with one position in each frame in which it is known.
class COREALGORITHMS_MODEL_EXPORT LandmarkBase : public DataObject
{
    COREALGORITHMS_TYPE(LandmarkBase, DataObject)

public:
    /// In mm; empty if the landmark has no position in that frame, as a new one.
    virtual utility::Optional<QVector3D> getPosition(Context context) const;
    virtual void setPosition(Context context, const QVector3D& positionMm);
    virtual void clearPosition(Context context);

private:
    QHash<int, QVector3D> positions; // by Context
};

namespace dataobject {

/// A landmark of a known type that was found in a scan.
class COREALGORITHMS_MODEL_EXPORT LandmarkAnnotation : public LandmarkBase
{
    COREALGORITHMS_TYPE(LandmarkAnnotation, LandmarkBase)

public:
    explicit LandmarkAnnotation(landmarkDetection::LandmarkType landmarkType);

    virtual landmarkDetection::LandmarkType getType() const;

private:
    landmarkDetection::LandmarkType type;
};

} // namespace dataobject

/// The voxels of a scan, shared.
class COREALGORITHMS_MODEL_EXPORT ImageVolume : public DataObject
{
    COREALGORITHMS_TYPE(ImageVolume, DataObject)

public:
    /// The image without voxels until one is set.
    virtual const VexelImage3D& getImage() const;
    /// Null sets the image without voxels.
    virtual void setImage(std::shared_ptr<const VexelImage3D> voxels);
    void setImage(VexelImage3D&& voxels);

private:
    std::shared_ptr<const VexelImage3D> image;
};

/// A patient's CT scan: its voxels, how they lie in natural head position, and the landmarks found
/// in it.
///
/// Volume frame: mm, the origin at the centre of voxel (0, 0, 0), see VexelImage3D.
class COREALGORITHMS_MODEL_EXPORT CTData : public DataObject
{
    COREALGORITHMS_TYPE(CTData, DataObject)

public:
    /// Where the occlusal plane is assumed before anyone has placed it: at the height of the scan's
    /// centre, or at six tenths of it.
    enum OcclusalPlaneDefinition : int { OcclusalPlaneAtCentre = 0, OcclusalPlaneBelowCentre = 1 };

    /// Null until one is set.
    virtual std::shared_ptr<ImageVolume> getImageVolume() const;
    virtual void setImageVolume(std::shared_ptr<ImageVolume> volume);

    /// Extent of the voxels, faces and not centres, in the volume frame: -0.5 * voxelSize to
    /// (imageSize - 0.5)
    /// * voxelSize. The null box without voxels.
    virtual primitives::BoundingBox getBoundingBox() const;
    /// The box round getBoundingBox() in natural head position.
    virtual primitives::BoundingBox getTotalResampleTransformedBoundingBox() const;

    /// From the volume frame to natural head position; the identity at first.
    virtual QMatrix4x4 getTotalResampleNHPTransformation() const;
    virtual void setTotalResampleNHPTransformation(const QMatrix4x4& naturalHeadPositionFromVolume);

    /// Those of one of the types, in the order in which they were added; an empty list asks for
    /// all.
    virtual std::vector<std::shared_ptr<dataobject::LandmarkAnnotation>>
    getLandmarkAnnotations(const std::vector<landmarkDetection::LandmarkType>& types) const;
    /// Null is ignored.
    virtual void addLandmarkAnnotation(std::shared_ptr<dataobject::LandmarkAnnotation> landmark);

    /// OcclusalPlaneAtCentre at first.
    virtual OcclusalPlaneDefinition getOcclusalPlaneDefinition() const;
    virtual void setOcclusalPlaneDefinition(OcclusalPlaneDefinition definition);

private:
    std::shared_ptr<ImageVolume> imageVolume;
    QMatrix4x4 resampleTransformation;
    std::vector<std::shared_ptr<dataobject::LandmarkAnnotation>> landmarks;
    OcclusalPlaneDefinition occlusalPlaneDefinition = OcclusalPlaneAtCentre;
};
