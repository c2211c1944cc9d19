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

/// Names the element type of a voxel image. Scanners deliver the first three.
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

/// Returns the number of bytes of one element; 0 for a value that is no DataType.
COREALGORITHMS_MODEL_EXPORT std::size_t elementSize(DataType type);

} // namespace image

/// Represents a voxel image that owns its memory.
///
/// value(x, y, z) = data[(z * sizeY + y) * sizeX + x]: x is fastest, and there are no gaps. Voxel
/// indices denote voxel centers. The center of voxel (x, y, z) is at
/// (x * voxelSize.x, y * voxelSize.y, z * voxelSize.z) of the volume frame, in mm.
class COREALGORITHMS_MODEL_EXPORT VexelImage3D
{
public:
    /// Constructs an image without voxels.
    VexelImage3D() = default;
    /// Constructs an image of zeros; `voxelSize` is in mm. Constructs an image without voxels (see
    /// isEmpty()) if a size is not positive, a voxel size is not positive and finite, the type is
    /// unknown, or memory cannot hold the voxels.
    VexelImage3D(const math::Ivec3& imageSize, const QVector3D& voxelSize,
                 image::DataType dataType);
    /// Takes over the voxels; the other image is without voxels afterwards.
    VexelImage3D(VexelImage3D&& other) noexcept;
    /// Takes over the voxels, as the constructor does.
    VexelImage3D& operator=(VexelImage3D&& other) noexcept;
    VexelImage3D(const VexelImage3D&) = delete;
    VexelImage3D& operator=(const VexelImage3D&) = delete;
    ~VexelImage3D() = default;

    /// Returns true for an image without voxels.
    bool isEmpty() const { return !elements; }
    /// Returns the first element, aligned for every element type, or null without voxels.
    const void* dataPtr() const { return elements.get(); }
    /// Returns the first element for writing, or null without voxels.
    void* dataPtr() { return elements.get(); }
    /// Returns the element type.
    image::DataType dataType() const { return type; }
    /// Returns the numbers of voxels along x, y and z.
    math::Ivec3 imageSize() const { return size; }
    /// Returns the distances between voxel centers along x, y and z in mm.
    QVector3D voxelSize() const { return spacing; }
    /// Returns the number of voxels.
    std::size_t voxelCount() const;

    /// Returns one voxel, widened to double; 0 outside the image.
    double value(int x, int y, int z) const;
    /// Returns the smallest and the largest element, narrowed to float. Ignores NaN. Returns (0, 0)
    /// without voxels and if all are NaN. Visits every voxel.
    math::Range<float> getValueRange() const;

private:
    math::Ivec3 size;
    QVector3D spacing;
    image::DataType type = image::UInt16;
    std::unique_ptr<std::byte[]> elements;
};
