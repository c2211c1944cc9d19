// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Computes the moves that bring the jaws into a recorded bite and stores them on a surgery, in one
// step that the user can undo.
#include <CoreAlgorithms/model/dataobjects/JawParts.h>
#include <CoreAlgorithms/model/dataobjects/Movements.h>
#include <CoreAlgorithms/transforms/OcclusionMovementCalculator.h>
#include <CoreAlgorithms/transforms/OcclusionMovements.h>
#include <CoreAlgorithms/transforms/SetOcclusionMovementTransformationsUndoCommand.h>

#include <QUndoStack>

#include <iostream>

namespace {

QMatrix4x4 shift(float x, float y, float z)
{
    QMatrix4x4 matrix;
    matrix.translate(x, y, z);
    return matrix;
}

} // namespace

int main()
{
    const QMatrix4x4 maxillaScanInWorld = shift(0.0F, 0.0F, 30.0F);
    const QMatrix4x4 mandibulaScanInWorld = shift(0.0F, 4.0F, 0.0F);
    const QMatrix4x4 maxillaInBite = shift(0.0F, 0.0F, 28.0F);
    const QMatrix4x4 mandibulaInBite;
    MaxillofacialSurgery surgery;
    auto* mandibular = new OcclusionMovement(MovementTypes::m_mandibular_occlusion_movement);
    surgery.addMovement(mandibular); // which owns it

    // [OcclusionMovementCalculator]
    OcclusionMovementCalculator::Data data;
    data.occlusionTransformations = {{Maxilla::getClassTypeId(), maxillaInBite},
                                     {Mandibula::getClassTypeId(), mandibulaInBite}};
    data.maxillaRegistration = maxillaScanInWorld;
    data.mandibulaRegistration = mandibulaScanInWorld;
    const auto moves = OcclusionMovementCalculator(data).calculate();

    QUndoStack stack;
    stack.push(new SetOcclusionMovementTransformationsUndoCommand(
        moves, utility::getOcclusionMovements(surgery), data.movementMode, nullptr));
    // [OcclusionMovementCalculator]

    const auto stored = mandibular->getOcclusionModeTransformation(data.movementMode);
    if (!stored || stored.value() != shift(0.0F, -4.0F, 2.0F))
        return 1;
    const QMatrix4x4 move = stored.value();
    std::cout << "the lower jaw moves by (" << move(0, 3) << ", " << move(1, 3) << ", "
              << move(2, 3) << ") mm\n";
    stack.undo();
    return mandibular->getOcclusionModeTransformation(data.movementMode).hasValue() ? 1 : 0;
}
