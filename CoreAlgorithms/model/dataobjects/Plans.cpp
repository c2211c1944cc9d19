// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Plans.h>

#include <set>

namespace {

template <typename Value>
utility::Optional<Value> lookUp(const std::map<QString, Value>& values, const QString& key)
{
    const auto found = values.find(key);
    return found == values.end() ? utility::Optional<Value>()
                                 : utility::Optional<Value>(found->second);
}

} // namespace

namespace dataobject {

QList<QMatrix4x4> LockedImplantPlan::getImplantPlacements() const
{
    return placements;
}

void LockedImplantPlan::lock(const QList<QMatrix4x4>& worldFromImplants)
{
    placements = worldFromImplants;
    scannerOrientation.setToIdentity();
    changed();
}

QMatrix4x4 LockedImplantPlan::getScannerOrientation() const
{
    return scannerOrientation;
}

void LockedImplantPlan::updateScannerOrientation(const QMatrix4x4& matrix)
{
    scannerOrientation = matrix * scannerOrientation;
    changed();
}

QStringList PlannedToPostOpCollection::getTransformationSurgeryPartTypes() const
{
    std::set<QString> types;
    for (const Transformations* stored : {&planned, &postOp}) {
        for (const auto& [partType, matrix] : *stored)
            types.insert(partType);
    }
    return {types.begin(), types.end()};
}

QStringList PlannedToPostOpCollection::getComparedSurgeryPartTypes() const
{
    return compared;
}

void PlannedToPostOpCollection::setComparedSurgeryPartTypes(const QStringList& partTypes)
{
    compared = partTypes;
    changed();
}

utility::Optional<QMatrix4x4>
PlannedToPostOpCollection::getFromPreOpToPlannedTransformation(const QString& partType) const
{
    return lookUp(planned, partType);
}

utility::Optional<QMatrix4x4>
PlannedToPostOpCollection::getFromPreOpToPostOpTransformation(const QString& partType) const
{
    return lookUp(postOp, partType);
}

void PlannedToPostOpCollection::setFromPreOpToPlannedAndPostOpTransformations(
    const Transformations& toPlanned, const Transformations& toPostOp)
{
    for (const auto& [partType, matrix] : toPlanned)
        planned.insert_or_assign(partType, matrix);
    for (const auto& [partType, matrix] : toPostOp)
        postOp.insert_or_assign(partType, matrix);
    changed();
}

utility::Optional<QVector3D>
PlannedToPostOpCollection::getPreOpRotationPoint(const QString& partType) const
{
    return lookUp(rotationPoints, partType);
}

void PlannedToPostOpCollection::setPreOpRotationPoint(const QString& partType,
                                                      const QVector3D& pointMm)
{
    rotationPoints.insert_or_assign(partType, pointMm);
    changed();
}

} // namespace dataobject
