// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/patterns/Observable.h>

// The destruction of a subject.

#include <tests/model/ObserverRecorders.h>

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <vector>

namespace {

using test::Addresses;
using test::addressOf;
using test::EventRecorder;
using test::EventSubject;
using test::PlainObservable;
using test::PlainObserver;
using test::PlainRecorder;
using test::PlainSubject;
using test::Subjects;

TEST(Observable, DestructionNotifiesEveryObserverOnceAndDetachesIt)
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

TEST(Observable, DestructionOfASubjectWithEventsNotifiesEveryObserverOnceAndDetachesIt)
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

TEST(Observable, DestructionOfASubjectThatMayNotNotifyReachesItsObservers)
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

TEST(Observable, DestructionNotifiesAnObserverBeforeItDetachesIt)
{
    PlainRecorder recorder;
    std::optional<PlainSubject> subject(std::in_place);
    PlainObservable* const links = &*subject;
    int subjectsWhenNotified = -1;
    int observersWhenNotified = -1;
    recorder.onDestruction = [&] {
        subjectsWhenNotified = recorder.getNumObservables();
        observersWhenNotified = links->getNumObservers(); // the Observable part still exists
    };
    subject->attach(&recorder);
    subject.reset();
    EXPECT_EQ(subjectsWhenNotified, 1);
    EXPECT_EQ(observersWhenNotified, 1);
    EXPECT_EQ(recorder.getNumObservables(), 0);
}

TEST(Observable, DestructionDetachesEachObserverBeforeItNotifiesTheNext)
{
    std::array<PlainRecorder, 3> recorders;
    std::optional<PlainSubject> subject(std::in_place);
    PlainObservable* const links = &*subject;
    std::vector<int> observersWhenNotified;
    for (PlainRecorder& recorder : recorders) {
        recorder.onDestruction = [&] { observersWhenNotified.push_back(links->getNumObservers()); };
        subject->attach(&recorder);
    }
    subject.reset();
    EXPECT_EQ(observersWhenNotified, (std::vector<int>{3, 2, 1}));
}

TEST(Observable, DestructionNotifiesAnObserverThatAnEarlierOneHasDetachedByDesign)
{
    // Unlike notify(), the destructor does not check whether an observer is still attached. The one
    // that is notified first detaches the other, which is notified nevertheless.
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

TEST(Observable, ObserverMayDetachItselfDuringTheDestruction)
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

} // namespace
