// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>

#include <QList>
#include <QVector3D>

#include <memory>

namespace math {

/// Represents the kind and the settings of a curve through control points. The control points
/// belong to the owner of the curve, such as a guiding spline.
class COREALGORITHMS_MODEL_EXPORT Spline3DInterface
{
public:
    virtual ~Spline3DInterface();

    /// Returns a new curve of the same kind and settings.
    virtual std::unique_ptr<Spline3DInterface> clone() const = 0;

    /// Returns samples along the curve at equal steps of arc length in mm, from the first control
    /// point to the last. The last one is appended if the last step falls short of it by any
    /// amount. Control points that repeat the previous one are skipped. A single control point is
    /// its own only sample.
    ///
    /// Returns an empty list without control points, if a coordinate is not finite, if the step is
    /// not positive and finite, and beyond maximumControlPointCount() or maximumSampleCount().
    QList<QVector3D> sample(const QList<QVector3D>& controlPoints, float stepMm) const;

    /// Returns the largest number of control points that sample() accepts.
    static constexpr int maximumControlPointCount() { return 10'000; }
    /// Returns the largest number of samples that sample() returns.
    static constexpr int maximumSampleCount() { return 1'000'000; }

protected:
    Spline3DInterface() = default;
    Spline3DInterface(const Spline3DInterface&) = default;
    Spline3DInterface& operator=(const Spline3DInterface&) = default;

    /// Returns a chain of chords that approximates the curve through at least two distinct, finite
    /// control points.
    virtual QList<QVector3D> flatten(const QList<QVector3D>& controlPoints) const = 0;
};

/// Draws straight lines from control point to control point.
class COREALGORITHMS_MODEL_EXPORT PolylineSpline3D : public Spline3DInterface
{
public:
    std::unique_ptr<Spline3DInterface> clone() const override;

protected:
    QList<QVector3D> flatten(const QList<QVector3D>& controlPoints) const override;
};

/// Draws a smooth curve through all control points: the centripetal Catmull-Rom spline, which has
/// neither loops nor cusps between unevenly spaced points (Yuksel, Schaefer, Keyser:
/// Parameterization and applications of Catmull-Rom curves, 2011). At both ends the missing
/// neighbor is the mirror image of the point next to the end.
class COREALGORITHMS_MODEL_EXPORT CatmullRomSpline3D : public Spline3DInterface
{
public:
    /// Constructs a curve that is approximated by this number of chords between two control points,
    /// clamped to 1 to 1000.
    explicit CatmullRomSpline3D(int chordsPerSegment = 64);

    /// Returns the number of chords between two control points.
    int chordsPerSegment() const { return chords; }
    std::unique_ptr<Spline3DInterface> clone() const override;

protected:
    QList<QVector3D> flatten(const QList<QVector3D>& controlPoints) const override;

private:
    int chords;
};

} // namespace math
