// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/patterns/Observable.h>

// Both sides of the observer pattern: links, notification, re-entrancy, destruction, copies, layout
// and slot order.

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

struct Change
{
    int number = 0;
};

class PlainSubject : public patterns::Observable<PlainSubject, std::nullptr_t>
{
public:
    bool canNotifyObservers() const override { return mayNotify; }

    bool mayNotify = true;
};

class EventSubject : public patterns::Observable<EventSubject, Change>
{
public:
    bool canNotifyObservers() const override { return mayNotify; }

    bool mayNotify = true;
};

// As a number, which may be compared after the subject is gone.
std::uintptr_t addressOf(const void* subject)
{
    return reinterpret_cast<std::uintptr_t>(subject);
}

// Records what it is told and then reacts as the test wants. As in real listeners, the reactions
// are private.
class PlainRecorder : public patterns::Observer<PlainSubject, std::nullptr_t>
{
public:
    std::vector<PlainSubject*> changes;
    std::vector<std::uintptr_t> destructions;
    std::function<void()> onChange;
    std::function<void()> onDestruction;

private:
    void changedEvent(PlainSubject* subject) override
    {
        changes.push_back(subject);
        if (onChange)
            onChange();
    }

    void destroyed(PlainSubject* subject) override
    {
        destructions.push_back(addressOf(subject));
        if (onDestruction)
            onDestruction();
    }
};

class EventRecorder : public patterns::Observer<EventSubject, Change>
{
public:
    std::vector<std::pair<EventSubject*, Change*>> changes;
    std::vector<std::uintptr_t> destructions;

private:
    void changedEvent(EventSubject* subject, Change* event) override
    {
        changes.emplace_back(subject, event);
    }
    void destroyed(EventSubject* subject) override { destructions.push_back(addressOf(subject)); }
};

using Subjects = std::vector<PlainSubject*>;
using Addresses = std::vector<std::uintptr_t>;

// ---- what the types promise at compile time

using PlainObservable = patterns::Observable<PlainSubject, std::nullptr_t>;
using PlainObservableBase = patterns::ObservableBase<PlainSubject, std::nullptr_t>;
using PlainObserver = patterns::Observer<PlainSubject, std::nullptr_t>;
using PlainObserverBase = patterns::ObserverBase<PlainSubject, std::nullptr_t>;
using EventObservable = patterns::Observable<EventSubject, Change>;
using EventObservableBase = patterns::ObservableBase<EventSubject, Change>;
using EventObserver = patterns::Observer<EventSubject, Change>;
using EventObserverBase = patterns::ObserverBase<EventSubject, Change>;

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

TEST(Observable, HoldsTheTablePointerAndTheObserverSetOnly)
{
    EXPECT_EQ(kPointersIn<PlainObservableBase>, 2U);
    EXPECT_EQ(kPointersIn<PlainObservable>, 2U);
    EXPECT_EQ(kPointersIn<EventObservableBase>, 2U);
    EXPECT_EQ(kPointersIn<EventObservable>, 2U);
}

TEST(Observer, HoldsTheTablePointerAndTheObservableSetOnly)
{
    EXPECT_EQ(kPointersIn<PlainObserverBase>, 1U);
    EXPECT_EQ(kPointersIn<PlainObserver>, 2U);
    EXPECT_EQ(kPointersIn<EventObserverBase>, 1U);
    EXPECT_EQ(kPointersIn<EventObserver>, 2U);
}

#if defined(__GNUC__)

// In the Itanium C++ ABI a pointer to a virtual member function holds 1 + the byte offset of its
// slot; on ARM the 1 stands in the second word instead. The destructor takes slots 0 (complete) and
// 1 (deleting).
template <typename MemberFunction>
std::size_t slotOf(MemberFunction function)
{
    std::ptrdiff_t words[2] = {};
    static_assert(sizeof words == sizeof function);
    std::memcpy(words, &function, sizeof words);
#if defined(__arm__) || defined(__aarch64__)
    EXPECT_EQ(words[1] & 1, 1) << "not a virtual function";
    return static_cast<std::size_t>(words[0]) / sizeof(void*);
#else
    EXPECT_EQ(words[0] & 1, 1) << "not a virtual function";
    return static_cast<std::size_t>(words[0] - 1) / sizeof(void*);
#endif
}

