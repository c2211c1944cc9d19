// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/NerveGuidingSplineCalculator.h>

// Covered: the five points, the settings that are refused or repaired with their warnings, the
// filling of a spline.

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

#include <tests/support/WarningLog.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using Calculator = NerveGuidingSplineCalculator;
using Settings = NerveGuidingSplineCalculatorSettings;
using Points = QList<QVector3D>;
using test::WarningLog;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kUnset = -3.4028235e38F;

static_assert(std::has_virtual_destructor_v<Calculator> &&
              std::is_copy_constructible_v<Calculator> && std::is_copy_assignable_v<Calculator>);
static_assert(sizeof(Settings) == 48 && std::is_trivially_copyable_v<Settings>,
              "twelve fields of 32 bits");
static_assert(std::is_same_v<decltype(Settings::side), std::int32_t>);
static_assert(offsetof(Settings, mental_foramen) == 0 &&
                  offsetof(Settings, mandibular_foramen) == 12 &&
                  offsetof(Settings, middle_point_distance) == 24 &&
                  offsetof(Settings, start_point_distance) == 28 &&
                  offsetof(Settings, start_point_angle) == 32 &&
                  offsetof(Settings, end_point_distance) == 36 &&
                  offsetof(Settings, end_point_angle) == 40 && offsetof(Settings, side) == 44,
              "in this order");

const QString kMandibularWarning =
    QStringLiteral("NerveGuidingSplineCalculator : mandibular foramen not correctly filled in.");
const QString kMentalWarning =
    QStringLiteral("NerveGuidingSplineCalculator : mental foramen not correctly filled in.");
const QString kStartWarning = QStringLiteral(
    "NerveGuidingSplineCalculator : start_point_angle not within bounds [0,90], will be bound.");
const QString kEndWarning = QStringLiteral(
    "NerveGuidingSplineCalculator : end_point_angle not within bounds [0,90], will be bound.");

// The nerve runs along x: d is (1, 0), p is (0, -1), and (0, 1) on side 1.
Settings makeSettings()
{
    Settings settings;
    settings.mental_foramen = {10.0F, 0.0F, 4.0F};
    settings.mandibular_foramen = {0.0F, 0.0F, 2.0F};
    settings.middle_point_distance = 1.0F;
    settings.start_point_distance = 1.0F;
    settings.end_point_distance = 1.0F;
    return settings;
}

Points pointsOf(const Settings& settings)
{
    Calculator calculator(settings);
    GuidingSpline spline;
    EXPECT_TRUE(calculator.fillSpline(&spline));
    return calculator.getPoints();
}

class RecordingSpline : public GuidingSpline
{
public:
    std::vector<std::string> log;

    void clear() override
    {
        log.push_back("clear");
        GuidingSpline::clear();
    }
    std::shared_ptr<Point> appendControlPoint(const QVector3D& position) override
    {
        log.push_back("append " + std::to_string(position.x()));
        return GuidingSpline::appendControlPoint(position);
    }
    std::shared_ptr<Point> appendLastControlPoint(const QVector3D& position) override
    {
        log.push_back("append last");
        return GuidingSpline::appendLastControlPoint(position);
    }
};

// ---- the points

TEST(NerveGuidingSplineCalculator, FivePointsRunThroughTheForamina)
{
    Calculator calculator(makeSettings());
    GuidingSpline spline;
    ASSERT_TRUE(calculator.fillSpline(&spline));
    EXPECT_EQ(calculator.getZValue(), 3.0F);
    EXPECT_EQ(calculator.getPoints(), (Points{{11.0F, 0.0F, 3.0F},
                                              {10.0F, 0.0F, 3.0F},
                                              {5.0F, -1.0F, 3.0F},
                                              {0.0F, 0.0F, 3.0F},
                                              {-1.0F, 0.0F, 3.0F}}));
}

