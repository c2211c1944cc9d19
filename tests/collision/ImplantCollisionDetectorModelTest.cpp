// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/collision/ImplantCollisionDetector.h>

// The detector compared with a model that is written in other terms: over random plans, both must
// have the same verdicts and notify the same observers as often. COREALGORITHMS_FUZZ_ROUNDS
// multiplies the number of sequences; the label fuzz runs many.

#include <tests/collision/DetectorAndModel.h>
#include <tests/support/FuzzRounds.h>

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace {

using namespace test::detector_model;

constexpr int kSequences = 400;
constexpr int kOperations = 300;

TEST(ImplantCollisionDetectorModel, HasTheVerdictsAndNotificationsOfTheDetector)
{
    PlainVerdicts plain;
    int withCollisions = 0;
    int numNotifications = 0;
    const int sequences = kSequences * test::fuzzRounds();
    for (int seed = 1; seed <= sequences; ++seed) {
        SideBySide both(static_cast<unsigned>(seed), plain);
        for (int operation = 0; operation < kOperations; ++operation) {
            both.doRandomOperation();
            ASSERT_TRUE(both.verdictsOfDetector() == both.verdictsOfModel())
                << "seed " << seed << ", operation " << operation;
            ASSERT_EQ(both.notificationsOfDetector(), both.notificationsOfModel())
                << "seed " << seed << ", operation " << operation;
            ASSERT_EQ(both.differingQuery(), "") << "seed " << seed << ", operation " << operation;
            withCollisions += both.verdictsOfModel() == Verdicts() ? 0 : 1;
        }
        for (const int count : both.notificationsOfModel())
            numNotifications += count;
    }
    // More than half of the plans have collisions, and observers are notified more than 20 times in
    // each sequence.
    EXPECT_GT(withCollisions, sequences * kOperations / 2);
    EXPECT_GT(numNotifications, sequences * 20);
}

// Without this, the comparison above could pass with one verdict for every pair.
TEST(ImplantCollisionDetectorModel, PlacesGiveBothVerdictsForEveryKindOfPair)
{
    PlainVerdicts plain;
    std::array<std::set<bool>, 4> verdicts;
    for (int a = 0; a < kPlaces; ++a) {
        for (int b = 0; b < kPlaces; ++b) {
            verdicts[0].insert(plain.implants(0, a, 1, b));
            verdicts[1].insert(plain.nerve(0, a, 0, b));
            verdicts[2].insert(plain.nerve(1, a, 0, b));
            verdicts[3].insert(plain.pin(a, 1, b));
        }
    }
    for (const auto& both : verdicts)
        EXPECT_EQ(both.size(), 2U);
    // The long nerve has several cells.
    Surface3DModel surface;
    surface.setMesh(nerveMesh(1, 2));
    EXPECT_GT(test::plain::makeBoundedObject(surface).meshes[0].cells.size(), 4);
}

} // namespace
