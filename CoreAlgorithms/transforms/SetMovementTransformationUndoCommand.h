// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <QMatrix4x4>
#include <QString>
#include <QUndoCommand>

class OcclusionMovement;

/// Gives an occlusion movement its transformation for a mode.
///
/// The first time that the movement gets one for this mode, it is put into the mode too; undo then
/// takes both away. Otherwise undo puts the earlier transformation back, bit for bit. What was
/// there before is read when the command is made. During redo and undo, after the children have
/// run, the movement is marked by a MovementUndoLock.
///
/// (1) redo, undo leaves transformations and modes of the movement as they were before redo, if the
/// movement was not
///     in a mode for which it had no transformation.
/// (2) redo, undo, redo leaves the movement as the first redo did.
class COREALGORITHMS_EXPORT SetMovementTransformationUndoCommand : public QUndoCommand
{
public:
    /// The movement is not owned and must outlive the command.
    SetMovementTransformationUndoCommand(OcclusionMovement& movementToSet,
                                         const QMatrix4x4& transformation,
                                         const QString& movementMode, QUndoCommand* parent);
    ~SetMovementTransformationUndoCommand() override;

    void redo() override;
    void undo() override;

private:
    OcclusionMovement* movement;
    utility::Optional<QMatrix4x4> previousTransformation;
    QMatrix4x4 newTransformation;
    QString mode;
};
