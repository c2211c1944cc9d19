// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/BoxSampling_p.h>

#include <CoreAlgorithms/greyvalue/PlacedBox_p.h>
#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/data/VexelImage3D.h>

#include <QMessageLogger>

#include <cstddef>
#include <cstdint>

namespace greyvalue {
namespace {

// 512 MiB of grey values; sixty boxes of 10 mm at 0.1 mm a voxel hold less than half of it.
constexpr std::size_t kMostValues = std::size_t(1) << 27U;

// The boxes that are read, and an upper bound of the number of their values.
struct Selection
{
    std::vector<bool> isRead;
    std::size_t count = 0;
};

Selection select(const std::vector<primitives::BoundingBox>& boxes,
                 const QMatrix4x4& voxelFromBoxes, const math::Ivec3& size)
{
    Selection selection;
    selection.isRead.reserve(boxes.size());
    for (const primitives::BoundingBox& box : boxes) {
        const std::size_t count = PlacedBox(box, voxelFromBoxes, size).mostVoxels();
        const bool fits = count <= kMostValues - selection.count;
        selection.isRead.push_back(fits);
        selection.count += fits ? count : 0;
    }
    return selection;
}

template <typename Element>
std::vector<int> collect(const VexelImage3D& image,
                         const std::vector<primitives::BoundingBox>& boxes,
                         const QMatrix4x4& voxelFromBoxes)
{
    std::vector<int> values;
    const auto* voxels = static_cast<const Element*>(image.dataPtr());
    if (!voxels)
        return values;
    const math::Ivec3 size = image.imageSize();
    const std::size_t sizeX = size.x;
    const std::size_t sizeY = size.y;
    const Selection selection = select(boxes, voxelFromBoxes, size);
    values.reserve(selection.count);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (!selection.isRead[i])
            continue;
        const PlacedBox box(boxes[i], voxelFromBoxes, size);
        for (int z = box.zSpan().first; z <= box.zSpan().last; ++z) {
            for (int y = box.ySpan().first; y <= box.ySpan().last; ++y) {
                const Element* row = voxels + z * (sizeX * sizeY) + y * sizeX;
                box.forEachPiece(y, z, [&values, row](int first, int last) {
                    values.insert(values.end(), row + first, row + last + 1);
                });
            }
        }
    }
    return values;
}

} // namespace

std::vector<int> sampleBoxes(const VexelImage3D& image,
                             const std::vector<primitives::BoundingBox>& boxes,
                             const QMatrix4x4& voxelFromBoxes)
{
    const auto type = static_cast<int>(image.dataType());
    if (type == hostvalues::kUnsigned16)
        return collect<std::uint16_t>(image, boxes, voxelFromBoxes);
    if (type == hostvalues::kSigned16)
        return collect<std::int16_t>(image, boxes, voxelFromBoxes);
    if (type == hostvalues::kUnsigned8)
        return collect<std::uint8_t>(image, boxes, voxelFromBoxes);
    if (type >= hostvalues::kFirstUnreadElement && type <= hostvalues::kLastUnreadElement) {
        // Intended: one warning for each box, so that a log shows how many of them were lost.
        for (std::size_t i = 0; i < boxes.size(); ++i)
            QMessageLogger().warning(
                "TissueEstimationHistogramCreator : not implemented for this data type.");
    }
    // Intended: there is no warning from type 7 on; hosts number their other kinds of images from
    // there.
    return {};
}

} // namespace greyvalue
