// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisions.h>

// The record of colliding pairs and the pairs' canonical form.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace {

using collision::ImplantCollisions;
using collision::makePair;
using dataobject::AnchorPin3D;
using dataobject::Implant3D;
using dataobject::Nerve;

static_assert(std::is_nothrow_move_constructible_v<ImplantCollisions>);

// The implant comes first in a mixed pair, whatever the addresses.
static_assert(
    std::is_same_v<decltype(makePair(std::shared_ptr<Implant3D>(), std::shared_ptr<Nerve>())),
                   std::pair<std::shared_ptr<Implant3D>, std::shared_ptr<Nerve>>>);
static_assert(
    std::is_same_v<decltype(makePair(std::shared_ptr<Implant3D>(), std::shared_ptr<AnchorPin3D>())),
                   std::pair<std::shared_ptr<Implant3D>, std::shared_ptr<AnchorPin3D>>>);

struct ImplantCollisionsTest : testing::Test
{
    std::shared_ptr<Implant3D> a = std::make_shared<Implant3D>();
    std::shared_ptr<Implant3D> b = std::make_shared<Implant3D>();
    std::shared_ptr<Implant3D> c = std::make_shared<Implant3D>();
    std::shared_ptr<Nerve> nerve = std::make_shared<Nerve>();
    std::shared_ptr<AnchorPin3D> pin = std::make_shared<AnchorPin3D>();

    ImplantCollisions fullRecord() const
    {
        ImplantCollisions record;
        record.implantImplantCollisions = {makePair(a, b), makePair(b, c)};
        record.implantNerveCollisions = {makePair(a, nerve)};
        record.implantAnchorPinCollisions = {makePair(b, pin)};
        return record;
    }
};

// ---- pairs

TEST_F(ImplantCollisionsTest, PairOfImplantsHasTheLowerAddressFirstInEitherOrder)
{
    EXPECT_EQ(makePair(a, b), makePair(b, a));
    EXPECT_TRUE(std::less<>()(makePair(a, b).first.get(), makePair(a, b).second.get()));
    EXPECT_TRUE(std::less<>()(makePair(b, a).first.get(), makePair(b, a).second.get()));
}

TEST_F(ImplantCollisionsTest, PairOfAnImplantWithItselfHoldsItTwice)
{
    EXPECT_EQ(makePair(a, a), std::pair(a, a));
}

TEST_F(ImplantCollisionsTest, MixedPairsHoldBothObjects)
{
    EXPECT_EQ(makePair(a, nerve), std::pair(a, nerve));
    EXPECT_EQ(makePair(a, pin), std::pair(a, pin));
}

TEST_F(ImplantCollisionsTest, PairsHoldStrongReferences)
{
    const long before = a.use_count();
    {
        const auto pair = makePair(a, b);
        EXPECT_EQ(a.use_count(), before + 1);
    }
    EXPECT_EQ(a.use_count(), before);
}

TEST_F(ImplantCollisionsTest, NullComesFirst)
{
    EXPECT_EQ(makePair(a, std::shared_ptr<Implant3D>()),
              std::pair(std::shared_ptr<Implant3D>(), a));
}

// ---- records

TEST_F(ImplantCollisionsTest, NewRecordIsEmpty)
{
    const ImplantCollisions record;
    EXPECT_TRUE(record.implantImplantCollisions.isEmpty());
    EXPECT_TRUE(record.implantNerveCollisions.isEmpty());
    EXPECT_TRUE(record.implantAnchorPinCollisions.isEmpty());
    EXPECT_TRUE(record == ImplantCollisions());
    EXPECT_FALSE(record != ImplantCollisions());
}

TEST_F(ImplantCollisionsTest, PairFoundFromBothSidesIsOneElement)
{
    ImplantCollisions record;
    record.implantImplantCollisions.insert(makePair(a, b));
    record.implantImplantCollisions.insert(makePair(b, a));
    EXPECT_EQ(record.implantImplantCollisions.size(), 1);
}

TEST_F(ImplantCollisionsTest, OrderOfInsertionDoesNotMatter)
{
    ImplantCollisions forwards;
    ImplantCollisions backwards;
    for (const auto& pair : {makePair(a, b), makePair(a, c), makePair(b, c)})
        forwards.implantImplantCollisions.insert(pair);
    for (const auto& pair : {makePair(c, b), makePair(c, a), makePair(b, a)})
        backwards.implantImplantCollisions.insert(pair);
    EXPECT_TRUE(forwards == backwards);
    EXPECT_FALSE(forwards != backwards);
}

TEST_F(ImplantCollisionsTest, RecordsThatDifferInOneSetAreDifferent)
{
    const ImplantCollisions full = fullRecord();
    ImplantCollisions other = full;
    EXPECT_TRUE(other == full);

    other.implantImplantCollisions = {makePair(a, b), makePair(a, c)}; // as many, but not the same
    EXPECT_TRUE(other != full);
    EXPECT_FALSE(other == full);

    other = full;
    other.implantNerveCollisions = {makePair(b, nerve)};
    EXPECT_TRUE(other != full);

    other = full;
    other.implantAnchorPinCollisions = {makePair(a, pin)};
    EXPECT_TRUE(other != full);
}

TEST_F(ImplantCollisionsTest, RecordsOfDifferentSizeAreDifferentBothWays)
{
    const ImplantCollisions full = fullRecord();
    ImplantCollisions smaller = full;
    smaller.implantAnchorPinCollisions.clear();
    EXPECT_FALSE(smaller == full);
    EXPECT_FALSE(full == smaller);
}

TEST_F(ImplantCollisionsTest, CopiesShareUntilOneIsChanged)
{
    const ImplantCollisions full = fullRecord();
    ImplantCollisions copy = full;
    EXPECT_EQ(copy.implantImplantCollisions.constBegin(),
              full.implantImplantCollisions.constBegin());
    copy.implantImplantCollisions.clear();
    EXPECT_EQ(full.implantImplantCollisions.size(), 2);
    copy = full;
    EXPECT_TRUE(copy == full);
}

TEST_F(ImplantCollisionsTest, MovedFromRecordIsEmpty)
{
    ImplantCollisions source = fullRecord();
    const ImplantCollisions target = std::move(source);
    EXPECT_TRUE(target == fullRecord());
    // NOLINTNEXTLINE(bugprone-use-after-move): that is the point
    EXPECT_TRUE(source == ImplantCollisions());

    ImplantCollisions second = fullRecord();
    ImplantCollisions assigned;
    assigned = std::move(second);
    EXPECT_TRUE(assigned == fullRecord());
    EXPECT_TRUE(second.implantImplantCollisions.isEmpty()); // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(second == ImplantCollisions());
}

TEST_F(ImplantCollisionsTest, MovedFromRecordIsEmptyAlsoIfItSharedItsSetsWithTheTarget)
{
    ImplantCollisions target = fullRecord();
    ImplantCollisions source = target;
    target = std::move(source);
    EXPECT_TRUE(target == fullRecord());
    EXPECT_TRUE(source == ImplantCollisions()); // NOLINT(bugprone-use-after-move)
}

TEST_F(ImplantCollisionsTest, ObjectsInACollisionStayAlive)
{
    const std::weak_ptr<Nerve> watched = nerve;
    ImplantCollisions record = fullRecord();
    nerve.reset();
    EXPECT_FALSE(watched.expired());
    record = {};
    EXPECT_TRUE(watched.expired());
}

} // namespace
