// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/GreyValuesSection.h>

#include <planner/drawing/GreyPictures.h>
#include <planner/drawing/GreyScale.h>
#include <planner/drawing/Sampling.h>
#include <planner/input/Progress.h>
#include <planner/planning/GreyRegions.h>

#include <CoreAlgorithms/greyvalue/BoneThresholdModifier.h>
#include <CoreAlgorithms/greyvalue/TissueEstimator.h>
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>
#include <CoreAlgorithms/model/dataobjects/VolumeObject.h>

#include <phantom/Phantom.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace planner {

namespace {

using Creator = TissueEstimationHistogramCreator;
using Window = math::Range<float>;

constexpr float kSpacingMm = 0.4F;
constexpr float kProjectionSpacingMm = 1.0F;
constexpr int kTileWidth = 460;
// What a badly calibrated scanner would make of the voxels.
constexpr float kOtherGain = 0.6F;
constexpr float kOtherOffset = 300.0F;

// Of the three regions: in front of the face, on the surface of the skull, at the teeth.
const std::array<QColor, 3> kRegionColours = {QColor(0x3d, 0xb8, 0xff), QColor(0xff, 0x9d, 0x2e),
                                              QColor(0x62, 0xd0, 0x72)};

struct Estimate
{
    bool hasLandmarks = false;
    std::optional<colormap::Tissues> fromLandmarks;
    std::optional<colormap::Tissues> fromTeeth;

