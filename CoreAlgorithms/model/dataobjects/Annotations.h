// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/math/Plane.h>

#include <QList>
#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

// What users draw and write into the scene; positions are world mm. The kinds do not derive from
// each other: whoever moves one kind after the other moves no annotation twice.
//
// applyTransform() moves an annotation by a matrix, directions by its upper left 3 x 3 part. It
// takes rigid motions: radii stay, and unit vectors are made unit vectors again.

/// A marked position.
class COREALGORITHMS_MODEL_EXPORT PointAnnotation : public DataObject
{
    COREALGORITHMS_TYPE(PointAnnotation, DataObject)

public:
    virtual QVector3D getPosition() const;
    virtual void changePosition(const QVector3D& positionMm);

private:
    QVector3D position;
};

/// A chain of segments.
class COREALGORITHMS_MODEL_EXPORT LineAnnotation : public DataObject
{
    COREALGORITHMS_TYPE(LineAnnotation, DataObject)

public:
    virtual QList<QVector3D> getPositions() const;
    virtual void setPositions(const QList<QVector3D>& positionsMm);
    /// Does nothing for an index that has no position.
    virtual void changePosition(int index, const QVector3D& positionMm);

private:
    QList<QVector3D> positions;
};

/// A position at which the grey value of the scan was read.
class COREALGORITHMS_MODEL_EXPORT GreyValueMeasurement : public DataObject
{
    COREALGORITHMS_TYPE(GreyValueMeasurement, DataObject)

public:
    virtual QVector3D getPosition() const;
    virtual void changePosition(const QVector3D& positionMm);

    /// As it was read; it stays when the position changes.
    virtual float getGreyValue() const;
    virtual void setGreyValue(float value);

private:
    QVector3D position;
    float greyValue = 0.0F;
};

/// A free-hand stroke.
class COREALGORITHMS_MODEL_EXPORT PencilAnnotation3D : public DataObject
{
    COREALGORITHMS_TYPE(PencilAnnotation3D, DataObject)

public:
    virtual QList<QVector3D> getPositions() const;
    virtual void setPositions(const QList<QVector3D>& positionsMm);
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QList<QVector3D> positions;
};

/// An arrow from its tail to its tip.
class COREALGORITHMS_MODEL_EXPORT ArrowAnnotation3D : public DataObject
{
    COREALGORITHMS_TYPE(ArrowAnnotation3D, DataObject)

public:
    virtual QVector3D getTail() const;
    virtual QVector3D getTip() const;
    virtual void setEnds(const QVector3D& tailMm, const QVector3D& tipMm);
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QVector3D tail;
    QVector3D tip;
};

/// A circle: centre, unit normal, radius in mm.
class COREALGORITHMS_MODEL_EXPORT CircleAnnotation3D : public DataObject
{
    COREALGORITHMS_TYPE(CircleAnnotation3D, DataObject)

public:
    virtual QVector3D getCentre() const;
    virtual QVector3D getNormal() const;
    virtual float getRadius() const;
    /// The normal is normalised.
    virtual void setCircle(const QVector3D& centreMm, const QVector3D& direction, float radiusMm);
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QVector3D centre;
    QVector3D normal{0.0F, 0.0F, 1.0F};
    float radius = 0.0F;
};

/// Words at a position.
class COREALGORITHMS_MODEL_EXPORT TextAnnotation3D : public DataObject
{
    COREALGORITHMS_TYPE(TextAnnotation3D, DataObject)

public:
    virtual QString getText() const;
    virtual void setText(const QString& words);
    virtual QVector3D getPosition() const;
    virtual void setPosition(const QVector3D& positionMm);
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QString text;
    QVector3D position;
};

/// What is written into a reslice that the user laid freely.
class COREALGORITHMS_MODEL_EXPORT CustomResliceAnnotation : public DataObject
{
    COREALGORITHMS_TYPE(CustomResliceAnnotation, DataObject)

public:
    /// From the frame of the reslice into the world.
    virtual QMatrix4x4 getResliceTransform() const;
    virtual void setResliceTransform(const QMatrix4x4& worldFromReslice);
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QMatrix4x4 resliceTransform;
};

/// A plane of the cephalometric analysis. It follows from landmarks, so that moving it is no change
/// of the plan.
class COREALGORITHMS_MODEL_EXPORT CephPlaneBase : public DataObject
{
    COREALGORITHMS_TYPE(CephPlaneBase, DataObject)

public:
    virtual primitives::Plane getPlane() const;
    virtual void setPlane(const primitives::Plane& worldPlane);
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    primitives::Plane plane{QVector3D(), QVector3D(0.0F, 0.0F, 1.0F)};
};

namespace dataobject {

/// A position that others, such as points of a poly-line, may be tied to.
class COREALGORITHMS_MODEL_EXPORT AttachablePoint : public DataObject
{
    COREALGORITHMS_TYPE(AttachablePoint, DataObject)

public:
    virtual QVector3D getPosition() const;
    virtual void setPosition(const QVector3D& positionMm);
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QVector3D position;
};

/// An annotation that is nothing but positions in an order, for instance a measured angle.
class COREALGORITHMS_MODEL_EXPORT PointBased3DAnnotationBase : public DataObject
{
    COREALGORITHMS_TYPE(PointBased3DAnnotationBase, DataObject)

public:
    virtual QList<QVector3D> getPositions() const;
    virtual void setPositions(const QList<QVector3D>& positionsMm);
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QList<QVector3D> positions;
};

} // namespace dataobject
