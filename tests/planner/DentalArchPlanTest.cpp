// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/DentalArchPlan.h>

// Covered: arches drawn through tooth landmarks, the tooth that is left out and created, proposed
// nerves, distances.

#include <phantom/Phantom.h>

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <gtest/gtest.h>

#include <set>

using planner::Case;
using planner::LandmarkKind;

namespace {

Case builtInPatient()
{
    const phantom::Patient patient;
    Case planned;
    planned.landmarks = planner::landmarksOf(patient);
    planned.canals = planner::canalsOf(patient);
    return planned;
}

void addTooth(Case& planned, int fdi, const QVector3D& position)
{
    planned.landmarks.append(
        {QStringLiteral("tooth"), QString::number(fdi), LandmarkKind::Tooth, position});
}

TEST(DentalArchPlan, ArchesRunThroughTheTeethAtTheirMeanHeight)
{
    Case planned;
    addTooth(planned, 31, {5, 0, 10});
    addTooth(planned, 41, {-5, 0, 12});
    addTooth(planned, 42, {-10, 5, 14});
    addTooth(planned, 32, {10, 5, 12});
    const auto plan = planner::planTeeth(planned);
    ASSERT_EQ(plan.arches.size(), 1);
    const auto points = plan.arches[0]->getControlPoints();
    ASSERT_EQ(points.size(), 4);
    EXPECT_EQ(points[0]->getPosition(), QVector3D(10, 5, 12)) << "32, Universal 23";
    EXPECT_EQ(points[3]->getPosition(), QVector3D(-10, 5, 12)) << "42, Universal 26";
    EXPECT_EQ(plan.arches[0]->getArchType(), ToothChart::LowerArch);
    EXPECT_EQ(plan.labels.size(), 4);
    EXPECT_EQ(plan.labels[0]->getPosition(), QVector3D(10, 5, 3)) << "9 mm below";
    EXPECT_FALSE(plan.created) << "too few to leave one out";
}

TEST(DentalArchPlan, TeethAboveEachOtherLeaveNoneToBeCreated)
{
    Case planned;
    for (const int fdi : {42, 43, 44, 45, 46, 47})
        addTooth(planned, fdi, {5, 0, static_cast<float>(fdi)});
    const auto plan = planner::planTeeth(planned);
    EXPECT_EQ(plan.arches.size(), 1);
    EXPECT_FALSE(plan.created);
}

TEST(DentalArchPlan, BuiltInPatientHasTwoArchesAndALabelForEveryTooth)
{
    const auto plan = planner::planTeeth(builtInPatient());
    ASSERT_EQ(plan.arches.size(), 2);
    EXPECT_EQ(plan.arches[0]->getObjects().size(), 14);
    EXPECT_EQ(plan.arches[1]->getObjects().size(), 13) << "without the one that is left out";
    std::set<int> numbers;
    for (const auto& label : plan.labels) {
        numbers.insert(label->getToothType());
        ASSERT_NE(label->getTooth(), nullptr);
        EXPECT_EQ(label->getTooth()->getToothType(), label->getToothType());
    }
    EXPECT_EQ(plan.labels.size(), 28);
    EXPECT_EQ(numbers.size(), 28U);
}

TEST(DentalArchPlan, ToothThatIsLeftOutIsCreatedFromItsLabel)
{
    const auto plan = planner::planTeeth(builtInPatient());
    ASSERT_TRUE(plan.created);
    EXPECT_EQ(plan.created->number, ToothChart::Tooth(30));
    EXPECT_LT(plan.created->distanceMm, 2.0) << "interpolation finds its place";
    EXPECT_GT(plan.created->distanceMm, 0.0);
    const auto mouth = plan.diagnosis->getPatientAnatomy()->getMouth();
    EXPECT_EQ(mouth->getAllTeethUnsorted().size(), 28);
    EXPECT_EQ(plan.labels.last()->getTooth(), mouth->getToothForToothType(ToothChart::Tooth(30)));
    EXPECT_FALSE(plan.arches[1]->getObjects().contains(ToothChart::Tooth(30)));
}

TEST(DentalArchPlan, WithoutTheFirstMolarAToothAmidItsArchIsLeftOut)
{
    Case planned;
    for (int place = 1; place <= 5; ++place)
        addTooth(planned, 10 + place, {static_cast<float>(-4 * place), 0, 50}); // Universal 8 to 4
    const auto plan = planner::planTeeth(planned);
    ASSERT_TRUE(plan.created);
    EXPECT_EQ(plan.created->number, ToothChart::Tooth(6));
    EXPECT_LT(plan.created->distanceMm, 0.1);
    EXPECT_EQ(plan.labels.last()->getPosition().z(), 59.0F) << "an upper label stands higher";
}

TEST(DentalArchPlan, WithoutTeethThereIsNothing)
{
    const auto plan = planner::planTeeth({});
    EXPECT_TRUE(plan.arches.isEmpty());
    EXPECT_TRUE(plan.labels.isEmpty());
    EXPECT_FALSE(plan.created);
}

TEST(DentalArchPlan, LandmarksThatAreNoTeethHaveNoNumber)
{
    EXPECT_EQ(planner::toothNumberOf({{}, QStringLiteral("46"), LandmarkKind::Tooth, {}}), 30);
    EXPECT_EQ(planner::toothNumberOf({{}, QStringLiteral("46"), LandmarkKind::Apex, {}}), 0);
    EXPECT_EQ(planner::toothNumberOf({{}, QStringLiteral("mental"), LandmarkKind::Tooth, {}}), 0);
}

TEST(NerveProposal, StartsOutwardsAndEndsInwardsOnBothSides)
{
    const Case planned = builtInPatient();
    for (const bool right : {true, false}) {
        const auto nerve = planner::proposeNerve(planned, right);
        ASSERT_TRUE(nerve);
        ASSERT_EQ(nerve->points.size(), 5);
        const float outwards = right ? -1.0F : 1.0F; // x grows to the left
        EXPECT_GT((nerve->points[0].x() - nerve->points[1].x()) * outwards, 5.0F);
        EXPECT_LT((nerve->points[4].x() - nerve->points[3].x()) * outwards, -5.0F);
        EXPECT_EQ(nerve->spline->getControlPoints().size(), 5);
    }
}

TEST(NerveProposal, OfTheBuiltInPatientLiesCloseToTheCanalsSeenFromAbove)
{
    const Case planned = builtInPatient();
    for (const auto& canal : planned.canals) {
        const auto nerve = planner::proposeNerve(planned, canal.right);
        ASSERT_TRUE(nerve);
        const auto& path = nerve->spline->getOriginalPath();
        const auto above = planner::horizontalDistances(canal.points, path);
        EXPECT_LT(above.mean, 1.6);
        EXPECT_LT(above.largest, 3.3);
        EXPECT_GT(planner::distances(canal.points, path).largest, 20.0)
            << "the proposal is level, the canal sags";
    }
}

TEST(NerveProposal, NeedsBothForaminaOfItsSide)
{
    Case planned = builtInPatient();
    planned.landmarks.removeIf([](const planner::Landmark& landmark) {
        return landmark.name == QString::fromUtf16(planner::kLeftMentalForamen);
    });
    EXPECT_TRUE(planner::proposeNerve(planned, true));
    EXPECT_FALSE(planner::proposeNerve(planned, false));
}

TEST(Distances, AreThoseToTheNearestSample)
{
    const QList<QVector3D> path{{0, 0, 0}, {10, 0, 0}};
    const QList<QVector3D> canal{{0, 3, 4}, {10, 0, 1}};
    EXPECT_DOUBLE_EQ(planner::distances(canal, path).mean, 3.0);
    EXPECT_DOUBLE_EQ(planner::distances(canal, path).largest, 5.0);
    EXPECT_DOUBLE_EQ(planner::horizontalDistances(canal, path).mean, 1.5);
    EXPECT_DOUBLE_EQ(planner::horizontalDistances(canal, path).largest, 3.0);
    EXPECT_DOUBLE_EQ(planner::distances(canal, {}).largest, 0.0);
    EXPECT_DOUBLE_EQ(planner::distances({}, path).mean, 0.0);
}

} // namespace
