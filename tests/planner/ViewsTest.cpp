// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/Views.h>

// Covered: axialView(), obliqueView(), lateralView(): where the views lie and which way they are
// seen.

#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using planner::Case;
using planner::LandmarkKind;

namespace {

// An empty head of 200 mm, voxels of 2 mm, with foramina in the plane z = 20 + y and teeth at two
// heights.
Case head()
{
    Case planned;
    planned.volume.image = VexelImage3D({100, 100, 100}, {2, 2, 2}, image::UInt8);
    planned.volume.worldFromVoxel.scale(2);
    const auto add = [&planned](LandmarkKind kind, const QVector3D& position) {
        planned.landmarks.append({QStringLiteral("a"), {}, kind, position});
    };
    add(LandmarkKind::Foramen, {60, 100, 120});
    add(LandmarkKind::Foramen, {140, 100, 120});
    add(LandmarkKind::Foramen, {80, 50, 70});
    add(LandmarkKind::Foramen, {120, 50, 70});
    add(LandmarkKind::Tooth, {90, 40, 79});
    add(LandmarkKind::Tooth, {100, 40, 80});
    add(LandmarkKind::Tooth, {110, 40, 81});
    add(LandmarkKind::Arch, {100, 40, 90});
    return planned;
}

TEST(AxialView, LiesWhereMostTeethAre)
{
    const auto view = planner::axialView(head());
    EXPECT_EQ(view.reslice->getOrigin().z(), 80.0F);
    EXPECT_EQ(view.reslice->getSampleSize().z(), 3.0F);
}

TEST(AxialView, ShowsAnteriorUpAndThePatientsRightOnTheLeft)
{
    const auto view = planner::axialView(head());
    const QPointF middle =
        CoordinateMapper::_3D_To_2D_PlanarPoint(view.reslice.get(), {100, 70, 80});
    EXPECT_LT(CoordinateMapper::_3D_To_2D_PlanarPoint(view.reslice.get(), {90, 70, 80}).x(),
              middle.x());
    EXPECT_LT(CoordinateMapper::_3D_To_2D_PlanarPoint(view.reslice.get(), {100, 60, 80}).y(),
              middle.y());
}

TEST(AxialView, HasAMarginOf25MillimetersAroundTheLandmarks)
{
    const auto view = planner::axialView(head());
    EXPECT_EQ(view.reslice->getOrigin(), QVector3D(35, 15, 80));
    EXPECT_NEAR(view.reslice->getWidth(), 130.0, 0.01);  // x from 35 to 165
    EXPECT_NEAR(view.reslice->getHeight(), 110.0, 0.21); // y from 15 to 125, in whole samples
}

TEST(AxialView, LiesInTheMiddleOfTheVolumeWithoutLandmarks)
{
    Case planned = head();
    planned.landmarks.clear();
    const auto view = planner::axialView(planned);
    EXPECT_EQ(view.reslice->getOrigin(), QVector3D(-1, -1, 99));
    EXPECT_EQ(view.reslice->getWidth(), 200.0F);
}

TEST(ObliqueView, PassesThroughTheForamina)
{
    const Case planned = head();
    const auto view = planner::obliqueView(planned);
    for (const auto& landmark : planned.landmarks) {
        const auto [point, inPlane, inSlice] =
            CoordinateMapper::_3D_To_2D_Planar(view.reslice.get(), landmark.position);
        EXPECT_EQ(inSlice == PointInSlice::InSlice, landmark.kind == LandmarkKind::Foramen);
    }
    const QVector3D normal =
        view.reslice->getTransformationFromResliceToWorld().column(2).toVector3D();
    EXPECT_NEAR(std::abs(normal.y()), std::sqrt(0.5), 1e-5); // tilted by 45 degrees
    EXPECT_NEAR(std::abs(normal.z()), std::sqrt(0.5), 1e-5);
}

TEST(ObliqueView, ShowsAnteriorUpAndThePatientsRightOnTheLeft)
{
    for (const bool withLandmarks : {true, false}) {
        Case planned = head();
        if (!withLandmarks)
            planned.landmarks.clear();
        const auto view = planner::obliqueView(planned);
        EXPECT_GT(view.reslice->getDirection0(false).x(), 0.9F);
        EXPECT_LT(view.reslice->getDirection1(false).y(), -0.5F);
        EXPECT_FALSE(view.reslice->isMirroredHorizontallyIn2D() ||
                     view.reslice->isMirroredVerticallyIn2D());
    }
}

TEST(LateralView, ShowsTheFaceOnTheRightAndTheCrownUp)
{
    const auto view = planner::lateralView(head());
    const QPointF middle = CoordinateMapper::_3D_To_2D_Ceph(view.reslice.get(), {100, 100, 100});
    EXPECT_GT(CoordinateMapper::_3D_To_2D_Ceph(view.reslice.get(), {100, 50, 100}).x(), middle.x());
    EXPECT_LT(CoordinateMapper::_3D_To_2D_Ceph(view.reslice.get(), {100, 100, 150}).y(),
              middle.y());
}

TEST(LateralView, LiesMidwayBetweenTheForaminaAndShowsTheWholeVolume)
{
    const auto view = planner::lateralView(head());
    EXPECT_EQ(view.reslice->getTransformation().column(3).toVector3D(), QVector3D(100, 199, -1));
    EXPECT_EQ(view.reslice->getWidth(), 200.0F);
    EXPECT_EQ(view.reslice->getHeight(), 200.0F);
    EXPECT_EQ(view.reslice->getPointOfView(), meta::FromRight);
}

TEST(LateralView, HasNoMoreSamplesThanVoxelsNorThan480)
{
    Case planned = head();
    EXPECT_EQ(planner::lateralView(planned).reslice->getSampleSize().x(), 2.0F);
    planned.volume.image = VexelImage3D({100, 1000, 50}, {2, 0.2F, 2}, image::UInt8);
    planned.volume.worldFromVoxel.setToIdentity();
    planned.volume.worldFromVoxel.scale(2, 0.2F, 2);
    EXPECT_EQ(planner::lateralView(planned).reslice->getDimensions().width(), 400.0);
}

TEST(Views, OfTheLargestVolumeHaveFewSamples)
{
    Case planned;
    planned.volume.image = VexelImage3D({100, 100, 100}, {10, 10, 10}, image::UInt8);
    planned.volume.worldFromVoxel.scale(10);
    planned.volume.worldFromVoxel.rotate(45, 0, 0, 1);
    for (const QSizeF& samples : {planner::axialView(planned).reslice->getDimensions(),
                                  planner::obliqueView(planned).reslice->getDimensions(),
                                  planner::lateralView(planned).reslice->getDimensions()}) {
        EXPECT_LE(samples.width(), 800.0);
        EXPECT_LE(samples.height(), 800.0);
    }
}

TEST(DirectionLetters, NameTheStrongestDirectionFirst)
{
    EXPECT_EQ(planner::directionLetters({1, 0, 0}, true), QStringLiteral("L"));
    EXPECT_EQ(planner::directionLetters({-1, 0, 0}, true), QStringLiteral("R"));
    EXPECT_EQ(planner::directionLetters({0, -2, 0}, true), QStringLiteral("A"));
    EXPECT_EQ(planner::directionLetters({0, 2, 0}, true), QStringLiteral("P"));
    EXPECT_EQ(planner::directionLetters({0, 0, 1}, true), QStringLiteral("S"));
    EXPECT_EQ(planner::directionLetters({0, -0.8F, -0.6F}, true), QStringLiteral("AI"));
    EXPECT_EQ(planner::directionLetters({0.1F, 0.6F, 0.8F}, true), QStringLiteral("SP"));
}

TEST(DirectionLetters, AreQuestionedIfTheOrientationIsUnknown)
{
    EXPECT_EQ(planner::directionLetters({1, 0, 0}, false), QStringLiteral("L?"));
}

} // namespace
