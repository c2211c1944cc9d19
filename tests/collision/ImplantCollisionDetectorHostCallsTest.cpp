// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

// Which operations of the host the detector calls, and in which order.

#include <tests/collision/DetectorFixture.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace {

using dataobject::AnchorPin3D;
using dataobject::Implant3D;
using dataobject::Nerve;
using test::ImplantCollisionDetectorTest;
using test::ImplantPointer;
using test::NervePointer;
using test::PinPointer;
using test::shape;
using test::treeOf;
using test::triangleThroughAll;
using testing::ElementsAre;

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

    // Returns the names of the objects in the order of their calls; several calls in a row to one
    // object count once.
    Log objectsCalled() const
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

// First the bodies of the pair of implants, beginning with the one at the lower address. Then the
// zone and the nerve. Then the pin, whose zone is cached already.
TEST_F(HostCalls, ComeForImplantPairsThenNervesThenPins)
{
    detect({low});
    EXPECT_THAT(objectsCalled(), ElementsAre("low", "high", "low", "nerve", "pin"));
    log.clear();
    detector.shapeHasChanged(high);
    detect({high});
    EXPECT_THAT(objectsCalled(), ElementsAre("high")); // the rest is cached
}

// The measures of an implant are read six times for every zone: to see that it has a body, then for
// the radius, the length and half the length of the body, then for the radius and length of the
// cap.
TEST_F(HostCalls, ComeInOneOrderForEachObject)
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

TEST_F(HostCalls, ReadOnlyTheMeasuresOfAnImplantWithoutABody)
{
    low->setDimensions({4.0F, 0.0F});
    implants = {low};
    log.clear();
    detect({low});
    EXPECT_EQ(std::count(log.begin(), log.end(), "low.getDimensions"), 1);
    EXPECT_EQ(std::count(log.begin(), log.end(), "low.getObjectTransform"), 0);
    log.clear();
    detect({low});
    EXPECT_TRUE(log.empty()); // the missing body is cached
}

TEST_F(HostCalls, ComeForTheZoneBeforeTheNerveOrPinOfThePair)
{
    implants = {low};
    detect({}, {recordingNerve});
    EXPECT_THAT(objectsCalled(), ElementsAre("low", "nerve"));
    log.clear();
    detector.shapeHasChanged(ImplantPointer(low));
    detect({}, {}, {recordingPin});
    EXPECT_THAT(objectsCalled(), ElementsAre("low", "pin"));
}

TEST_F(HostCalls, ReadEachPlacementOncePerCachedMesh)
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

TEST_F(HostCalls, DoNotComeForCachedObjects)
{
    detectAll();
    ASSERT_FALSE(log.empty());
    log.clear();
    detectAll();
    detect({});
    EXPECT_TRUE(log.empty());
}

TEST_F(HostCalls, DoNotComeFromQueriesRemovalsAndShapeHasChanged)
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

} // namespace
