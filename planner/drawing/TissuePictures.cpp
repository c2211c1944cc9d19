// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/TissuePictures.h>

#include <CoreAlgorithms/greyvalue/TissueEstimator.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace planner {

namespace {

using Creator = TissueEstimationHistogramCreator;
using Window = math::Range<float>;

constexpr float kAroundTeethMm = 14.0F;

// Colors of the three regions: in front of the face, on the surface of the skull, at the teeth.
const std::array<QColor, 3> kRegionColors = {QColor(0x3d, 0xb8, 0xff), QColor(0xff, 0x9d, 0x2e),
                                             QColor(0x62, 0xd0, 0x72)};

QColor mixed(const QColor& a, const QColor& b, double part)
{
    const auto channel = [part](int from, int to) {
        return static_cast<int>(from + part * (to - from));
    };
    return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

QColor greyColor(float grey, const Window& window)
{
    const float place = (grey - window.min) / (window.max - window.min);
    const int brightness = static_cast<int>(std::clamp(place, 0.0F, 1.0F) * 255.0F);
    return {brightness, brightness, brightness};
}

QColor colorOf(const QList<colormap::TransferFunction::ControlPoint>& points, float grey)
{
    if (grey <= points.first().greyValue)
        return points.first().color;
    for (qsizetype i = 1; i < points.size(); ++i) {
        if (grey < points[i].greyValue) {
            const float part =
                (grey - points[i - 1].greyValue) / (points[i].greyValue - points[i - 1].greyValue);
            return mixed(points[i - 1].color, points[i].color, part);
        }
    }
    return points.last().color;
}

QImage paintPulp(const ColormapDisplay& display, const GreyCut& cut)
{
    const auto limits = display.pulpAndRestoration();
    if (!limits)
        return shade(cut, display.window);
    return color(cut, [&](float grey) {
        const QColor plain = greyColor(grey, display.window);
        if (grey >= limits->max)
            return mixed(plain, QColor(0xff, 0x4f, 0x8b), 0.6);
        return grey <= limits->min ? mixed(plain, QColor(0x1f, 0x6f, 0xd0), 0.45) : plain;
    });
}

} // namespace

QImage paintRegions(const GreyScan& scan, const Volume& volume, const Sampler& sampler,
                    const GreyCut& roots, const Window& window, bool hasLandmarks)
{
    QList<ColoredBoxes> boxes;
    for (int region = 0; region < 3; ++region)
        boxes.append({boxesOf(scan, region), kRegionColors[region]});
    QList<Tile> tiles;
    const auto add = [&](const QString& caption, const GreyCut& cut) {
        tiles.append({caption.arg(cut.at, 0, 'f', 1), drawBoxes(cut, shade(cut, window), boxes)});
    };
    const QString axial = QStringLiteral("Axial, z = %1 mm");
    if (hasLandmarks) {
        // The first landmark lies on the midline, the gonia to either side of it.
        const QList<primitives::BoundingBox> skull = boxesOf(scan, Creator::SecondLandmarkRegion);
        const float midline = skull.first().center().x();
        add(QStringLiteral("Sagittal, x = %1 mm"),
            cutAcross(volume, sampler, 0, midline, kCutSpacingMm));
        const auto aside = std::ranges::find_if(skull, [midline](const auto& box) {
            return box.min().x() > midline || box.max().x() < midline;
        });
        if (aside != skull.cend())
            add(axial, cutAcross(volume, sampler, 2, aside->centerZ(), kCutSpacingMm));
    }
    add(axial, roots);
    return montage(tiles, static_cast<int>(tiles.size()), kTileWidth);
}

QImage paintHistogram(const TissueEstimationHistogram& histogram, Creator::EstimatedRegion region,
                      const QString& lowerPeak, const QString& higherPeak)
{
    QList<Peak> peaks;
    if (const auto maxima = histogram.findMaxima())
        peaks = {{maxima.value().first, lowerPeak}, {maxima.value().second, higherPeak}};
    return plot(histogram, peaks, kRegionColors[region]);
}

QImage paintWindows(const GreyCut& cut, const std::optional<colormap::Tissues>& tissues,
                    const std::optional<OtherEstimate>& other)
{
    const Window fixed = TissueEstimator::DEFAULT_MEDICAL_CT_LW;
    const Window estimated = windowFor(tissues);
    QList<Tile> tiles = {
        {QStringLiteral("As scanned, default window %1").arg(rangeText(fixed)), shade(cut, fixed)},
        {QStringLiteral("As scanned, estimated %1").arg(rangeText(estimated)),
         shade(cut, estimated)}};
    if (other) {
        GreyCut otherCut = cut;
        for (float& grey : otherCut.values)
            grey = kOtherGain * grey + kOtherOffset;
        const Window otherEstimated = windowFor(other->tissues);
        const QString scanner =
            QStringLiteral("Gain %1, offset %2: ").arg(kOtherGain).arg(kOtherOffset);
        tiles.append({scanner + QStringLiteral("default"), shade(otherCut, fixed)});
        tiles.append({other->tissues
                          ? scanner + QStringLiteral("estimated %1").arg(rangeText(otherEstimated))
                          : QStringLiteral("no estimate: the default again"),
                      shade(otherCut, otherEstimated)});
    }
    return montage(tiles, 2, kTileWidth);
}

QImage paintColormap(const ColormapDisplay& display, ColormapKind kind, const TissueCuts& cuts)
{
    switch (kind) {
    case ColormapKind::LevelWindow: {
        const float level = display.volume.getMIPLevel();
        const float half = display.volume.getMIPWindow() / 2.0F;
        return shade(cuts.projection, {level - half, level + half});
    }
    case ColormapKind::Threshold:
        return color(cuts.roots,
                     [&display, from = static_cast<float>(display.threshold())](float grey) {
                         const QColor plain = greyColor(grey, display.window);
                         return grey >= from ? mixed(plain, QColor(0xff, 0x9d, 0x2e), 0.65) : plain;
                     });
    case ColormapKind::Pulp:
        return paintPulp(display, cuts.crowns);
    case ColormapKind::Transfer:
        break;
    }
    return color(cuts.roots, [points = display.transfer->getControlPoints()](float grey) {
        return colorOf(points, grey);
    });
}

GreyCut aroundTeeth(const GreyCut& cut, const GreyScan& scan)
{
    primitives::BoundingBox all;
    for (const primitives::BoundingBox& box : boxesOf(scan, Creator::TeethRegion))
        all = primitives::BoundingBox::createUnionOf(all, box);
    if (all.isNull())
        return cut;
    const QVector3D margin(kAroundTeethMm, kAroundTeethMm, 0.0F);
    return cropped(cut, {all.min() - margin, all.max() + margin});
}

QString rangeText(const Window& window)
{
    return QStringLiteral("%1 to %2").arg(std::round(window.min)).arg(std::round(window.max));
}

} // namespace planner
