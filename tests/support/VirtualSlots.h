// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

#if defined(__GNUC__)

namespace test {

/// Returns the slot of a virtual function in the table of its class. In the Itanium C++ ABI a
/// pointer to a virtual member function holds 1 + the byte offset of its slot; on ARM the second
/// word holds the 1. The destructor has slots 0 (complete) and 1 (deleting).
template <typename MemberFunction>
std::size_t slotOf(MemberFunction function)
{
    std::ptrdiff_t words[2] = {};
    static_assert(sizeof words == sizeof function);
    std::memcpy(words, &function, sizeof words);
#if defined(__arm__) || defined(__aarch64__)
    EXPECT_EQ(words[1] & 1, 1) << "not a virtual function";
    return static_cast<std::size_t>(words[0]) / sizeof(void*);
#else
    EXPECT_EQ(words[0] & 1, 1) << "not a virtual function";
    return static_cast<std::size_t>(words[0] - 1) / sizeof(void*);
#endif
}

/// Adds a virtual function, which has the first slot behind those of the base.
template <typename Base>
class WithAnotherVirtualFunction : public Base
{
public:
    virtual void another() {}
};

/// Returns the number of slots in the table of a class, which may be abstract.
template <typename Base>
std::size_t slotCountOf()
{
    return slotOf(&WithAnotherVirtualFunction<Base>::another);
}

} // namespace test

#endif
