// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/IntersectionCalculator.h>

// Covered: where a plane cuts the border of a reslice's rectangle, the order of the points,
// corners, edges in the plane.

#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <tests/support/ExactComparison.h>
#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace {

using test::expectPoint;
using test::makePlanarReslice;
using test::RandomGeometry;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

static_assert(std::has_virtual_destructor_v<IntersectionCalculator>);
static_assert(sizeof(IntersectionCalculator) == sizeof(void*), "no data beside the virtual table");
static_assert(std::is_default_constructible_v<IntersectionCalculator> &&
              std::is_copy_constructible_v<IntersectionCalculator> &&
              std::is_copy_assignable_v<IntersectionCalculator>);

// 100 wide along x, 80 high along y, corners (10, 20) and (110, 100), in the plane z = 5.
std::shared_ptr<PlanarReslice> makeReslice()
{
    QMatrix4x4 placement;
    placement.translate(10.0F, 20.0F, 5.0F);
    return makePlanarReslice(100.0F, 80.0F, 1.0F, placement);
}

QList<QVector3D> intersections(const QVector3D& pointOnPlane, const QVector3D& normal)
{
    const auto reslice = makeReslice();
    return IntersectionCalculator::calculatePlaneIntersections(pointOnPlane, normal, reslice.get());
}

TEST(IntersectionCalculator, NullResliceHasNoIntersections)
{
    EXPECT_TRUE(IntersectionCalculator::calculatePlaneIntersections({}, {1.0F, 0.0F, 0.0F}, nullptr)
                    .isEmpty());
}

TEST(IntersectionCalculator, PlaneAcrossTheRectangleMeetsTwoEdgesInTheirOrder)
{
    // x = 60 meets the top (edge 2), then the bottom (edge 4).
    const auto across = intersections({60.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F});
    ASSERT_EQ(across.size(), 2);
    expectPoint(across[0], 60.0F, 100.0F, 5.0F);
    expectPoint(across[1], 60.0F, 20.0F, 5.0F);

    // y = 40 meets the left (edge 1), then the right side (edge 3).
    const auto along = intersections({0.0F, 40.0F, 0.0F}, {0.0F, 1.0F, 0.0F});
    ASSERT_EQ(along.size(), 2);
    expectPoint(along[0], 10.0F, 40.0F, 5.0F);
    expectPoint(along[1], 110.0F, 40.0F, 5.0F);
}

TEST(IntersectionCalculator, NeitherLengthNorSignOfTheNormalChangesThePoints)
{
    const auto across = intersections({60.0F, 0.0F, 0.0F}, {-4.0F, 0.0F, 0.0F});
    ASSERT_EQ(across.size(), 2);
    expectPoint(across[0], 60.0F, 100.0F, 5.0F);
    expectPoint(across[1], 60.0F, 20.0F, 5.0F);
}

TEST(IntersectionCalculator, ObliquePlaneMeetsAdjacentEdges)
{
    // x + y = 80: on the left side at (10, 70), on the bottom at (60, 20).
    const auto corner = intersections({80.0F, 0.0F, 0.0F}, {1.0F, 1.0F, 0.0F});
    ASSERT_EQ(corner.size(), 2);
    expectPoint(corner[0], 10.0F, 70.0F, 5.0F);
    expectPoint(corner[1], 60.0F, 20.0F, 5.0F);
}

TEST(IntersectionCalculator, EdgesRunAroundTheRectangleAndCountFromTheirOwnStart)
{
    // 53 / 100 and 47 / 100 are no floats. From the left, x = 63 is met at 10 + 0.53F * 100, an ulp
    // below it; from the right at 110 - 0.47F * 100, exactly.
    const auto across = intersections({63.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F});
    ASSERT_EQ(across.size(), 2);
    expectPoint(across[0], 0x1.f7fffep+5F, 100.0F, 5.0F);
    expectPoint(across[1], 63.0F, 20.0F, 5.0F);
}

TEST(IntersectionCalculator, PlaneThatMissesTheRectangleHasNoIntersections)
{
    EXPECT_TRUE(intersections({111.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}).isEmpty());
    EXPECT_TRUE(intersections({0.0F, 0.0F, 9.0F}, {0.0F, 0.0F, 1.0F}).isEmpty()); // parallel to it
}

TEST(IntersectionCalculator, PlaneOfTheRectangleItselfHasNoIntersections)
{
    EXPECT_TRUE(intersections({0.0F, 0.0F, 5.0F}, {0.0F, 0.0F, 1.0F}).isEmpty());
}

