// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/planning/Panorama.h>

#include <planner/planning/Vectors.h>

#include <CoreAlgorithms/reslice/ImplantRotationCalculator.h>

#include <QMatrix4x4>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace planner {

namespace {

constexpr qsizetype kFewestPoints = 5;
constexpr double kShortestArchMm = 20.0; // five teeth
constexpr double kLongestArchMm = 600.0; // twice the way around a large jaw with both rami
constexpr float kPixelMm = 0.2F;
constexpr qsizetype kPixelsPerWideColumn = 25;
constexpr float kThicknessMm = 30.0F; // crowns, roots and canals of both jaws are within
constexpr float kBelowMm = 22.0F;     // shown below the lowest landmark
constexpr float kAboveMm = 28.0F;     // and above the highest
constexpr float kBehindMm = 14.0F; // the path goes on behind the foramina, to the back of the ramus
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
        std::ranges::reverse(points);
    return points;
}

// Every other one, so that the path follows the arch and not the teeth's own places.
QList<QVector3D> lowerTeeth(const Case& planned)
{
    QList<QVector3D> points;
    for (const char* fdi : {"47", "45", "43", "41", "31", "33", "35", "37"}) {
        const QString name = QStringLiteral("tooth %1").arg(QLatin1String(fdi));
        if (const Landmark* tooth = findLandmark(planned.landmarks, name))
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

// The points that lead the view, all at one height.
struct Lead
{
    QList<QVector3D> points;
    bool byArch = false;
    QString problem; ///< a sentence if they lead nowhere
};

Lead leadOf(const Case& planned)
{
    Lead lead;
    lead.points = archPoints(planned);
    lead.byArch = lead.points.size() >= kFewestPoints;
    if (!lead.byArch)
        lead.points = lowerTeeth(planned);
    if (lead.points.size() < kFewestPoints) {
        lead.problem =
            QStringLiteral("A panoramic view needs five arch points, or five of the lower teeth "
                           "47, 45, 43, 41, 31, 33, 35 and 37; fewer are known, so there is none.");
        return lead;
    }
    float height = 0.0F;
    for (const QVector3D& point : std::as_const(lead.points))
        height += point.z() / static_cast<float>(lead.points.size());
    extend(lead.points,
           findLandmark(planned.landmarks, QString::fromUtf16(kRightMandibularForamen)), true);
    extend(lead.points, findLandmark(planned.landmarks, QString::fromUtf16(kLeftMandibularForamen)),
           false);
    double length = 0.0;
    for (qsizetype i = 0; i < lead.points.size(); ++i) {
        lead.points[i].setZ(height);
        if (i > 0)
            length += (lead.points[i] - lead.points[i - 1]).length();
    }
    if (!(length >= kShortestArchMm && length <= kLongestArchMm))
        lead.problem = QStringLiteral("A panoramic view needs an arch of %1 to %2 mm; %3 make one "
                                      "of %4 mm, so there is none.")
                           .arg(kShortestArchMm)
                           .arg(kLongestArchMm)
                           .arg(lead.byArch ? QStringLiteral("the arch points")
                                            : QStringLiteral("the lower teeth"))
                           .arg(length, 0, 'f', 0);
    return lead;
}

} // namespace

QString whyNoPanorama(const Case& planned)
{
    return leadOf(planned).problem;
}

std::optional<Panorama> panorama(const Case& planned)
{
    const Lead lead = leadOf(planned);
    if (!lead.problem.isEmpty())
        return std::nullopt;
    const float height = lead.points.first().z();

    Panorama view;
    view.arch = std::make_shared<GuidingSpline>();
    view.arch->setSampleDistance(kPixelMm);
    for (const QVector3D& point : lead.points)
        view.arch->appendControlPoint(point);

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
                                       std::ceil((range.max - range.min) / kPixelMm)));
    view.place = QStringLiteral("Along %1 at z = %2 mm, from the patient's right to the left.")
                     .arg(lead.byArch ? QStringLiteral("the arch points")
                                      : QStringLiteral("the lower teeth"))
                     .arg(height, 0, 'f', 1);
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
    wide->setDimensions(
        QSizeF(static_cast<double>(path.size() - 1), reslice.getDimensions().height()));
    return wide;
}

std::shared_ptr<dataobject::Implant3D> implantAt(const Case& planned, const QString& fdi)
{
    const Landmark* crown = findLandmark(planned.landmarks, QStringLiteral("tooth %1").arg(fdi));
    const Landmark* apex =
        findLandmark(planned.landmarks, QStringLiteral("tooth %1, apex").arg(fdi));
    if (!crown || !apex)
        return nullptr;
    const QVector3D z = (crown->position - apex->position).normalized();
    const QVector3D x = QVector3D::crossProduct(QVector3D(0.0F, 1.0F, 0.0F), z).normalized();
    const QVector3D y = QVector3D::crossProduct(z, x);
    const QVector3D platform = apex->position + z * (kApexToImplantMm + kImplantLengthMm);
    auto implant = std::make_shared<dataobject::Implant3D>();
    implant->setDimensions({kImplantDiameterMm, kImplantLengthMm});
    implant->setObjectTransform(frameOf(x, y, z, platform));
    return implant;
}

double turnSquare(dataobject::Implant3D& implant, GuidingLine& arch)
{
    const QMatrix4x4 placement = implant.getObjectTransform();
    const QMatrix4x4 rotation = implantRotationCalculator::calculatePerpendicularRotation(
        arch, placement.column(3).toVector3D(), placement);
    implant.setObjectTransform(placement * rotation, TransformManipulationType::Rotation);
    return std::atan2(static_cast<double>(rotation(1, 0)), static_cast<double>(rotation(0, 0))) *
           180.0 / std::numbers::pi;
}

QList<TurnedImplant> placeTurnedImplants(const Case& planned, GuidingLine& arch)
{
    QList<TurnedImplant> placed;
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

} // namespace planner
