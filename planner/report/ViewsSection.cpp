// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

#include <planner/drawing/GreyScale.h>
#include <planner/drawing/Picture.h>
#include <planner/drawing/Sampling.h>
#include <planner/input/Progress.h>
#include <planner/planning/Mapping.h>
#include <planner/planning/Views.h>
#include <planner/report/Table.h>

#include <algorithm>
#include <optional>

namespace planner {

namespace {

struct Rows
{
    QString view;
    QList<MappedLandmark> landmarks;
};

QString yesOrNo(const std::optional<bool>& flag)
{
    return flag ? (*flag ? QStringLiteral("yes") : QStringLiteral("no")) : QStringLiteral("-");
}

// What fits a terminal: the foramina in every view and whatever else lies in a slice.
bool isNotable(const MappedLandmark& row)
{
    return row.landmark.kind == LandmarkKind::Foramen || row.inSlice.value_or(false);
}

Table tableOf(const QList<Rows>& all, bool notableOnly)
{
    Table table{{QStringLiteral("view"), QStringLiteral("landmark"), QStringLiteral("world x"),
                 QStringLiteral("y"), QStringLiteral("z"), QStringLiteral("view x"),
                 QStringLiteral("y"), QStringLiteral("back x"), QStringLiteral("y"),
                 QStringLiteral("z"), QStringLiteral("error mm"), QStringLiteral("pixel"),
                 QStringLiteral("click mm"), QStringLiteral("in plane"),
                 QStringLiteral("in slice")}};
    for (const Rows& rows : all) {
        for (const MappedLandmark& row : rows.landmarks) {
            if (notableOnly && !isNotable(row))
                continue;
            const QVector3D& world = row.landmark.position;
            table.rows.append(
                {rows.view, row.landmark.name, number(world.x(), 2), number(world.y(), 2),
                 number(world.z(), 2), number(row.inView.x(), 2), number(row.inView.y(), 2),
                 number(row.back.x(), 2), number(row.back.y(), 2), number(row.back.z(), 2),
                 number(row.errorMm, 5),
                 QStringLiteral("%1, %2").arg(row.pixel.x()).arg(row.pixel.y()),
                 number(row.clickErrorMm, 2), yesOrNo(row.inPlane), yesOrNo(row.inSlice)});
        }
    }
    return table;
}

QString summary(const QList<Rows>& all)
{
    qsizetype count = 0;
    double largest = 0.0;
    double largestClick = 0.0;
    for (const Rows& rows : all) {
        count += rows.landmarks.size();
        for (const MappedLandmark& row : rows.landmarks) {
            largest = std::max(largest, row.errorMm);
            largestClick = std::max(largestClick, row.clickErrorMm);
        }
    }
    return QStringLiteral("%1 positions were mapped into the views and back: the largest error is "
                          "%2 mm, and %3 mm if the center of the marked pixel is mapped back.")
        .arg(count)
        .arg(largest, 0, 'f', 5)
        .arg(largestClick, 0, 'f', 2);
}

// The letters in words, for readers whose pictures lack fonts.
QString inWords(const QString& letters)
{
    const QHash<QChar, QString> names = {{u'R', QStringLiteral("the patient's right")},
                                         {u'L', QStringLiteral("the patient's left")},
                                         {u'A', QStringLiteral("anterior")},
                                         {u'P', QStringLiteral("posterior")},
                                         {u'S', QStringLiteral("superior")},
                                         {u'I', QStringLiteral("inferior")}};
    QStringList words;
    for (const QChar letter : letters) {
        if (names.contains(letter))
            words.append(names[letter]);
    }
    return words.join(u'-');
}

QString captionHtml(const QString& place, const EdgeLetters& edges, const GreyScale* scale,
                    const Reslice& reslice, const QString& more)
{
    const QString raster = QStringLiteral("%1 × %2 samples of %3 mm")
                               .arg(reslice.getDimensions().width())
                               .arg(reslice.getDimensions().height())
                               .arg(reslice.getSampleSize().x(), 0, 'g', 3);
    QString html =
        QStringLiteral("<p>%1%2</p>")
            .arg(place.toHtmlEscaped(), more.isEmpty() ? QString() : u' ' + more.toHtmlEscaped());
    html += QStringLiteral("<p>Top edge: %1. Left edge: %2.</p>")
                .arg(inWords(edges.top), inWords(edges.left));
    html += QStringLiteral("<p>%1%2.</p>")
                .arg(raster, scale ? QStringLiteral(", ") + scale->description() : QString());
    return html;
}

EdgeLetters cephEdges(const CephReslice& reslice, bool known)
{
    const QMatrix4x4 matrix = reslice.getTransformation();
    const float side = reslice.getPointOfView() == meta::FromLeft ? -1.0F : 1.0F;
    return edgesOf(matrix.column(0).toVector3D() * side, matrix.column(1).toVector3D(), known);
}

std::optional<MappedSegment> nerveChord(const Case& planned, const PlanarReslice& reslice)
{
    const Landmark* from =
        findLandmark(planned.landmarks, QString::fromUtf16(kRightMandibularForamen));
    const Landmark* to = findLandmark(planned.landmarks, QString::fromUtf16(kRightMentalForamen));
    if (!from || !to)
        return std::nullopt;
    return mapSegment(QStringLiteral("from the right mandibular to the right mental foramen"),
                      from->position, to->position, reslice);
}

QString segmentSentence(const std::optional<MappedSegment>& segment)
{
    if (!segment)
        return {};
    if (!segment->inPlane)
        return QStringLiteral("The segment %1 does not meet the slab.").arg(segment->name);
    return QStringLiteral("The segment %1 is solid where it runs within the slab: %2 of %3 mm as "
                          "seen in the view.")
        .arg(segment->name, number(segment->clipped.length(), 1),
             number(segment->whole.length(), 1));
}

QString dot(const QColor& color, bool filled, const QString& text)
{
    return QStringLiteral("<li><svg width=\"16\" height=\"16\"><circle cx=\"8\" cy=\"8\" r=\"5.5\" "
                          "fill=\"%1\" stroke=\"%2\" stroke-width=\"2\"/></svg>%3</li>")
        .arg(filled ? color.name() : QStringLiteral("none"), color.name(), text);
}

QString legendHtml(const Case& planned)
{
    const std::pair<LandmarkKind, QString> kinds[] = {
        {LandmarkKind::Foramen, QStringLiteral("foramen")},
        {LandmarkKind::Tooth, QStringLiteral("tooth, with its FDI number")},
        {LandmarkKind::Apex, QStringLiteral("root apex")},
        {LandmarkKind::Arch, QStringLiteral("point of the arch")}};
    QString items;
    for (const auto& [kind, text] : kinds) {
        if (std::ranges::find(planned.landmarks, kind, &Landmark::kind) != planned.landmarks.cend())
            items += dot(markColor(kind), true, text);
    }
    if (items.isEmpty())
        return {};
    items += dot(QColor(0x5a, 0x67, 0x75), false,
                 QStringLiteral("hollow: outside the slab, drawn at its foot on the plane"));
    return QStringLiteral("<ul class=\"legend\">%1</ul>\n").arg(items);
}

} // namespace

Section createViewsSection(const Case& planned, Progress& progress)
{
    const GreyScale scale(planned.volume.image);
    const Sampler sampler(planned.volume);
    const bool known = planned.volume.orientationKnown;
    const auto tell = progress.onFraction();
    QList<Rows> all;

    Section section{QStringLiteral("views"), QStringLiteral("Views and landmarks")};
    for (const PlanarView& view : {axialView(planned), obliqueView(planned)}) {
        progress.step(QStringLiteral("Sampling the %1").arg(view.title.toLower()));
        const PlanarReslice& reslice = *view.reslice;
        PictureContent content{cutOut(sampler, scale, reslice, tell),
                               reslice.getSampleSize(),
                               edgesOf(reslice, known),
                               mapOntoPlanar(planned.landmarks, reslice),
                               nerveChord(planned, reslice),
                               true};
        const QString slab =
            QStringLiteral("The slab is %1 mm thick, the picture shows its middle.")
                .arg(reslice.getSampleSize().z());
        const QString caption = captionHtml(view.place, content.edges, &scale, reslice,
                                            slab + u' ' + segmentSentence(content.segment));
        section.pictures.append(
            {view.id + QStringLiteral(".png"), view.title, caption, paintPicture(content)});
        all.append({view.id, content.marks});
    }
    const CephView ceph = lateralView(planned);
    progress.step(QStringLiteral("Projecting the %1").arg(ceph.title.toLower()));
    PictureContent content{project(sampler, scale, *ceph.reslice, tell),
                           ceph.reslice->getSampleSize(),
                           cephEdges(*ceph.reslice, known),
                           mapOntoCeph(planned.landmarks, *ceph.reslice),
                           std::nullopt,
                           false};
    section.pictures.append(
        {ceph.id + QStringLiteral(".png"), ceph.title,
         captionHtml(ceph.place, content.edges, nullptr, *ceph.reslice,
                     QStringLiteral("Brightness grows with the attenuation summed along the ray.")),
         paintPicture(content)});
    all.append({ceph.id, content.marks});
    progress.finish();

    section.introductionHtml =
        QStringLiteral("<p>The CT cut and projected by trilinear sampling. Landmarks are mapped "
                       "from the world into each view and drawn there.</p>\n") +
        legendHtml(planned);
    if (!planned.landmarks.isEmpty()) {
        section.detailsHtml =
            QStringLiteral(
                "<p>%1</p>\n<details><summary>All positions</summary>\n<p>View coordinates are mm "
                "from the upper left corner of the picture, x to the right and y down. \"Error\" "
                "is the distance between the point that was mapped back and the foot of the "
                "landmark on the plane of the view, in mm; \"click\" the same for the center of "
                "the marked pixel (column, row).</p>\n%2</details>\n")
                .arg(summary(all).toHtmlEscaped(), tableOf(all, false).html());
        section.plainText = tableOf(all, true).text() + summary(all) + u'\n';
    }
    return section;
}

} // namespace planner
