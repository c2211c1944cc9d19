// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QMatrix4x4>
#include <QVector3D>

namespace dataobject {

/// Represents a position to which other objects, such as points of a poly-line, may be tied.
class COREALGORITHMS_MODEL_EXPORT AttachablePoint : public DataObject
{
    COREALGORITHMS_TYPE(AttachablePoint, DataObject)

public:
    /// Returns the position in world mm.
    virtual QVector3D getPosition() const;
    /// Sets the position in world mm. Notifies the observers.
    virtual void setPosition(const QVector3D& positionMm);
    /// Moves the position by the matrix. Notifies the observers.
    virtual void applyTransform(const QMatrix4x4& matrix);

private:
    QVector3D position;
};

} // namespace dataobject
