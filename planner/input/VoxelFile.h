// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/ByteSource.h>
#include <planner/input/Elements.h>
#include <planner/input/Volume.h>

#include <QMatrix4x4>
#include <QString>
#include <QtGlobal>

#include <array>

namespace planner {

/// Where a file holds the voxels of a volume, x fastest, without gaps, and how.
struct VoxelFile
{
    QString path;
    ByteSource::Coding coding = ByteSource::Coding::Plain;
    qint64 start = 0; ///< of the coded bytes in the file
    qint64 skip = 0;  ///< bytes between there and the first voxel, once they are decoded
    std::array<qint64, 3> counts{};
    image::DataType type = image::UInt8;
    bool swapped = false; ///< the bytes of an element are in the other order

    /// Returns how many bytes the voxels take as elements of a type.
    qint64 bytes(image::DataType elementType) const;
};

/// Reads the voxels into a volume, which takes no more memory than its image. Values that are not
/// finite become 0. A scaled image holds 16-bit integers if these can hold every value exactly,
/// else single precision.
///
/// Failure if the voxels end before or after the place that the header announces, if compressed
/// bytes do not have their checksum, if the file is too small for so many voxels however they are
/// compressed, or if memory is short. The counts must have passed checkVoxelCounts(), and the
/// placement checkGeometry().
Volume readVolume(const VoxelFile& file, const Scaling& scaling, const QMatrix4x4& worldFromVoxel,
                  bool orientationKnown, const QString& description);

} // namespace planner
