// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/patterns/Observable.h>

// Changes of the links during a notification. The order of the calls is open, so that the tests are
// symmetric.

#include <tests/model/ObserverRecorders.h>

#include <gtest/gtest.h>

#include <array>
#include <memory>

namespace {

using test::PlainObserver;
using test::PlainRecorder;
using test::PlainSubject;

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

TEST(Observable, ObserverDetachedBeforeItsTurnIsSkipped)
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

TEST(Observable, ObserverThatLeavesByDetachAllBeforeItsTurnIsSkipped)
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

TEST(Observable, ObserverDestroyedBeforeItsTurnIsDetachedAndSkipped)
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

TEST(Observable, ObserverAttachedDuringANotificationIsNotifiedFromTheNextOneOn)
{
    PlainSubject subject;
    PlainRecorder host;
    // So many guests make the set grow during the notification.
    std::array<PlainRecorder, 32> guests;
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

TEST(Observable, ObserverDetachedAndAttachedAgainDuringANotificationIsNotifiedOnce)
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

TEST(Observable, NotifyInsideAReactionReachesEveryObserverAgain)
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

} // namespace
