// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QVector3D>

namespace dataobject {

/// Represents the tip of a root. It is not an AttachablePoint.
class COREALGORITHMS_MODEL_EXPORT Apex : public DataObject
{
    COREALGORITHMS_TYPE(Apex, DataObject)

public:
    /// Returns the position in world mm.
    virtual QVector3D getPosition() const;
    /// Sets the position in world mm. Notifies the observers.
    virtual void setPosition(const QVector3D& positionMm);

private:
    QVector3D position;
};

/// Represents the canal in a root by the position at which it starts.
class COREALGORITHMS_MODEL_EXPORT RootCanal : public DataObject
{
    COREALGORITHMS_TYPE(RootCanal, DataObject)

public:
    /// Returns the start of the canal in world mm.
    virtual QVector3D getBasePosition() const;
    /// Sets the start of the canal in world mm. Notifies the observers.
    virtual void setBasePosition(const QVector3D& positionMm);

private:
    QVector3D basePosition;
};

} // namespace dataobject
