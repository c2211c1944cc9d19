// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

#include <planner/drawing/GreyScale.h>
#include <planner/drawing/Sampling.h>
#include <planner/drawing/TissuePictures.h>
#include <planner/input/Progress.h>
#include <planner/planning/TissueFindings.h>
#include <planner/report/Table.h>

#include <CoreAlgorithms/greyvalue/TissueEstimator.h>

#include <phantom/Phantom.h>

#include <map>
#include <utility>

namespace planner {

namespace {

using Creator = TissueEstimationHistogramCreator;

constexpr float kProjectionSpacingMm = 1.0F;

QString cell(const std::optional<colormap::Tissues>& tissues, std::size_t level)
{
    return tissues ? QString::number(tissues->toVector()[level]) : QStringLiteral("-");
}

// The tissue of the built-in patient whose painted grey value a level is the estimate of.
QString truth(const phantom::Patient& patient, std::size_t level)
{
    const std::map<std::size_t, std::pair<QString, phantom::Tissue>> painted = {
        {0, {QStringLiteral("air"), phantom::Tissue::Air}},
        {3, {QStringLiteral("soft tissue"), phantom::Tissue::SoftTissue}},
        {7, {QStringLiteral("dentine, for the teeth"), phantom::Tissue::Dentine}},
        {9, {QStringLiteral("cortical bone, for the landmarks"), phantom::Tissue::CorticalBone}}};
    const auto found = painted.find(level);
    if (found == painted.end())
        return {};
    const auto& [name, tissue] = found->second;
    return QStringLiteral("%1 %2").arg(name).arg(patient.paintedGreyValue(tissue));
}

Table levelTable(const TissueEstimates& estimates, const phantom::Patient* patient)
{
    static const char* const names[] = {
        "air",  "skin",    "fat",           "soft tissue", "cancellous bone", "bone surface",
        "bone", "dentine", "cortical bone", "dense bone",  "enamel"};
    Table table{{QStringLiteral("level"), QStringLiteral("tissue"), QStringLiteral("default")}};
    QList<TableCell> window = {QStringLiteral("window"), QString(),
                               rangeText(TissueEstimator::DEFAULT_MEDICAL_CT_LW)};
    if (estimates.hasLandmarks) {
        table.headings.append(QStringLiteral("from landmarks"));
        window.append(rangeText(windowFor(estimates.fromLandmarks)));
    }
    table.headings.append(QStringLiteral("from teeth"));
    window.append(estimates.fromTeeth ? rangeText(windowFor(estimates.fromTeeth))
                                      : QStringLiteral("-"));
    if (patient) {
        table.headings.append(QStringLiteral("painted"));
        window.append(QString());
    }
    const std::vector<int> defaults = TissueEstimator::DEFAULT_MEDICAL_CT_TISSUES.toVector();
    for (std::size_t level = 0; level < defaults.size(); ++level) {
        QList<TableCell> row = {QStringLiteral("T%1").arg(level),
                                QString(QLatin1String(names[level])),
                                QString::number(defaults[level])};
        if (estimates.hasLandmarks)
            row.append(cell(estimates.fromLandmarks, level));
        row.append(cell(estimates.fromTeeth, level));
        if (patient)
            row.append(truth(*patient, level));
        table.rows.append(row);
    }
    table.rows.append(window);
    return table;
}

SectionPicture regionsPicture(const QImage& image, bool hasLandmarks)
{
    const QString caption =
        hasLandmarks
            ? QStringLiteral("<p>In front of the face, blue: air and soft tissue, which give T0. "
                             "On the surface of the skull, orange: soft tissue and dense bone, T3 "
                             "and T9. At the teeth, green: T3 and T7.</p>")
            : QStringLiteral(
                  "<p>At the teeth, green: soft tissue and dentine, T3 and T7. The other two "
                  "regions need landmarks of the skull, which this CT comes without.</p>");
    const QString sides =
        QStringLiteral("<p>Axial: anterior is up and the patient's right on the left.%1</p>")
            .arg(hasLandmarks ? QStringLiteral(" Sagittal: anterior is on the right.") : QString());
    return {QStringLiteral("grey-regions.png"), QStringLiteral("Where grey values are sampled"),
            caption + sides, image};
}

QList<SectionPicture> histogramPictures(const GreyScan& scan, bool hasLandmarks)
{
    const Creator creator(*scan.ct, scan.teeth, scan.worldFromVolume);
    const struct
    {
        Creator::EstimatedRegion region;
        QString file;
        QString title;
        QString lower;
        QString higher;
    } all[] = {
        {Creator::FirstLandmarkRegion, QStringLiteral("grey-histogram-face.png"),
         QStringLiteral("Histogram in front of the face"), QStringLiteral("T0"),
         QStringLiteral("not used")},
        {Creator::SecondLandmarkRegion, QStringLiteral("grey-histogram-skull.png"),
         QStringLiteral("Histogram on the surface of the skull"), QStringLiteral("T3"),
         QStringLiteral("T9")},
        {Creator::TeethRegion, QStringLiteral("grey-histogram-teeth.png"),
         QStringLiteral("Histogram at the teeth"), QStringLiteral("T3"), QStringLiteral("T7")},
    };
    QList<SectionPicture> pictures;
    for (const auto& [region, file, title, lower, higher] : all) {
        if (region != Creator::TeethRegion && !hasLandmarks)
            continue;
        const auto histogram = creator.createHistogram(region);
        const QString caption =
            QStringLiteral("<p>%1 boxes, %2 wholly inside the scan. %3</p>")
                .arg(boxesOf(scan, region).size())
                .arg(creator.getNumberOfVOIsFullyContainedInVolume(region))
                .arg(histogram->findMaxima()
                         ? QStringLiteral("Dashed: the two peaks that were found.")
                         : QStringLiteral("There are no two peaks far enough apart."));
        pictures.append({file, title, caption, paintHistogram(*histogram, region, lower, higher)});
    }
    return pictures;
}

SectionPicture windowsPicture(const GreyScan& scan, const GreyCut& cut,
                              const TissueEstimates& estimates)
{
    const auto other = estimateForOtherScanner(scan, estimates.hasLandmarks);
    QString caption = QStringLiteral(
        "One slice with the window of a calibrated medical CT and with that of the estimate.");
    if (other)
        caption +=
            QStringLiteral(" Below, as a scanner with a gain of %1 and an offset of %2 would give "
                           "it: the default window no longer fits, the estimated one follows.")
                .arg(kOtherGain)
                .arg(kOtherOffset);
    return {QStringLiteral("grey-windows.png"), QStringLiteral("Default and estimated window"),
            QStringLiteral("<p>%1</p>").arg(caption), paintWindows(cut, estimates.best(), other)};
}

// Drags the function of each kind, and fills a table with what that did.
SectionPicture dragsPicture(ColormapDisplay display, const TissueCuts& cuts, Table& table)
{
    const struct
    {
        ColormapKind kind;
        QString name;
        QPointF pixels;
        QString inWords;
    } drags[] = {{ColormapKind::LevelWindow,
                  QStringLiteral("Level and window"),
                  {-800.0, -500.0},
                  QStringLiteral("800 px to the left, 500 up")},
                 {ColormapKind::Threshold,
                  QStringLiteral("Threshold"),
                  {0.0, -700.0},
                  QStringLiteral("700 px up")},
                 {ColormapKind::Pulp,
                  QStringLiteral("Pulp"),
                  {400.0, 0.0},
                  QStringLiteral("400 px to the right")},
                 {ColormapKind::Transfer,
                  QStringLiteral("Transfer"),
                  {-600.0, 600.0},
                  QStringLiteral("600 px to the left, 600 down")}};
    QList<Tile> tiles;
    for (const auto& [kind, name, pixels, inWords] : drags) {
        const QString before = display.parameters(kind);
        tiles.append(
            {QStringLiteral("%1: %2").arg(name, before), paintColormap(display, kind, cuts)});
        display.drag(kind, pixels);
        const QString after = display.parameters(kind);
        tiles.append(
            {QStringLiteral("%1: %2").arg(inWords, after), paintColormap(display, kind, cuts)});
        table.rows.append({name, inWords, before, after});
    }
    return {
        QStringLiteral("grey-drags.png"), QStringLiteral("One drag for each kind of function"),
        QStringLiteral("<p>Before on the left, after on the right. Level and window of the "
                       "maximum-intensity projection from in front; bone above the threshold, "
                       "orange; grey values up to the threshold for pulp, blue, and from that for "
                       "restoration material on, pink; colors of a transfer function, which is "
                       "panned by half as many grey values as the mouse moved pixels.</p>"),
        montage(tiles, 2, kTileWidth)};
}

// Says why there is no estimate; empty if there is one.
QString whyNoEstimate(const TissueEstimates& estimates, const GreyScan& scan)
{
    if (estimates.best())
        return {};
    return scan.teeth.empty() && !estimates.hasLandmarks
               ? QStringLiteral(
                     "This CT comes without landmarks of the skull and without teeth, so that "
                     "there is no estimate: all below is shown with the default levels.")
               : QStringLiteral(
                     "The histograms of this CT have no two peaks far enough apart, so that there "
                     "is no estimate: all below is shown with the default levels.");
}

} // namespace

Section createGreyValuesSection(const Case& planned, Progress& progress)
{
    const Volume& volume = planned.volume;
    Section section{QStringLiteral("greyvalues"), QStringLiteral("Grey values")};
    if (GreyScale(volume.image).kind() == GreyValueKind::Labels) {
        section.introduce(QStringLiteral(
            "This volume holds labels, not grey values: there are no tissues to estimate."));
        return section;
    }

    progress.step(QStringLiteral("Estimating tissues"));
    const GreyScan scan = scanOf(planned);
    const TissueEstimates estimates = estimateTissues(scan);
    section.introductionHtml =
        QStringLiteral("<p>Scanners differ in gain and offset. Peaks in the histograms of small "
                       "regions tell where this one shows the tissues, and with which window it "
                       "looks like a calibrated medical CT.</p>\n");
    if (const QString why = whyNoEstimate(estimates, scan); !why.isEmpty())
        section.introduce(why);

    progress.step(QStringLiteral("Sampling slices for the grey values"));
    const Sampler sampler(volume);
    const auto axialAt = [&](ToothChart::ArchType arch) {
        return cutAcross(volume, sampler, 2, heightOfTeeth(scan, volume, arch), kCutSpacingMm);
    };
    TissueCuts cuts{axialAt(ToothChart::LowerArch), axialAt(ToothChart::UpperArch), {}};
    const bool hasLandmarks = estimates.hasLandmarks;
    if (hasLandmarks || !scan.teeth.empty()) {
        section.pictures.append(
            regionsPicture(paintRegions(scan, volume, sampler, cuts.roots,
                                        windowFor(estimates.best()), hasLandmarks),
                           hasLandmarks));
        section.pictures.append(histogramPictures(scan, hasLandmarks));
    }
    section.pictures.append(windowsPicture(scan, cuts.roots, estimates));

    progress.step(QStringLiteral("Projecting the largest grey values"));
    cuts.projection =
        maximumIntensity(volume, sampler, kProjectionSpacingMm, progress.onFraction());
    cuts.roots = aroundTeeth(cuts.roots, scan);
    cuts.crowns = aroundTeeth(cuts.crowns, scan);
    Table drags{{QStringLiteral("function"), QStringLiteral("drag"), QStringLiteral("before"),
                 QStringLiteral("after")}};
    section.pictures.append(dragsPicture({scan, estimates.best()}, cuts, drags));
    progress.finish();

    const Table levels = levelTable(estimates, planned.patient.get());
    section.detailsHtml = QStringLiteral("<h3>Tissue levels and window</h3>\n") + levels.html() +
                          QStringLiteral("<h3>Drags</h3>\n") + drags.html();
    section.plainText += levels.text() + drags.text();
    return section;
}

} // namespace planner
