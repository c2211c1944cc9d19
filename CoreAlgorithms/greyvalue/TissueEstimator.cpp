// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/TissueEstimator.h>

#include <CoreAlgorithms/greyvalue/TissueLevels_p.h>

#include <Eigen/SVD>

#include <cstddef>
#include <iterator>
#include <utility>

const math::Range<float> TissueEstimator::DEFAULT_MEDICAL_CT_LW = {-1000.0F, 2200.0F};
const colormap::Tissues TissueEstimator::DEFAULT_MEDICAL_CT_TISSUES = {
    -1000, -500, -50, 40, 500, 550, 1000, 1300, 1500, 1800, 2800};

namespace {

using Creator = TissueEstimationHistogramCreator;

// The fewest boxes inside the scan with which the histogram of a landmark region is trusted.
constexpr int kFewestBoxes = 2;

} // namespace

TissueEstimator::TissueEstimator(
    const CTData& scan, std::vector<std::pair<ToothChart::Tooth, QVector3D>> toothPositions,
    const QMatrix4x4& worldFromVolume)
    : histogramCreator(scan, std::move(toothPositions), worldFromVolume)
{}

TissueEstimator::~TissueEstimator() = default;

bool TissueEstimator::estimate()
{
    const auto face = histogramCreator.createHistogram(Creator::FirstLandmarkRegion)->findMaxima();
    const auto skull =
        histogramCreator.createHistogram(Creator::SecondLandmarkRegion)->findMaxima();
    // Intended: peaks out of order clear a held estimate, missing peaks keep it. Applications rely
    // on it: they estimate again after landmarks were removed without losing what they show.
    if (face && skull)
        estimatedTissues = greyvalue::tissuesFromLandmarks(face.value().first, skull.value());

    if (!useTeethFallback())
        return true;
    // Intended: the teeth replace an estimate from too few boxes; applications trust what is held.
    const auto teeth = histogramCreator.createHistogram(Creator::TeethRegion)->findMaxima();
    if (teeth)
        estimatedTissues = greyvalue::tissuesFromTeeth(teeth.value());
    return static_cast<bool>(estimatedTissues);
}

utility::Optional<colormap::Tissues> TissueEstimator::getEstimatedTissues()
{
    return estimatedTissues;
}

math::Range<float> TissueEstimator::calculateLevelWindow(const colormap::Tissues& tissues,
                                                         const math::Range<float>& range)
{
    const std::vector<int> defaults = DEFAULT_MEDICAL_CT_TISSUES.toVector();
    const std::vector<int> levels = tissues.toVector();
    std::vector<std::pair<double, double>> kept; // place in the range, level
    for (std::size_t i = 0; i < defaults.size() && i < levels.size(); ++i) {
        const float place = (static_cast<float>(defaults[i]) - range.min) / (range.max - range.min);
        if (0.0F < place && place < 1.0F)
            kept.emplace_back(place, levels[i]);
    }
    if (kept.empty())
        return {};

    Eigen::MatrixXd design(std::ssize(kept), 2);
    Eigen::VectorXd values(std::ssize(kept));
    Eigen::Index row = 0;
    for (const auto& [place, level] : kept) {
        design(row, 0) = 1.0 - place;
        design(row, 1) = place;
        values(row) = level;
        ++row;
    }
    const Eigen::JacobiSVD<Eigen::MatrixXd> decomposition(design, Eigen::ComputeThinU |
                                                                      Eigen::ComputeThinV);
    const Eigen::VectorXd ends = decomposition.solve(values);
    return {static_cast<float>(ends(0)), static_cast<float>(ends(1))};
}

bool TissueEstimator::useTeethFallback() const
{
    const auto hasTooFewBoxes = [this](Creator::EstimatedRegion region) {
        return histogramCreator.getNumberOfVOIsFullyContainedInVolume(region) < kFewestBoxes;
    };
    return !estimatedTissues || hasTooFewBoxes(Creator::FirstLandmarkRegion) ||
           hasTooFewBoxes(Creator::SecondLandmarkRegion);
}
