// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/TissueFindings.h>

#include <CoreAlgorithms/greyvalue/BoneThresholdModifier.h>
#include <CoreAlgorithms/greyvalue/TissueEstimationHistogramCreator.h>
#include <CoreAlgorithms/greyvalue/TissueEstimator.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace planner {

namespace {

using Window = math::Range<float>;

std::optional<colormap::Tissues> estimate(const GreyScan& scan)
{
    TissueEstimator estimator(*scan.ct, scan.teeth, scan.worldFromVolume);
    if (!estimator.estimate())
        return std::nullopt;
    return estimator.getEstimatedTissues().value();
}

} // namespace

TissueEstimates estimateTissues(const GreyScan& scan)
{
    TissueEstimates result;
    result.hasLandmarks = !scan.ct->getLandmarkAnnotations({}).empty();
    const std::shared_ptr<const ImageVolume> voxels = scan.ct->getImageVolume();
    const std::shared_ptr<const VexelImage3D> image(voxels, &voxels->getImage());
    if (result.hasLandmarks)
        result.fromLandmarks = estimate(scan);
    result.fromTeeth = estimate(scanWith(scan, image, false));
    return result;
}

Window windowFor(const std::optional<colormap::Tissues>& tissues)
{
    if (!tissues)
        return TissueEstimator::DEFAULT_MEDICAL_CT_LW;
    return TissueEstimator::calculateLevelWindow(*tissues, TissueEstimator::DEFAULT_MEDICAL_CT_LW);
}

std::optional<OtherEstimate> estimateForOtherScanner(const GreyScan& scan, bool withLandmarks)
{
    const std::shared_ptr<const VexelImage3D> other =
        miscalibrated(scan.ct->getImageVolume()->getImage(), kOtherGain, kOtherOffset);
    if (!other)
        return std::nullopt;
    return OtherEstimate{estimate(scanWith(scan, other, withLandmarks))};
}

float heightOfTeeth(const GreyScan& scan, const Volume& volume, ToothChart::ArchType arch)
{
    GreyScan teethOfArch = scan;
    std::erase_if(teethOfArch.teeth, [arch](const auto& tooth) {
        return ToothChart::getArchTypeOfTooth(tooth.first) != arch;
    });
    QList<primitives::BoundingBox> boxes =
        boxesOf(teethOfArch, TissueEstimationHistogramCreator::TeethRegion);
    if (boxes.isEmpty())
        boxes = boxesOf(scan, TissueEstimationHistogramCreator::TeethRegion);
    if (boxes.isEmpty())
        return volume.worldFromVoxel.map(volume.counts() / 2.0F).z();
    const auto countAt = [&boxes](const primitives::BoundingBox& box) {
        return std::ranges::count_if(boxes, [z = box.centerZ()](const auto& other) {
            return z >= other.min().z() && z <= other.max().z();
        });
    };
    return std::ranges::max_element(boxes, {}, countAt)->centerZ();
}

ColormapDisplay::ColormapDisplay(const GreyScan& scan,
                                 const std::optional<colormap::Tissues>& estimated)
    : window(windowFor(estimated))
{
    const colormap::Tissues tissues =
        estimated.value_or(TissueEstimator::DEFAULT_MEDICAL_CT_TISSUES);
    volume.setCTData(scan.ct);
    range = volume.getImage().getValueRange();
    volume.setMIPLevelWindow((window.min + window.max) / 2.0F, window.max - window.min);
    volume.setThreshold(thresholdFunction->getUUID(), tissues.cancellousBone);
    if (pulpAndRestoration()) {
        const auto normalized = [this](int grey) {
            return (static_cast<float>(grey) - range.min) / (range.max - range.min);
        };
        pulp->setNormalizedPulpThreshold(normalized(tissues.softTissue - 200));
        pulp->setNormalizedRestorationMaterialThreshold(normalized(tissues.enamel));
    }
    transfer->setControlPoints({{static_cast<float>(tissues.skin), QColor(0x08, 0x0a, 0x10)},
                                {static_cast<float>(tissues.softTissue), QColor(0x8c, 0x3b, 0x2e)},
                                {static_cast<float>(tissues.bone), QColor(0xe8, 0xd2, 0xa0)},
                                {static_cast<float>(tissues.enamel), QColor(0xff, 0xff, 0xff)}});
}

void ColormapDisplay::drag(ColormapKind kind, const QPointF& pixels)
{
    const std::array<std::shared_ptr<colormap::ColormapFunction>, 4> functions = {
        std::make_shared<colormap::LevelWindowFunction>(), thresholdFunction, pulp, transfer};
    volume.setActiveVisualizationFunction(functions[static_cast<int>(kind)]);
    BoneThresholdModifier(volume).update({0.0, 0.0}, pixels);
}

QString ColormapDisplay::parameters(ColormapKind kind) const
{
    switch (kind) {
    case ColormapKind::LevelWindow:
        return QStringLiteral("level %1, window %2")
            .arg(std::round(volume.getMIPLevel()))
            .arg(std::round(volume.getMIPWindow()));
    case ColormapKind::Threshold:
        return QStringLiteral("threshold %1").arg(threshold());
    case ColormapKind::Pulp:
        if (const auto greys = pulpAndRestoration())
            return QStringLiteral("pulp %1, restoration %2")
                .arg(std::round(greys->min))
                .arg(std::round(greys->max));
        return QStringLiteral("no range of grey values");
    case ColormapKind::Transfer:
        break;
    }
    const auto points = transfer->getControlPoints();
    return QStringLiteral("from %1 to %2")
        .arg(std::round(points.first().greyValue))
        .arg(std::round(points.last().greyValue));
}

int ColormapDisplay::threshold() const
{
    return volume.getThreshold(thresholdFunction->getUUID());
}

std::optional<Window> ColormapDisplay::pulpAndRestoration() const
{
    if (!(range.max > range.min && std::isfinite(range.max - range.min)))
        return std::nullopt;
    const auto greyOf = [this](float normalized) {
        return range.min + normalized * (range.max - range.min);
    };
    return Window{greyOf(pulp->getNormalizedPulpThreshold()),
                  greyOf(pulp->getNormalizedRestorationMaterialThreshold())};
}

} // namespace planner
