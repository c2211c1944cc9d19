// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>

// Covered: the nearest sample, the middle sample, teeth on and between the points of an arch.

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <tests/support/DentalBuilders.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <random>
#include <type_traits>

namespace {

using test::makeArch;
using test::makeMouth;
using test::pathAlongX;
using Index = ComputeIndexOnGuidingLine;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
const QVector3D kNull;

static_assert(std::is_empty_v<ComputeIndexOnGuidingLine> &&
              std::is_copy_assignable_v<ComputeIndexOnGuidingLine>);

ToothChart::Tooth tooth(int number)
{
    return ToothChart::Tooth(number);
}

// A host whose map holds a tooth without a point.
class SplineWithNullPoints : public PlanarDentalSpline
{
public:
    QMap<ToothChart::Tooth, std::shared_ptr<Point>> getObjects() const override
    {
        auto objects = PlanarDentalSpline::getObjects();
        objects.insert(tooth(1), nullptr);
        objects.insert(tooth(6), nullptr);
        return objects;
    }
};

// ---- the nearest sample

TEST(ComputeIndexOnGuidingLine, PointLiesAtTheNearestSample)
{
    const QList<QVector3D> path{
        {0.0F, 0.0F, 0.0F}, {4.0F, 0.0F, 0.0F}, {4.0F, 5.0F, 0.0F}, {4.0F, 5.0F, 6.0F}};
    EXPECT_EQ(Index::getIndexOf({4.1F, 0.5F, -0.2F}, path), 1);
    EXPECT_EQ(Index::getIndexOf({-100.0F, 0.0F, 0.0F}, path), 0);
    EXPECT_EQ(Index::getIndexOf({9.0F, 9.0F, 9.0F}, path), 3);
    EXPECT_EQ(Index::getIndexOf({4.0F, 5.0F, 2.9F}, path), 2);
}

TEST(ComputeIndexOnGuidingLine, Law1EquallyNearSamplesGiveTheFirst)
{
    EXPECT_EQ(
        Index::getIndexOf(kNull, {{1.0F, 0.0F, 0.0F}, {5.0F, 0.0F, 0.0F}, {-1.0F, 0.0F, 0.0F}}), 0);
    EXPECT_EQ(
        Index::getIndexOf(kNull, {{2.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}, {0.0F, 0.0F, 1.0F}}), 1);
    EXPECT_EQ(Index::getIndexOf(kNull, QList<QVector3D>(100, QVector3D(3.0F, 3.0F, 3.0F))), 0);
}

TEST(ComputeIndexOnGuidingLine, EmptyPathHasNoIndex)
{
    EXPECT_EQ(Index::getIndexOf(kNull, QList<QVector3D>()), -1);
}

TEST(ComputeIndexOnGuidingLine, PathOfOneSampleGivesItWhateverThePoint)
{
    const QList<QVector3D> path{{1.0F, 2.0F, 3.0F}};
    EXPECT_EQ(Index::getIndexOf({1e30F, -1e30F, 0.0F}, path), 0);
    EXPECT_EQ(Index::getIndexOf({kNan, 0.0F, 0.0F}, path), 0);
    EXPECT_EQ(Index::getIndexOf(kNull, {{kNan, kNan, kNan}}), 0);
}

TEST(ComputeIndexOnGuidingLine, Law1DistancesAreSquaredInSinglePrecision)
{
    // 4096^2 + 1 and 4096^2 + 1.5^2 = 2^24 + 2.25: single precision, spaced 2 there, rounds the
    // first down to 2^24 (ties to even) and the second to 2^24 + 2. The first two samples are thus
    // equally near.
    EXPECT_EQ(Index::getIndexOf(kNull, {{4096.0F, 1.0F, 0.0F}, {4096.0F, 0.0F, 0.0F}}), 0);
    EXPECT_EQ(Index::getIndexOf(kNull, {{4096.0F, 1.5F, 0.0F}, {4096.0F, 0.0F, 0.0F}}), 1);
    // x * x + y * y comes first: 1 is lost in 2^24, and lost again. y * y + z * z = 2 would not be.
    EXPECT_EQ(Index::getIndexOf(kNull, {{4096.0F, 1.0F, 1.0F}, {4096.0F, 0.0F, 0.0F}}), 0);
    EXPECT_EQ(Index::getIndexOf(kNull, {{1.0F, 1.0F, 4096.0F}, {0.0F, 0.0F, 4096.0F}}), 1);
    // Squares beyond the largest float are infinite, and none is nearer than another.
    EXPECT_EQ(Index::getIndexOf(kNull, {{3e38F, 0.0F, 0.0F}, {2e19F, 0.0F, 0.0F}}), 0);
    // Squares below the smallest are 0.
    EXPECT_EQ(Index::getIndexOf(kNull, {{1e-30F, 0.0F, 0.0F}, {0.0F, 0.0F, 0.0F}}), 0);
}

// Every machine must find the sample of a plain search. Whole numbers make many samples equally
// near.
TEST(ComputeIndexOnGuidingLine, Law2IndexIsThatOfAPlainSearchWithTheInstructionsOfThisMachine)
{
    std::mt19937 engine(61);
    const auto gridPoint = [&engine] {
        return QVector3D(static_cast<float>(engine() % 8U), static_cast<float>(engine() % 8U),
                         static_cast<float>(engine() % 8U));
    };
    for (const int size : {1, 31, 32, 33, 64, 100, 1000}) {
        QList<QVector3D> path(size);
        std::ranges::generate(path, gridPoint);
        for (int i = 0; i < 200; ++i) {
            const QVector3D point = gridPoint();
            const auto distance = [&](const QVector3D& sample) {
                return (sample - point).lengthSquared();
            };
            const auto nearest = std::ranges::min_element(path, {}, distance);
            ASSERT_EQ(Index::getIndexOf(point, path), nearest - path.begin())
                << "seed 61, " << size << " samples, point " << i;
        }
    }
}

TEST(ComputeIndexOnGuidingLine, PointWithNanLiesAtTheFirstSample)
{
    EXPECT_EQ(Index::getIndexOf({kNan, 50.0F, 0.0F}, pathAlongX(100)), 0);
    EXPECT_EQ(Index::getIndexOf({kInfinity, 0.0F, 0.0F}, pathAlongX(100)), 0);
}

TEST(ComputeIndexOnGuidingLine, SampleWithNanIsNeverNearerButAFirstOneStays)
{
    QList<QVector3D> path = pathAlongX(100);
    path[40] = {kNan, 0.0F, 0.0F};
    EXPECT_EQ(Index::getIndexOf({40.0F, 0.0F, 0.0F}, path), 39);
    path[0] = {0.0F, 0.0F, kNan};
    EXPECT_EQ(Index::getIndexOf({70.0F, 0.0F, 0.0F}, path), 0);
}

TEST(ComputeIndexOnGuidingLine, FirstSampleAtInfinityGivesWayToAFiniteOne)
{
    QList<QVector3D> path = pathAlongX(100);
    path[0] = {kInfinity, 0.0F, 0.0F};
    EXPECT_EQ(Index::getIndexOf({70.0F, 0.0F, 0.0F}, path), 70);
}

TEST(ComputeIndexOnGuidingLine, LineIsSearchedByItsOriginalPath)
{
    GuidingLine line;
    EXPECT_EQ(Index::getIndexOf(kNull, &line), -1);
    line.setOriginalPath(pathAlongX(10));
    EXPECT_EQ(Index::getIndexOf({6.4F, 2.0F, 0.0F}, &line), 6);
}

// ---- the middle sample

TEST(ComputeIndexOnGuidingLine, MiddleSampleIsAtHalfTheSizeRoundedDown)
{
    GuidingLine line;
    line.setOriginalPath(pathAlongX(10));
    EXPECT_EQ(Index::getIndexOfMidPoint(&line), 5);
    line.setOriginalPath(pathAlongX(11));
    EXPECT_EQ(Index::getIndexOfMidPoint(&line), 5);
    line.setOriginalPath(pathAlongX(1));
    EXPECT_EQ(Index::getIndexOfMidPoint(&line), 0);
}

TEST(ComputeIndexOnGuidingLine, MiddleSampleIsSearchedBackToItsFirstOccurrenceByDesign)
{
    GuidingLine line;
    QList<QVector3D> path = pathAlongX(10);
    path[2] = path[5];
    path[7] = path[5];
    line.setOriginalPath(path);
    EXPECT_EQ(Index::getIndexOfMidPoint(&line), 2);
}

TEST(ComputeIndexOnGuidingLine, EmptyPathHasNoMiddle)
{
    GuidingLine line;
    EXPECT_EQ(Index::getIndexOfMidPoint(&line), -1);
}

// ---- teeth

TEST(ComputeIndexOnGuidingLine, ToothBetweenItsNeighborsIsInterpolatedAndRoundedHalfAwayFromZero)
{
    const auto spline = makeArch(20, {{3, 10.0F}, {7, 15.0F}});
    EXPECT_EQ(Index::getToothIndex(tooth(5), spline.get(), false), 13); // 12.5
    EXPECT_EQ(Index::getToothIndex(tooth(4), spline.get(), false), 11); // 11.25
    EXPECT_EQ(Index::getToothIndex(tooth(6), spline.get(), false), 14); // 13.75
}

TEST(ComputeIndexOnGuidingLine, InterpolationRunsAgainstThePathWhereTheTeethDo)
{
    const auto spline = makeArch(20, {{3, 15.0F}, {7, 10.0F}});
    EXPECT_EQ(Index::getToothIndex(tooth(5), spline.get(), false), 13); // 12.5
    EXPECT_EQ(Index::getToothIndex(tooth(6), spline.get(), false), 11); // 11.25
}

TEST(ComputeIndexOnGuidingLine, NeighborsAreTheNearestTeethOfTheSpline)
{
    const auto spline = makeArch(100, {{2, 0.0F}, {4, 50.0F}, {6, 60.0F}, {14, 99.0F}});
    EXPECT_EQ(Index::getToothIndex(tooth(5), spline.get(), false), 55);
    EXPECT_EQ(Index::getToothIndex(tooth(3), spline.get(), false), 25);
}

TEST(ComputeIndexOnGuidingLine, IndexIsInterpolatedAndRoundedInSinglePrecision)
{
    // Tooth 8 lies at 7/10 of the way from 1 to 11. In single precision 45 * 0.7 is 31.5, which
    // rounds to 32; in double precision it is 31.499999999999996.
    EXPECT_EQ(Index::getToothIndex(tooth(8), makeArch(50, {{1, 0.0F}, {11, 45.0F}}).get(), false),
              32);
}

TEST(ComputeIndexOnGuidingLine, StepFromTheLowerIndexIsRoundedToAFloatBeforeItIsAdded)
{
    // Tooth 12 lies at 11/12 of the way from 1 to 13, from index 6 to 0. 11/12 as a float is
    // 0.91666668653, and 6 times that as a float is 5.5, which leaves 0.5 and rounds to 1. In
    // double precision 0.49999988 would be left.
    EXPECT_EQ(Index::getToothIndex(tooth(12), makeArch(10, {{1, 6.0F}, {13, 0.0F}}).get(), false),
              1);
}

TEST(ComputeIndexOnGuidingLine, ToothWithAPointLiesAtTheSampleNearestToIt)
{
    const auto spline = makeArch(20, {{3, 10.4F}, {5, 2.0F}, {7, 15.0F}});
    EXPECT_EQ(Index::getToothIndex(tooth(3), spline.get(), false), 10);
    EXPECT_EQ(Index::getToothIndex(tooth(5), spline.get(), false), 2) << "not half way";
}

TEST(ComputeIndexOnGuidingLine, Law3ToothOnTheSplineHasTheIndexOfItsPointWhateverTheFlag)
{
    const auto spline = makeArch(40, {{3, 10.0F}, {9, 20.0F}, {20, 33.0F}});
    for (const auto& [number, index] : {std::pair(3, 10), std::pair(9, 20), std::pair(20, 33)}) {
        EXPECT_EQ(Index::getToothIndex(tooth(number), spline.get(), false), index);
        EXPECT_EQ(Index::getToothIndex(tooth(number), spline.get(), true), index);
    }
}

TEST(ComputeIndexOnGuidingLine, ToothBelowTheFirstOrAboveTheLastGetsTheirIndex)
{
    const auto spline = makeArch(20, {{3, 10.0F}, {7, 15.0F}});
    EXPECT_EQ(Index::getToothIndex(tooth(1), spline.get(), false), 10);
    EXPECT_EQ(Index::getToothIndex(tooth(2), spline.get(), false), 10);
    EXPECT_EQ(Index::getToothIndex(tooth(8), spline.get(), false), 15);
    EXPECT_EQ(Index::getToothIndex(tooth(16), spline.get(), false), 15);
}

TEST(ComputeIndexOnGuidingLine, ToothOfTheOtherArchHasTheIndexOfItsOppositeIfMapped)
{
    const auto spline = makeArch(20, {{3, 10.0F}, {7, 15.0F}});
    EXPECT_EQ(Index::getToothIndex(tooth(30), spline.get(), true), 10); // opposite of 3
    EXPECT_EQ(Index::getToothIndex(tooth(28), spline.get(), true), 13); // opposite of 5: 12.5
    EXPECT_EQ(Index::getToothIndex(tooth(28), spline.get(), false), 15)
        << "by its number, above the last";
    EXPECT_EQ(Index::getToothIndex(tooth(5), spline.get(), true), 13) << "already of the arch";
    const auto lower = makeArch(20, {{19, 10.0F}, {23, 15.0F}});
    EXPECT_EQ(Index::getToothIndex(tooth(14), lower.get(), true), 10); // opposite of 19
    EXPECT_EQ(Index::getToothIndex(tooth(14), lower.get(), false), 10) << "below the first";
}

TEST(ComputeIndexOnGuidingLine, SplineOverBothArchesIsNeverMapped)
{
    const auto spline = makeArch(40, {{3, 10.0F}, {7, 15.0F}, {23, 30.0F}});
    EXPECT_EQ(Index::getToothIndex(tooth(26), spline.get(), true), 30)
        << "above the last, not opposite of 7";
}

TEST(ComputeIndexOnGuidingLine, OrdinalsNotNumbersEnterTheInterpolation)
{
    // 14 and 19 stand at places 13 and 2 of their arches, 16 at 15: (15 - 13) / (2 - 13) = -2/11 of
    // 22 is -4.
    const auto spline = makeArch(40, {{14, 10.0F}, {19, 32.0F}});
    EXPECT_EQ(Index::getToothIndex(tooth(16), spline.get(), false), 6);
    // 18, at place 1: -12/-11 of 22 is 24.
    EXPECT_EQ(Index::getToothIndex(tooth(18), spline.get(), false), 34);
}

TEST(ComputeIndexOnGuidingLine, NeighborsOfEqualOrdinalGiveTheLowerOne)
{
    const auto spline = makeArch(40, {{4, 10.0F}, {20, 30.0F}});
    EXPECT_EQ(Index::getToothIndex(tooth(10), spline.get(), false), 10);
}

TEST(ComputeIndexOnGuidingLine, NegativeInterpolationIsRoundedAwayFromZero)
{
    // 16 lies 2/11 of the way from 19 to 14 before 14: at 3 - 4 = -1, and at 3 - 50/11 = -1.55.
    EXPECT_EQ(Index::getToothIndex(tooth(16), makeArch(40, {{14, 3.0F}, {19, 25.0F}}).get(), false),
              -1);
    EXPECT_EQ(Index::getToothIndex(tooth(16), makeArch(40, {{14, 3.0F}, {19, 28.0F}}).get(), false),
              -2);
}

TEST(ComputeIndexOnGuidingLine, SplineWithoutToothPointsHasNoToothIndex)
{
    PlanarDentalSpline spline;
    spline.setOriginalPath(pathAlongX(10));
    EXPECT_EQ(Index::getToothIndex(tooth(5), &spline, false), -1);
    EXPECT_EQ(Index::getToothIndex(tooth(5), &spline, true), -1);
}

TEST(ComputeIndexOnGuidingLine, EmptyPathHasNoToothIndex)
{
    const auto spline = makeArch(0, {{3, 10.0F}, {7, 15.0F}});
    EXPECT_EQ(Index::getToothIndex(tooth(3), spline.get(), false), -1);
    EXPECT_EQ(Index::getToothIndex(tooth(5), spline.get(), false), -1);
    EXPECT_TRUE(Index::getTeethIndices(spline.get()).isEmpty());
    EXPECT_EQ(Index::getToothPosition(tooth(5), spline.get(), false), kNull);
}

// ---- positions

TEST(ComputeIndexOnGuidingLine, ToothPositionIsTheSampleAtItsIndex)
{
    const auto spline = makeArch(20, {{3, 10.4F}, {7, 15.0F}});
    EXPECT_EQ(Index::getToothPosition(tooth(3), spline.get(), false), QVector3D(10.0F, 0.0F, 0.0F));
    EXPECT_EQ(Index::getToothPosition(tooth(5), spline.get(), false), QVector3D(13.0F, 0.0F, 0.0F));
    EXPECT_EQ(Index::getToothPosition(tooth(28), spline.get(), true), QVector3D(13.0F, 0.0F, 0.0F));
}

TEST(ComputeIndexOnGuidingLine, ToothOutsideThePathIsAtZero)
{
    EXPECT_EQ(
        Index::getToothPosition(tooth(5), std::make_shared<PlanarDentalSpline>().get(), false),
        kNull);
    // 18 lies at 34, the path ends at 32.
    const auto beyond = makeArch(33, {{14, 10.0F}, {19, 32.0F}});
    EXPECT_EQ(Index::getToothPosition(tooth(18), beyond.get(), false), kNull);
    EXPECT_EQ(
        Index::getToothPosition(tooth(16), makeArch(40, {{14, 3.0F}, {19, 25.0F}}).get(), false),
        kNull);
    EXPECT_EQ(
        Index::getToothPosition(tooth(16), makeArch(40, {{14, 3.0F}, {19, 28.0F}}).get(), false),
        kNull)
        << "index -2";
}

TEST(ComputeIndexOnGuidingLine, TeethIndicesFollowTheTeeth)
{
    const auto spline = makeArch(20, {{7, 3.0F}, {3, 10.0F}, {20, 12.6F}});
    EXPECT_EQ(Index::getTeethIndices(spline.get()), (QList<int>{10, 3, 13}));
    EXPECT_TRUE(Index::getTeethIndices(std::make_shared<PlanarDentalSpline>().get()).isEmpty());
}

TEST(ComputeIndexOnGuidingLine, TeethPositionsAreThoseOfThePointsWhateverTheArchTypeByDesign)
{
    const auto spline = makeArch(20, {{3, 10.4F}, {20, 12.6F}});
    const QMap<int, QVector3D> expected{{3, {10.4F, 0.0F, 0.0F}}, {20, {12.6F, 0.0F, 0.0F}}};
    EXPECT_EQ(Index::calculateTeethPositions(ToothChart::UpperArch, spline.get()), expected);
    EXPECT_EQ(Index::calculateTeethPositions(ToothChart::LowerArch, spline.get()), expected);
    EXPECT_EQ(Index::calculateTeethPositions(static_cast<ToothChart::ArchType>(7), spline.get()),
              expected);
}

TEST(ComputeIndexOnGuidingLine, IntermediateTeethAreThoseOfTheMouthWithoutAPoint)
{
    const auto spline = makeArch(40, {{2, 10.0F}, {5, 40.0F - 0.6F}});
    const auto mouth = makeMouth({1, 2, 3, 5, 6, 20});
    const std::map<ToothChart::Tooth, QVector3D> expected{{tooth(3), {20.0F, 0.0F, 0.0F}}};
    EXPECT_EQ(Index::getIntermediateTeeth(spline.get(), mouth.get()),
              expected); // 10 + 29/3 = 19.67
}

TEST(ComputeIndexOnGuidingLine, NullMouthKeepsAllIntermediateTeeth)
{
    const auto spline = makeArch(40, {{2, 10.0F}, {5, 25.0F}});
    const std::map<ToothChart::Tooth, QVector3D> expected{{tooth(3), {15.0F, 0.0F, 0.0F}},
                                                          {tooth(4), {20.0F, 0.0F, 0.0F}}};
    EXPECT_EQ(Index::getIntermediateTeeth(spline.get(), nullptr), expected);
}

TEST(ComputeIndexOnGuidingLine, IntermediateToothOutsideThePathIsAtZero)
{
    const auto spline =
        makeArch(33, {{14, 10.0F}, {19, 32.0F}}); // 15 at 8, 16 at 6, 17 at 36, 18 at 34
    const auto teeth = Index::getIntermediateTeeth(spline.get(), nullptr);
    ASSERT_EQ(teeth.size(), 4U);
    EXPECT_EQ(teeth.at(tooth(15)), QVector3D(8.0F, 0.0F, 0.0F));
    EXPECT_EQ(teeth.at(tooth(16)), QVector3D(6.0F, 0.0F, 0.0F));
    EXPECT_EQ(teeth.at(tooth(17)), kNull);
    EXPECT_EQ(teeth.at(tooth(18)), kNull);
}

TEST(ComputeIndexOnGuidingLine, SplineWithoutToothPointsHasNoTeeth)
{
    PlanarDentalSpline spline;
    spline.setOriginalPath(pathAlongX(10));
    EXPECT_TRUE(Index::calculateTeethPositions(ToothChart::UpperArch, &spline).isEmpty());
    EXPECT_TRUE(Index::getIntermediateTeeth(&spline, nullptr).empty());
}

// ---- bad input

TEST(ComputeIndexOnGuidingLine, NullLineOrSplineGivesNothing)
{
    EXPECT_EQ(Index::getIndexOf(kNull, static_cast<GuidingLine*>(nullptr)), -1);
    EXPECT_EQ(Index::getIndexOfMidPoint(nullptr), -1);
    EXPECT_EQ(Index::getToothIndex(tooth(5), nullptr, false), -1);
    EXPECT_EQ(Index::getToothIndex(tooth(5), nullptr, true), -1);
    EXPECT_EQ(Index::getToothPosition(tooth(5), nullptr, true), kNull);
    EXPECT_TRUE(Index::getTeethIndices(nullptr).isEmpty());
    EXPECT_TRUE(Index::calculateTeethPositions(ToothChart::UpperArch, nullptr).isEmpty());
    EXPECT_TRUE(Index::getIntermediateTeeth(nullptr, makeMouth({3}).get()).empty());
}

TEST(ComputeIndexOnGuidingLine, ToothPointThatIsNullIsSkipped)
{
    SplineWithNullPoints spline;
    EXPECT_EQ(Index::getToothIndex(tooth(6), &spline, true), -1) << "no other points";
    spline.setTooth(tooth(3), spline.appendControlPoint({10.0F, 0.0F, 0.0F}));
    spline.setTooth(tooth(7), spline.appendControlPoint({14.0F, 0.0F, 0.0F}));
    spline.setOriginalPath(pathAlongX(20));
    EXPECT_EQ(Index::getToothIndex(tooth(6), &spline, false), 13);
    EXPECT_EQ(Index::getToothIndex(tooth(1), &spline, false), 10);
    EXPECT_EQ(Index::getTeethIndices(&spline), (QList<int>{10, 14}));
    EXPECT_EQ(Index::calculateTeethPositions(ToothChart::UpperArch, &spline).size(), 2);
    EXPECT_EQ(Index::getIntermediateTeeth(&spline, nullptr).size(), 3U);
}

TEST(ComputeIndexOnGuidingLine, NumbersThatAreNoTeethAreInterpolatedLikeOthers)
{
    const auto spline = makeArch(20, {{3, 10.0F}, {7, 15.0F}});
    for (const int number : {std::numeric_limits<int>::min(), -5, 0}) {
        EXPECT_EQ(Index::getToothIndex(tooth(number), spline.get(), false), 10) << number;
        EXPECT_EQ(Index::getToothIndex(tooth(number), spline.get(), true), 10) << number;
    }
    for (const int number : {33, 48, std::numeric_limits<int>::max()}) {
        EXPECT_EQ(Index::getToothIndex(tooth(number), spline.get(), false), 15) << number;
        EXPECT_EQ(Index::getToothIndex(tooth(number), spline.get(), true), 10)
            << number << " has no opposite";
    }
}

TEST(ComputeIndexOnGuidingLine, SplineOfNumbersThatAreNoTeethIsInterpolatedWithoutHarm)
{
    const int lowest = std::numeric_limits<int>::min();
    const int highest = std::numeric_limits<int>::max();
    const auto spline = makeArch(20, {{lowest, 10.0F}, {highest, 15.0F}});
    EXPECT_EQ(Index::getTeethIndices(spline.get()), (QList<int>{10, 15}));
    // Places (-2^31 - 1) % 16 = -1 and (2^31 - 2) % 16 = 14; tooth 8 at 7: 10 + 8/15 * 5 = 12.67.
    EXPECT_EQ(Index::getToothIndex(tooth(8), spline.get(), false), 13);
    EXPECT_TRUE(Index::getIntermediateTeeth(spline.get(), nullptr).empty());
}

TEST(ComputeIndexOnGuidingLine, ToothPointWithNanLiesAtTheFirstSample)
{
    const auto spline = makeArch(20, {{3, kNan}, {7, 15.0F}});
    EXPECT_EQ(Index::getToothIndex(tooth(3), spline.get(), false), 0);
    EXPECT_EQ(Index::getToothIndex(tooth(5), spline.get(), false), 8); // 7.5
}

} // namespace
