// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

QString GuidingLine::getClassTypeId()
{
    return QStringLiteral("GuidingLine");
}

bool GuidingLine::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || DataObject::isOfType(classTypeId);
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

QVector3D GuidingLine::getUpperDirection() const
{
    return upperDirection;
}

void GuidingLine::setUpperDirection(const QVector3D& direction)
{
    upperDirection = direction;
    changed();
}

void GuidingLine::notifyGuidingLineObservers()
{
    events::GuidingLineEvent event;
    LineObservable::notify(&event);
}
