// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/math/Ivec3.h>
#include <CoreAlgorithms/model/math/Range.h>

#include <QVector3D>

#include <cstddef>
#include <memory>

namespace image {

/// Element type of a voxel image. The first three are what scanners deliver.
enum DataType : int {
    UInt16 = 0,
    Int16 = 1,
    UInt8 = 2,
    Int8 = 3,
    UInt32 = 4,
    Int32 = 5,
    Float32 = 6,
    Float64 = 7
};

/// Bytes of one element; 0 for a value that is no DataType.
COREALGORITHMS_MODEL_EXPORT std::size_t elementSize(DataType type);

} // namespace image

/// A voxel image that owns its memory.
///
/// value(x, y, z) = data[(z * sizeY + y) * sizeX + x]: x fastest, no gaps. Voxel indices name voxel
/// centres; the centre of voxel (x, y, z) lies at (x * voxelSize.x, y * voxelSize.y, z *
/// voxelSize.z) of the volume frame, in mm.
class COREALGORITHMS_MODEL_EXPORT VexelImage3D
{
public:
    /// No voxels.
    VexelImage3D() = default;
    /// All voxels zero. A size that is not positive, a voxel size that is not positive and finite,
    /// an unknown type, or more voxels than memory can hold give the image without voxels; ask
    /// isEmpty().
    VexelImage3D(const math::Ivec3& imageSize, const QVector3D& voxelSize,
                 image::DataType dataType);
    /// Leaves the other image without voxels.
    VexelImage3D(VexelImage3D&& other) noexcept;
    VexelImage3D& operator=(VexelImage3D&& other) noexcept;
    VexelImage3D(const VexelImage3D&) = delete;
    VexelImage3D& operator=(const VexelImage3D&) = delete;
    ~VexelImage3D() = default;

    bool isEmpty() const { return !elements; }
    /// First element, or null for an image without voxels; aligned for every element type.
    const void* dataPtr() const { return elements.get(); }
    void* dataPtr() { return elements.get(); }
    image::DataType dataType() const { return type; }
    math::Ivec3 imageSize() const { return size; }
    /// Millimetres per voxel.
    QVector3D voxelSize() const { return spacing; }
    std::size_t voxelCount() const;

    /// One voxel, widened to double; 0 outside the image.
    double value(int x, int y, int z) const;
    /// Smallest and largest element, narrowed to float, NaN left out; (0, 0) for an image without
    /// voxels or of nothing but NaN. Visits every voxel.
    math::Range<float> getValueRange() const;

private:
    math::Ivec3 size;
    QVector3D spacing;
    image::DataType type = image::UInt16;
    std::unique_ptr<std::byte[]> elements;
};
