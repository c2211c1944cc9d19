// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/Panorama.h>

#include <CoreAlgorithms/reslice/ImplantRotationCalculator.h>

#include <QMatrix4x4>
#include <QVector4D>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace planner {

namespace {

constexpr qsizetype kFewestPoints = 5;
constexpr float kPixelMm = 0.2F;
constexpr qsizetype kPixelsPerWideColumn = 25;
constexpr float kThicknessMm = 30.0F; // of the slab: crowns, roots and canals of both jaws lie within
constexpr float kBelowMm = 22.0F;     // shown below the lowest landmark
constexpr float kAboveMm = 28.0F;     // and above the highest
constexpr float kBehindMm = 14.0F;    // the path goes on behind the foramina, to the back of the ramus
constexpr float kImplantLengthMm = 10.0F;
constexpr float kImplantDiameterMm = 4.1F;
constexpr float kApexToImplantMm = 1.0F; // the implant ends short of where the root did

QList<QVector3D> archPoints(const Case& planned)
{
    QList<QVector3D> points;
    for (const Landmark& landmark : planned.landmarks) {
        if (landmark.kind == LandmarkKind::Arch)
            points.append(landmark.position);
    }
    if (!points.isEmpty() && points.first().x() > points.last().x())
        std::reverse(points.begin(), points.end());
    return points;
}

// Every other one, so that the path follows the arch and not the teeth's own places.
QList<QVector3D> lowerTeeth(const Case& planned)
{
    QList<QVector3D> points;
    for (const char* fdi : {"47", "45", "43", "41", "31", "33", "35", "37"}) {
        const auto tooth = std::find_if(
            planned.landmarks.cbegin(), planned.landmarks.cend(), [fdi](const Landmark& landmark) {
                return landmark.kind == LandmarkKind::Tooth && landmark.label == QLatin1String(fdi);
            });
        if (tooth != planned.landmarks.cend())
            points.append(tooth->position);
    }
    return points;
}

// Goes on to the foramen, if it lies behind the end of the arch, and straight back from there.
void extend(QList<QVector3D>& points, const Landmark* foramen, bool atTheFront)
{
    const auto add = [&points, atTheFront](const QVector3D& point) {
        atTheFront ? points.prepend(point) : points.append(point);
    };
    const QVector3D end = atTheFront ? points.first() : points.last();
    if (!foramen || foramen->position.y() <= end.y())
        return;
    add(foramen->position);
    const QVector3D direction = (foramen->position - end).normalized();
    add(foramen->position + direction * kBehindMm);
}

} // namespace

std::optional<Panorama> panorama(const Case& planned)
{
    QList<QVector3D> points = archPoints(planned);
    const bool byArch = points.size() >= kFewestPoints;
    if (!byArch)
        points = lowerTeeth(planned);
    if (points.size() < kFewestPoints)
        return std::nullopt;

    float height = 0.0F;
    for (const QVector3D& point : std::as_const(points))
        height += point.z() / static_cast<float>(points.size());
    extend(points, findLandmark(planned.landmarks, QString::fromUtf16(kRightMandibularForamen)), true);
    extend(points, findLandmark(planned.landmarks, QString::fromUtf16(kLeftMandibularForamen)), false);

    Panorama view;
    view.arch = std::make_shared<GuidingSpline>();
    view.arch->setSampleDistance(kPixelMm);
    for (const QVector3D& point : std::as_const(points))
        view.arch->appendControlPoint({point.x(), point.y(), height});

    const auto [lowest, highest] = std::minmax_element(
        planned.landmarks.cbegin(), planned.landmarks.cend(),
        [](const Landmark& a, const Landmark& b) { return a.position.z() < b.position.z(); });
    const math::Range<float> range{lowest->position.z() - kBelowMm - height,
                                   highest->position.z() + kAboveMm - height};
    const QList<QVector3D>& path = view.arch->getOriginalPath();
    view.reslice = std::make_shared<PanoramicReslice>();
    view.reslice->setPath(path);
    view.reslice->setGuidingLine(view.arch);
    view.reslice->setVerticalRange(range);
    view.reslice->setType(ThickSlab);
    view.reslice->setThickness(kThicknessMm);
    view.reslice->setSampleSize({kPixelMm, kPixelMm, kPixelMm});
    // The last sample closes the last column.
    view.reslice->setDimensions(QSizeF(static_cast<double>(path.size() - 1),
                                       std::ceil(static_cast<double>((range.max - range.min) / kPixelMm))));
    view.place = QStringLiteral("Along %1 at z = %2 mm, from the patient's right to the left.")
                     .arg(byArch ? QStringLiteral("the arch points") : QStringLiteral("the lower teeth"))
                     .arg(static_cast<double>(height), 0, 'f', 1);
    return view;
}

std::shared_ptr<PanoramicReslice> withWideColumns(const PanoramicReslice& reslice)
{
    const QList<QVector3D> fine = reslice.getPath();
    QList<QVector3D> path;
    for (qsizetype i = 0; i < fine.size(); i += kPixelsPerWideColumn)
        path.append(fine[i]);
    auto wide = std::make_shared<PanoramicReslice>();
    wide->setPath(path);
    wide->setGuidingLine(reslice.getGuidingLine());
    wide->setVerticalRange(reslice.getVerticalRange());
    wide->setType(ThickSlab);
    wide->setThickness(reslice.getThickness());
    QVector3D size = reslice.getSampleSize();
    size.setX(size.x() * static_cast<float>(kPixelsPerWideColumn));
    wide->setSampleSize(size);
    wide->setDimensions(QSizeF(static_cast<double>(path.size() - 1), reslice.getDimensions().height()));
    return wide;
}

std::shared_ptr<dataobject::Implant3D> implantAt(const Case& planned, const QString& fdi)
{
    const Landmark* crown = findLandmark(planned.landmarks, QStringLiteral("tooth %1").arg(fdi));
    const Landmark* apex = findLandmark(planned.landmarks, QStringLiteral("tooth %1, apex").arg(fdi));
    if (!crown || !apex)
        return nullptr;
    const QVector3D z = (crown->position - apex->position).normalized();
    const QVector3D x = QVector3D::crossProduct(QVector3D(0.0F, 1.0F, 0.0F), z).normalized();
    const QVector3D y = QVector3D::crossProduct(z, x);
    QMatrix4x4 placement;
    placement.setColumn(0, QVector4D(x, 0.0F));
    placement.setColumn(1, QVector4D(y, 0.0F));
    placement.setColumn(2, QVector4D(z, 0.0F));
    placement.setColumn(
        3, QVector4D(apex->position + z * (kApexToImplantMm + kImplantLengthMm), 1.0F)); // the platform
    auto implant = std::make_shared<dataobject::Implant3D>();
    implant->setDimensions({kImplantDiameterMm, kImplantLengthMm});
    implant->setObjectTransform(placement);
    return implant;
}

double turnSquare(dataobject::Implant3D& implant, GuidingLine& arch)
{
    const QMatrix4x4 placement = implant.getObjectTransform();
    const QMatrix4x4 rotation = implantRotationCalculator::calculatePerpendicularRotation(
        arch, placement.column(3).toVector3D(), placement);
    implant.setObjectTransform(placement * rotation, TransformManipulationType::Rotation);
    return std::atan2(static_cast<double>(rotation(1, 0)), static_cast<double>(rotation(0, 0))) * 180.0 /
           std::numbers::pi;
}

} // namespace planner
