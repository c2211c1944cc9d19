// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QColor>
#include <QList>
#include <QUuid>

namespace colormap {

/// Maps grey values to colors in a view of a volume. isOfType() returns of which kind a function
/// is.
class COREALGORITHMS_MODEL_EXPORT ColormapFunction : public DataObject
{
    COREALGORITHMS_TYPE(ColormapFunction, DataObject)

public:
    /// Returns the identifier that the function got at construction. No other function has it.
    virtual QUuid getUUID() const;

    /// Sets whether views show changes of the function only in their coarse preview. Notifies the
    /// observers if `notifyIfChanged` is true and the state changes.
    virtual void setPreviewUpdateEnabledState(bool enabled, bool notifyIfChanged);
    /// Returns true while views show changes only in their coarse preview; false at first.
    virtual bool isPreviewUpdateEnabled() const;

private:
    QUuid uuid = QUuid::createUuid();
    bool previewUpdateEnabled = false;
};

/// Sets brightness by the level and window of the maximum-intensity projection, which the volume
/// holds.
class COREALGORITHMS_MODEL_EXPORT LevelWindowFunction : public ColormapFunction
{
    COREALGORITHMS_TYPE(LevelWindowFunction, ColormapFunction)
};

/// Shows grey values opaque from a threshold on, which the volume holds under the UUID of the
/// function.
class COREALGORITHMS_MODEL_EXPORT ThresholdFunction : public ColormapFunction
{
    COREALGORITHMS_TYPE(ThresholdFunction, ColormapFunction)
};

/// Shows pulp below one threshold and restoration material above another. Both are normalized: 0 is
/// the smallest grey value of the image, and 1 is the largest.
class COREALGORITHMS_MODEL_EXPORT PulpFunction : public ColormapFunction
{
    COREALGORITHMS_TYPE(PulpFunction, ColormapFunction)

public:
    /// Returns the normalized threshold of pulp; 0 at first.
    virtual float getNormalizedPulpThreshold() const;
    /// Sets the normalized threshold of pulp, stored as given. Notifies the observers.
    virtual void setNormalizedPulpThreshold(float threshold);
    /// Returns the normalized threshold of restoration material; 1 at first.
    virtual float getNormalizedRestorationMaterialThreshold() const;
    /// Sets the normalized threshold of restoration material, stored as given. Notifies the
    /// observers.
    virtual void setNormalizedRestorationMaterialThreshold(float threshold);

private:
    float pulpThreshold = 0.0F;
    float restorationMaterialThreshold = 1.0F;
};

/// Interpolates colors between control points in ascending grey values.
class COREALGORITHMS_MODEL_EXPORT TransferFunction : public ColormapFunction
{
    COREALGORITHMS_TYPE(TransferFunction, ColormapFunction)

public:
    struct ControlPoint
    {
        float greyValue = 0.0F;
        QColor color;

        friend bool operator==(const ControlPoint&, const ControlPoint&) = default;
    };

    /// Returns the control points.
    virtual QList<ControlPoint> getControlPoints() const;
    /// Replaces the control points, stored as given. Notifies the observers.
    virtual void setControlPoints(const QList<ControlPoint>& controlPoints);

    /// Moves every control point by this number of grey values. Notifies the observers.
    virtual void panFunction(float greyValues);
    /// Lengthens the distance from the first to the last control point by this number of grey
    /// values, around their middle, to no less than 1. Notifies the observers. Does nothing if the
    /// distance is not positive, or if it or the number is not finite.
    virtual void stretchFunction(float greyValues);

private:
    QList<ControlPoint> points;
};

} // namespace colormap
