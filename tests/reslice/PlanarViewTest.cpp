// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/PlanarView_p.h>

// Covered: where a ray meets a face of the slab. The mapping is tested by way of CoordinateMapper.

#include <tests/reslice/OddDirections.h>
#include <tests/support/ExactComparison.h>
#include <tests/support/ResliceBuilders.h>

#include <gtest/gtest.h>

namespace {

using test::expectPoint;
using test::makePlanarReslice;
using test::OddDirections;

float halfSlab(const PlanarReslice& reslice)
{
    return reslice.getSampleSize().z() * 0.5F;
}

QVector3D upper(const PlanarReslice& reslice, const QVector3D& a, const QVector3D& b)
{
    return reslice::intersectWithFace(reslice, halfSlab(reslice), a, b);
}

QVector3D lower(const PlanarReslice& reslice, const QVector3D& a, const QVector3D& b)
{
    return reslice::intersectWithFace(reslice, -halfSlab(reslice), a, b);
}

TEST(PlanarView, FacesAreHalfTheSlabAlongTheNormalOnEitherSide)
{
    QMatrix4x4 lifted;
    lifted.translate(0.0F, 0.0F, 10.0F);
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 3.0F, lifted);
    const QVector3D a(4.0F, 5.0F, 0.0F);
    const QVector3D b(4.0F, 5.0F, 20.0F);
    expectPoint(upper(*reslice, a, b), 4.0F, 5.0F, 11.5F);
    expectPoint(lower(*reslice, a, b), 4.0F, 5.0F, 8.5F);
}

TEST(PlanarView, FaceIsMetAlsoBehindTheStartOfTheRay)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 2.0F);
    expectPoint(upper(*reslice, {4.0F, 5.0F, 7.0F}, {4.0F, 5.0F, 9.0F}), 4.0F, 5.0F, 1.0F);
}

TEST(PlanarView, RayParallelToTheFaceMeetsItAtTheOrigin)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 2.0F);
    expectPoint(upper(*reslice, {4.0F, 5.0F, 7.0F}, {9.0F, 5.0F, 7.0F}), 0.0F, 0.0F, 0.0F);
    expectPoint(lower(*reslice, {4.0F, 5.0F, 7.0F}, {4.0F, 5.0F, 7.0F}), 0.0F, 0.0F, 0.0F);
}

TEST(PlanarView, SegmentTooShortToBeNormalizedStillMeetsTheFaceByDesign)
{
    const auto reslice = makePlanarReslice(100.0F, 80.0F, 0.0F);
    expectPoint(upper(*reslice, {4.0F, 5.0F, 0x1p-18F}, {4.0F, 5.0F, 0x1p-17F}), 4.0F, 5.0F, 0.0F);
}

TEST(PlanarView, NormalWhoseLengthIsWithinTheFuzzOfOneIsNotNormalized)
{
    // |direction 0 x direction 1| = 0x1.00008p+0 = 1.00000763 is kept, so the face lies at 1000
    // times it.
    OddDirections reslice({0x1.00008p+0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F});
    reslice.setSampleSize({1.0F, 1.0F, 2000.0F});
    expectPoint(upper(reslice, {0.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F}), 0.0F, 0.0F,
                1000.00762939453125F);
}

TEST(PlanarView, LongDirectionsAreNormalized)
{
    OddDirections reslice({3.0F, 0.0F, 0.0F}, {0.0F, 2.0F, 0.0F});
    reslice.setSampleSize({1.0F, 1.0F, 2.0F});
    expectPoint(upper(reslice, {1.0F, 1.0F, -4.0F}, {1.0F, 1.0F, 4.0F}), 1.0F, 1.0F, 1.0F);
}

TEST(PlanarView, CornersOfAFaceAreItsOriginMovedAlongTheNormalThenAlongTheDirections)
{
    // n = (3, 0, 4) x (0, 1, 0) / 5 = (-0.8, 0, 0.6); the upper face lies 5 along it, at (2^24 - 4,
    // 0, 3). One direction further, at (2^24 - 1, 0, 7), it is met by the ray upwards. Above 2^24
    // floats are 2 apart: moved along the direction first, the corner would be 2^24 + 3, rounded to
    // 2^24 + 4, less 4, and the face would rise by 4 in 4, to z = 6.
    OddDirections reslice({3.0F, 0.0F, 4.0F}, {0.0F, 1.0F, 0.0F});
    QMatrix4x4 placement;
    placement.translate(0x1p24F, 0.0F, 0.0F);
    reslice.setTransformationFromResliceToWorld(placement);
    reslice.setSampleSize({1.0F, 1.0F, 10.0F});
    const QVector3D meeting =
        upper(reslice, {0x1.fffffep+23F, 0.0F, 0.0F}, {0x1.fffffep+23F, 0.0F, 1.0F});
    EXPECT_NEAR(meeting.z(), 7.0F, 1e-5F); // the normals are rounded
}

TEST(PlanarView, NormalTooShortToBeNormalizedIsUsedUnchanged)
{
    // The product of the directions is 2^-17 long and stays so: 2^17 along it, the face lies at z =
    // 1; the zero vector would leave it at 0. The face is a plane nevertheless: at x = 2^14 + 2^-9,
    // where floats are 2^-9 apart, a step of 2^-10 is rounded up to 2^-9, so that its directions
    // have a product of 2^-16.
    OddDirections reslice({0x1p-10F, 0.0F, 0.0F}, {0.0F, 0x1p-7F, 0.0F});
    QMatrix4x4 placement;
    placement.translate(0x1.000002p+14F, 0.0F, 0.0F);
    reslice.setTransformationFromResliceToWorld(placement);
    reslice.setSampleSize({1.0F, 1.0F, 0x1p18F});
    expectPoint(upper(reslice, {4.0F, 5.0F, 0.0F}, {4.0F, 5.0F, 3.0F}), 4.0F, 5.0F, 1.0F);
}

} // namespace
