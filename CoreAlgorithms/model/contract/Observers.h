// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes patterns::Observable and patterns::Observer.

#include <concepts>
#include <type_traits>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes a class derived from patterns::Observable of itself whose events carry no data.
template <typename Subject>
concept PlainSubject = std::has_virtual_destructor_v<Subject> &&
    std::default_initializable<Subject> && requires(Subject& subject) { subject.notify(); };

/// Describes patterns::Observer of the events of a subject. Derived classes override
/// changedEvent(), which is virtual.
template <typename Observer, typename Subject, typename Event>
concept EventObserver = std::has_virtual_destructor_v<Observer> &&
    requires(Observer& observer, Subject* subject, Event* event)
{
    observer.changedEvent(subject, event);
    observer.detachAll();
};

// clang-format on

} // namespace hostcontract
