// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/report/PanoramicSection.h>

#include <planner/drawing/GreyScale.h>
#include <planner/drawing/Picture.h>
#include <planner/drawing/Sampling.h>
#include <planner/input/Progress.h>
#include <planner/planning/Mapping.h>
#include <planner/planning/Panorama.h>
#include <planner/planning/Views.h>

#include <CoreAlgorithms/reslice/CoordinateMapper.h>
#include <CoreAlgorithms/reslice/ImageBoundingBoxCalculator.h>
#include <CoreAlgorithms/reslice/IntersectionCalculator.h>

#include <QVector4D>

#include <algorithm>
#include <array>
#include <cmath>

namespace planner {

namespace {

constexpr float kShownDepthMm = 6.0F; // to either side of the surface
constexpr float kStepMm = 0.25F;      // of lines that are bent onto the surface
constexpr float kCloseUpMm = 26.0F;
constexpr float kCloseUpPixelMm = 0.05F;
constexpr int kAir = 12; // brightness up to which a pixel of a cut counts as air
const QColor kNerveColour(0xff, 0xd2, 0x3f);
const QColor kImplantColour(0x6c, 0xf0, 0xc2);
const QColor kBeforeColour(0xff, 0x7a, 0x59);
const QColor kArchColour(0x62, 0xd0, 0x72);

QString number(double value, int decimals)
{
    return QString::number(value, 'f', decimals);
}

// The visible part of a picture, and everything drawn onto it moved along. Returns its rectangle in
// the picture.
QRect crop(PictureContent& content)
{
    const QRect box = ImageBoundingBoxCalculator::createBoundingBox(content.samples);
    content.samples = content.samples.copy(box);
    const QPointF corner(box.x() * static_cast<double>(content.sampleSizeMm.x()),
                         box.y() * static_cast<double>(content.sampleSizeMm.y()));
    for (MappedLandmark& mark : content.marks) {
        mark.inView -= corner;
        mark.pixel -= box.topLeft();
    }
    for (PictureCurve& curve : content.curves) {
        for (QPointF& point : curve.inView)
            point -= corner;
    }
    return box;
}

QString cropSentence(const QRect& box, const QImage& whole)
{
    return QStringLiteral("Cropped to what is visible: %1 × %2 of %3 × %4 pixels.")
        .arg(box.width())
        .arg(box.height())
        .arg(whole.width())
        .arg(whole.height());
}

// A world line bent onto the surface, as far as it lies in the slab: a curve for each part of it.
QList<PictureCurve> bent(const QList<QVector3D>& line, const PanoramicReslice& reslice,
                         const QColor& colour, double width)
{
    QList<PictureCurve> curves;
    bool open = false;
    const auto add = [&](const QVector3D& point) {
        bool inPlane = false;
        bool inSlice = false;
        const QPointF inView =
            CoordinateMapper::_3D_To_2D_Panoramic(&reslice, point, inPlane, inSlice, false);
        if (inPlane && !open)
            curves.append({{}, colour, width, true});
        if (inPlane)
            curves.last().inView.append(inView);
        open = inPlane;
    };
    for (qsizetype i = 0; i + 1 < line.size(); ++i) {
        const QVector3D way = line[i + 1] - line[i];
        const int steps = std::max(1, static_cast<int>(way.length() / kStepMm));
        for (int s = 0; s < steps; ++s)
            add(line[i] + way * (static_cast<float>(s) / static_cast<float>(steps)));
    }
    if (!line.isEmpty())
        add(line.last());
    return curves;
}

// Goes on with the last curve where the line starts at its end.
void append(QList<PictureCurve>& curves, const QLineF& line, const QColor& colour, double width)
{
    if (curves.isEmpty() || curves.last().inView.last() != line.p1())
        curves.append({{line.p1()}, colour, width, false});
    curves.last().inView.append(line.p2());
}

// Its parts within one column's width of the surface.
QList<PictureCurve> nearSurface(const QList<QVector3D>& line, const PanoramicReslice& reslice,
                                const QColor& colour, double width)
{
    QList<PictureCurve> curves;
    for (qsizetype i = 0; i + 1 < line.size(); ++i) {
        for (const QLineF& part : CoordinateMapper::_3D_To_2D_Line_Panoramic(
                 &reslice, line[i], line[i + 1], false, kStepMm))
            append(curves, part, colour, width);
    }
    return curves;
}

double lengthOf(const QList<PictureCurve>& curves)
{
    double length = 0.0;
    for (const PictureCurve& curve : curves) {
        for (qsizetype i = 0; i + 1 < curve.inView.size(); ++i)
            length += QLineF(curve.inView[i], curve.inView[i + 1]).length();
    }
    return length;
}

// Both sides, tip and platform, and the axis: the implant cut along the arch.
QList<QList<QVector3D>> linesOf(const dataobject::Implant3D& implant)
{
    const QMatrix4x4& placement = implant.getObjectTransform();
    const float r = implant.getDimensions().diameter / 2.0F;
    const float tip = -implant.getDimensions().length;
    const auto at = [&placement](float x, float z) { return placement.map(QVector3D(x, 0.0F, z)); };
    return {{at(-r, 0.0F), at(r, 0.0F), at(r * 0.6F, tip), at(-r * 0.6F, tip), at(-r, 0.0F)},
            {at(0.0F, tip), at(0.0F, 3.0F)}};
}

struct PlacedImplant
{
    QString fdi;
    std::shared_ptr<dataobject::Implant3D> implant;
    QMatrix4x4 before;
    double turnedDegrees;
};

QList<PlacedImplant> placeImplants(const Case& planned, GuidingLine& arch)
{
    QList<PlacedImplant> placed;
    for (const char* site : kImplantSites) {
        const QString fdi = QLatin1String(site);
        const auto implant = implantAt(planned, fdi);
        if (!implant)
            continue;
        const QMatrix4x4 before = implant->getObjectTransform();
        const double turned = turnSquare(*implant, arch);
        placed.append({fdi, implant, before, turned});
    }
    return placed;
}

EdgeLetters panoramicEdges(bool known)
{
    const auto letters = [known](float x, float z) {
        return directionLetters({x, 0.0F, z}, known);
    };
    return {letters(-1.0F, 0.0F), letters(1.0F, 0.0F), letters(0.0F, 1.0F), letters(0.0F, -1.0F)};
}

// Tooth numbers stand in the middle of their teeth, where upper and lower ones do not crowd each
// other.
QList<Landmark> onTheirTeeth(QList<Landmark> landmarks)
{
    for (Landmark& landmark : landmarks) {
        const Landmark* apex = findLandmark(landmarks, landmark.name + QStringLiteral(", apex"));
        if (landmark.kind == LandmarkKind::Tooth && apex)
            landmark.position = (landmark.position + apex->position) / 2.0F;
    }
    return landmarks;
}

struct Errors
{
    qsizetype count = 0;
    double largest = 0.0;
};

Errors errorsOf(const QList<MappedLandmark>& marks)
{
    Errors errors;
    for (const MappedLandmark& mark : marks) {
        if (!mark.inPlane.value_or(false))
            continue;
        ++errors.count;
        errors.largest = std::max(errors.largest, mark.errorMm);
    }
    return errors;
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

void addNerve(PictureContent& content, const CanalLine* canal, bool right,
              const PanoramicReslice& reslice, const PanoramicReslice& wide, Told& told)
{
    if (!canal) {
        told.say(QStringLiteral(
                     "The course of the %1 mandibular nerve is not known, so it is not drawn.")
                     .arg(sideName(right)));
        return;
    }
    const QList<PictureCurve> nerve = bent(canal->points, reslice, kNerveColour, 2.0);
    const QList<PictureCurve> near = nearSurface(canal->points, wide, kNerveColour, 3.0);
    told.say(
        QStringLiteral(
            "The %1 mandibular nerve is %2 mm long in the view; within %3 mm of the surface, on "
            "%4 mm, it is drawn solid.")
            .arg(sideName(right), number(lengthOf(nerve), 1))
            .arg(static_cast<double>(wide.getSampleSize().x()))
            .arg(number(lengthOf(near), 1)));
    content.curves += nerve;
    content.curves += near;
}

SectionPicture panoramicPicture(const Case& planned, const Panorama& view,
                                const QList<PlacedImplant>& implants, const Sampler& sampler,
                                const GreyScale& scale, Progress& progress, Told& told)
{
    progress.step(QStringLiteral("Unrolling the arch"));
    const PanoramicReslice& reslice = *view.reslice;
    const auto wide = withWideColumns(reslice);
    PictureContent content{unroll(sampler, scale, reslice, kShownDepthMm,
                                  [&progress](double done) { progress.fraction(done); }),
                           reslice.getSampleSize(),
                           panoramicEdges(planned.volume.orientationKnown),
                           mapOntoPanoramic(onTheirTeeth(planned.landmarks), reslice),
                           std::nullopt,
                           true};
    const Errors errors = errorsOf(content.marks);
    told.say(QStringLiteral("%1 landmarks lie within the slab of %2 mm; mapped into the panoramic "
                            "view and back they "
                            "come out at most %3 mm from their foot on the surface.")
                 .arg(errors.count)
                 .arg(static_cast<double>(reslice.getThickness()))
                 .arg(errors.largest, 0, 'f', 4));

    for (const bool right : {true, false})
        addNerve(content, findCanal(planned.canals, right), right, reslice, *wide, told);
    for (const PlacedImplant& placed : implants) {
        for (const QList<QVector3D>& line : linesOf(*placed.implant)) {
            content.curves += bent(line, reslice, kImplantColour, 2.0);
            content.curves += nearSurface(line, *wide, kImplantColour, 2.5);
        }
    }
    for (const char* site : kImplantSites) {
        const bool isPlaced =
            std::any_of(implants.cbegin(), implants.cend(), [site](const PlacedImplant& placed) {
                return placed.fdi == QLatin1String(site);
            });
        if (!isPlaced)
            told.say(QStringLiteral("Of tooth %1, crown and apex are not both known, so no implant "
                                    "takes its place.")
                         .arg(QLatin1String(site)));
    }

    content.labelsAbove = true;
    const QImage whole = content.samples;
    const QRect box = crop(content);
    const QString caption =
        QStringLiteral(
            "<p>%1 Bright is what lies within %2 mm of the surface, summed as in a radiograph.</p>"
            "<p>Top edge: superior. Left edge: the patient's right.</p><p>%3</p>")
            .arg(view.place.toHtmlEscaped())
            .arg(static_cast<double>(kShownDepthMm))
            .arg(cropSentence(box, whole));
    return {QStringLiteral("panoramic.png"), QStringLiteral("Panoramic view"), caption,
            paintPicture(content)};
}

// From above, square with the picture's edges.
std::shared_ptr<PlanarReslice> closeUpAt(const QVector3D& position)
{
    const float half = kCloseUpMm / 2.0F;
    auto reslice = std::make_shared<PlanarReslice>();
    reslice->setSampleSize({kCloseUpPixelMm, kCloseUpPixelMm, 1.0F});
    const double samples = std::round(static_cast<double>(kCloseUpMm / kCloseUpPixelMm));
    reslice->setDimensions({samples, samples});
    QMatrix4x4 placement;
    placement.translate(position - QVector3D(half, half, 0.0F));
    reslice->setTransformationFromResliceToWorld(placement);
    reslice->setMirroredIn2D(false, true); // anterior is up
    return reslice;
}

// A square round the implant's platform and an arrow along its local y axis.
QList<PictureCurve> footprint(const QMatrix4x4& placement, float diameter,
                              const PlanarReslice& reslice, const QColor& colour, bool dotted)
{
    const auto at = [&](float x, float y) {
        return CoordinateMapper::_3D_To_2D_PlanarPoint(&reslice,
                                                       placement.map(QVector3D(x, y, 0.0F)));
    };
    const float r = diameter / 2.0F;
    const float tip = diameter * 1.6F;
    return {{{at(-r, -r), at(r, -r), at(r, r), at(-r, r), at(-r, -r)}, colour, 3.0, dotted},
            {{at(0.0F, 0.0F), at(0.0F, tip)}, colour, 3.0, dotted},
            {{at(-r * 0.4F, tip - r * 0.6F), at(0.0F, tip), at(r * 0.4F, tip - r * 0.6F)},
             colour,
             3.0,
             false}};
}

SectionPicture implantPicture(const Case& planned, const PlacedImplant& placed,
                              const GuidingLine& arch, const Sampler& sampler,
                              const GreyScale& scale, Told& told)
{
    const QMatrix4x4& after = placed.implant->getObjectTransform();
    const auto reslice = closeUpAt(after.column(3).toVector3D());
    const float diameter = placed.implant->getDimensions().diameter;
    const bool known = planned.volume.orientationKnown;
    const auto letters = [known](float x, float y) {
        return directionLetters({x, y, 0.0F}, known);
    };
    PictureContent content{
        cutOut(sampler, scale, *reslice),
        reslice->getSampleSize(),
        {letters(-1.0F, 0.0F), letters(1.0F, 0.0F), letters(0.0F, -1.0F), letters(0.0F, 1.0F)},
        {},
        std::nullopt,
        false};
    PictureCurve path{{}, kArchColour, 2.0, true};
    for (const QVector3D& sample : arch.getOriginalPath())
        path.inView.append(CoordinateMapper::_3D_To_2D_PlanarPoint(reslice.get(), sample));
    content.curves.append(path);
    content.curves += footprint(placed.before, diameter, *reslice, kBeforeColour, true);
    content.curves += footprint(after, diameter, *reslice, kImplantColour, false);
    const QString sentence =
        QStringLiteral(
            "The implant at %1 turns by %2 degrees about its axis to face square across the arch.")
            .arg(placed.fdi, number(placed.turnedDegrees, 1));
    told.say(sentence);
    return {QStringLiteral("implant-%1.png").arg(placed.fdi),
            QStringLiteral("Implant %1, before and after").arg(placed.fdi),
            QStringLiteral(
                "<p>From below at its platform. %1 Dotted orange before, solid green after; the "
                "arrow is the "
                "implant's own y axis, the dotted green line the path of the panoramic view.</p>")
                .arg(sentence),
            paintPicture(content)};
}

// Black pixels at the border stand for the air around the head.
QImage withoutAir(const QImage& cut)
{
    QImage alpha(cut.size(), QImage::Format_Alpha8);
    for (int row = 0; row < cut.height(); ++row) {
        const uchar* grey = cut.constScanLine(row);
        std::transform(grey, grey + cut.width(), alpha.scanLine(row),
                       [](uchar brightness) { return brightness > kAir ? uchar{255} : uchar{0}; });
    }
    QImage visible = cut.convertToFormat(QImage::Format_ARGB32);
    visible.setAlphaChannel(alpha);
    return visible;
}

SectionPicture cutPicture(const PlanarView& shown, const PlanarView& cutting,
                          const EdgeLetters& edges, const Sampler& sampler, const GreyScale& scale,
                          Told& told)
{
    const PlanarReslice& reslice = *shown.reslice;
    const PlanarReslice& other = *cutting.reslice;
    const QList<QVector3D> ends = IntersectionCalculator::calculatePlaneIntersections(
        other.getOrigin(),
        QVector3D::crossProduct(other.getDirection0(false), other.getDirection1(false)),
        shown.reslice.get());
    const QImage cut = cutOut(sampler, scale, reslice);
    PictureContent content{
        withoutAir(cut), reslice.getSampleSize(), edges, {}, std::nullopt, false};
    QString sentence = QStringLiteral("The plane of the %1 does not meet the %2.")
                           .arg(cutting.title.toLower(), shown.title.toLower());
    if (ends.size() >= 2) {
        const QPointF from = CoordinateMapper::_3D_To_2D_PlanarPoint(&reslice, ends.first());
        const QPointF to = CoordinateMapper::_3D_To_2D_PlanarPoint(&reslice, ends.last());
        content.curves.append({{from, to}, segmentColour(), 3.0, false});
        sentence = QStringLiteral("The plane of the %1 cuts the %2 along a line of %3 mm.")
                       .arg(cutting.title.toLower(), shown.title.toLower(),
                            number(static_cast<double>((ends.last() - ends.first()).length()), 1));
    }
    told.say(sentence);
    const QRect box = crop(content);
    return {shown.id + QStringLiteral("-cut.png"),
            QStringLiteral("%1, cut by the %2").arg(shown.title, cutting.title.toLower()),
            QStringLiteral("<p>%1</p><p>%2</p>").arg(sentence, cropSentence(box, cut)),
            paintPicture(content)};
}

EdgeLetters edgesOf(const PlanarReslice& reslice, bool known)
{
    const QVector3D toTop =
        reslice.getDirection1(false) * (reslice.isMirroredVerticallyIn2D() ? -1.0F : 1.0F);
    const QVector3D toRight = reslice.getDirection0(false);
    return {directionLetters(-toRight, known), directionLetters(toRight, known),
            directionLetters(toTop, known), directionLetters(-toTop, known)};
}

} // namespace

Section createPanoramicSection(const Case& planned, Progress& progress)
{
    const GreyScale scale(planned.volume.image);
    const Sampler sampler(planned.volume);
    const bool known = planned.volume.orientationKnown;
    Told told;

    Section section;
    section.id = QStringLiteral("panoramic");
    section.title = QStringLiteral("Panoramic view, cuts and implants");
    const auto view = panorama(planned);
    if (view) {
        section.introductionHtml =
            QStringLiteral("<p>The arch unrolled: each pixel is mapped to its place on a surface "
                           "that stands upright on the "
                           "arch. What is known of landmarks, nerves and implants is mapped from "
                           "the world into the "
                           "view.</p>\n");
        const QList<PlacedImplant> implants = placeImplants(planned, *view->arch);
        section.pictures.append(
            panoramicPicture(planned, *view, implants, sampler, scale, progress, told));
        progress.step(QStringLiteral("Turning implants and cutting views"));
        for (const PlacedImplant& placed : implants)
            section.pictures.append(
                implantPicture(planned, placed, *view->arch, sampler, scale, told));
    } else {
        told.say(whyNoPanorama(planned));
        progress.step(QStringLiteral("Cutting views"));
    }
    const PlanarView axial = axialView(planned);
    const PlanarView oblique = obliqueView(planned);
    section.pictures.append(
        cutPicture(axial, oblique, edgesOf(*axial.reslice, known), sampler, scale, told));
    section.pictures.append(
        cutPicture(oblique, axial, edgesOf(*oblique.reslice, known), sampler, scale, told));
    progress.finish();
    section.detailsHtml = told.html;
    section.plainText = told.text;
    return section;
}

} // namespace planner
