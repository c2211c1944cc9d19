// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/math/Operations.h>

// math::Operations::getRotationTo: the shortest rotation, opposite directions, vectors without a
// direction.

#include <gtest/gtest.h>

#include <QVector3D>

#include <limits>
#include <random>

namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

const QVector3D kX(1.0F, 0.0F, 0.0F);
const QVector3D kY(0.0F, 1.0F, 0.0F);
const QVector3D kZ(0.0F, 0.0F, 1.0F);
const QQuaternion kIdentity(1.0F, 0.0F, 0.0F, 0.0F);

QQuaternion rotationTo(const QVector3D& from, const QVector3D& to, const QVector3D& axis)
{
    return math::Operations::getRotationTo(from, to, axis);
}

void expectNear(const QVector3D& actual, const QVector3D& expected, float tolerance)
{
    for (int axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(actual[axis], expected[axis], tolerance) << "axis " << axis;
}

TEST(GetRotationTo, TurnsByTheAngleBetweenTheDirectionsAboutTheirCrossProduct)
{
    const QQuaternion quarterTurn = rotationTo(kX, kY, kX);
    // cos 45 and sin 45 degrees, rounded once by the normalization
    EXPECT_NEAR(quarterTurn.scalar(), 0.70710678F, 1e-7F);
    expectNear(quarterTurn.vector(), {0.0F, 0.0F, 0.70710678F}, 1e-7F);
}

TEST(GetRotationTo, BetweenEqualDirectionsIsTheIdentity)
{
    EXPECT_EQ(rotationTo(kX, kX, kZ), kIdentity);
    EXPECT_EQ(rotationTo({0.0F, 3.0F, 4.0F}, {0.0F, 3.0F, 4.0F}, kX), kIdentity);
}

TEST(GetRotationTo, IsIndependentOfLengths)
{
    const QQuaternion expected = rotationTo(kX, kY, kZ);
    EXPECT_EQ(rotationTo(kX * 100.0F, kY * 0.01F, kZ), expected);
    EXPECT_EQ(rotationTo(kX * 1e30F, kY * 1e-4F, kZ), expected);
}

TEST(GetRotationTo, LooksAtTheAxisOnlyForOppositeDirections)
{
    const QQuaternion expected = rotationTo(kX, kY, kZ);
    EXPECT_EQ(rotationTo(kX, kY, {1.0F, 2.0F, 3.0F}), expected);
    EXPECT_EQ(rotationTo(kX, kY, {0.0F, 0.0F, 0.0F}), expected);
    EXPECT_EQ(rotationTo(kX, kY, {kNan, kNan, kNan}), expected);
}

TEST(GetRotationTo, OppositeDirectionsAreTurnedByExactlyHalfATurnAboutTheAxis)
{
    EXPECT_EQ(rotationTo(kX, -kX, kZ), QQuaternion(0.0F, 0.0F, 0.0F, 1.0F));
    EXPECT_EQ(rotationTo(kX, -kX, kY), QQuaternion(0.0F, 0.0F, 1.0F, 0.0F));
    EXPECT_EQ(rotationTo(kZ * 5.0F, kZ * -0.5F, kX), QQuaternion(0.0F, 1.0F, 0.0F, 0.0F));
}

TEST(GetRotationTo, AxisOfAHalfTurnNeedNotHaveUnitLength)
{
    EXPECT_EQ(rotationTo(kX, -kX, kZ * 8.0F), QQuaternion(0.0F, 0.0F, 0.0F, 1.0F));
    EXPECT_EQ(rotationTo(kX, -kX, kZ * -8.0F), QQuaternion(0.0F, 0.0F, 0.0F, -1.0F));
}

TEST(GetRotationTo, OppositeObliqueDirectionsAreTurnedAboutTheAxis)
{
    EXPECT_EQ(rotationTo({1.0F, 2.0F, 0.0F}, {-1.0F, -2.0F, 0.0F}, kZ),
              QQuaternion(0.0F, 0.0F, 0.0F, 1.0F));
    EXPECT_EQ(rotationTo({1.0F, 2.0F, 0.0F}, {-3.0F, -6.0F, 0.0F}, kZ),
              QQuaternion(0.0F, 0.0F, 0.0F, 1.0F));
}

TEST(GetRotationTo, OppositeDirectionsOfAlmostUnitLengthAreTurnedToo)
{
    // Unit vectors written with four digits; QVector3D::normalized() keeps lengths so close to 1.
    EXPECT_EQ(rotationTo({0.7071F, 0.7071F, 0.0F}, {-0.7071F, -0.7071F, 0.0F}, kZ),
              QQuaternion(0.0F, 0.0F, 0.0F, 1.0F));
}

TEST(GetRotationTo, DirectionsAFewHundredthsOfADegreeFromOppositeAreStillTakenOntoEachOther)
{
    const QVector3D to(-1.0F, 0.002F, 0.0F);
    // Single precision holds the components to 6e-8.
    expectNear(rotationTo(kX, to, kZ).rotatedVector(kX), to, 1e-5F);
}

TEST(GetRotationTo, VectorWithoutADirectionGivesTheIdentity)
{
    const QVector3D bad[] = {
        {0.0F, 0.0F, 0.0F},   {0.0F, 0.0F, 1e-6F}, // zero for QVector3D::normalized()
        {kNan, 0.0F, 0.0F},   {0.0F, kInfinity, 0.0F}, {-kInfinity, kInfinity, 1.0F},
        {3e38F, 3e38F, 3e38F}}; // its length overflows
    for (const QVector3D& vector : bad) {
        EXPECT_EQ(rotationTo(vector, kY, kZ), kIdentity);
        EXPECT_EQ(rotationTo(kY, vector, kZ), kIdentity);
        EXPECT_EQ(rotationTo(vector, -vector, kZ), kIdentity);
        EXPECT_EQ(rotationTo(kX, -kX, vector), kIdentity) << "needed as the axis";
    }
}

TEST(GetRotationTo, TakesTheFirstDirectionOntoTheSecondTheShortWay)
{
    constexpr unsigned kSeed = 31337;
    SCOPED_TRACE(::testing::Message() << "seed " << kSeed);
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<float> unit(-1.0F, 1.0F);
    const auto direction = [&] {
        for (;;) {
            const QVector3D vector(unit(random), unit(random), unit(random));
            if (vector.length() > 0.1F)
                return vector.normalized();
        }
    };
    for (int round = 0; round < 500; ++round) {
        const QVector3D from = direction();
        const QVector3D to = direction();
        const QQuaternion rotation = rotationTo(from * 3.0F, to * 0.2F, kZ);
        SCOPED_TRACE(round);
        // Near half a turn, rounding changes the sine of the half angle by up to 1e-7 divided by
        // the remaining angle.
        expectNear(rotation.rotatedVector(from), to, 5e-5F);
        EXPECT_GE(rotation.scalar(), 0.0F) << "at most half a turn";
        EXPECT_NEAR(rotation.length(), 1.0F, 1e-6F);
        EXPECT_NEAR(QVector3D::dotProduct(rotation.vector(), from), 0.0F, 1e-5F)
            << "the axis is square to both";
        EXPECT_NEAR(QVector3D::dotProduct(rotation.vector(), to), 0.0F, 1e-5F);
    }
}

TEST(GetRotationTo, BackwardsIsTheInverse)
{
    const QVector3D from(1.0F, 2.0F, 3.0F);
    const QVector3D to(-2.0F, 1.0F, 0.5F);
    const QQuaternion forward = rotationTo(from, to, kZ);
    const QQuaternion backward = rotationTo(to, from, kZ);
    EXPECT_EQ(backward, forward.conjugated())
        << "exchanged operands change the sign of the cross product alone";
}

} // namespace
