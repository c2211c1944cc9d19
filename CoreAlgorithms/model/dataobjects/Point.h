// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QVector3D>

/// Represents a position that has identity, for instance a point that the user sets and drags.
class COREALGORITHMS_MODEL_EXPORT Point : public DataObject
{
    COREALGORITHMS_TYPE(Point, DataObject)

public:
    /// Constructs a point at the world origin.
    Point() = default;
    /// Constructs a point at a position in world mm.
    explicit Point(const QVector3D& positionMm) : position(positionMm) {}

    /// Returns the position in world mm.
    virtual QVector3D getPosition() const;
    /// Sets the position in world mm. Notifies the observers.
    virtual void setPosition(const QVector3D& positionMm);

private:
    QVector3D position;
};