TEST(NerveGuidingSplineCalculator, SideOneReversesThePerpendicular)
{
    Settings settings = makeSettings();
    settings.side = 1;
    EXPECT_EQ(pointsOf(settings), (Points{{11.0F, 0.0F, 3.0F},
                                          {10.0F, 0.0F, 3.0F},
                                          {5.0F, 1.0F, 3.0F},
                                          {0.0F, 0.0F, 3.0F},
                                          {-1.0F, 0.0F, 3.0F}}));
    for (const std::int32_t side : {0, 2, -1, std::numeric_limits<std::int32_t>::max()}) {
        settings.side = side;
        EXPECT_EQ(pointsOf(settings)[2], QVector3D(5.0F, -1.0F, 3.0F)) << side;
    }
}

TEST(NerveGuidingSplineCalculator, EndIsBentToTheOtherSideThanTheStartByDesign)
{
    Settings settings = makeSettings();
    settings.start_point_angle = 90.0F;
    settings.end_point_angle = 90.0F;
    settings.start_point_distance = 2.0F;
    settings.end_point_distance = 3.0F;
    EXPECT_EQ(pointsOf(settings).first(), QVector3D(10.0F, -2.0F, 3.0F));
    EXPECT_EQ(pointsOf(settings).last(), QVector3D(0.0F, 3.0F, 3.0F));
    settings.side = 1;
    EXPECT_EQ(pointsOf(settings).first(), QVector3D(10.0F, 2.0F, 3.0F));
    EXPECT_EQ(pointsOf(settings).last(), QVector3D(0.0F, -3.0F, 3.0F));
}

TEST(NerveGuidingSplineCalculator, AnglesShareOutDirectionAndPerpendicularLinearly)
{
    Settings settings = makeSettings();
    settings.start_point_angle = 45.0F; // one half each, not cosine and sine
    settings.end_point_angle = 22.5F;   // one quarter across
    settings.start_point_distance = 4.0F;
    settings.end_point_distance = 8.0F;
    EXPECT_EQ(pointsOf(settings).first(), QVector3D(12.0F, -2.0F, 3.0F));
    EXPECT_EQ(pointsOf(settings).last(), QVector3D(-6.0F, 2.0F, 3.0F));
}

TEST(NerveGuidingSplineCalculator, DistancesMayBeNegative)
{
    Settings settings = makeSettings();
    settings.start_point_distance = -1.0F;
    settings.middle_point_distance = -2.0F;
    settings.end_point_distance = -3.0F;
    EXPECT_EQ(pointsOf(settings), (Points{{9.0F, 0.0F, 3.0F},
                                          {10.0F, 0.0F, 3.0F},
                                          {5.0F, 2.0F, 3.0F},
                                          {0.0F, 0.0F, 3.0F},
                                          {3.0F, 0.0F, 3.0F}}));
}

TEST(NerveGuidingSplineCalculator, DirectionIsThatInTheHorizontalPlane)
{
    Settings settings = makeSettings(); // 3, 4, 5 in the plane, whatever the heights
    settings.mental_foramen = {13.0F, 24.0F, -100.0F};
    settings.mandibular_foramen = {10.0F, 20.0F, 200.0F};
    settings.start_point_distance = 5.0F;
    settings.middle_point_distance = 5.0F;
    settings.end_point_distance = 5.0F;
    // d = (0.6, 0.8), p = (0.8, -0.6); five times the nearest floats to these are 3 and 4.
    EXPECT_EQ(pointsOf(settings), (Points{{16.0F, 28.0F, 50.0F},
                                          {13.0F, 24.0F, 50.0F},
                                          {15.5F, 19.0F, 50.0F},
                                          {10.0F, 20.0F, 50.0F},
                                          {7.0F, 16.0F, 50.0F}}));
}

TEST(NerveGuidingSplineCalculator, ForaminaAtTheSamePlaceHaveNoDirection)
{
    Settings settings = makeSettings();
    settings.mental_foramen = {7.0F, 8.0F, 4.0F};
    settings.mandibular_foramen = {7.0F, 8.0F, 2.0F};
    settings.start_point_angle = 30.0F;
    EXPECT_EQ(pointsOf(settings), Points(5, QVector3D(7.0F, 8.0F, 3.0F)));
}

