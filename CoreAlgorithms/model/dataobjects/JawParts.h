// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/Point.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <QList>
#include <QVector3D>

#include <memory>
#include <utility>

/// Represents a part of the skull that a surgery moves, as a surface. The type identifiers of the
/// jaw parts below are the keys of every map of occlusion matrices.
class COREALGORITHMS_MODEL_EXPORT SurgeryPlanningPart : public Surface3DModel
{
    COREALGORITHMS_TYPE(SurgeryPlanningPart, Surface3DModel)
};

/// Represents a part that the surgery also rotates, about a position of its own.
class COREALGORITHMS_MODEL_EXPORT RotatableSurgeryPlanningPart : public SurgeryPlanningPart
{
    COREALGORITHMS_TYPE(RotatableSurgeryPlanningPart, SurgeryPlanningPart)

public:
    /// Returns the center of rotation in world mm.
    virtual QVector3D getRotationPosition() const;
    /// Sets the center of rotation in world mm. Notifies the observers.
    virtual void setRotationPosition(const QVector3D& positionMm);

private:
    QVector3D rotationPosition;
};

/// Represents the upper jaw in one piece.
class COREALGORITHMS_MODEL_EXPORT Maxilla : public RotatableSurgeryPlanningPart
{
    COREALGORITHMS_TYPE(Maxilla, RotatableSurgeryPlanningPart)
};

/// Represents the lower jaw.
class COREALGORITHMS_MODEL_EXPORT Mandibula : public RotatableSurgeryPlanningPart
{
    COREALGORITHMS_TYPE(Mandibula, RotatableSurgeryPlanningPart)

public:
    /// Returns the left and the right condyle in world mm.
    virtual std::pair<QVector3D, QVector3D> getCondylePositions() const;
    /// Sets the left and the right condyle in world mm, and with `placeAutoRotationPoints` moves
    /// the autorotation points there too. Notifies the observers.
    virtual void setCondylePositions(const std::pair<QVector3D, QVector3D>& leftAndRightMm,
                                     bool placeAutoRotationPoints);

    /// Returns the left end of the axis about which the jaw rotates by itself. Never null here.
    virtual std::shared_ptr<Point> getLeftAutoRotationPoint() const;
    /// Returns the right end of that axis. Never null here.
    virtual std::shared_ptr<Point> getRightAutoRotationPoint() const;

    /// Returns the positions through which the occlusal plane is laid, in world mm.
    virtual QList<QVector3D> getOcclusalPlanePositions() const;
    /// Sets the positions through which the occlusal plane is laid, in world mm. Notifies the
    /// observers.
    virtual void setOcclusalPlanePositions(const QList<QVector3D>& positionsMm);

private:
    std::pair<QVector3D, QVector3D> condylePositions;
    std::shared_ptr<Point> leftAutoRotationPoint = std::make_shared<Point>();
    std::shared_ptr<Point> rightAutoRotationPoint = std::make_shared<Point>();
    QList<QVector3D> occlusalPlanePositions;
};

/// Represents the segment of the front teeth in an upper jaw that is cut into segments.
class COREALGORITHMS_MODEL_EXPORT FrontSegment : public RotatableSurgeryPlanningPart
{
    COREALGORITHMS_TYPE(FrontSegment, RotatableSurgeryPlanningPart)
};

/// Represents the segment on the patient's left.
class COREALGORITHMS_MODEL_EXPORT LeftSegment : public RotatableSurgeryPlanningPart
{
    COREALGORITHMS_TYPE(LeftSegment, RotatableSurgeryPlanningPart)
};

/// Represents the segment on the patient's right.
class COREALGORITHMS_MODEL_EXPORT RightSegment : public RotatableSurgeryPlanningPart
{
    COREALGORITHMS_TYPE(RightSegment, RotatableSurgeryPlanningPart)
};
