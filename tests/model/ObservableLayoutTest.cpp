// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/patterns/Observable.h>

// Layout and order of the virtual functions of both sides, and what their types promise at compile
// time.

#include <tests/model/ObserverRecorders.h>
#include <tests/support/VirtualSlots.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>
#include <utility>

namespace {

using test::Change;
using test::EventObservable;
using test::EventObservableBase;
using test::EventObserver;
using test::EventObserverBase;
using test::PlainObservable;
using test::PlainObservableBase;
using test::PlainObserver;
using test::PlainObserverBase;
using test::PlainRecorder;

template <typename Type>
constexpr bool kIsPolymorphicBase =
    std::is_polymorphic_v<Type>&& std::has_virtual_destructor_v<Type>;

static_assert(kIsPolymorphicBase<PlainObservableBase> && kIsPolymorphicBase<EventObservableBase>);
static_assert(kIsPolymorphicBase<PlainObservable> && kIsPolymorphicBase<EventObservable>);
static_assert(kIsPolymorphicBase<PlainObserverBase> && kIsPolymorphicBase<EventObserverBase>);
static_assert(kIsPolymorphicBase<PlainObserver> && kIsPolymorphicBase<EventObserver>);

static_assert(std::is_abstract_v<PlainObservableBase> && std::is_abstract_v<EventObservableBase>);
static_assert(std::is_abstract_v<PlainObserverBase> && std::is_abstract_v<EventObserverBase>);
static_assert(std::is_abstract_v<PlainObserver> && std::is_abstract_v<EventObserver>);

static_assert(std::is_default_constructible_v<PlainObservable> &&
              std::is_default_constructible_v<EventObservable>);
static_assert(std::is_copy_constructible_v<PlainObservable> &&
              std::is_copy_assignable_v<PlainObservable>);
static_assert(std::is_copy_constructible_v<PlainRecorder> &&
              std::is_copy_assignable_v<PlainRecorder>);

static_assert(std::is_base_of_v<PlainObservableBase, PlainObservable>);
static_assert(std::is_base_of_v<PlainObserverBase, PlainObserver>);
static_assert(std::is_same_v<const QSet<PlainObserver*>&,
                             decltype(std::declval<const PlainObservable&>().getObservers())>);

template <typename Subject, typename Event>
concept NotifiesWith = requires(Subject& subject, Event* event)
{
    subject.notify(event);
};

static_assert(NotifiesWith<EventObservable, Change>);
static_assert(!NotifiesWith<PlainObservable, std::nullptr_t>);

// The number of data pointers includes the one to the table of virtual functions.
template <typename Type>
constexpr std::size_t kPointersIn = sizeof(Type) / sizeof(void*);

static_assert(sizeof(QSet<void*>) == sizeof(void*));

TEST(Observable, HoldsOnlyTheTablePointerAndTheSetOfObservers)
{
    EXPECT_EQ(kPointersIn<PlainObservableBase>, 2U);
    EXPECT_EQ(kPointersIn<PlainObservable>, 2U);
    EXPECT_EQ(kPointersIn<EventObservableBase>, 2U);
    EXPECT_EQ(kPointersIn<EventObservable>, 2U);
}

TEST(Observer, HoldsOnlyTheTablePointerAndTheSetOfSubjects)
{
    EXPECT_EQ(kPointersIn<PlainObserverBase>, 1U);
    EXPECT_EQ(kPointersIn<PlainObserver>, 2U);
    EXPECT_EQ(kPointersIn<EventObserverBase>, 1U);
    EXPECT_EQ(kPointersIn<EventObserver>, 2U);
}

#if defined(__GNUC__)

using test::slotCountOf;
using test::slotOf;

// notify() is overloaded in the form with events.
template <typename Type>
std::size_t slotOfNotify()
{
    return slotOf(static_cast<void (Type::*)()>(&Type::notify));
}

TEST(Observable, NotifyHasTheSlotBehindTheDestructor)
{
    EXPECT_EQ(slotOfNotify<PlainObservableBase>(), 2U);
    EXPECT_EQ(slotOfNotify<PlainObservable>(), 2U);
    EXPECT_EQ(slotOfNotify<EventObservableBase>(), 2U);
    EXPECT_EQ(slotOfNotify<EventObservable>(), 2U);
}

TEST(Observable, CanNotifyObserversHasTheLastSlot)
{
    EXPECT_EQ(slotOf(&PlainObservableBase::canNotifyObservers), 3U);
    EXPECT_EQ(slotOf(&PlainObservable::canNotifyObservers), 3U);
    EXPECT_EQ(slotOf(&EventObservableBase::canNotifyObservers), 3U);
    EXPECT_EQ(slotOf(&EventObservable::canNotifyObservers), 3U);
}

TEST(Observable, HasFourVirtualSlots)
{
    EXPECT_EQ(slotCountOf<PlainObservableBase>(), 4U);
    EXPECT_EQ(slotCountOf<PlainObservable>(), 4U);
    EXPECT_EQ(slotCountOf<EventObservableBase>(), 4U);
    EXPECT_EQ(slotCountOf<EventObservable>(), 4U);
}

TEST(Observer, ChangedEventHasTheSlotBehindTheDestructor)
{
    EXPECT_EQ(slotOf(&PlainObserverBase::changedEvent), 2U);
    EXPECT_EQ(slotOf(&PlainObserver::changedEvent), 2U);
    EXPECT_EQ(slotOf(&EventObserverBase::changedEvent), 2U);
    EXPECT_EQ(slotOf(&EventObserver::changedEvent), 2U);
}

TEST(Observer, DestroyedHasTheSlotBehindChangedEvent)
{
    EXPECT_EQ(slotOf(&PlainObserver::destroyed), 3U);
    EXPECT_EQ(slotOf(&EventObserver::destroyed), 3U);
}

TEST(Observer, HasFourVirtualSlotsAndItsInterfaceThree)
{
    EXPECT_EQ(slotCountOf<PlainObserverBase>(), 3U);
    EXPECT_EQ(slotCountOf<EventObserverBase>(), 3U);
    EXPECT_EQ(slotCountOf<PlainObserver>(), 4U);
    EXPECT_EQ(slotCountOf<EventObserver>(), 4U);
}

#endif

} // namespace
