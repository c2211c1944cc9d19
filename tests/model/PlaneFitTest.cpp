// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/linearalgebra/PlaneFit.h>

// algebra::fitPlane: the plane of least squares, the sign of its normal, and points that span no
// plane.

#include <gtest/gtest.h>

#include <Eigen/Geometry>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

namespace {

using Points = std::vector<Eigen::Vector3d>;

// The decomposition rounds in double precision.
constexpr double kRounding = 1e-12;

static_assert(std::is_aggregate_v<algebra::Plane>);

void expectNear(const Eigen::Vector3d& actual, const Eigen::Vector3d& expected,
                double tolerance = kRounding)
{
    EXPECT_LE((actual - expected).norm(), tolerance)
        << actual.transpose() << " for " << expected.transpose();
}

TEST(AlgebraPlane, HoldsTheNormalFirst)
{
    const algebra::Plane plane{Eigen::Vector3d::UnitZ(), Eigen::Vector3d::Ones()};
    EXPECT_EQ(plane.normal, Eigen::Vector3d(0.0, 0.0, 1.0));
    EXPECT_EQ(plane.point, Eigen::Vector3d(1.0, 1.0, 1.0));
}

TEST(AlgebraPlane, IsZeroByDefault)
{
    const algebra::Plane plane;
    EXPECT_EQ(plane.normal, Eigen::Vector3d::Zero());
    EXPECT_EQ(plane.point, Eigen::Vector3d::Zero());
}

TEST(FitPlane, GoesThroughThreePoints)
{
    // x + 2y + 2z = 9, normal (1, 2, 2) / 3
    const auto plane = algebra::fitPlane({{9.0, 0.0, 0.0}, {0.0, 4.5, 0.0}, {0.0, 0.0, 4.5}});
    ASSERT_TRUE(plane);
    expectNear(plane.value().normal, {1.0 / 3.0, 2.0 / 3.0, 2.0 / 3.0});
    expectNear(plane.value().point, {3.0, 1.5, 1.5});
}

TEST(FitPlane, PointIsTheCentroid)
{
    const auto plane =
        algebra::fitPlane({{0.0, 0.0, 5.0}, {8.0, 0.0, 5.0}, {0.0, 4.0, 5.0}, {0.0, 0.0, 5.0}});
    ASSERT_TRUE(plane);
    expectNear(plane.value().point, {2.0, 1.0, 5.0});
    expectNear(plane.value().normal, {0.0, 0.0, 1.0});
}

TEST(FitPlane, LeavesTheLeastSquaredDistances)
{
    // Two points are 1/4 above and two 1/4 below z = 3, balanced along x and y, so that the plane
    // is z = 3 by symmetry.
    const auto plane = algebra::fitPlane(
        {{1.0, 1.0, 3.25}, {-1.0, -1.0, 3.25}, {1.0, -1.0, 2.75}, {-1.0, 1.0, 2.75}});
    ASSERT_TRUE(plane);
    expectNear(plane.value().normal, {0.0, 0.0, 1.0});
    expectNear(plane.value().point, {0.0, 0.0, 3.0});
}

TEST(FitPlane, LargestComponentOfTheNormalIsPositive)
{
    // x - 5y + z = 0 has two unit normals, one with positive y.
    const auto plane =
        algebra::fitPlane({{5.0, 1.0, 0.0}, {0.0, 1.0, 5.0}, {0.0, 0.0, 0.0}, {1.0, 0.0, -1.0}});
    ASSERT_TRUE(plane);
    expectNear(plane.value().normal, Eigen::Vector3d(-1.0, 5.0, -1.0) / std::sqrt(27.0));
    // 7x + y - z = 0 and its mirror image have a normal with positive x.
    const auto towardsX = algebra::fitPlane({{0.0, 1.0, 1.0}, {1.0, -7.0, 0.0}, {0.0, 0.0, 0.0}});
    ASSERT_TRUE(towardsX);
    expectNear(towardsX.value().normal, Eigen::Vector3d(7.0, 1.0, -1.0) / std::sqrt(51.0));
    const auto mirrored = algebra::fitPlane({{0.0, 1.0, 1.0}, {-1.0, -7.0, 0.0}, {0.0, 0.0, 0.0}});
    ASSERT_TRUE(mirrored);
    expectNear(mirrored.value().normal, Eigen::Vector3d(7.0, -1.0, 1.0) / std::sqrt(51.0));
}

TEST(FitPlane, FewerThanThreePointsSpanNone)
{
    EXPECT_FALSE(algebra::fitPlane({}));
    EXPECT_FALSE(algebra::fitPlane({{1.0, 2.0, 3.0}}));
    EXPECT_FALSE(algebra::fitPlane({{1.0, 2.0, 3.0}, {4.0, 5.0, 7.0}}));
}

TEST(FitPlane, PointsInOnePlaceSpanNone)
{
    EXPECT_FALSE(algebra::fitPlane(Points(3, Eigen::Vector3d(0.0, 0.0, 0.0))));
    EXPECT_FALSE(algebra::fitPlane(Points(1000, Eigen::Vector3d(0.1, 0.2, 0.3))));
}

TEST(FitPlane, PointsInALineSpanNone)
{
    EXPECT_FALSE(algebra::fitPlane({{0.0, 0.0, 0.0}, {1.0, 2.0, 3.0}, {2.0, 4.0, 6.0}}));
    EXPECT_FALSE(algebra::fitPlane({{1.0, 1.0, 1.0}, {1.0, 1.0, 1.0}, {5.0, 6.0, 7.0}}));
    Points line;
    for (int i = 0; i < 100; ++i)
        line.emplace_back(0.37 * i - 5.0, 20.0 + 0.1 * i, 400.0 - 0.7 * i);
    EXPECT_FALSE(algebra::fitPlane(line));
}

TEST(FitPlane, PointsInAShortLineFarAwaySpanNone)
{
    // y and z are the same for all points; the rounding of their mean must not count as spread.
    Points line;
    for (int i = 0; i < 10; ++i)
        line.emplace_back(0.001 * i, 1e5 / 3.0, 1e5 / 3.0);
    EXPECT_FALSE(algebra::fitPlane(line));
}

TEST(FitPlane, LineEndsAtABillionthOfTheSpread)
{
    const auto cross = [](double across) {
        return algebra::fitPlane(
            {{1.0, 0.0, 0.0}, {-1.0, 0.0, 0.0}, {0.0, across, 0.0}, {0.0, -across, 0.0}});
    };
    EXPECT_FALSE(cross(0.9e-9));
    const auto plane = cross(1.1e-9);
    ASSERT_TRUE(plane);
    expectNear(plane.value().normal, {0.0, 0.0, 1.0});
}

TEST(FitPlane, PointThatIsNotFiniteSpansNone)
{
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity()}) {
        for (int axis = 0; axis < 3; ++axis) {
            Points points{{9.0, 0.0, 0.0}, {0.0, 4.5, 0.0}, {0.0, 0.0, 4.5}, {1.0, 1.0, 1.0}};
            points[2][axis] = bad;
            EXPECT_FALSE(algebra::fitPlane(points)) << bad << " on axis " << axis;
        }
    }
}

