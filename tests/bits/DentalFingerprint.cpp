// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <tests/bits/Fingerprints.h>

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/dental/NerveGuidingSplineCalculator.h>
#include <CoreAlgorithms/dental/OcclusalPropertiesCalculator.h>
#include <CoreAlgorithms/dental/PlanarDentalSplineUpdater.h>
#include <CoreAlgorithms/dental/ToothAnnotations3DGenerator.h>
#include <CoreAlgorithms/dental/ToothLocator.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>

#include <tests/bits/Checksum.h>
#include <tests/support/DentalBuilders.h>
#include <tests/support/ResliceBuilders.h>

namespace bits {

namespace {

// An arch through a tooth in three, samples every half mm.
std::shared_ptr<PlanarDentalSpline> randomArch(test::RandomGeometry& random)
{
    std::vector<QVector3D> points;
    QMap<ToothChart::Tooth, QVector3D> teeth;
    for (int tooth = 2; tooth <= 15; ++tooth) {
        const float along = static_cast<float>(tooth) - 8.5F;
        const float sideways = random.number(-1.0F, 1.0F);
        const float height = random.number(29.0F, 31.0F);
        points.emplace_back(along * 4.0F + sideways, along * along - sideways, height);
        if (tooth % 3 == 0)
            teeth.insert(ToothChart::Tooth(tooth), points.back());
    }
    auto spline = std::make_shared<PlanarDentalSpline>();
    spline->setSampleDistance(0.5F);
    PlanarDentalSplineUpdater::update(
        *spline, points, teeth, static_cast<int>(random.number(0.0F, 200.0F)),
        ToothChart::UpperArch, std::make_unique<math::CatmullRomSpline3D>(), AutomaticallyCreated);
    return spline;
}

} // namespace

void fingerprintDental()
{
    Checksum index, teeth, updated, locator, occlusal, labels, nerve;
    test::RandomGeometry random(1);
    const auto mouth =
        test::makeMouth({2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 20, 25, 30});
    for (int i = 0; i < 300; ++i) {
        const auto spline = randomArch(random);
        const float voxelHeight = random.number(0.1F, 2.0F);
        const auto scan = test::makeScan(voxelHeight, random.number(1.0F, 300.0F));
        scan->setOcclusalPlaneDefinition(static_cast<CTData::OcclusalPlaneDefinition>(i % 2));
        for (int n = 0; n < 20; ++n) {
            const QVector3D point = random.point(n == 0 ? 3e38F : 60.0F);
            index.add(
                static_cast<double>(ComputeIndexOnGuidingLine::getIndexOf(point, spline.get())));
            const auto [first, second] = ToothLocator::getNearestToothIds(spline.get(), point);
            locator.add(static_cast<double>(first));
            locator.add(static_cast<double>(second));
            occlusal.add(
                static_cast<double>(occlusalPropertiesCalculator::getOcclusalIndex(*scan, point)));
        }
        for (int tooth = 0; tooth <= 33; ++tooth)
            teeth.add(ComputeIndexOnGuidingLine::getToothPosition(ToothChart::Tooth(tooth),
                                                                  spline.get(), i % 3 == 0));
        PlanarDentalSplineUpdater::transform(*spline, random.rigidPlacement(), i);
        for (const QVector3D& position : PlanarDentalSplineUpdater::getTeethPositions(*spline))
            updated.add(position);
        test::setScan(*spline, scan);
        locator.add(static_cast<double>(
            ToothLocator::getToothHeight(spline.get(), i % 2 == 0 ? LowerJaw : UpperJaw)));
        const QList<PlanarDentalSpline*> splines{spline.get()};
        for (const auto& label : ToothAnnotations3DGenerator::generate(
                 splines, {ToothChart::Tooth(3), ToothChart::Tooth(25)}, mouth.get())) {
            labels.add(label->getPosition());
            labels.add(label->getDirection());
        }

        NerveGuidingSplineCalculatorSettings settings;
        settings.mental_foramen = random.point(60.0F);
        settings.mandibular_foramen = random.point(60.0F);
        settings.middle_point_distance = random.number(-10.0F, 10.0F);
        settings.start_point_distance = random.number(-10.0F, 10.0F);
        settings.start_point_angle = random.number(0.0F, 90.0F);
        settings.end_point_distance = random.number(-10.0F, 10.0F);
        settings.end_point_angle = random.number(0.0F, 90.0F);
        settings.side = i % 2;
        NerveGuidingSplineCalculator calculator(settings);
        GuidingSpline guidingSpline;
        calculator.fillSpline(&guidingSpline);
        for (const QVector3D& point : calculator.getPoints())
            nerve.add(point);
    }
    index.print("index");
    teeth.print("teeth");
    updated.print("updated");
    locator.print("locator");
    occlusal.print("occlusal");
    labels.print("labels");
    nerve.print("nerve");
}

} // namespace bits