// A virtual function that a derived class adds takes the first slot behind those of its base.
template <typename Base>
class WithOneMore : public Base
{
public:
    virtual void oneMore() {}
};

template <typename Base>
std::size_t slotCountOf()
{
    return slotOf(&WithOneMore<Base>::oneMore);
}

// notify() is overloaded in the form with events.
template <typename Type>
std::size_t slotOfNotify()
{
    return slotOf(static_cast<void (Type::*)()>(&Type::notify));
}

TEST(Observable, NotifyTakesTheSlotBehindTheDestructor)
{
    EXPECT_EQ(slotOfNotify<PlainObservableBase>(), 2U);
    EXPECT_EQ(slotOfNotify<PlainObservable>(), 2U);
    EXPECT_EQ(slotOfNotify<EventObservableBase>(), 2U);
    EXPECT_EQ(slotOfNotify<EventObservable>(), 2U);
}

TEST(Observable, CanNotifyObserversTakesTheLastSlot)
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

TEST(Observer, ChangedEventTakesTheSlotBehindTheDestructor)
{
    EXPECT_EQ(slotOf(&PlainObserverBase::changedEvent), 2U);
    EXPECT_EQ(slotOf(&PlainObserver::changedEvent), 2U);
    EXPECT_EQ(slotOf(&EventObserverBase::changedEvent), 2U);
    EXPECT_EQ(slotOf(&EventObserver::changedEvent), 2U);
}

TEST(Observer, DestroyedTakesTheSlotBehindChangedEvent)
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

// ---- links

TEST(Observable, StartsWithoutObservers)
{
    const PlainSubject subject;
    EXPECT_EQ(subject.getNumObservers(), 0);
    EXPECT_TRUE(subject.getObservers().isEmpty());
}

TEST(Observer, StartsWithoutSubjects)
{
    const PlainRecorder recorder;
    EXPECT_EQ(recorder.getNumObservables(), 0);
}

TEST(Observable, MayNotifyUnlessASubjectObjects)
{
    const PlainObservable plain;
    const EventObservable withEvents;
    EXPECT_TRUE(plain.canNotifyObservers());
    EXPECT_TRUE(withEvents.canNotifyObservers());
}

TEST(Observable, AttachLinksBothSides)
{
    PlainSubject subject;
    PlainRecorder recorder;
    subject.attach(&recorder);
    EXPECT_EQ(subject.getObservers(), QSet<PlainObserver*>{&recorder});
    EXPECT_EQ(subject.getNumObservers(), 1);
    EXPECT_EQ(recorder.getNumObservables(), 1);
}

TEST(Observable, AttachingTwiceMakesOneLink)
{
    PlainSubject subject;
    PlainRecorder recorder;
    subject.attach(&recorder);
    subject.attach(&recorder);
    EXPECT_EQ(subject.getNumObservers(), 1);
    EXPECT_EQ(recorder.getNumObservables(), 1);
    subject.notify();
    EXPECT_EQ(recorder.changes.size(), 1U);
}

TEST(Observable, OneDetachUndoesTwoAttaches)
{
    PlainSubject subject;
    PlainRecorder recorder;
    subject.attach(&recorder);
    subject.attach(&recorder);
    subject.detach(&recorder);
    EXPECT_EQ(subject.getNumObservers(), 0);
    EXPECT_EQ(recorder.getNumObservables(), 0);
}

TEST(Observable, DetachUnlinksBothSides)
{
    PlainSubject subject;
    PlainRecorder leaving;
    PlainRecorder staying;
    subject.attach(&leaving);
    subject.attach(&staying);
    subject.detach(&leaving);
    EXPECT_EQ(subject.getObservers(), QSet<PlainObserver*>{&staying});
    EXPECT_EQ(leaving.getNumObservables(), 0);
    EXPECT_EQ(staying.getNumObservables(), 1);
}

