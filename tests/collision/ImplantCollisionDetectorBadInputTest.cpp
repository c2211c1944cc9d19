// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

// Null objects, measures, placements and meshes that are invalid or extreme.

#include <tests/collision/DetectorFixture.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

namespace {

using collision::ImplantCollisions;
using collision::makePair;
using test::at;
using test::implantAt;
using test::ImplantCollisionDetectorTest;
using test::ImplantPointer;
using test::nerveAt;
using test::NervePairs;
using test::NervePointer;
using test::pinAt;
using test::PinPairs;
using test::PinPointer;
using test::treeOf;
using test::triangleAt;
using test::triangleThroughAll;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST_F(ImplantCollisionDetectorTest, NullMembersAreIgnored)
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
    EXPECT_EQ(numNotifications(), 1U);
    detector.shapeHasChanged(ImplantPointer());
    detector.shapeHasChanged(NervePointer());
    detector.shapeHasChanged(PinPointer());
    detector.remove(ImplantPointer());
    detector.remove(NervePointer());
    detector.remove(PinPointer());
    EXPECT_EQ(found().implantImplantCollisions.size(), 1);
    EXPECT_EQ(numNotifications(), 4U);
}

TEST_F(ImplantCollisionDetectorTest, EmptySetsAreAPlanWithoutObjects)
{
    detector.prepareAndStartDetection({}, {}, {}, {}, {}, {});
    detector.prepareAndStartDetection({}, {a}, {}, {pin}, {}, {nerve});
    EXPECT_TRUE(found() == ImplantCollisions());
    EXPECT_EQ(numNotifications(), 0U);
}

TEST_F(ImplantCollisionDetectorTest,
       ImplantWithInvalidMeasuresCollidesWithNothingAndTheOthersAreTested)
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

// The lids of the others are inside its lid, in one plane. The nerve and the pin are inside its
// body and do not meet its surface.
TEST_F(ImplantCollisionDetectorTest, AnImplantOfAKilometerCollidesWithThoseWhoseLidsAreInItsLid)
{
    a->setDimensions({1e6F, 1e6F});
    detectAll();
    EXPECT_EQ(detector.getCollidingImplants(*a), (QSet<ImplantPointer>{b, c}));
    EXPECT_FALSE(detector.isCollidingWithNerve(*a));
    EXPECT_FALSE(detector.isCollidingWithAnchorPin(*a));
}

// The distances from its planes are infinite or NaN, which rule nothing out.
TEST_F(ImplantCollisionDetectorTest, AnImplantOfTheLargestFloatCollidesWithEverythingInItsBox)
{
    a->setDimensions({std::numeric_limits<float>::max(), std::numeric_limits<float>::max()});
    detectAll();
    EXPECT_EQ(detector.getCollidingImplants(*a), (QSet<ImplantPointer>{b, c}));
    EXPECT_TRUE(detector.isCollidingWithNerve(*a));
    EXPECT_TRUE(detector.isCollidingWithAnchorPin(*a));
    EXPECT_FALSE(detector.isColliding(*b) && detector.getCollidingImplants(*b).contains(c));
}

// Its body is nearly a point, here inside another implant. Its zone is as large as the margin: the
// cone has a radius of 1.5 mm.
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

// Bodies of 10 km have 100,000 cells, a nerve of 20 m has 4,000.
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

} // namespace
