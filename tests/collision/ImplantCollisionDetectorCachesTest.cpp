// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

// What is cached and for how long, what remove() drops, and when observers are notified.

#include <tests/collision/DetectorFixture.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace {

using collision::ImplantCollisionDetector;
using collision::ImplantCollisions;
using collision::makePair;
using dataobject::Nerve;
using test::Access;
using test::at;
using test::implantAt;
using test::ImplantCollisionDetectorTest;
using test::ImplantPointer;
using test::Listener;
using test::nerveAt;
using test::NervePairs;
using test::NervePointer;
using test::pinAt;
using test::PinPairs;
using test::PinPointer;
using test::treeOf;
using test::triangleAt;
using test::triangleThroughAll;
using testing::ElementsAre;

// ---- the caches

TEST_F(ImplantCollisionDetectorTest, WithoutShapeHasChangedTheOldPlacementIsTested)
{
    detectAll();
    a->setObjectTransform(at(17.0F));
    nerve->setMesh(triangleAt(43.0F));
    pin->setObjectTransform(at(43.0F));
    detectAll();
    EXPECT_TRUE(found() == ImplantCollisions());
    EXPECT_EQ(numNotifications(), 0U);
    detector.shapeHasChanged(nerve);
    detectAll();
    EXPECT_TRUE(detector.isCollidingWithNerve(*c));
    EXPECT_FALSE(detector.isColliding(*pin));
    detector.shapeHasChanged(pin);
    detectAll();
    EXPECT_TRUE(detector.isColliding(*pin));
    EXPECT_FALSE(detector.isColliding(*a));
    detector.shapeHasChanged(a);
    detectAll();
    EXPECT_TRUE(detector.isColliding(*a));
}

TEST_F(ImplantCollisionDetectorTest, ShapeHasChangedTestsNothingAndNotifiesNobody)
{
    b->setObjectTransform(at(3.0F));
    detectAll();
    const ImplantCollisions before = found();
    for (const auto& implant : {a, b, c})
        detector.shapeHasChanged(implant);
    detector.shapeHasChanged(nerve);
    detector.shapeHasChanged(pin);
    EXPECT_TRUE(found() == before);
    EXPECT_EQ(numNotifications(), 1U);
    EXPECT_TRUE(Access::zones(detector).isEmpty());
    EXPECT_TRUE(Access::nerves(detector).isEmpty());
    EXPECT_TRUE(Access::pins(detector).isEmpty());
}

TEST_F(ImplantCollisionDetectorTest, ZonesAreCachedByImplantAndMargin)
{
    nerves.clear();
    pins.clear();
    implants = {a, b};
    detect({a});
    EXPECT_EQ(Access::zones(detector).size(), 2);
    EXPECT_TRUE(Access::zones(detector).contains({a, 0.0F}));
    EXPECT_TRUE(Access::zones(detector).contains({b, 0.0F}));
    EXPECT_EQ(Access::zones(detector).value({a, 0.0F}).box,
              primitives::BoundingBox(-2.0F, -2.0F, -10.0F, 2.0F, 2.0F, 0.0F));

    nerves = {nerve};
    pins = {pin};
    detect({a});
    EXPECT_EQ(Access::zones(detector).size(), 3); // nerve and pin share the zone of 3.0
    EXPECT_TRUE(Access::zones(detector).contains({a, 3.0F}));
    EXPECT_EQ(Access::zones(detector).value({a, 3.0F}).box,
              primitives::BoundingBox(-3.5F, -3.5F, -13.0F, 3.5F, 3.5F, 0.0F));
}

