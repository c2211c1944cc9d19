// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/VoxelFile.h>

#include <planner/input/Failure.h>
#include <planner/input/VolumeLimits.h>

#include <QFileInfo>
#include <QMatrix4x4>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>
#include <vector>

namespace planner {

namespace {

template <typename Element>
bool isNoNumber(Element value)
{
    if constexpr (std::is_floating_point_v<Element>)
        return !std::isfinite(value);
    else
        return false;
}

void swapBytes(std::vector<char>& elements, std::size_t count, std::size_t size)
{
    const auto number = static_cast<qsizetype>(count);
    if (size == 2)
        qbswap<2>(elements.data(), number, elements.data());
    else if (size == 4)
        qbswap<4>(elements.data(), number, elements.data());
    else if (size == 8)
        qbswap<8>(elements.data(), number, elements.data());
}

// Calls the visitor with the voxels as the file holds them, in this machine's byte order, some at a
// time, and with the index of the first of them.
template <typename Visitor>
void visitVoxels(const VoxelFile& file, const Visitor& visitor)
{
    const std::size_t size = image::elementSize(file.type);
    const auto voxels = static_cast<std::size_t>(file.counts[0] * file.counts[1] * file.counts[2]);
    const qint64 expected = file.skip + static_cast<qint64>(voxels * size);
    ByteSource source(file.path, file.coding, file.start);
    std::vector<char> chunk(std::size_t{1} << 17);
    qint64 bytes = 0;
    const auto read = [&](qint64 count) {
        const qint64 done = source.read(chunk.data(), count);
        bytes += done;
        if (done < count)
            throw Failure(
                file.path,
                QStringLiteral(
                    "the file is damaged or cut off: the header announces %1 bytes, %2 can be read")
                    .arg(expected)
                    .arg(bytes));
    };
    while (bytes < file.skip)
        read(std::min(static_cast<qint64>(chunk.size()), file.skip - bytes));
    for (std::size_t done = 0; done < voxels;) {
        const std::size_t count = std::min(chunk.size() / size, voxels - done);
        read(static_cast<qint64>(count) * static_cast<qint64>(size));
        if (file.swapped)
            swapBytes(chunk, count, size);
        visitElementType(file.type, [&](auto zero) {
            auto* elements = reinterpret_cast<decltype(zero)*>(chunk.data());
            std::replace_if(elements, elements + count, isNoNumber<decltype(zero)>, zero);
            visitor(elements, count, done);
        });
        done += count;
    }
    char more = 0;
    if (source.read(&more, 1) > 0)
        throw Failure(
            file.path,
            QStringLiteral("the file is longer than the %1 bytes that its header announces")
                .arg(expected));
    if (!source.endsHere())
        throw Failure(
            file.path,
            QStringLiteral("the file is damaged or cut off: its checksum is wrong or missing"));
}

// The type of the voxels in memory: the file's, unless they are scaled.
image::DataType storedType(const VoxelFile& file, const Scaling& scaling)
{
    if (scaling.isIdentity())
        return file.type;
    double smallest = std::numeric_limits<double>::max();
    double largest = std::numeric_limits<double>::lowest();
    visitVoxels(file, [&](const auto* elements, std::size_t count, std::size_t) {
        const auto [low, high] = std::minmax_element(elements, elements + count);
        smallest = std::min(smallest, static_cast<double>(*low));
        largest = std::max(largest, static_cast<double>(*high));
    });
    return scaledType(scaling, file.type, smallest, largest);
}

} // namespace

qint64 VoxelFile::bytes(image::DataType elementType) const
{
    return counts[0] * counts[1] * counts[2] * static_cast<qint64>(image::elementSize(elementType));
}

Volume readVolume(const VoxelFile& file, const Scaling& scaling, const QMatrix4x4& worldFromVoxel,
                  bool orientationKnown, const QString& description)
{
    const auto checkBytes = [&file](image::DataType type) {
        checkExpansion(file.path, file.bytes(type), QFileInfo(file.path).size());
    };
    checkBytes(file.type);
    const image::DataType type = storedType(file, scaling);
    checkBytes(type);
    Volume volume{VexelImage3D({static_cast<int>(file.counts[0]), static_cast<int>(file.counts[1]),
                                static_cast<int>(file.counts[2])},
                               {worldFromVoxel.column(0).toVector3D().length(),
                                worldFromVoxel.column(1).toVector3D().length(),
                                worldFromVoxel.column(2).toVector3D().length()},
                               type),
                  worldFromVoxel,
                  orientationKnown,
                  description,
                  {}};
    if (volume.image.isEmpty())
        throw Failure(file.path, QStringLiteral("there is not enough memory for its voxels"));
    visitVoxels(file, [&](const auto* elements, std::size_t count, std::size_t first) {
        storeScaled(elements, count, scaling, volume.image, first);
    });
    if (!orientationKnown)
        volume.remarks.append(unknownOrientationRemark());
    return volume;
}

} // namespace planner
