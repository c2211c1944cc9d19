// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include "phantom/Phantom.h"

// Covered: the teeth against the tissues they are made of, and the curves along the arches.

#include <tests/phantom/PhantomTruth.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace {

using phantom::Tissue;
using phantom::Tooth;
using test::isBone;
using test::kInfinity;
using test::kMidlineX;
using test::kNaN;
using test::patient;
using test::tissuesBetween;
using test::toothOf;

// Teeth

TEST(PhantomTeeth, AreTheTwentyEightWithoutThirdMolarsInAscendingNumber)
{
    const std::vector<int> expected = {2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15,
                                       18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31};
    std::vector<int> numbers;
    for (const Tooth& tooth : patient().teeth())
        numbers.push_back(tooth.number);
    EXPECT_EQ(numbers, expected);
}

TEST(PhantomTeeth, HaveSmallXOnThePatientsRight)
{
    for (const Tooth& tooth : patient().teeth()) {
        const bool right = tooth.number <= 8 || tooth.number >= 25;
        EXPECT_EQ(tooth.occlusalPoint.x() < kMidlineX, right) << tooth.number;
        EXPECT_EQ(tooth.apex.x() < kMidlineX, right) << tooth.number;
    }
}

TEST(PhantomTeeth, AreFoundByTheirNumber)
{
    for (const Tooth& tooth : patient().teeth()) {
        const auto found = patient().tooth(tooth.number);
        ASSERT_TRUE(found) << tooth.number;
        EXPECT_EQ(found->number, tooth.number);
        EXPECT_EQ(found->occlusalPoint, tooth.occlusalPoint);
    }
}

TEST(PhantomTeeth, AreNotFoundByNumbersThatThePatientLacks)
{
    for (const int number : {-1, 0, 1, 16, 17, 32, 33})
        EXPECT_FALSE(patient().tooth(number)) << number;
}

TEST(PhantomTeeth, FollowTheArchFromRightToLeftAboveAndFromLeftToRightBelow)
{
    for (int number = 2; number < 15; ++number)
        EXPECT_LT(toothOf(number).occlusalPoint.x(), toothOf(number + 1).occlusalPoint.x())
            << number;
    for (int number = 18; number < 31; ++number)
        EXPECT_GT(toothOf(number).occlusalPoint.x(), toothOf(number + 1).occlusalPoint.x())
            << number;
}

TEST(PhantomTeeth, FaceEachOtherInOcclusion)
{
    for (int number = 2; number <= 15; ++number) {
        const Tooth upper = toothOf(number);
        const Tooth lower = toothOf(33 - number);
        const QVector3D apart = upper.occlusalPoint - lower.occlusalPoint;
        EXPECT_LT(std::hypot(apart.x(), apart.y()), 6.0F) << number;
        EXPECT_LT(std::abs(apart.z()), 2.6F) << number;
        EXPECT_GT(upper.apex.z(), upper.occlusalPoint.z() + 15.0F) << number;
        EXPECT_LT(lower.apex.z(), lower.occlusalPoint.z() - 15.0F) << number;
    }
}

TEST(PhantomTeeth, AreFartherOutInTheUpperArch)
{
    for (const auto& [upper, lower] :
         {std::pair{2, 31}, std::pair{3, 30}, std::pair{4, 29}, std::pair{5, 28}})
        EXPECT_LT(toothOf(upper).occlusalPoint.x(), toothOf(lower).occlusalPoint.x() - 1.5F)
            << upper;
    for (const auto& [upper, lower] :
         {std::pair{15, 18}, std::pair{14, 19}, std::pair{13, 20}, std::pair{12, 21}})
        EXPECT_GT(toothOf(upper).occlusalPoint.x(), toothOf(lower).occlusalPoint.x() + 1.5F)
            << upper;
}

TEST(PhantomTeeth, HaveTwoToThreeMillimetersOfOverbiteAndOverjetInFront)
{
    for (const auto& [upper, lower] : {std::pair{8, 25}, std::pair{9, 24}}) {
        const QVector3D ahead = toothOf(lower).occlusalPoint - toothOf(upper).occlusalPoint;
        EXPECT_NEAR(ahead.y(), 2.5F, 0.5F);
        EXPECT_NEAR(ahead.z(), 2.0F, 0.01F);
    }
}