TEST(Observable, DetachingAStrangerChangesNothing)
{
    PlainSubject subject;
    PlainSubject other;
    PlainRecorder attached;
    PlainRecorder stranger;
    subject.attach(&attached);
    other.attach(&stranger);
    subject.detach(&stranger);
    EXPECT_EQ(subject.getObservers(), QSet<PlainObserver*>{&attached});
    EXPECT_EQ(other.getObservers(), QSet<PlainObserver*>{&stranger});
    EXPECT_EQ(stranger.getNumObservables(), 1);
}

TEST(Observable, IgnoresNull)
{
    PlainSubject subject;
    PlainRecorder recorder;
    subject.attach(&recorder);
    subject.attach(nullptr);
    EXPECT_EQ(subject.getNumObservers(), 1);
    subject.detach(nullptr);
    EXPECT_EQ(subject.getNumObservers(), 1);
    subject.notify();
    EXPECT_EQ(recorder.changes, Subjects{&subject});
}

TEST(Observer, DetachAllLeavesEverySubject)
{
    PlainSubject first;
    PlainSubject second;
    PlainRecorder leaving;
    PlainRecorder staying;
    for (PlainSubject* subject : {&first, &second}) {
        subject->attach(&leaving);
        subject->attach(&staying);
    }
    EXPECT_EQ(leaving.getNumObservables(), 2);
    leaving.detachAll();
    EXPECT_EQ(leaving.getNumObservables(), 0);
    EXPECT_EQ(first.getObservers(), QSet<PlainObserver*>{&staying});
    EXPECT_EQ(second.getObservers(), QSet<PlainObserver*>{&staying});
    EXPECT_EQ(staying.getNumObservables(), 2);
}

TEST(Observer, CanBeAttachedAgainAfterDetachAll)
{
    PlainSubject subject;
    PlainRecorder recorder;
    subject.attach(&recorder);
    recorder.detachAll();
    recorder.detachAll();
    subject.attach(&recorder);
    subject.notify();
    EXPECT_EQ(recorder.changes, Subjects{&subject});
}

TEST(Observer, DestructionLeavesEverySubject)
{
    PlainSubject first;
    PlainSubject second;
    PlainRecorder staying;
    first.attach(&staying);
    second.attach(&staying);
    {
        PlainRecorder leaving;
        first.attach(&leaving);
        second.attach(&leaving);
        EXPECT_EQ(first.getNumObservers(), 2);
        EXPECT_EQ(second.getNumObservers(), 2);
    }
    EXPECT_EQ(first.getObservers(), QSet<PlainObserver*>{&staying});
    EXPECT_EQ(second.getObservers(), QSet<PlainObserver*>{&staying});
    first.notify(); // would reach freed memory if the link had stayed
    EXPECT_EQ(staying.changes, Subjects{&first});
}

// ---- notification

TEST(Observable, NotifyTellsEveryObserverOnceWhoChanged)
{
    PlainSubject subject;
    std::array<PlainRecorder, 5> recorders;
    for (PlainRecorder& recorder : recorders)
        subject.attach(&recorder);
    subject.notify();
    for (const PlainRecorder& recorder : recorders)
        EXPECT_EQ(recorder.changes, Subjects{&subject});
}

TEST(Observable, NotifyTellsObserversOfThisSubjectOnly)
{
    PlainSubject subject;
    PlainSubject other;
    PlainRecorder ofSubject;
    PlainRecorder ofBoth;
    PlainRecorder ofOther;
    subject.attach(&ofSubject);
    subject.attach(&ofBoth);
    other.attach(&ofBoth);
    other.attach(&ofOther);
    subject.notify();
    EXPECT_EQ(ofSubject.changes, Subjects{&subject});
    EXPECT_EQ(ofBoth.changes, Subjects{&subject});
    EXPECT_EQ(ofOther.changes, Subjects{});
}

