// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

// The detector: which pairs are tested, what is cached and for how long, who is told when, what the
// host is asked.

#include <CoreAlgorithms/collision/BoundedMesh_p.h>
#include <CoreAlgorithms/collision/ImplantSafetyZone.h>

#include <QCoreApplication>
#include <QTranslator>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

namespace collision {

// What the detector keeps to itself.
struct ImplantCollisionDetectorTestAccess
{
    using Zones = QHash<std::pair<std::shared_ptr<dataobject::Implant3D>, float>, BoundedObject>;

    static Zones& zones(ImplantCollisionDetector& d) { return d.implantSafetyZoneBoundedMeshes; }
    static auto& nerves(ImplantCollisionDetector& d) { return d.nerveBoundedMeshes; }
    static auto& pins(ImplantCollisionDetector& d) { return d.anchorPinBoundedMeshes; }
    static ImplantCollisions& collisions(ImplantCollisionDetector& d)
    {
        return d.implantCollisions;
    }
    static const geometry::ShapeLoader& loader(ImplantCollisionDetector& d)
    {
        return d.shapeLoader;
    }
    static const auto& factory(ImplantCollisionDetector& d) { return d.shapeFactory; }
    static void removeZones(ImplantCollisionDetector& d,
                            const std::shared_ptr<dataobject::Implant3D>& implant)
    {
        d.removeImplantSafetyZones(implant);
    }
    static ImplantCollisions calculate(const ImplantCollisionDetector& d,
                                       const ImplantCollisions& pairs)
    {
        return d.calculateUpdatedCollisions(pairs.implantImplantCollisions,
                                            pairs.implantNerveCollisions,
                                            pairs.implantAnchorPinCollisions);
    }

    // The fields one after the other.
    static std::array<const void*, 6> fields(ImplantCollisionDetector& d)
    {
        return {&d.shapeFactory,       &d.implantCollisions,      &d.implantSafetyZoneBoundedMeshes,
                &d.nerveBoundedMeshes, &d.anchorPinBoundedMeshes, &d + 1};
    }
};

} // namespace collision

namespace {

using collision::ImplantCollisionDetector;
using collision::ImplantCollisions;
using collision::makePair;
using dataobject::AnchorPin3D;
using dataobject::Implant3D;
using dataobject::Nerve;
using Access = collision::ImplantCollisionDetectorTestAccess;
using ImplantPointer = std::shared_ptr<Implant3D>;
using NervePointer = std::shared_ptr<Nerve>;
using PinPointer = std::shared_ptr<AnchorPin3D>;
using ImplantPairs = decltype(ImplantCollisions::implantImplantCollisions);
using NervePairs = decltype(ImplantCollisions::implantNerveCollisions);
using PinPairs = decltype(ImplantCollisions::implantAnchorPinCollisions);
using testing::ElementsAre;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// ---- a plan

QMatrix4x4 at(float x, float y = 0.0F, float z = 0.0F)
{
    QMatrix4x4 matrix;
    matrix.translate(x, y, z);
    return matrix;
}

// 4 mm thick, from its platform down to z = -10. The zone of margin 3.0 has a radius of 3.5 mm and
// ends in a cone with the tip at z = -13.
void shape(Implant3D& implant, float x)
{
    implant.setDimensions({4.0F, 10.0F});
    implant.setObjectTransform(at(x));
}

ImplantPointer implantAt(float x)
{
    auto implant = std::make_shared<Implant3D>();
    shape(*implant, x);
    return implant;
}

// One triangle of 1 mm at half the height of the implants, from x to x + 1.
geometry::Mesh triangleAt(float x)
{
    geometry::Mesh mesh({QVector3D(x, 0, -5), QVector3D(x + 1, 0, -5), QVector3D(x, 1, -5)}, {});
    mesh.addTriangle(0, 1, 2);
    return mesh;
}

// Through the surfaces of all implants and zones.
geometry::Mesh triangleThroughAll()
{
    geometry::Mesh mesh({QVector3D(-20, 0, -5), QVector3D(60, 0, -5), QVector3D(-20, 1, -5)}, {});
    mesh.addTriangle(0, 1, 2);
    return mesh;
}

NervePointer nerveAt(float x)
{
    auto nerve = std::make_shared<Nerve>();
    nerve->setMesh(triangleAt(x));
    return nerve;
}

std::unique_ptr<geometry::ShapeNode> treeOf(const geometry::Mesh& mesh)
{
    auto root = std::make_unique<geometry::ShapeNode>(QStringLiteral("Pin"));
    auto node = std::make_unique<geometry::ShapeNode>(QStringLiteral("Shaft"));
    node->setShape(geometry::Shape(mesh));
    root->addChild(node.release());
    return root;
}

PinPointer pinAt(float x)
{
    auto pin = std::make_shared<AnchorPin3D>();
    pin->setShapeNode(treeOf(triangleAt(0.0F)));
    pin->setObjectTransform(at(x));
    return pin;
}

class Listener : public patterns::Observer<ImplantCollisionDetector, std::nullptr_t>
{
public:
    std::vector<ImplantCollisionDetector*> changes;
    int destructions = 0;
    std::function<void()> onChange;
    std::function<void()> onDestruction;

private:
    void changedEvent(ImplantCollisionDetector* subject) override
    {
        changes.push_back(subject);
        if (onChange)
            onChange();
    }
    void destroyed(ImplantCollisionDetector*) override
    {
        ++destructions;
        if (onDestruction)
            onDestruction();
    }
};

struct ImplantCollisionDetectorTest : testing::Test
{
    ImplantCollisionDetectorTest() { detector.attach(&listener); }

