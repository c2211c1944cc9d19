// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/SetMovementTransformationUndoCommand.h>

#include <CoreAlgorithms/model/dataobjects/Movements.h>

SetMovementTransformationUndoCommand::SetMovementTransformationUndoCommand(
    OcclusionMovement& movementToSet, const QMatrix4x4& transformation, const QString& movementMode,
    QUndoCommand* parent)
    : QUndoCommand(parent),
      movement(&movementToSet),
      previousTransformation(movementToSet.getOcclusionModeTransformation(movementMode)),
      newTransformation(transformation),
      mode(movementMode)
{}

SetMovementTransformationUndoCommand::~SetMovementTransformationUndoCommand() = default;

void SetMovementTransformationUndoCommand::redo()
{
    QUndoCommand::redo();
    const MovementUndoLock lock(movement);
    if (!previousTransformation)
        movement->setMovementMode(mode);
    movement->addOcclusionModeTransformation(mode, newTransformation);
}

void SetMovementTransformationUndoCommand::undo()
{
    QUndoCommand::undo();
    const MovementUndoLock lock(movement);
    if (previousTransformation) {
        movement->addOcclusionModeTransformation(mode, previousTransformation.value());
    } else {
        movement->removeOcclusionModeTransformation(mode);
        // Intended: even if the movement was in the mode before, without a transformation; hosts
        // put occlusion movements into a mode by this command alone.
        movement->removeMovementMode(mode);
    }
}
