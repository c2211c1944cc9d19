// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <utility>

namespace utility {

/// An engaged value or nothing. Unlike std::optional it never throws: value() of an empty one is
/// T{}.
template <typename T>
class Optional
{
public:
    Optional() = default;
    // Implicit, so that a function may return the value itself.
    // NOLINTNEXTLINE(google-explicit-constructor)
    Optional(T engagedValue) : content(std::move(engagedValue)) {}

    explicit operator bool() const { return content.has_value(); }
    bool hasValue() const { return content.has_value(); }
    T value() const { return content ? *content : T{}; }
    void reset() { content.reset(); }

    friend bool operator==(const Optional&, const Optional&) = default;

private:
    std::optional<T> content;
};

} // namespace utility
