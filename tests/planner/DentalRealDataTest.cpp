// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/DentalArchPlan.h>

// Covered, on the landmarks of a segmented cone-beam CT of a full dentition: teeth in order along
// their arches, every tooth nearest to itself, proposed nerves beside the segmented canals.

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/dental/PlanarDentalSplineUpdater.h>
#include <CoreAlgorithms/dental/ToothLocator.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

class ConeBeamCt : public testing::Test
{
protected:
    ConeBeamCt()
    {
        const auto file =
            planner::readLandmarks(QStringLiteral(REAL_DATA "/cbct-labels/landmarks.json"), {});
        EXPECT_TRUE(file.warnings.isEmpty());
        planned.landmarks = file.landmarks;
        planned.canals = file.canals;
    }

    QMap<ToothChart::Tooth, QVector3D> teethOf(ToothChart::ArchType arch) const
    {
        QMap<ToothChart::Tooth, QVector3D> teeth;
        for (const planner::Landmark& landmark : planned.landmarks) {
            const auto tooth = ToothChart::Tooth(planner::toothNumberOf(landmark));
            if (tooth != ToothChart::NoTooth && ToothChart::getArchTypeOfTooth(tooth) == arch)
                teeth.insert(tooth, landmark.position);
        }
        return teeth;
    }

    std::unique_ptr<PlanarDentalSpline>
    archThrough(const QMap<ToothChart::Tooth, QVector3D>& teeth) const
    {
        auto spline = std::make_unique<PlanarDentalSpline>();
        PlanarDentalSplineUpdater::update(
            *spline, {teeth.cbegin(), teeth.cend()}, teeth, 0, ToothChart::UpperArch,
            std::make_unique<math::CatmullRomSpline3D>(), ManuallyCreated);
        return spline;
    }

    planner::Case planned;
};

TEST_F(ConeBeamCt, TeethOfBothJawsComeInOrderAlongTheirArches)
{
    for (const auto arch : {ToothChart::UpperArch, ToothChart::LowerArch}) {
        const auto teeth = teethOf(arch);
        ASSERT_EQ(teeth.size(), 14);
        const auto spline = archThrough(teeth);
        EXPECT_GT(spline->getOriginalPath().size(), 800);
        const QList<int> indices = ComputeIndexOnGuidingLine::getTeethIndices(spline.get());
        ASSERT_EQ(indices.size(), 14);
        EXPECT_EQ(indices.first(), 0);
        EXPECT_EQ(indices.last(), spline->getOriginalPath().size() - 1);
        EXPECT_EQ(std::adjacent_find(indices.begin(), indices.end(), std::greater_equal<>()),
                  indices.end())
            << "ascending";
    }
}

TEST_F(ConeBeamCt, NearestTeethOfAToothsOwnPointAreThatTooth)
{
    for (const auto arch : {ToothChart::UpperArch, ToothChart::LowerArch}) {
        const auto teeth = teethOf(arch);
        const auto spline = archThrough(teeth);
        for (auto tooth = teeth.cbegin(); tooth != teeth.cend(); ++tooth) {
            EXPECT_EQ(ToothLocator::getNearestToothIds(spline.get(), tooth.value()),
                      std::pair(tooth.key(), tooth.key()));
        }
    }
}

TEST_F(ConeBeamCt, ToothLeftOutLiesBetweenItsNeighbours)
{
    for (const auto arch : {ToothChart::UpperArch, ToothChart::LowerArch}) {
        const auto all = teethOf(arch);
        for (auto left = std::next(all.cbegin()); left != std::prev(all.cend()); ++left) {
            auto teeth = all;
            teeth.remove(left.key());
            const auto spline = archThrough(teeth);
            const QVector3D place =
                ComputeIndexOnGuidingLine::getToothPosition(left.key(), spline.get(), false);
            EXPECT_LT(place.distanceToPoint(left.value()), 6.0F)
                << left.key() << ": less than a tooth's width";
        }
    }
}

// The distances of the straight line between the foramina were worked out apart from this code.
TEST_F(ConeBeamCt, ProposedNervesRunWithinTwoMillimetersOfTheCanalsSeenFromAbove)
{
    ASSERT_EQ(planned.canals.size(), 2);
    for (const planner::CanalLine& canal : planned.canals) {
        const auto nerve = planner::proposeNerve(planned, canal.right);
        ASSERT_TRUE(nerve);
        const auto& path = nerve->spline->getOriginalPath();
        const planner::Distances apart = planner::distances(canal.points, path);
        const planner::Distances above = planner::horizontalDistances(canal.points, path);
        std::printf(
            "%s nerve: mean %.2f mm, largest %.2f mm from the canal; from above %.2f and %.2f mm\n",
            canal.right ? "right" : "left", apart.mean, apart.largest, above.mean, above.largest);
        EXPECT_LT(above.mean, canal.right ? 1.05 : 1.41) << "nearer than the straight line";
        EXPECT_LT(above.mean, 0.8);
        EXPECT_LT(above.largest, 2.0);
        // Level at the mean height of the foramina, which lie 32 mm above each other: half of that
        // at the ends, and more where the canal sags below the mental foramen.
        EXPECT_LT(apart.largest, 20.5);
        EXPECT_LT(apart.mean, 12.5);
    }
}

TEST(LandmarksOfAnEdentulousJaw, GiveNoReasonForAWarning)
{
    QMatrix4x4 worldFromVoxel; // of the CT
    worldFromVoxel.translate(128.0F, 112.0F, 1500.0F);
    const auto file = planner::readLandmarks(
        QStringLiteral(REAL_DATA "/visible-human-female-head/landmarks.json"), worldFromVoxel);
    EXPECT_TRUE(file.warnings.isEmpty()) << file.warnings.join(u' ').toStdString();
}

} // namespace
