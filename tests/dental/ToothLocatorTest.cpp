// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/ToothLocator.h>

// Covered: interpolated tooth identifiers, the nearest teeth of a point, the height of the teeth of
// a jaw.

#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <tests/support/DentalBuilders.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <type_traits>

namespace {

using test::makeArch;
using test::makeScan;
using test::setScan;
using Map = QMap<int, ToothChart::Tooth>;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr int kLowestInt = std::numeric_limits<int>::min();
constexpr int kHighestInt = std::numeric_limits<int>::max();

static_assert(std::has_virtual_destructor_v<ToothLocator> &&
              std::is_copy_constructible_v<ToothLocator> &&
              std::is_copy_assignable_v<ToothLocator> &&
              std::is_default_constructible_v<ToothLocator>);

ToothChart::Tooth tooth(int number)
{
    return ToothChart::Tooth(number);
}

std::pair<int, int> nearest(PlanarDentalSpline* spline, float x)
{
    const auto [first, second] =
        ToothLocator::getNearestToothIds(spline, QVector3D(x, 3.0F, -2.0F));
    return {first, second};
}

class SplineWithNullPoint : public PlanarDentalSpline
{
public:
    QMap<ToothChart::Tooth, std::shared_ptr<Point>> getObjects() const override
    {
        auto objects = PlanarDentalSpline::getObjects();
        objects.insert(tooth(9), nullptr);
        return objects;
    }
};

// ---- interpolated identifiers

TEST(ToothLocator, IdentifierIsLinearBetweenTheEntries)
{
    const Map map{{10, tooth(3)}, {20, tooth(5)}};
    EXPECT_EQ(ToothLocator::calculateToothIdByInterpolation(map, 15), 4.0);
    // 3 * (1 - 0.2) + 5 * 0.2 in double precision: 2.4000000000000004 + 1.
    EXPECT_EQ(ToothLocator::calculateToothIdByInterpolation(map, 12), 3.4000000000000004);
    EXPECT_EQ(ToothLocator::calculateToothIdByInterpolation(map, 10), 3.0);
}

TEST(ToothLocator, IdentifierOutsideTheEntriesIsThatOfTheFirstOrTheLast)
{
    const Map map{{10, tooth(3)}, {20, tooth(5)}};
    EXPECT_EQ(ToothLocator::calculateToothIdByInterpolation(map, 5), 3.0);
    EXPECT_EQ(ToothLocator::calculateToothIdByInterpolation(map, 25), 5.0);
    EXPECT_EQ(ToothLocator::calculateToothIdByInterpolation(map, 20), 5.0);
    EXPECT_EQ(ToothLocator::calculateToothIdByInterpolation(map, kLowestInt), 3.0);
    EXPECT_EQ(ToothLocator::calculateToothIdByInterpolation(map, kHighestInt), 5.0);
}

TEST(ToothLocator, EntriesMayRunAgainstTheNumbers)
{
    EXPECT_EQ(ToothLocator::calculateToothIdByInterpolation(
                  {{0, tooth(32)}, {8, tooth(31)}, {16, tooth(17)}}, 2),
              31.75);
    EXPECT_EQ(ToothLocator::calculateToothIdByInterpolation(
                  {{0, tooth(32)}, {8, tooth(31)}, {16, tooth(17)}}, 12),
              24.0);
}

TEST(ToothLocator, EntriesAsFarApartAsIntegersReachDoNotOverflow)
{
    // 1 + 2 * 2^31 / (2^32 - 1) = 2 + 2^-32 to sixteen digits.
    EXPECT_DOUBLE_EQ(ToothLocator::calculateToothIdByInterpolation(
                         {{kLowestInt, tooth(1)}, {kHighestInt, tooth(3)}}, 0),
                     2.0 + 0x1p-32);
}

TEST(ToothLocator, MapWithoutEntriesGivesZero)
{
    EXPECT_EQ(ToothLocator::calculateToothIdByInterpolation({}, 5), 0.0);
}

// ---- the nearest teeth

TEST(ToothLocator, PointAtTheSampleOfAToothGivesThatToothTwice)
{
    const auto spline = makeArch(40, {{3, 10.0F}, {4, 20.0F}, {5, 30.0F}});
    EXPECT_EQ(nearest(spline.get(), 10.0F), std::pair(3, 3));
    EXPECT_EQ(nearest(spline.get(), 20.0F), std::pair(4, 4));
    EXPECT_EQ(nearest(spline.get(), 30.0F), std::pair(5, 5));
}

TEST(ToothLocator, Law1SecondToothIsOnTheOtherSideOfThePoint)
{
    const auto spline = makeArch(40, {{3, 10.0F}, {4, 20.0F}});
    EXPECT_EQ(nearest(spline.get(), 14.0F), std::pair(3, 4)) << "3.4";
    EXPECT_EQ(nearest(spline.get(), 16.0F), std::pair(4, 3)) << "3.6";
    EXPECT_EQ(nearest(spline.get(), 15.0F), std::pair(4, 3)) << "3.5 rounds away from zero";
}

TEST(ToothLocator, PointBeyondTheTeethGivesTheOutermostTwice)
{
    const auto spline = makeArch(40, {{3, 10.0F}, {4, 20.0F}, {5, 30.0F}});
    EXPECT_EQ(nearest(spline.get(), 38.0F), std::pair(5, 5));
    EXPECT_EQ(nearest(spline.get(), 400.0F), std::pair(5, 5));
    EXPECT_EQ(nearest(spline.get(), 2.0F), std::pair(3, 3));
    EXPECT_EQ(nearest(spline.get(), -7.0F), std::pair(3, 3));
}

TEST(ToothLocator, TeethBetweenThoseOfTheSplineAreFoundByTheirShare)
{
    const auto spline = makeArch(40, {{3, 10.0F}, {8, 20.0F}}); // half a tooth a sample
    EXPECT_EQ(nearest(spline.get(), 15.0F), std::pair(6, 5)) << "5.5";
    EXPECT_EQ(nearest(spline.get(), 16.0F), std::pair(6, 6));
}

TEST(ToothLocator, OfTwoTeethAtOneSampleTheHigherCounts)
{
    const auto spline = makeArch(40, {{3, 10.0F}, {4, 20.0F}, {5, 20.4F}, {6, 30.0F}});
    EXPECT_EQ(nearest(spline.get(), 20.0F), std::pair(5, 5));
    EXPECT_EQ(nearest(spline.get(), 14.0F), std::pair(4, 3)) << "3.8, as if 4 were not there";
}

TEST(ToothLocator, PointWithNanLiesAtTheFirstSample)
{
    EXPECT_EQ(nearest(makeArch(40, {{3, 10.0F}, {4, 20.0F}}).get(), kNan), std::pair(3, 3));
}

TEST(ToothLocator, NullSplineHasNoTeeth)
{
    EXPECT_EQ(nearest(nullptr, 1.0F), std::pair(0, 0));
}

TEST(ToothLocator, SplineWithoutTeethOrWithoutAPathHasNone)
{
    EXPECT_EQ(nearest(makeArch(40, {}).get(), 1.0F), std::pair(0, 0));
    EXPECT_EQ(nearest(makeArch(0, {{3, 10.0F}, {4, 20.0F}}).get(), 15.0F), std::pair(0, 0));
    SplineWithNullPoint nullPoint;
    nullPoint.setOriginalPath(test::pathAlongX(40));
    EXPECT_EQ(nearest(&nullPoint, 1.0F), std::pair(0, 0));
}

TEST(ToothLocator, NumbersThatAreNoTeethDoNotOverflow)
{
    const auto spline = makeArch(40, {{kLowestInt, 10.0F}, {kHighestInt, 20.0F}});
    EXPECT_EQ(nearest(spline.get(), 30.0F), std::pair(kHighestInt, kHighestInt));
    EXPECT_EQ(nearest(spline.get(), 0.0F), std::pair(0, 0))
        << "-2^31 is not within the range that is told";
}

// ---- the height of the teeth

TEST(ToothLocator, ToothHeightIsSevenMillimetersFromTheOcclusalSlice)
{
    PlanarDentalSpline spline;
    setScan(spline, makeScan(0.3F, 60.0F));
    spline.setOcclusalIndex(100);
    // 100 * 0.3 in single precision is 30.000002 (15728641 * 2^-19).
    EXPECT_EQ(ToothLocator::getToothHeight(&spline, LowerJaw), 23.000002F);
    EXPECT_EQ(ToothLocator::getToothHeight(&spline, UpperJaw), 37.0F);
    EXPECT_EQ(ToothLocator::getToothHeight(&spline, NoJaw), 37.0F);
    EXPECT_EQ(ToothLocator::getToothHeight(&spline, static_cast<JawType>(-9)), 37.0F);
    spline.setOcclusalIndex(-10);
    EXPECT_EQ(ToothLocator::getToothHeight(&spline, LowerJaw), -10.0F);
}

TEST(ToothLocator, ToothHeightWithoutAScanIsZero)
{
    EXPECT_EQ(ToothLocator::getToothHeight(nullptr, LowerJaw), 0.0F);
    PlanarDentalSpline spline;
    spline.setOcclusalIndex(100);
    EXPECT_EQ(ToothLocator::getToothHeight(&spline, LowerJaw), 0.0F) << "no plane";
    setScan(spline, nullptr);
    EXPECT_EQ(ToothLocator::getToothHeight(&spline, LowerJaw), 0.0F) << "no scan";
    setScan(spline, std::make_shared<CTData>());
    EXPECT_EQ(ToothLocator::getToothHeight(&spline, LowerJaw), 0.0F) << "no image volume";
}

TEST(ToothLocator, IsCopiedAndDestroyedThroughItsBase)
{
    const ToothLocator locator;
    ToothLocator other(locator);
    other = locator;
    const std::unique_ptr<ToothLocator> owned = std::make_unique<ToothLocator>(other);
    EXPECT_NE(owned, nullptr);
}

} // namespace
