// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <QList>
#include <QVector3D>

#include <memory>
#include <utility>

/// A part of the skull that a surgery moves, as a surface. The class type identifiers of the jaw
/// parts below are the keys of every map of occlusion matrices.
class COREALGORITHMS_MODEL_EXPORT SurgeryPlanningPart : public Surface3DModel
{
    COREALGORITHMS_TYPE(SurgeryPlanningPart, Surface3DModel)
};

/// A part that the surgery also turns, about a position of its own in world mm.
class COREALGORITHMS_MODEL_EXPORT RotatableSurgeryPlanningPart : public SurgeryPlanningPart
{
    COREALGORITHMS_TYPE(RotatableSurgeryPlanningPart, SurgeryPlanningPart)

public:
    virtual QVector3D getRotationPosition() const;
    virtual void setRotationPosition(const QVector3D& positionMm);

private:
    QVector3D rotationPosition;
};

/// The upper jaw in one piece.
class COREALGORITHMS_MODEL_EXPORT Maxilla : public RotatableSurgeryPlanningPart
{
    COREALGORITHMS_TYPE(Maxilla, RotatableSurgeryPlanningPart)
};

/// The lower jaw.
class COREALGORITHMS_MODEL_EXPORT Mandibula : public RotatableSurgeryPlanningPart
{
    COREALGORITHMS_TYPE(Mandibula, RotatableSurgeryPlanningPart)

public:
    /// Left and right, world mm.
    virtual std::pair<QVector3D, QVector3D> getCondylePositions() const;
    /// With `placeAutoRotationPoints`, the autorotation points are put there too.
    virtual void setCondylePositions(const std::pair<QVector3D, QVector3D>& leftAndRightMm,
                                     bool placeAutoRotationPoints);

    /// The axis of the jaw's own turning runs through the two. Never null here.
    virtual std::shared_ptr<Point> getLeftAutoRotationPoint() const;
    virtual std::shared_ptr<Point> getRightAutoRotationPoint() const;

    /// The positions that the occlusal plane is laid through, world mm.
    virtual QList<QVector3D> getOcclusalPlanePositions() const;
    virtual void setOcclusalPlanePositions(const QList<QVector3D>& positionsMm);

private:
    std::pair<QVector3D, QVector3D> condylePositions;
    std::shared_ptr<Point> leftAutoRotationPoint = std::make_shared<Point>();
    std::shared_ptr<Point> rightAutoRotationPoint = std::make_shared<Point>();
    QList<QVector3D> occlusalPlanePositions;
};

/// The front teeth's segment of an upper jaw that is cut into segments.
class COREALGORITHMS_MODEL_EXPORT FrontSegment : public RotatableSurgeryPlanningPart
{
    COREALGORITHMS_TYPE(FrontSegment, RotatableSurgeryPlanningPart)
};

/// The segment on the patient's left.
class COREALGORITHMS_MODEL_EXPORT LeftSegment : public RotatableSurgeryPlanningPart
{
    COREALGORITHMS_TYPE(LeftSegment, RotatableSurgeryPlanningPart)
};

/// The segment on the patient's right.
class COREALGORITHMS_MODEL_EXPORT RightSegment : public RotatableSurgeryPlanningPart
{
    COREALGORITHMS_TYPE(RightSegment, RotatableSurgeryPlanningPart)
};
