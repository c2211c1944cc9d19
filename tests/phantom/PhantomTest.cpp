// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include "phantom/Phantom.h"

// The synthetic patient: teeth, canals and arches against the tissues they are made of, the painted
// image against the truth, noise, grey values and unusable settings.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <ostream>
#include <set>
#include <utility>
#include <vector>

using phantom::NerveCanal;
using phantom::Patient;
using phantom::Settings;
using phantom::Tissue;
using phantom::Tooth;

namespace phantom {

// GoogleTest looks for this name.
void PrintTo(Tissue tissue, std::ostream* out)
{
    constexpr std::array<const char*, kTissueCount> names = {
        "Air",     "SoftTissue", "CancellousBone", "CorticalBone",
        "Dentine", "Enamel",     "Pulp",           "NerveCanal"};
    *out << names.at(static_cast<std::size_t>(tissue));
}

} // namespace phantom

namespace {

constexpr float kMidlineX = 75.0F;
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

const Patient& patient()
{
    static const Patient standard;
    return standard;
}

Tooth toothOf(int number)
{
    return patient().tooth(number).value();
}

std::array<const NerveCanal*, 2> bothCanals()
{
    return {&patient().rightCanal(), &patient().leftCanal()};
}

bool isBone(Tissue tissue)
{
    return tissue == Tissue::CorticalBone || tissue == Tissue::CancellousBone;
}

// Tissues met from one point to another in steps of 0.1 mm, neighbours that are equal taken
// together.
std::vector<Tissue> tissuesBetween(const QVector3D& from, const QVector3D& to)
{
    std::vector<Tissue> met;
    const int steps = static_cast<int>((to - from).length() / 0.1F);
    for (int i = 0; i <= steps; ++i) {
        const Tissue tissue = patient().tissueAt(from + (to - from) * (float(i) / float(steps)));
        if (met.empty() || met.back() != tissue)
            met.push_back(tissue);
    }
    return met;
}

// Length of the stretch of one tissue around a point along x, to 0.1 mm.
float widthOf(Tissue tissue, const QVector3D& around)
{
    int samples = 0;
    for (const float step : {-0.1F, 0.1F}) {
        for (QVector3D at = around; patient().tissueAt(at) == tissue; at.setX(at.x() + step))
            ++samples;
    }
    return 0.1F * float(samples);
}

// The y at which a line from the front first meets something else than air on the midline, to 0.1
// mm.
float frontOfFace(float z)
{
    float y = 0.0F;
    while (y < 165.0F && patient().tissueAt({kMidlineX, y, z}) == Tissue::Air)
        y += 0.1F;
    return y;
}

Settings noiseless(float voxelSizeMm)
{
    Settings settings;
    settings.voxelSizeMm = voxelSizeMm;
    settings.noiseSigma = 0.0F;
    return settings;
}

// All tissues painted 0, so that the image is noise alone.
Settings noiseAlone(float voxelSizeMm, float sigma, std::uint32_t seed)
{
    Settings settings;
    settings.voxelSizeMm = voxelSizeMm;
    settings.greyValues.fill(0.0F);
    settings.noiseSigma = sigma;
    settings.seed = seed;
    return settings;
}

std::vector<std::int16_t> voxelsOf(const VexelImage3D& volume)
{
    const auto* const first = static_cast<const std::int16_t*>(volume.dataPtr());
    return {first, first + volume.voxelCount()};
}

std::vector<std::int16_t> voxelsOf(const Settings& settings)
{
    return voxelsOf(Patient(settings).createVolume());
}

double meanOf(const std::vector<std::int16_t>& values)
{
    double sum = 0.0;
    for (const std::int16_t value : values)
        sum += value;
    return sum / double(values.size());
}

// Mean product of values a distance apart in the list, divided by the mean square.
double correlation(const std::vector<std::int16_t>& values, std::size_t distance)
{
    double products = 0.0;
    double squares = 0.0;
    for (std::size_t i = 0; i + distance < values.size(); ++i) {
        products += double(values[i]) * values[i + distance];
        squares += double(values[i]) * values[i];
    }
    return products / squares;
}

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

TEST(PhantomTeeth, OfThePatientsRightHaveSmallX)
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

TEST(PhantomTeeth, StandOppositeEachOtherInOcclusion)
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

TEST(PhantomTeeth, OfTheUpperArchStandOutsideTheLower)
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

TEST(PhantomTeeth, InFrontHaveAboutTwoMillimetresOfOverbiteAndOverjet)
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

TEST(PhantomTeeth, TellsWhoseSubstanceIsAtAPosition)
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

TEST(PhantomTeeth, Are17To26MillimetresLong)
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

TEST(PhantomTeeth, OfTheLowerMolarsHaveBoneBetweenTwoRoots)
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

TEST(PhantomArchCurve, RunsFromRightToLeftInStepsBelowAMillimetre)
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

// Canals

TEST(PhantomCanal, IsNerveAllAlongItsCentreLine)
{
    for (const NerveCanal* canal : bothCanals()) {
        const QList<QVector3D>& line = canal->centreLine;
        for (qsizetype i = 0; i + 1 < line.size(); ++i) {
            EXPECT_EQ(patient().tissueAt(line[i]), Tissue::NerveCanal) << i;
            EXPECT_EQ(patient().tissueAt(0.5F * (line[i] + line[i + 1])), Tissue::NerveCanal) << i;
        }
        EXPECT_EQ(patient().tissueAt(line.last()), Tissue::NerveCanal);
    }
}

TEST(PhantomCanal, IsSampledInStepsUpToAMillimetreWithoutTurningBack)
{
    for (const NerveCanal* canal : bothCanals()) {
        const QList<QVector3D>& line = canal->centreLine;
        for (qsizetype i = 1; i < line.size(); ++i) {
            EXPECT_GT((line[i] - line[i - 1]).length(), 0.0F) << i;
            EXPECT_LE((line[i] - line[i - 1]).length(), 1.0F) << i;
            EXPECT_LT(line[i].y(), line[i - 1].y()) << i;
        }
    }
}

TEST(PhantomCanal, BeginsAtTheMandibularAndEndsAtTheMentalForamen)
{
    for (const NerveCanal* canal : bothCanals()) {
        EXPECT_EQ(canal->mandibularForamen, canal->centreLine.first());
        EXPECT_EQ(canal->mentalForamen, canal->centreLine.last());
        EXPECT_GT(canal->mandibularForamen.y(), canal->mentalForamen.y() + 35.0F);
    }
}

TEST(PhantomCanal, OfTheRightHasSmallX)
{
    for (const QVector3D& sample : patient().rightCanal().centreLine)
        EXPECT_LT(sample.x(), kMidlineX);
    for (const QVector3D& sample : patient().leftCanal().centreLine)
        EXPECT_GT(sample.x(), kMidlineX);
}

TEST(PhantomCanal, MeasuresSixtyToSeventyFiveMillimetres)
{
    for (const NerveCanal* canal : bothCanals()) {
        float length = 0.0F;
        for (qsizetype i = 1; i < canal->centreLine.size(); ++i)
            length += (canal->centreLine[i] - canal->centreLine[i - 1]).length();
        EXPECT_GT(length, 60.0F);
        EXPECT_LT(length, 75.0F);
    }
}

TEST(PhantomCanal, KeepsThreeMillimetresFromEveryApexAndTouchesNoRoot)
{
    for (const NerveCanal* canal : bothCanals()) {
        for (const QVector3D& sample : canal->centreLine) {
            for (const Tooth& tooth : patient().teeth())
                EXPECT_GE((sample - tooth.apex).length(), 3.0F) << tooth.number;
            for (const auto& [dx, dy, dz] :
                 {std::array{2.5F, 0.0F, 0.0F}, std::array{-2.5F, 0.0F, 0.0F},
                  std::array{0.0F, 2.5F, 0.0F}, std::array{0.0F, -2.5F, 0.0F},
                  std::array{0.0F, 0.0F, 2.5F}, std::array{0.0F, 0.0F, -2.5F}})
                EXPECT_NE(patient().tissueAt(sample + QVector3D(dx, dy, dz)), Tissue::Dentine);
        }
    }
}

TEST(PhantomCanal, HasItsRadiusAndACorticalRimInsideTheBone)
{
    for (const NerveCanal* canal : bothCanals()) {
        EXPECT_FLOAT_EQ(canal->radiusMm, 1.2F);
        const QList<QVector3D>& line = canal->centreLine;
        for (qsizetype i = 20; i < line.size() - 20; ++i) {
            const QVector3D along = line[i + 1] - line[i - 1];
            const QVector3D across =
                QVector3D::crossProduct(along, {1.0F, 0.0F, 0.0F}).normalized();
            EXPECT_EQ(patient().tissueAt(line[i] + 1.1F * across), Tissue::NerveCanal) << i;
            EXPECT_EQ(patient().tissueAt(line[i] - 1.1F * across), Tissue::NerveCanal) << i;
            EXPECT_EQ(patient().tissueAt(line[i] + 1.45F * across), Tissue::CorticalBone) << i;
            EXPECT_EQ(patient().tissueAt(line[i] - 1.45F * across), Tissue::CorticalBone) << i;
        }
    }
}

TEST(PhantomCanal, OpensAtTheMentalForamenOnTheOuterSurfaceOfTheBone)
{
    for (const NerveCanal* canal : bothCanals()) {
        const float outwards = canal->mentalForamen.x() < kMidlineX ? -1.0F : 1.0F;
        const QVector3D foramen = canal->mentalForamen;
        EXPECT_EQ(patient().tissueAt(foramen + QVector3D(outwards * 2.0F, 0.0F, 0.0F)),
                  Tissue::SoftTissue);
        // Beside the opening, the same depth is bone.
        EXPECT_TRUE(isBone(patient().tissueAt(foramen + QVector3D(-outwards * 1.5F, 0.0F, -4.0F))));
    }
}

TEST(PhantomCanal, OpensAtTheMandibularForamenOnTheInnerSideOfTheRamus)
{
    for (const NerveCanal* canal : bothCanals()) {
        const float inwards = canal->mandibularForamen.x() < kMidlineX ? 1.0F : -1.0F;
        const QVector3D foramen = canal->mandibularForamen;
        EXPECT_EQ(patient().tissueAt(foramen + QVector3D(inwards * 2.0F, 0.0F, 0.0F)),
                  Tissue::SoftTissue);
        EXPECT_TRUE(isBone(patient().tissueAt(foramen - QVector3D(inwards * 3.0F, 0.0F, 0.0F))));
    }
}

TEST(PhantomCanal, HasForaminaInLivingPlaces)
{
    const NerveCanal& right = patient().rightCanal();
    const NerveCanal& left = patient().leftCanal();
    EXPECT_NEAR(left.mandibularForamen.x() - right.mandibularForamen.x(), 81.0F, 3.0F);
    EXPECT_NEAR(left.mentalForamen.x() - right.mentalForamen.x(), 46.0F, 3.0F);
    const float occlusalZ = toothOf(30).occlusalPoint.z();
    EXPECT_NEAR(right.mandibularForamen.z() - occlusalZ, 10.0F, 2.0F);
    EXPECT_NEAR(occlusalZ - right.mentalForamen.z(), 19.0F, 2.0F);
    EXPECT_NEAR(right.mandibularForamen.y() - toothOf(31).occlusalPoint.y(), 18.0F, 3.0F);
}

// Both sides differ

TEST(PhantomSides, DifferInTheMandibularCanal)
{
    const NerveCanal& right = patient().rightCanal();
    const NerveCanal& left = patient().leftCanal();
    EXPECT_NEAR(left.mentalForamen.z() - right.mentalForamen.z(), 1.1F, 0.3F);
    const auto lowest = [](const NerveCanal& canal) {
        float z = 1000.0F;
        for (const QVector3D& sample : canal.centreLine)
            z = std::min(z, sample.z());
        return z;
    };
    EXPECT_NEAR(lowest(right) - lowest(left), 1.2F, 0.3F);
}

TEST(PhantomSides, DifferInTheRamus)
{
    const float right = kMidlineX - patient().rightCanal().mandibularForamen.x();
    const float left = patient().leftCanal().mandibularForamen.x() - kMidlineX;
    EXPECT_NEAR(left - right, 1.5F, 0.2F);
}

TEST(PhantomSides, DifferInTheMaxillarySinuses)
{
    // Two semi-axes each: 2 * 12.0 and 2 * 13.5 mm.
    EXPECT_NEAR(widthOf(Tissue::Air, {kMidlineX - 27.5F, 60.0F, 101.0F}), 24.0F, 0.3F);
    EXPECT_NEAR(widthOf(Tissue::Air, {kMidlineX + 28.5F, 60.5F, 100.5F}), 27.0F, 0.3F);
}

TEST(PhantomSides, DifferInTheNasalSeptumWhichStandsToTheLeft)
{
    // The right half of the nose reaches 0.2 mm beyond the midline, the left half begins 2.4 mm
    // from it.
    EXPECT_EQ(patient().tissueAt({kMidlineX + 0.1F, 60.0F, 103.0F}), Tissue::Air);
    EXPECT_EQ(patient().tissueAt({kMidlineX + 0.3F, 60.0F, 103.0F}), Tissue::SoftTissue);
    EXPECT_EQ(patient().tissueAt({kMidlineX + 2.3F, 60.0F, 103.0F}), Tissue::SoftTissue);
    EXPECT_EQ(patient().tissueAt({kMidlineX + 2.5F, 60.0F, 103.0F}), Tissue::Air);
}

// Bones and soft tissue

TEST(PhantomBone, OfTheMandibleIsCancellousWithinACorticalShell)
{
    // Across the right body below the roots and the canal.
    const std::vector<Tissue> expected = {Tissue::SoftTissue, Tissue::CorticalBone,
                                          Tissue::CancellousBone, Tissue::CorticalBone,
                                          Tissue::SoftTissue};
    EXPECT_EQ(tissuesBetween({35.0F, 58.0F, 28.0F}, {kMidlineX, 58.0F, 28.0F}), expected);
}

TEST(PhantomBone, OfTheRamusStandsBehindTheTeethOnBothSides)
{
    const std::vector<Tissue> expected = {Tissue::SoftTissue, Tissue::CorticalBone,
                                          Tissue::CancellousBone, Tissue::CorticalBone,
                                          Tissue::SoftTissue};
    EXPECT_EQ(tissuesBetween({18.0F, 92.0F, 60.0F}, {45.0F, 92.0F, 60.0F}), expected);
    EXPECT_EQ(tissuesBetween({105.0F, 92.0F, 60.0F}, {132.0F, 92.0F, 60.0F}), expected);
}

TEST(PhantomBone, OfTheCondylesLiesAtTheTopOfTheRamus)
{
    for (const float x : {kMidlineX - 51.0F, kMidlineX + 52.5F}) {
        EXPECT_TRUE(isBone(patient().tissueAt({x, 105.0F, 97.0F})));
        EXPECT_EQ(patient().tissueAt({x, 105.0F, 103.5F}), Tissue::SoftTissue);
    }
}

TEST(PhantomBone, OfTheHardPalatePartsMouthFromNose)
{
    const std::vector<Tissue> met = tissuesBetween({70.0F, 58.0F, 76.0F}, {70.0F, 58.0F, 100.0F});
    const std::vector<Tissue> parting = {Tissue::Air, Tissue::SoftTissue, Tissue::CorticalBone};
    EXPECT_NE(std::search(met.begin(), met.end(), parting.begin(), parting.end()), met.end());
    EXPECT_EQ(met.back(), Tissue::Air);
}

TEST(PhantomFace, HasFiveMillimetresOfAirBeforeIt)
{
    for (int z = 0; z <= 130; ++z) {
        for (int x = 0; x <= 150; ++x) {
            for (int y = 0; y <= 5; ++y)
                ASSERT_EQ(patient().tissueAt(QVector3D(float(x), float(y), float(z))), Tissue::Air)
                    << x << ' ' << y << ' ' << z;
        }
    }
}

TEST(PhantomFace, ReadsAsAProfileOfNoseLipsAndChin)
{
    const float tipOfNose = frontOfFace(88.0F);
    const float belowNose = frontOfFace(77.5F);
    const float upperLip = frontOfFace(66.0F);
    const float betweenLips = frontOfFace(57.5F);
    const float lowerLip = frontOfFace(50.0F);
    const float aboveChin = frontOfFace(37.0F);
    const float chin = frontOfFace(24.0F);
    const float throat = frontOfFace(2.0F);
    EXPECT_LT(tipOfNose, upperLip - 8.0F);
    EXPECT_LT(upperLip, belowNose - 3.0F);
    EXPECT_LT(upperLip, betweenLips - 3.0F);
    EXPECT_LT(lowerLip, betweenLips - 3.0F);
    EXPECT_LT(lowerLip, aboveChin - 3.0F);
    EXPECT_LT(chin, aboveChin - 3.0F);
    EXPECT_GT(throat, chin + 40.0F);
}

TEST(PhantomFace, CoversTheTeethAndTheChinWithSoftTissue)
{
    // From the front on the midline: at the chin and through the upper front teeth.
    EXPECT_EQ(tissuesBetween({kMidlineX, 5.0F, 24.0F}, {kMidlineX, 33.5F, 24.0F}),
              (std::vector<Tissue>{Tissue::Air, Tissue::SoftTissue, Tissue::CorticalBone}));
    EXPECT_EQ(
        tissuesBetween({70.7F, 5.0F, 62.0F}, {70.7F, 31.0F, 62.0F}),
        (std::vector<Tissue>{Tissue::Air, Tissue::SoftTissue, Tissue::Enamel, Tissue::Dentine}));
}

TEST(PhantomFace, LeavesTheAirwayOpenFromTheNoseToTheFloorOfTheVolume)
{
    for (const auto& [y, z] : {std::pair{92.0F, 100.0F}, std::pair{101.0F, 75.0F},
                               std::pair{98.0F, 40.0F}, std::pair{95.0F, 0.0F}})
        EXPECT_EQ(patient().tissueAt({kMidlineX, y, z}), Tissue::Air) << y << ' ' << z;
}

TEST(PhantomFace, IsCutByTheFloorAndTheCeilingOfTheVolume)
{
    EXPECT_EQ(patient().tissueAt({kMidlineX, 140.0F, 0.0F}), Tissue::SoftTissue);
    EXPECT_EQ(patient().tissueAt({kMidlineX, 140.0F, 130.0F}), Tissue::SoftTissue);
}

// Extent and truth

TEST(Phantom, HasAnExtentThatDoesNotDependOnTheVoxelSize)
{
    EXPECT_EQ(patient().extentMm(), QVector3D(150.0F, 165.0F, 130.0F));
    EXPECT_EQ(Patient(noiseless(3.3F)).extentMm(), QVector3D(150.0F, 165.0F, 130.0F));
    EXPECT_EQ(Patient(noiseless(0.0F)).extentMm(), QVector3D(150.0F, 165.0F, 130.0F));
}

TEST(Phantom, IsAirOutsideTheVolume)
{
    ASSERT_EQ(patient().tissueAt({kMidlineX, 140.0F, 130.0F}), Tissue::SoftTissue);
    EXPECT_EQ(patient().tissueAt({kMidlineX, 140.0F, 130.01F}), Tissue::Air);
    EXPECT_EQ(patient().tissueAt({kMidlineX, 140.0F, -0.01F}), Tissue::Air);
    ASSERT_EQ(patient().tissueAt({kMidlineX, 165.0F, 120.0F}), Tissue::SoftTissue);
    EXPECT_EQ(patient().tissueAt({kMidlineX, 165.01F, 120.0F}), Tissue::Air);
    EXPECT_EQ(patient().tissueAt({-1e30F, 140.0F, 60.0F}), Tissue::Air);
}

TEST(Phantom, IsAirWhereAPositionIsNotFinite)
{
    for (const float bad : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_EQ(patient().tissueAt({bad, 140.0F, 60.0F}), Tissue::Air);
        EXPECT_EQ(patient().tissueAt({kMidlineX, bad, 60.0F}), Tissue::Air);
        EXPECT_EQ(patient().tissueAt({kMidlineX, 140.0F, bad}), Tissue::Air);
    }
}

TEST(Phantom, AnswersAlikeFromACopyThatOutlivesIt)
{
    auto original = std::make_unique<Patient>();
    const Patient copy = *original;
    original.reset();
    EXPECT_EQ(
        copy.tissueAt(copy.teeth().front().occlusalPoint - 0.3F * copy.teeth().front().axisToCrown),
        Tissue::Enamel);
}

// Image

TEST(PhantomVolume, HasSixteenBitVoxelsOfTheChosenSizeThatFillTheExtent)
{
    const VexelImage3D volume = Patient(noiseless(2.5F)).createVolume();
    EXPECT_EQ(volume.dataType(), image::Int16);
    EXPECT_EQ(volume.voxelSize(), QVector3D(2.5F, 2.5F, 2.5F));
    EXPECT_EQ(volume.imageSize().x, 60);
    EXPECT_EQ(volume.imageSize().y, 66);
    EXPECT_EQ(volume.imageSize().z, 52);
}

TEST(PhantomVolume, KeepsTheLastCentreInsideWhenTheVoxelSizeDoesNotDivideTheExtent)
{
    // 150 / 7 = 21.4, 165 / 7 = 23.6, 130 / 7 = 18.6: one more than fits whole, for the centre at
    // the origin.
    const VexelImage3D volume = Patient(noiseless(7.0F)).createVolume();
    EXPECT_EQ(volume.imageSize().x, 22);
    EXPECT_EQ(volume.imageSize().y, 24);
    EXPECT_EQ(volume.imageSize().z, 19);
}

TEST(PhantomVolume, IsOneVoxelWhenTheVoxelIsLargerThanThePatient)
{
    EXPECT_EQ(Patient(noiseless(1000.0F)).createVolume().voxelCount(), 1U);
}

TEST(PhantomVolume, EqualsTheTruthInEveryVoxel)
{
    // Neither the voxel size nor the painted grey values are whole numbers.
    Settings settings = noiseless(1.7F);
    settings.gain = 1.1F;
    settings.offset = -3.3F;
    const Patient oblique(settings);
    const VexelImage3D volume = oblique.createVolume();
    const auto* voxel = static_cast<const std::int16_t*>(volume.dataPtr());
    ASSERT_FALSE(volume.isEmpty());
    for (int z = 0; z < volume.imageSize().z; ++z) {
        for (int y = 0; y < volume.imageSize().y; ++y) {
            for (int x = 0; x < volume.imageSize().x; ++x) {
                const QVector3D centre(float(x) * 1.7F, float(y) * 1.7F, float(z) * 1.7F);
                const float painted = oblique.paintedGreyValue(oblique.tissueAt(centre));
                ASSERT_EQ(float(*voxel++), std::round(painted)) << x << ' ' << y << ' ' << z;
            }
        }
    }
}

TEST(PhantomVolume, ShowsEveryTissue)
{
    Settings settings = noiseless(1.0F);
    settings.greyValues = {0.0F, 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 7.0F};
    const std::vector<std::int16_t> voxels = voxelsOf(settings);
    EXPECT_EQ(std::set<std::int16_t>(voxels.begin(), voxels.end()),
              (std::set<std::int16_t>{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST(PhantomVolume, HasTheSameVoxelsForTheSameSeed)
{
    Settings settings;
    settings.voxelSizeMm = 2.0F;
    EXPECT_EQ(voxelsOf(settings), voxelsOf(settings));
}

TEST(PhantomVolume, HasOtherNoiseForAnotherSeed)
{
    const std::vector<std::int16_t> one = voxelsOf(noiseAlone(2.0F, 1000.0F, 1));
    const std::vector<std::int16_t> two = voxelsOf(noiseAlone(2.0F, 1000.0F, 2));
    ASSERT_EQ(one.size(), two.size());
    std::size_t equal = 0;
    for (std::size_t i = 0; i < one.size(); ++i)
        equal += one[i] == two[i] ? 1U : 0U;
    EXPECT_LT(equal, one.size() / 100);
}

TEST(PhantomVolume, HasNoiseOfKnownBits)
{
    // The sums of eight bytes, less 1020, worked out with whole numbers of unlimited size in
    // another language, divided by the square root of 8 * 65535 / 12 and multiplied by the sigma of
    // 1000: 96, 93, -324, 63, -17, 151.
    const std::vector<std::int16_t> voxels = voxelsOf(noiseAlone(5.0F, 1000.0F, 2026));
    const std::vector<std::int16_t> expected = {459, 445, -1550, 301, -81, 722};
    EXPECT_EQ(std::vector<std::int16_t>(voxels.begin(), voxels.begin() + 6), expected);
}

TEST(PhantomVolume, HasNoiseOfMeanZeroAndTheChosenSigma)
{
    // 404 625 voxels: the standard errors are 0.16 for the mean and 0.11 for the deviation.
    const std::vector<std::int16_t> voxels = voxelsOf(noiseAlone(2.0F, 100.0F, 2026));
    const double mean = meanOf(voxels);
    double squares = 0.0;
    for (const std::int16_t value : voxels)
        squares += (value - mean) * (value - mean);
    EXPECT_NEAR(mean, 0.0, 0.8);
    EXPECT_NEAR(std::sqrt(squares / double(voxels.size())), 100.0, 0.6);
}

TEST(PhantomVolume, HasNoiseThatIsNearlyNormal)
{
    // Of a normal distribution 68.3 % lie within one and 95.4 % within two standard deviations.
    const std::vector<std::int16_t> voxels = voxelsOf(noiseAlone(2.0F, 1000.0F, 2026));
    double withinOne = 0.0;
    double withinTwo = 0.0;
    for (const std::int16_t value : voxels) {
        withinOne += std::abs(value) <= 1000 ? 1.0 : 0.0;
        withinTwo += std::abs(value) <= 2000 ? 1.0 : 0.0;
    }
    EXPECT_NEAR(withinOne / double(voxels.size()), 0.683, 0.01);
    EXPECT_NEAR(withinTwo / double(voxels.size()), 0.954, 0.005);
}

TEST(PhantomVolume, HasNoiseThatNeighboursDoNotShare)
{
    // 75 voxels a row, 83 rows a slice; the standard error of each correlation is 0.0016.
    const std::vector<std::int16_t> voxels = voxelsOf(noiseAlone(2.0F, 1000.0F, 2026));
    for (const std::size_t distance : {1U, 75U, 75U * 83U})
        EXPECT_NEAR(correlation(voxels, distance), 0.0, 0.008) << distance;
}

TEST(PhantomVolume, ReportsProgressInAscendingOrderFromZeroToOne)
{
    std::vector<double> reported;
    const VexelImage3D volume = Patient(noiseless(5.0F)).createVolume([&reported](double fraction) {
        reported.push_back(fraction);
    });
    ASSERT_GE(reported.size(), 3U);
    EXPECT_EQ(reported.front(), 0.0);
    EXPECT_EQ(reported.back(), 1.0);
    for (std::size_t i = 1; i < reported.size(); ++i)
        EXPECT_GT(reported[i], reported[i - 1]);
}

// Grey values

TEST(PhantomGrey, IsTheTissuesOwnByDefault)
{
    EXPECT_EQ(patient().paintedGreyValue(Tissue::Air), -1000.0F);
    EXPECT_EQ(patient().paintedGreyValue(Tissue::SoftTissue), 40.0F);
    EXPECT_EQ(patient().paintedGreyValue(Tissue::CorticalBone), 1300.0F);
    EXPECT_EQ(patient().paintedGreyValue(Tissue::NerveCanal), 20.0F);
}

TEST(PhantomGrey, IsMultipliedByTheGainBeforeTheOffsetIsAdded)
{
    Settings settings;
    settings.gain = 2.0F;
    settings.offset = 10.0F;
    const Patient miscalibrated(settings);
    EXPECT_EQ(miscalibrated.paintedGreyValue(Tissue::Enamel), 5210.0F); // 2 * 2600 + 10
    EXPECT_EQ(miscalibrated.paintedGreyValue(Tissue::Air), -1990.0F);   // 2 * -1000 + 10
}

TEST(PhantomGrey, IsRoundedWithHalvesAwayFromZero)
{
    Settings settings = noiseless(1000.0F); // the one voxel is air
    settings.greyValues[0] = -2.5F;
    EXPECT_EQ(voxelsOf(settings), std::vector<std::int16_t>{-3});
    settings.greyValues[0] = 2.5F;
    EXPECT_EQ(voxelsOf(settings), std::vector<std::int16_t>{3});
}

TEST(PhantomGrey, IsLimitedToSixteenBitsInTheImage)
{
    Settings settings = noiseless(1000.0F);
    settings.gain = 1e30F;
    EXPECT_EQ(voxelsOf(settings), std::vector<std::int16_t>{-32768});
    settings.gain = -1e38F;
    settings.greyValues[0] = -1e38F;
    EXPECT_EQ(voxelsOf(settings), std::vector<std::int16_t>{32767});
    settings.noiseSigma = std::numeric_limits<float>::max();
    EXPECT_EQ(voxelsOf(settings).size(), 1U);
}

TEST(PhantomGrey, IsZeroForAValueThatIsNoTissue)
{
    EXPECT_EQ(patient().paintedGreyValue(Tissue(-1)), 0.0F);
    EXPECT_EQ(patient().paintedGreyValue(Tissue(8)), 0.0F);
}

// Landmarks of the skull

TEST(PhantomSkull, LandmarksLieOnCorticalBoneUnderSoftTissue)
{
    const struct
    {
        landmarkDetection::LandmarkType type;
        QVector3D outwards;
    } rows[] = {{landmarkDetection::SubspinalePoint, {0.0F, -1.0F, 0.0F}},
                {landmarkDetection::InfradentalePoint, {0.0F, -1.0F, 0.0F}},
                {landmarkDetection::GonionRight, {-1.0F, 0.0F, 0.0F}},
                {landmarkDetection::GonionLeft, {1.0F, 0.0F, 0.0F}},
                {landmarkDetection::Pogonion, {0.0F, -1.0F, 0.0F}}};
    const auto landmarks = patient().skullLandmarks();
    ASSERT_EQ(landmarks.size(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(landmarks[i].type, rows[i].type);
        EXPECT_EQ(patient().tissueAt(landmarks[i].position), Tissue::CorticalBone) << rows[i].type;
        EXPECT_EQ(patient().tissueAt(landmarks[i].position + 0.1F * rows[i].outwards),
                  Tissue::SoftTissue)
            << rows[i].type;
    }
}

TEST(PhantomSkull, LeftGonionStandsFartherOut)
{
    const auto landmarks = patient().skullLandmarks();
    const float right = kMidlineX - landmarks[2].position.x();
    const float left = landmarks[3].position.x() - kMidlineX;
    EXPECT_NEAR(left - right, 1.5F, 0.11F);
}

// Unusable settings

TEST(PhantomSettings, WithoutAUsableVoxelSizeGiveAnImageWithoutVoxelsAndStillKnowTheTruth)
{
    for (const float bad : {0.0F, -0.5F, kNaN, kInfinity, -kInfinity, 1e-6F, 1e-44F}) {
        const Patient blurred(noiseless(bad));
        int reports = 0;
        EXPECT_TRUE(blurred.createVolume([&reports](double) { ++reports; }).isEmpty()) << bad;
        EXPECT_EQ(reports, 0) << bad;
        EXPECT_EQ(blurred.tissueAt({kMidlineX, 140.0F, 60.0F}),
                  patient().tissueAt({kMidlineX, 140.0F, 60.0F}));
        EXPECT_EQ(blurred.teeth().size(), 28) << bad;
    }
}

TEST(PhantomSettings, ThatAreNotFiniteAreReplacedByNeutralOnes)
{
    for (const float bad : {kNaN, kInfinity, -kInfinity}) {
        Settings settings;
        settings.voxelSizeMm = 10.0F;
        settings.gain = bad;
        settings.offset = bad;
        settings.noiseSigma = bad;
        settings.greyValues.fill(bad);
        const Patient neutral(settings);
        EXPECT_EQ(neutral.settings().gain, 1.0F);
        EXPECT_EQ(neutral.settings().offset, 0.0F);
        EXPECT_EQ(neutral.settings().noiseSigma, 0.0F);
        EXPECT_EQ(neutral.paintedGreyValue(Tissue::Enamel), 2600.0F);
        EXPECT_EQ(voxelsOf(neutral.createVolume()), voxelsOf(noiseless(10.0F)));
    }
}

TEST(PhantomSettings, WithNegativeNoisePaintNone)
{
    Settings settings = noiseless(10.0F);
    settings.noiseSigma = -25.0F;
    EXPECT_EQ(voxelsOf(settings), voxelsOf(noiseless(10.0F)));
}

} // namespace
