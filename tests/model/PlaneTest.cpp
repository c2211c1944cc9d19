// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/math/Plane.h>

// primitives::Plane (and primitives::QRay3D, which it meets): normals, distances, intersection,
// projection, transforms.

#include <CoreAlgorithms/model/math/QRay3D.h>

#include <gtest/gtest.h>

#include <QMatrix4x4>

#include <cmath>
#include <limits>
#include <random>

namespace {

using primitives::Plane;
using primitives::QRay3D;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

const Plane kLevelFive(QVector3D(1.0F, 2.0F, 5.0F),
                       QVector3D(0.0F, 0.0F, 1.0F)); // z = 5, with the normal up
const QVector3D kUntouched(-1.0F, -2.0F, -3.0F);

// ---- construction

TEST(Plane, ThroughThreePointsHasTheNormalOfTheCounterclockwiseTurn)
{
    // (2, 0, 0) x (0, 3, 0) = (0, 0, 6)
    const Plane plane({0.0F, 0.0F, 5.0F}, {2.0F, 0.0F, 5.0F}, {0.0F, 3.0F, 5.0F});
    EXPECT_EQ(plane.getNormal(), QVector3D(0.0F, 0.0F, 1.0F));
    EXPECT_EQ(plane.getPoint(), QVector3D(0.0F, 0.0F, 5.0F));
}

TEST(Plane, TwoPointsExchangedReverseTheNormal)
{
    const Plane plane({0.0F, 0.0F, 5.0F}, {0.0F, 3.0F, 5.0F}, {2.0F, 0.0F, 5.0F});
    EXPECT_EQ(plane.getNormal(), QVector3D(0.0F, 0.0F, -1.0F));
}

TEST(Plane, NormalIsMadeUnitLength)
{
    const Plane plane(QVector3D(1.0F, 1.0F, 1.0F), QVector3D(3.0F, 4.0F, 0.0F));
    EXPECT_EQ(plane.getNormal(), QVector3D(0x1.333334p-1F, 0x1.99999ap-1F, 0.0F)); // 0.6 and 0.8
    EXPECT_EQ(plane.getPoint(), QVector3D(1.0F, 1.0F, 1.0F));
}

TEST(Plane, NormalAlmostOfUnitLengthIsKept)
{
    EXPECT_EQ(Plane(QVector3D(), QVector3D(0.0F, 0.0F, 1.000008F)).getNormal(),
              QVector3D(0.0F, 0.0F, 1.000008F));
    EXPECT_EQ(Plane(QVector3D(), QVector3D(0.0F, 0.0F, 1.00002F)).getNormal(),
              QVector3D(0.0F, 0.0F, 1.0F));
}

TEST(Plane, NormalAlmostOfNoLengthIsZero)
{
    EXPECT_EQ(Plane(QVector3D(), QVector3D(0.0F, 0.0F, 0.9e-5F)).getNormal(), QVector3D());
    EXPECT_EQ(Plane(QVector3D(), QVector3D(0.0F, 0.0F, 1.1e-5F)).getNormal(),
              QVector3D(0.0F, 0.0F, 1.0F));
}

TEST(Plane, TriangleOfThreeMicrometresIsDegenerate)
{
    // Legs of 0.003 mm: the cross product has the length 9e-6, which counts as zero; with 0.004 mm
    // it is 1.6e-5.
    EXPECT_EQ(Plane(QVector3D(), QVector3D(0.003F, 0.0F, 0.0F), QVector3D(0.0F, 0.003F, 0.0F))
                  .getNormal(),
              QVector3D());
    EXPECT_EQ(Plane(QVector3D(), QVector3D(0.004F, 0.0F, 0.0F), QVector3D(0.0F, 0.004F, 0.0F))
                  .getNormal(),
              QVector3D(0.0F, 0.0F, 1.0F));
}

TEST(Plane, ThroughPointsInALineIsDegenerate)
{
    EXPECT_EQ(Plane({0.0F, 0.0F, 0.0F}, {1.0F, 2.0F, 3.0F}, {2.0F, 4.0F, 6.0F}).getNormal(),
              QVector3D());
    EXPECT_EQ(Plane({1.0F, 2.0F, 3.0F}, {1.0F, 2.0F, 3.0F}, {1.0F, 2.0F, 3.0F}).getNormal(),
              QVector3D());
}

TEST(Plane, CopyIsIndependentOfTheOriginal)
{
    Plane original = kLevelFive;
    const Plane copy = original;
    QMatrix4x4 matrix;
    matrix.translate(0.0F, 0.0F, 1.0F);
    original.transform(matrix);
    EXPECT_EQ(original.getPoint(), QVector3D(1.0F, 2.0F, 6.0F));
    EXPECT_EQ(copy.getPoint(), QVector3D(1.0F, 2.0F, 5.0F));
    original = copy;
    EXPECT_EQ(original.getPoint(), QVector3D(1.0F, 2.0F, 5.0F));
}

// ---- signed distance

TEST(Plane, DistanceIsPositiveOnTheSideOfTheNormal)
{
    EXPECT_EQ(kLevelFive.getSignedDistance({7.0F, 8.0F, 9.0F}), 4.0F);
    EXPECT_EQ(kLevelFive.getSignedDistance({7.0F, 8.0F, 2.0F}), -3.0F);
    EXPECT_EQ(kLevelFive.getSignedDistance({7.0F, 8.0F, 5.0F}), 0.0F);
}

TEST(Plane, DistanceIsTakenFromTheDifferenceOfThePoints)
{
    // Far from the origin, single precision has steps of 2. The difference of the points is exactly
    // 2, and the distance is 2 * 0.6.
    const Plane plane(QVector3D(16777216.0F, 0.0F, 0.0F), QVector3D(3.0F, 4.0F, 0.0F));
    EXPECT_EQ(plane.getSignedDistance({16777218.0F, 0.0F, 0.0F}), 0x1.333334p+0F);
}

TEST(Plane, DistanceFromADegeneratePlaneIsZero)
{
    const Plane degenerate(QVector3D(1.0F, 2.0F, 3.0F), QVector3D());
    EXPECT_EQ(degenerate.getSignedDistance({100.0F, -50.0F, 7.0F}), 0.0F);
}

TEST(Plane, DistanceOfANanIsNan)
{
    EXPECT_TRUE(std::isnan(kLevelFive.getSignedDistance({kNan, kNan, kNan})));
}

// ---- intersection

TEST(QRay3D, HoldsOriginAndDirectionAsGiven)
{
    const QRay3D ray({1.0F, 2.0F, 3.0F}, {4.0F, 5.0F, 6.0F});
    EXPECT_EQ(ray.origin(), QVector3D(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(ray.direction(), QVector3D(4.0F, 5.0F, 6.0F)) << "not normalized";
}

TEST(Plane, MeetsTheRayInFrontOfItsOrigin)
{
    QVector3D meetingPoint;
    EXPECT_TRUE(kLevelFive.intersect(QRay3D({0.0F, 0.0F, 0.0F}, {1.0F, 2.0F, 0.5F}), meetingPoint));
    EXPECT_EQ(meetingPoint, QVector3D(10.0F, 20.0F, 5.0F));
}

TEST(Plane, MeetsTheLineOfTheRayBehindItsOrigin)
{
    QVector3D meetingPoint;
    EXPECT_TRUE(kLevelFive.intersect(QRay3D({0.0F, 0.0F, 7.0F}, {1.0F, 2.0F, 0.5F}), meetingPoint));
    EXPECT_EQ(meetingPoint, QVector3D(-4.0F, -8.0F, 5.0F));
}

TEST(Plane, MeetsARayThatStartsOnItAtItsOrigin)
{
    QVector3D meetingPoint;
    EXPECT_TRUE(kLevelFive.intersect(QRay3D({3.0F, 4.0F, 5.0F}, {1.0F, 2.0F, 0.5F}), meetingPoint));
    EXPECT_EQ(meetingPoint, QVector3D(3.0F, 4.0F, 5.0F));
}

TEST(Plane, MeetsTheRayFromEitherSideInTheSamePoint)
{
    const Plane lookingDown(kLevelFive.getPoint(), -kLevelFive.getNormal());
    QVector3D meetingPoint;
    EXPECT_TRUE(
        lookingDown.intersect(QRay3D({0.0F, 0.0F, 0.0F}, {1.0F, 2.0F, 0.5F}), meetingPoint));
    EXPECT_EQ(meetingPoint, QVector3D(10.0F, 20.0F, 5.0F));
}

TEST(Plane, NoFiniteMeetingPointDoesNotChangeTheResult)
{
    const struct
    {
        const char* name;
        QVector3D origin;
        QVector3D direction;
    } rays[] = {
        {"parallel", {0.0F, 0.0F, 0.0F}, {1.0F, 1.0F, 0.0F}},
        {"in the plane", {0.0F, 0.0F, 5.0F}, {1.0F, 1.0F, 0.0F}},
        {"without a direction", {0.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 0.0F}},
        {"so nearly parallel that the way overflows", {0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 1e-40F}},
        {"NaN in the origin", {kNan, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F}},
        {"NaN in the direction", {0.0F, 0.0F, 0.0F}, {0.0F, kNan, 1.0F}},
        {"from infinitely far away", {0.0F, 0.0F, -kInfinity}, {0.0F, 0.0F, 1.0F}},
        {"infinite along the plane", {0.0F, 0.0F, 0.0F}, {kInfinity, 0.0F, 1.0F}},
    };
    for (const auto& ray : rays) {
        SCOPED_TRACE(ray.name);
        QVector3D meetingPoint = kUntouched;
        EXPECT_FALSE(kLevelFive.intersect(QRay3D(ray.origin, ray.direction), meetingPoint));
        EXPECT_EQ(meetingPoint, kUntouched);
    }
}

TEST(Plane, InfiniteDirectionMeetsItNowhere)
{
    // The distance is 5 / infinity = 0, but infinity times 0 is NaN.
    QVector3D meetingPoint = kUntouched;
    EXPECT_FALSE(
        kLevelFive.intersect(QRay3D({0.0F, 0.0F, 0.0F}, {0.0F, 0.0F, kInfinity}), meetingPoint));
    EXPECT_EQ(meetingPoint, kUntouched);
}

TEST(Plane, DegeneratePlaneMeetsNothing)
{
    const Plane degenerate(QVector3D(0.0F, 0.0F, 5.0F), QVector3D());
    QVector3D meetingPoint = kUntouched;
    EXPECT_FALSE(
        degenerate.intersect(QRay3D({0.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F}), meetingPoint));
    EXPECT_EQ(meetingPoint, kUntouched);
}

TEST(Plane, PlaneOfNansMeetsNothing)
{
    const Plane bad(QVector3D(kNan, kNan, kNan), QVector3D(kNan, 0.0F, 1.0F));
    QVector3D meetingPoint = kUntouched;
    EXPECT_FALSE(bad.intersect(QRay3D({0.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F}), meetingPoint));
    EXPECT_EQ(meetingPoint, kUntouched);
}

// ---- projection

TEST(Plane, ProjectsAlongTheDirectionEitherWay)
{
    EXPECT_EQ(kLevelFive.project({3.0F, 4.0F, 9.0F}, {0.0F, 0.0F, 1.0F}),
              QVector3D(3.0F, 4.0F, 5.0F));
    EXPECT_EQ(kLevelFive.project({0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 1.0F}),
              QVector3D(5.0F, 0.0F, 5.0F));
    EXPECT_EQ(kLevelFive.project({0.0F, 0.0F, 0.0F}, {-2.0F, 0.0F, -2.0F}),
              QVector3D(5.0F, 0.0F, 5.0F));
}

TEST(Plane, ProjectionWithoutAMeetingPointIsThePositionItself)
{
    const QVector3D position(3.0F, 4.0F, 9.0F);
    EXPECT_EQ(kLevelFive.project(position, {1.0F, 1.0F, 0.0F}), position);
    EXPECT_EQ(kLevelFive.project(position, {0.0F, 0.0F, 0.0F}), position);
    EXPECT_EQ(kLevelFive.project(position, {0.0F, 0.0F, kNan}), position);
    EXPECT_EQ(Plane(position, QVector3D()).project(position, {0.0F, 0.0F, 1.0F}), position);
}

// ---- transforms

TEST(Plane, TranslationMovesThePointAndKeepsTheNormal)
{
    Plane plane(QVector3D(1.0F, 2.0F, 3.0F), QVector3D(3.0F, 4.0F, 0.0F));
    QMatrix4x4 matrix;
    matrix.translate(10.0F, 20.0F, 30.0F);
    plane.transform(matrix);
    EXPECT_EQ(plane.getPoint(), QVector3D(11.0F, 22.0F, 33.0F));
    EXPECT_EQ(plane.getNormal(), QVector3D(0x1.333334p-1F, 0x1.99999ap-1F, 0.0F));
}

TEST(Plane, QuarterTurnTurnsPointAndNormal)
{
    Plane plane(QVector3D(1.0F, 2.0F, 3.0F), QVector3D(1.0F, 0.0F, 0.0F));
    // (x, y, z) -> (-y, x, z)
    plane.transform(QMatrix4x4(0.0F, -1.0F, 0.0F, 0.0F, //
                               1.0F, 0.0F, 0.0F, 0.0F,  //
                               0.0F, 0.0F, 1.0F, 0.0F,  //
                               0.0F, 0.0F, 0.0F, 1.0F));
    EXPECT_EQ(plane.getPoint(), QVector3D(-2.0F, 1.0F, 3.0F));
    EXPECT_EQ(plane.getNormal(), QVector3D(0.0F, 1.0F, 0.0F));
}

TEST(Plane, UnevenScaleTurnsTheNormalAgainstTheStretch)
{
    // x + y = 1 becomes x / 2 + y = 1: the normal changes from (1, 1, 0) to (1, 2, 0), not to (2,
    // 1, 0).
    Plane plane(QVector3D(1.0F, 0.0F, 0.0F), QVector3D(1.0F, 1.0F, 0.0F));
    QMatrix4x4 matrix;
    matrix.scale(2.0F, 1.0F, 1.0F);
    plane.transform(matrix);
    EXPECT_EQ(plane.getPoint(), QVector3D(2.0F, 0.0F, 0.0F));
    // The tolerance covers two roundings to unit length in single precision.
    EXPECT_NEAR(plane.getNormal().x(), 0.4472136F, 2e-7F);
    EXPECT_NEAR(plane.getNormal().y(), 0.8944272F, 2e-7F);
    EXPECT_EQ(plane.getNormal().z(), 0.0F);
    EXPECT_NEAR(plane.getSignedDistance({0.0F, 1.0F, 0.0F}), 0.0F, 5e-7F)
        << "a point of the new plane";
}

TEST(Plane, ShearTurnsTheNormalWithThePlane)
{
    // x = 0 under (x, y, z) -> (x + y, y, z) becomes x - y = 0.
    Plane plane(QVector3D(0.0F, 1.0F, 0.0F), QVector3D(1.0F, 0.0F, 0.0F));
    plane.transform(QMatrix4x4(1.0F, 1.0F, 0.0F, 0.0F, //
                               0.0F, 1.0F, 0.0F, 0.0F, //
                               0.0F, 0.0F, 1.0F, 0.0F, //
                               0.0F, 0.0F, 0.0F, 1.0F));
    EXPECT_EQ(plane.getPoint(), QVector3D(1.0F, 1.0F, 0.0F));
    EXPECT_NEAR(plane.getNormal().x(), 0.70710678F, 2e-7F);
    EXPECT_NEAR(plane.getNormal().y(), -0.70710678F, 2e-7F);
}

TEST(Plane, MirroringReversesTheNormal)
{
    Plane plane(QVector3D(3.0F, 0.0F, 0.0F), QVector3D(1.0F, 0.0F, 0.0F));
    QMatrix4x4 matrix;
    matrix.scale(-1.0F, 1.0F, 1.0F);
    plane.transform(matrix);
    EXPECT_EQ(plane.getPoint(), QVector3D(-3.0F, 0.0F, 0.0F));
    EXPECT_EQ(plane.getNormal(), QVector3D(-1.0F, 0.0F, 0.0F));
}

TEST(Plane, DegeneratePlaneStaysDegenerateUnderATransform)
{
    Plane plane(QVector3D(1.0F, 2.0F, 3.0F), QVector3D());
    QMatrix4x4 matrix;
    matrix.rotate(30.0F, 1.0F, 2.0F, 3.0F);
    plane.transform(matrix);
    EXPECT_EQ(plane.getNormal(), QVector3D());
}

TEST(Plane, RigidMotionOfPlaneAndPositionKeepsTheDistance)
{
    constexpr unsigned kSeed = 99;
    SCOPED_TRACE(::testing::Message() << "seed " << kSeed);
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<float> unit(-1.0F, 1.0F);
    const auto vector = [&] { return QVector3D(unit(random), unit(random), unit(random)); };
    for (int round = 0; round < 200; ++round) {
        Plane plane(50.0F * vector(), vector() + QVector3D(0.0F, 0.0F, 1.5F));
        const QVector3D position = 50.0F * vector();
        const float before = plane.getSignedDistance(position);
        QMatrix4x4 motion;
        motion.translate(50.0F * vector());
        motion.rotate(180.0F * unit(random), vector());
        plane.transform(motion);
        // Coordinates of up to 140 mm have steps of 1.5e-5 mm in single precision.
        ASSERT_NEAR(plane.getSignedDistance(motion.map(position)), before, 1e-4F)
            << "round " << round;
    }
}

TEST(Plane, PointsGivenToItLieOnIt)
{
    constexpr unsigned kSeed = 7;
    SCOPED_TRACE(::testing::Message() << "seed " << kSeed);
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<float> coordinate(-50.0F, 50.0F);
    const auto point = [&] {
        return QVector3D(coordinate(random), coordinate(random), coordinate(random));
    };
    for (int round = 0; round < 200; ++round) {
        const QVector3D a = point();
        const QVector3D b = point();
        const QVector3D c = point();
        const Plane plane(a, b, c);
        ASSERT_NEAR(plane.getNormal().length(), 1.0F, 1.1e-5F)
            << "round " << round; // the tolerance of normalized()
        for (const QVector3D& corner : {a, b, c})
            ASSERT_NEAR(plane.getSignedDistance(corner), 0.0F, 1e-3F) << "round " << round;
    }
}

} // namespace
