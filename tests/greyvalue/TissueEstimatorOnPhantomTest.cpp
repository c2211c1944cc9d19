// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/TissueEstimator.h>

// Covered: the estimate compared with the truth, on the phantom as miscalibrated scanners show it.

#include <phantom/Phantom.h>

#include <tests/support/GreyValueAccess.h>
#include <tests/support/GreyValueBuilders.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

namespace {

using phantom::Patient;
using phantom::Settings;
using phantom::Tissue;
using Creator = TissueEstimationHistogramCreator;

constexpr float kVoxelSizeMm = 0.8F;
constexpr float kGains[] = {0.6F, 0.8F, 1.0F, 1.2F, 1.5F};
constexpr float kOffsets[] = {-300.0F, -211.0F, -150.0F, -77.0F, 0.0F, 13.0F, 150.0F, 300.0F};
constexpr float kNoiseLevels[] = {25.0F, 40.0F, 60.0F};

Settings scanner(float gain, float offset, float noiseSigma)
{
    Settings settings;
    settings.voxelSizeMm = kVoxelSizeMm;
    settings.gain = gain;
    settings.offset = offset;
    settings.noiseSigma = noiseSigma;
    return settings;
}

// The tissue of every voxel, once: painting the anatomy again for each scanner would take minutes.
const VexelImage3D& tissueNumbers()
{
    static const VexelImage3D numbers = [] {
        Settings settings = scanner(1.0F, 0.0F, 0.0F);
        for (int tissue = 0; tissue < phantom::kTissueCount; ++tissue)
            settings.greyValues[tissue] = static_cast<float>(tissue);
        return Patient(settings).createVolume();
    }();
    return numbers;
}

// Nearly normal, of unit deviation: the sum of twelve even numbers, from the bits of a counter.
float unitNoise(std::uint64_t counter)
{
    float sum = -6.0F;
    for (int i = 0; i < 3; ++i) {
        counter += 0x9e3779b97f4a7c15U;
        std::uint64_t bits = counter;
        bits = (bits ^ (bits >> 30U)) * 0xbf58476d1ce4e5b9U;
        bits = (bits ^ (bits >> 27U)) * 0x94d049bb133111ebU;
        bits ^= bits >> 31U;
        for (int part = 0; part < 4; ++part, bits >>= 16U)
            sum += static_cast<float>(bits & 0xffffU) * 0x1p-16F;
    }
    return sum;
}

const std::vector<float>& noiseTable()
{
    static const std::vector<float> table = [] {
        std::vector<float> values(1U << 20U);
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = unitNoise(3 * i);
        return values;
    }();
    return table;
}

std::shared_ptr<VexelImage3D> paint(const Patient& patient)
{
    const VexelImage3D& numbers = tissueNumbers();
    auto image =
        std::make_shared<VexelImage3D>(numbers.imageSize(), numbers.voxelSize(), image::Int16);
    std::array<float, phantom::kTissueCount> grey{};
    for (int tissue = 0; tissue < phantom::kTissueCount; ++tissue)
        grey[tissue] = patient.paintedGreyValue(Tissue(tissue));
    const auto* number = static_cast<const std::int16_t*>(numbers.dataPtr());
    auto* voxel = static_cast<std::int16_t*>(image->dataPtr());
    const float sigma = patient.settings().noiseSigma;
    for (std::size_t i = 0; i < numbers.voxelCount(); ++i) {
        const float noise =
            sigma > 0.0F ? sigma * noiseTable()[(i * 2654435761U >> 8U) % noiseTable().size()]
                         : 0.0F;
        voxel[i] = static_cast<std::int16_t>(std::round(grey[number[i]] + noise));
    }
    return image;
}

std::vector<std::pair<ToothChart::Tooth, QVector3D>> occlusalPoints(const Patient& patient)
{
    std::vector<std::pair<ToothChart::Tooth, QVector3D>> teeth;
    for (const phantom::Tooth& tooth : patient.teeth())
        teeth.emplace_back(tooth.number, tooth.occlusalPoint);
    return teeth;
}

struct ScannedPatient
{
    explicit ScannedPatient(const Settings& settings, bool withLandmarks,
                            const std::shared_ptr<VexelImage3D>& image = nullptr)
        : patient(settings)
    {
        test::setImage(ct, image ? image : paint(patient));
        if (withLandmarks) {
            for (const phantom::SkullLandmark& landmark : patient.skullLandmarks())
                ct.addLandmarkAnnotation(test::makeLandmark(landmark.type, landmark.position));
        }
    }

    int binWidth(Creator::EstimatedRegion region) const
    {
        const Creator creator(ct, occlusalPoints(patient), {});
        return creator.createHistogram(region)->getBinWidth();
    }

