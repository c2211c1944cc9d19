// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>

#include <cstddef>
#include <type_traits>

// The destructor of Observable passes on the address of its subject, which is destroyed by then.
// Nothing dereferences that address, but the run-time type check of the sanitizers would.
#if defined(__GNUC__)
#define COREALGORITHMS_NO_DYNAMIC_TYPE_CHECK __attribute__((no_sanitize("vptr")))
#else
#define COREALGORITHMS_NO_DYNAMIC_TYPE_CHECK
#endif

namespace patterns {

template <typename Subject, typename Event>
class Observer;

/// Holds the observers of a subject and notifies them of changes. Subjects derive from Observable,
/// not from this class.
///
/// The virtual functions are, in this order, the destructor, notify() and canNotifyObservers(). The
/// set of observers is the only data. The class is single-threaded. An observer may attach and
/// detach observers when it is notified, but must not destroy the subject.
template <typename Subject, typename Event>
class ObservableBase
{
public:
    ObservableBase() = default;
    /// Copies the set of observers without registering with them. The copy notifies them, but they
    /// do not know of it, so that it must not outlive them.
    // Intended: a copied subject keeps notifying the observers of its source.
    ObservableBase(const ObservableBase&) = default;
    /// Copies the set of observers as the copy constructor does. The former observers of the target
    /// keep their link to it, and must detach or be destroyed before it is.
    // Intended: as above.
    ObservableBase& operator=(const ObservableBase&) = default;
    virtual ~ObservableBase() = default;

    /// Notifies every attached observer that the subject has changed, in no particular order.
    /// Skips observers that are attached meanwhile, and those that are detached when their turn
    /// comes. With an event type, the event is null.
    virtual void notify()
    {
        forEachObserver([](Observer<Subject, Event>& observer, Subject* subject) {
            if constexpr (std::is_same_v<Event, std::nullptr_t>)
                observer.changedEvent(subject);
            else
                observer.changedEvent(subject, nullptr);
        });
    }

    /// Returns false while notify() must not notify anyone.
    virtual bool canNotifyObservers() const = 0;

    /// Notifies the observers as notify() does, with an event. Exists only for subjects with an
    /// event type.
    void notify(Event* event) requires(!std::is_same_v<Event, std::nullptr_t>)
    {
        forEachObserver([event](Observer<Subject, Event>& observer, Subject* subject) {
            observer.changedEvent(subject, event);
        });
    }

    /// Returns the number of attached observers.
    int getNumObservers() const { return static_cast<int>(observers.size()); }

    /// Returns the set of attached observers, not a copy.
    const QSet<Observer<Subject, Event>*>& getObservers() const { return observers; }

protected:
    QSet<Observer<Subject, Event>*> observers; // not owned

private:
    template <typename Notification>
    void forEachObserver(Notification notifyObserver)
    {
        if (!canNotifyObservers())
            return;
        const auto observersAtStart = observers;
        for (Observer<Subject, Event>* observer : observersAtStart) {
            if (observers.contains(observer))
                notifyObserver(*observer, static_cast<Subject*>(this));
        }
    }
};

/// Notifies observers of changes of a subject, which derives from this class:
/// `class Detector : public patterns::Observable<Detector, std::nullptr_t>`. DataObject derives so.
///
/// Example (examples/observe_changes.cpp):
/// \code
/// class View : public patterns::Observer<DataObject, std::nullptr_t>
/// {
/// public:
///     void changedEvent(DataObject* /*subject*/) override { ++redraws; }
///     void destroyed(DataObject* /*subject*/) override { isOpen = false; }
///
///     int redraws = 0;
///     bool isOpen = true;
/// };
///
/// View view;
/// implant->attach(&view);
/// implant->setDimensions({4.0F, 10.0F}); // notifies the view
/// {
///     // The two changes notify the view once, at the end of the scope.
///     const EditLocker lock(implant.get());
///     implant->setDimensions({4.0F, 12.0F});
///     implant->setObjectTransform(placement);
/// }
/// implant.reset(); // calls destroyed() and detaches the view
/// \endcode
///
/// Subject and observers hold raw pointers to each other, which both sides keep consistent:
/// observer o is in the set of subject s exactly if s is in the set of o. Copied
/// subjects are the only exception, see ObservableBase.
template <typename Subject, typename Event>
class Observable : public ObservableBase<Subject, Event>
{
public:
    Observable() = default;
    Observable(const Observable&) = default;
    Observable& operator=(const Observable&) = default;

    /// Notifies every observer of the destruction and detaches it. Observer::destroyed() must not
    /// destroy any observer of this subject, itself included: unlike notify(), this loop does not
    /// check whether an observer is still attached.
    COREALGORITHMS_NO_DYNAMIC_TYPE_CHECK ~Observable() override
    {
        auto* subject = static_cast<Subject*>(this);
        // Intended: every observer in the copy is notified, even if an earlier one has just
        // detached it. Observers rely on exactly one destroyed().
        const auto observersAtStart = this->observers;
        for (Observer<Subject, Event>* observer : observersAtStart) {
            observer->destroyed(subject);
            detach(observer);
        }
    }

    /// Returns true.
    bool canNotifyObservers() const override { return true; }

    /// Attaches an observer, on both sides. Does nothing for null and for an attached observer.
    void attach(Observer<Subject, Event>* observer)
    {
        if (!observer)
            return;
        this->observers.insert(observer);
        observer->addObservable(this);
    }

    /// Detaches an observer, on both sides. Does nothing for null and for an observer that is not
    /// attached.
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
