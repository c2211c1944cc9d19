// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/reslice/PlanarGuidingSplineCoordinateMapper.h>

#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/linearalgebra/PlaneFit.h>
#include <CoreAlgorithms/reslice/CoordinateMapper.h>

#include <vector>

namespace {

std::int32_t countPoints(const PlanarGuidingSpline& spline)
{
    return static_cast<std::int32_t>(spline.getControlPoints().size());
}

QVector3D narrowed(const Eigen::Vector3d& v)
{
    return {static_cast<float>(v.x()), static_cast<float>(v.y()), static_cast<float>(v.z())};
}

} // namespace

PlanarGuidingSplineCoordinateMapper::PlanarGuidingSplineCoordinateMapper(
    PlanarGuidingSpline& observedSpline)
    : spline(observedSpline), fittedPointCount(countPoints(observedSpline))
{
    fitPlane();
    spline.attach(this);
}

PlanarGuidingSplineCoordinateMapper::~PlanarGuidingSplineCoordinateMapper()
{
    detachAll();
}

QPointF PlanarGuidingSplineCoordinateMapper::mapToReslice(const PlanarReslice& reslice,
                                                          const QVector3D& point)
{
    return CoordinateMapper::_3D_To_2D_PlanarPoint(&reslice, point);
}

QVector3D PlanarGuidingSplineCoordinateMapper::mapToSplinePlane(const PlanarReslice& reslice,
                                                                const QPointF& point)
{
    if (!splinePlane)
        return CoordinateMapper::_2D_To_3D_Planar(&reslice, point);
    return CoordinateMapper::map2DPointTo3DPointOnPlane(reslice, point, *splinePlane);
}

void PlanarGuidingSplineCoordinateMapper::changedEvent(GuidingLine* /*line*/,
                                                       events::GuidingLineEvent* event)
{
    if (event && static_cast<int>(event->type) == hostvalues::kNumberOfPointsUpdated)
        onNumberOfPointsUpdated();
}

void PlanarGuidingSplineCoordinateMapper::onNumberOfPointsUpdated()
{
    // Intended: a plane stays while points are added. The first points anchor it; users who keep
    // drawing in a view that has moved rely on new points not tilting it.
    const std::int32_t count = countPoints(spline);
    if (count <= fittedPointCount || !splinePlane)
        fitPlane();
    fittedPointCount = count;
}

void PlanarGuidingSplineCoordinateMapper::onPointAdded()
{
    if (!splinePlane)
        fitPlane();
}

void PlanarGuidingSplineCoordinateMapper::onPointRemoved()
{
    fitPlane();
}

void PlanarGuidingSplineCoordinateMapper::fitPlane()
{
    std::vector<Eigen::Vector3d> positions;
    const auto points = spline.getControlPoints();
    for (const auto& point : points) {
        if (!point)
            continue;
        const QVector3D position = point->getPosition();
        positions.emplace_back(position.x(), position.y(), position.z());
    }
    const auto fitted = algebra::fitPlane(positions);
    if (!fitted) {
        splinePlane.reset();
        return;
    }
    const algebra::Plane plane = fitted.value();
    splinePlane = primitives::Plane(narrowed(plane.point), narrowed(plane.normal));
}