TEST(Observable, NotifyPassesTheEventOnByPointer)
{
    EventSubject subject;
    EventRecorder first;
    EventRecorder second;
    subject.attach(&first);
    subject.attach(&second);
    Change change{7};
    subject.notify(&change);
    const std::vector<std::pair<EventSubject*, Change*>> expected{{&subject, &change}};
    EXPECT_EQ(first.changes, expected);
    EXPECT_EQ(second.changes, expected);
}

TEST(Observable, NotifyWithoutAnEventPassesNull)
{
    EventSubject subject;
    EventRecorder recorder;
    subject.attach(&recorder);
    subject.notify();
    const std::vector<std::pair<EventSubject*, Change*>> expected{{&subject, nullptr}};
    EXPECT_EQ(recorder.changes, expected);
}

TEST(Observable, VetoKeepsNotifyFromTellingAnyone)
{
    PlainSubject subject;
    PlainRecorder recorder;
    subject.attach(&recorder);
    subject.mayNotify = false;
    subject.notify();
    EXPECT_EQ(recorder.changes, Subjects{});
    subject.mayNotify = true;
    EXPECT_EQ(recorder.changes, Subjects{}) << "nothing is made up for later";
    subject.notify();
    EXPECT_EQ(recorder.changes, Subjects{&subject});
}

TEST(Observable, VetoHoldsForNotifyWithAnEventToo)
{
    EventSubject subject;
    EventRecorder recorder;
    subject.attach(&recorder);
    subject.mayNotify = false;
    Change change;
    subject.notify(&change);
    EXPECT_TRUE(recorder.changes.empty());
}

TEST(Observable, VetoRaisedDuringANotificationIsForTheNextOne)
{
    PlainSubject subject;
    PlainRecorder first;
    PlainRecorder second;
    first.onChange = second.onChange = [&subject] { subject.mayNotify = false; };
    subject.attach(&first);
    subject.attach(&second);
    subject.notify();
    EXPECT_EQ(first.changes.size(), 1U);
    EXPECT_EQ(second.changes.size(), 1U);
}

TEST(Observable, SubjectReachesItsObserversThroughASecondBaseClass)
{
    struct Padding
    {
        virtual ~Padding() = default;
        int number = 0;
    };
    // Observable is not the first base, so its address differs from the subject's.
    class Late : public Padding, public patterns::Observable<Late, std::nullptr_t>
    {};
    class LateRecorder : public patterns::Observer<Late, std::nullptr_t>
    {
    public:
        std::vector<Late*> told;

    private:
        void changedEvent(Late* subject) override { told.push_back(subject); }
        void destroyed(Late* subject) override { told.push_back(subject); }
    };
    LateRecorder recorder;
    std::optional<Late> subject(std::in_place);
    Late* const address = &*subject;
    subject->attach(&recorder);
    subject->notify();
    subject.reset();
    EXPECT_EQ(recorder.told, (std::vector<Late*>{address, address}));
}

// ---- changes of the links while a notification runs; the order of the calls is open, so the tests
// are symmetric

TEST(Observable, ObserverMayDetachItselfInItsReaction)
{
    PlainSubject subject;
    PlainRecorder leaving;
    PlainRecorder staying;
    leaving.onChange = [&] { subject.detach(&leaving); };
    subject.attach(&leaving);
    subject.attach(&staying);
    subject.notify();
    subject.notify();
    EXPECT_EQ(leaving.changes.size(), 1U);
    EXPECT_EQ(leaving.getNumObservables(), 0);
    EXPECT_EQ(staying.changes.size(), 2U);
}

TEST(Observable, ObserverMayDestroyItselfInItsReaction)
{
    class Leaving : public PlainObserver
    {
    public:
        std::unique_ptr<Leaving>* self = nullptr;
        int* reactions = nullptr;

    private:
        void changedEvent(PlainSubject*) override
        {
            ++*reactions;
            self->reset();
        }
    };
    PlainSubject subject;
    PlainRecorder staying;
    int reactions = 0;
    auto leaving = std::make_unique<Leaving>();
    leaving->self = &leaving;
    leaving->reactions = &reactions;
    subject.attach(leaving.get());
    subject.attach(&staying);
    subject.notify();
    subject.notify();
    EXPECT_EQ(reactions, 1);
    EXPECT_EQ(subject.getObservers(), QSet<PlainObserver*>{&staying});
    EXPECT_EQ(staying.changes.size(), 2U);
}

