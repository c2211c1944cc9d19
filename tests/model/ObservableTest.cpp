// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/patterns/Observable.h>

// Links between subjects and observers, and notification.

#include <tests/model/ObserverRecorders.h>

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <utility>
#include <vector>

namespace {

using test::Change;
using test::EventObservable;
using test::EventRecorder;
using test::EventSubject;
using test::PlainObservable;
using test::PlainObserver;
using test::PlainRecorder;
using test::PlainSubject;
using test::Subjects;

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

TEST(Observable, MayNotifyUnlessTheSubjectForbidsIt)
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

TEST(Observable, DetachingAnObserverOfAnotherSubjectChangesNothing)
{
    PlainSubject subject;
    PlainSubject other;
    PlainRecorder attached;
    PlainRecorder ofOther;
    subject.attach(&attached);
    other.attach(&ofOther);
    subject.detach(&ofOther);
    EXPECT_EQ(subject.getObservers(), QSet<PlainObserver*>{&attached});
    EXPECT_EQ(other.getObservers(), QSet<PlainObserver*>{&ofOther});
    EXPECT_EQ(ofOther.getNumObservables(), 1);
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
    first.notify(); // would access freed memory if the link were still there
    EXPECT_EQ(staying.changes, Subjects{&first});
}

TEST(Observable, LinksOfBothSidesAgreeAfterAnySequenceOfOperations)
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

TEST(Observable, NotifyPassesTheSubjectToEveryObserverOnce)
{
    PlainSubject subject;
    std::array<PlainRecorder, 5> recorders;
    for (PlainRecorder& recorder : recorders)
        subject.attach(&recorder);
    subject.notify();
    for (const PlainRecorder& recorder : recorders)
        EXPECT_EQ(recorder.changes, Subjects{&subject});
}

TEST(Observable, NotifyReachesObserversOfThisSubjectOnly)
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

TEST(Observable, NotifyPassesTheEventByPointer)
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

TEST(Observable, VetoKeepsNotifyFromReachingAnyone)
{
    PlainSubject subject;
    PlainRecorder recorder;
    subject.attach(&recorder);
    subject.mayNotify = false;
    subject.notify();
    EXPECT_EQ(recorder.changes, Subjects{});
    subject.mayNotify = true;
    EXPECT_EQ(recorder.changes, Subjects{}) << "the change is not announced later";
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
        std::vector<Late*> calls;

    private:
        void changedEvent(Late* subject) override { calls.push_back(subject); }
        void destroyed(Late* subject) override { calls.push_back(subject); }
    };
    LateRecorder recorder;
    std::optional<Late> subject(std::in_place);
    Late* const address = &*subject;
    subject->attach(&recorder);
    subject->notify();
    subject.reset();
    EXPECT_EQ(recorder.calls, (std::vector<Late*>{address, address}));
}

} // namespace
