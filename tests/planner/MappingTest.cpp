// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/Mapping.h>

// Covered: mapOntoPlanar(), mapOntoCeph(), mapSegment(): the numbers of the report's table.

#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <gtest/gtest.h>

using planner::Landmark;
using planner::LandmarkKind;

namespace {

// 100 x 80 samples of 0.5 mm, 4 mm thick, at z = 30 with its corner at (10, 20).
void set(PlanarReslice& reslice)
{
    QMatrix4x4 matrix;
    matrix.setColumn(3, {10, 20, 30, 1});
    reslice.setTransformationFromResliceToWorld(matrix);
    reslice.setDimensions({100, 80});
    reslice.setSampleSize({0.5F, 0.5F, 4.0F});
}

QList<Landmark> landmarkAt(const QVector3D& position)
{
    return {{QStringLiteral("a"), {}, LandmarkKind::Foramen, position}};
}

TEST(Mapping, OntoAPlanarViewGivesViewPointPixelAndFoot)
{
    PlanarReslice reslice;
    set(reslice);
    const auto mapped =
        planner::mapOntoPlanar(landmarkAt({15.25F, 22.25F, 31.5F}), reslice).first();
    EXPECT_EQ(mapped.inView, QPointF(5.25, 37.75)); // y counts down from 40 mm
    EXPECT_EQ(mapped.pixel, QPoint(10, 75));
    EXPECT_EQ(mapped.back, QVector3D(15.25F, 22.25F, 30));
    EXPECT_EQ(mapped.errorMm, 0.0);
    EXPECT_EQ(mapped.clickErrorMm, 0.0); // it is the center of its pixel
    EXPECT_EQ(mapped.inPlane, true);
    EXPECT_EQ(mapped.inSlice, true);
}

TEST(Mapping, OntoAMirroredViewCountsDownwards)
{
    PlanarReslice reslice;
    set(reslice);
    reslice.setMirroredIn2D(true, true);
    const auto mapped = planner::mapOntoPlanar(landmarkAt({15.25F, 22.25F, 30}), reslice).first();
    EXPECT_EQ(mapped.inView, QPointF(44.75, 2.25));
    EXPECT_EQ(mapped.pixel, QPoint(89, 4));
    EXPECT_EQ(mapped.back, QVector3D(15.25F, 22.25F, 30));
}

TEST(Mapping, TellsThePlaneFromTheSlice)
{
    PlanarReslice reslice;
    set(reslice);
    const auto above = planner::mapOntoPlanar(landmarkAt({15, 22, 32.5F}), reslice).first();
    EXPECT_EQ(above.inPlane, false);
    EXPECT_EQ(above.inSlice, false);
    const auto beside = planner::mapOntoPlanar(landmarkAt({5, 22, 30}), reslice).first();
    EXPECT_EQ(beside.inPlane, true);
    EXPECT_EQ(beside.inSlice, false);
    EXPECT_EQ(beside.pixel, QPoint(-10, 76));
}

TEST(Mapping, OfAClickIsAtMostHalfADiagonalAway)
{
    PlanarReslice reslice;
    set(reslice);
    const auto mapped = planner::mapOntoPlanar(landmarkAt({15, 22, 30}), reslice)
                            .first(); // a corner of four pixels
    EXPECT_NEAR(mapped.clickErrorMm, 0.353553, 1e-6);
    EXPECT_EQ(mapped.errorMm, 0.0);
}

TEST(Mapping, OntoACephalogramHasNoSlab)
{
    CephReslice reslice;
    QMatrix4x4 matrix; // anterior to the right, superior up, towards the patient's right; at x = 50
    matrix.setColumn(0, {0, -1, 0, 0});
    matrix.setColumn(1, {0, 0, 1, 0});
    matrix.setColumn(2, {-1, 0, 0, 0});
    matrix.setColumn(3, {50, 200, 0, 1});
    reslice.setTransformation(matrix);
    reslice.setDimensions({200, 100});
    reslice.setSampleSize({1, 1, 1});
    const auto mapped = planner::mapOntoCeph(landmarkAt({20, 150, 30}), reslice).first();
    EXPECT_EQ(mapped.inView, QPointF(50, 70));
    EXPECT_EQ(mapped.back, QVector3D(50, 150, 30));
    EXPECT_EQ(mapped.errorMm, 0.0);
    EXPECT_FALSE(mapped.inPlane.has_value());
    EXPECT_FALSE(mapped.inSlice.has_value());
}

TEST(Mapping, ClipsASegmentToTheSlab)
{
    PlanarReslice reslice;
    set(reslice);
    const auto segment =
        planner::mapSegment(QStringLiteral("s"), {10, 20, 30}, {30, 20, 40}, reslice);
    EXPECT_TRUE(segment.inPlane);
    EXPECT_EQ(segment.whole, QLineF(0, 40, 20, 40));
    EXPECT_NEAR(segment.clipped.x1(), 0.0, 1e-5);
    EXPECT_NEAR(segment.clipped.x2(), 4.0, 1e-5); // the slab ends at z = 32, a fifth of the way
    EXPECT_FALSE(
        planner::mapSegment(QStringLiteral("s"), {10, 20, 33}, {30, 20, 40}, reslice).inPlane);
}

} // namespace
