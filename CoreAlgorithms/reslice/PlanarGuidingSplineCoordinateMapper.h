// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/math/Plane.h>
#include <CoreAlgorithms/model/patterns/Observer.h>

#include <QPointF>
#include <QVector3D>

#include <cstdint>
#include <optional>

class PlanarReslice;

/// Maps clicks in a view onto the plane of a drawn spline, so that the points of the spline stay in
/// one plane although the view moves.
///
/// The mapper keeps the plane of least squares through the spline's control points;
/// algebra::fitPlane() says how many points that takes. It observes the spline. On an event of type
/// NumberOfPointsUpdated, with
///     more points than before      the plane stays where the first points put it,
///                                  or is fitted if there is none
///     as many points, or fewer     the plane is fitted again, and is gone if too few are left
/// Other events change nothing.
///
/// The spline must live as long as events and the private hooks are called; once it is gone the
/// mapper is detached and keeps its plane. World points are in mm, view points as for
/// CoordinateMapper.
class COREALGORITHMS_EXPORT PlanarGuidingSplineCoordinateMapper
    : public patterns::Observer<GuidingLine, events::GuidingLineEvent>
{
public:
    /// Fits the plane and attaches the mapper to the spline's observers of guiding lines.
    explicit PlanarGuidingSplineCoordinateMapper(PlanarGuidingSpline& observedSpline);
    PlanarGuidingSplineCoordinateMapper(const PlanarGuidingSplineCoordinateMapper&) = delete;
    PlanarGuidingSplineCoordinateMapper&
    operator=(const PlanarGuidingSplineCoordinateMapper&) = delete;
    ~PlanarGuidingSplineCoordinateMapper() override;

    /// Returns CoordinateMapper::_3D_To_2D_PlanarPoint() of the world point. The fitted plane is
    /// ignored.
    QPointF mapToReslice(const PlanarReslice& reslice, const QVector3D& point);

    /// Returns the world point of a view point, moved onto the fitted plane by
    /// CoordinateMapper::map2DPointTo3DPointOnPlane(). Without a plane, returns the point on the
    /// reslice.
    QVector3D mapToSplinePlane(const PlanarReslice& reslice, const QPointF& point);

private:
    friend struct PlanarGuidingSplineCoordinateMapperTestAccess;

    void changedEvent(GuidingLine* line, events::GuidingLineEvent* event) override;

    /// Applies the rule for NumberOfPointsUpdated and stores the number of points. Hosts may call
    /// this hook and the two below instead of sending an event.
    void onNumberOfPointsUpdated();
    /// Fits the plane if there is none. Does not change the stored number of points.
    void onPointAdded();
    /// Fits the plane. Does not change the stored number of points.
    void onPointRemoved();

    void fitPlane();

    PlanarGuidingSpline& spline; // not owned
    std::int32_t fittedPointCount;
    std::optional<primitives::Plane> splinePlane;
};