TEST(IntersectionCalculator, PlaneThroughAWholeEdgeGivesOnlyThePointsOnTheOtherEdges)
{
    // x = 10 holds the left side; top and bottom meet it in their ends.
    const auto left = intersections({10.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F});
    ASSERT_EQ(left.size(), 2);
    expectPoint(left[0], 10.0F, 100.0F, 5.0F);
    expectPoint(left[1], 10.0F, 20.0F, 5.0F);
}

TEST(IntersectionCalculator, CornerIsKeptOnceFromEachOfItsEdgesByDesign)
{
    // x + y = 30 touches the rectangle in its origin (10, 20) alone: edge 1 at its start, edge 4 at
    // its end.
    const auto origin = intersections({30.0F, 0.0F, 0.0F}, {1.0F, 1.0F, 0.0F});
    ASSERT_EQ(origin.size(), 2);
    expectPoint(origin[0], 10.0F, 20.0F, 5.0F);
    expectPoint(origin[1], 10.0F, 20.0F, 5.0F);
}

TEST(IntersectionCalculator, DiagonalPlaneHasFourPoints)
{
    // The plane runs from the origin to the opposite corner: 4 x - 5 y = -60. Edge 1 at its start,
    // 2 at its end, 3 at its start, 4 at its end.
    const auto diagonal = intersections({10.0F, 20.0F, 0.0F}, {4.0F, -5.0F, 0.0F});
    ASSERT_EQ(diagonal.size(), 4);
    expectPoint(diagonal[0], 10.0F, 20.0F, 5.0F);
    expectPoint(diagonal[1], 110.0F, 100.0F, 5.0F);
    expectPoint(diagonal[2], 110.0F, 100.0F, 5.0F);
    expectPoint(diagonal[3], 10.0F, 20.0F, 5.0F);
}

TEST(IntersectionCalculator, PlaneThroughOneCornerAndAnEdgeHasThreePoints)
{
    // Through the origin and (60, 100): edge 1 at its start, edge 2 in its middle, edge 4 at its
    // end.
    const auto points = intersections({10.0F, 20.0F, 0.0F}, {8.0F, -5.0F, 0.0F});
    ASSERT_EQ(points.size(), 3);
    expectPoint(points[0], 10.0F, 20.0F, 5.0F);
    expectPoint(points[1], 60.0F, 100.0F, 5.0F);
    expectPoint(points[2], 10.0F, 20.0F, 5.0F);
}

TEST(IntersectionCalculator, PlaneAHairBeyondACornerMissesIt)
{
    EXPECT_TRUE(
        intersections({std::nextafter(110.0F, 200.0F), 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}).isEmpty());
}

TEST(IntersectionCalculator, QueriesDirectionsWithoutSampleSteps)
{
    class Recorder : public PlanarReslice
    {
    public:
        QVector3D getDirection0(bool perSample) const override
        {
            EXPECT_FALSE(perSample);
            return {0.0F, 1.0F, 0.0F};
        }
        QVector3D getDirection1(bool perSample) const override
        {
            EXPECT_FALSE(perSample);
            return {0.0F, 0.0F, 2.0F}; // as long as the host says, not of unit length
        }
        QVector3D getOrigin() const override { return {7.0F, 0.0F, 0.0F}; }
        float getWidth() const override { return 10.0F; }
        float getHeight() const override { return 3.0F; }
    };
    Recorder reslice;
    // The rectangle is x = 7, 0 <= y <= 10, 0 <= z <= 6.
    const auto points = IntersectionCalculator::calculatePlaneIntersections(
        {0.0F, 0.0F, 1.5F}, {0.0F, 0.0F, 1.0F}, &reslice);
    ASSERT_EQ(points.size(), 2);
    expectPoint(points[0], 7.0F, 0.0F, 1.5F);
    expectPoint(points[1], 7.0F, 10.0F, 1.5F);
}

TEST(IntersectionCalculator, InvalidPlanesHaveNoIntersections)
{
    EXPECT_TRUE(intersections({60.0F, 0.0F, 0.0F}, {}).isEmpty());
    EXPECT_TRUE(intersections({60.0F, 0.0F, 0.0F}, {kNan, 0.0F, 0.0F}).isEmpty());
    EXPECT_TRUE(intersections({60.0F, 0.0F, 0.0F}, {kInfinity, 0.0F, 0.0F}).isEmpty());
    EXPECT_TRUE(intersections({kNan, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}).isEmpty());
    EXPECT_TRUE(intersections({kInfinity, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}).isEmpty());
}

