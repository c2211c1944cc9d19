// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/ToothLocator_p.h>

// Covered: the two teeth around an identifier, and identifiers that no spline leads to.

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr auto kThree = ToothChart::Tooth(3);
constexpr auto kSeven = ToothChart::Tooth(7);

std::pair<int, int> around(double toothId)
{
    const auto [first, second] = dental::teethAround(toothId, kThree, kSeven);
    return {first, second};
}

TEST(TeethAround, NearestToothIsRoundedHalfAwayFromZeroAndTheSecondIsOnTheOtherSide)
{
    EXPECT_EQ(around(3.4), std::pair(3, 4));
    EXPECT_EQ(around(3.5), std::pair(4, 3));
    EXPECT_EQ(around(3.6), std::pair(4, 3));
    EXPECT_EQ(around(5.0), std::pair(5, 5));
}

TEST(TeethAround, SecondToothIsClampedToTheArchButTheFirstIsNotByDesign)
{
    EXPECT_EQ(around(7.6), std::pair(8, 7));
    EXPECT_EQ(around(8.4), std::pair(8, 7));
    EXPECT_EQ(around(2.4), std::pair(2, 3));
    EXPECT_EQ(around(9.6), std::pair(10, 7));
    EXPECT_EQ(around(-2.5), std::pair(-3, 3));
}

TEST(TeethAround, IdentifierThatNoIntegerHoldsHasNoTeeth)
{
    for (const double beyond :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), 1e300, 2147483648.0})
        EXPECT_EQ(around(beyond), std::pair(0, 0)) << beyond;
}

} // namespace
