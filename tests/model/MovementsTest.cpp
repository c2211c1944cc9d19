// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Movements.h>

// Movements of a surgery: identifiers, modes, transformations by mode, ownership, the lock of undo
// and redo.

#include <tests/support/ModelRecorders.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

// Sets a flag when it is destroyed.
class MortalMovement : public OcclusionMovement
{
public:
    explicit MortalMovement(bool& flag) : OcclusionMovement(QStringLiteral("mortal")), gone(flag) {}
    ~MortalMovement() override { gone = true; }

private:
    bool& gone;
};

QMatrix4x4 shift(float x)
{
    QMatrix4x4 matrix;
    matrix.translate(x, 0.0F, 0.0F);
    return matrix;
}

TEST(MovementTypes, AreFourAndHaveGetters)
{
    const MovementTypes types(nullptr);
    EXPECT_EQ(types.getMaxillaryOcclusionMovement(), MovementTypes::m_maxillary_occlusion_movement);
    EXPECT_EQ(types.getMandibularOcclusionMovement(),
              MovementTypes::m_mandibular_occlusion_movement);
    EXPECT_EQ(types.getMaxillarySegmentalOcclusionMovement(),
              MovementTypes::m_maxillary_segmental_occlusion_movement);
    EXPECT_EQ(types.getMandibularSegmentalOcclusionMovement(),
              MovementTypes::m_mandibular_segmental_occlusion_movement);
    const QStringList all = {MovementTypes::m_maxillary_occlusion_movement,
                             MovementTypes::m_mandibular_occlusion_movement,
                             MovementTypes::m_maxillary_segmental_occlusion_movement,
                             MovementTypes::m_mandibular_segmental_occlusion_movement};
    EXPECT_EQ(QSet<QString>(all.begin(), all.end()).size(), 4);
    EXPECT_FALSE(all.contains(QString()));
}

TEST(MovementTypes, BelongToTheirParent)
{
    QObject parent;
    const auto* types = new MovementTypes(&parent); // the parent deletes it
    EXPECT_EQ(types->parent(), &parent);
}

TEST(MovementModes, AreThree)
{
    const QSet<QString> all = {MovementModes::OCCLUSION_PLASTER_CAST_MODE,
                               MovementModes::OCCLUSION_PATIENT_SCAN_MODE,
                               MovementModes::OCCLUSION_VIRTUAL_MODE};
    EXPECT_EQ(all.size(), 3);
    EXPECT_FALSE(all.contains(QString()));
}

TEST(Movement, KeepsTypeAndPart)
{
    Movement movement(QStringLiteral("type"));
    EXPECT_EQ(movement.getMovementType(), QStringLiteral("type"));
    EXPECT_EQ(movement.getPrimaryAffectedType(), QString());
    movement.setPrimaryAffectedType(QStringLiteral("part"));
    EXPECT_EQ(movement.getPrimaryAffectedType(), QStringLiteral("part"));
}

TEST(Movement, IsInTheModeThatWasSetLastAmongThoseNotRemoved)
{
    Movement movement{QString()};
    EXPECT_EQ(movement.getMovementMode(), QString());
    movement.setMovementMode(QStringLiteral("a"));
    movement.setMovementMode(QStringLiteral("b"));
    movement.setMovementMode(QStringLiteral("c"));
    movement.setMovementMode(QStringLiteral("b"));
    EXPECT_EQ(movement.getMovementModes(), QStringList({"a", "c", "b"})) << "each once";
    movement.removeMovementMode(QStringLiteral("c"));
    EXPECT_EQ(movement.getMovementMode(), QStringLiteral("b"));
    movement.removeMovementMode(QStringLiteral("b"));
    EXPECT_EQ(movement.getMovementMode(), QStringLiteral("a"));
    movement.removeMovementMode(QStringLiteral("never set"));
    movement.removeMovementMode(QStringLiteral("a"));
    EXPECT_EQ(movement.getMovementModes(), QStringList());
}

TEST(Movement, NotifiesOfItsChanges)
{
    test::ChangeCounter counter;
    OcclusionMovement movement{QString()};
    movement.attach(&counter);
    movement.setMovementMode(QStringLiteral("a"));
    movement.addOcclusionModeTransformation(QStringLiteral("a"), {});
    movement.setPrimaryAffectedType(QStringLiteral("part"));
    movement.setAffectedTreatmentType(UpperJaw);
    movement.removeOcclusionModeTransformation(QStringLiteral("a"));
    movement.removeMovementMode(QStringLiteral("a"));
    EXPECT_EQ(counter.changes, 6);
    movement.removeOcclusionModeTransformation(QStringLiteral("a"));
    movement.removeMovementMode(QStringLiteral("a"));
    EXPECT_EQ(counter.changes, 6) << "nothing has changed";
}

