// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/SetMovementTransformationUndoCommand.h>

// One movement's transformation for a mode: done, undone, done again; the order of calls, the lock,
// the children.

#include <tests/support/MovementBuilders.h>
#include <tests/support/ResliceBuilders.h>
#include <tests/support/ScanBuilders.h>
#include <tests/support/UndoLaws.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using test::bitsOf;
using test::RecordingOcclusionMovement;
using test::translation;

static_assert(std::has_virtual_destructor_v<SetMovementTransformationUndoCommand>);
static_assert(std::is_base_of_v<QUndoCommand, SetMovementTransformationUndoCommand>);

const QString kMode = QStringLiteral("mode");
const QString kOther = QStringLiteral("other");

class SetMovementTransformation : public testing::Test
{
protected:
    QStringList calls;
    RecordingOcclusionMovement movement{QStringLiteral("type"), calls};
};

TEST_F(SetMovementTransformation, IsReadButNotChangedWhenMade)
{
    const SetMovementTransformationUndoCommand command(movement, translation(1.0F, 0.0F, 0.0F),
                                                       kMode, nullptr);
    EXPECT_EQ(movement.reads, 1);
    EXPECT_EQ(calls, QStringList());
}

TEST_F(SetMovementTransformation, FirstTransformationOfAModeSetsTheModeAndUndoDropsBoth)
{
    SetMovementTransformationUndoCommand command(movement, translation(1.0F, 0.0F, 0.0F), kMode,
                                                 nullptr);
    command.redo();
    EXPECT_EQ(calls, QStringList({"lock", "set mode mode", "add mode", "unlock"}));
    EXPECT_EQ(movement.getOcclusionModeTransformation(kMode).value(),
              translation(1.0F, 0.0F, 0.0F));
    EXPECT_EQ(movement.getMovementMode(), kMode);

    calls.clear();
    command.undo();
    EXPECT_EQ(calls, QStringList({"lock", "remove mode", "drop mode mode", "unlock"}));
    EXPECT_FALSE(movement.getOcclusionModeTransformation(kMode));
    EXPECT_EQ(movement.getMovementModes(), QStringList());
}

TEST_F(SetMovementTransformation, EarlierTransformationComesBackExactlyAndTheModeIsUnchanged)
{
    test::RandomGeometry random(3);
    const QMatrix4x4 earlier = random.rigidPlacement();
    movement.addOcclusionModeTransformation(kMode, earlier);
    movement.setMovementMode(kMode);
    movement.setMovementMode(kOther);
    calls.clear();

    SetMovementTransformationUndoCommand command(movement, random.rigidPlacement(), kMode, nullptr);
    command.redo();
    EXPECT_EQ(calls, QStringList({"lock", "add mode", "unlock"}));
    EXPECT_EQ(movement.getMovementMode(), kOther);

    calls.clear();
    command.undo();
    EXPECT_EQ(calls, QStringList({"lock", "add mode", "unlock"}));
    EXPECT_EQ(bitsOf(movement.getOcclusionModeTransformation(kMode).value()), bitsOf(earlier));
    EXPECT_EQ(movement.getMovementModes(), QStringList({kMode, kOther}));
}

TEST_F(SetMovementTransformation, IdentityThatIsStoredIsAnEarlierTransformation)
{
    movement.addOcclusionModeTransformation(kMode, {});
    SetMovementTransformationUndoCommand command(movement, translation(1.0F, 0.0F, 0.0F), kMode,
                                                 nullptr);
    command.redo();
    command.undo();
    EXPECT_TRUE(movement.getOcclusionModeTransformation(kMode).hasValue());
}

TEST_F(SetMovementTransformation, WhatWasThereBeforeIsReadWhenTheCommandIsMade)
{
    SetMovementTransformationUndoCommand command(movement, translation(1.0F, 0.0F, 0.0F), kMode,
                                                 nullptr);
    movement.addOcclusionModeTransformation(kMode, translation(9.0F, 0.0F, 0.0F)); // too late
    command.redo();
    command.undo();
    EXPECT_FALSE(movement.getOcclusionModeTransformation(kMode));
}

// Writes into the list when it runs, and whether the movement is marked then.
class Child : public QUndoCommand
{
public:
    Child(QStringList& log, const Movement& observed, QUndoCommand* parent)
        : QUndoCommand(parent), calls(log), movement(observed)
    {}
    void redo() override { write(QStringLiteral("child redo")); }
    void undo() override { write(QStringLiteral("child undo")); }

private:
    void write(const QString& call)
    {
        calls << (movement.isChangedByUndoRedo() ? call + QStringLiteral(" marked") : call);
    }

    QStringList& calls;
    const Movement& movement;
};

TEST_F(SetMovementTransformation, ChildrenRunFirstAndTheLockIsTakenAfterThem)
{
    SetMovementTransformationUndoCommand command(movement, translation(1.0F, 0.0F, 0.0F), kMode,
                                                 nullptr);
    new Child(calls, movement, &command); // its parent deletes it
    command.redo();
    EXPECT_EQ(calls, QStringList({"child redo", "lock", "set mode mode", "add mode", "unlock"}));
    calls.clear();
    command.undo();
    EXPECT_EQ(calls,
              QStringList({"child undo", "lock", "remove mode", "drop mode mode", "unlock"}));
}

// Checks that the movement is marked whenever it notifies a change.
class MarkWatcher : public patterns::Observer<DataObject, std::nullptr_t>
{
public:
    int changes = 0;
    bool alwaysMarked = true;

private:
    void changedEvent(DataObject* subject) override
    {
        ++changes;
        alwaysMarked = alwaysMarked && static_cast<Movement*>(subject)->isChangedByUndoRedo();
    }
};

TEST_F(SetMovementTransformation, EveryChangeIsMarkedAsOneOfUndoOrRedo)
{
    MarkWatcher watcher;
    SetMovementTransformationUndoCommand command(movement, translation(1.0F, 0.0F, 0.0F), kMode,
                                                 nullptr);
    movement.attach(&watcher);
    command.redo();
    command.undo();
    EXPECT_EQ(watcher.changes, 4);
    EXPECT_TRUE(watcher.alwaysMarked);
    EXPECT_FALSE(movement.isChangedByUndoRedo());
}

test::UndoLaws lawsOn(OcclusionMovement& movement)
{
    static const QStringList modes = {"a", "b", "c"};
    return {[&movement](test::RandomGeometry& random) {
                const QString& mode = modes[int(random.number(0.0F, 2.99F))];
                return new SetMovementTransformationUndoCommand(movement, random.rigidPlacement(),
                                                                mode, nullptr);
            },
            [&movement] { return test::stateOf(movement, modes); }};
}

TEST_F(SetMovementTransformation, Law1UndoRestoresTheMovementBitForBit)
{
    lawsOn(movement).expectUndoRestores(true);
}

TEST_F(SetMovementTransformation, Law2RedoAfterUndoRepeatsTheFirstRedo)
{
    lawsOn(movement).expectRedoRepeats();
}

TEST_F(SetMovementTransformation, ModeThatWasSetWithoutATransformationIsDroppedByUndoByDesign)
{
    movement.setMovementMode(kMode);
    SetMovementTransformationUndoCommand command(movement, translation(1.0F, 0.0F, 0.0F), kMode,
                                                 nullptr);
    command.redo();
    command.undo();
    EXPECT_EQ(movement.getMovementModes(), QStringList());
}

} // namespace
