// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <QHash>
#include <QVector3D>

namespace landmarkDetection {

/// Names anatomical points of the skull that are found in a scan. The values are fixed; those
/// without a name are valid too.
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

/// Selects the frame of a position.
enum Context : int { VolumeContext = 0, NaturalHeadPositionContext = 1 };

/// Represents a point of the anatomy, with a position in each frame in which it is known.
class COREALGORITHMS_MODEL_EXPORT LandmarkBase : public DataObject
{
    COREALGORITHMS_TYPE(LandmarkBase, DataObject)

public:
    /// Returns the position in a frame, in mm. Empty if there is none, as in a new landmark.
    virtual utility::Optional<QVector3D> getPosition(Context context) const;
    /// Sets the position in a frame, in mm. Notifies the observers.
    virtual void setPosition(Context context, const QVector3D& positionMm);
    /// Removes the position in a frame. Notifies the observers.
    virtual void clearPosition(Context context);

private:
    QHash<int, QVector3D> positions; // by Context
};

namespace dataobject {

/// Represents a landmark of a known type that was found in a scan.
class COREALGORITHMS_MODEL_EXPORT LandmarkAnnotation : public LandmarkBase
{
    COREALGORITHMS_TYPE(LandmarkAnnotation, LandmarkBase)

public:
    /// Constructs a landmark without positions. Its type does not change.
    explicit LandmarkAnnotation(landmarkDetection::LandmarkType landmarkType);

    /// Returns the type.
    virtual landmarkDetection::LandmarkType getType() const;

private:
    landmarkDetection::LandmarkType type;
};

} // namespace dataobject
