// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/PanoramicView_p.h>

// Covered: the projection onto a segment of the ribbon. The mapping is tested by way of
// CoordinateMapper.

#include <tests/support/ExactComparison.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using reslice::projectOntoSegment;
using test::expectPoint;

const QVector3D kX(1.0F, 0.0F, 0.0F);
const QVector3D kZ(0.0F, 0.0F, 1.0F);

TEST(PanoramicView, ProjectionGivesTheUnsignedDistanceAndTheFootInTheSegment)
{
    for (const float y : {0.25F, -0.25F}) {
        QPointF out(-1.0, -1.0);
        EXPECT_EQ(projectOntoSegment({1.0F, 0.0F, 1.0F}, kZ, {3.0F, 0.0F, 1.0F}, {2.5F, y, 4.0F},
                                     out, 2.0F, false),
                  0.25F);
        expectPoint(out, 1.5, 3.0);
    }
}

TEST(PanoramicView, ProjectionWithinHalfTheThicknessIsInclusive)
{
    QPointF out;
    EXPECT_EQ(projectOntoSegment({}, kZ, kX, {0.5F, 0.25F, 0.0F}, out, 0.5F, false), 0.25F);
    EXPECT_EQ(
        projectOntoSegment({}, kZ, kX, {0.5F, std::nextafter(0.25F, 1.0F), 0.0F}, out, 0.5F, false),
        -1.0F);
}

TEST(PanoramicView, ProjectionOutsideLeavesTheOutputUnchangedUnlessItIsKept)
{
    QPointF out(-7.0, -8.0);
    EXPECT_EQ(projectOntoSegment({}, kZ, kX, {0.5F, 3.0F, 2.0F}, out, 1.0F, false), -1.0F);
    expectPoint(out, -7.0, -8.0);
    EXPECT_EQ(projectOntoSegment({}, kZ, kX, {0.5F, 3.0F, 2.0F}, out, 1.0F, true), -1.0F);
    expectPoint(out, 0.5, 2.0);
}

TEST(PanoramicView, ProjectionUsesTheUpperDirectionUnchanged)
{
    QPointF out;
    EXPECT_EQ(projectOntoSegment({}, kZ * 4.0F, kX * 9.0F, {0.5F, 0.25F, 2.0F}, out, 1.0F, false),
              0.25F);
    expectPoint(out, 0.5, 0.5); // along in mm, up in lengths of the direction
}

TEST(PanoramicView, ProjectionUsesADirectionTooShortToBeNormalizedUnchanged)
{
    // The segment is 2^-18 long and counts as 1; as the zero vector it would leave the frame
    // without an inverse. With an up of 16 the plane has a normal.
    QPointF out;
    EXPECT_EQ(projectOntoSegment({}, kZ * 16.0F, kX * 0x1p-18F, {0x1p-19F, 0.25F, 32.0F}, out, 1.0F,
                                 false),
              0.25F);
    expectPoint(out, 0.5, 2.0);
}

TEST(PanoramicView, ProjectionOntoNoPlaneIsThatOfTheOrigin)
{
    // The plane is degenerate: distance 0, no meeting point, and a frame that is inverted to the
    // identity.
    QPointF out(-7.0, -8.0);
    EXPECT_EQ(projectOntoSegment(kX, kZ, kX, {5.0F, 5.0F, 5.0F}, out, 1.0F, false), 0.0F);
    expectPoint(out, 0.0, 0.0);
}

} // namespace