TEST(PhantomTeeth, AreEnamelJustInsideTheOcclusalPointAndNoToothAboveTheBitingEdge)
{
    for (const Tooth& tooth : patient().teeth())
        EXPECT_EQ(patient().tissueAt(tooth.occlusalPoint - 0.3F * tooth.axisToCrown),
                  Tissue::Enamel)
            << tooth.number;
    for (const int incisor : {7, 8, 9, 10, 23, 24, 25, 26}) {
        const Tooth tooth = toothOf(incisor);
        EXPECT_EQ(patient().tissueAt(tooth.occlusalPoint + 0.3F * tooth.axisToCrown),
                  Tissue::SoftTissue)
            << incisor;
    }
}

TEST(PhantomTeeth, AreFoundByAPositionInTheirSubstance)
{
    for (const Tooth& tooth : patient().teeth()) {
        EXPECT_EQ(patient().toothAt(tooth.occlusalPoint - 0.3F * tooth.axisToCrown), tooth.number);
        EXPECT_EQ(patient().toothAt(tooth.apex + 1.0F * tooth.axisToCrown), tooth.number);
        EXPECT_EQ(patient().toothAt(tooth.apex - 1.0F * tooth.axisToCrown), ToothChart::NoTooth);
    }
    EXPECT_EQ(patient().toothAt({kNaN, 0.0F, 0.0F}), ToothChart::NoTooth);
    EXPECT_EQ(patient().toothAt({0.0F, 0.0F, kInfinity}), ToothChart::NoTooth);
}

TEST(PhantomTeeth, AreExactlyWhereTheirTissuesAre)
{
    for (float z = 40.0F; z < 75.0F; z += 1.7F) {
        for (float y = 30.0F; y < 90.0F; y += 1.3F) {
            for (float x = 40.0F; x < 110.0F; x += 1.1F) {
                const Tissue tissue = patient().tissueAt({x, y, z});
                const bool isTooth =
                    tissue == Tissue::Enamel || tissue == Tissue::Dentine || tissue == Tissue::Pulp;
                ASSERT_EQ(patient().toothAt({x, y, z}) != ToothChart::NoTooth, isTooth)
                    << x << ", " << y << ", " << z;
            }
        }
    }
}

TEST(PhantomTeeth, AreDentineJustInsideTheApexAndBoneBeyondIt)
{
    for (const Tooth& tooth : patient().teeth()) {
        EXPECT_EQ(patient().tissueAt(tooth.apex + 0.5F * tooth.axisToCrown), Tissue::Dentine)
            << tooth.number;
        EXPECT_TRUE(isBone(patient().tissueAt(tooth.apex - 0.5F * tooth.axisToCrown)))
            << tooth.number;
    }
}

TEST(PhantomTeeth, HavePulpWithinDentineWithinEnamel)
{
    for (const Tooth& tooth : patient().teeth()) {
        const std::vector<Tissue> met = tissuesBetween(
            tooth.occlusalPoint - 0.1F * tooth.axisToCrown, tooth.apex + 0.3F * tooth.axisToCrown);
        EXPECT_EQ(std::count(met.begin(), met.end(), Tissue::Enamel), 1) << tooth.number;
        EXPECT_EQ(met.front(), Tissue::Enamel) << tooth.number;
        EXPECT_EQ(met[1], Tissue::Dentine) << tooth.number;
        EXPECT_EQ(met[2], Tissue::Pulp) << tooth.number;
        EXPECT_EQ(met.back(), Tissue::Dentine) << tooth.number;
    }
}

TEST(PhantomTeeth, HaveAUnitAxisFromApexToOcclusalPoint)
{
    for (const Tooth& tooth : patient().teeth()) {
        EXPECT_NEAR(tooth.axisToCrown.length(), 1.0F, 1e-6F) << tooth.number;
        const float along =
            QVector3D::dotProduct(tooth.occlusalPoint - tooth.apex, tooth.axisToCrown);
        EXPECT_NEAR(along, (tooth.occlusalPoint - tooth.apex).length(), 1e-4F) << tooth.number;
    }
}

TEST(PhantomTeeth, Are17To26MillimetersLong)
{
    for (const Tooth& tooth : patient().teeth()) {
        const float length = (tooth.occlusalPoint - tooth.apex).length();
        EXPECT_GT(length, 17.0F) << tooth.number;
        EXPECT_LT(length, 26.0F) << tooth.number;
    }
}