    Patient patient;
    CTData ct;
};

void expectNear(int level, float truth, int binWidth, const char* name)
{
    EXPECT_NEAR(static_cast<float>(level), truth, static_cast<float>(binWidth)) << name;
}

// T0 is air, T3 soft tissue, and T9 cortical bone, the densest tissue on the surface of the
// phantom's skull.
void expectTruthFromLandmarks(const ScannedPatient& scanned)
{
    TissueEstimator estimator(scanned.ct, occlusalPoints(scanned.patient), {});
    ASSERT_TRUE(estimator.estimate());
    EXPECT_FALSE(TissueEstimatorTestAccess::useTeethFallback(estimator));
    const colormap::Tissues tissues = estimator.getEstimatedTissues().value();
    expectNear(tissues.air, scanned.patient.paintedGreyValue(Tissue::Air),
               scanned.binWidth(Creator::FirstLandmarkRegion), "T0");
    const int width = scanned.binWidth(Creator::SecondLandmarkRegion);
    expectNear(tissues.softTissue, scanned.patient.paintedGreyValue(Tissue::SoftTissue), width,
               "T3");
    expectNear(tissues.denseBone, scanned.patient.paintedGreyValue(Tissue::CorticalBone), width,
               "T9");
}

void expectTruthFromTeeth(const ScannedPatient& scanned)
{
    TissueEstimator estimator(scanned.ct, occlusalPoints(scanned.patient), {});
    ASSERT_TRUE(estimator.estimate());
    EXPECT_TRUE(TissueEstimatorTestAccess::useTeethFallback(estimator));
    const colormap::Tissues tissues = estimator.getEstimatedTissues().value();
    const int width = scanned.binWidth(Creator::TeethRegion);
    expectNear(tissues.softTissue, scanned.patient.paintedGreyValue(Tissue::SoftTissue), width,
               "T3");
    expectNear(tissues.dentine, scanned.patient.paintedGreyValue(Tissue::Dentine), width, "T7");
}

QString describe(const Settings& settings)
{
    return QStringLiteral("gain %1, offset %2, noise %3")
        .arg(settings.gain)
        .arg(settings.offset)
        .arg(settings.noiseSigma);
}

TEST(TissueEstimatorOnPhantom, IsWithinOneBinOfTheTruthForEveryScanner)
{
    for (const float gain : kGains) {
        for (const float offset : kOffsets) {
            for (const float noise : kNoiseLevels) {
                const Settings settings = scanner(gain, offset, noise);
                SCOPED_TRACE(describe(settings).toStdString());
                const auto image = paint(Patient(settings));
                expectTruthFromLandmarks(ScannedPatient(settings, true, image));
                expectTruthFromTeeth(ScannedPatient(settings, false, image));
            }
        }
    }
}

TEST(TissueEstimatorOnPhantom, IsWithinOneBinOfTheTruthInThePhantomsOwnVolumes)
{
    for (const Settings& settings : {scanner(0.6F, -300.0F, 25.0F), scanner(1.0F, 0.0F, 40.0F),
                                     scanner(1.5F, 300.0F, 60.0F)}) {
        SCOPED_TRACE(describe(settings).toStdString());
        const auto image = std::make_shared<VexelImage3D>(Patient(settings).createVolume());
        expectTruthFromLandmarks(ScannedPatient(settings, true, image));
        expectTruthFromTeeth(ScannedPatient(settings, false, image));
    }
}

TEST(TissueEstimatorOnPhantom, TestPaintsTheVolumesOfThePhantom)
{
    const Patient patient(scanner(1.2F, -77.0F, 0.0F));
    const VexelImage3D original = patient.createVolume();
    const auto painted = paint(patient);
    ASSERT_EQ(painted->imageSize(), original.imageSize());
    const auto* a = static_cast<const std::int16_t*>(original.dataPtr());
    const auto* b = static_cast<const std::int16_t*>(painted->dataPtr());
    EXPECT_TRUE(std::equal(a, a + original.voxelCount(), b));
}

// All voxels of a tissue fall into one bin if there is no noise. No peak can be found in the first
// bin.
TEST(TissueEstimatorOnPhantom, MissesTheLowestTissueInTheFirstBinWithoutNoise)
{
    const ScannedPatient scanned(scanner(1.0F, 0.0F, 0.0F), false);
    const Creator creator(scanned.ct, occlusalPoints(scanned.patient), {});
    const auto histogram = creator.createHistogram(Creator::TeethRegion);
    EXPECT_EQ(TissueEstimationHistogramTestAccess::indexOf(*histogram, 40), 0);
    TissueEstimator estimator(scanned.ct, occlusalPoints(scanned.patient), {});
    ASSERT_TRUE(estimator.estimate());
    EXPECT_GT(estimator.getEstimatedTissues().value().softTissue, 300)
        << "the cancellous bone instead";
}

TEST(TissueEstimatorOnPhantom, WindowFollowsTheScannerWhereTissuesLieAtTheirDefaultLevels)
{
    for (const Settings& miscalibrated : {scanner(1.0F, 0.0F, 40.0F), scanner(0.6F, -300.0F, 40.0F),
                                          scanner(1.5F, 300.0F, 40.0F)}) {
        Settings settings = miscalibrated;
        SCOPED_TRACE(describe(settings).toStdString());
        settings.greyValues = {-1000.0F, 40.0F, 550.0F, 1800.0F, 1300.0F, 2800.0F, 60.0F, 20.0F};
        const ScannedPatient scanned(settings, true);
        TissueEstimator estimator(scanned.ct, occlusalPoints(scanned.patient), {});
        ASSERT_TRUE(estimator.estimate());
        const math::Range<float> window = TissueEstimator::calculateLevelWindow(
            estimator.getEstimatedTissues().value(), TissueEstimator::DEFAULT_MEDICAL_CT_LW);
        // The peaks are off by half a bin of 50 at most, the ends of the window by little more.
        EXPECT_NEAR(window.min, settings.gain * -1000.0F + settings.offset, 50.0F);
        EXPECT_NEAR(window.max, settings.gain * 2200.0F + settings.offset, 50.0F);
    }
}

} // namespace
