// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Movements.h>

#include <algorithm>
#include <iterator>

namespace {

using Movements = QList<std::shared_ptr<Movement>>;

QList<Movement*> pointers(const Movements& movements)
{
    QList<Movement*> result;
    result.reserve(movements.size());
    std::transform(movements.begin(), movements.end(), std::back_inserter(result),
                   [](const auto& movement) { return movement.get(); });
    return result;
}

// Returns false for null and for a movement that is in the list already.
bool adopt(Movements& movements, Movement* movement)
{
    if (!movement || pointers(movements).contains(movement))
        return false;
    if (const auto shared = movement->weak_from_this().lock())
        movements.append(std::static_pointer_cast<Movement>(shared));
    else
        movements.append(std::shared_ptr<Movement>(movement));
    return true;
}

} // namespace

Movement::Movement(const QString& movementTypeId) : movementType(movementTypeId) {}

QString Movement::getMovementType() const
{
    return movementType;
}

QString Movement::getPrimaryAffectedType() const
{
    return primaryAffectedType;
}

void Movement::setPrimaryAffectedType(const QString& classTypeId)
{
    primaryAffectedType = classTypeId;
    changed();
}

QString Movement::getMovementMode() const
{
    return modes.isEmpty() ? QString() : modes.last();
}

QStringList Movement::getMovementModes() const
{
    return modes;
}

void Movement::setMovementMode(const QString& mode)
{
    modes.removeAll(mode);
    modes.append(mode);
    changed();
}

void Movement::removeMovementMode(const QString& mode)
{
    if (modes.removeAll(mode) > 0)
        changed();
}

void Movement::beginUndoRedo()
{
    ++undoRedoDepth;
}

void Movement::endUndoRedo()
{
    if (undoRedoDepth > 0)
        --undoRedoDepth;
}

MovementUndoLock::MovementUndoLock(Movement* movementToChange) : movement(movementToChange)
{
    if (movement)
        movement->beginUndoRedo();
}

MovementUndoLock::~MovementUndoLock()
{
    if (movement)
        movement->endUndoRedo();
}

utility::Optional<QMatrix4x4>
OcclusionMovement::getOcclusionModeTransformation(const QString& mode) const
{
    const auto found = transformations.find(mode);
    if (found == transformations.end())
        return {};
    return found->second;
}

void OcclusionMovement::addOcclusionModeTransformation(const QString& mode,
                                                       const QMatrix4x4& transformation)
{
    transformations.insert_or_assign(mode, transformation);
    changed();
}

void OcclusionMovement::removeOcclusionModeTransformation(const QString& mode)
{
    if (transformations.erase(mode) > 0)
        changed();
}

JawType OcclusionMovement::getAffectedTreatmentType() const
{
    return affectedTreatmentType;
}

void OcclusionMovement::setAffectedTreatmentType(JawType jaw)
{
    affectedTreatmentType = jaw;
    changed();
}

QList<Movement*> CompositeMovement::getMovements() const
{
    return pointers(movements);
}

void CompositeMovement::addMovement(Movement* movement)
{
    if (movement != this && adopt(movements, movement))
        changed();
}

QMatrix4x4 FixedMovement::getTransformation() const
{
    return transformation;
}

void FixedMovement::setTransformation(const QMatrix4x4& matrix)
{
    transformation = matrix;
    changed();
}

Movement* MaxillofacialSurgery::getMovementByTypeIdentifier(const QString& movementType) const
{
    const auto found =
        std::find_if(movements.begin(), movements.end(), [&movementType](const auto& movement) {
            return movement->getMovementType() == movementType;
        });
    return found == movements.end() ? nullptr : found->get();
}

QList<Movement*> MaxillofacialSurgery::getMovements() const
{
    return pointers(movements);
}

void MaxillofacialSurgery::addMovement(Movement* movement)
{
    if (adopt(movements, movement))
        changed();
}
