// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes planar, panoramic and cephalometric reslices.

#include <CoreAlgorithms/model/contract/Requirements.h>

#include <QList>
#include <QMatrix4x4>
#include <QSizeF>
#include <QVector3D>

#include <concepts>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes Reslice, from which the three kinds are derived.
template <typename Reslice>
concept ResliceFamily = TypedObject<Reslice> && requires(const Reslice& reslice)
{
    { reslice.getWidth() } -> Exactly<float>;
    { reslice.getHeight() } -> Exactly<float>;
    { reslice.isMirroredHorizontallyIn2D() } -> std::convertible_to<bool>;
    { reslice.isMirroredVerticallyIn2D() } -> std::convertible_to<bool>;
};

/// Describes PlanarReslice.
template <typename PlanarReslice>
concept PlanarResliceFamily = ResliceFamily<PlanarReslice> &&
    requires(const PlanarReslice& reslice, bool perSample)
{
    { reslice.getTransformationFromResliceToWorld() } -> Exactly<QMatrix4x4>;
    { reslice.getOrigin() } -> Exactly<QVector3D>;
    { reslice.getDirection0(perSample) } -> Exactly<QVector3D>;
    { reslice.getDirection1(perSample) } -> Exactly<QVector3D>;
    { reslice.getSampleSize() } -> Exactly<QVector3D>;
};

/// Describes PlanarReslice as the plane of an arch. The CT that it cuts may be null.
template <typename PlanarReslice, typename CTData>
concept ResliceOfCTFamily = requires(const PlanarReslice& reslice)
{
    { reslice.getCTData() } -> SharedPointerTo<CTData>;
};

/// Describes PanoramicReslice, whose guiding line may be null. The reslice type of value 1 is the
/// slab of getThickness().
template <typename PanoramicReslice, typename GuidingLine, typename ResliceType, typename Range>
concept PanoramicResliceFamily = ResliceFamily<PanoramicReslice> &&
    requires(const PanoramicReslice& reslice, const GuidingLine& line, ResliceType type)
{
    { reslice.getPath() } -> Exactly<QList<QVector3D>>;
    { reslice.getGuidingLine() } -> SharedPointerTo<GuidingLine>;
    { line.getUpperDirection() } -> Exactly<QVector3D>;
    { reslice.getVerticalRange() } -> Exactly<Range>;
    { reslice.getDimensions() } -> Exactly<QSizeF>;
    { reslice.getSampleSize() } -> Exactly<QVector3D>;
    { reslice.getThickness() } -> Exactly<float>;
    { reslice.isType(type) } -> std::convertible_to<bool>;
};

/// Describes CephReslice. The point of view of value 1 is the one that mirrors the view's x axis.
template <typename CephReslice>
concept CephResliceFamily = TypedObject<CephReslice> && requires(const CephReslice& reslice)
{
    { reslice.getTransformation() } -> Exactly<QMatrix4x4>;
    { reslice.getWidth() } -> Exactly<float>;
    { reslice.getHeight() } -> Exactly<float>;
    static_cast<int>(reslice.getPointOfView());
};

// clang-format on

} // namespace hostcontract
