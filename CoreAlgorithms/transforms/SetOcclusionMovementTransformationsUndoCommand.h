// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/transforms/OcclusionMovementTransformations.h>
#include <CoreAlgorithms/transforms/OcclusionMovements.h>

#include <QMatrix4x4>
#include <QString>
#include <QUndoCommand>

#include <map>

/// Stores a bite on the movements of a surgery in one step for the user. The command has one
/// SetMovementTransformationUndoCommand as a child for every movement for which the bite has a
/// value, in this order: maxilla, mandible, maxillary segments, mandibular segments; the segments
/// of a jaw in the order of their type identifiers. A movement that is null is skipped.
///
/// A segment's matrix is stored on the first occlusion movement of the composite whose primary
/// affected type is the segment. If there is none, the constructor adds a new movement to the
/// composite: of the maxillary occlusion type for the upper jaw in a maxillary composite, of the
/// mandibular for the lower jaw in a mandibular one. In a composite of another type, such an entry
/// is skipped.
///
/// (1) redo, undo leaves transformations and modes of all movements as the constructor left them,
///     if no movement was in a mode for which it had no transformation.
/// (2) redo, undo, redo leaves all movements as the first redo did.
/// The constructor's own changes are not undone: new movements stay in their composite, and a
/// composite stays in the mode.
class COREALGORITHMS_EXPORT SetOcclusionMovementTransformationsUndoCommand : public QUndoCommand
{
public:
    /// Makes the children and the movements that are missing, and puts each composite for which the
    /// bite has a map, even an empty one, into the mode. The movements are not owned and must
    /// outlive the command.
    SetOcclusionMovementTransformationsUndoCommand(
        const OcclusionMovementTransformations& transformations,
        const OcclusionMovements& movements, const QString& mode, QUndoCommand* parent);
    ~SetOcclusionMovementTransformationsUndoCommand() override;

private:
    void createSegmentedUndoCommands(CompositeMovement* composite,
                                     const std::map<QString, QMatrix4x4>& transformations,
                                     const QString& mode);
};
