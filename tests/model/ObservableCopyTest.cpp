// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/patterns/Observable.h>

// Copies of subjects and of observers.

#include <tests/model/ObserverRecorders.h>

#include <gtest/gtest.h>

#include <optional>

namespace {

using test::Addresses;
using test::addressOf;
using test::EventRecorder;
using test::EventSubject;
using test::PlainObserver;
using test::PlainRecorder;
using test::PlainSubject;
using test::Subjects;

TEST(Observable, CopyTakesOverTheObserversWithoutAttachingToThemByDesign)
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

TEST(Observable, CopyAndOriginalChangeTheirObserversIndependently)
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
    copy.detach(&shared); // leaves no dangling pointer behind
}

TEST(Observable, DetachAllLeavesTheOriginalButNotTheCopyByDesign)
{
    PlainRecorder recorder;
    PlainSubject original;
    original.attach(&recorder);
    PlainSubject copy(original);
    recorder.detachAll();
    EXPECT_EQ(original.getNumObservers(), 0);
    EXPECT_EQ(copy.getNumObservers(), 1);
}

TEST(Observable, DestructionOfACopyNotifiesAndKeepsTheLinkToTheOriginal)
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

TEST(Observable, AssignmentTakesOverTheObserversAndFormerOnesKeepTheirLinkByDesign)
{
    PlainRecorder former;
    PlainRecorder taken;
    PlainSubject source;
    PlainSubject target;
    source.attach(&taken);
    target.attach(&former);
    target = source;
    EXPECT_EQ(target.getObservers(), QSet<PlainObserver*>{&taken});
    EXPECT_EQ(taken.getNumObservables(), 1) << "it knows the source only";
    EXPECT_EQ(former.getNumObservables(), 1) << "it is still linked to the target";
    target.notify();
    EXPECT_EQ(taken.changes, Subjects{&target});
    EXPECT_EQ(former.changes, Subjects{});
    former.detachAll(); // must happen before the target is destroyed, which no longer knows of it
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

TEST(Observer, AssignmentKeepsTheLinksOfBoth)
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

} // namespace
