// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/fundamentals/Optional.h>

// utility::Optional: engaged and empty, value() that never throws, reset, copies and comparison.

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using utility::Optional;

static_assert(std::is_default_constructible_v<Optional<int>>);
static_assert(std::is_convertible_v<int, Optional<int>>,
              "a function returns a plain value as an engaged one");
static_assert(!std::is_convertible_v<Optional<int>, bool>,
              "the test is explicit: no arithmetic on it by accident");
static_assert(std::is_copy_constructible_v<Optional<std::string>> &&
              std::is_copy_assignable_v<Optional<std::string>>);

TEST(Optional, IsEmptyByDefault)
{
    const Optional<int> empty;
    EXPECT_FALSE(empty);
    EXPECT_FALSE(empty.hasValue());
}

TEST(Optional, HoldsTheValueItIsMadeOf)
{
    const Optional<std::string> engaged(std::string("molar"));
    EXPECT_TRUE(engaged);
    EXPECT_TRUE(engaged.hasValue());
    EXPECT_EQ(engaged.value(), "molar");
}

TEST(Optional, ValueOfAnEmptyOneIsTheDefaultOfTheType)
{
    EXPECT_EQ(Optional<int>().value(), 0);
    EXPECT_EQ(Optional<std::string>().value(), "");
    EXPECT_EQ(Optional<const int*>().value(), nullptr);
}

TEST(Optional, FalseAndZeroAreValues)
{
    EXPECT_TRUE(Optional<bool>(false));
    EXPECT_FALSE(Optional<bool>(false).value());
    EXPECT_TRUE(Optional<int>(0));
}

TEST(Optional, ResetEmptiesIt)
{
    Optional<int> optional = 7;
    optional.reset();
    EXPECT_FALSE(optional);
    EXPECT_EQ(optional.value(), 0);
    optional.reset();
    EXPECT_FALSE(optional);
}

TEST(Optional, CopyIsIndependentOfTheOriginal)
{
    Optional<std::vector<int>> original(std::vector<int>{1, 2});
    const Optional<std::vector<int>> copy = original;
    original.reset();
    EXPECT_EQ(copy.value(), (std::vector<int>{1, 2}));
}

TEST(Optional, AssignmentOfAnEmptyOneEmptiesIt)
{
    Optional<int> optional = 7;
    optional = Optional<int>();
    EXPECT_FALSE(optional);
    optional = 8;
    EXPECT_EQ(optional.value(), 8);
}

TEST(Optional, ComparesEngagementAndValue)
{
    using Text = Optional<std::string>;
    const Text empty;
    const Text blank{std::string()};
    const Text molar{std::string("molar")};
    EXPECT_TRUE(empty == Text());
    EXPECT_TRUE(molar == Text{std::string("molar")});
    EXPECT_FALSE(molar == blank);
    EXPECT_FALSE(blank == empty) << "an engaged default value is not nothing";
}

} // namespace
