// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantClearances.h>

// The clearances of a plan while it changes: what is measured again, what is kept, the queries, the
// notifications and bad input.

#include <CoreAlgorithms/model/patterns/Observer.h>
#include <tests/support/CollisionBuilders.h>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <unordered_set>

namespace {

using collision::Clearance;
using collision::ImplantClearances;
using collision::PlacedSurface;
using dataobject::AnchorPin3D;
using dataobject::Implant3D;
using dataobject::Nerve;
using test::makeCanal;
using test::makeImplant;
using test::makeNerve;
using test::makePin;
using ImplantPointer = std::shared_ptr<Implant3D>;
using NervePointer = std::shared_ptr<Nerve>;
using PinPointer = std::shared_ptr<AnchorPin3D>;

QMatrix4x4 at(float x, float y = 0.0F, float z = 0.0F)
{
    QMatrix4x4 matrix;
    matrix.translate(x, y, z);
    return matrix;
}

class Counter : public patterns::Observer<ImplantClearances, std::nullptr_t>
{
public:
    int changes = 0;

private:
    void changedEvent(ImplantClearances*) override { ++changes; }
    void destroyed(ImplantClearances*) override {}
};

// Implants of 4 mm at x = 0, 6 and 20, a pin of 2 mm at x = -5 and a nerve below.
struct ImplantClearancesTest : testing::Test
{
    ImplantClearancesTest()
    {
        clearances.attach(&counter);
        measure({implants.begin(), implants.end()}, {nerves.begin(), nerves.end()},
                {pins.begin(), pins.end()});
        counter.changes = 0;
    }
    ~ImplantClearancesTest() override { clearances.detach(&counter); }
    ImplantClearancesTest(const ImplantClearancesTest&) = delete;
    ImplantClearancesTest& operator=(const ImplantClearancesTest&) = delete;

    static geometry::Mesh plate(float z)
    {
        geometry::Mesh mesh({{-50, -50, z}, {50, -50, z}, {50, 50, z}, {-50, 50, z}}, {});
        mesh.addTriangle(0, 1, 2);
        mesh.addTriangle(0, 2, 3);
        return mesh;
    }
    void measure(const std::unordered_set<ImplantPointer>& changedImplants,
                 const std::unordered_set<NervePointer>& changedNerves = {},
                 const std::unordered_set<PinPointer>& changedPins = {})
    {
        clearances.prepareAndStartMeasurement(implants, changedImplants, pins, changedPins, nerves,
                                              changedNerves);
    }
    void move(const ImplantPointer& implant, const QMatrix4x4& placement)
    {
        implant->setObjectTransform(placement);
        clearances.shapeHasChanged(implant);
        measure({implant});
    }

