// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>

#include <cstddef>
#include <type_traits>

// A subject is destroyed before its Observable base, whose destructor still hands out the subject's
// address. That address is never followed there, but the run-time type check of the sanitizers
// would follow it.
#if defined(__GNUC__)
#define COREALGORITHMS_NO_DYNAMIC_TYPE_CHECK __attribute__((no_sanitize("vptr")))
#else
#define COREALGORITHMS_NO_DYNAMIC_TYPE_CHECK
#endif

namespace patterns {

template <typename Subject, typename Event>
class Observer;

/// The observer set of a subject and the telling of changes. Derive subjects from Observable, not
/// from this class.
///
/// Virtual slots, in this order: destructor, notify(), canNotifyObservers(). Data: the observer set
/// alone. Single-threaded; an observer's reaction may attach and detach observers, but must not
/// destroy the subject.
template <typename Subject, typename Event>
class ObservableBase
{
public:
    ObservableBase() = default;
    /// Intended: a copy takes over the observer set without registering with those observers. The
    /// copied subject reaches them by notify(), but they do not know of it; it must not outlive
    /// them.
    ObservableBase(const ObservableBase&) = default;
    /// Intended: as for the copy constructor; the former observers of the target keep their link
    /// back to it, and must detach or be destroyed before it is.
    ObservableBase& operator=(const ObservableBase&) = default;
    virtual ~ObservableBase() = default;

    /// Tells every attached observer that the subject has changed, in no particular order.
    /// Observers attached meanwhile are not told; those detached meanwhile are passed over. With an
    /// event type, the event is null.
    virtual void notify()
    {
        tellObservers([](Observer<Subject, Event>& observer, Subject* subject) {
            if constexpr (std::is_same_v<Event, std::nullptr_t>)
                observer.changedEvent(subject);
            else
                observer.changedEvent(subject, nullptr);
        });
    }

    /// A subject answers false to keep notify() from telling anyone.
    virtual bool canNotifyObservers() const = 0;

    /// notify() with an event for the observers; not for subjects whose Event is std::nullptr_t.
    void notify(Event* event) requires(!std::is_same_v<Event, std::nullptr_t>)
    {
        tellObservers([event](Observer<Subject, Event>& observer, Subject* subject) {
            observer.changedEvent(subject, event);
        });
    }

    int getNumObservers() const { return static_cast<int>(observers.size()); }

    /// The live observer set.
    const QSet<Observer<Subject, Event>*>& getObservers() const { return observers; }

protected:
    QSet<Observer<Subject, Event>*> observers; // not owned

private:
    template <typename Tell>
    void tellObservers(Tell tell)
    {
        if (!canNotifyObservers())
            return;
        const auto observersAtStart = observers;
        for (Observer<Subject, Event>* observer : observersAtStart) {
            if (observers.contains(observer))
                tell(*observer, static_cast<Subject*>(this));
        }
    }
};

/// Base of a subject: `class Detector : public patterns::Observable<Detector, std::nullptr_t>`.
///
/// Subject and observers hold raw pointers to each other, kept consistent by both sides: observer o
/// is in the set of subject s exactly when s is in the set of o (copied subjects excepted, see
/// ObservableBase).
template <typename Subject, typename Event>
class Observable : public ObservableBase<Subject, Event>
{
public:
    Observable() = default;
    Observable(const Observable&) = default;
    Observable& operator=(const Observable&) = default;

    /// Tells every observer of the destruction and unlinks it. An observer's destroyed() must not
    /// destroy any observer of this subject, itself included: unlike notify(), this loop does not
    /// ask the live set again.
    COREALGORITHMS_NO_DYNAMIC_TYPE_CHECK ~Observable() override
    {
        auto* subject = static_cast<Subject*>(this);
        // Intended: everyone of the copy is told, also one that an earlier observer has just
        // detached; listeners rely on exactly one destroyed().
        const auto observersAtStart = this->observers;
        for (Observer<Subject, Event>* observer : observersAtStart) {
            observer->destroyed(subject);
            detach(observer);
        }
    }

    bool canNotifyObservers() const override { return true; }

    /// Links both sides. Attaching twice is harmless; null is ignored.
    void attach(Observer<Subject, Event>* observer)
    {
        if (!observer)
            return;
        this->observers.insert(observer);
        observer->addObservable(this);
    }

    /// Unlinks both sides. Detaching an observer that is not attached changes nothing; null is
    /// ignored.
    void detach(Observer<Subject, Event>* observer)
    {
        if (!observer)
            return;
        this->observers.remove(observer);
        observer->removeObservable(this);
    }
};

} // namespace patterns

#undef COREALGORITHMS_NO_DYNAMIC_TYPE_CHECK

#include <CoreAlgorithms/model/patterns/Observer.h> // attach() and detach() need the other side
