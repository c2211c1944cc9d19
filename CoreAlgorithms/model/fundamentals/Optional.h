// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <utility>

namespace utility {

/// Holds a value or nothing. Unlike std::optional it never throws: value() of an empty one is T{}.
template <typename T>
class Optional
{
public:
    /// Constructs an empty optional.
    Optional() = default;
    /// Holds the value. Implicit, so that a function may return the value itself.
    // NOLINTNEXTLINE(google-explicit-constructor)
    Optional(T engagedValue) : content(std::move(engagedValue)) {}

    /// Returns true if there is a value.
    explicit operator bool() const { return content.has_value(); }
    /// Returns true if there is a value.
    bool hasValue() const { return content.has_value(); }
    /// Returns the value, or T{} if there is none.
    T value() const { return content ? *content : T{}; }
    /// Removes the value.
    void reset() { content.reset(); }

    friend bool operator==(const Optional&, const Optional&) = default;

private:
    std::optional<T> content;
};

} // namespace utility