TEST(MovementUndoLock, MarksTheMovementForItsScopeAndNests)
{
    Movement movement{QString()};
    EXPECT_FALSE(movement.isChangedByUndoRedo());
    {
        const MovementUndoLock outer(&movement);
        {
            const MovementUndoLock inner(&movement);
            EXPECT_TRUE(movement.isChangedByUndoRedo());
        }
        EXPECT_TRUE(movement.isChangedByUndoRedo());
    }
    EXPECT_FALSE(movement.isChangedByUndoRedo());
    movement.endUndoRedo();
    movement.beginUndoRedo();
    EXPECT_TRUE(movement.isChangedByUndoRedo()) << "an end without a beginning counts for nothing";
}

TEST(MovementUndoLock, AllowsNull)
{
    const MovementUndoLock lock(nullptr);
}

TEST(OcclusionMovement, KeepsOneTransformationForEachMode)
{
    OcclusionMovement movement{QString()};
    EXPECT_FALSE(movement.getOcclusionModeTransformation(QStringLiteral("a")));
    movement.addOcclusionModeTransformation(QStringLiteral("a"), shift(1.0F));
    movement.addOcclusionModeTransformation(QStringLiteral("b"), shift(2.0F));
    movement.addOcclusionModeTransformation(QStringLiteral("a"), shift(3.0F));
    EXPECT_EQ(movement.getOcclusionModeTransformation(QStringLiteral("a")).value(), shift(3.0F));
    EXPECT_EQ(movement.getOcclusionModeTransformation(QStringLiteral("b")).value(), shift(2.0F));
    movement.removeOcclusionModeTransformation(QStringLiteral("a"));
    EXPECT_FALSE(movement.getOcclusionModeTransformation(QStringLiteral("a")));
    EXPECT_TRUE(movement.getOcclusionModeTransformation(QStringLiteral("b")).hasValue());
    EXPECT_EQ(movement.getMovementModes(), QStringList())
        << "modes are set and removed on their own";
}

TEST(OcclusionMovement, KeepsTheTreatedJaw)
{
    OcclusionMovement movement{QString()};
    EXPECT_EQ(movement.getAffectedTreatmentType(), NoJaw);
    movement.setAffectedTreatmentType(LowerJaw);
    EXPECT_EQ(movement.getAffectedTreatmentType(), LowerJaw);
}

TEST(CompositeMovement, OwnsWhatIsAdded)
{
    bool gone = false;
    {
        CompositeMovement composite{QString()};
        auto* movement = new MortalMovement(gone);
        composite.addMovement(movement);
        EXPECT_EQ(composite.getMovements(), QList<Movement*>({movement}));
        EXPECT_FALSE(gone);
    }
    EXPECT_TRUE(gone);
}

TEST(CompositeMovement, SharesAMovementThatIsSharedAlready)
{
    const auto movement = std::make_shared<OcclusionMovement>(QStringLiteral("shared"));
    {
        CompositeMovement composite{QString()};
        composite.addMovement(movement.get());
        EXPECT_EQ(movement.use_count(), 2);
    }
    EXPECT_EQ(movement->getMovementType(), QStringLiteral("shared"));
}

TEST(CompositeMovement, IgnoresNullItselfAndWhatItHolds)
{
    CompositeMovement composite{QString()};
    auto* first = new OcclusionMovement(QString());
    auto* second = new FixedMovement(QString());
    composite.addMovement(nullptr);
    composite.addMovement(&composite);
    composite.addMovement(first);
    composite.addMovement(second);
    composite.addMovement(first);
    EXPECT_EQ(composite.getMovements(), QList<Movement*>({first, second}));
}

TEST(CompositeMovement, KeepsItsModesForItself)
{
    CompositeMovement composite{QString()};
    auto* child = new OcclusionMovement(QString());
    composite.addMovement(child);
    composite.setMovementMode(QStringLiteral("a"));
    EXPECT_EQ(child->getMovementModes(), QStringList());
}

TEST(FixedMovement, KeepsOneTransformation)
{
    FixedMovement movement{QString()};
    EXPECT_TRUE(movement.getTransformation().isIdentity());
    movement.setTransformation(shift(4.0F));
    EXPECT_EQ(movement.getTransformation(), shift(4.0F));
}

TEST(MaxillofacialSurgery, FindsTheFirstMovementOfAType)
{
    MaxillofacialSurgery surgery;
    EXPECT_EQ(surgery.getMovementByTypeIdentifier(QStringLiteral("b")), nullptr);
    auto* a = new OcclusionMovement(QStringLiteral("a"));
    auto* b = new OcclusionMovement(QStringLiteral("b"));
    auto* anotherB = new CompositeMovement(QStringLiteral("b"));
    for (Movement* movement : QList<Movement*>{a, b, anotherB, nullptr, a})
        surgery.addMovement(movement);
    EXPECT_EQ(surgery.getMovementByTypeIdentifier(QStringLiteral("b")), b);
    EXPECT_EQ(surgery.getMovementByTypeIdentifier(QStringLiteral("c")), nullptr);
    EXPECT_EQ(surgery.getMovements(), QList<Movement*>({a, b, anotherB}));
}

} // namespace
