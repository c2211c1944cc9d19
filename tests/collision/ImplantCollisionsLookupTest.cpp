// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisions.h>

// What the comparison of two records looks up: nothing if sizes or shared data decide, and nothing
// after the first set that differs.

#include <tests/collision/CountingHash.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

namespace {

struct Lookups
{
    int implants = 0;
    int nerves = 0;
    int pins = 0;

    friend bool operator==(const Lookups&, const Lookups&) = default;
};

Lookups lookups;

std::size_t hashOf(const void* object, std::size_t seed)
{
    return (reinterpret_cast<std::uintptr_t>(object) >> 4) ^ seed;
}

} // namespace

std::size_t qHash(dataobject::Implant3D* object, std::size_t seed) noexcept
{
    ++lookups.implants;
    return hashOf(object, seed);
}

std::size_t qHash(dataobject::Nerve* object, std::size_t seed) noexcept
{
    ++lookups.nerves;
    return hashOf(object, seed);
}

std::size_t qHash(dataobject::AnchorPin3D* object, std::size_t seed) noexcept
{
    ++lookups.pins;
    return hashOf(object, seed);
}

namespace {

using collision::ImplantCollisions;
using collision::makePair;
using dataobject::AnchorPin3D;
using dataobject::Implant3D;
using dataobject::Nerve;

struct ImplantCollisionsLookupTest : testing::Test
{
    // Returns a record with two pairs of each kind, whose sets are not shared.
    ImplantCollisions record() const
    {
        ImplantCollisions result;
        result.implantImplantCollisions = {makePair(a, b), makePair(b, c)};
        result.implantNerveCollisions = {makePair(a, nerve), makePair(b, nerve)};
        result.implantAnchorPinCollisions = {makePair(a, pin), makePair(b, pin)};
        return result;
    }

    std::shared_ptr<Implant3D> a = std::make_shared<Implant3D>();
    std::shared_ptr<Implant3D> b = std::make_shared<Implant3D>();
    std::shared_ptr<Implant3D> c = std::make_shared<Implant3D>();
    std::shared_ptr<Nerve> nerve = std::make_shared<Nerve>();
    std::shared_ptr<AnchorPin3D> pin = std::make_shared<AnchorPin3D>();
};

// A pair of implants takes two look-ups of implants, a mixed pair takes one.
TEST_F(ImplantCollisionsLookupTest, EqualRecordsLookUpEveryPairOnce)
{
    const ImplantCollisions one = record();
    const ImplantCollisions other = record();
    lookups = {};
    EXPECT_TRUE(one == other);
    EXPECT_EQ(lookups, (Lookups{8, 2, 2}));
}

TEST_F(ImplantCollisionsLookupTest, RecordsThatShareTheirSetsLookUpNothing)
{
    const ImplantCollisions one = record();
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): that is the point
    const ImplantCollisions copy = one;
    lookups = {};
    EXPECT_TRUE(one == copy);
    EXPECT_EQ(lookups, Lookups());
}

TEST_F(ImplantCollisionsLookupTest, SetsOfDifferentSizesLookUpNothing)
{
    const ImplantCollisions one = record();
    ImplantCollisions other = record();
    other.implantImplantCollisions.remove(makePair(a, b));
    lookups = {};
    EXPECT_FALSE(one == other);
    EXPECT_FALSE(other == one);
    EXPECT_EQ(lookups, Lookups());
}

TEST_F(ImplantCollisionsLookupTest, NothingIsLookedUpAfterTheFirstSetThatDiffers)
{
    const ImplantCollisions one = record();
    ImplantCollisions other = record();
    other.implantImplantCollisions = {makePair(a, c)};
    other.implantNerveCollisions.clear();
    lookups = {};
    EXPECT_TRUE(one != other); // by the number of pairs of implants
    EXPECT_EQ(lookups, Lookups());

    other = record();
    other.implantNerveCollisions = {makePair(a, nerve), makePair(c, nerve)};
    lookups = {};
    EXPECT_FALSE(one == other); // at a pair with a nerve
    EXPECT_GE(lookups.nerves, 1);
    EXPECT_EQ(lookups.pins, 0);

    other = record();
    other.implantImplantCollisions = {makePair(a, b), makePair(a, c)};
    lookups = {};
    EXPECT_FALSE(one == other); // at a pair of implants
    EXPECT_GE(lookups.implants, 2);
    EXPECT_EQ(lookups.nerves, 0);
    EXPECT_EQ(lookups.pins, 0);
}

} // namespace
