// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

// PropertyObject, DataObject and EditLocker: sharing, undo flag, editing brackets and
// suppressed notification.

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace {

static_assert(!std::is_copy_constructible_v<DataObject> && !std::is_copy_assignable_v<DataObject>);
static_assert(std::has_virtual_destructor_v<DataObject>);
static_assert(!std::is_copy_constructible_v<EditLocker> && !std::is_copy_assignable_v<EditLocker>);
static_assert(!std::is_convertible_v<DataObject*, EditLocker>,
              "a pointer does not open a bracket by accident");

class Counter : public patterns::Observer<DataObject, std::nullptr_t>
{
public:
    int changes = 0;
    int destructions = 0;
    DataObject* lastSubject = nullptr;
    bool wasEditing = false;

private:
    void changedEvent(DataObject* subject) override
    {
        ++changes;
        lastSubject = subject;
        wasEditing = subject->isEditing();
    }
    void destroyed(DataObject*) override { ++destructions; }
};

class DataObjectTest : public testing::Test
{
protected:
    DataObjectTest() { object.attach(&counter); }

    Counter counter;
    DataObject object;
};

// ---- sharing and undo

TEST(DataObject, GivesItsOwningPointer)
{
    const auto owner = std::make_shared<DataObject>();
    const std::shared_ptr<DataObject> fromItself = owner->shared_from_this();
    EXPECT_EQ(fromItself, owner);
    EXPECT_EQ(owner.use_count(), 2);
}

TEST(PropertyObject, CreatesUndoUnlessThatIsSwitchedOff)
{
    PropertyObject object;
    EXPECT_TRUE(object.isCreateUndoEnabledForObject());
    object.enableCreateUndoForObjectAndProperties(false);
    EXPECT_FALSE(object.isCreateUndoEnabledForObject());
    object.enableCreateUndoForObjectAndProperties(false);
    EXPECT_FALSE(object.isCreateUndoEnabledForObject());
    object.enableCreateUndoForObjectAndProperties(true);
    EXPECT_TRUE(object.isCreateUndoEnabledForObject()) << "a switch, not a count";
}

// ---- notification and editing brackets

TEST_F(DataObjectTest, ChangeOutsideABracketNotifiesAtOnce)
{
    object.changed();
    EXPECT_EQ(counter.changes, 1);
    EXPECT_EQ(counter.lastSubject, &object);
    object.changed();
    EXPECT_EQ(counter.changes, 2);
}

TEST_F(DataObjectTest, BracketNotifiesOfItsChangesOnceWhenItCloses)
{
    object.startEditing();
    object.changed();
    object.changed();
    object.changed();
    EXPECT_EQ(counter.changes, 0);
    object.stopEditing();
    EXPECT_EQ(counter.changes, 1);
    EXPECT_EQ(counter.lastSubject, &object);
}

TEST_F(DataObjectTest, BracketWithoutAChangeDoesNotNotify)
{
    object.startEditing();
    object.stopEditing();
    EXPECT_EQ(counter.changes, 0);
}

TEST_F(DataObjectTest, BracketsNestAndTheOutermostNotifies)
{
    object.startEditing();
    object.startEditing();
    object.changed();
    object.stopEditing();
    EXPECT_EQ(counter.changes, 0);
    EXPECT_TRUE(object.isEditing());
    object.changed();
    object.stopEditing();
    EXPECT_EQ(counter.changes, 1);
    EXPECT_FALSE(object.isEditing());
}

TEST_F(DataObjectTest, AnnouncedChangeIsNotAnnouncedAgainByTheNextBracket)
{
    object.startEditing();
    object.changed();
    object.stopEditing();
    object.startEditing();
    object.stopEditing();
    EXPECT_EQ(counter.changes, 1);
}

TEST_F(DataObjectTest, IsEditingInsideABracketOnly)
{
    EXPECT_FALSE(object.isEditing());
    object.startEditing();
    EXPECT_TRUE(object.isEditing());
    object.stopEditing();
    EXPECT_FALSE(object.isEditing());
}

TEST_F(DataObjectTest, BracketIsClosedWhenItNotifies)
{
    counter.wasEditing = true;
    object.startEditing();
    object.changed();
    object.stopEditing();
    EXPECT_FALSE(counter.wasEditing);
}

TEST_F(DataObjectTest, StopWithoutStartDoesNothing)
{
    object.stopEditing();
    object.stopEditing();
    EXPECT_EQ(counter.changes, 0);
    EXPECT_FALSE(object.isEditing());
    object.changed();
    EXPECT_EQ(counter.changes, 1) << "notified at once: no bracket is open";
    object.startEditing();
    EXPECT_TRUE(object.isEditing()) << "nor is the next one closed already";
}

TEST_F(DataObjectTest, ObserverMayEditInItsReaction)
{
    class Editor : public patterns::Observer<DataObject, std::nullptr_t>
    {
        void changedEvent(DataObject* subject) override
        {
            if (edited)
                return;
            edited = true;
            const EditLocker lock(subject);
            subject->changed();
        }
        bool edited = false;
    };
    Editor editor;
    object.attach(&editor);
    object.startEditing();
    object.changed();
    object.stopEditing();
    EXPECT_EQ(counter.changes, 2);
    EXPECT_FALSE(object.isEditing());
}

TEST_F(DataObjectTest, NotifyNotifiesEvenWithoutAChange)
{
    object.notify();
    EXPECT_EQ(counter.changes, 1);
}

// ---- suppressed notification

TEST_F(DataObjectTest, MayNotifyUnlessThatIsSwitchedOff)
{
    EXPECT_TRUE(object.canNotifyObservers());
    object.setNotifyObservers(false);
    EXPECT_FALSE(object.canNotifyObservers());
    object.setNotifyObservers(true);
    EXPECT_TRUE(object.canNotifyObservers());
}

TEST_F(DataObjectTest, SuppressedChangeIsNeverAnnounced)
{
    object.setNotifyObservers(false);
    object.changed();
    object.setNotifyObservers(true);
    EXPECT_EQ(counter.changes, 0);
    object.changed();
    EXPECT_EQ(counter.changes, 1);
}

TEST_F(DataObjectTest, ChangeSuppressedInABracketDoesNotNotifyWhenItCloses)
{
    object.startEditing();
    object.setNotifyObservers(false);
    object.changed();
    object.setNotifyObservers(true);
    object.stopEditing();
    EXPECT_EQ(counter.changes, 0);
}

TEST_F(DataObjectTest, BracketThatClosesWhileSuppressedNeverNotifies)
{
    object.startEditing();
    object.changed();
    object.setNotifyObservers(false);
    object.stopEditing();
    object.setNotifyObservers(true);
    object.startEditing();
    object.stopEditing();
    EXPECT_EQ(counter.changes, 0);
}

TEST_F(DataObjectTest, BracketWithASuppressedAndAnotherChangeNotifies)
{
    object.startEditing();
    object.changed();
    object.setNotifyObservers(false);
    object.changed();
    object.setNotifyObservers(true);
    object.stopEditing();
    EXPECT_EQ(counter.changes, 1);
}

TEST_F(DataObjectTest, SuppressionHoldsForNotifyToo)
{
    object.setNotifyObservers(false);
    object.notify();
    EXPECT_EQ(counter.changes, 0);
}

TEST(DataObject, DestructionNotifiesAlsoWhileSuppressedAndInABracket)
{
    Counter counter;
    {
        DataObject object;
        object.attach(&counter);
        object.setNotifyObservers(false);
        object.startEditing();
        object.changed();
    }
    EXPECT_EQ(counter.destructions, 1);
    EXPECT_EQ(counter.changes, 0);
    EXPECT_EQ(counter.getNumObservables(), 0);
}

// ---- EditLocker

TEST_F(DataObjectTest, EditLockerIsTheBracketOfItsScope)
{
    {
        const EditLocker lock(&object);
        EXPECT_TRUE(object.isEditing());
        object.changed();
        object.changed();
        EXPECT_EQ(counter.changes, 0);
    }
    EXPECT_FALSE(object.isEditing());
    EXPECT_EQ(counter.changes, 1);
}

TEST_F(DataObjectTest, EditLockersNest)
{
    {
        const EditLocker outer(&object);
        {
            const EditLocker inner(&object);
            object.changed();
        }
        EXPECT_EQ(counter.changes, 0);
    }
    EXPECT_EQ(counter.changes, 1);
}

TEST_F(DataObjectTest, EditLockerClosesWhenAnExceptionPasses)
{
    try {
        const EditLocker lock(&object);
        object.changed();
        throw std::runtime_error("the edit failed half way");
    } catch (const std::runtime_error&) {
        EXPECT_FALSE(object.isEditing());
        EXPECT_EQ(counter.changes, 1) << "the change is announced";
    }
    EXPECT_EQ(counter.changes, 1);
}

TEST(EditLocker, AllowsNull)
{
    EXPECT_NO_FATAL_FAILURE(const EditLocker lock(nullptr));
}

TEST(EditLocker, CallsTheObjectsOwnBrackets)
{
    class Recorder : public DataObject
    {
    public:
        void startEditing() override { calls += "start "; }
        void stopEditing() override { calls += "stop "; }
        std::string calls;
    };
    Recorder recorder;
    {
        const EditLocker lock(&recorder);
        recorder.calls += "edit ";
    }
    EXPECT_EQ(recorder.calls, "start edit stop ");
}

} // namespace