    // What the application would use: the teeth are the fallback.
    const std::optional<colormap::Tissues>& best() const
    {
        return hasLandmarks ? fromLandmarks : fromTeeth;
    }
};

std::optional<colormap::Tissues> estimate(const GreyScan& scan)
{
    TissueEstimator estimator(*scan.ct, scan.teeth, scan.worldFromVolume);
    if (!estimator.estimate())
        return std::nullopt;
    return estimator.getEstimatedTissues().value();
}

Estimate estimateBothWays(const GreyScan& scan)
{
    Estimate result;
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

QString rangeText(const Window& window)
{
    return QStringLiteral("%1 to %2")
        .arg(std::round(static_cast<double>(window.min)))
        .arg(std::round(static_cast<double>(window.max)));
}

// Tables: rows of cells, the first the headings.
QString htmlTable(const QList<QStringList>& rows)
{
    QString html = QStringLiteral("<div class=\"scroll\"><table>\n");
    for (qsizetype row = 0; row < rows.size(); ++row) {
        html += QStringLiteral("<tr>");
        for (const QString& cell : rows[row])
            html +=
                QStringLiteral("<%1>%2</%1>").arg(row == 0 ? u"th" : u"td", cell.toHtmlEscaped());
        html += QStringLiteral("</tr>\n");
    }
    return html + QStringLiteral("</table></div>\n");
}

QString textTable(const QList<QStringList>& rows)
{
    QList<qsizetype> widths(rows.first().size(), 0);
    for (const QStringList& row : rows) {
        for (qsizetype i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    QString text;
    for (const QStringList& row : rows) {
        for (qsizetype i = 0; i < row.size(); ++i)
            text += (i < 2 ? row[i].leftJustified(widths[i]) : row[i].rightJustified(widths[i])) +
                    (i + 1 < row.size() ? QStringLiteral("  ") : QStringLiteral("\n"));
    }
    return text;
}

QString cell(const std::optional<colormap::Tissues>& tissues, std::size_t level)
{
    return tissues ? QString::number(tissues->toVector()[level]) : QStringLiteral("-");
}

// The tissue of the built-in patient whose painted grey value a level is the estimate of.
QString truth(const phantom::Patient& patient, std::size_t level)
{
    const auto painted = [&patient](const char* name, phantom::Tissue tissue) {
        return QStringLiteral("%1 %2")
            .arg(QLatin1String(name))
            .arg(patient.paintedGreyValue(tissue));
    };
    switch (level) {
    case 0:
        return painted("air", phantom::Tissue::Air);
    case 3:
        return painted("soft tissue", phantom::Tissue::SoftTissue);
    case 7:
        return painted("dentine, for the teeth", phantom::Tissue::Dentine);
    case 9:
        return painted("cortical bone, for the landmarks", phantom::Tissue::CorticalBone);
    default:
        return {};
    }
}

QList<QStringList> levelRows(const Estimate& estimate, const phantom::Patient* patient)
{
    static const char* const names[] = {
        "air",  "skin",    "fat",           "soft tissue", "cancellous bone", "bone surface",
        "bone", "dentine", "cortical bone", "dense bone",  "enamel"};
    QList<QStringList> rows = {
        {QStringLiteral("level"), QStringLiteral("tissue"), QStringLiteral("default")}};
    if (estimate.hasLandmarks)
        rows.first().append(QStringLiteral("from landmarks"));
    rows.first().append(QStringLiteral("from teeth"));
    if (patient)
        rows.first().append(QStringLiteral("painted"));
    const std::vector<int> defaults = TissueEstimator::DEFAULT_MEDICAL_CT_TISSUES.toVector();
    for (std::size_t level = 0; level < defaults.size(); ++level) {
        QStringList row = {QStringLiteral("T%1").arg(level), QLatin1String(names[level]),
                           QString::number(defaults[level])};
        if (estimate.hasLandmarks)
            row.append(cell(estimate.fromLandmarks, level));
        row.append(cell(estimate.fromTeeth, level));
        if (patient)
            row.append(truth(*patient, level));
        rows.append(row);
    }
    QStringList window = {
        QStringLiteral("window"), {}, rangeText(TissueEstimator::DEFAULT_MEDICAL_CT_LW)};
    if (estimate.hasLandmarks)
        window.append(rangeText(windowFor(estimate.fromLandmarks)));
    window.append(estimate.fromTeeth ? rangeText(windowFor(estimate.fromTeeth))
                                     : QStringLiteral("-"));
    if (patient)
        window.append(QString());
    rows.append(window);
    return rows;
}

// The height at which most boxes of the teeth of an arch are cut, or, if it has no teeth, of all
// teeth; without any, the middle of the volume.
float heightOfTeeth(const GreyScan& scan, const Volume& volume, ToothChart::ArchType arch)
{
    GreyScan teethOfArch = scan;
    std::erase_if(teethOfArch.teeth, [arch](const auto& tooth) {
        return ToothChart::getArchTypeOfTooth(tooth.first) != arch;
    });
    QList<primitives::BoundingBox> boxes = boxesOf(teethOfArch, Creator::TeethRegion);
    if (boxes.isEmpty())
        boxes = boxesOf(scan, Creator::TeethRegion);
    if (boxes.isEmpty()) {
        const math::Ivec3 size = volume.image.imageSize();
        const QVector3D counts(static_cast<float>(size.x), static_cast<float>(size.y),
                               static_cast<float>(size.z));
        return volume.worldFromVoxel.map(counts / 2.0F).z();
    }
    const auto countAt = [&boxes](float z) {
        return std::count_if(boxes.cbegin(), boxes.cend(), [z](const primitives::BoundingBox& box) {
            return z >= box.min().z() && z <= box.max().z();
        });
    };
    return std::max_element(
               boxes.cbegin(), boxes.cend(),
               [&countAt](const primitives::BoundingBox& x, const primitives::BoundingBox& y) {
                   return countAt(x.centerZ()) < countAt(y.centerZ());
               })
        ->centerZ();
}

QList<ColouredBoxes> colouredBoxes(const GreyScan& scan)
{
    QList<ColouredBoxes> all;
    for (int region = 0; region < 3; ++region)
        all.append({boxesOf(scan, region), kRegionColours[static_cast<std::size_t>(region)]});
    return all;
}

SectionPicture regionsPicture(const GreyScan& scan, const GreyCut& teethCut, const Volume& volume,
                              const Sampler& sampler, const Window& window, bool hasLandmarks)
{
    const QList<ColouredBoxes> boxes = colouredBoxes(scan);
    QList<Tile> tiles;
    if (hasLandmarks) {
        // The first landmark lies on the midline, the gonia to either side of it.
        const QList<primitives::BoundingBox> skull = boxesOf(scan, Creator::SecondLandmarkRegion);
        const float midline = skull.first().center().x();
        const GreyCut sagittal = cutAcross(volume, sampler, 0, midline, kSpacingMm);
        tiles.append({QStringLiteral("Sagittal, x = %1 mm").arg(midline, 0, 'f', 1),
                      drawBoxes(sagittal, shade(sagittal, window), boxes)});
        const auto aside = std::find_if(skull.cbegin(), skull.cend(), [midline](const auto& box) {
            return box.min().x() > midline || box.max().x() < midline;
        });
        if (aside != skull.cend()) {
            const GreyCut axial = cutAcross(volume, sampler, 2, aside->centerZ(), kSpacingMm);
            tiles.append({QStringLiteral("Axial, z = %1 mm").arg(axial.at, 0, 'f', 1),
                          drawBoxes(axial, shade(axial, window), boxes)});
        }
    }
    tiles.append({QStringLiteral("Axial, z = %1 mm").arg(teethCut.at, 0, 'f', 1),
                  drawBoxes(teethCut, shade(teethCut, window), boxes)});
    const QString caption =
        hasLandmarks ? QStringLiteral("<p>In front of the face, blue: air and soft tissue, which "
                                      "give T0. On the surface of the "
                                      "skull, orange: soft tissue and dense bone, T3 and T9. At "
                                      "the teeth, green: T3 and T7.</p>")
                     : QStringLiteral("<p>At the teeth, green: soft tissue and dentine, T3 and T7. "
                                      "The other two regions need "
                                      "landmarks of the skull, which this CT comes without.</p>");
    const QString sides =
        QStringLiteral("<p>Axial: anterior is up and the patient's right on the left.%1</p>")
            .arg(hasLandmarks ? QStringLiteral(" Sagittal: anterior is on the right.") : QString());
    return {QStringLiteral("grey-regions.png"), QStringLiteral("Where grey values are sampled"),
            caption + sides, montage(tiles, static_cast<int>(tiles.size()), kTileWidth)};
}

QList<SectionPicture> histogramPictures(const GreyScan& scan, bool hasLandmarks)
{
    const Creator creator(*scan.ct, scan.teeth, scan.worldFromVolume);
    const struct
    {
        Creator::EstimatedRegion region;
        const char* file;
        const char* title;
        const char* lower;
        const char* higher;
    } all[] = {
        {Creator::FirstLandmarkRegion, "grey-histogram-face.png", "Histogram in front of the face",
         "T0", "not used"},
        {Creator::SecondLandmarkRegion, "grey-histogram-skull.png",
         "Histogram on the surface of the skull", "T3", "T9"},
        {Creator::TeethRegion, "grey-histogram-teeth.png", "Histogram at the teeth", "T3", "T7"},
    };
    QList<SectionPicture> pictures;
    for (const auto& row : all) {
        if (row.region != Creator::TeethRegion && !hasLandmarks)
            continue;
        const auto histogram = creator.createHistogram(row.region);
        const auto maxima = histogram->findMaxima();
        QList<Peak> peaks;
        if (maxima)
            peaks = {{maxima.value().first, QLatin1String(row.lower)},
                     {maxima.value().second, QLatin1String(row.higher)}};
        const QString caption =
            QStringLiteral("<p>%1 boxes, %2 wholly inside the scan. %3</p>")
                .arg(boxesOf(scan, row.region).size())
                .arg(creator.getNumberOfVOIsFullyContainedInVolume(row.region))
                .arg(maxima ? QStringLiteral("Dashed: the two peaks that were found.")
                            : QStringLiteral("There are no two peaks far enough apart."));
        pictures.append(
            {QLatin1String(row.file), QLatin1String(row.title), caption,
             plot(*histogram, peaks, kRegionColours[static_cast<std::size_t>(row.region)])});
    }
    return pictures;
}

// The same slice as scanned and as a badly calibrated scanner would give it, each with the default
// window and with that from its own estimate.
SectionPicture windowsPicture(const GreyScan& scan, const GreyCut& cut, const Estimate& calibrated)
{
    const Window fixed = TissueEstimator::DEFAULT_MEDICAL_CT_LW;
    const Window estimated = windowFor(calibrated.best());
    QList<Tile> tiles = {
        {QStringLiteral("As scanned, default window %1").arg(rangeText(fixed)), shade(cut, fixed)},
        {QStringLiteral("As scanned, estimated %1").arg(rangeText(estimated)),
         shade(cut, estimated)}};
    QString caption = QStringLiteral(
        "<p>One slice with the window of a calibrated medical CT and with that of the "
        "estimate.");
    const std::shared_ptr<const VexelImage3D> other =
        miscalibrated(scan.ct->getImageVolume()->getImage(), kOtherGain, kOtherOffset);
    if (other) {
        const auto tissues = estimate(scanWith(scan, other, calibrated.hasLandmarks));
        GreyCut otherCut = cut;
        for (float& grey : otherCut.values)
            grey = kOtherGain * grey + kOtherOffset;
        const Window otherEstimated = windowFor(tissues);
        tiles.append(
            {QStringLiteral("Gain %1, offset %2: default").arg(kOtherGain).arg(kOtherOffset),
             shade(otherCut, fixed)});
        tiles.append({tissues ? QStringLiteral("Gain %1, offset %2: estimated %3")
                                    .arg(kOtherGain)
                                    .arg(kOtherOffset)
                                    .arg(rangeText(otherEstimated))
                              : QStringLiteral("no estimate: the default again"),
                      shade(otherCut, otherEstimated)});
        caption +=
            QStringLiteral(
                " Below, as a scanner with a gain of %1 and an offset of %2 would give it: the "
                "default window no longer fits, the estimated one follows.")
                .arg(kOtherGain)
                .arg(kOtherOffset);
    }
    return {QStringLiteral("grey-windows.png"), QStringLiteral("Default and estimated window"),
            caption + QStringLiteral("</p>"), montage(tiles, 2, kTileWidth)};
}

// ---- drags

QColor mixed(const QColor& a, const QColor& b, double part)
{
    const auto channel = [part](int from, int to) {
        return static_cast<int>(from + part * (to - from));
    };
    return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

QColor greyColour(float grey, const Window& window)
{
    const float place = (grey - window.min) / (window.max - window.min);
    const int brightness = static_cast<int>(std::clamp(place, 0.0F, 1.0F) * 255.0F);
    return {brightness, brightness, brightness};
}

QColor colourOf(const QList<colormap::TransferFunction::ControlPoint>& points, float grey)
{
    if (grey <= points.first().greyValue)
        return points.first().color;
    for (qsizetype i = 1; i < points.size(); ++i) {
        if (grey < points[i].greyValue) {
            const float part =
                (grey - points[i - 1].greyValue) / (points[i].greyValue - points[i - 1].greyValue);
            return mixed(points[i - 1].color, points[i].color, static_cast<double>(part));
        }
    }
    return points.last().color;
}

// A volume with one function of each kind, set up for the tissues of the scan.
struct Display
{
    Display(const GreyScan& scan, const std::optional<colormap::Tissues>& estimated)
        : tissues(estimated.value_or(TissueEstimator::DEFAULT_MEDICAL_CT_TISSUES)),
          window(windowFor(estimated))
    {
        volume.setCTData(scan.ct);
        range = volume.getImage().getValueRange();
        volume.setMIPLevelWindow((window.min + window.max) / 2.0F, window.max - window.min);
        volume.setThreshold(threshold->getUUID(), tissues.cancellousBone);
        if (hasRange()) {
            const auto normalized = [this](int grey) {
                return (static_cast<float>(grey) - range.min) / (range.max - range.min);
            };
            pulp->setNormalizedPulpThreshold(normalized(tissues.softTissue - 200));
            pulp->setNormalizedRestorationMaterialThreshold(normalized(tissues.enamel));
        }
        transfer->setControlPoints(
            {{static_cast<float>(tissues.skin), QColor(0x08, 0x0a, 0x10)},
             {static_cast<float>(tissues.softTissue), QColor(0x8c, 0x3b, 0x2e)},
             {static_cast<float>(tissues.bone), QColor(0xe8, 0xd2, 0xa0)},
             {static_cast<float>(tissues.enamel), QColor(0xff, 0xff, 0xff)}});
    }

    // Without it, there are no normalised grey values.
    bool hasRange() const { return range.max > range.min && std::isfinite(range.max - range.min); }
    float greyOf(float normalized) const
    {
        return range.min + normalized * (range.max - range.min);
    }

    colormap::Tissues tissues;
    Window window;
    Window range;
    CTDataVolumeObject volume;
    std::shared_ptr<colormap::LevelWindowFunction> levelWindow =
        std::make_shared<colormap::LevelWindowFunction>();
    std::shared_ptr<colormap::ThresholdFunction> threshold =
        std::make_shared<colormap::ThresholdFunction>();
    std::shared_ptr<colormap::PulpFunction> pulp = std::make_shared<colormap::PulpFunction>();
    std::shared_ptr<colormap::TransferFunction> transfer =
        std::make_shared<colormap::TransferFunction>();
};

// What the functions are shown on.
struct Shown
{
    GreyCut projection;
    GreyCut roots;
    GreyCut crowns;
};

// One kind of function: what it shows, and its parameters in words.
struct Kind
{
    QString name;
    std::shared_ptr<colormap::ColormapFunction> function;
    QPointF drag; // pixels, from (0, 0)
    QString dragInWords;
    std::function<QString()> parameters;
    std::function<QImage()> picture;
};

QList<Kind> kinds(Display& display, const Shown& shown)
{
    const auto levelWindow = [&display] {
        return QStringLiteral("level %1, window %2")
            .arg(std::round(display.volume.getMIPLevel()))
            .arg(std::round(display.volume.getMIPWindow()));
    };
    const auto projected = [&display, &projection = shown.projection] {
        const float level = display.volume.getMIPLevel();
        const float half = display.volume.getMIPWindow() / 2.0F;
        return shade(projection, {level - half, level + half});
    };
    const auto threshold = [&display] {
        return QStringLiteral("threshold %1")
            .arg(display.volume.getThreshold(display.threshold->getUUID()));
    };
    const auto thresholded = [&display, &slice = shown.roots] {
        const auto from =
            static_cast<float>(display.volume.getThreshold(display.threshold->getUUID()));
        return colour(slice, [&display, from](float grey) {
            const QColor plain = greyColour(grey, display.window);
            return grey >= from ? mixed(plain, QColor(0xff, 0x9d, 0x2e), 0.65) : plain;
        });
    };
    const auto pulp = [&display] {
        if (!display.hasRange())
            return QStringLiteral("no range of grey values");
        return QStringLiteral("pulp %1, restoration %2")
            .arg(std::round(display.greyOf(display.pulp->getNormalizedPulpThreshold())))
            .arg(std::round(
                display.greyOf(display.pulp->getNormalizedRestorationMaterialThreshold())));
    };
    const auto pulpShown = [&display, &slice = shown.crowns] {
        if (!display.hasRange())
            return shade(slice, display.window);
        const float below = display.greyOf(display.pulp->getNormalizedPulpThreshold());
        const float above =
            display.greyOf(display.pulp->getNormalizedRestorationMaterialThreshold());
        return colour(slice, [&display, below, above](float grey) {
            const QColor plain = greyColour(grey, display.window);
            if (grey >= above)
                return mixed(plain, QColor(0xff, 0x4f, 0x8b), 0.6);
            return grey <= below ? mixed(plain, QColor(0x1f, 0x6f, 0xd0), 0.45) : plain;
        });
    };
    const auto transfer = [&display] {
        const auto points = display.transfer->getControlPoints();
        return QStringLiteral("from %1 to %2")
            .arg(std::round(points.first().greyValue))
            .arg(std::round(points.last().greyValue));
    };
    const auto transferred = [&display, &slice = shown.roots] {
        const auto points = display.transfer->getControlPoints();
        return colour(slice, [&points](float grey) { return colourOf(points, grey); });
    };
    return {{QStringLiteral("Level and window"),
             display.levelWindow,
             {-800.0, -500.0},
             QStringLiteral("800 px to the left, 500 up"),
             levelWindow,
             projected},
            {QStringLiteral("Threshold"),
             display.threshold,
             {0.0, -700.0},
             QStringLiteral("700 px up"),
             threshold,
             thresholded},
            {QStringLiteral("Pulp"),
             display.pulp,
             {400.0, 0.0},
             QStringLiteral("400 px to the right"),
             pulp,
             pulpShown},
            {QStringLiteral("Transfer"),
             display.transfer,
             {-600.0, 600.0},
             QStringLiteral("600 px to the left, 600 down"),
             transfer,
             transferred}};
}

// The part of an axial cut round the teeth; the whole without teeth.
GreyCut roundTeeth(const GreyCut& cut, const GreyScan& scan)
{
    primitives::BoundingBox all;
    for (const primitives::BoundingBox& box : boxesOf(scan, Creator::TeethRegion))
        all = primitives::BoundingBox::createUnionOf(all, box);
    if (all.isNull())
        return cut;
    const QVector3D margin(14.0F, 14.0F, 0.0F);
    return cropped(cut, {all.min() - margin, all.max() + margin});
}

SectionPicture dragsPicture(const GreyScan& scan, const Shown& shown,
                            const std::optional<colormap::Tissues>& tissues,
                            QList<QStringList>& rows)
{
    Display display(scan, tissues);
    BoneThresholdModifier modifier(display.volume);
    QList<Tile> tiles;
    rows = {{QStringLiteral("function"), QStringLiteral("drag"), QStringLiteral("before"),
             QStringLiteral("after")}};
    for (const Kind& kind : kinds(display, shown)) {
        const QString before = kind.parameters();
        tiles.append({QStringLiteral("%1: %2").arg(kind.name, before), kind.picture()});
        display.volume.setActiveVisualizationFunction(kind.function);
        modifier.update({0.0, 0.0}, kind.drag);
        tiles.append(
            {QStringLiteral("%1: %2").arg(kind.dragInWords, kind.parameters()), kind.picture()});
        rows.append({kind.name, kind.dragInWords, before, kind.parameters()});
    }
    return {
        QStringLiteral("grey-drags.png"), QStringLiteral("One drag for each kind of function"),
        QStringLiteral(
            "<p>Before on the left, after on the right. Level and window of the maximum-intensity "
            "projection from in front; bone above the threshold, orange; grey values up to the "
            "threshold "
            "for pulp, blue, and from that for restoration material on, pink; colours of a "
            "transfer "
            "function, which is panned by half as many grey values as the mouse moved pixels.</p>"),
        montage(tiles, 2, kTileWidth)};
}

Section emptySection(const QString& sentence)
{
    Section section;
    section.id = QStringLiteral("greyvalues");
    section.title = QStringLiteral("Grey values");
    section.introductionHtml = QStringLiteral("<p>%1</p>\n").arg(sentence);
    section.plainText = sentence + u'\n';
    return section;
}

} // namespace

Section createGreyValuesSection(const Case& planned, Progress& progress)
{
    const VexelImage3D& image = planned.volume.image;
    if (GreyScale(image).kind() == GreyValueKind::Labels)
        return emptySection(QStringLiteral(
            "This volume holds labels, not grey values: there are no tissues to estimate."));

    progress.step(QStringLiteral("Estimating tissues"));
    const GreyScan scan = scanOf(planned);
    const Estimate estimated = estimateBothWays(scan);
    Section section = emptySection({});
    section.introductionHtml = QStringLiteral("<p>Scanners differ in gain and offset. Peaks in the "
                                              "histograms of small regions tell where this "
                                              "one shows the tissues, and with which window it "
                                              "looks like a calibrated medical CT.</p>\n");
    section.plainText.clear();
    if (!estimated.best()) {
        const QString sentence =
            scan.teeth.empty() && !estimated.hasLandmarks
                ? QStringLiteral("This CT comes without landmarks of the skull and without teeth, "
                                 "so that there is no "
                                 "estimate: all below is shown with the default levels.")
                : QStringLiteral("The histograms of this CT have no two peaks far enough apart, so "
                                 "that there is no "
                                 "estimate: all below is shown with the default levels.");
        section.introductionHtml += QStringLiteral("<p>%1</p>\n").arg(sentence);
        section.plainText += sentence + u'\n';
    }

    progress.step(QStringLiteral("Sampling slices for the grey values"));
    const Sampler sampler(planned.volume);
    const auto axialAt = [&](ToothChart::ArchType arch) {
        return cutAcross(planned.volume, sampler, 2, heightOfTeeth(scan, planned.volume, arch),
                         kSpacingMm);
    };
    const GreyCut roots = axialAt(ToothChart::LowerArch);
    const GreyCut crowns = axialAt(ToothChart::UpperArch);
    if (estimated.hasLandmarks || !scan.teeth.empty()) {
        section.pictures.append(regionsPicture(scan, roots, planned.volume, sampler,
                                               windowFor(estimated.best()),
                                               estimated.hasLandmarks));
        section.pictures.append(histogramPictures(scan, estimated.hasLandmarks));
    }
    section.pictures.append(windowsPicture(scan, roots, estimated));

    progress.step(QStringLiteral("Projecting the largest grey values"));
    const GreyCut projection =
        maximumIntensity(planned.volume, sampler, kProjectionSpacingMm,
                         [&progress](double done) { progress.fraction(done); });
    QList<QStringList> dragRows;
    section.pictures.append(
        dragsPicture(scan, {projection, roundTeeth(roots, scan), roundTeeth(crowns, scan)},
                     estimated.best(), dragRows));
    progress.finish();

    const QList<QStringList> levels = levelRows(estimated, planned.patient.get());
    section.detailsHtml = QStringLiteral("<h3>Tissue levels and window</h3>\n") +
                          htmlTable(levels) + QStringLiteral("<h3>Drags</h3>\n") +
                          htmlTable(dragRows);
    section.plainText += textTable(levels) + textTable(dragRows);
    return section;
}

} // namespace planner
