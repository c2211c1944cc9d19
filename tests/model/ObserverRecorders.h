// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/patterns/Observable.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace test {

/// Represents an event.
struct Change
{
    int number = 0;
};

/// Notifies without events, unless a test forbids it.
class PlainSubject : public patterns::Observable<PlainSubject, std::nullptr_t>
{
public:
    bool canNotifyObservers() const override { return mayNotify; }

    bool mayNotify = true;
};

/// Notifies with events, unless a test forbids it.
class EventSubject : public patterns::Observable<EventSubject, Change>
{
public:
    bool canNotifyObservers() const override { return mayNotify; }

    bool mayNotify = true;
};

/// Returns the address as a number, which can be compared after the subject is destroyed.
inline std::uintptr_t addressOf(const void* subject)
{
    return reinterpret_cast<std::uintptr_t>(subject);
}

/// Records every call and then reacts as the test wants. As in real observers, the reactions are
/// private.
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

/// Records every call.
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

using PlainObservable = patterns::Observable<PlainSubject, std::nullptr_t>;
using PlainObservableBase = patterns::ObservableBase<PlainSubject, std::nullptr_t>;
using PlainObserver = patterns::Observer<PlainSubject, std::nullptr_t>;
using PlainObserverBase = patterns::ObserverBase<PlainSubject, std::nullptr_t>;
using EventObservable = patterns::Observable<EventSubject, Change>;
using EventObservableBase = patterns::ObservableBase<EventSubject, Change>;
using EventObserver = patterns::Observer<EventSubject, Change>;
using EventObserverBase = patterns::ObserverBase<EventSubject, Change>;

} // namespace test
