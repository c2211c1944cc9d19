// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include "phantom/Phantom.h"

// Covered: the mandibular canals, the differences of both sides, bones, face and skull landmarks.

#include <tests/phantom/PhantomTruth.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace {

using phantom::NerveCanal;
using phantom::Tissue;
using phantom::Tooth;
using test::isBone;
using test::kMidlineX;
using test::patient;
using test::tissuesBetween;
using test::toothOf;

std::array<const NerveCanal*, 2> bothCanals()
{
    return {&patient().rightCanal(), &patient().leftCanal()};
}

// Returns the length of the stretch of one tissue around a point along x, to 0.1 mm.
float widthOf(Tissue tissue, const QVector3D& around)
{
    int samples = 0;
    for (const float step : {-0.1F, 0.1F}) {
        for (QVector3D at = around; patient().tissueAt(at) == tissue; at.setX(at.x() + step))
            ++samples;
    }
    return 0.1F * float(samples);
}

// Returns the y at which a line from the front on the midline leaves the air, to 0.1 mm.
float frontOfFace(float z)
{
    float y = 0.0F;
    while (y < 165.0F && patient().tissueAt({kMidlineX, y, z}) == Tissue::Air)
        y += 0.1F;
    return y;
}

// Canals

TEST(PhantomCanal, IsNerveAllAlongItsCenterLine)
{
    for (const NerveCanal* canal : bothCanals()) {
        const QList<QVector3D>& line = canal->centerLine;
        for (qsizetype i = 0; i + 1 < line.size(); ++i) {
            EXPECT_EQ(patient().tissueAt(line[i]), Tissue::NerveCanal) << i;
            EXPECT_EQ(patient().tissueAt(0.5F * (line[i] + line[i + 1])), Tissue::NerveCanal) << i;
        }
        EXPECT_EQ(patient().tissueAt(line.last()), Tissue::NerveCanal);
    }
}

TEST(PhantomCanal, IsSampledInStepsUpToAMillimeterWithoutTurningBack)
{
    for (const NerveCanal* canal : bothCanals()) {
        const QList<QVector3D>& line = canal->centerLine;
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
        EXPECT_EQ(canal->mandibularForamen, canal->centerLine.first());
        EXPECT_EQ(canal->mentalForamen, canal->centerLine.last());
        EXPECT_GT(canal->mandibularForamen.y(), canal->mentalForamen.y() + 35.0F);
    }
}

TEST(PhantomCanal, HasSmallXOnTheRight)
{
    for (const QVector3D& sample : patient().rightCanal().centerLine)
        EXPECT_LT(sample.x(), kMidlineX);
    for (const QVector3D& sample : patient().leftCanal().centerLine)
        EXPECT_GT(sample.x(), kMidlineX);
}

TEST(PhantomCanal, MeasuresSixtyToSeventyFiveMillimeters)
{
    for (const NerveCanal* canal : bothCanals()) {
        float length = 0.0F;
        for (qsizetype i = 1; i < canal->centerLine.size(); ++i)
            length += (canal->centerLine[i] - canal->centerLine[i - 1]).length();
        EXPECT_GT(length, 60.0F);
        EXPECT_LT(length, 75.0F);
    }
}

TEST(PhantomCanal, KeepsThreeMillimetersFromEveryApexAndTouchesNoRoot)
{
    for (const NerveCanal* canal : bothCanals()) {
        for (const QVector3D& sample : canal->centerLine) {
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
        const QList<QVector3D>& line = canal->centerLine;
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
        // Next to the opening, there is bone at the same depth.
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
        for (const QVector3D& sample : canal.centerLine)
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

TEST(PhantomSides, DifferInTheNasalSeptumWhichIsToTheLeft)
{
    // The right half of the nose reaches 0.2 mm beyond the midline, the left half begins 2.4 mm
    // from it.
    EXPECT_EQ(patient().tissueAt({kMidlineX + 0.1F, 60.0F, 103.0F}), Tissue::Air);
    EXPECT_EQ(patient().tissueAt({kMidlineX + 0.3F, 60.0F, 103.0F}), Tissue::SoftTissue);
    EXPECT_EQ(patient().tissueAt({kMidlineX + 2.3F, 60.0F, 103.0F}), Tissue::SoftTissue);
    EXPECT_EQ(patient().tissueAt({kMidlineX + 2.5F, 60.0F, 103.0F}), Tissue::Air);
}

// Bones and soft tissue

TEST(PhantomBone, IsCancellousWithinACorticalShellInTheMandible)
{
    // Across the right body below the roots and the canal.
    const std::vector<Tissue> expected = {Tissue::SoftTissue, Tissue::CorticalBone,
                                          Tissue::CancellousBone, Tissue::CorticalBone,
                                          Tissue::SoftTissue};
    EXPECT_EQ(tissuesBetween({35.0F, 58.0F, 28.0F}, {kMidlineX, 58.0F, 28.0F}), expected);
}

TEST(PhantomBone, FormsARamusBehindTheTeethOnBothSides)
{
    const std::vector<Tissue> expected = {Tissue::SoftTissue, Tissue::CorticalBone,
                                          Tissue::CancellousBone, Tissue::CorticalBone,
                                          Tissue::SoftTissue};
    EXPECT_EQ(tissuesBetween({18.0F, 92.0F, 60.0F}, {45.0F, 92.0F, 60.0F}), expected);
    EXPECT_EQ(tissuesBetween({105.0F, 92.0F, 60.0F}, {132.0F, 92.0F, 60.0F}), expected);
}

TEST(PhantomBone, FormsTheCondylesAtTheTopOfTheRamus)
{
    for (const float x : {kMidlineX - 51.0F, kMidlineX + 52.5F}) {
        EXPECT_TRUE(isBone(patient().tissueAt({x, 105.0F, 97.0F})));
        EXPECT_EQ(patient().tissueAt({x, 105.0F, 103.5F}), Tissue::SoftTissue);
    }
}

TEST(PhantomBone, SeparatesMouthFromNoseAtTheHardPalate)
{
    const std::vector<Tissue> met = tissuesBetween({70.0F, 58.0F, 76.0F}, {70.0F, 58.0F, 100.0F});
    const std::vector<Tissue> parting = {Tissue::Air, Tissue::SoftTissue, Tissue::CorticalBone};
    EXPECT_NE(std::search(met.begin(), met.end(), parting.begin(), parting.end()), met.end());
    EXPECT_EQ(met.back(), Tissue::Air);
}

TEST(PhantomFace, HasFiveMillimetersOfAirInFrontOfIt)
{
    for (int z = 0; z <= 130; ++z) {
        for (int x = 0; x <= 150; ++x) {
            for (int y = 0; y <= 5; ++y)
                ASSERT_EQ(patient().tissueAt(QVector3D(float(x), float(y), float(z))), Tissue::Air)
                    << x << ' ' << y << ' ' << z;
        }
    }
}

TEST(PhantomFace, HasAProfileOfNoseLipsAndChin)
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
    // Lines from the front on the midline: at the chin and through the upper front teeth.
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

TEST(PhantomSkull, LeftGonionIsFartherOut)
{
    const auto landmarks = patient().skullLandmarks();
    const float right = kMidlineX - landmarks[2].position.x();
    const float left = landmarks[3].position.x() - kMidlineX;
    EXPECT_NEAR(left - right, 1.5F, 0.11F);
}

} // namespace