TEST(Observable, ObserverDetachedBeforeItsTurnIsPassedOver)
{
    PlainSubject subject;
    PlainRecorder first;
    PlainRecorder second;
    first.onChange = [&] { subject.detach(&second); };
    second.onChange = [&] { subject.detach(&first); };
    subject.attach(&first);
    subject.attach(&second);
    subject.notify();
    EXPECT_EQ(first.changes.size() + second.changes.size(), 1U);
    EXPECT_EQ(subject.getNumObservers(), 1);
}

TEST(Observable, ObserverThatLeavesByDetachAllBeforeItsTurnIsPassedOver)
{
    PlainSubject subject;
    PlainRecorder first;
    PlainRecorder second;
    first.onChange = [&] { second.detachAll(); };
    second.onChange = [&] { first.detachAll(); };
    subject.attach(&first);
    subject.attach(&second);
    subject.notify();
    EXPECT_EQ(first.changes.size() + second.changes.size(), 1U);
    EXPECT_EQ(first.getNumObservables() + second.getNumObservables(), 1);
}

TEST(Observable, ObserverDestroyedBeforeItsTurnIsDetachedAndPassedOver)
{
    PlainSubject subject;
    int reactions = 0;
    std::array<std::unique_ptr<PlainRecorder>, 2> recorders{std::make_unique<PlainRecorder>(),
                                                            std::make_unique<PlainRecorder>()};
    for (std::size_t i = 0; i < 2; ++i) {
        recorders[i]->onChange = [&recorders, &reactions, i] {
            ++reactions;
            recorders[1 - i].reset();
        };
        subject.attach(recorders[i].get());
    }
    subject.notify();
    EXPECT_EQ(reactions, 1);
    EXPECT_EQ(subject.getNumObservers(), 1);
    subject.notify();
    EXPECT_EQ(reactions, 2);
}

TEST(Observable, ObserverAttachedDuringANotificationIsToldFromTheNextOneOn)
{
    PlainSubject subject;
    PlainRecorder host;
    std::array<PlainRecorder, 32>
        guests; // many, so that the set must grow while it is being walked
    host.onChange = [&] {
        for (PlainRecorder& guest : guests)
            subject.attach(&guest);
    };
    subject.attach(&host);
    subject.notify();
    EXPECT_EQ(subject.getNumObservers(), 33);
    for (const PlainRecorder& guest : guests)
        EXPECT_EQ(guest.changes.size(), 0U);
    subject.notify();
    for (const PlainRecorder& guest : guests)
        EXPECT_EQ(guest.changes.size(), 1U);
}

TEST(Observable, ObserverDetachedAndAttachedAgainDuringANotificationIsStillToldOnce)
{
    PlainSubject subject;
    PlainRecorder first;
    PlainRecorder second;
    const auto relink = [&](PlainRecorder& other) {
        subject.detach(&other);
        subject.attach(&other);
    };
    first.onChange = [&] { relink(second); };
    second.onChange = [&] { relink(first); };
    subject.attach(&first);
    subject.attach(&second);
    subject.notify();
    EXPECT_EQ(first.changes.size(), 1U);
    EXPECT_EQ(second.changes.size(), 1U);
}

TEST(Observable, NotifyInsideAReactionTellsEveryoneAgain)
{
    PlainSubject subject;
    PlainRecorder nesting;
    PlainRecorder other;
    nesting.onChange = [&] {
        if (nesting.changes.size() == 1)
            subject.notify();
    };
    subject.attach(&nesting);
    subject.attach(&other);
    subject.notify();
    EXPECT_EQ(nesting.changes.size(), 2U);
    EXPECT_EQ(other.changes.size(), 2U);
}

// ---- destruction of the subject

