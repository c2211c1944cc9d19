// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/SetOcclusionMovementTransformationsUndoCommand.h>

#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/dataobjects/Movements.h>
#include <CoreAlgorithms/transforms/SetMovementTransformationUndoCommand.h>

#include <memory>

namespace {

OcclusionMovement* findMovementOf(const CompositeMovement& composite, const QString& segmentTypeId)
{
    const QList<Movement*> movements = composite.getMovements();
    for (Movement* movement : movements) {
        auto* occlusionMovement = dynamic_cast<OcclusionMovement*>(movement);
        if (occlusionMovement && occlusionMovement->getPrimaryAffectedType() == segmentTypeId)
            return occlusionMovement;
    }
    return nullptr;
}

// Null for a composite that is not segmental.
std::unique_ptr<OcclusionMovement> createMovementFor(const CompositeMovement& composite)
{
    const MovementTypes types(nullptr);
    std::unique_ptr<OcclusionMovement> movement;
    if (composite.getMovementType() == types.getMaxillarySegmentalOcclusionMovement()) {
        movement =
            std::make_unique<OcclusionMovement>(MovementTypes::m_maxillary_occlusion_movement);
        movement->setAffectedTreatmentType(JawType(hostvalues::kUpperJaw));
    } else if (composite.getMovementType() == types.getMandibularSegmentalOcclusionMovement()) {
        movement =
            std::make_unique<OcclusionMovement>(MovementTypes::m_mandibular_occlusion_movement);
        movement->setAffectedTreatmentType(JawType(hostvalues::kLowerJaw));
    }
    return movement;
}

} // namespace

SetOcclusionMovementTransformationsUndoCommand::SetOcclusionMovementTransformationsUndoCommand(
    const OcclusionMovementTransformations& transformations, const OcclusionMovements& movements,
    const QString& mode, QUndoCommand* parent)
    : QUndoCommand(parent)
{
    const auto addChild = [&](OcclusionMovement* movement,
                              const utility::Optional<QMatrix4x4>& matrix) {
        if (movement && matrix)
            new SetMovementTransformationUndoCommand(*movement, matrix.value(), mode,
                                                     this); // Qt owns it
    };
    addChild(movements.maxillaryMovement, transformations.maxillaryTransformation);
    addChild(movements.mandibularMovement, transformations.mandibularTransformation);

    const auto addSegments = [&](CompositeMovement* composite, const auto& matrices) {
        if (composite && matrices)
            createSegmentedUndoCommands(composite, matrices.value(), mode);
    };
    addSegments(movements.maxillarySegmentalMovement,
                transformations.maxillarySegmentalTransformations);
    addSegments(movements.mandibularSegmentalMovement,
                transformations.mandibularSegmentalTransformations);
}

SetOcclusionMovementTransformationsUndoCommand::~SetOcclusionMovementTransformationsUndoCommand() =
    default;

void SetOcclusionMovementTransformationsUndoCommand::createSegmentedUndoCommands(
    CompositeMovement* composite, const std::map<QString, QMatrix4x4>& transformations,
    const QString& mode)
{
    const MovementUndoLock lock(composite);
    for (const auto& [segmentTypeId, matrix] : transformations) {
        if (OcclusionMovement* movement = findMovementOf(*composite, segmentTypeId)) {
            new SetMovementTransformationUndoCommand(*movement, matrix, mode, this);
        } else if (auto created = createMovementFor(*composite)) {
            created->setPrimaryAffectedType(segmentTypeId);
            new SetMovementTransformationUndoCommand(*created, matrix, mode, this);
            // Intended: the movement joins the composite now, not on redo, and stays on undo; the
            // user's later bites of this segment find it there.
            composite->addMovement(created.release());
        }
    }
    // Intended: even for an empty map, and not undone; hosts show the mode that was chosen last.
    composite->setMovementMode(mode);
}
