// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

// ToothChart: kinds of teeth, arches and jaws, opposites, regions, and numbers that are not
// teeth.

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using Tooth = ToothChart::Tooth;

// Numbers beyond the enumerators are undefined behavior without a fixed underlying type.
static_assert(std::is_same_v<std::underlying_type_t<ToothChart::Tooth>, int>);
static_assert(std::is_same_v<std::underlying_type_t<ToothChart::ArchType>, int>);

static_assert(ToothChart::UpperArch == 0 && ToothChart::LowerArch == 1);
static_assert(LowerJaw == 1 && UpperJaw == 2);

constexpr int kNoTeeth[] = {std::numeric_limits<int>::min(), -32, -1, 0, 33, 48,
                            std::numeric_limits<int>::max()};

// Returns the numbers from 1 to 32 for which the predicate is true.
std::set<int> teethThat(bool (*predicate)(Tooth))
{
    std::set<int> teeth;
    for (int number = 1; number <= 32; ++number) {
        if (predicate(Tooth(number)))
            teeth.insert(number);
    }
    return teeth;
}

QList<Tooth> teeth(const std::vector<int>& numbers)
{
    QList<Tooth> list;
    for (const int number : numbers)
        list.append(Tooth(number));
    return list;
}

TEST(ToothChart, HasThirtyTwoTeeth)
{
    EXPECT_EQ(teethThat(&ToothChart::isTooth).size(), 32U);
    for (const int number : kNoTeeth)
        EXPECT_FALSE(ToothChart::isTooth(Tooth(number))) << number;
}

TEST(ToothChart, MolarsAreTheLastThreeTeethAtEitherEndOfAnArch)
{
    EXPECT_EQ(teethThat(&ToothChart::isMolar),
              (std::set<int>{1, 2, 3, 14, 15, 16, 17, 18, 19, 30, 31, 32}));
}

TEST(ToothChart, PremolarsAreTheTwoTeethInFrontOfTheMolars)
{
    EXPECT_EQ(teethThat(&ToothChart::isPremolar), (std::set<int>{4, 5, 12, 13, 20, 21, 28, 29}));
}

TEST(ToothChart, UpperTeethAreOneToSixteen)
{
    EXPECT_EQ(teethThat(&ToothChart::isUpperTooth),
              (std::set<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
}

TEST(ToothChart, WhatIsNoToothIsNoKindOfTooth)
{
    for (const int number : kNoTeeth) {
        EXPECT_FALSE(ToothChart::isMolar(Tooth(number))) << number;
        EXPECT_FALSE(ToothChart::isPremolar(Tooth(number))) << number;
        EXPECT_FALSE(ToothChart::isUpperTooth(Tooth(number))) << number;
    }
}

TEST(ToothChart, ArchOfAToothIsUpperToSixteenAndLowerFromSeventeen)
{
    EXPECT_EQ(ToothChart::getArchTypeOfTooth(Tooth(1)), ToothChart::UpperArch);
    EXPECT_EQ(ToothChart::getArchTypeOfTooth(Tooth(16)), ToothChart::UpperArch);
    EXPECT_EQ(ToothChart::getArchTypeOfTooth(Tooth(17)), ToothChart::LowerArch);
    EXPECT_EQ(ToothChart::getArchTypeOfTooth(Tooth(32)), ToothChart::LowerArch);
}

TEST(ToothChart, ArchOfWhatIsNoToothIsTheLower)
{
    for (const int number : kNoTeeth)
        EXPECT_EQ(ToothChart::getArchTypeOfTooth(Tooth(number)), ToothChart::LowerArch) << number;
}

TEST(ToothChart, OppositeTeethAddUpToThirtyThree)
{
    EXPECT_EQ(ToothChart::getOppositeTooth(Tooth(1)), 32);
    EXPECT_EQ(ToothChart::getOppositeTooth(Tooth(8)), 25);
    EXPECT_EQ(ToothChart::getOppositeTooth(Tooth(16)), 17);
    EXPECT_EQ(ToothChart::getOppositeTooth(Tooth(17)), 16);
    EXPECT_EQ(ToothChart::getOppositeTooth(Tooth(32)), 1);
}

TEST(ToothChart, OppositeToothIsInTheOtherArchAndHasTheToothAsItsOpposite)
{
    for (int number = 1; number <= 32; ++number) {
        const Tooth opposite = ToothChart::getOppositeTooth(Tooth(number));
        EXPECT_EQ(ToothChart::getOppositeTooth(opposite), number);
        EXPECT_NE(ToothChart::getArchTypeOfTooth(opposite),
                  ToothChart::getArchTypeOfTooth(Tooth(number)))
            << number;
        EXPECT_EQ(ToothChart::isMolar(opposite), ToothChart::isMolar(Tooth(number))) << number;
    }
}

TEST(ToothChart, OppositeOfWhatIsNoToothIsNoTooth)
{
    for (const int number : kNoTeeth)
        EXPECT_EQ(ToothChart::getOppositeTooth(Tooth(number)), ToothChart::NoTooth) << number;
}

TEST(ToothChart, JawsAreOppositeToEachOther)
{
    EXPECT_EQ(ToothChart::getOppositeJaw(UpperJaw), LowerJaw);
    EXPECT_EQ(ToothChart::getOppositeJaw(LowerJaw), UpperJaw);
}

TEST(ToothChart, OppositeOfNoJawIsNoJaw)
{
    EXPECT_EQ(ToothChart::getOppositeJaw(NoJaw), NoJaw);
}

TEST(ToothChart, OppositeOfANumberThatIsNoJawIsNoJaw)
{
    // JawType(7) is undefined behavior without a fixed underlying type.
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<JawType>, int>));
    for (const int number :
         {std::numeric_limits<int>::min(), -1, 3, 7, std::numeric_limits<int>::max()})
        EXPECT_EQ(ToothChart::getOppositeJaw(static_cast<JawType>(number)), NoJaw) << number;
}