TEST(Observable, DestructionTellsEveryObserverOnceAndUnlinksIt)
{
    PlainSubject surviving;
    std::array<PlainRecorder, 4> recorders;
    std::optional<PlainSubject> subject(std::in_place);
    const std::uintptr_t address = addressOf(&*subject);
    for (PlainRecorder& recorder : recorders) {
        surviving.attach(&recorder);
        subject->attach(&recorder);
        EXPECT_EQ(recorder.getNumObservables(), 2);
    }
    subject.reset();
    for (const PlainRecorder& recorder : recorders) {
        EXPECT_EQ(recorder.destructions, Addresses{address});
        EXPECT_EQ(recorder.changes, Subjects{});
        EXPECT_EQ(recorder.getNumObservables(), 1);
    }
    EXPECT_EQ(surviving.getNumObservers(), 4);
}

TEST(Observable, DestructionOfASubjectWithEventsTellsEveryObserverOnceAndUnlinksIt)
{
    EventRecorder recorder;
    std::optional<EventSubject> subject(std::in_place);
    const std::uintptr_t address = addressOf(&*subject);
    subject->attach(&recorder);
    subject.reset();
    EXPECT_EQ(recorder.destructions, Addresses{address});
    EXPECT_TRUE(recorder.changes.empty());
    EXPECT_EQ(recorder.getNumObservables(), 0);
}

TEST(Observable, DestructionIsToldAlsoByASubjectThatMayNotNotify)
{
    PlainRecorder recorder;
    std::optional<PlainSubject> subject(std::in_place);
    subject->attach(&recorder);
    subject->mayNotify = false;
    subject.reset();
    EXPECT_EQ(recorder.destructions.size(), 1U);
}

TEST(Observable, DestructionDoesNotReachDetachedObservers)
{
    PlainRecorder recorder;
    {
        PlainSubject subject;
        subject.attach(&recorder);
        subject.detach(&recorder);
    }
    EXPECT_EQ(recorder.destructions, Addresses{});
}

TEST(Observable, DestructionTellsFirstAndUnlinksAfterwards)
{
    PlainRecorder recorder;
    std::optional<PlainSubject> subject(std::in_place);
    PlainObservable* const links = &*subject;
    int subjectsWhenTold = -1;
    int observersWhenTold = -1;
    recorder.onDestruction = [&] {
        subjectsWhenTold = recorder.getNumObservables();
        observersWhenTold = links->getNumObservers(); // the Observable part is still there
    };
    subject->attach(&recorder);
    subject.reset();
    EXPECT_EQ(subjectsWhenTold, 1);
    EXPECT_EQ(observersWhenTold, 1);
    EXPECT_EQ(recorder.getNumObservables(), 0);
}

TEST(Observable, DestructionUnlinksEachObserverBeforeItTellsTheNext)
{
    std::array<PlainRecorder, 3> recorders;
    std::optional<PlainSubject> subject(std::in_place);
    PlainObservable* const links = &*subject;
    std::vector<int> observersWhenTold;
    for (PlainRecorder& recorder : recorders) {
        recorder.onDestruction = [&] { observersWhenTold.push_back(links->getNumObservers()); };
        subject->attach(&recorder);
    }
    subject.reset();
    EXPECT_EQ(observersWhenTold, (std::vector<int>{3, 2, 1}));
}

TEST(Observable, DestructionTellsAlsoAnObserverThatAnEarlierOneHasDetached)
{
    // Intended: unlike notify(), destruction does not look whether an observer is still attached.
    // Whichever of the two is told first detaches the other, which is told all the same.
    PlainRecorder first;
    PlainRecorder second;
    std::optional<PlainSubject> subject(std::in_place);
    const std::uintptr_t address = addressOf(&*subject);
    first.onDestruction = [&] { second.detachAll(); };
    second.onDestruction = [&] { first.detachAll(); };
    subject->attach(&first);
    subject->attach(&second);
    subject.reset();
    EXPECT_EQ(first.destructions, Addresses{address});
    EXPECT_EQ(second.destructions, Addresses{address});
    EXPECT_EQ(first.getNumObservables(), 0);
    EXPECT_EQ(second.getNumObservables(), 0);
}

