// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/Panorama.h>

// Covered: panorama(): its path, what it shows, when there is none; wide columns; implants and
// their turning; landmarks mapped into a panoramic view; unroll().

#include <planner/drawing/GreyScale.h>
#include <planner/drawing/Sampling.h>
#include <planner/planning/Mapping.h>

#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <phantom/Phantom.h>

#include <QVector2D>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>

using planner::Case;
using planner::Landmark;
using planner::LandmarkKind;

namespace {

Case builtInPatient()
{
    Case planned;
    planned.patient = std::make_shared<const phantom::Patient>();
    planned.landmarks = planner::landmarksOf(*planned.patient);
    return planned;
}

// Arch points on a half circle of 20 mm round (50, 60, 30), the patient's right first.
Case withArchPoints(bool rightFirst)
{
    Case planned;
    const QList<QVector3D> places = {
        {30, 60, 30}, {38, 44, 30}, {50, 40, 30}, {62, 44, 30}, {70, 60, 30}};
    for (const QVector3D& place : places) {
        const Landmark point{QStringLiteral("arch point"), {}, LandmarkKind::Arch, place};
        rightFirst ? planned.landmarks.append(point) : planned.landmarks.prepend(point);
    }
    return planned;
}

TEST(Panorama, RunsFromThePatientsRightToTheLeftWhateverTheOrderOfTheArchPoints)
{
    for (const bool rightFirst : {true, false}) {
        const auto view = planner::panorama(withArchPoints(rightFirst));
        ASSERT_TRUE(view);
        const QList<QVector3D> path = view->reslice->getPath();
        EXPECT_EQ(path.first(), QVector3D(30, 60, 30));
        EXPECT_EQ(path.last(), QVector3D(70, 60, 30));
        EXPECT_EQ(view->reslice->getGuidingLine(), view->arch);
    }
}

TEST(Panorama, ShowsTheLandmarksHeightsAndAMargin)
{
    Case planned = withArchPoints(true);
    planned.landmarks.append({QStringLiteral("low"), {}, LandmarkKind::Apex, {50, 40, 20}});
    planned.landmarks.append({QStringLiteral("high"), {}, LandmarkKind::Apex, {50, 40, 45}});
    const auto view = planner::panorama(planned);
    ASSERT_TRUE(view);
    // 20 - 22 - 30 and 45 + 28 - 30, from the path at 30.
    EXPECT_EQ(view->reslice->getVerticalRange(), (math::Range<float>{-32.0F, 43.0F}));
    EXPECT_FLOAT_EQ(view->reslice->getHeight(), 75.0F);
}

TEST(Panorama, FollowsTheLowerTeethAndTheForaminaOfTheBuiltInPatient)
{
    const Case planned = builtInPatient();
    const auto view = planner::panorama(planned);
    ASSERT_TRUE(view);
    const QList<QVector3D> path = view->reslice->getPath();
    EXPECT_TRUE(std::all_of(path.cbegin(), path.cend(), [&path](const QVector3D& sample) {
        return sample.z() == path.first().z();
    }));
    for (const QString& name :
         {QStringLiteral("tooth 47"), QStringLiteral("tooth 41"), QStringLiteral("tooth 37"),
          QString::fromUtf16(planner::kRightMandibularForamen),
          QString::fromUtf16(planner::kLeftMandibularForamen)}) {
        const Landmark* landmark = planner::findLandmark(planned.landmarks, name);
        ASSERT_TRUE(landmark);
        const auto nearest = std::min_element(
            path.cbegin(), path.cend(), [&](const QVector3D& a, const QVector3D& b) {
                return QVector2D(a - landmark->position).length() <
                       QVector2D(b - landmark->position).length();
            });
        EXPECT_LT(QVector2D(*nearest - landmark->position).length(), 0.2F) << qPrintable(name);
    }
}

TEST(Panorama, NeedsFivePoints)
{
    Case planned = withArchPoints(true);
    EXPECT_EQ(planner::whyNoPanorama(planned), QString());
    planned.landmarks.removeLast();
    EXPECT_FALSE(planner::panorama(planned));
    EXPECT_FALSE(planner::panorama(Case()));
    EXPECT_TRUE(planner::whyNoPanorama(planned).startsWith(
        QStringLiteral("A panoramic view needs five arch points")));
}

TEST(Panorama, NeedsAnArchOfAPlausibleLength)
{
    Case tooLong = withArchPoints(true);
    for (Landmark& landmark : tooLong.landmarks)
        landmark.position *= 10.0F;
    EXPECT_FALSE(planner::panorama(tooLong));
    EXPECT_TRUE(planner::whyNoPanorama(tooLong).contains(
        QStringLiteral("an arch of 20 to 600 mm; the arch points make one of 611 mm")));

    Case atOnePoint = withArchPoints(true);
    for (Landmark& landmark : atOnePoint.landmarks)
        landmark.position = {30, 60, landmark.position.x()}; // one above the other
    EXPECT_FALSE(planner::panorama(atOnePoint));
    EXPECT_TRUE(planner::whyNoPanorama(atOnePoint).contains(QStringLiteral("make one of 0 mm")));
}

TEST(Panorama, EveryLandmarkOfTheBuiltInPatientComesBackToItsFoot)
{
    const Case planned = builtInPatient();
    const auto view = planner::panorama(planned);
    const auto mapped = planner::mapOntoPanoramic(planned.landmarks, *view->reslice);
    ASSERT_EQ(mapped.size(), 60);
    for (const planner::MappedLandmark& mark : mapped) {
        EXPECT_TRUE(mark.inPlane.value_or(false)) << qPrintable(mark.landmark.name);
        EXPECT_LT(mark.errorMm, 0.2) << qPrintable(mark.landmark.name);
        EXPECT_LT(mark.clickErrorMm, 0.4) << qPrintable(mark.landmark.name);
    }
    // Right is on the left.
    const auto x = [&mapped](const char* label) {
        return std::find_if(mapped.cbegin(), mapped.cend(),
                            [label](const auto& mark) {
                                return mark.landmark.label == QLatin1String(label);
                            })
            ->inView.x();
    };
    EXPECT_LT(x("47"), x("43"));
    EXPECT_LT(x("43"), x("33"));
    EXPECT_LT(x("33"), x("37"));
    EXPECT_NEAR(x("46"), x("16"), 4.0); // opposite teeth stand above each other
}

TEST(Panorama, WideColumnsLeavePositionsWhereTheyAre)
{
    const Case planned = builtInPatient();
    const auto fine = planner::panorama(planned)->reslice;
    const auto wide = planner::withWideColumns(*fine);
    EXPECT_FLOAT_EQ(wide->getSampleSize().x(), 5.0F);
    for (const QVector3D& point : planned.patient->rightCanal().centerLine) {
        const QPointF moved = CoordinateMapper::_3D_To_2D_PanoramicPoint(wide.get(), point, true) -
                              CoordinateMapper::_3D_To_2D_PanoramicPoint(fine.get(), point, true);
        EXPECT_LT(std::hypot(moved.x(), moved.y()), 1.0);
    }
}

TEST(Panorama, ImplantStandsInTheAxisOfItsToothAboveTheApex)
{
    const Case planned = builtInPatient();
    const auto implant = planner::implantAt(planned, QStringLiteral("36"));
    ASSERT_TRUE(implant);
    const Landmark* crown = planner::findLandmark(planned.landmarks, QStringLiteral("tooth 36"));
    const Landmark* apex =
        planner::findLandmark(planned.landmarks, QStringLiteral("tooth 36, apex"));
    const QVector3D along = (crown->position - apex->position).normalized();
    const QMatrix4x4 placement = implant->getObjectTransform();
    const QVector3D tip = placement.map(QVector3D(0.0F, 0.0F, -implant->getDimensions().length));
    EXPECT_LT((placement.mapVector({0, 0, 1}) - along).length(), 1e-5F);
    EXPECT_LT((tip - (apex->position + along)).length(), 1e-4F); // 1 mm above it
    EXPECT_FALSE(
        planner::implantAt(planned, QStringLiteral("38"))); // the patient has no third molars
    EXPECT_FALSE(planner::implantAt(Case(), QStringLiteral("36")));
}

TEST(Panorama, TurnedImplantFacesAcrossTheArch)
{
    const Case planned = builtInPatient();
    const auto view = planner::panorama(planned);
    for (const char* fdi : {"36", "46"}) {
        const auto implant = planner::implantAt(planned, QLatin1String(fdi));
        const QVector3D platform = implant->getObjectTransform().column(3).toVector3D();
        EXPECT_GT(std::abs(planner::turnSquare(*implant, *view->arch)),
                  45.0); // it faced along the arch
        EXPECT_EQ(implant->getObjectTransform().column(3).toVector3D(), platform);
        EXPECT_EQ(implant->getLastManipulation(), TransformManipulationType::Rotation);
        // Outwards: to the patient's left on the left.
        const QVector3D facing = implant->getObjectTransform().mapVector({0, 1, 0});
        EXPECT_GT(facing.x() * (fdi[0] == '3' ? 1.0F : -1.0F), 0.9F);
        EXPECT_LT(std::abs(planner::turnSquare(*implant, *view->arch)), 0.1); // and there it stays
    }
}

// A bone plate 4 mm thick at y = 40 to 43, air elsewhere, voxels of 1 mm; the path runs along y =
// 36 in front of it.
TEST(Unroll, ShowsWhatLiesWithinTheDepthAndIsTransparentOutsideTheVolume)
{
    planner::Volume volume;
    volume.image = VexelImage3D({60, 60, 20}, {1, 1, 1}, image::Int16);
    auto* voxel = static_cast<std::int16_t*>(volume.image.dataPtr());
    for (int z = 0; z < 20; ++z) {
        for (int y = 0; y < 60; ++y) {
            for (int x = 0; x < 60; ++x)
                *voxel++ = static_cast<std::int16_t>(
                    x >= 20 && x < 40 && y >= 40 && y < 44 ? 1300 : -1000);
        }
    }
    PanoramicReslice reslice;
    QList<QVector3D> path;
    for (int x = -10; x <= 70; ++x)
        path.append({static_cast<float>(x), 36.0F, 10.0F});
    reslice.setPath(path);
    reslice.setGuidingLine(std::make_shared<GuidingLine>());
    reslice.setVerticalRange({-5.0F, 5.0F});
    reslice.setDimensions({80, 10});

    const planner::GreyScale scale(volume.image);
    const planner::Sampler sampler(volume);
    const QImage deep = planner::unroll(sampler, scale, reslice, 6.0F);
    EXPECT_EQ(deep.size(), QSize(80, 10));
    EXPECT_EQ(qAlpha(deep.pixel(5, 5)), 0);    // x = -4.5
    EXPECT_EQ(qAlpha(deep.pixel(12, 5)), 255); // x = 2.5
    EXPECT_EQ(qAlpha(deep.pixel(75, 5)), 0);   // x = 65.5
    EXPECT_GT(qRed(deep.pixel(40, 5)), 200);   // x = 30.5, in the bone
    EXPECT_EQ(qRed(deep.pixel(12, 5)), 0);
    const QImage shallow = planner::unroll(sampler, scale, reslice, 2.0F); // ends before the bone
    EXPECT_EQ(qRed(shallow.pixel(40, 5)), 0);
}

} // namespace