TEST(ToothChart, OppositeArchOfAnythingButTheUpperIsTheUpper)
{
    EXPECT_EQ(ToothChart::getOppositeJaw(ToothChart::UpperArch), ToothChart::LowerArch);
    EXPECT_EQ(ToothChart::getOppositeJaw(ToothChart::LowerArch), ToothChart::UpperArch);
    for (const int number :
         {std::numeric_limits<int>::min(), -1, 2, std::numeric_limits<int>::max()})
        EXPECT_EQ(ToothChart::getOppositeJaw(static_cast<ToothChart::ArchType>(number)),
                  ToothChart::UpperArch)
            << number;
}

TEST(ToothChart, RegionHoldsBothEnds)
{
    EXPECT_EQ(ToothChart::createContinuousRegion(Tooth(3), Tooth(6)), teeth({3, 4, 5, 6}));
}

TEST(ToothChart, RegionIsAscendingAlsoWhenAskedForBackwards)
{
    EXPECT_EQ(ToothChart::createContinuousRegion(Tooth(6), Tooth(3)), teeth({3, 4, 5, 6}));
}

TEST(ToothChart, RegionFromAToothToItselfIsThatTooth)
{
    EXPECT_EQ(ToothChart::createContinuousRegion(Tooth(32), Tooth(32)), teeth({32}));
}

TEST(ToothChart, RegionMayCrossFromArchToArch)
{
    EXPECT_EQ(ToothChart::createContinuousRegion(Tooth(15), Tooth(18)), teeth({15, 16, 17, 18}));
}

TEST(ToothChart, RegionOverBothArchesHoldsEveryTooth)
{
    const QList<Tooth> region = ToothChart::createContinuousRegion(Tooth(32), Tooth(1));
    ASSERT_EQ(region.size(), 32);
    EXPECT_EQ(region.first(), 1);
    EXPECT_EQ(region.last(), 32);
}

TEST(ToothChart, RegionWithAnEndThatIsNoToothIsEmpty)
{
    for (const int number : kNoTeeth) {
        EXPECT_TRUE(ToothChart::createContinuousRegion(Tooth(number), Tooth(5)).isEmpty())
            << number;
        EXPECT_TRUE(ToothChart::createContinuousRegion(Tooth(5), Tooth(number)).isEmpty())
            << number;
        EXPECT_TRUE(ToothChart::createContinuousRegion(Tooth(number), Tooth(number)).isEmpty())
            << number;
    }
}

TEST(ToothChart, FilterKeepsTheTeethOfTheArchInTheOrderOfTheList)
{
    const QList<Tooth> mixed = teeth({20, 3, 16, 17, 32, 1, 3});
    EXPECT_EQ(ToothChart::filterTeethForArchType(mixed, ToothChart::UpperArch),
              teeth({3, 16, 1, 3}));
    EXPECT_EQ(ToothChart::filterTeethForArchType(mixed, ToothChart::LowerArch),
              teeth({20, 17, 32}));
}

TEST(ToothChart, FilterLeavesOutWhatIsNoTooth)
{
    QList<Tooth> list = teeth({5, 20});
    for (const int number : kNoTeeth)
        list.append(Tooth(number));
    EXPECT_EQ(ToothChart::filterTeethForArchType(list, ToothChart::UpperArch), teeth({5}));
    EXPECT_EQ(ToothChart::filterTeethForArchType(list, ToothChart::LowerArch), teeth({20}));
}

TEST(ToothChart, FilterOfNothingAndForNoArchIsEmpty)
{
    EXPECT_TRUE(ToothChart::filterTeethForArchType({}, ToothChart::UpperArch).isEmpty());
    for (const int arch : {-1, 2, std::numeric_limits<int>::max()})
        EXPECT_TRUE(ToothChart::filterTeethForArchType(teeth({5, 20}), ToothChart::ArchType(arch))
                        .isEmpty())
            << arch;
}

} // namespace
