// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>
#include <QString>
#include <QtGlobal>

#include <array>

/// What a volume may be to be read. A damaged or hostile header states lengths and sizes that no
/// scan of a patient has; every reader checks them here before it reserves memory. Everything that
/// follows, from pictures to projections, may then rely on them.
namespace planner {

/// Most voxels along one axis. A cone-beam CT of 300 mm with voxels of 0.1 mm has 3000.
constexpr qint64 kMostVoxelsAlongAxis = 4096;
/// Most voxels of a volume: 2 GiB in 16-bit integers, the cube of 1024.
constexpr qint64 kMostVoxels = qint64{1} << 30;
/// Limits of the distance between the centers of neighboring voxels.
constexpr double kSmallestVoxelMm = 0.01;
constexpr double kLargestVoxelMm = 10.0;
/// Largest extent of a volume along one of its axes. A CT of the head, neck and chest has 700 mm.
constexpr double kLargestExtentMm = 1000.0;
/// Largest coordinate of the first voxel along each axis of the world, whose origin a scanner puts
/// near its center. Up to here, single precision keeps positions to 0.001 mm.
constexpr double kFarthestMm = 10'000.0;
/// Bytes of voxels for each byte of a file, as far as they exceed kFreeVoxelBytes. Grey values of a
/// CT compress to a quarter, maps of a few labels to a hundredth.
constexpr qint64 kMostExpansion = 100;
/// Bytes of voxels that a file of any size may hold.
constexpr qint64 kFreeVoxelBytes = 100'000'000;

/// Throws a Failure if a volume cannot have so many voxels along its axes. The product of counts
/// that pass does not overflow.
void checkVoxelCounts(const QString& path, const std::array<qint64, 3>& counts);

/// Throws a Failure if voxels so placed cannot show a patient: too small, too large, too far away,
/// axes that lie in one plane or are not finite numbers.
void checkGeometry(const QString& path, const QMatrix4x4& worldFromVoxel,
                   const std::array<qint64, 3>& counts);

/// Throws a Failure if a file of `fileBytes` cannot hold so many bytes of voxels, however they are
/// compressed.
void checkExpansion(const QString& path, qint64 voxelBytes, qint64 fileBytes);

} // namespace planner