    geometry::ShapeLoader loader;
    ImplantClearances clearances{loader};
    Counter counter;
    ImplantPointer a = makeImplant(4, 10, at(0));
    ImplantPointer b = makeImplant(4, 10, at(6));
    ImplantPointer c = makeImplant(4, 10, at(20));
    PinPointer pin = makePin(1, 10, at(-5));
    NervePointer nerve = makeNerve(plate(-12));
    QSet<ImplantPointer> implants{a, b, c};
    QSet<NervePointer> nerves{nerve};
    QSet<PinPointer> pins{pin};
};

TEST_F(ImplantClearancesTest, TheNearestObjectOfEachKindIsMeasuredFromTheBody)
{
    const auto implant = clearances.getNearestImplant(*b);
    ASSERT_TRUE(implant);
    EXPECT_EQ(implant->implant, b);
    EXPECT_EQ(implant->other, a);
    EXPECT_NEAR(implant->clearance.distance, 2.0, 1e-5);
    EXPECT_NEAR(implant->clearance.pointOnFirst[0], 4.0, 1e-5);
    EXPECT_NEAR(implant->clearance.pointOnSecond[0], 2.0, 1e-5);
    EXPECT_EQ(clearances.getNearestImplant(*a)->other, b);
    EXPECT_NEAR(clearances.getNearestImplant(*a)->clearance.pointOnFirst[0], 2.0, 1e-5);
    EXPECT_EQ(clearances.getNearestNerve(*c)->other, nerve);
    EXPECT_NEAR(clearances.getNearestNerve(*c)->clearance.distance, 2.0, 1e-5);
    EXPECT_NEAR(clearances.getNearestAnchorPin(*a)->clearance.distance, 2.0, 1e-5);
}

TEST_F(ImplantClearancesTest, QueriesListThePairsBelowTheLimitTheLeastFirst)
{
    move(c, at(9.5F));
    const auto below = clearances.getImplantsBelow();
    ASSERT_EQ(below.size(), 2);
    EXPECT_EQ(below[0].clearance.relation, collision::Relation::Overlapping);
    EXPECT_NEAR(below[1].clearance.distance, 2.0, 1e-5);
    EXPECT_TRUE(clearances.getImplantsBelow(0.0).isEmpty());
    EXPECT_EQ(clearances.getImplantsBelow(6.0).size(), 3);
    EXPECT_EQ(clearances.getNervesBelow(2.5).size(), 3);
    EXPECT_EQ(clearances.getNervesBelow(1.5).size(), 0);
    EXPECT_EQ(clearances.getAnchorPinsBelow(2.5).size(), 1);
    EXPECT_TRUE(clearances.getAnchorPinsBelow().isEmpty());
}

TEST_F(ImplantClearancesTest, OnlyThePairsOfChangedObjectsAreMeasuredAgain)
{
    // b moves, but only c is named: b keeps the surface that it had.
    b->setObjectTransform(at(10));
    clearances.shapeHasChanged(b);
    measure({}, {}, {pin});
    EXPECT_NEAR(clearances.getNearestImplant(*b)->clearance.distance, 2.0, 1e-5);
    measure({b});
    EXPECT_NEAR(clearances.getNearestImplant(*b)->clearance.distance, 6.0, 1e-5);
}

TEST_F(ImplantClearancesTest, AMoveThatIsNotAnnouncedIsNotSeen)
{
    b->setObjectTransform(at(10));
    measure({b});
    EXPECT_NEAR(clearances.getNearestImplant(*b)->clearance.distance, 2.0, 1e-5);
}

TEST_F(ImplantClearancesTest, ObserversAreNotifiedOfChangesAndOfEveryRemoval)
{
    measure({a});
    EXPECT_EQ(counter.changes, 0);
    move(a, at(0, 1));
    EXPECT_EQ(counter.changes, 1);
    clearances.remove(pin);
    clearances.remove(pin);
    EXPECT_EQ(counter.changes, 3);
}

TEST_F(ImplantClearancesTest, WhatLeavesThePlanHasNoClearance)
{
    clearances.remove(nerve);
    EXPECT_FALSE(clearances.getNearestNerve(*a));
    clearances.remove(pin);
    EXPECT_FALSE(clearances.getNearestAnchorPin(*a));
    clearances.remove(a);
    EXPECT_FALSE(clearances.getNearestImplant(*a));
    EXPECT_EQ(clearances.getNearestImplant(*b)->other, c);
}

TEST_F(ImplantClearancesTest, ADragHasTheClearancesOfAFreshMeasurement)
{
    nerve->setMesh(makeCanal(2000));
    clearances.shapeHasChanged(nerve);
    measure({}, {nerve});
    const auto factory = std::make_unique<geometry::ShapeFactory>(loader);
    for (int step = 0; step < 120; ++step) {
        const float t = 0.25F * static_cast<float>(step);
        move(a, at(30.0F + std::sin(t), -20.0F + t * 0.5F, 8.0F - t));
        const auto dragged = clearances.getNearestNerve(*a);
        ASSERT_TRUE(dragged);
        EXPECT_EQ(dragged->clearance,
                  collision::clearance(PlacedSurface(factory, *a, 0.0F), PlacedSurface(*nerve)))
            << "step " << step;
    }
}

// The second tip is nearest first, then both are equally near, below the flat apex at z = -10.
TEST_F(ImplantClearancesTest, WhatWasNearestBeforeDoesNotDecideBetweenEqualDistances)
{
    const auto tips = [](float first, float second) {
        geometry::Mesh mesh({{-1, 0, first},
                             {-1, 1, -20},
                             {-1, -1, -20},
                             {1, 0, second},
                             {1, 1, -20},
                             {1, -1, -20}},
                            {});
        mesh.addTriangle(0, 1, 2);
        mesh.addTriangle(3, 4, 5);
        return mesh;
    };
    for (const float first : {-13.0F, -12.0F}) {
        nerve->setMesh(tips(first, -12));
        clearances.shapeHasChanged(nerve);
        measure({}, {nerve});
        const auto nearest = clearances.getNearestNerve(*a);
        ASSERT_TRUE(nearest);
        EXPECT_EQ(nearest->clearance.distance, 2.0);
        EXPECT_EQ(nearest->clearance.pointOnSecond[0], first < -12.5F ? 1.0 : -1.0);
    }
}

TEST_F(ImplantClearancesTest, APairWithAnInvalidObjectHasNoClearance)
{
    b->setDimensions({0.0F, 10.0F});
    clearances.shapeHasChanged(b);
    const auto withoutShape = std::make_shared<AnchorPin3D>();
    pins.insert(withoutShape);
    implants.insert(nullptr);
    measure({b, nullptr}, {nullptr}, {withoutShape, nullptr});
    EXPECT_FALSE(clearances.getNearestImplant(*b));
    EXPECT_FALSE(clearances.getNearestNerve(*b));
    EXPECT_EQ(clearances.getNearestImplant(*a)->other, c);
    EXPECT_NEAR(clearances.getNearestAnchorPin(*a)->clearance.distance, 2.0, 1e-5);
    clearances.remove(ImplantPointer());
    EXPECT_TRUE(clearances.getNearestNerve(*a));
}

} // namespace
