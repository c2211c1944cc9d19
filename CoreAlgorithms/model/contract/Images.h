// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes CT scans, their voxels, volumes and landmarks.

#include <CoreAlgorithms/model/contract/Requirements.h>

#include <QMatrix4x4>
#include <QVector3D>

#include <cstdint>

namespace hostcontract {

// One requirement per line.
// clang-format off

/// Describes VexelImage3D. The element types 0, 1 and 2 are unsigned and signed 16-bit and unsigned
/// 8-bit. x runs fastest, then y, without gaps. The pointer to the first element is null if there
/// are no voxels.
template <typename Image, typename Counts, typename Range>
concept VoxelImageValue = requires(const Image& image)
{
    static_cast<const std::uint16_t*>(image.dataPtr());
    static_cast<const std::int16_t*>(image.dataPtr());
    static_cast<const std::uint8_t*>(image.dataPtr());
    static_cast<int>(image.dataType());
    { image.imageSize() } -> Exactly<Counts>;
    { image.voxelSize() } -> Exactly<QVector3D>;
    { image.getValueRange() } -> Exactly<Range>;
};

/// Describes ImageVolume.
template <typename Volume, typename Image>
concept ImageVolumeFamily = requires(const Volume& volume)
{
    { volume.getImage() } -> Exactly<Image>;
};

/// Describes dataobject::LandmarkAnnotation. The algorithms query the position in context 0, the
/// volume frame. A landmark without one returns an empty optional.
template <typename Landmark, typename Context>
concept LandmarkFamily = requires(const Landmark& landmark, Context context)
{
    static_cast<int>(landmark.getType());
    { landmark.getPosition(context) } -> Nullable;
    { landmark.getPosition(context).value() } -> Exactly<QVector3D>;
};

/// Describes CTData. Braces without a type, {}, select all landmarks. The landmarks and the image
/// volume may be null pointers. The definition of the occlusal plane is of an enumeration
/// CTData::OcclusalPlaneDefinition.
template <typename CTData, typename ImageVolume, typename Landmark, typename Box>
concept CTDataFamily = TypedObject<CTData> &&
    NumberedValue<typename CTData::OcclusalPlaneDefinition> && requires(const CTData& ct)
{
    { ct.getImageVolume() } -> SharedPointerTo<ImageVolume>;
    { *ct.getLandmarkAnnotations({}).begin() } -> SharedPointerTo<Landmark>;
    { ct.getTotalResampleNHPTransformation() } -> Exactly<QMatrix4x4>;
    { ct.getBoundingBox() } -> Exactly<Box>;
    { ct.getTotalResampleTransformedBoundingBox() } -> Exactly<Box>;
    { ct.getOcclusalPlaneDefinition() } -> Exactly<typename CTData::OcclusalPlaneDefinition>;
};

/// Describes CTDataVolumeObject, whose CT may be null.
template <typename Volume, typename CTData>
concept VolumeOfCTFamily = requires(const Volume& volume)
{
    { volume.getCTData() } -> SharedPointerTo<CTData>;
};

// clang-format on

} // namespace hostcontract
