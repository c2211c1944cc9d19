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

/// Stores a bite on the movements of a surgery, in one step for the user: a
/// SetMovementTransformationUndoCommand as child for every movement that the bite has a value for.
/// Order: maxilla, mandible, maxillary segments, mandibular segments, the segments of a jaw in the
/// order of their type identifiers. A movement that is null is left out.
///
/// A segment goes to the first occlusion movement of the composite that affects it first of all. If
/// there is none, it gets a new one when the command is made: of the jaw's occlusion movement type,
/// for the upper jaw in a maxillary composite and the lower in a mandibular one. It belongs to the
/// composite from then on, also after undo. In a composite of another type, such an entry is passed
/// over.
///
/// A composite is put into the mode when the command is made, also for an empty map; undo leaves it
/// there.
class COREALGORITHMS_EXPORT SetOcclusionMovementTransformationsUndoCommand : public QUndoCommand
{
public:
    /// The movements are not owned and must outlive the command.
    SetOcclusionMovementTransformationsUndoCommand(
        const OcclusionMovementTransformations& transformations,
        const OcclusionMovements& movements, const QString& mode, QUndoCommand* parent);
    ~SetOcclusionMovementTransformationsUndoCommand() override;

private:
    void createSegmentedUndoCommands(CompositeMovement* composite,
                                     const std::map<QString, QMatrix4x4>& transformations,
                                     const QString& mode);
};
