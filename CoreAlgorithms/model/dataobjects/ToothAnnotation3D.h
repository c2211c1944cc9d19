// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/CreationType.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/Tooth.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QMatrix4x4>
#include <QVector3D>

#include <memory>

/// Represents a label that marks a tooth in the 3-D view. Setters notify the observers.
class COREALGORITHMS_MODEL_EXPORT ToothAnnotation3D : public DataObject
{
    COREALGORITHMS_TYPE(ToothAnnotation3D, DataObject)

public:
    /// Returns the number of the linked tooth. Without one, returns the number that was set last or
    /// that the last linked tooth had, and NoTooth for a new label.
    virtual ToothChart::Tooth getToothType() const;
    /// Sets the number of a label without a tooth. The number of a linked tooth has precedence.
    virtual void setToothType(ToothChart::Tooth toothType);

    /// Returns the linked tooth, or null.
    virtual std::shared_ptr<dataobject::Tooth> getTooth() const;
    /// Links the label to a tooth; null removes the link.
    virtual void setTooth(const std::shared_ptr<dataobject::Tooth>& linkedTooth);

    /// Returns the position in world mm.
    virtual QVector3D getPosition() const;
    /// Sets the position in world mm.
    virtual void setPosition(const QVector3D& positionMm);
    /// Returns the direction of the arch at the label.
    virtual QVector3D getDirection() const;
    /// Sets the direction of the arch at the label.
    virtual void setDirection(const QVector3D& alongArch);

    /// Returns who made the label; AutomaticallyCreated at first.
    virtual CreationType getCreationType() const;
    /// Sets who made the label.
    virtual void setCreationType(CreationType type);

    /// Moves the position by the matrix, and the direction by its upper left 3 x 3 part. Notifies
    /// the observers.
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    std::shared_ptr<dataobject::Tooth> tooth;
    ToothChart::Tooth typeWithoutTooth = ToothChart::NoTooth;
    QVector3D position;
    QVector3D direction;
    CreationType creationType = AutomaticallyCreated;
};
