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

/// The placements of implants at the moment when the plan was locked. They are kept as they were,
/// in the frame of that moment; the scanner orientation carries them into today's.
class COREALGORITHMS_MODEL_EXPORT LockedImplantPlan : public DataObject
{
    COREALGORITHMS_TYPE(LockedImplantPlan, DataObject)

public:
    /// In the frame of the moment of locking.
    virtual QList<QMatrix4x4> getImplantPlacements() const;
    virtual void lock(const QList<QMatrix4x4>& worldFromImplants);

    /// From the frame of the moment of locking into today's.
    virtual QMatrix4x4 getScannerOrientation() const;
    /// The world has moved by the matrix: the scanner orientation becomes matrix * scanner
    /// orientation.
    virtual void updateScannerOrientation(const QMatrix4x4& matrix);

private:
    QList<QMatrix4x4> placements;
    QMatrix4x4 scannerOrientation;
};

/// How the parts of a surgery moved from before the operation to the plan and to the state after
/// it. A part is known by its class type identifier. All matrices move the world onto itself.
class COREALGORITHMS_MODEL_EXPORT PlannedToPostOpCollection : public DataObject
{
    COREALGORITHMS_TYPE(PlannedToPostOpCollection, DataObject)

public:
    using Transformations = std::map<QString, QMatrix4x4>;

    /// The parts for which a transformation is stored, ascending.
    virtual QStringList getTransformationSurgeryPartTypes() const;
    /// The parts that are compared, as set; they need not have a transformation.
    virtual QStringList getComparedSurgeryPartTypes() const;
    virtual void setComparedSurgeryPartTypes(const QStringList& partTypes);

    /// Empty if none is stored.
    virtual utility::Optional<QMatrix4x4>
    getFromPreOpToPlannedTransformation(const QString& partType) const;
    virtual utility::Optional<QMatrix4x4>
    getFromPreOpToPostOpTransformation(const QString& partType) const;
    /// Adds or replaces those of the parts that the maps name; all others stay.
    virtual void setFromPreOpToPlannedAndPostOpTransformations(const Transformations& toPlanned,
                                                               const Transformations& toPostOp);

    /// The world point about which a part's rotation is measured; empty if none is stored.
    virtual utility::Optional<QVector3D> getPreOpRotationPoint(const QString& partType) const;
    virtual void setPreOpRotationPoint(const QString& partType, const QVector3D& pointMm);

private:
    Transformations planned;
    Transformations postOp;
    QStringList compared;
    std::map<QString, QVector3D> rotationPoints;
};

} // namespace dataobject