    // Names these as changed.
    void detect(const std::unordered_set<ImplantPointer>& changedImplants,
                const std::unordered_set<NervePointer>& changedNerves = {},
                const std::unordered_set<PinPointer>& changedPins = {})
    {
        detector.prepareAndStartDetection(implants, changedImplants, pins, changedPins, nerves,
                                          changedNerves);
    }
    void detectAll()
    {
        detect({implants.begin(), implants.end()}, {nerves.begin(), nerves.end()},
               {pins.begin(), pins.end()});
    }
    const ImplantCollisions& found() const { return detector.getImplantCollisions(); }
    std::size_t told() const { return listener.changes.size(); }

    geometry::ShapeLoader loader;
    ImplantCollisionDetector detector{loader};
    Listener listener;
    ImplantPointer a = implantAt(0.0F);
    ImplantPointer b = implantAt(20.0F);
    ImplantPointer c = implantAt(40.0F);
    NervePointer nerve = nerveAt(50.0F);
    PinPointer pin = pinAt(60.0F);
    QSet<ImplantPointer> implants{a, b, c};
    QSet<NervePointer> nerves{nerve};
    QSet<PinPointer> pins{pin};
};

// ---- the verdicts

TEST_F(ImplantCollisionDetectorTest, NewDetectorHasNoCollisionsCachesOrObservers)
{
    ImplantCollisionDetector fresh(loader);
    EXPECT_TRUE(fresh.getImplantCollisions() == ImplantCollisions());
    EXPECT_TRUE(Access::zones(fresh).isEmpty());
    EXPECT_TRUE(Access::nerves(fresh).isEmpty());
    EXPECT_TRUE(Access::pins(fresh).isEmpty());
    EXPECT_EQ(fresh.getNumObservers(), 0);
    EXPECT_EQ(&Access::loader(fresh), &loader);
    EXPECT_NE(Access::factory(fresh), nullptr);
    EXPECT_TRUE(fresh.canNotifyObservers());
}

TEST_F(ImplantCollisionDetectorTest, PlanWithoutCollisionsHasNoneAndTellsNobody)
{
    detectAll();
    EXPECT_TRUE(found() == ImplantCollisions());
    EXPECT_EQ(told(), 0U);
}

TEST_F(ImplantCollisionDetectorTest, MovingOneImplantIntoAnotherAddsOnePairAndNotifiesOnce)
{
    detectAll();
    a->setObjectTransform(at(17.0F));
    detector.shapeHasChanged(a);
    detect({a});
    EXPECT_EQ(found().implantImplantCollisions, (ImplantPairs{makePair(a, b)}));
    EXPECT_TRUE(found().implantNerveCollisions.isEmpty());
    EXPECT_TRUE(found().implantAnchorPinCollisions.isEmpty());
    EXPECT_THAT(listener.changes, ElementsAre(&detector));
    detect({a});
    detect({b});
    detectAll();
    EXPECT_EQ(told(), 1U);
}

TEST_F(ImplantCollisionDetectorTest, MovingTheImplantAwayTakesThePairOutAndNotifies)
{
    a->setObjectTransform(at(17.0F));
    detectAll();
    EXPECT_TRUE(detector.isColliding(*a));
    a->setObjectTransform(at(0.0F));
    detector.shapeHasChanged(a);
    detect({a});
    EXPECT_TRUE(found() == ImplantCollisions());
    EXPECT_EQ(told(), 2U);
}

// Bodies of radius 2 mm at a distance of 4 mm share the upright line at x = 2.
TEST_F(ImplantCollisionDetectorTest, TouchingImplantsCollideThoseAFloatApartDoNot)
{
    b->setObjectTransform(at(4.0F));
    detectAll();
    EXPECT_TRUE(detector.isColliding(*a));
    b->setObjectTransform(at(0x1.000002p+2F)); // the float after 4
    detector.shapeHasChanged(b);
    detect({b});
    EXPECT_FALSE(detector.isColliding(*a));
}

// The triangle reaches from x = 3 to 4, through the zone's surface at 3.5 and past the body's at 2.
TEST_F(ImplantCollisionDetectorTest, ZoneCountsForNervesOnlyTheBodyForImplants)
{
    nerve->setMesh(triangleAt(3.0F));
    b->setObjectTransform(at(7.0F)); // 1.5 mm from the nerve too, and the zones touch
    detectAll();
    EXPECT_EQ(found().implantNerveCollisions, (NervePairs{makePair(a, nerve), makePair(b, nerve)}));
    EXPECT_TRUE(detector.isCollidingWithNerve(*a));
    EXPECT_TRUE(detector.isCollidingWithNerve(*b));
    EXPECT_FALSE(detector.isCollidingWithNerve(*c));
    EXPECT_FALSE(detector.isColliding(*a));
    EXPECT_FALSE(detector.isCollidingWithAnchorPin(*a));
    EXPECT_TRUE(detector.getCollidingImplants().isEmpty());
    EXPECT_TRUE(detector.getCollidingImplants(*a).isEmpty());
}

// The corner (3.5, 0, -5) lies on an upright edge of the zone.
TEST_F(ImplantCollisionDetectorTest, NerveThatOnlyTouchesTheZoneCollides)
{
    nerve->setMesh(triangleAt(3.5F));
    detectAll();
    EXPECT_TRUE(detector.isCollidingWithNerve(*a));
    EXPECT_FALSE(detector.isColliding(*a));
    EXPECT_TRUE(detector.getCollidingImplants().isEmpty());
}

TEST_F(ImplantCollisionDetectorTest, ZoneCountsForPins)
{
    pin->setObjectTransform(at(3.0F));
    detectAll();
    EXPECT_EQ(found().implantAnchorPinCollisions, (PinPairs{makePair(a, pin)}));
    EXPECT_TRUE(detector.isColliding(*pin));
    EXPECT_TRUE(detector.isCollidingWithAnchorPin(*a));
    EXPECT_FALSE(detector.isCollidingWithAnchorPin(*b));
    EXPECT_FALSE(detector.isCollidingWithNerve(*a));
    EXPECT_FALSE(detector.isColliding(*a));
    EXPECT_TRUE(detector.getCollidingImplants().isEmpty());
    EXPECT_FALSE(detector.isColliding(*pinAt(3.0F))); // another one
}

// The margin of 3.0 is 1.5 mm to the sides, 3 mm below the apex at z = -10.
TEST_F(ImplantCollisionDetectorTest, MarginIsHalfToTheSidesAndWholeBelowTheApex)
{
    nerve->setMesh(triangleAt(3.625F)); // 1.625 mm beside the body
    detectAll();
    EXPECT_FALSE(detector.isCollidingWithNerve(*a));
    geometry::Mesh below(
        {QVector3D(-4, 0, -12.75F), QVector3D(4, 0, -12.75F), QVector3D(0, 4, -12.75F)}, {});
    below.addTriangle(0, 1, 2);
    nerve->setMesh(below);
    detector.shapeHasChanged(nerve);
    detect({}, {nerve});
    EXPECT_TRUE(detector.isCollidingWithNerve(*a));
}

TEST_F(ImplantCollisionDetectorTest, WhatLiesInsideWithoutTouchingDoesNotCollide)
{
    nerve->setMesh(triangleAt(1.0F)); // inside the zone, through the body's surface
    pin->setObjectTransform(at(0.0F));
    auto thin = implantAt(0.0F);
    thin->setDimensions({1.0F, 5.0F});
    thin->setObjectTransform(at(0.0F, 0.0F, -2.0F));
    implants = {a, thin};
    detectAll();
    EXPECT_FALSE(detector.isCollidingWithNerve(*a));
    EXPECT_FALSE(detector.isCollidingWithAnchorPin(*a));
    EXPECT_FALSE(detector.isColliding(*a));
}

TEST_F(ImplantCollisionDetectorTest, CollidingImplantsAreBothMembersOfEveryPair)
{
    b->setObjectTransform(at(3.0F));
    c->setObjectTransform(at(6.0F));
    auto apart = implantAt(100.0F);
    implants.insert(apart);
    detectAll();
    EXPECT_EQ(detector.getCollidingImplants(), (QSet<std::shared_ptr<const Implant3D>>{a, b, c}));
    EXPECT_EQ(detector.getCollidingImplants(*a), (QSet<ImplantPointer>{b}));
    EXPECT_EQ(detector.getCollidingImplants(*b), (QSet<ImplantPointer>{a, c}));
    EXPECT_EQ(detector.getCollidingImplants(*c), (QSet<ImplantPointer>{b}));
    EXPECT_TRUE(detector.getCollidingImplants(*apart).isEmpty());
    EXPECT_TRUE(detector.isColliding(*a) && detector.isColliding(*b) && detector.isColliding(*c));
    EXPECT_FALSE(detector.isColliding(*apart));
}

TEST_F(ImplantCollisionDetectorTest, ImplantThatNoSharedPointerOwnsIsNotColliding)
{
    Implant3D onStack;
    shape(onStack, 0.0F);
    EXPECT_FALSE(detector.isColliding(onStack));
    EXPECT_TRUE(detector.getCollidingImplants(onStack).isEmpty());
    EXPECT_FALSE(detector.isCollidingWithNerve(onStack));
    EXPECT_FALSE(detector.isCollidingWithAnchorPin(onStack));
}

// ---- which pairs are tested

TEST_F(ImplantCollisionDetectorTest, NothingChangedTestsNothingAndTellsNobody)
{
    b->setObjectTransform(at(3.0F));
    detect({});
    EXPECT_TRUE(found() == ImplantCollisions());
    EXPECT_TRUE(Access::zones(detector).isEmpty());
    EXPECT_TRUE(Access::nerves(detector).isEmpty());
    EXPECT_TRUE(Access::pins(detector).isEmpty());
    EXPECT_EQ(told(), 0U);
}

TEST_F(ImplantCollisionDetectorTest, ChangedImplantIsNeverPairedWithItself)
{
    implants = {a};
    nerves.clear();
    pins.clear();
    detect({a});
    EXPECT_TRUE(Access::zones(detector).isEmpty());
    EXPECT_TRUE(found() == ImplantCollisions());
    implants = {a, b};
    b->setObjectTransform(at(3.0F));
    detectAll();
    EXPECT_EQ(found().implantImplantCollisions, (ImplantPairs{makePair(a, b)}));
}

TEST_F(ImplantCollisionDetectorTest, ChangedNerveIsTestedWithEveryImplantOfThePlan)
{
    nerve->setMesh(triangleAt(3.0F));
    b->setObjectTransform(at(7.0F));
    detect({}, {nerve});
    EXPECT_EQ(found().implantNerveCollisions.size(), 2);
    EXPECT_EQ(Access::zones(detector).size(), 3);
    EXPECT_TRUE(Access::pins(detector).isEmpty());
}

TEST_F(ImplantCollisionDetectorTest, ChangedPinIsTestedWithEveryImplantOfThePlan)
{
    pin->setObjectTransform(at(3.0F));
    b->setObjectTransform(at(7.0F));
    detect({}, {}, {pin});
    EXPECT_EQ(found().implantAnchorPinCollisions.size(), 2);
    EXPECT_EQ(Access::zones(detector).size(), 3);
    EXPECT_TRUE(Access::nerves(detector).isEmpty());
}

TEST_F(ImplantCollisionDetectorTest, ChangedObjectThatIsMissingFromThePlanIsStillPaired)
{
    auto strayImplant = implantAt(2.0F);
    auto strayNerve = nerveAt(3.0F);
    auto strayPin = pinAt(3.0F);
    detect({strayImplant}, {strayNerve}, {strayPin});
    EXPECT_EQ(found().implantImplantCollisions, (ImplantPairs{makePair(a, strayImplant)}));
    // The stray implant is tested with the nerves and pins of the plan, not with other strays.
    EXPECT_EQ(found().implantNerveCollisions, (NervePairs{makePair(a, strayNerve)}));
    EXPECT_EQ(found().implantAnchorPinCollisions, (PinPairs{makePair(a, strayPin)}));
}

TEST_F(ImplantCollisionDetectorTest, PairsWithoutAChangedObjectKeepTheirVerdicts)
{
    b->setObjectTransform(at(3.0F));
    detectAll();
    b->setObjectTransform(at(20.0F));
    detector.shapeHasChanged(b);
    detect({c});
    EXPECT_TRUE(detector.isColliding(*a)); // though they are apart by now
    EXPECT_EQ(told(), 1U);
    detect({a});
    EXPECT_FALSE(detector.isColliding(*a));
    EXPECT_EQ(told(), 2U);
}

TEST_F(ImplantCollisionDetectorTest, ObjectThatLeavesThePlanKeepsItsVerdictsUntilItIsRemoved)
{
    b->setObjectTransform(at(3.0F));
    detectAll();
    implants.remove(b);
    detectAll();
    EXPECT_TRUE(detector.isColliding(*b));
    detector.remove(b);
    EXPECT_FALSE(detector.isColliding(*b));
}

// ---- the caches

TEST_F(ImplantCollisionDetectorTest, WithoutShapeHasChangedTheOldPlacementIsTested)
{
    detectAll();
    a->setObjectTransform(at(17.0F));
    nerve->setMesh(triangleAt(43.0F));
    pin->setObjectTransform(at(43.0F));
    detectAll();
    EXPECT_TRUE(found() == ImplantCollisions());
    EXPECT_EQ(told(), 0U);
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

TEST_F(ImplantCollisionDetectorTest, ShapeHasChangedTestsAndTellsNothing)
{
    b->setObjectTransform(at(3.0F));
    detectAll();
    const ImplantCollisions before = found();
    for (const auto& implant : {a, b, c})
        detector.shapeHasChanged(implant);
    detector.shapeHasChanged(nerve);
    detector.shapeHasChanged(pin);
    EXPECT_TRUE(found() == before);
    EXPECT_EQ(told(), 1U);
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

// A zone of another margin, which the detector never makes, stays.
TEST_F(ImplantCollisionDetectorTest, RemovingTheZonesOfAnImplantErasesBothMargins)
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

// Bodies of 150 mm are divided in two, nerves every 5 mm.
TEST_F(ImplantCollisionDetectorTest, ZonesAndPinsHaveCellsOf100Nerves5Millimetres)
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
    expected.implantImplantCollisions = {makePair(a, c)}; // not asked about
    EXPECT_TRUE(Access::calculate(detector, pairs) == expected);
    EXPECT_TRUE(Access::zones(detector).isEmpty());
    EXPECT_TRUE(Access::nerves(detector).isEmpty());
    EXPECT_TRUE(Access::pins(detector).isEmpty());
    EXPECT_EQ(found().implantImplantCollisions.size(), 2); // the detector's own are left alone
}

// ---- removing

TEST_F(ImplantCollisionDetectorTest, RemoveNotifiesThoughNothingIsRemoved)
{
    detector.remove(a);
    EXPECT_EQ(told(), 1U);
    detector.remove(nerve);
    EXPECT_EQ(told(), 2U);
    detector.remove(pin);
    EXPECT_EQ(told(), 3U);
    detector.remove(a);
    EXPECT_EQ(told(), 4U);
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
    EXPECT_EQ(told(), 2U);
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
    EXPECT_EQ(told(), 2U);
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
    EXPECT_EQ(told(), 2U);
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

// The pointers that are handed over stand in the sets that they are taken out of.
TEST_F(ImplantCollisionDetectorTest, RemoveTakesAPointerOfTheVerdictsThemselves)
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

TEST_F(ImplantCollisionDetectorTest, OneCallTellsOnceHoweverManyVerdictsChange)
{
    b->setObjectTransform(at(3.0F));
    c->setObjectTransform(at(6.0F));
    nerve->setMesh(triangleAt(3.0F));
    pin->setObjectTransform(at(3.0F));
    detectAll();
    EXPECT_EQ(told(), 1U);
}

TEST_F(ImplantCollisionDetectorTest, ChangeOfAnyKindOfPairTells)
{
    nerve->setMesh(triangleAt(3.0F));
    detect({}, {nerve});
    EXPECT_EQ(told(), 1U);
    pin->setObjectTransform(at(3.0F));
    detect({}, {}, {pin});
    EXPECT_EQ(told(), 2U);
}

TEST_F(ImplantCollisionDetectorTest, DestructionReleasesTheObjectsThenTellsObservers)
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

// ---- what the host is asked, in which order

using Log = std::vector<std::string>;

class RecordingImplant : public Implant3D
{
public:
    RecordingImplant(std::string ownName, Log& hostLog) : name(std::move(ownName)), log(hostLog) {}

    const dataobject::ImplantDimensions& getDimensions() const override
    {
        log.push_back(name + ".getDimensions");
        return Implant3D::getDimensions();
    }
    const QMatrix4x4& getObjectTransform() const override
    {
        log.push_back(name + ".getObjectTransform");
        return Implant3D::getObjectTransform();
    }

    std::string name;

private:
    Log& log;
};

class RecordingNerve : public Nerve
{
public:
    explicit RecordingNerve(Log& hostLog) : log(hostLog) {}

    const geometry::Mesh& getMesh() const override
    {
        log.emplace_back("nerve.getMesh");
        return Nerve::getMesh();
    }
    const QMatrix4x4& getObjectTransform() const override
    {
        log.emplace_back("nerve.getObjectTransform");
        return Nerve::getObjectTransform();
    }
    primitives::BoundingBox getSceneBoundingBox() const override
    {
        log.emplace_back("nerve.getSceneBoundingBox");
        return {-20.0F, 0.0F, -5.0F, 60.0F, 1.0F, -5.0F};
    }

private:
    Log& log;
};

class RecordingPin : public AnchorPin3D
{
public:
    explicit RecordingPin(Log& hostLog) : log(hostLog) {}

    geometry::ShapeNode* getShapeNode() override
    {
        log.emplace_back("pin.getShapeNode");
        return AnchorPin3D::getShapeNode();
    }
    const QMatrix4x4& getObjectTransform() const override
    {
        log.emplace_back("pin.getObjectTransform");
        return AnchorPin3D::getObjectTransform();
    }

private:
    Log& log;
};

struct HostCalls : ImplantCollisionDetectorTest
{
    HostCalls()
    {
        shape(*low, 0.0F);
        shape(*high, 3.0F);
        if (std::less<>()(high.get(), low.get())) {
            std::swap(low, high);
            std::swap(low->name, high->name);
        }
        recordingNerve->setMesh(triangleThroughAll());
        recordingPin->setShapeNode(treeOf(triangleThroughAll()));
        implants = {low, high};
        nerves = {recordingNerve};
        pins = {recordingPin};
        log.clear();
    }

    // The order in which objects are asked; several calls to one in a row count once.
    Log objectsAsked() const
    {
        Log objects;
        for (const std::string& call : log) {
            const std::string object = call.substr(0, call.find('.'));
            if (objects.empty() || objects.back() != object)
                objects.push_back(object);
        }
        return objects;
    }

    Log log;
    std::shared_ptr<RecordingImplant> low = std::make_shared<RecordingImplant>("low", log);
    std::shared_ptr<RecordingImplant> high = std::make_shared<RecordingImplant>("high", log);
    std::shared_ptr<RecordingNerve> recordingNerve = std::make_shared<RecordingNerve>(log);
    std::shared_ptr<RecordingPin> recordingPin = std::make_shared<RecordingPin>(log);
};

// Bodies for the pair of implants, the one at the lower address first; then the zones with the
// nerve; then the pin, whose zones are there by then.
TEST_F(HostCalls, ImplantPairsThenNervesThenPins)
{
    detect({low});
    EXPECT_THAT(objectsAsked(), ElementsAre("low", "high", "low", "nerve", "pin"));
    log.clear();
    detector.shapeHasChanged(high);
    detect({high});
    EXPECT_THAT(objectsAsked(), ElementsAre("high")); // the rest is cached
}

// Of an implant the measures, six times for every zone: to see that it has a body, then radius,
// length and half the length of the body, radius and length of the cap.
TEST_F(HostCalls, OfEachObjectComeInOrder)
{
    implants = {low};
    detect({low});
    Log zone(6, "low.getDimensions");
    zone.emplace_back("low.getObjectTransform");
    Log expected = zone;
    expected.insert(expected.end(),
                    {"nerve.getSceneBoundingBox", "nerve.getMesh", "nerve.getObjectTransform",
                     "pin.getShapeNode", "pin.getObjectTransform"});
    EXPECT_EQ(log, expected);

    log.clear();
    implants = {low, high};
    Log bodies = zone;
    for (std::string call : zone)
        bodies.push_back(call.replace(0, 3, "high"));
    nerves.clear();
    pins.clear();
    detect({high});
    EXPECT_EQ(log, bodies);
}

TEST_F(HostCalls, AnImplantWithoutABodyIsAskedForItsMeasuresAlone)
{
    low->setDimensions({4.0F, 0.0F});
    implants = {low};
    log.clear();
    detect({low});
    EXPECT_EQ(std::count(log.begin(), log.end(), "low.getDimensions"), 1);
    EXPECT_EQ(std::count(log.begin(), log.end(), "low.getObjectTransform"), 0);
    log.clear();
    detect({low});
    EXPECT_TRUE(log.empty()); // that it has none is cached
}

TEST_F(HostCalls, ZoneIsMadeBeforeTheNerveOrPinOfThePair)
{
    implants = {low};
    detect({}, {recordingNerve});
    EXPECT_THAT(objectsAsked(), ElementsAre("low", "nerve"));
    log.clear();
    detector.shapeHasChanged(ImplantPointer(low));
    detect({}, {}, {recordingPin});
    EXPECT_THAT(objectsAsked(), ElementsAre("low", "pin"));
}

TEST_F(HostCalls, EachPlacementIsReadOncePerCachedMesh)
{
    detectAll();
    const auto count = [this](const std::string& call) {
        return std::count(log.begin(), log.end(), call);
    };
    EXPECT_EQ(count("low.getObjectTransform"), 2); // body and zone
    EXPECT_EQ(count("high.getObjectTransform"), 2);
    EXPECT_EQ(count("nerve.getObjectTransform"), 1);
    EXPECT_EQ(count("pin.getObjectTransform"), 1);
    EXPECT_EQ(count("pin.getShapeNode"), 1);
}

TEST_F(HostCalls, NothingIsAskedOfCachedObjects)
{
    detectAll();
    ASSERT_FALSE(log.empty());
    log.clear();
    detectAll();
    detect({});
    EXPECT_TRUE(log.empty());
}

TEST_F(HostCalls, NothingIsAskedByQuestionsRemovalsAndShapeHasChanged)
{
    detectAll();
    log.clear();
    EXPECT_TRUE(detector.isColliding(*low));
    EXPECT_TRUE(detector.isColliding(*recordingPin));
    EXPECT_TRUE(detector.isCollidingWithNerve(*low));
    EXPECT_TRUE(detector.isCollidingWithAnchorPin(*low));
    EXPECT_EQ(detector.getCollidingImplants().size(), 2);
    detector.shapeHasChanged(ImplantPointer(low));
    detector.remove(NervePointer(recordingNerve));
    detector.remove(PinPointer(recordingPin));
    detector.remove(ImplantPointer(high));
    EXPECT_TRUE(log.empty());
}

// ---- which object is the first operand of the overlap test
//
// A segment, being a triangle without a plane, is seen along y if it is the first operand: in the
// level lid of a zone it is lost then, in an upright one it is found. As the second operand it is
// found in both.

geometry::Mesh segmentInTheLid(bool upright)
{
    geometry::Mesh mesh(upright ? QList<QVector3D>{QVector3D(-1, 0, 0.5F), QVector3D(1, 0, 0.75F),
                                                   QVector3D(1, 0, 0.75F)}
                                : QList<QVector3D>{QVector3D(-1, 0.5F, 0), QVector3D(1, 0.75F, 0),
                                                   QVector3D(1, 0.75F, 0)},
                        {});
    mesh.addTriangle(0, 1, 2);
    return mesh;
}

// The implant's axis along y, its lid in the plane y = 0.
QMatrix4x4 lyingDown()
{
    return {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1};
}

TEST_F(ImplantCollisionDetectorTest, NerveIsTheFirstOperandByDesign)
{
    nerve->setMesh(segmentInTheLid(false));
    detectAll();
    EXPECT_FALSE(detector.isCollidingWithNerve(*a));
    nerve->setMesh(segmentInTheLid(true));
    a->setObjectTransform(lyingDown());
    detector.shapeHasChanged(a);
    detector.shapeHasChanged(nerve);
    detectAll();
    EXPECT_TRUE(detector.isCollidingWithNerve(*a));
}

TEST_F(ImplantCollisionDetectorTest, PinIsTheFirstOperandByDesign)
{
    pin->setShapeNode(treeOf(segmentInTheLid(false)));
    pin->setObjectTransform({});
    detectAll();
    EXPECT_FALSE(detector.isCollidingWithAnchorPin(*a));
    pin->setShapeNode(treeOf(segmentInTheLid(true)));
    a->setObjectTransform(lyingDown());
    detector.shapeHasChanged(a);
    detector.shapeHasChanged(pin);
    detectAll();
    EXPECT_TRUE(detector.isCollidingWithAnchorPin(*a));
}

// Two level implants in a tilted frame, 1.5 mm apart, that are reported in one order only: a known
// limit.
TEST_F(ImplantCollisionDetectorTest, ImplantAtTheLowerAddressIsTheFirstOperandByDesign)
{
    const QMatrix4x4 aboutY(0.8F, 0, 0.6F, 10, 0, 1, 0, 20, -0.6F, 0, 0.8F, 30, 0, 0, 0, 1);
    const QMatrix4x4 aboutX(1, 0, 0, 0, 0, 0.6F, -0.8F, 0, 0, 0.8F, 0.6F, 0, 0, 0, 0, 1);
    const QMatrix4x4 here = aboutY * aboutX;
    QMatrix4x4 there = here;
    there.translate(0.0F, 5.5F, 0.0F);
    const auto [low, high] = makePair(a, b);
    implants = {a, b};
    low->setObjectTransform(here);
    high->setObjectTransform(there);
    detectAll();
    EXPECT_TRUE(detector.isColliding(*low));
    low->setObjectTransform(there);
    high->setObjectTransform(here);
    detector.shapeHasChanged(low);
    detector.shapeHasChanged(high);
    detectAll();
    EXPECT_FALSE(detector.isColliding(*low));
}

// ---- bad input

TEST_F(ImplantCollisionDetectorTest, NullMembersArePassedOver)
{
    b->setObjectTransform(at(3.0F));
    nerve->setMesh(triangleAt(3.0F));
    pin->setObjectTransform(at(3.0F));
    implants.insert(nullptr);
    nerves.insert(nullptr);
    pins.insert(nullptr);
    detect({nullptr, a}, {nullptr, nerve}, {nullptr, pin});
    EXPECT_EQ(found().implantImplantCollisions.size(), 1);
    EXPECT_EQ(found().implantNerveCollisions.size(), 1);
    EXPECT_EQ(found().implantAnchorPinCollisions.size(), 1);
    EXPECT_EQ(told(), 1U);
    detector.shapeHasChanged(ImplantPointer());
    detector.shapeHasChanged(NervePointer());
    detector.shapeHasChanged(PinPointer());
    detector.remove(ImplantPointer());
    detector.remove(NervePointer());
    detector.remove(PinPointer());
    EXPECT_EQ(found().implantImplantCollisions.size(), 1);
    EXPECT_EQ(told(), 4U);
}

TEST_F(ImplantCollisionDetectorTest, EmptySetsAreAPlanWithoutObjects)
{
    detector.prepareAndStartDetection({}, {}, {}, {}, {}, {});
    detector.prepareAndStartDetection({}, {a}, {}, {pin}, {}, {nerve});
    EXPECT_TRUE(found() == ImplantCollisions());
    EXPECT_EQ(told(), 0U);
}

TEST_F(ImplantCollisionDetectorTest, ImplantOfOddMeasuresCollidesWithNothingAndTheOthersAreTested)
{
    const std::vector<dataobject::ImplantDimensions> odd{
        {0.0F, 10.0F}, {4.0F, 0.0F}, {-4.0F, 10.0F},     {4.0F, -10.0F},    {kNan, 10.0F},
        {4.0F, kNan},  {0.0F, 0.0F}, {kInfinity, 10.0F}, {4.0F, kInfinity}, {-kInfinity, kNan}};
    b->setObjectTransform(at(3.0F));
    nerve->setMesh(triangleAt(3.0F));
    pin->setObjectTransform(at(3.0F));
    for (const dataobject::ImplantDimensions& dimensions : odd) {
        SCOPED_TRACE(dimensions.diameter);
        SCOPED_TRACE(dimensions.length);
        auto bad = implantAt(1.0F);
        bad->setDimensions(dimensions);
        implants.insert(bad);
        detectAll();
        EXPECT_FALSE(detector.isColliding(*bad));
        EXPECT_FALSE(detector.isCollidingWithNerve(*bad));
        EXPECT_FALSE(detector.isCollidingWithAnchorPin(*bad));
        EXPECT_TRUE(detector.isColliding(*a) && detector.isColliding(*b));
        EXPECT_EQ(found().implantNerveCollisions.size(), 1);
        EXPECT_EQ(found().implantAnchorPinCollisions.size(), 1);
        EXPECT_EQ(bad->getObjectTransform(), at(1.0F));
        implants.remove(bad);
        detector.remove(bad);
    }
}

// Its lid is in one plane with theirs, which lie inside it. It reaches through the nerve and the
// pin, too, but their surfaces do not meet its own.
TEST_F(ImplantCollisionDetectorTest, AnImplantOfAKilometerCollidesWithThoseWhoseLidsAreInItsLid)
{
    a->setDimensions({1e6F, 1e6F});
    detectAll();
    EXPECT_EQ(detector.getCollidingImplants(*a), (QSet<ImplantPointer>{b, c}));
    EXPECT_FALSE(detector.isCollidingWithNerve(*a));
    EXPECT_FALSE(detector.isCollidingWithAnchorPin(*a));
}

// The distances from its planes are infinite or no numbers, which rule nothing out.
TEST_F(ImplantCollisionDetectorTest, AnImplantOfTheLargestFloatCollidesWithEverythingInItsBox)
{
    a->setDimensions({std::numeric_limits<float>::max(), std::numeric_limits<float>::max()});
    detectAll();
    EXPECT_EQ(detector.getCollidingImplants(*a), (QSet<ImplantPointer>{b, c}));
    EXPECT_TRUE(detector.isCollidingWithNerve(*a));
    EXPECT_TRUE(detector.isCollidingWithAnchorPin(*a));
    EXPECT_FALSE(detector.isColliding(*b) && detector.getCollidingImplants(*b).contains(c));
}

// Its body is a point for all that matters, here inside another implant. Its zone is as large as
// the margin: 1.5 mm to the sides of the cone.
TEST_F(ImplantCollisionDetectorTest, AnImplantOfTheSmallestFloatHasAZoneButMeetsNoBodyAroundIt)
{
    a->setDimensions({std::numeric_limits<float>::min(), std::numeric_limits<float>::min()});
    b->setObjectTransform(at(1.0F, 0.0F, 5.0F));
    nerve->setMesh(triangleThroughAll());
    nerve->setObjectTransform(at(0.0F, 0.0F, 4.0F)); // to z = -1, through the cone
    detectAll();
    EXPECT_FALSE(detector.isColliding(*a));
    EXPECT_TRUE(detector.isCollidingWithNerve(*a));
}

// Bodies of 10 km are in 100,000 cells, a nerve of 20 m is in 4,000.
TEST_F(ImplantCollisionDetectorTest, ImplantsOfKilometersAreTestedWithEachOtherAndWithNerves)
{
    a->setDimensions({4.0F, 1e7F});
    b->setDimensions({4.0F, 1e7F});
    b->setObjectTransform(at(8.0F)); // the zones end at x = 3.5 and start at 4.5
    geometry::Mesh between(
        {QVector3D(3.75F, 0, -5), QVector3D(4.25F, 0, -5), QVector3D(4, 0, -20000)}, {});
    between.addTriangle(0, 1, 2);
    nerve->setMesh(between);
    detectAll();
    EXPECT_FALSE(detector.isColliding(*a));
    EXPECT_FALSE(detector.isCollidingWithNerve(*a));
    EXPECT_FALSE(detector.isCollidingWithNerve(*b));
    b->setObjectTransform(at(7.5F));
    detector.shapeHasChanged(b);
    detect({b});
    EXPECT_FALSE(detector.isColliding(*a));
    EXPECT_FALSE(detector.isCollidingWithNerve(*a));
    EXPECT_TRUE(detector.isCollidingWithNerve(*b));
    b->setObjectTransform(at(3.0F));
    detector.shapeHasChanged(b);
    detect({b});
    EXPECT_TRUE(detector.isColliding(*a));
}

TEST_F(ImplantCollisionDetectorTest, PlacementThatIsNotFiniteCollidesWithNothing)
{
    nerve->setMesh(triangleAt(3.0F));
    for (const float coordinate : {kNan, kInfinity, -kInfinity}) {
        b->setObjectTransform(at(coordinate));
        pin->setObjectTransform(at(0.0F, coordinate));
        detector.shapeHasChanged(b);
        detector.shapeHasChanged(pin);
        detectAll();
        EXPECT_FALSE(detector.isColliding(*b));
        EXPECT_FALSE(detector.isColliding(*pin));
        EXPECT_TRUE(detector.isCollidingWithNerve(*a));
    }
}

TEST_F(ImplantCollisionDetectorTest, EmptyAndUnusableNervesCollideWithNothing)
{
    const QList<QVector3D> vertices{QVector3D(3, 0, -5), QVector3D(4, 0, -5), QVector3D(3, 1, -5)};
    const std::vector<geometry::Mesh> unusable{
        {},
        {vertices, {}},
        {vertices, {0, 1, 2}},
        {vertices, {0, 1, 3, -1}},
        {vertices, {0, -1, 2, -1}},
        {vertices, {0, 1, 2, -1, 0, 1, 1000000000, -1}},
        {{}, {0, 1, 2, -1}},
        {{QVector3D(kNan, 0, -5), QVector3D(4, 0, -5), QVector3D(3, 1, -5)}, {0, 1, 2, -1}},
        {{QVector3D(3, 0, -5), QVector3D(kInfinity, 0, -5), QVector3D(3, 1, -5)}, {0, 1, 2, -1}}};
    auto good = nerveAt(3.0F);
    nerves.insert(good);
    for (const geometry::Mesh& mesh : unusable) {
        nerve->setMesh(mesh);
        detector.shapeHasChanged(nerve);
        detectAll();
        EXPECT_EQ(found().implantNerveCollisions, (NervePairs{makePair(a, good)}));
    }
}

TEST_F(ImplantCollisionDetectorTest, PinsWithoutUsableShapesCollideWithNothing)
{
    auto good = pinAt(3.0F);
    pins.insert(good);
    const auto expectOnlyGood = [&] {
        detector.shapeHasChanged(pin);
        detectAll();
        EXPECT_EQ(found().implantAnchorPinCollisions, (PinPairs{makePair(a, good)}));
    };
    pin->setObjectTransform(at(3.0F));
    pin->setShapeNode(nullptr);
    expectOnlyGood();
    pin->setShapeNode(std::make_unique<geometry::ShapeNode>(QStringLiteral("Bare")));
    expectOnlyGood();
    pin->setShapeNode(treeOf({}));
    expectOnlyGood();
    pin->setShapeNode(treeOf({triangleAt(0.0F).getVertices(), {0, 1, 99, -1}}));
    expectOnlyGood();
    pin->setShapeNode(
        treeOf({{QVector3D(0, 0, kNan), QVector3D(1, 0, -5), QVector3D(0, 1, -5)}, {0, 1, 2, -1}}));
    expectOnlyGood();
}

// ---- translation

class RecordingTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override
    {
        asked = {context, sourceText, disambiguation ? disambiguation : "none", std::to_string(n)};
        return QStringLiteral("translated");
    }
    bool isEmpty() const override { return false; }

    mutable std::vector<std::string> asked;
};

TEST(ImplantCollisionDetectorTranslation, UsesTheContextOfTheClass)
{
    int argumentCount = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QCoreApplication application(argumentCount, arguments);
    RecordingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(ImplantCollisionDetector::tr("Too close", "warning", 3),
              QStringLiteral("translated"));
    EXPECT_THAT(translator.asked,
                ElementsAre("collision::ImplantCollisionDetector", "Too close", "warning", "3"));
    ImplantCollisionDetector::tr("Too close");
    EXPECT_THAT(translator.asked,
                ElementsAre("collision::ImplantCollisionDetector", "Too close", "none", "-1"));
    QCoreApplication::removeTranslator(&translator);
}

TEST(ImplantCollisionDetectorTranslation, IsTheSourceTextWithoutATranslator)
{
    EXPECT_EQ(ImplantCollisionDetector::tr("Too close", nullptr, 0), QStringLiteral("Too close"));
}

// ---- layout

using Base = patterns::Observable<ImplantCollisionDetector, std::nullptr_t>;

static_assert(std::is_base_of_v<Base, ImplantCollisionDetector>);
static_assert(std::has_virtual_destructor_v<ImplantCollisionDetector>);
static_assert(!std::is_copy_constructible_v<ImplantCollisionDetector>);
static_assert(!std::is_convertible_v<geometry::ShapeLoader&, ImplantCollisionDetector>);

TEST_F(ImplantCollisionDetectorTest, HoldsItsFieldsInOrder)
{
    const auto fields = Access::fields(detector);
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
    // The base, the loader, the factory, three sets of pairs, three caches.
    EXPECT_EQ(sizeof(ImplantCollisionDetector), sizeof(Base) + (1 + 1 + 3 + 3) * sizeof(void*));
}

#if defined(__GNUC__)

// In the Itanium C++ ABI a pointer to a virtual member function holds 1 + the byte offset of its
// slot; on ARM the 1 stands in the second word instead. The destructor takes slots 0 (complete) and
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