TEST(Observable, ObserverMayDetachItselfWhenItIsToldOfTheDestruction)
{
    PlainRecorder recorder;
    recorder.onDestruction = [&] { recorder.detachAll(); };
    {
        PlainSubject subject;
        subject.attach(&recorder);
    }
    EXPECT_EQ(recorder.destructions.size(), 1U);
    EXPECT_EQ(recorder.getNumObservables(), 0);
}

TEST(Observer, DestroyedDoesNothingByDefault)
{
    class Indifferent : public PlainObserver
    {
        void changedEvent(PlainSubject*) override {}
    };
    Indifferent observer;
    {
        PlainSubject subject;
        subject.attach(&observer);
        EXPECT_EQ(observer.getNumObservables(), 1);
    }
    EXPECT_EQ(observer.getNumObservables(), 0);
}

// ---- copies

TEST(Observable, CopyTakesOverTheObserversButTheyDoNotKnowOfIt)
{
    PlainRecorder recorder;
    PlainSubject original;
    original.attach(&recorder);
    PlainSubject copy(original);
    EXPECT_EQ(copy.getObservers(), QSet<PlainObserver*>{&recorder});
    EXPECT_EQ(recorder.getNumObservables(), 1);
    copy.notify();
    EXPECT_EQ(recorder.changes, Subjects{&copy});
}

TEST(Observable, CopyAndOriginalPartWaysAfterwards)
{
    PlainRecorder shared;
    PlainRecorder added;
    PlainSubject original;
    original.attach(&shared);
    PlainSubject copy(original);
    copy.attach(&added);
    original.detach(&shared);
    EXPECT_EQ(original.getNumObservers(), 0);
    EXPECT_EQ(copy.getObservers(), (QSet<PlainObserver*>{&shared, &added}));
    copy.detach(&shared); // the recorder outlives the copy, but let no dangling pointer stay behind
}

TEST(Observable, ObserverLeavesTheOriginalButNotTheCopy)
{
    PlainRecorder recorder;
    PlainSubject original;
    original.attach(&recorder);
    PlainSubject copy(original);
    recorder.detachAll();
    EXPECT_EQ(original.getNumObservers(), 0);
    EXPECT_EQ(copy.getNumObservers(), 1);
}

TEST(Observable, DestructionOfACopyIsToldAndLeavesTheLinkToTheOriginal)
{
    PlainRecorder recorder;
    PlainSubject original;
    original.attach(&recorder);
    std::optional<PlainSubject> copy(std::in_place, original);
    const std::uintptr_t address = addressOf(&*copy);
    copy.reset();
    EXPECT_EQ(recorder.destructions, Addresses{address});
    EXPECT_EQ(recorder.getNumObservables(), 1);
    EXPECT_EQ(original.getNumObservers(), 1);
}

TEST(Observable, AssignmentTakesOverTheObserversAndFormerOnesKeepTheirLinkBack)
{
    PlainRecorder former;
    PlainRecorder taken;
    PlainSubject source;
    PlainSubject target;
    source.attach(&taken);
    target.attach(&former);
    target = source;
    EXPECT_EQ(target.getObservers(), QSet<PlainObserver*>{&taken});
    EXPECT_EQ(taken.getNumObservables(), 1) << "knows the source only";
    EXPECT_EQ(former.getNumObservables(), 1) << "still holds on to the target";
    target.notify();
    EXPECT_EQ(taken.changes, Subjects{&target});
    EXPECT_EQ(former.changes, Subjects{});
    former.detachAll(); // before the target goes, which no longer knows of it
    EXPECT_EQ(former.getNumObservables(), 0);
}

TEST(Observable, AssignmentToItselfChangesNothing)
{
    PlainRecorder recorder;
    PlainSubject subject;
    subject.attach(&recorder);
    const PlainSubject& same = subject;
    subject = same;
    EXPECT_EQ(subject.getObservers(), QSet<PlainObserver*>{&recorder});
    EXPECT_EQ(recorder.getNumObservables(), 1);
}