TEST(IntersectionCalculator, NormalMayBeAsShortAsFloatsAllow)
{
    // Only an edge whose product with the normal is exactly 0 is parallel to the plane.
    const auto across = intersections({60.0F, 0.0F, 0.0F}, {0x1p-60F, 0.0F, 0.0F});
    ASSERT_EQ(across.size(), 2);
    expectPoint(across[0], 60.0F, 100.0F, 5.0F);
    expectPoint(across[1], 60.0F, 20.0F, 5.0F);
}

TEST(IntersectionCalculator, DistanceIsTheDifferenceOfTwoProducts)
{
    // x + y = 2^24 passes 1 below the origin (2^24, 1). Its x + y, 2^24 + 1, is no float and rounds
    // to 2^24: the plane is taken to meet the origin, from edge 1 and from edge 4. Of the
    // difference of the points, (0, -1), nothing would be rounded, and nothing met.
    QMatrix4x4 placement;
    placement.translate(0x1p24F, 1.0F, 0.0F);
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 1.0F, placement);
    const auto points = IntersectionCalculator::calculatePlaneIntersections(
        {0x1p24F, 0.0F, 0.0F}, {1.0F, 1.0F, 0.0F}, reslice.get());
    ASSERT_EQ(points.size(), 2);
    expectPoint(points[0], 0x1p24F, 1.0F, 0.0F);
    expectPoint(points[1], 0x1p24F, 1.0F, 0.0F);
}

TEST(IntersectionCalculator, CornerIsTheOriginMovedByTheHeightThenByTheWidth)
{
    // Floats are 2 apart above 2^24: (2^24 + 1) + 2 is 2^24 + 2, as 1 is rounded away. (2^24 + 2) +
    // 1 and 2^24 + (1 + 2) would be 2^24 + 4.
    class Leaning : public PlanarReslice
    {
    public:
        QVector3D getOrigin() const override { return {0x1p24F, 0.0F, 0.0F}; }
        QVector3D getDirection0(bool) const override { return {2.0F, 0.0F, 8.0F}; }
        QVector3D getDirection1(bool) const override { return {1.0F, 8.0F, 0.0F}; }
        float getWidth() const override { return 1.0F; }
        float getHeight() const override { return 1.0F; }
    };
    Leaning reslice;
    // z = 8 holds edge 3. Edge 2 ends in the corner opposite to the origin, edge 4 starts next to
    // the origin.
    const auto points = IntersectionCalculator::calculatePlaneIntersections(
        {0.0F, 0.0F, 8.0F}, {0.0F, 0.0F, 1.0F}, &reslice);
    ASSERT_EQ(points.size(), 2);
    expectPoint(points[0], 0x1p24F + 2.0F, 8.0F, 8.0F);
    expectPoint(points[1], 0x1p24F + 2.0F, 0.0F, 8.0F);
}

TEST(IntersectionCalculator, EmptyRectangleHasNoIntersections)
{
    const auto reslice = makePlanarReslice(0.0F, 0.0F, 1.0F);
    EXPECT_TRUE(
        IntersectionCalculator::calculatePlaneIntersections({}, {1.0F, 0.0F, 0.0F}, reslice.get())
            .isEmpty());
}

TEST(IntersectionCalculator, RandomPlanesMeetTheBorderInPointsThatLieOnBoth)
{
    RandomGeometry random(23);
    int met = 0;
    for (int i = 0; i < 1000; ++i) {
        SCOPED_TRACE(i);
        const auto reslice = random.planarReslice(1.0F);
        const QVector3D center = reslice->getTransformationFromResliceToWorld().map(
            QVector3D(reslice->getWidth() / 2.0F, reslice->getHeight() / 2.0F, 0.0F));
        const QVector3D point = center + random.point(30.0F);
        const QVector3D normal = random.point(1.0F).normalized();
        const auto points =
            IntersectionCalculator::calculatePlaneIntersections(point, normal, reslice.get());
        EXPECT_EQ(points.size() % 2, 0); // random planes hit no corner
        met += points.isEmpty() ? 0 : 1;
        for (const QVector3D& meeting : points) {
            EXPECT_NEAR(QVector3D::dotProduct(normal, meeting - point), 0.0F, 0x1p-10F);
            const QVector3D local =
                reslice->getTransformationFromResliceToWorld().inverted().map(meeting);
            EXPECT_NEAR(local.z(), 0.0F, 0x1p-10F);
            const float toBorder =
                std::min(std::min(std::abs(local.x()), std::abs(local.x() - reslice->getWidth())),
                         std::min(std::abs(local.y()), std::abs(local.y() - reslice->getHeight())));
            EXPECT_NEAR(toBorder, 0.0F, 0x1p-10F);
        }
    }
    EXPECT_GT(met, 500);
}

} // namespace
