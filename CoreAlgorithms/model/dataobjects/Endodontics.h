// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QVector3D>

namespace dataobject {

/// The tip of a root, in world mm. It is no AttachablePoint.
class COREALGORITHMS_MODEL_EXPORT Apex : public DataObject
{
    COREALGORITHMS_TYPE(Apex, DataObject)

public:
    virtual QVector3D getPosition() const;
    virtual void setPosition(const QVector3D& positionMm);

private:
    QVector3D position;
};

/// The canal in a root, by the place where it starts, in world mm.
class COREALGORITHMS_MODEL_EXPORT RootCanal : public DataObject
{
    COREALGORITHMS_TYPE(RootCanal, DataObject)

public:
    virtual QVector3D getBasePosition() const;
    virtual void setBasePosition(const QVector3D& positionMm);

private:
    QVector3D basePosition;
};

} // namespace dataobject
