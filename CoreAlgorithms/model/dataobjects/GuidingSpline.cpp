// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/GuidingSpline.h>

#include <utility>

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
