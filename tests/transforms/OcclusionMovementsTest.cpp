// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/OcclusionMovements.h>

// The four occlusion movements of a surgery, and the record of their transformations.

#include <CoreAlgorithms/model/dataobjects/Movements.h>
#include <CoreAlgorithms/transforms/OcclusionMovementTransformations.h>

#include <tests/support/MovementBuilders.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

static_assert(std::is_copy_constructible_v<OcclusionMovements> &&
              std::is_copy_assignable_v<OcclusionMovements>);
static_assert(std::is_nothrow_move_assignable_v<OcclusionMovements>);

QMatrix4x4 shift(float x)
{
    QMatrix4x4 matrix;
    matrix.translate(x, 0.0F, 0.0F);
    return matrix;
}

TEST(OcclusionMovements, AreNullAtFirst)
{
    const OcclusionMovements movements;
    EXPECT_EQ(movements.maxillaryMovement, nullptr);
    EXPECT_EQ(movements.mandibularMovement, nullptr);
    EXPECT_EQ(movements.maxillarySegmentalMovement, nullptr);
    EXPECT_EQ(movements.mandibularSegmentalMovement, nullptr);
}

TEST(OcclusionMovements, AreFoundByTheirTypes)
{
    const test::SurgeryWithMovements made;
    const OcclusionMovements movements = utility::getOcclusionMovements(made.surgery);
    EXPECT_EQ(movements.maxillaryMovement, made.maxillary);
    EXPECT_EQ(movements.mandibularMovement, made.mandibular);
    EXPECT_EQ(movements.maxillarySegmentalMovement, made.maxillaryParts);
    EXPECT_EQ(movements.mandibularSegmentalMovement, made.mandibularParts);
}

TEST(OcclusionMovements, ThatDoNotExistAreNull)
{
    MaxillofacialSurgery surgery;
    auto* mandibular = new OcclusionMovement(MovementTypes::m_mandibular_occlusion_movement);
    surgery.addMovement(mandibular);
    const OcclusionMovements movements = utility::getOcclusionMovements(surgery);
    EXPECT_EQ(movements.maxillaryMovement, nullptr);
    EXPECT_EQ(movements.mandibularMovement, mandibular);
    EXPECT_EQ(movements.maxillarySegmentalMovement, nullptr);
    EXPECT_EQ(movements.mandibularSegmentalMovement, nullptr);
}

TEST(OcclusionMovements, OfAnotherClassAreNull)
{
    MaxillofacialSurgery surgery;
    surgery.addMovement(new FixedMovement(MovementTypes::m_maxillary_occlusion_movement));
    surgery.addMovement(
        new OcclusionMovement(MovementTypes::m_mandibular_segmental_occlusion_movement));
    const OcclusionMovements movements = utility::getOcclusionMovements(surgery);
    EXPECT_EQ(movements.maxillaryMovement, nullptr);
    EXPECT_EQ(movements.mandibularSegmentalMovement, nullptr);
}

TEST(OcclusionMovements, CopiesHoldTheSamePointers)
{
    const test::SurgeryWithMovements made;
    const OcclusionMovements movements = utility::getOcclusionMovements(made.surgery);
    OcclusionMovements copy;
    copy = movements;
    OcclusionMovements moved;
    moved = std::move(copy); // NOLINT(performance-move-const-arg): the operation that is tested
    EXPECT_EQ(moved.maxillaryMovement, made.maxillary);
    EXPECT_EQ(moved.mandibularMovement, made.mandibular);
    EXPECT_EQ(moved.maxillarySegmentalMovement, made.maxillaryParts);
    EXPECT_EQ(moved.mandibularSegmentalMovement, made.mandibularParts);
}

TEST(OcclusionMovementTransformations, AreEmptyAtFirst)
{
    const OcclusionMovementTransformations transformations;
    EXPECT_FALSE(transformations.maxillaryTransformation);
    EXPECT_FALSE(transformations.mandibularTransformation);
    EXPECT_FALSE(transformations.maxillarySegmentalTransformations);
    EXPECT_FALSE(transformations.mandibularSegmentalTransformations);
}

TEST(OcclusionMovementTransformations, CopiesAndMovesTakeEachField)
{
    OcclusionMovementTransformations source;
    source.maxillaryTransformation = shift(1.0F);
    source.mandibularTransformation = shift(2.0F);
    source.maxillarySegmentalTransformations =
        std::map<QString, QMatrix4x4>{{QStringLiteral("a"), shift(3.0F)}};
    source.mandibularSegmentalTransformations =
        std::map<QString, QMatrix4x4>{{QStringLiteral("b"), shift(4.0F)}};

    const auto expectFields = [](const OcclusionMovementTransformations& record) {
        EXPECT_EQ(record.maxillaryTransformation.value(), shift(1.0F));
        EXPECT_EQ(record.mandibularTransformation.value(), shift(2.0F));
        EXPECT_EQ(record.maxillarySegmentalTransformations.value().at(QStringLiteral("a")),
                  shift(3.0F));
        EXPECT_EQ(record.mandibularSegmentalTransformations.value().at(QStringLiteral("b")),
                  shift(4.0F));
    };
    OcclusionMovementTransformations copy(source);
    expectFields(copy);
    expectFields(source);
    const OcclusionMovementTransformations moved(std::move(copy));
    expectFields(moved);
    OcclusionMovementTransformations assigned;
    assigned = moved;
    expectFields(assigned);
    OcclusionMovementTransformations moveAssigned;
    moveAssigned = std::move(assigned);
    expectFields(moveAssigned);
}

} // namespace
