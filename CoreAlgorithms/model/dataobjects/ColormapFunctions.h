// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QColor>
#include <QList>
#include <QUuid>

namespace colormap {

/// How grey values become colours in a view of a volume. What kind of function it is, isOfType()
/// tells.
class COREALGORITHMS_MODEL_EXPORT ColormapFunction : public DataObject
{
    COREALGORITHMS_TYPE(ColormapFunction, DataObject)

public:
    /// Its own from birth, never that of another function.
    virtual QUuid getUUID() const;

    /// While enabled, views show changes of the function in their coarse preview only. With
    /// `tellObservers` the observers are told, if the state is another than before.
    virtual void setPreviewUpdateEnabledState(bool enabled, bool tellObservers);
    virtual bool isPreviewUpdateEnabled() const;

private:
    QUuid uuid = QUuid::createUuid();
    bool previewUpdateEnabled = false;
};

/// Brightness by level and window of the maximum-intensity projection, which the volume holds.
class COREALGORITHMS_MODEL_EXPORT LevelWindowFunction : public ColormapFunction
{
    COREALGORITHMS_TYPE(LevelWindowFunction, ColormapFunction)
};

/// Opaque from a threshold on, which the volume holds under the function's UUID.
class COREALGORITHMS_MODEL_EXPORT ThresholdFunction : public ColormapFunction
{
    COREALGORITHMS_TYPE(ThresholdFunction, ColormapFunction)
};

/// Shows pulp below one threshold and restoration material above another. Both are normalised: 0 is
/// the smallest grey value of the image, 1 the largest. Stored as set.
class COREALGORITHMS_MODEL_EXPORT PulpFunction : public ColormapFunction
{
    COREALGORITHMS_TYPE(PulpFunction, ColormapFunction)

public:
    virtual float getNormalizedPulpThreshold() const;
    virtual void setNormalizedPulpThreshold(float threshold);
    virtual float getNormalizedRestorationMaterialThreshold() const;
    virtual void setNormalizedRestorationMaterialThreshold(float threshold);

private:
    float pulpThreshold = 0.0F;
    float restorationMaterialThreshold = 1.0F;
};

/// Colours at control points, in ascending grey values, between which it is interpolated.
class COREALGORITHMS_MODEL_EXPORT TransferFunction : public ColormapFunction
{
    COREALGORITHMS_TYPE(TransferFunction, ColormapFunction)

public:
    struct ControlPoint
    {
        float greyValue = 0.0F;
        QColor colour;

        friend bool operator==(const ControlPoint&, const ControlPoint&) = default;
    };

    virtual QList<ControlPoint> getControlPoints() const;
    virtual void setControlPoints(const QList<ControlPoint>& controlPoints);

    /// Moves every control point by as many grey values.
    virtual void panFunction(float greyValues);
    /// Lengthens the distance from the first to the last control point by as many grey values,
    /// round their middle. It never becomes shorter than 1; where it is zero or not finite, nothing
    /// happens.
    virtual void stretchFunction(float greyValues);

private:
    QList<ControlPoint> points;
};

} // namespace colormap
