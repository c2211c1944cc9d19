// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>

#include <algorithm>
#include <cmath>

namespace colormap {

QString ColormapFunction::getClassTypeId()
{
    return QStringLiteral("ColormapFunction");
}

bool ColormapFunction::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || DataObject::isOfType(classTypeId);
}

QUuid ColormapFunction::getUUID() const
{
    return uuid;
}

void ColormapFunction::setPreviewUpdateEnabledState(bool enabled, bool tellObservers)
{
    const bool isOther = previewUpdateEnabled != enabled;
    previewUpdateEnabled = enabled;
    if (isOther && tellObservers)
        changed();
}

bool ColormapFunction::isPreviewUpdateEnabled() const
{
    return previewUpdateEnabled;
}

QString LevelWindowFunction::getClassTypeId()
{
    return QStringLiteral("LevelWindowFunction");
}

bool LevelWindowFunction::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || ColormapFunction::isOfType(classTypeId);
}

QString ThresholdFunction::getClassTypeId()
{
    return QStringLiteral("ThresholdFunction");
}

bool ThresholdFunction::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || ColormapFunction::isOfType(classTypeId);
}

QString PulpFunction::getClassTypeId()
{
    return QStringLiteral("PulpFunction");
}

bool PulpFunction::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || ColormapFunction::isOfType(classTypeId);
}

float PulpFunction::getNormalizedPulpThreshold() const
{
    return pulpThreshold;
}

void PulpFunction::setNormalizedPulpThreshold(float threshold)
{
    pulpThreshold = threshold;
    changed();
}

float PulpFunction::getNormalizedRestorationMaterialThreshold() const
{
    return restorationMaterialThreshold;
}

void PulpFunction::setNormalizedRestorationMaterialThreshold(float threshold)
{
    restorationMaterialThreshold = threshold;
    changed();
}

QString TransferFunction::getClassTypeId()
{
    return QStringLiteral("TransferFunction");
}

bool TransferFunction::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || ColormapFunction::isOfType(classTypeId);
}

QList<TransferFunction::ControlPoint> TransferFunction::getControlPoints() const
{
    return points;
}

void TransferFunction::setControlPoints(const QList<ControlPoint>& controlPoints)
{
    points = controlPoints;
    changed();
}

void TransferFunction::panFunction(float greyValues)
{
    for (ControlPoint& point : points)
        point.greyValue += greyValues;
    changed();
}

void TransferFunction::stretchFunction(float greyValues)
{
    if (points.isEmpty())
        return;
    constexpr float shortest = 1.0F;
    const float first = points.first().greyValue;
    const float length = points.last().greyValue - first;
    if (!(length > 0.0F) || !std::isfinite(length) || !std::isfinite(greyValues))
        return;
    const float middle = first + length * 0.5F;
    const float factor = std::max(length + greyValues, shortest) / length;
    for (ControlPoint& point : points)
        point.greyValue = middle + (point.greyValue - middle) * factor;
    changed();
}

} // namespace colormap