TEST(PhantomTeeth, GrowWiderFromIncisorsThroughPremolarsToMolars)
{
    const auto distance = [](int a, int b) {
        return (toothOf(a).occlusalPoint - toothOf(b).occlusalPoint).length();
    };
    EXPECT_LT(distance(24, 25), 6.5F);
    EXPECT_GT(distance(28, 29), 6.5F);
    EXPECT_LT(distance(28, 29), 8.0F);
    EXPECT_GT(distance(30, 31), 10.0F);
}

TEST(PhantomTeeth, SpanAnArchOfLivingSize)
{
    const QVector3D right = toothOf(31).occlusalPoint;
    const QVector3D left = toothOf(18).occlusalPoint;
    EXPECT_NEAR(left.x() - right.x(), 46.0F, 2.0F);
    EXPECT_NEAR(right.y() - toothOf(25).occlusalPoint.y(), 37.0F, 2.0F);
}

TEST(PhantomTeeth, HaveBoneBetweenTheTwoRootsOfALowerMolar)
{
    // Along the arch through the roots of tooth 30, 4 mm above its apex.
    const Tooth molar = toothOf(30);
    const QVector3D distal = molar.apex + QVector3D(0.0F, 0.0F, 4.0F);
    const QVector3D forwards = (toothOf(29).occlusalPoint - toothOf(31).occlusalPoint).normalized();
    const std::vector<Tissue> met =
        tissuesBetween(distal - 2.5F * forwards, distal + 9.0F * forwards);
    int bonesAfterRoot = 0;
    int roots = 0;
    for (std::size_t i = 0; i + 1 < met.size(); ++i) {
        roots += isBone(met[i]) && met[i + 1] == Tissue::Dentine ? 1 : 0;
        bonesAfterRoot += met[i] == Tissue::Dentine && isBone(met[i + 1]) ? 1 : 0;
    }
    EXPECT_EQ(roots, 2);
    EXPECT_EQ(bonesAfterRoot, 2);
}

// Arch curves

TEST(PhantomArchCurve, RunsFromRightToLeftInStepsBelowAMillimeter)
{
    for (const auto arch : {ToothChart::UpperArch, ToothChart::LowerArch}) {
        const QList<QVector3D>& curve = patient().archCurve(arch);
        ASSERT_GT(curve.size(), 100);
        for (qsizetype i = 1; i < curve.size(); ++i) {
            EXPECT_GT(curve[i].x(), curve[i - 1].x());
            EXPECT_LT((curve[i] - curve[i - 1]).length(), 1.0F);
        }
    }
}

TEST(PhantomArchCurve, PassesThroughEveryToothOfItsArch)
{
    for (const Tooth& tooth : patient().teeth()) {
        const QList<QVector3D>& curve =
            patient().archCurve(ToothChart::getArchTypeOfTooth(tooth.number));
        const bool passes =
            std::any_of(curve.begin(), curve.end(), [&tooth](const QVector3D& sample) {
                return sample.distanceToLine(tooth.apex, tooth.axisToCrown) < 1.8F;
            });
        EXPECT_TRUE(passes) << tooth.number;
    }
}

TEST(PhantomArchCurve, LiesAtTheNecksAboveTheUpperAndBelowTheLowerOcclusalPoints)
{
    for (const QVector3D& sample : patient().archCurve(ToothChart::UpperArch)) {
        EXPECT_GT(sample.z(), 67.0F);
        EXPECT_LT(sample.z(), 70.5F);
    }
    for (const QVector3D& sample : patient().archCurve(ToothChart::LowerArch)) {
        EXPECT_GT(sample.z(), 50.0F);
        EXPECT_LT(sample.z(), 53.0F);
    }
}

TEST(PhantomArchCurve, ReachesOneToothWidthBeyondTheSecondMolars)
{
    const QList<QVector3D>& upper = patient().archCurve(ToothChart::UpperArch);
    const QList<QVector3D>& lower = patient().archCurve(ToothChart::LowerArch);
    EXPECT_NEAR(upper.first().y() - toothOf(2).occlusalPoint.y(), 10.0F, 1.5F);
    EXPECT_NEAR(upper.last().y() - toothOf(15).occlusalPoint.y(), 10.0F, 1.5F);
    EXPECT_NEAR(lower.first().y() - toothOf(31).occlusalPoint.y(), 10.0F, 1.5F);
    EXPECT_NEAR(lower.last().y() - toothOf(18).occlusalPoint.y(), 10.0F, 1.5F);
}

} // namespace
