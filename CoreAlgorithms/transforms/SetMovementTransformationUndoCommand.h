// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/fundamentals/Optional.h>

#include <QMatrix4x4>
#include <QString>
#include <QUndoCommand>

class OcclusionMovement;

/// Sets the transformation of an occlusion movement for one mode, and takes it back. A mode names
/// the source of a bite, for instance a plaster cast. During redo and undo, after the children have
/// run, a MovementUndoLock marks the movement as changed by undo or redo.
///
/// (1) redo, undo leaves transformations and modes of the movement as they were before redo, if the
///     movement was not in a mode for which it had no transformation.
/// (2) redo, undo, redo leaves the movement as the first redo did.
class COREALGORITHMS_EXPORT SetMovementTransformationUndoCommand : public QUndoCommand
{
public:
    /// Reads the movement's present transformation for the mode, which undo() restores. The
    /// movement is not owned and must outlive the command.
    SetMovementTransformationUndoCommand(OcclusionMovement& movementToSet,
                                         const QMatrix4x4& transformation,
                                         const QString& movementMode, QUndoCommand* parent);
    ~SetMovementTransformationUndoCommand() override;

    /// Stores the transformation. If there was none for the mode, also puts the movement into the
    /// mode.
    void redo() override;
    /// Restores the earlier transformation bit for bit. If there was none, removes the
    /// transformation and the mode.
    void undo() override;

private:
    OcclusionMovement* movement;
    utility::Optional<QMatrix4x4> previousTransformation;
    QMatrix4x4 newTransformation;
    QString mode;
};