TEST(NerveGuidingSplineCalculator, DirectionOfUnitLengthOrUpTo1e5IsNotNormalized)
{
    Settings settings = makeSettings();
    settings.mandibular_foramen = {0.0F, 0.0F, 0.0F};
    settings.start_point_distance = 1024.0F;
    // 0x1.00003p0 is 1 + 1.14e-5, 0x1.00001p0 is 1 + 3.8e-6.
    settings.mental_foramen = {0x1.00001p0F, 0.0F, 0.0F};
    EXPECT_EQ(pointsOf(settings).first().x(), 0x1.00001p0F + 0x1.00001p10F)
        << "almost 1: left as it is";
    settings.mental_foramen = {0x1.0001p0F, 0.0F, 0.0F};
    EXPECT_EQ(pointsOf(settings).first().x(), 0x1.0001p0F + 1024.0F) << "normalized";
    settings.mental_foramen = {0x1p-17F, 0.0F, 0.0F}; // 7.6e-6
    EXPECT_EQ(pointsOf(settings).first().x(), 0x1p-17F + 0x1p-7F) << "degenerate: left as it is";
    settings.mental_foramen = {0x1p-16F, 0.0F, 0.0F}; // 1.5e-5
    EXPECT_EQ(pointsOf(settings).first().x(), 0x1p-16F + 1024.0F) << "normalized";
}

TEST(NerveGuidingSplineCalculator, DistanceScalesTheSumOfTheTwoShares)
{
    Settings settings = makeSettings(); // d = (0.6, 0.8), p = (0.8, -0.6), as floats
    settings.mental_foramen = {13.0F, 24.0F, 4.0F};
    settings.mandibular_foramen = {10.0F, 20.0F, 2.0F};
    settings.start_point_angle = 5.0F; // 1/18
    settings.end_point_angle = 5.0F;
    settings.start_point_distance = 12.0F;
    settings.end_point_distance = 12.0F;
    // 12 (p / 18 + 17/18 d) is (7.333333, 8.666667), transcribed operation by operation in single
    // precision. With each share times the distance, all four coordinates differ in the last bits.
    const Points points = pointsOf(settings);
    EXPECT_EQ(points.first().x(), 0x1.455554p+4F);
    EXPECT_EQ(points.first().y(), 0x1.055554p+5F);
    EXPECT_EQ(points.last().x(), 0x1.555558p+1F);
    EXPECT_EQ(points.last().y(), 0x1.6aaaacp+3F);
}

TEST(NerveGuidingSplineCalculator, AngleIsDividedByARightAngle)
{
    Settings settings = makeSettings();
    settings.start_point_angle = 65.0F;
    // The start is (1 - a) d + a p from (10, 0), with p = (0, -1): its y is -a, the float nearest
    // to 65/90. Times the float nearest to 1/90 it would be 0x1.71c71ep-1.
    EXPECT_EQ(pointsOf(settings).first().y(), -0x1.71c71cp-1F);
}

TEST(NerveGuidingSplineCalculator, MiddleIsHalfTheSumMovedAlongThePerpendicular)
{
    Settings settings = makeSettings();
    settings.mental_foramen = {9.4F, -20.4F, 4.0F};
    settings.mandibular_foramen = {-1.9F, 28.8F, 2.0F};
    settings.middle_point_distance = 3.5F;
    // (9.4 - 1.9) / 2 - 3.5 * 49.2 / 50.48 and (-20.4 + 28.8) / 2 - 3.5 * 11.3 / 50.48, transcribed
    // operation by operation in single precision. Half the difference added to either foramen, the
    // halves added one by one, and double precision differ in the last bits of x.
    const QVector3D middle = pointsOf(settings)[2];
    EXPECT_EQ(middle.x(), 0x1.5af23p-2F);
    EXPECT_EQ(middle.y(), 0x1.b55112p+1F);
}

TEST(NerveGuidingSplineCalculator, HeightIsTheMeanInSinglePrecision)
{
    Settings settings = makeSettings();
    settings.mental_foramen.setZ(16777216.0F);
    settings.mandibular_foramen.setZ(1.0F);
    // 2^24 + 1 ties to 2^24.
    EXPECT_EQ(pointsOf(settings).first().z(), 8388608.0F);
}

