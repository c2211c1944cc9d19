// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>
#include <CoreAlgorithms/model/math/Spline3D.h>

#include <QMap>
#include <QMatrix4x4>
#include <QVector3D>

#include <memory>
#include <vector>

/// How does the arch of a jaw become another: rebuilt from plain data, a copy of another arch,
/// moved by a matrix?
///
/// The plain data are positions in world mm. A tooth of the arch is one of its control points,
/// tagged: a tooth position says which. Each operation rebuilds the spline while its observers are
/// not told and no undo is recorded. If there are points, notification is on afterwards, also if it
/// was off before, and each kind of observer is told once.
///
/// (1) copy() and transform() by the identity give the same points, tags, arch type and creation
/// type as the source. (2) getPointPositions() and getTeethPositions() of a spline give back what
/// update() was given, as far as each tooth
///     position is that of a control point and no two are equal.
///
/// Both hold for finite points of which no two are equal by qFuzzyCompare.
///
/// A spline without a curve model stays without one. Points and matrices that are not finite are
/// handed to the spline as they are; a tooth position with NaN is that of no point. Control points
/// that are null are left out.
class COREALGORITHMS_EXPORT PlanarDentalSplineUpdater
{
public:
    /// Rebuilds the spline from points in curve order and tags them. `curve` is handed over, null
    /// included; without points it and the last three values are all that changes.
    ///
    /// A point is tagged with the first tooth, in ascending order, whose position it has; teeth
    /// that match no point are not tagged. Positions are compared by qFuzzyCompare, but that of the
    /// last point exactly.
    static void update(PlanarDentalSpline& spline, const std::vector<QVector3D>& pointPositions,
                       const QMap<ToothChart::Tooth, QVector3D>& teethPositions, int occlusalIndex,
                       ToothChart::ArchType archType,
                       std::unique_ptr<math::Spline3DInterface> curve, CreationType creationType);

    /// Rebuilds the target from the source, with a clone of the source's curve model or of its own.
    static void copy(const PlanarDentalSpline& source, PlanarDentalSpline& target,
                     bool cloneSourceSpline);

    /// Moves the spline; the occlusal index is that given, not the spline's own.
    static void transform(PlanarDentalSpline& spline, const QMatrix4x4& matrix, int occlusalIndex);

    /// Of the control points, in curve order.
    static std::vector<QVector3D> getPointPositions(const PlanarDentalSpline& spline);
    static QMap<ToothChart::Tooth, QVector3D> getTeethPositions(const PlanarDentalSpline& spline);
};
