// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/data/VexelImage3D.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <utility>

namespace {

// Calls visit with the elements as a typed array.
template <typename Visit>
auto visitElements(image::DataType type, const void* elements, Visit visit)
{
    switch (type) {
    case image::UInt16:
        return visit(static_cast<const std::uint16_t*>(elements));
    case image::Int16:
        return visit(static_cast<const std::int16_t*>(elements));
    case image::UInt8:
        return visit(static_cast<const std::uint8_t*>(elements));
    case image::Int8:
        return visit(static_cast<const std::int8_t*>(elements));
    case image::UInt32:
        return visit(static_cast<const std::uint32_t*>(elements));
    case image::Int32:
        return visit(static_cast<const std::int32_t*>(elements));
    case image::Float32:
        return visit(static_cast<const float*>(elements));
    case image::Float64:
        break;
    }
    return visit(static_cast<const double*>(elements));
}

bool isPositive(float extent)
{
    return std::isfinite(extent) && extent > 0.0F;
}

// Returns the number of bytes of the voxels, or 0 if there can be no such image.
std::size_t byteCount(const math::Ivec3& size, const QVector3D& voxelSizeMm, image::DataType type)
{
    if (size.x <= 0 || size.y <= 0 || size.z <= 0)
        return 0;
    if (!isPositive(voxelSizeMm.x()) || !isPositive(voxelSizeMm.y()) ||
        !isPositive(voxelSizeMm.z()))
        return 0;
    constexpr std::size_t largest = std::numeric_limits<std::ptrdiff_t>::max();
    std::size_t bytes = image::elementSize(type);
    for (const int count : {size.x, size.y, size.z}) {
        if (bytes > largest / static_cast<std::size_t>(count))
            return 0;
        bytes *= static_cast<std::size_t>(count);
    }
    return bytes;
}

} // namespace

std::size_t image::elementSize(DataType type)
{
    switch (type) {
    case UInt8:
    case Int8:
        return 1;
    case UInt16:
    case Int16:
        return 2;
    case UInt32:
    case Int32:
    case Float32:
        return 4;
    case Float64:
        return 8;
    }
    return 0;
}

VexelImage3D::VexelImage3D(const math::Ivec3& imageSize, const QVector3D& voxelSize,
                           image::DataType dataType)
{
    const std::size_t bytes = byteCount(imageSize, voxelSize, dataType);
    if (bytes == 0)
        return;
    elements.reset(new (std::nothrow) std::byte[bytes]());
    if (!elements)
        return;
    size = imageSize;
    spacing = voxelSize;
    type = dataType;
}

VexelImage3D::VexelImage3D(VexelImage3D&& other) noexcept
{
    *this = std::move(other);
}

VexelImage3D& VexelImage3D::operator=(VexelImage3D&& other) noexcept
{
    size = std::exchange(other.size, {});
    spacing = std::exchange(other.spacing, {});
    type = other.type;
    elements = std::move(other.elements);
    return *this;
}

std::size_t VexelImage3D::voxelCount() const
{
    return static_cast<std::size_t>(size.x) * static_cast<std::size_t>(size.y) *
           static_cast<std::size_t>(size.z);
}

double VexelImage3D::value(int x, int y, int z) const
{
    if (x < 0 || y < 0 || z < 0 || x >= size.x || y >= size.y || z >= size.z)
        return 0.0;
    const std::size_t index = (static_cast<std::size_t>(z) * static_cast<std::size_t>(size.y) +
                               static_cast<std::size_t>(y)) *
                                  static_cast<std::size_t>(size.x) +
                              static_cast<std::size_t>(x);
    return visitElements(type, elements.get(), [index](const auto* values) {
        return static_cast<double>(values[index]);
    });
}

math::Range<float> VexelImage3D::getValueRange() const
{
    return visitElements(type, elements.get(), [count = voxelCount()](const auto* values) {
        math::Range<float> range;
        bool started = false;
        for (std::size_t i = 0; i < count; ++i) {
            const auto value = static_cast<float>(values[i]);
            if (std::isnan(value))
                continue;
            range.min = started ? std::min(range.min, value) : value;
            range.max = started ? std::max(range.max, value) : value;
            started = true;
        }
        return range;
    });
}
