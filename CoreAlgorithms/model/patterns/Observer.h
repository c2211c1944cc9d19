// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/patterns/Observable.h>

#include <QSet>

#include <cstddef>

namespace patterns {

/// What a listener must implement. Virtual slots, in this order: destructor, changedEvent().
template <typename Subject, typename Event>
class ObserverBase
{
public:
    ObserverBase() = default;
    ObserverBase(const ObserverBase&) = default;
    ObserverBase& operator=(const ObserverBase&) = default;
    virtual ~ObserverBase() = default;

    /// The reaction to a change; `event` is null when the subject was told to notify without one.
    virtual void changedEvent(Subject* subject, Event* event) = 0;
};

/// The form without event data.
template <typename Subject>
class ObserverBase<Subject, std::nullptr_t>
{
public:
    ObserverBase() = default;
    ObserverBase(const ObserverBase&) = default;
    ObserverBase& operator=(const ObserverBase&) = default;
    virtual ~ObserverBase() = default;

    virtual void changedEvent(Subject* subject) = 0;
};

/// Base of a listener to subjects of one kind. Virtual slots, in this order: destructor,
/// changedEvent(), destroyed().
///
/// A copy of a listener is attached to nothing; assignment leaves the links of both sides as they
/// are.
template <typename Subject, typename Event>
class Observer : public ObserverBase<Subject, Event>
{
public:
    Observer() = default;
    Observer(const Observer& other) : ObserverBase<Subject, Event>(other) {}
    Observer& operator=(const Observer&) { return *this; }
    ~Observer() override { detachAll(); }

    /// Called once by a subject that is being destroyed. The subject's derived parts are gone: only
    /// its address may be used.
    virtual void destroyed(Subject* /*subject*/) {}

    /// Detaches this listener from every subject.
    void detachAll()
    {
        const auto observablesAtStart = observables;
        for (Observable<Subject, Event>* observable : observablesAtStart)
            observable->detach(this);
    }

    int getNumObservables() const { return static_cast<int>(observables.size()); }

private:
    friend class Observable<Subject, Event>;

    void addObservable(Observable<Subject, Event>* observable) { observables.insert(observable); }
    void removeObservable(Observable<Subject, Event>* observable)
    {
        observables.remove(observable);
    }

    QSet<Observable<Subject, Event>*> observables; // not owned
};

} // namespace patterns
