// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/AttachablePoint.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/math/Plane.h>

#include <QList>
#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

/// \file
/// Declares what users draw and write into the scene. The kinds do not derive from each other, so
/// that a caller that moves one kind after the other moves no annotation twice.
///
/// Positions are in world mm. Setters store what they are given and notify the observers.
/// applyTransform() moves positions by a matrix and directions by its upper left 3 x 3 part, and
/// notifies the observers. It expects a rigid motion: it does not change radii, and it normalizes
/// unit vectors again.

/// Marks a position.
class COREALGORITHMS_MODEL_EXPORT PointAnnotation : public DataObject
{
    COREALGORITHMS_TYPE(PointAnnotation, DataObject)

public:
    /// Returns the marked position.
    virtual QVector3D getPosition() const;
    /// Sets the marked position.
    virtual void changePosition(const QVector3D& positionMm);

private:
    QVector3D position;
};

/// Draws a chain of segments.
class COREALGORITHMS_MODEL_EXPORT LineAnnotation : public DataObject
{
    COREALGORITHMS_TYPE(LineAnnotation, DataObject)

public:
    /// Returns the ends of the segments in order.
    virtual QList<QVector3D> getPositions() const;
    /// Replaces the ends of the segments.
    virtual void setPositions(const QList<QVector3D>& positionsMm);
    /// Changes one position. Does nothing for an index without a position.
    virtual void changePosition(int index, const QVector3D& positionMm);

private:
    QList<QVector3D> positions;
};

/// Holds a grey value of the scan and the position at which it was read.
class COREALGORITHMS_MODEL_EXPORT GreyValueMeasurement : public DataObject
{
    COREALGORITHMS_TYPE(GreyValueMeasurement, DataObject)

public:
    /// Returns the position of the measurement.
    virtual QVector3D getPosition() const;
    /// Sets the position of the measurement. The grey value does not change.
    virtual void changePosition(const QVector3D& positionMm);

    /// Returns the grey value as it was set; 0 at first.
    virtual float getGreyValue() const;
    /// Sets the grey value.
    virtual void setGreyValue(float value);

private:
    QVector3D position;
    float greyValue = 0.0F;
};

/// Draws a freehand stroke.
class COREALGORITHMS_MODEL_EXPORT PencilAnnotation3D : public DataObject
{
    COREALGORITHMS_TYPE(PencilAnnotation3D, DataObject)

public:
    /// Returns the positions of the stroke in order.
    virtual QList<QVector3D> getPositions() const;
    /// Replaces the positions of the stroke.
    virtual void setPositions(const QList<QVector3D>& positionsMm);
    /// Moves the stroke.
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QList<QVector3D> positions;
};

/// Draws an arrow from its tail to its tip.
class COREALGORITHMS_MODEL_EXPORT ArrowAnnotation3D : public DataObject
{
    COREALGORITHMS_TYPE(ArrowAnnotation3D, DataObject)

public:
    /// Returns the position of the tail.
    virtual QVector3D getTail() const;
    /// Returns the position of the tip.
    virtual QVector3D getTip() const;
    /// Sets both ends.
    virtual void setArrow(const QVector3D& tailMm, const QVector3D& tipMm);
    /// Moves the arrow.
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QVector3D tail;
    QVector3D tip;
};

/// Draws a circle.
class COREALGORITHMS_MODEL_EXPORT CircleAnnotation3D : public DataObject
{
    COREALGORITHMS_TYPE(CircleAnnotation3D, DataObject)

public:
    /// Returns the center.
    virtual QVector3D getCenter() const;
    /// Returns the unit vector perpendicular to the circle; (0, 0, 1) at first.
    virtual QVector3D getNormal() const;
    /// Returns the radius in mm; 0 at first.
    virtual float getRadius() const;
    /// Sets center, normal and radius. The direction is normalized by QVector3D::normalized(),
    /// which turns one without a length into (0, 0, 0).
    virtual void setCircle(const QVector3D& centerMm, const QVector3D& direction, float radiusMm);
    /// Moves the circle.
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QVector3D center;
    QVector3D normal{0.0F, 0.0F, 1.0F};
    float radius = 0.0F;
};

/// Writes a text at a position.
class COREALGORITHMS_MODEL_EXPORT TextAnnotation3D : public DataObject
{
    COREALGORITHMS_TYPE(TextAnnotation3D, DataObject)

public:
    /// Returns the text.
    virtual QString getText() const;
    /// Sets the text.
    virtual void setText(const QString& words);
    /// Returns the position of the text.
    virtual QVector3D getPosition() const;
    /// Sets the position of the text.
    virtual void setPosition(const QVector3D& positionMm);
    /// Moves the position.
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QString text;
    QVector3D position;
};

/// Is written into a reslice that the user has placed freely.
class COREALGORITHMS_MODEL_EXPORT CustomResliceAnnotation : public DataObject
{
    COREALGORITHMS_TYPE(CustomResliceAnnotation, DataObject)

public:
    /// Returns the matrix from the frame of the reslice into the world; the identity at first.
    virtual QMatrix4x4 getResliceTransform() const;
    /// Sets the matrix from the frame of the reslice into the world.
    virtual void setResliceTransform(const QMatrix4x4& worldFromReslice);
    /// Moves the reslice: its transform becomes matrix * transform.
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QMatrix4x4 resliceTransform;
};

/// Represents a plane of the cephalometric analysis. It follows from landmarks, so that moving it
/// does not change the plan.
class COREALGORITHMS_MODEL_EXPORT CephPlaneBase : public DataObject
{
    COREALGORITHMS_TYPE(CephPlaneBase, DataObject)

public:
    /// Returns the plane; z = 0 at first.
    virtual primitives::Plane getPlane() const;
    /// Sets the plane.
    virtual void setPlane(const primitives::Plane& worldPlane);
    /// Moves the plane as primitives::Plane::transform() does.
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    primitives::Plane plane{QVector3D(), QVector3D(0.0F, 0.0F, 1.0F)};
};

namespace dataobject {

/// Consists of positions in an order only, for instance those of a measured angle.
class COREALGORITHMS_MODEL_EXPORT PointBased3DAnnotationBase : public DataObject
{
    COREALGORITHMS_TYPE(PointBased3DAnnotationBase, DataObject)

public:
    /// Returns the positions in order.
    virtual QList<QVector3D> getPositions() const;
    /// Replaces the positions.
    virtual void setPositions(const QList<QVector3D>& positionsMm);
    /// Moves the positions.
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QList<QVector3D> positions;
};

} // namespace dataobject
