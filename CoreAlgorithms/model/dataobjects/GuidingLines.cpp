// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

#include <algorithm>
#include <utility>

namespace {

QList<QVector3D> mapped(const QList<QVector3D>& positions, const QMatrix4x4& matrix)
{
    QList<QVector3D> images(positions.size());
    std::transform(positions.begin(), positions.end(), images.begin(),
                   [&matrix](const QVector3D& position) { return matrix.map(position); });
    return images;
}

} // namespace

QVector3D Point::getPosition() const
{
    return position;
}

void Point::setPosition(const QVector3D& positionMm)
{
    position = positionMm;
    changed();
}

bool GuidingLine::canNotifyObservers() const
{
    return DataObject::canNotifyObservers();
}

const QList<QVector3D>& GuidingLine::getOriginalPath() const
{
    return path;
}

void GuidingLine::setOriginalPath(const QList<QVector3D>& samples)
{
    path = samples;
    changed();
    notifyGuidingLineObservers();
}

QList<std::shared_ptr<Point>> GuidingLine::getControlPoints() const
{
    return {};
}

QVector3D GuidingLine::getUpperDirection() const
{
    return upperDirection;
}

void GuidingLine::setUpperDirection(const QVector3D& direction)
{
    upperDirection = direction;
    changed();
}

QVector3D GuidingLine::getDirection(int pathIndex) const
{
    const QList<QVector3D>& samples = getOriginalPath();
    if (pathIndex < 0 || pathIndex >= samples.size())
        return {};
    const qsizetype before = std::max<qsizetype>(pathIndex - 1, 0);
    const qsizetype behind = std::min<qsizetype>(qsizetype(pathIndex) + 1, samples.size() - 1);
    return (samples[behind] - samples[before]).normalized();
}

QVector3D GuidingLine::getPerpendicularDirection(int pathIndex) const
{
    return QVector3D::crossProduct(getDirection(pathIndex), getUpperDirection()).normalized();
}

void GuidingLine::transformAndCreateNewPoints(const QMatrix4x4& matrix)
{
    setOriginalPath(mapped(getOriginalPath(), matrix));
}

void GuidingLine::notifyGuidingLineObservers()
{
    notifyLineObservers(events::GuidingLineEvent::PathChanged);
}

void GuidingLine::notifyLineObservers(events::GuidingLineEvent::Type type)
{
    events::GuidingLineEvent event{type};
    LineObservable::notify(&event);
}

GuidingSpline::GuidingSpline() : spline(std::make_unique<math::CatmullRomSpline3D>()) {}

const QList<QVector3D>& GuidingSpline::getOriginalPath() const
{
    if (pathIsStale) {
        QList<QVector3D> positions;
        positions.reserve(points.size());
        for (const auto& point : points)
            positions.append(point->getPosition());
        sampledPath = spline ? spline->sample(positions, sampleDistance) : QList<QVector3D>();
        pathIsStale = false;
    }
    return sampledPath;
}

void GuidingSpline::setOriginalPath(const QList<QVector3D>& samples)
{
    sampledPath = samples;
    pathIsStale = false;
    changed();
    notifyGuidingLineObservers();
}

QList<std::shared_ptr<Point>> GuidingSpline::getControlPoints() const
{
    return points;
}

void GuidingSpline::transformAndCreateNewPoints(const QMatrix4x4& matrix)
{
    if (points.isEmpty()) {
        GuidingLine::transformAndCreateNewPoints(matrix);
        return;
    }
    QList<std::shared_ptr<Point>> images;
    images.reserve(points.size());
    for (const auto& point : points)
        images.append(std::make_shared<Point>(matrix.map(point->getPosition())));
    replaceControlPoints(images);
    pointsChanged();
    notifyGuidingLineObservers();
}

const math::Spline3DInterface* GuidingSpline::getSpline() const
{
    return spline.get();
}

void GuidingSpline::setSpline(std::unique_ptr<math::Spline3DInterface> curve)
{
    spline = std::move(curve);
    pathIsStale = true;
}

float GuidingSpline::getSampleDistance() const
{
    return sampleDistance;
}

void GuidingSpline::setSampleDistance(float distanceMm)
{
    sampleDistance = distanceMm;
    pathIsStale = true;
}

std::shared_ptr<Point> GuidingSpline::appendControlPoint(const QVector3D& position)
{
    return append(position, false);
}

std::shared_ptr<Point> GuidingSpline::appendLastControlPoint(const QVector3D& position)
{
    return append(position, true);
}

bool GuidingSpline::isFinished() const
{
    return finished;
}

void GuidingSpline::removeControlPoint(const std::shared_ptr<Point>& point)
{
    if (!points.removeOne(point))
        return;
    finished = false;
    numberOfPointsChanged();
}

void GuidingSpline::clear()
{
    if (points.isEmpty())
        return;
    points.clear();
    finished = false;
    numberOfPointsChanged();
}

void GuidingSpline::pointsChanged()
{
    pathIsStale = true;
    changed();
}

void GuidingSpline::replaceControlPoints(const QList<std::shared_ptr<Point>>& replacements)
{
    points = replacements;
}

std::shared_ptr<Point> GuidingSpline::append(const QVector3D& position, bool last)
{
    auto point = std::make_shared<Point>(position);
    points.append(point);
    finished = last;
    numberOfPointsChanged();
    return point;
}

void GuidingSpline::numberOfPointsChanged()
{
    pathIsStale = true;
    changed();
    notifyLineObservers(events::GuidingLineEvent::NumberOfPointsUpdated);
}

std::shared_ptr<PlanarReslice> PlanarGuidingSpline::getPlane() const
{
    return plane;
}

void PlanarGuidingSpline::setPlane(std::shared_ptr<PlanarReslice> reslice)
{
    plane = std::move(reslice);
    changed();
}

QMap<ToothChart::Tooth, std::shared_ptr<Point>> PlanarDentalSpline::getObjects() const
{
    return teeth;
}

void PlanarDentalSpline::setTooth(ToothChart::Tooth tooth, const std::shared_ptr<Point>& point)
{
    if (point && !getControlPoints().contains(point))
        return;
    teeth.remove(tooth);
    if (point) {
        teeth.removeIf([&point](const auto& entry) { return entry.value() == point; });
        teeth.insert(tooth, point);
    }
    changed();
}

void PlanarDentalSpline::clear()
{
    teeth.clear();
    PlanarGuidingSpline::clear();
}

void PlanarDentalSpline::removeControlPoint(const std::shared_ptr<Point>& point)
{
    teeth.removeIf([&point](const auto& entry) { return entry.value() == point; });
    PlanarGuidingSpline::removeControlPoint(point);
}

void PlanarDentalSpline::replaceControlPoints(const QList<std::shared_ptr<Point>>& replacements)
{
    const QList<std::shared_ptr<Point>> former = getControlPoints();
    for (auto& point : teeth)
        point = replacements[former.indexOf(point)];
    PlanarGuidingSpline::replaceControlPoints(replacements);
}

int PlanarDentalSpline::getOcclusalIndex() const
{
    return occlusalIndex;
}

void PlanarDentalSpline::setOcclusalIndex(int sliceIndex)
{
    occlusalIndex = sliceIndex;
}

ToothChart::ArchType PlanarDentalSpline::getArchType() const
{
    return archType;
}

void PlanarDentalSpline::setArchType(ToothChart::ArchType arch)
{
    archType = arch;
}

CreationType PlanarDentalSpline::getCreationType() const
{
    return creationType;
}

void PlanarDentalSpline::setCreationType(CreationType type)
{
    creationType = type;
}
