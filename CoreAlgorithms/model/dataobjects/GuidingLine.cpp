// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/GuidingLine.h>

#include <algorithm>

namespace {

QList<QVector3D> mapped(const QList<QVector3D>& positions, const QMatrix4x4& matrix)
{
    QList<QVector3D> images(positions.size());
    std::transform(positions.begin(), positions.end(), images.begin(),
                   [&matrix](const QVector3D& position) { return matrix.map(position); });
    return images;
}

} // namespace

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