// The zone of nerves and that of pins are the same, so that erasing the second finds nothing. A
// zone of another margin, which the detector never makes, stays.
TEST_F(ImplantCollisionDetectorTest, RemovingZonesErasesThoseOfEveryKindOfPairByDesign)
{
    detectAll();
    Access::zones(detector).insert({a, 1.5F}, {});
    EXPECT_EQ(Access::zones(detector).size(), 7);
    Access::removeZones(detector, a);
    EXPECT_EQ(Access::zones(detector).size(), 5);
    EXPECT_FALSE(Access::zones(detector).contains({a, 0.0F}));
    EXPECT_FALSE(Access::zones(detector).contains({a, 3.0F}));
    EXPECT_TRUE(Access::zones(detector).contains({a, 1.5F}));
    Access::removeZones(detector, a); // finds nothing
    EXPECT_EQ(Access::zones(detector).size(), 5);
}

TEST_F(ImplantCollisionDetectorTest, ShapeHasChangedForgetsThatObjectAlone)
{
    detectAll();
    detector.shapeHasChanged(a);
    EXPECT_EQ(Access::zones(detector).size(), 4);
    EXPECT_TRUE(Access::nerves(detector).contains(nerve));
    EXPECT_TRUE(Access::pins(detector).contains(pin));
    detector.shapeHasChanged(nerveAt(0.0F)); // never seen
    detector.shapeHasChanged(pinAt(0.0F));
    detector.shapeHasChanged(implantAt(0.0F));
    EXPECT_EQ(Access::nerves(detector).size(), 1);
    EXPECT_EQ(Access::pins(detector).size(), 1);
    EXPECT_EQ(Access::zones(detector).size(), 4);
}

// Bodies of 150 mm have two cells, a nerve of 150 mm has thirty along its length.
TEST_F(ImplantCollisionDetectorTest, ZonesAndPinsHaveCellsOf100MillimetersNervesOf5)
{
    a->setDimensions({4.0F, 150.0F});
    geometry::Mesh plate({QVector3D(0, 0, 50), QVector3D(150, 0, 50), QVector3D(0, 12, 50)}, {});
    plate.addTriangle(0, 1, 2);
    pin->setShapeNode(treeOf(plate));
    nerve->setMesh(plate);
    detectAll();
    EXPECT_EQ(Access::zones(detector).value({a, 0.0F}).meshes[0].cells.size(), 2);
    EXPECT_EQ(Access::zones(detector).value({a, 3.0F}).meshes[0].cells.size(), 2);
    EXPECT_EQ(Access::zones(detector).value({b, 3.0F}).meshes[0].cells.size(), 1);
    EXPECT_EQ(Access::pins(detector).value(pin).meshes[0].cells.size(), 2);
    EXPECT_EQ(Access::nerves(detector).value(nerve).meshes[0].cells.size(), 30 * 3);
}

TEST_F(ImplantCollisionDetectorTest, CachesHoldTheirObjects)
{
    detectAll();
    const std::weak_ptr<Nerve> watched = nerve;
    nerves.clear();
    nerve.reset();
    EXPECT_FALSE(watched.expired());
    detector.remove(watched.lock());
    EXPECT_TRUE(watched.expired());
}

TEST_F(ImplantCollisionDetectorTest, MissingCacheEntryIsNoCollisionAndStaysMissing)
{
    ImplantCollisions pairs;
    pairs.implantImplantCollisions = {makePair(a, b)};
    pairs.implantNerveCollisions = {makePair(a, nerve)};
    pairs.implantAnchorPinCollisions = {makePair(a, pin)};
    Access::collisions(detector) = pairs;
    Access::collisions(detector).implantImplantCollisions.insert(makePair(a, c));
    ImplantCollisions expected;
    expected.implantImplantCollisions = {makePair(a, c)}; // not among the pairs
    EXPECT_TRUE(Access::calculate(detector, pairs) == expected);
    EXPECT_TRUE(Access::zones(detector).isEmpty());
    EXPECT_TRUE(Access::nerves(detector).isEmpty());
    EXPECT_TRUE(Access::pins(detector).isEmpty());
    EXPECT_EQ(found().implantImplantCollisions.size(), 2); // the detector's own are unchanged
}

