// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <tests/bits/Fingerprints.h>

#include <CoreAlgorithms/greyvalue/BoneThresholdCalculator.h>
#include <CoreAlgorithms/greyvalue/CalculatePercentile.h>
#include <CoreAlgorithms/greyvalue/TissueEstimator.h>
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

#include <tests/bits/Checksum.h>
#include <tests/support/GreyValueBuilders.h>
#include <tests/support/ResliceBuilders.h>

#include <cstdint>

namespace bits {

namespace {

void addPair(Checksum& checksum, const utility::Optional<std::pair<int, int>>& pair)
{
    checksum.add(pair ? 1.0 : 0.0);
    checksum.add(pair.value().first);
    checksum.add(pair.value().second);
}

void addHistogram(Checksum& checksum, const TissueEstimationHistogram& histogram)
{
    for (const float bin : histogram.getBins())
        checksum.add(static_cast<double>(bin));
    addPair(checksum, histogram.findMaxima());
    checksum.add(histogram.getRangeOfPositiveBinCenters());
}

// Grey values in bands, so that there are peaks, with some spread.
std::shared_ptr<VexelImage3D> bands(test::RandomGeometry& random)
{
    const int air = static_cast<int>(random.number(-1300.0F, -700.0F));
    const int soft = static_cast<int>(random.number(-100.0F, 200.0F));
    const int bone = static_cast<int>(random.number(900.0F, 2000.0F));
    return test::makeImage<std::int16_t>(
        {40, 40, 40}, {1.5F, 1.5F, 1.5F}, image::Int16, [&](int, int y, int) {
            const int level = y < 14 ? air : y < 20 ? soft : y < 24 ? bone : soft + 200;
            return level + static_cast<int>(random.number(-70.0F, 70.0F));
        });
}

} // namespace

void fingerprintGreyvalue()
{
    Checksum histograms, regions, levels, windows, drags, percentiles;
    test::RandomGeometry random(1);

    for (int i = 0; i < 200; ++i) {
        std::vector<int> values;
        values.reserve(400);
        for (int n = 0; n < 400; ++n)
            values.push_back(
                static_cast<int>(random.number(-1200.0F, n % 3 == 0 ? 200.0F : 3000.0F)));
        TissueEstimationHistogram histogram(values, i % 2 == 0 ? 10 : 50);
        addHistogram(histograms, histogram);
        histogram.smooth();
        histogram.restrict();
        histogram.addLowBin();
        addHistogram(histograms, histogram);
    }

    for (int i = 0; i < 20; ++i) {
        CTData ct;
        test::setImage(ct, bands(random));
        const QMatrix4x4 worldFromVolume = i % 2 == 0 ? QMatrix4x4() : random.rigidPlacement();
        for (const float x : {15.0F, 30.0F, 45.0F})
            ct.addLandmarkAnnotation(
                test::makeLandmark(26, {x, random.number(28.0F, 32.0F), 30.0F}));
        TissueEstimator estimator(
            ct, {{ToothChart::Tooth(8), worldFromVolume.map(QVector3D(30.0F, 30.0F, 20.0F))}},
            worldFromVolume);
        const TissueEstimationHistogramCreator creator(ct, {}, worldFromVolume);
        for (const int region : {0, 1}) {
            const auto which = TissueEstimationHistogramCreator::EstimatedRegion(region);
            addHistogram(regions, *creator.createHistogram(which));
            regions.add(creator.getNumberOfVOIsFullyContainedInVolume(which));
        }
        levels.add(estimator.estimate() ? 1.0 : 0.0);
        const colormap::Tissues tissues = estimator.getEstimatedTissues().value();
        for (const int level : tissues.toVector())
            levels.add(level);
        const float from = random.number(-1500.0F, 0.0F);
        const auto range = TissueEstimator::calculateLevelWindow(
            tissues, {from, from + random.number(-10.0F, 3500.0F)});
        windows.add(static_cast<double>(range.min));
        windows.add(static_cast<double>(range.max));
    }

    for (int i = 0; i < 500; ++i) {
        VolumeObject volume;
        const float low = random.number(-2000.0F, 0.0F);
        const float span = random.number(0.0F, 4000.0F);
        volume.setImage(
            test::makeImage<float>({2, 1, 1}, {1.0F, 1.0F, 1.0F}, image::Float32,
                                   [=](int x, int, int) { return x == 0 ? low : low + span; }));
        const float level = random.number(-500.0F, 500.0F);
        volume.setMIPLevelWindow(level, random.number(0.0F, 3000.0F));
        colormap::PulpFunction pulp;
        pulp.setNormalizedPulpThreshold(random.number(0.0F, 1.0F));
        pulp.setNormalizedRestorationMaterialThreshold(random.number(0.0F, 1.0F));
        BoneThresholdCalculator calculator(volume);
        const QPointF from{double(random.number(0.0F, 900.0F)),
                           double(random.number(0.0F, 900.0F))};
        const QPointF to{double(random.number(0.0F, 900.0F)), double(random.number(0.0F, 900.0F))};
        const int slider = static_cast<int>(random.number(-3000.0F, 3000.0F));
        for (const auto& moved : {calculator.calculateMIPLevelWindowFunction(from, to),
                                  calculator.calculateMIPLevelWindowFunction(slider)}) {
            drags.add(static_cast<double>(moved.level));
            drags.add(static_cast<double>(moved.window));
        }
        for (const auto& moved : {calculator.calculatePulpFunction(pulp, from, to),
                                  calculator.calculatePulpFunction(pulp, slider)}) {
            drags.add(static_cast<double>(moved.pulpThreshold));
            drags.add(static_cast<double>(moved.restorationMaterialThreshold));
        }
    }

    for (int i = 0; i < 300; ++i) {
        QList<float> samples(1 + i * (i % 50 == 0 ? 20 : 1));
        for (float& sample : samples)
            sample = random.number(-1000.0F, 3000.0F);
        CalculatePercentile percentile;
        percentile.setData(&samples);
        for (int n = 0; n < 5; ++n) {
            percentile.setPercentile(random.number(0.0F, 100.0F));
            percentiles.add(percentile.execute() ? 1.0 : 0.0);
            percentiles.add(static_cast<double>(percentile.getResult()));
        }
    }

    histograms.print("histograms");
    regions.print("regions");
    levels.print("levels");
    windows.print("windows");
    drags.print("drags");
    percentiles.print("percentiles");
}

} // namespace bits
