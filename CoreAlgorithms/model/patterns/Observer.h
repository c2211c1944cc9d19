// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/patterns/Observable.h>

#include <QSet>

#include <cstddef>

namespace patterns {

/// Declares what an observer implements. The virtual functions are, in this order, the destructor
/// and changedEvent().
template <typename Subject, typename Event>
class ObserverBase
{
public:
    ObserverBase() = default;
    ObserverBase(const ObserverBase&) = default;
    ObserverBase& operator=(const ObserverBase&) = default;
    virtual ~ObserverBase() = default;

    /// Reacts to a change of the subject; `event` is null if the subject notifies without one.
    virtual void changedEvent(Subject* subject, Event* event) = 0;
};

/// Declares what an observer without events implements.
template <typename Subject>
class ObserverBase<Subject, std::nullptr_t>
{
public:
    ObserverBase() = default;
    ObserverBase(const ObserverBase&) = default;
    ObserverBase& operator=(const ObserverBase&) = default;
    virtual ~ObserverBase() = default;

    /// Reacts to a change of the subject.
    virtual void changedEvent(Subject* subject) = 0;
};

/// Observes subjects of one kind; Observable shows an example. The virtual functions are, in this
/// order, the destructor, changedEvent() and destroyed().
template <typename Subject, typename Event>
class Observer : public ObserverBase<Subject, Event>
{
public:
    Observer() = default;
    /// Constructs an observer that is attached to nothing.
    Observer(const Observer& other) : ObserverBase<Subject, Event>(other) {}
    /// Keeps the attachments of both observers.
    Observer& operator=(const Observer&) { return *this; }
    /// Detaches the observer from every subject.
    ~Observer() override { detachAll(); }

    /// Reacts to the destruction of a subject, which calls this once. Its derived parts are already
    /// destroyed, so that only its address may be used.
    virtual void destroyed(Subject* /*subject*/) {}

    /// Detaches the observer from every subject.
    void detachAll()
    {
        const auto observablesAtStart = observables;
        for (Observable<Subject, Event>* observable : observablesAtStart)
            observable->detach(this);
    }

    /// Returns the number of subjects to which the observer is attached.
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
