// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/Sections.h>

#include <planner/drawing/GreyScale.h>
#include <planner/drawing/PanoramicPictures.h>
#include <planner/drawing/Sampling.h>
#include <planner/input/Progress.h>
#include <planner/report/Table.h>

#include <algorithm>

namespace planner {

namespace {

QString cropSentence(const QSize& shown, const QSize& whole)
{
    return QStringLiteral("Cropped to what is visible: %1 × %2 of %3 × %4 pixels.")
        .arg(shown.width())
        .arg(shown.height())
        .arg(whole.width())
        .arg(whole.height());
}

struct Told
{
    QString html;
    QString text;

    void say(const QString& sentence)
    {
        html += QStringLiteral("<p>%1</p>").arg(sentence.toHtmlEscaped());
        text += sentence + u'\n';
    }
};

QString nerveSentence(PanoramicPicture& picture, const CanalLine* canal, bool right)
{
    if (!canal)
        return QStringLiteral(
                   "The course of the %1 mandibular nerve is not known, so it is not drawn.")
            .arg(sideName(right));
    const LengthsInView lengths = picture.addNerve(*canal);
    return QStringLiteral("The %1 mandibular nerve is %2 mm long in the view; within %3 mm of the "
                          "surface, on %4 mm, it is drawn solid.")
        .arg(sideName(right), number(lengths.whole, 1))
        .arg(picture.nearMm())
        .arg(number(lengths.nearSurface, 1));
}

SectionPicture panoramicPicture(const Case& planned, const Panorama& view,
                                const QList<TurnedImplant>& implants, const Sampler& sampler,
                                const GreyScale& scale, Progress& progress, Told& told)
{
    progress.step(QStringLiteral("Unrolling the arch"));
    PanoramicPicture picture(planned, view, sampler, scale, progress.onFraction());
    qsizetype inSlab = 0;
    double largestErrorMm = 0.0;
    for (const MappedLandmark& mark : picture.marks()) {
        if (!mark.inPlane.value_or(false))
            continue;
        ++inSlab;
        largestErrorMm = std::max(largestErrorMm, mark.errorMm);
    }
    told.say(
        QStringLiteral("%1 landmarks lie within the slab of %2 mm; mapped into the panoramic view "
                       "and back they come out at most %3 mm from their foot on the surface.")
            .arg(inSlab)
            .arg(view.reslice->getThickness())
            .arg(largestErrorMm, 0, 'f', 4));
    for (const bool right : {true, false})
        told.say(nerveSentence(picture, findCanal(planned.canals, right), right));
    for (const TurnedImplant& turned : implants)
        picture.addImplant(*turned.implant);
    for (const char* site : kImplantSites) {
        const QString fdi = QLatin1String(site);
        if (std::ranges::find(implants, fdi, &TurnedImplant::fdi) == implants.cend())
            told.say(QStringLiteral("Of tooth %1, crown and apex are not both known, so no implant "
                                    "takes its place.")
                         .arg(fdi));
    }
    const QSize whole = picture.wholeSize();
    QImage image;
    const QRect shown = picture.paint(image);
    const QString caption =
        QStringLiteral(
            "<p>%1 Bright is what lies within %2 mm of the surface, summed as in a "
            "radiograph.</p><p>Top edge: superior. Left edge: the patient's right.</p><p>%3</p>")
            .arg(view.place.toHtmlEscaped())
            .arg(kShownDepthMm)
            .arg(cropSentence(shown.size(), whole));
    return {QStringLiteral("panoramic.png"), QStringLiteral("Panoramic view"), caption, image};
}

SectionPicture implantPicture(const TurnedImplant& turned, const QImage& image, Told& told)
{
    const QString sentence =
        QStringLiteral(
            "The implant at %1 turns by %2 degrees about its axis to face square across the arch.")
            .arg(turned.fdi, number(turned.turnedDegrees, 1));
    told.say(sentence);
    return {QStringLiteral("implant-%1.png").arg(turned.fdi),
            QStringLiteral("Implant %1, before and after").arg(turned.fdi),
            QStringLiteral("<p>From below at its platform. %1 Dotted orange before, solid green "
                           "after; the arrow is the implant's own y axis, the dotted green line "
                           "the path of the panoramic view.</p>")
                .arg(sentence),
            image};
}

SectionPicture cutPicture(const PlanarView& shown, const PlanarView& cutting, const CutView& cut,
                          Told& told)
{
    const QString sentence =
        cut.lineMm
            ? QStringLiteral("The plane of the %1 cuts the %2 along a line of %3 mm.")
                  .arg(cutting.title.toLower(), shown.title.toLower(), number(*cut.lineMm, 1))
            : QStringLiteral("The plane of the %1 does not meet the %2.")
                  .arg(cutting.title.toLower(), shown.title.toLower());
    told.say(sentence);
    return {shown.id + QStringLiteral("-cut.png"),
            QStringLiteral("%1, cut by the %2").arg(shown.title, cutting.title.toLower()),
            QStringLiteral("<p>%1</p><p>%2</p>")
                .arg(sentence, cropSentence(cut.shown.size(), cut.whole)),
            cut.image};
}

} // namespace

Section createPanoramicSection(const Case& planned, Progress& progress)
{
    const GreyScale scale(planned.volume.image);
    const Sampler sampler(planned.volume);
    Told told;

    Section section{QStringLiteral("panoramic"),
                    QStringLiteral("Panoramic view, cuts and implants")};
    const auto view = panorama(planned);
    if (view) {
        section.introductionHtml =
            QStringLiteral("<p>The arch unrolled: each pixel is mapped to its place on a surface "
                           "that stands upright on the arch. What is known of landmarks, nerves "
                           "and implants is mapped from the world into the view.</p>\n");
        const QList<TurnedImplant> implants = placeTurnedImplants(planned, *view->arch);
        section.pictures.append(
            panoramicPicture(planned, *view, implants, sampler, scale, progress, told));
        progress.step(QStringLiteral("Turning implants and cutting views"));
        for (const TurnedImplant& turned : implants)
            section.pictures.append(implantPicture(
                turned, paintTurn(planned, turned, *view->arch, sampler, scale), told));
    } else {
        told.say(whyNoPanorama(planned));
        progress.step(QStringLiteral("Cutting views"));
    }
    const PlanarView axial = axialView(planned);
    const PlanarView oblique = obliqueView(planned);
    const auto addCut = [&](const PlanarView& shown, const PlanarView& cutting) {
        const CutView cut = paintCut(*shown.reslice, *cutting.reslice,
                                     planned.volume.orientationKnown, sampler, scale);
        section.pictures.append(cutPicture(shown, cutting, cut, told));
    };
    addCut(axial, oblique);
    addCut(oblique, axial);
    progress.finish();
    section.detailsHtml = told.html;
    section.plainText = told.text;
    return section;
}

} // namespace planner