// ---- removing

TEST_F(ImplantCollisionDetectorTest, RemoveNotifiesEvenIfNothingIsRemovedByDesign)
{
    detector.remove(a);
    EXPECT_EQ(numNotifications(), 1U);
    detector.remove(nerve);
    EXPECT_EQ(numNotifications(), 2U);
    detector.remove(pin);
    EXPECT_EQ(numNotifications(), 3U);
    detector.remove(a);
    EXPECT_EQ(numNotifications(), 4U);
}

TEST_F(ImplantCollisionDetectorTest, RemoveOfAnImplantTakesOutItsPairsAndZones)
{
    b->setObjectTransform(at(3.0F));
    c->setObjectTransform(at(6.0F));
    nerve->setMesh(triangleThroughAll());
    pin->setShapeNode(treeOf(triangleThroughAll()));
    pin->setObjectTransform({});
    detectAll();
    EXPECT_EQ(found().implantImplantCollisions.size(), 2);
    EXPECT_EQ(found().implantNerveCollisions.size(), 3);
    EXPECT_EQ(found().implantAnchorPinCollisions.size(), 3);
    detector.remove(b);
    ImplantCollisions left;
    left.implantNerveCollisions = {makePair(a, nerve), makePair(c, nerve)};
    left.implantAnchorPinCollisions = {makePair(a, pin), makePair(c, pin)};
    EXPECT_TRUE(found() == left);
    EXPECT_EQ(numNotifications(), 2U);
    EXPECT_EQ(Access::zones(detector).size(), 4);
    EXPECT_FALSE(Access::zones(detector).contains({b, 0.0F}));
    EXPECT_FALSE(Access::zones(detector).contains({b, 3.0F}));
    EXPECT_EQ(Access::nerves(detector).size(), 1);
    EXPECT_EQ(Access::pins(detector).size(), 1);
}

TEST_F(ImplantCollisionDetectorTest, RemoveOfANerveTakesOutItsPairsAndMeshes)
{
    nerve->setMesh(triangleAt(3.0F));
    auto other = nerveAt(-4.0F);
    nerves.insert(other);
    detectAll();
    EXPECT_EQ(found().implantNerveCollisions.size(), 2);
    detector.remove(nerve);
    EXPECT_EQ(found().implantNerveCollisions, (NervePairs{makePair(a, other)}));
    EXPECT_EQ(numNotifications(), 2U);
    EXPECT_EQ(Access::nerves(detector).keys(), (QList<NervePointer>{other}));
    EXPECT_EQ(Access::zones(detector).size(), 6);
}

TEST_F(ImplantCollisionDetectorTest, RemoveOfAPinTakesOutItsPairsAndMeshes)
{
    pin->setObjectTransform(at(3.0F));
    auto other = pinAt(-4.0F);
    pins.insert(other);
    detectAll();
    EXPECT_EQ(found().implantAnchorPinCollisions.size(), 2);
    detector.remove(pin);
    EXPECT_EQ(found().implantAnchorPinCollisions, (PinPairs{makePair(a, other)}));
    EXPECT_EQ(numNotifications(), 2U);
    EXPECT_EQ(Access::pins(detector).keys(), (QList<PinPointer>{other}));
    EXPECT_EQ(Access::zones(detector).size(), 6);
}

TEST_F(ImplantCollisionDetectorTest, RemoveErasesTheCacheOfTheObjectBeforeItNotifies)
{
    detectAll();
    std::vector<qsizetype> zones;
    std::vector<qsizetype> nerveMeshes;
    std::vector<qsizetype> pinMeshes;
    listener.onChange = [&] {
        zones.push_back(Access::zones(detector).size());
        nerveMeshes.push_back(Access::nerves(detector).size());
        pinMeshes.push_back(Access::pins(detector).size());
    };
    detector.remove(a);
    detector.remove(nerve);
    detector.remove(pin);
    EXPECT_THAT(zones, ElementsAre(4, 4, 4));
    EXPECT_THAT(nerveMeshes, ElementsAre(1, 0, 0));
    EXPECT_THAT(pinMeshes, ElementsAre(1, 1, 0));
}

