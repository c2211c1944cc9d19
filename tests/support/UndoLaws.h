// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <tests/support/ResliceBuilders.h>

#include <QStringList>
#include <QUndoStack>

#include <gtest/gtest.h>

#include <functional>

namespace test {

/// Checks the laws of every undo command with random commands on a stack. The state is all that a
/// command may change, as lines that are equal if no bit differs.
class UndoLaws
{
public:
    using MakeCommand = std::function<QUndoCommand*(RandomGeometry&)>;
    using ReadState = std::function<QStringList()>;

    UndoLaws(MakeCommand makeCommand, ReadState readState)
        : make(std::move(makeCommand)), state(std::move(readState))
    {}

    /// Checks that undo restores what was before redo, command by command and, where the commands
    /// change nothing when they are made, back through the whole stack.
    void expectUndoRestores(bool commandsChangeNothingWhenMade)
    {
        QList<QStringList> states;
        for (int round = 0; round < ROUNDS; ++round) {
            SCOPED_TRACE(round);
            QUndoCommand* command = make(random);
            const QStringList before = state();
            stack.push(command);
            stack.undo();
            ASSERT_EQ(state(), before);
            stack.redo();
            states << before;
        }
        while (stack.canUndo()) {
            stack.undo();
            if (commandsChangeNothingWhenMade) {
                ASSERT_EQ(state(), states[stack.index()]) << "command " << stack.index();
            }
        }
    }

    /// Checks that redo after undo repeats the first redo, command by command and through the whole
    /// stack. Some commands start from an earlier state than the one before left.
    void expectRedoRepeats()
    {
        for (int round = 0; round < ROUNDS; ++round) {
            SCOPED_TRACE(round);
            stack.push(make(random));
            const QStringList after = state();
            stack.undo();
            stack.redo();
            ASSERT_EQ(state(), after);
            if (random.number(0.0F, 1.0F) < 0.3F)
                stack.undo();
        }
        const int index = stack.index();
        const QStringList last = state();
        ASSERT_GT(index, 0);
        stack.setIndex(0);
        EXPECT_NE(state(), last) << "the commands change something";
        stack.setIndex(index);
        EXPECT_EQ(state(), last);
    }

private:
    static constexpr int ROUNDS = 300;

    MakeCommand make;
    ReadState state;
    RandomGeometry random{13};
    QUndoStack stack;
};

} // namespace test