// ---- settings

TEST(NerveGuidingSplineCalculator, ForaminaAreNotPlacedAtFirst)
{
    const Settings settings;
    for (const QVector3D& foramen : {settings.mental_foramen, settings.mandibular_foramen})
        EXPECT_TRUE(foramen.x() == kUnset && foramen.y() == kUnset && foramen.z() == kUnset);
    EXPECT_EQ(settings.side, 0);
    EXPECT_EQ(settings.middle_point_distance, 0.0F);
}

TEST(NerveGuidingSplineCalculator, MentalForamenThatIsNotPlacedFailsWithItsWarning)
{
    Settings settings = makeSettings();
    settings.mental_foramen = {kUnset, kUnset, kUnset};
    RecordingSpline spline;
    const auto point = spline.appendControlPoint({1.0F, 2.0F, 3.0F});
    spline.log.clear();
    Calculator calculator(settings);
    const WarningLog log;
    EXPECT_FALSE(calculator.fillSpline(&spline));
    EXPECT_TRUE(spline.log.empty());
    EXPECT_EQ(log.texts(), QStringList{kMentalWarning});
    EXPECT_EQ(spline.getControlPoints(), QList<std::shared_ptr<Point>>{point}) << "untouched";
    EXPECT_TRUE(calculator.getPoints().isEmpty());
    EXPECT_EQ(calculator.getZValue(), 0.0F);
}

TEST(NerveGuidingSplineCalculator, MandibularForamenIsTestedFirstAndAlone)
{
    Settings settings = makeSettings();
    settings.mandibular_foramen = {kUnset, kUnset, kUnset};
    settings.start_point_angle = 120.0F;
    GuidingSpline spline;
    {
        const WarningLog log;
        EXPECT_FALSE(Calculator(settings).fillSpline(&spline));
        EXPECT_EQ(log.texts(), QStringList{kMandibularWarning});
    }
    settings.mental_foramen = {kUnset, kUnset, kUnset};
    const WarningLog log;
    EXPECT_FALSE(Calculator(settings).fillSpline(&spline));
    EXPECT_EQ(log.texts(), QStringList{kMandibularWarning});
}

TEST(NerveGuidingSplineCalculator, ForamenWithOnlySomeCoordinatesAtTheMarkerIsPlaced)
{
    const WarningLog log;
    for (const QVector3D& foramen :
         {QVector3D(kUnset, kUnset, 0.0F), QVector3D(kUnset, 0.0F, kUnset),
          QVector3D(0.0F, kUnset, kUnset)}) {
        Settings settings = makeSettings();
        GuidingSpline spline;
        settings.mental_foramen = foramen;
        EXPECT_TRUE(Calculator(settings).fillSpline(&spline));
        settings.mandibular_foramen = foramen;
        EXPECT_TRUE(Calculator(settings).fillSpline(&spline));
    }
    EXPECT_TRUE(log.texts().isEmpty());
}

TEST(NerveGuidingSplineCalculator, AnglesOutOfBoundsAreClampedWithAWarning)
{
    Settings settings = makeSettings();
    settings.start_point_angle = 120.0F;
    settings.end_point_angle = -5.0F;
    {
        const WarningLog log;
        const Points points = pointsOf(settings);
        EXPECT_EQ(log.texts(), (QStringList{kStartWarning, kEndWarning}));
        EXPECT_EQ(points.first(), QVector3D(10.0F, -1.0F, 3.0F)) << "as 90";
        EXPECT_EQ(points.last(), QVector3D(-1.0F, 0.0F, 3.0F)) << "as 0";
    }
    settings.start_point_angle = -5.0F;
    settings.end_point_angle = 90.001F;
    const WarningLog log;
    const Points points = pointsOf(settings);
    EXPECT_EQ(log.texts(), (QStringList{kStartWarning, kEndWarning}));
    EXPECT_EQ(points.first(), QVector3D(11.0F, 0.0F, 3.0F)) << "as 0";
    EXPECT_EQ(points.last(), QVector3D(0.0F, 1.0F, 3.0F)) << "as 90";
}