// The pointers that are passed are members of the sets from which they are removed.
TEST_F(ImplantCollisionDetectorTest, RemoveAcceptsAPointerFromItsOwnVerdicts)
{
    b->setObjectTransform(at(3.0F));
    nerve->setMesh(triangleThroughAll());
    pin->setShapeNode(treeOf(triangleThroughAll()));
    pin->setObjectTransform({});
    detectAll();
    ASSERT_EQ(found().implantImplantCollisions.size(), 1);
    const ImplantPointer first = makePair(a, b).first;
    detector.remove(found().implantImplantCollisions.constBegin()->first);
    EXPECT_TRUE(found().implantImplantCollisions.isEmpty());
    EXPECT_FALSE(found().implantNerveCollisions.contains(makePair(first, nerve)));
    EXPECT_FALSE(found().implantAnchorPinCollisions.contains(makePair(first, pin)));
    EXPECT_FALSE(Access::zones(detector).contains({first, 0.0F}));
    EXPECT_FALSE(Access::zones(detector).contains({first, 3.0F}));
    detector.remove(found().implantNerveCollisions.constBegin()->second);
    EXPECT_TRUE(found().implantNerveCollisions.isEmpty());
    EXPECT_TRUE(Access::nerves(detector).isEmpty());
    detector.remove(found().implantAnchorPinCollisions.constBegin()->second);
    EXPECT_TRUE(found().implantAnchorPinCollisions.isEmpty());
    EXPECT_TRUE(Access::pins(detector).isEmpty());
}

// ---- observers

TEST_F(ImplantCollisionDetectorTest, ObserversSeeTheNewVerdicts)
{
    b->setObjectTransform(at(3.0F));
    std::vector<qsizetype> seen;
    listener.onChange = [&] { seen.push_back(found().implantImplantCollisions.size()); };
    detectAll();
    detector.remove(a);
    EXPECT_THAT(seen, ElementsAre(1, 0));
}

TEST_F(ImplantCollisionDetectorTest, OneCallNotifiesOnceHoweverManyVerdictsChange)
{
    b->setObjectTransform(at(3.0F));
    c->setObjectTransform(at(6.0F));
    nerve->setMesh(triangleAt(3.0F));
    pin->setObjectTransform(at(3.0F));
    detectAll();
    EXPECT_EQ(numNotifications(), 1U);
}

TEST_F(ImplantCollisionDetectorTest, ChangeOfAnyKindOfPairNotifies)
{
    nerve->setMesh(triangleAt(3.0F));
    detect({}, {nerve});
    EXPECT_EQ(numNotifications(), 1U);
    pin->setObjectTransform(at(3.0F));
    detect({}, {}, {pin});
    EXPECT_EQ(numNotifications(), 2U);
}

TEST_F(ImplantCollisionDetectorTest, DestructionReleasesTheObjectsThenNotifiesObservers)
{
    auto shortLived = std::make_unique<ImplantCollisionDetector>(loader);
    Listener other;
    shortLived->attach(&other);
    const std::weak_ptr<Nerve> watched = nerve;
    nerve->setMesh(triangleAt(3.0F));
    shortLived->prepareAndStartDetection(implants, {}, pins, {}, nerves, {nerve});
    nerves.clear();
    nerve.reset();
    ASSERT_FALSE(watched.expired());
    bool released = false;
    other.onDestruction = [&] { released = watched.expired(); };
    shortLived.reset();
    EXPECT_EQ(other.destructions, 1);
    EXPECT_TRUE(released);
    EXPECT_EQ(other.getNumObservables(), 0);
}

} // namespace
