// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

// The base class, the order of the fields and the slots of the virtual functions.

#include <tests/collision/DetectorFixture.h>
#include <tests/support/VirtualSlots.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
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

using test::slotCountOf;
using test::slotOf;

TEST(ImplantCollisionDetectorSlots, AreThoseOfObservableAndNoMore)
{
    EXPECT_EQ(slotOf(static_cast<void (ImplantCollisionDetector::*)()>(
                  &ImplantCollisionDetector::notify)),
              2U);
    EXPECT_EQ(slotOf(&ImplantCollisionDetector::canNotifyObservers), 3U);
    EXPECT_EQ(slotCountOf<ImplantCollisionDetector>(), 4U);
}

#endif

} // namespace
