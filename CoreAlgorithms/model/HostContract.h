// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

#include <concepts>

/// What the algorithms require of the host's classes, one concept per family; a class of the name in the
/// comment must meet it. The bundled model does. A model of your own must offer these operations under the
/// header paths of CoreAlgorithms/model/; what they must do is documented there, at the bundled classes.
///
/// Argument and result types may differ where they convert.
namespace hostcontract {

// One requirement a line, where clang-format 14 would take three.
// clang-format off

/// CoreObject and every class derived from it.
template <typename Object>
concept TypedObject = requires(const Object& object, const QString& classTypeId)
{
    { Object::getClassTypeId() } -> std::convertible_to<QString>;
    { object.isOfType(classTypeId) } -> std::convertible_to<bool>;
};

/// PlanarReslice.
template <typename PlanarReslice>
concept PlanarResliceFamily = TypedObject<PlanarReslice> &&
    requires(const PlanarReslice& reslice, bool perSample)
{
    { reslice.getTransformationFromResliceToWorld() } -> std::convertible_to<QMatrix4x4>;
    { reslice.getOrigin() } -> std::convertible_to<QVector3D>;
    { reslice.getDirection0(perSample) } -> std::convertible_to<QVector3D>;
    { reslice.getDirection1(perSample) } -> std::convertible_to<QVector3D>;
    { reslice.getWidth() } -> std::convertible_to<float>;
    { reslice.getHeight() } -> std::convertible_to<float>;
    { reslice.getSampleSize() } -> std::convertible_to<QVector3D>;
    { reslice.isMirroredHorizontallyIn2D() } -> std::convertible_to<bool>;
    { reslice.isMirroredVerticallyIn2D() } -> std::convertible_to<bool>;
};

/// CephReslice. The point of view whose value is 1 is the one that turns the view's x axis round.
template <typename CephReslice>
concept CephResliceFamily = TypedObject<CephReslice> && requires(const CephReslice& reslice)
{
    { reslice.getTransformation() } -> std::convertible_to<QMatrix4x4>;
    { reslice.getWidth() } -> std::convertible_to<float>;
    { reslice.getHeight() } -> std::convertible_to<float>;
    static_cast<int>(reslice.getPointOfView());
};

/// primitives::QRay3D: origin and direction.
template <typename Ray>
concept RayValue = std::constructible_from<Ray, QVector3D, QVector3D>;

/// primitives::Plane. Its first constructor takes three points, the normal along (b - a) x (c - a).
template <typename Plane, typename Ray>
concept PlaneValue = std::copyable<Plane> &&
    std::constructible_from<Plane, QVector3D, QVector3D, QVector3D> &&
    requires(const Plane& plane, Plane& changeable, const Ray& ray, const QVector3D& vector,
             QVector3D& meetingPoint, const QMatrix4x4& matrix)
{
    { plane.getSignedDistance(vector) } -> std::convertible_to<float>;
    { plane.intersect(ray, meetingPoint) } -> std::convertible_to<bool>;
    { plane.project(vector, vector) } -> std::convertible_to<QVector3D>;
    changeable.transform(matrix);
};

// clang-format on

} // namespace hostcontract
