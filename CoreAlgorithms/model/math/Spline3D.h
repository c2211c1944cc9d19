// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>

#include <QList>
#include <QVector3D>

#include <memory>

namespace math {

/// Kind and settings of a curve through control points. The control points belong to whoever owns
/// the curve (a guiding spline); the curve only says how to get from one to the next.
class COREALGORITHMS_MODEL_EXPORT Spline3DInterface
{
public:
    virtual ~Spline3DInterface();

    /// A new curve of the same kind and settings.
    virtual std::unique_ptr<Spline3DInterface> clone() const = 0;

    /// Samples along the curve, at equal steps of arc length in mm, from the first control point to
    /// the last, which is appended if the last step falls short of it, however little. Control
    /// points that repeat the one before them are left out.
    ///
    /// One control point is its own only sample. Empty if there is none, if a coordinate is not
    /// finite, if the step is not positive and finite, or beyond maximumControlPointCount() or
    /// maximumSampleCount().
    QList<QVector3D> sample(const QList<QVector3D>& controlPoints, float stepMm) const;

    static constexpr int maximumControlPointCount() { return 10'000; }
    static constexpr int maximumSampleCount() { return 1'000'000; }

protected:
    Spline3DInterface() = default;
    Spline3DInterface(const Spline3DInterface&) = default;
    Spline3DInterface& operator=(const Spline3DInterface&) = default;

    /// A chain of chords dense enough to stand for the curve, through at least two distinct, finite
    /// control points.
    virtual QList<QVector3D> flatten(const QList<QVector3D>& controlPoints) const = 0;
};

/// Straight lines from control point to control point.
class COREALGORITHMS_MODEL_EXPORT PolylineSpline3D : public Spline3DInterface
{
public:
    std::unique_ptr<Spline3DInterface> clone() const override;

protected:
    QList<QVector3D> flatten(const QList<QVector3D>& controlPoints) const override;
};

/// A smooth curve through all control points: the centripetal Catmull-Rom spline, which neither
/// overshoots into loops nor forms cusps between unevenly spaced points (Yuksel, Schaefer, Keyser:
/// Parameterization and applications of Catmull-Rom curves, 2011). At either end the missing
/// neighbour is the mirror image of the point next to the end.
class COREALGORITHMS_MODEL_EXPORT CatmullRomSpline3D : public Spline3DInterface
{
public:
    /// Chords between two control points that stand for the curve; clamped to 1 to 1000.
    explicit CatmullRomSpline3D(int chordsPerSegment = 64);

    int chordsPerSegment() const { return chords; }
    std::unique_ptr<Spline3DInterface> clone() const override;

protected:
    QList<QVector3D> flatten(const QList<QVector3D>& controlPoints) const override;

private:
    int chords;
};

} // namespace math