TEST(Observer, CopyIsAttachedToNothing)
{
    PlainSubject subject;
    PlainRecorder original;
    subject.attach(&original);
    const PlainRecorder copy(original);
    EXPECT_EQ(copy.getNumObservables(), 0);
    EXPECT_EQ(original.getNumObservables(), 1);
    EXPECT_EQ(subject.getObservers(), QSet<PlainObserver*>{&original});
}

TEST(Observer, AssignmentLeavesTheLinksOfBothAlone)
{
    PlainSubject ofSource;
    PlainSubject ofTarget;
    PlainRecorder source;
    PlainRecorder target;
    ofSource.attach(&source);
    ofTarget.attach(&target);
    target = source;
    EXPECT_EQ(ofSource.getObservers(), QSet<PlainObserver*>{&source});
    EXPECT_EQ(ofTarget.getObservers(), QSet<PlainObserver*>{&target});
    ofTarget.notify();
    EXPECT_EQ(target.changes, Subjects{&ofTarget});
    EXPECT_EQ(source.changes, Subjects{});
}

TEST(Observer, CopyOfAnObserverWithEventsIsAttachedToNothing)
{
    EventSubject subject;
    EventRecorder original;
    subject.attach(&original);
    EventRecorder copy(original);
    EXPECT_EQ(copy.getNumObservables(), 0);
    subject.attach(&copy);
    copy = original;
    EXPECT_EQ(copy.getNumObservables(), 1);
    EXPECT_EQ(subject.getNumObservers(), 2);
}

// ---- both sides stay consistent whatever happens

TEST(Observable, LinksOfBothSidesAgreeThroughAnySequenceOfOperations)
{
    constexpr unsigned kSeed = 20260214;
    constexpr std::size_t kCount = 6;
    SCOPED_TRACE(::testing::Message() << "seed " << kSeed);
    std::mt19937 random(kSeed);
    const auto upTo = [&random](std::size_t count) {
        return static_cast<std::size_t>(random() % count);
    };

    std::array<std::unique_ptr<PlainSubject>, kCount> subjects;
    std::array<std::unique_ptr<PlainRecorder>, kCount> recorders;
    for (std::size_t i = 0; i < kCount; ++i) {
        subjects[i] = std::make_unique<PlainSubject>();
        recorders[i] = std::make_unique<PlainRecorder>();
    }
    std::set<std::pair<std::size_t, std::size_t>> links; // subject, recorder

    for (int step = 0; step < 2000; ++step) {
        const std::size_t s = upTo(kCount);
        const std::size_t r = upTo(kCount);
        const std::size_t operation = upTo(20);
        if (operation < 10) {
            subjects[s]->attach(recorders[r].get());
            links.emplace(s, r);
        } else if (operation < 17) {
            subjects[s]->detach(recorders[r].get());
            links.erase({s, r});
        } else if (operation == 17) {
            recorders[r]->detachAll();
            std::erase_if(links, [r](const auto& link) { return link.second == r; });
        } else if (operation == 18) {
            recorders[r] = std::make_unique<PlainRecorder>();
            std::erase_if(links, [r](const auto& link) { return link.second == r; });
        } else {
            subjects[s] = std::make_unique<PlainSubject>();
            std::erase_if(links, [s](const auto& link) { return link.first == s; });
        }

        for (std::size_t i = 0; i < kCount; ++i) {
            QSet<PlainObserver*> expectedObservers;
            int expectedObservables = 0;
            for (const auto& [subject, recorder] : links) {
                if (subject == i)
                    expectedObservers.insert(recorders[recorder].get());
                if (recorder == i)
                    ++expectedObservables;
            }
            ASSERT_EQ(subjects[i]->getObservers(), expectedObservers) << "step " << step;
            ASSERT_EQ(subjects[i]->getNumObservers(), expectedObservers.size()) << "step " << step;
            ASSERT_EQ(recorders[i]->getNumObservables(), expectedObservables) << "step " << step;
        }
    }
}

} // namespace
