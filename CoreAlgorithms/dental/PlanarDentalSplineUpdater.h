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

/// Rebuilds the dental arch of a jaw from plain data, from another arch, or moved by a matrix.
///
/// The plain data are positions in world mm. Each tooth of an arch is one of its control points,
/// which is tagged with the tooth. Each operation rebuilds the spline with notifications and undo
/// recording disabled. If there are points, it then switches notification on, also if it was off
/// before, and notifies each kind of observer once.
///
/// Example (examples/move_an_arch.cpp):
/// \code
/// PlanarDentalSpline arch;
/// PlanarDentalSplineUpdater::update(arch, points, teeth, 40, ToothChart::UpperArch,
///                                   std::make_unique<math::CatmullRomSpline3D>(),
///                                   ManuallyCreated);
/// PlanarDentalSpline moved;
/// PlanarDentalSplineUpdater::copy(arch, moved, true);
/// PlanarDentalSplineUpdater::transform(moved, movement, 47);
/// const auto movedTeeth = PlanarDentalSplineUpdater::getTeethPositions(moved);
/// \endcode
///
/// (1) copy() and transform() by the identity give the same points, tags, arch type and creation
///     type as the source.
/// (2) getPointPositions() and getTeethPositions() of a spline return what update() was given, as
///     far as each tooth position is that of a control point and no two are equal.
///
/// Both laws hold for finite points of which no two are equal by qFuzzyCompare.
///
/// A spline without a curve model stays without one. Points and matrices that are not finite are
/// passed to the spline unchanged; a tooth position with NaN matches no point. Control points that
/// are null are skipped.
class COREALGORITHMS_EXPORT PlanarDentalSplineUpdater
{
public:
    /// Rebuilds the spline from points in curve order and tags them. The spline takes ownership of
    /// `curve`, which may be null. Without points, only the curve, the occlusal index and the two
    /// types change.
    ///
    /// A point is tagged with the first tooth, in ascending order, that has the same position;
    /// teeth that match no point are ignored. Positions are compared by qFuzzyCompare, but that of
    /// the last point exactly.
    static void update(PlanarDentalSpline& spline, const std::vector<QVector3D>& pointPositions,
                       const QMap<ToothChart::Tooth, QVector3D>& teethPositions, int occlusalIndex,
                       ToothChart::ArchType archType,
                       std::unique_ptr<math::Spline3DInterface> curve, CreationType creationType);

    /// Rebuilds the target from the source, with a clone of the source's curve model if
    /// `cloneSourceSpline` is set, else of the target's own.
    static void copy(const PlanarDentalSpline& source, PlanarDentalSpline& target,
                     bool cloneSourceSpline);

    /// Moves the spline by the matrix and sets its occlusal index to the given one.
    static void transform(PlanarDentalSpline& spline, const QMatrix4x4& matrix, int occlusalIndex);

    /// Returns the positions of the control points, in curve order.
    static std::vector<QVector3D> getPointPositions(const PlanarDentalSpline& spline);
    /// Returns the positions of the tagged points by tooth.
    static QMap<ToothChart::Tooth, QVector3D> getTeethPositions(const PlanarDentalSpline& spline);
};
