// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <QList>
#include <QMatrix4x4>
#include <QString>
#include <QStringList>
#include <QVector3D>

#include <map>

namespace dataobject {

/// Holds the placements of implants at the moment when the plan was locked. They do not change; the
/// scanner orientation maps the frame of that moment into the current one.
class COREALGORITHMS_MODEL_EXPORT LockedImplantPlan : public DataObject
{
    COREALGORITHMS_TYPE(LockedImplantPlan, DataObject)

public:
    /// Returns the placements in the frame of the moment of locking.
    virtual QList<QMatrix4x4> getImplantPlacements() const;
    /// Stores the placements and resets the scanner orientation. Notifies the observers.
    virtual void lock(const QList<QMatrix4x4>& worldFromImplants);

    /// Returns the matrix from the frame of the moment of locking into the current one.
    virtual QMatrix4x4 getScannerOrientation() const;
    /// Records that the matrix has moved the world: the scanner orientation becomes
    /// matrix * scanner orientation. Notifies the observers.
    virtual void updateScannerOrientation(const QMatrix4x4& matrix);

private:
    QList<QMatrix4x4> placements;
    QMatrix4x4 scannerOrientation;
};

/// Holds how the parts of a surgery moved from before the operation to the plan and to the state
/// after it. The key of a part is its type identifier. All matrices move the world onto itself.
/// Setters notify the observers.
class COREALGORITHMS_MODEL_EXPORT PlannedToPostOpCollection : public DataObject
{
    COREALGORITHMS_TYPE(PlannedToPostOpCollection, DataObject)

public:
    using Transformations = std::map<QString, QMatrix4x4>;

    /// Returns the parts for which a transformation is stored, in ascending order.
    virtual QStringList getTransformationSurgeryPartTypes() const;
    /// Returns the parts that are compared, as they were set.
    virtual QStringList getComparedSurgeryPartTypes() const;
    /// Sets the parts that are compared. They need not have a transformation.
    virtual void setComparedSurgeryPartTypes(const QStringList& partTypes);

    /// Returns the movement of a part to the plan; empty if none is stored.
    virtual utility::Optional<QMatrix4x4>
    getFromPreOpToPlannedTransformation(const QString& partType) const;
    /// Returns the movement of a part to the state after the operation; empty if none is stored.
    virtual utility::Optional<QMatrix4x4>
    getFromPreOpToPostOpTransformation(const QString& partType) const;
    /// Adds or replaces the movements of the parts in the two maps. Keeps those of other parts.
    virtual void setFromPreOpToPlannedAndPostOpTransformations(const Transformations& toPlanned,
                                                               const Transformations& toPostOp);

    /// Returns the point in world mm about which the rotation of a part is measured; empty if none
    /// is stored.
    virtual utility::Optional<QVector3D> getPreOpRotationPoint(const QString& partType) const;
    /// Sets the point in world mm about which the rotation of a part is measured.
    virtual void setPreOpRotationPoint(const QString& partType, const QVector3D& pointMm);

private:
    Transformations planned;
    Transformations postOp;
    QStringList compared;
    std::map<QString, QVector3D> rotationPoints;
};

} // namespace dataobject
