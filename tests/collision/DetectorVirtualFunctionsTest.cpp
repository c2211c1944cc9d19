// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

// The base class, the order of the fields and the slots of the virtual functions.

#include <tests/collision/DetectorFixture.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <type_traits>

namespace {

using collision::ImplantCollisionDetector;
using test::Access;
using test::ImplantCollisionDetectorTest;

using Base = patterns::Observable<ImplantCollisionDetector, std::nullptr_t>;

static_assert(std::is_base_of_v<Base, ImplantCollisionDetector>);
static_assert(std::has_virtual_destructor_v<ImplantCollisionDetector>);
static_assert(!std::is_copy_constructible_v<ImplantCollisionDetector>);
static_assert(!std::is_convertible_v<geometry::ShapeLoader&, ImplantCollisionDetector>);

TEST_F(ImplantCollisionDetectorTest, HoldsItsFieldsInOrder)
{
    const auto fields = Access::fields(detector);
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
    // The base, the loader, the factory, three sets of pairs and three caches.
    EXPECT_EQ(sizeof(ImplantCollisionDetector), sizeof(Base) + (1 + 1 + 3 + 3) * sizeof(void*));
}

#if defined(__GNUC__)

// In the Itanium C++ ABI, a pointer to a virtual member function holds 1 + the byte offset of its
// slot; on ARM the 1 is in the second word instead. The destructor takes slots 0 (complete) and
// 1 (deleting).
template <typename MemberFunction>
std::size_t slotOf(MemberFunction function)
{
    std::ptrdiff_t words[2] = {};
    static_assert(sizeof words == sizeof function);
    std::memcpy(words, &function, sizeof words);
#if defined(__arm__) || defined(__aarch64__)
    return static_cast<std::size_t>(words[0]) / sizeof(void*);
#else
    return static_cast<std::size_t>(words[0] - 1) / sizeof(void*);
#endif
}

// A virtual function that a derived class adds takes the first slot behind those of its base.
class WithOneMore : public ImplantCollisionDetector
{
public:
    using ImplantCollisionDetector::ImplantCollisionDetector;
    virtual void oneMore() {}
};

TEST(ImplantCollisionDetectorSlots, AreThoseOfObservableAndNoMore)
{
    EXPECT_EQ(slotOf(static_cast<void (ImplantCollisionDetector::*)()>(
                  &ImplantCollisionDetector::notify)),
              2U);
    EXPECT_EQ(slotOf(&ImplantCollisionDetector::canNotifyObservers), 3U);
    EXPECT_EQ(slotOf(&WithOneMore::oneMore), 4U);
}

#endif

} // namespace
