// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/ColormapFunctions.h>

#include <algorithm>
#include <cmath>

namespace colormap {

QUuid ColormapFunction::getUUID() const
{
    return uuid;
}

void ColormapFunction::setPreviewUpdateEnabledState(bool enabled, bool notifyIfChanged)
{
    const bool isOther = previewUpdateEnabled != enabled;
    previewUpdateEnabled = enabled;
    if (isOther && notifyIfChanged)
        changed();
}

bool ColormapFunction::isPreviewUpdateEnabled() const
{
    return previewUpdateEnabled;
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
