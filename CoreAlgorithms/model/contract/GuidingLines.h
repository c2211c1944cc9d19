// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes guiding lines and splines.

#include <CoreAlgorithms/model/contract/Requirements.h>

#include <QList>
#include <QMap>
#include <QMatrix4x4>
#include <QVector3D>

#include <concepts>
#include <memory>
#include <utility>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes Point.
template <typename Point>
concept PointFamily = requires(const Point& point, Point& changeable, const QVector3D& position)
{
    { point.getPosition() } -> Exactly<QVector3D>;
    changeable.setPosition(position);
};

/// Describes GuidingLine. Return the path by reference where you can, so that a search of it copies
/// nothing.
template <typename GuidingLine>
concept GuidingLineFamily = requires(GuidingLine& line, int pathIndex, const QMatrix4x4& matrix)
{
    { line.getOriginalPath() } -> Exactly<QList<QVector3D>>;
    { line.getDirection(pathIndex) } -> Exactly<QVector3D>;
    line.notifyGuidingLineObservers();
    line.transformAndCreateNewPoints(matrix);
};

/// Describes GuidingLine as the reslices use it.
template <typename GuidingLine>
concept ArchLineFamily = TypedObject<GuidingLine> &&
    requires(const GuidingLine& line, int pathIndex)
{
    { line.getOriginalPath() } -> Exactly<QList<QVector3D>>;
    { line.getPerpendicularDirection(pathIndex) } -> Exactly<QVector3D>;
};

/// Describes GuidingSpline with its curve model math::Spline3DInterface.
template <typename GuidingSpline, typename GuidingLine, typename Point, typename Curve>
concept GuidingSplineFamily = GuidingLineFamily<GuidingSpline> &&
    std::derived_from<GuidingSpline, GuidingLine> &&
    requires(GuidingSpline& spline, const GuidingSpline& constant, const QVector3D& position,
             std::unique_ptr<Curve> curve)
{
    spline.clear();
    { spline.appendControlPoint(position) } -> SharedPointerTo<Point>;
    { spline.appendLastControlPoint(position) } -> SharedPointerTo<Point>;
    { constant.getControlPoints() } -> Exactly<QList<std::shared_ptr<Point>>>;
    { constant.getSpline() } -> std::convertible_to<const Curve*>;
    spline.setSpline(std::move(curve));
    spline.pointsChanged();
};

/// Describes PlanarDentalSpline with its tooth points, its plane, its values and the switches of
/// notification and undo.
template <typename PlanarDentalSpline, typename Point, typename ToothChart, typename PlanarReslice,
          typename CreationType>
concept PlanarDentalSplineFamily =
    requires(PlanarDentalSpline& spline, const PlanarDentalSpline& constant,
             typename ToothChart::Tooth tooth, const std::shared_ptr<Point>& point, int sliceIndex,
             typename ToothChart::ArchType arch, CreationType creationType, bool enable)
{
    { constant.getObjects() } -> Exactly<QMap<typename ToothChart::Tooth, std::shared_ptr<Point>>>;
    spline.setTooth(tooth, point);
    { spline.getPlane() } -> SharedPointerTo<PlanarReslice>;
    { constant.getOcclusalIndex() } -> std::convertible_to<int>;
    spline.setOcclusalIndex(sliceIndex);
    { constant.getArchType() } -> Exactly<typename ToothChart::ArchType>;
    spline.setArchType(arch);
    { constant.getCreationType() } -> Exactly<CreationType>;
    spline.setCreationType(creationType);
    spline.setNotifyObservers(enable);
    { constant.isCreateUndoEnabledForObject() } -> std::convertible_to<bool>;
    spline.enableCreateUndoForObjectAndProperties(enable);
};

/// Describes PlanarGuidingSpline with pointers to its control points and the observers of its
/// events. The event whose type has the value 3 means that control points were added or removed.
template <typename Spline, typename Point, typename Observer, typename Event>
concept DrawnSplineFamily =
    requires(const Spline& spline, Spline& changeable, Observer* observer, const Event& event)
{
    { spline.getControlPoints() } -> Exactly<QList<std::shared_ptr<Point>>>;
    changeable.attach(observer);
    static_cast<int>(event.type);
};

/// Describes dataobject::Nerve and dataobject::TemporomandibularJoint by their guiding lines, which
/// may be null.
template <typename Object, typename GuidingLine>
concept LineOwnerFamily = requires(const Object& object)
{
    { object.getGuidingLine() } -> SharedPointerTo<GuidingLine>;
};

// clang-format on

} // namespace hostcontract