TEST(NerveGuidingSplineCalculator, BoundsThemselvesAreWithin)
{
    Settings settings = makeSettings();
    settings.start_point_angle = 0.0F;
    settings.end_point_angle = 90.0F;
    const WarningLog log;
    pointsOf(settings);
    EXPECT_TRUE(log.texts().isEmpty());
}

TEST(NerveGuidingSplineCalculator, ClampedAngleIsWarnedOfOnce)
{
    Settings settings = makeSettings();
    settings.start_point_angle = 120.0F;
    Calculator calculator(settings);
    GuidingSpline spline;
    const WarningLog log;
    EXPECT_TRUE(calculator.fillSpline(&spline));
    EXPECT_TRUE(calculator.fillSpline(&spline));
    EXPECT_EQ(log.texts(), QStringList{kStartWarning}) << "the copy of the settings is repaired";
    EXPECT_EQ(settings.start_point_angle, 120.0F);
}

// ---- filling

TEST(NerveGuidingSplineCalculator, ReplacesThePointsOfTheSplineInOrder)
{
    RecordingSpline spline;
    spline.appendControlPoint({99.0F, 0.0F, 0.0F});
    spline.log.clear();
    EXPECT_TRUE(Calculator(makeSettings()).fillSpline(&spline));
    EXPECT_EQ(spline.log,
              (std::vector<std::string>{"clear", "append 11.000000", "append 10.000000",
                                        "append 5.000000", "append 0.000000", "append -1.000000"}));
    Points positions;
    for (const auto& point : spline.getControlPoints())
        positions.append(point->getPosition());
    EXPECT_EQ(positions, pointsOf(makeSettings()));
}

TEST(NerveGuidingSplineCalculator, EveryCallComputesAgain)
{
    Calculator calculator(makeSettings());
    EXPECT_TRUE(calculator.getPoints().isEmpty());
    EXPECT_EQ(calculator.getZValue(), 0.0F);
    GuidingSpline spline;
    calculator.fillSpline(&spline);
    calculator.fillSpline(&spline);
    EXPECT_EQ(calculator.getPoints().size(), 5);
    EXPECT_EQ(spline.getControlPoints().size(), 5);
}

TEST(NerveGuidingSplineCalculator, CopyKeepsTheLastComputation)
{
    Calculator calculator(makeSettings());
    GuidingSpline spline;
    calculator.fillSpline(&spline);
    Calculator copy(calculator);
    EXPECT_EQ(copy.getPoints(), calculator.getPoints());
    EXPECT_EQ(copy.getZValue(), 3.0F);
    Calculator assigned{Settings()};
    assigned = calculator;
    EXPECT_EQ(assigned.getPoints(), calculator.getPoints());
    EXPECT_TRUE(assigned.fillSpline(&spline));
}

// ---- bad input

TEST(NerveGuidingSplineCalculator, NullSplineIsNotFilledAndNothingIsLogged)
{
    Calculator calculator(makeSettings());
    const WarningLog log;
    EXPECT_FALSE(calculator.fillSpline(nullptr));
    EXPECT_FALSE(Calculator(Settings()).fillSpline(nullptr));
    EXPECT_TRUE(log.texts().isEmpty());
    EXPECT_TRUE(calculator.getPoints().isEmpty());
}

TEST(NerveGuidingSplineCalculator, NumbersThatAreNotFiniteGivePointsThatAreNot)
{
    for (const float bad : {kNan, kInfinity, -kInfinity}) {
        Settings settings = makeSettings();
        settings.mental_foramen.setX(bad);
        settings.start_point_distance = bad;
        GuidingSpline spline;
        EXPECT_TRUE(Calculator(settings).fillSpline(&spline));
        EXPECT_EQ(spline.getControlPoints().size(), 5);
        EXPECT_TRUE(spline.getOriginalPath().isEmpty());
    }
    Settings settings = makeSettings();
    settings.start_point_angle = kNan;
    const WarningLog log;
    EXPECT_TRUE(std::isnan(pointsOf(settings).first().x()));
    EXPECT_TRUE(log.texts().isEmpty()) << "NaN lies on neither side of the bounds";
}

} // namespace