TEST(FitPlane, WorksFromVerySmallToVeryLargeCoordinates)
{
    for (const double unit : {1e-300, 1e-100, 1.0, 1e100, 1e300}) {
        const auto plane = algebra::fitPlane(
            {{9.0 * unit, 0.0, 0.0}, {0.0, 4.5 * unit, 0.0}, {0.0, 0.0, 4.5 * unit}});
        ASSERT_TRUE(plane) << unit;
        expectNear(plane.value().normal, {1.0 / 3.0, 2.0 / 3.0, 2.0 / 3.0});
    }
}

TEST(FitPlane, FindsAPlaneAnywhereAndForAnyOrderOfThePoints)
{
    constexpr unsigned kSeed = 271828;
    SCOPED_TRACE(::testing::Message() << "seed " << kSeed);
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    const auto vector = [&] { return Eigen::Vector3d(unit(random), unit(random), unit(random)); };
    for (int round = 0; round < 100; ++round) {
        SCOPED_TRACE(round);
        const Eigen::Quaterniond turn(Eigen::AngleAxisd(3.0 * unit(random), vector().normalized()));
        const Eigen::Vector3d shift = 200.0 * vector();
        Points points;
        for (int i = 0; i < 20; ++i)
            points.push_back(turn * Eigen::Vector3d(30.0 * unit(random), 30.0 * unit(random), 0.0) +
                             shift);
        const auto plane = algebra::fitPlane(points);
        ASSERT_TRUE(plane);
        Eigen::Vector3d normal = turn * Eigen::Vector3d::UnitZ();
        if (normal.dot(plane.value().normal) < 0.0)
            normal = -normal;
        expectNear(plane.value().normal, normal);
        EXPECT_GT(plane.value().normal.maxCoeff(), -plane.value().normal.minCoeff());
        EXPECT_NEAR(normal.dot(plane.value().point - shift), 0.0, 1e-10);
        std::shuffle(points.begin(), points.end(), random);
        const auto shuffled = algebra::fitPlane(points);
        ASSERT_TRUE(shuffled);
        expectNear(shuffled.value().normal, plane.value().normal);
    }
}

} // namespace
