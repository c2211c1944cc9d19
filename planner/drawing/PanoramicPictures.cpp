// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/drawing/PanoramicPictures.h>

#include <planner/drawing/GreyScale.h>
#include <planner/drawing/Sampling.h>

#include <CoreAlgorithms/reslice/CoordinateMapper.h>
#include <CoreAlgorithms/reslice/ImageBoundingBoxCalculator.h>
#include <CoreAlgorithms/reslice/IntersectionCalculator.h>

#include <algorithm>
#include <cmath>

namespace planner {

namespace {

constexpr float kStepMm = 0.25F; // of lines that are bent onto the surface
constexpr float kCloseUpMm = 26.0F;
constexpr float kCloseUpPixelMm = 0.05F;
constexpr int kAir = 12; // brightness up to which a pixel of a cut counts as air
const QColor kNerveColor(0xff, 0xd2, 0x3f);
const QColor kImplantColor(0x6c, 0xf0, 0xc2);
const QColor kBeforeColor(0xff, 0x7a, 0x59);
const QColor kArchColor(0x62, 0xd0, 0x72);

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

// A world line bent onto the surface, as far as it lies in the slab: a curve for each part of it.
QList<PictureCurve> bent(const QList<QVector3D>& line, const PanoramicReslice& reslice,
                         const QColor& color, double width)
{
    QList<PictureCurve> curves;
    bool open = false;
    const auto add = [&](const QVector3D& point) {
        bool inPlane = false;
        bool inSlice = false;
        const QPointF inView =
            CoordinateMapper::_3D_To_2D_Panoramic(&reslice, point, inPlane, inSlice, false);
        if (inPlane && !open)
            curves.append({{}, color, width, true});
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
void append(QList<PictureCurve>& curves, const QLineF& line, const QColor& color, double width)
{
    if (curves.isEmpty() || curves.last().inView.last() != line.p1())
        curves.append({{line.p1()}, color, width, false});
    curves.last().inView.append(line.p2());
}

// Its parts within one column's width of the surface.
QList<PictureCurve> nearSurface(const QList<QVector3D>& line, const PanoramicReslice& reslice,
                                const QColor& color, double width)
{
    QList<PictureCurve> curves;
    for (qsizetype i = 0; i + 1 < line.size(); ++i) {
        for (const QLineF& part : CoordinateMapper::_3D_To_2D_Line_Panoramic(
                 &reslice, line[i], line[i + 1], false, kStepMm))
            append(curves, part, color, width);
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

// The view from above, square with the picture's edges.
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

// A square around the implant's platform and an arrow along its local y axis.
QList<PictureCurve> footprint(const QMatrix4x4& placement, float diameter,
                              const PlanarReslice& reslice, const QColor& color, bool dotted)
{
    const auto at = [&](float x, float y) {
        return CoordinateMapper::_3D_To_2D_PlanarPoint(&reslice,
                                                       placement.map(QVector3D(x, y, 0.0F)));
    };
    const float r = diameter / 2.0F;
    const float tip = diameter * 1.6F;
    return {{{at(-r, -r), at(r, -r), at(r, r), at(-r, r), at(-r, -r)}, color, 3.0, dotted},
            {{at(0.0F, 0.0F), at(0.0F, tip)}, color, 3.0, dotted},
            {{at(-r * 0.4F, tip - r * 0.6F), at(0.0F, tip), at(r * 0.4F, tip - r * 0.6F)},
             color,
             3.0,
             false}};
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

} // namespace

PanoramicPicture::PanoramicPicture(const Case& planned, const Panorama& view,
                                   const Sampler& sampler, const GreyScale& scale,
                                   const std::function<void(double)>& progress)
    : reslice(*view.reslice),
      wide(withWideColumns(reslice)),
      content{unroll(sampler, scale, reslice, kShownDepthMm, progress),
              reslice.getSampleSize(),
              edgesOf({1.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F}, planned.volume.orientationKnown),
              mapOntoPanoramic(onTheirTeeth(planned.landmarks), reslice),
              std::nullopt,
              true,
              true}
{}

LengthsInView PanoramicPicture::addNerve(const CanalLine& canal)
{
    const QList<PictureCurve> nerve = bent(canal.points, reslice, kNerveColor, 2.0);
    const QList<PictureCurve> near = nearSurface(canal.points, *wide, kNerveColor, 3.0);
    content.curves += nerve;
    content.curves += near;
    return {lengthOf(nerve), lengthOf(near)};
}

void PanoramicPicture::addImplant(const dataobject::Implant3D& implant)
{
    for (const QList<QVector3D>& line : linesOf(implant)) {
        content.curves += bent(line, reslice, kImplantColor, 2.0);
        content.curves += nearSurface(line, *wide, kImplantColor, 2.5);
    }
}

QRect PanoramicPicture::paint(QImage& image)
{
    const QRect box = crop(content);
    image = paintPicture(content);
    return box;
}

QImage paintTurn(const Case& planned, const TurnedImplant& turned, const GuidingLine& arch,
                 const Sampler& sampler, const GreyScale& scale)
{
    const QMatrix4x4& after = turned.implant->getObjectTransform();
    const auto reslice = closeUpAt(after.column(3).toVector3D());
    const float diameter = turned.implant->getDimensions().diameter;
    PictureContent content{cutOut(sampler, scale, *reslice),
                           reslice->getSampleSize(),
                           edgesOf(*reslice, planned.volume.orientationKnown),
                           {},
                           std::nullopt,
                           false};
    PictureCurve path{{}, kArchColor, 2.0, true};
    for (const QVector3D& sample : arch.getOriginalPath())
        path.inView.append(CoordinateMapper::_3D_To_2D_PlanarPoint(reslice.get(), sample));
    content.curves.append(path);
    content.curves += footprint(turned.before, diameter, *reslice, kBeforeColor, true);
    content.curves += footprint(after, diameter, *reslice, kImplantColor, false);
    return paintPicture(content);
}

CutView paintCut(PlanarReslice& reslice, const PlanarReslice& cutting, bool orientationKnown,
                 const Sampler& sampler, const GreyScale& scale)
{
    const QList<QVector3D> ends = IntersectionCalculator::calculatePlaneIntersections(
        cutting.getOrigin(),
        QVector3D::crossProduct(cutting.getDirection0(false), cutting.getDirection1(false)),
        &reslice);
    const QImage cut = cutOut(sampler, scale, reslice);
    PictureContent content{withoutAir(cut),
                           reslice.getSampleSize(),
                           edgesOf(reslice, orientationKnown),
                           {},
                           std::nullopt,
                           false};
    CutView view;
    view.whole = cut.size();
    if (ends.size() >= 2) {
        content.curves.append({{CoordinateMapper::_3D_To_2D_PlanarPoint(&reslice, ends.first()),
                                CoordinateMapper::_3D_To_2D_PlanarPoint(&reslice, ends.last())},
                               segmentColor(),
                               3.0,
                               false});
        view.lineMm = (ends.last() - ends.first()).length();
    }
    view.shown = crop(content);
    view.image = paintPicture(content);
    return view;
}

} // namespace planner
