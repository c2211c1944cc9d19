// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes the values of model/math/, model/linearalgebra/ and utility::Optional.

#include <CoreAlgorithms/model/contract/Requirements.h>

#include <QList>
#include <QMatrix4x4>
#include <QQuaternion>
#include <QVector3D>

#include <concepts>
#include <memory>
#include <type_traits>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes utility::Optional of a value that the algorithms return, take or keep. It is empty by
/// default, and a value converts to it. The algorithms do not call value() of an empty one.
template <typename Optional, typename Value>
concept OptionalValue = std::default_initializable<Optional> && std::copyable<Optional> &&
    BracedFrom<Optional> && std::convertible_to<const Value&, Optional> &&
    Nullable<const Optional&> && requires(const Optional& optional)
{
    { optional.value() } -> Exactly<Value>;
};

/// Describes math::Range<float>.
template <typename Range>
concept RangeValue = std::copyable<Range> && std::default_initializable<Range> &&
    BracedFrom<Range> && BracedFrom<Range, float, float> && requires(const Range& range)
{
    { range.min } -> Exactly<float>;
    { range.max } -> Exactly<float>;
};

/// Describes math::Ivec3.
template <typename Counts>
concept CountsValue = std::copyable<Counts> && requires(const Counts& counts)
{
    { counts.x } -> std::convertible_to<int>;
    { counts.y } -> std::convertible_to<int>;
    { counts.z } -> std::convertible_to<int>;
};

/// Describes primitives::QRay3D, which is created from its origin and direction.
template <typename Ray>
concept RayValue = std::constructible_from<Ray, QVector3D, QVector3D>;

/// Describes primitives::Plane. One constructor takes three points, with the normal along (b - a) x
/// (c - a); the other takes a point and the normal.
template <typename Plane, typename Ray>
concept PlaneValue = std::copyable<Plane> &&
    std::constructible_from<Plane, QVector3D, QVector3D, QVector3D> &&
    std::constructible_from<Plane, QVector3D, QVector3D> &&
    requires(const Plane& plane, Plane& changeable, const Ray& ray, const QVector3D& vector,
             QVector3D& meetingPoint, const QMatrix4x4& matrix)
{
    { plane.getNormal() } -> Exactly<QVector3D>;
    { plane.getSignedDistance(vector) } -> Exactly<float>;
    { plane.intersect(ray, meetingPoint) } -> std::convertible_to<bool>;
    { plane.project(vector, vector) } -> Exactly<QVector3D>;
    changeable.transform(matrix);
};

/// Describes primitives::BoundingBox. intersects() and contains() are closed: boxes that touch
/// intersect. transformed() returns the box around the eight mapped corners. isNull() returns true
/// for the box of nothing.
template <typename Box>
concept BoundingBoxValue = std::copyable<Box> && std::default_initializable<Box> &&
    BracedFrom<Box, float, float, float, float, float, float> &&
    BracedFrom<Box, QVector3D, QVector3D> &&
    requires(const Box& box, Box& changeable, const QVector3D& point, const QMatrix4x4& matrix)
{
    changeable.includePoint(point);
    { box.isNull() } -> std::convertible_to<bool>;
    { box.isValid() } -> std::convertible_to<bool>;
    { box.contains(point) } -> std::convertible_to<bool>;
    { box.intersects(box) } -> std::convertible_to<bool>;
    { box.transformed(matrix) } -> Exactly<Box>;
    { Box::createUnionOf(box, box) } -> Exactly<Box>;
    { box.min() } -> Exactly<QVector3D>;
    { box.max() } -> Exactly<QVector3D>;
    { box.center() } -> Exactly<QVector3D>;
    { box.centerZ() } -> Exactly<float>;
    { box.deltaX() } -> Exactly<float>;
    { box.deltaY() } -> Exactly<float>;
    { box.deltaZ() } -> Exactly<float>;
    { box.width() } -> Exactly<float>;
    { box.height() } -> Exactly<float>;
    { box.depth() } -> Exactly<float>;
};

/// Describes primitives::OrientedBoundingBox. Its inside is convex; rows of voxels are tested at
/// their ends.
template <typename OrientedBox, typename Box>
concept OrientedBoundingBoxValue = std::constructible_from<OrientedBox, const Box&> &&
    std::move_constructible<OrientedBox> &&
    requires(const OrientedBox& box, const QMatrix4x4& matrix, const QVector3D& point)
{
    { box.transformed(matrix) } -> Exactly<OrientedBox>;
    { box.isInside(point) } -> std::convertible_to<bool>;
    { box.getAABBOfTransformedBoundingBox() } -> Exactly<Box>;
    { box.getCornerPoints() } -> Exactly<QList<QVector3D>>;
};

/// Describes math::Operations.
template <typename Operations>
concept RotationOperations = requires(const QVector3D& vector)
{
    { Operations::getRotationTo(vector, vector, vector) } -> Exactly<QQuaternion>;
};

/// Describes math::Spline3DInterface, which is deleted through a pointer to it.
template <typename Curve>
concept CurveModel = std::has_virtual_destructor_v<Curve> && requires(const Curve& curve)
{
    { curve.clone() } -> Exactly<std::unique_ptr<Curve>>;
};

/// Describes what algebra::fitPlane returns: an algebra::Plane or nothing, with the triples point
/// and normal in double precision.
template <typename Fit, typename Plane, typename Triple>
concept PlaneFitResult = Nullable<const Fit&> && requires(const Fit& fit, const Plane& plane)
{
    { fit.value() } -> Exactly<Plane>;
    { plane.point } -> Exactly<Triple>;
    { plane.normal } -> Exactly<Triple>;
};

// clang-format on

} // namespace hostcontract
