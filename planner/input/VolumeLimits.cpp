// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <planner/input/VolumeLimits.h>

#include <planner/input/Failure.h>

#include <QVector3D>

#include <algorithm>
#include <cmath>

namespace planner {

namespace {

// The ratio of a voxel's volume to the product of its edges; 1 if the edges are at right angles.
constexpr double kFlattest = 0.01;

QString inMillimeters(double length)
{
    return QString::number(length, 'g', 6);
}

} // namespace

void checkVoxelCounts(const QString& path, const std::array<qint64, 3>& counts)
{
    const auto sentence = [&counts](const QString& words) {
        return words.arg(counts[0]).arg(counts[1]).arg(counts[2]);
    };
    const auto [fewest, most] = std::minmax_element(counts.begin(), counts.end());
    if (*fewest < 2)
        throw Failure(
            path,
            sentence(QStringLiteral(
                "a volume has at least 2 voxels along each axis, the header says %1 x %2 x %3")));
    if (*most > kMostVoxelsAlongAxis || counts[0] * counts[1] * counts[2] > kMostVoxels)
        throw Failure(
            path, sentence(QStringLiteral("a volume of %1 x %2 x %3 voxels is too large; up to %4 "
                                          "along an axis and %5 million in all are supported"))
                      .arg(kMostVoxelsAlongAxis)
                      .arg(kMostVoxels / 1'000'000));
}

void checkGeometry(const QString& path, const QMatrix4x4& worldFromVoxel,
                   const std::array<qint64, 3>& counts)
{
    double product = 1.0;
    for (int axis = 0; axis < 3; ++axis) {
        const double voxelMm = worldFromVoxel.column(axis).toVector3D().length();
        if (!std::isfinite(voxelMm) || voxelMm <= 0.0)
            throw Failure(path, QStringLiteral("the header's orientation matrix is not usable"));
        if (voxelMm < kSmallestVoxelMm || voxelMm > kLargestVoxelMm)
            throw Failure(
                path,
                QStringLiteral(
                    "a voxel edge of %1 mm is implausible for a patient; %2 to %3 mm are supported")
                    .arg(inMillimeters(voxelMm))
                    .arg(kSmallestVoxelMm)
                    .arg(kLargestVoxelMm));
        const double extentMm = voxelMm * static_cast<double>(counts[axis]);
        if (extentMm > kLargestExtentMm)
            throw Failure(path, QStringLiteral("an extent of %1 mm along an axis is implausible "
                                               "for a head; up to %2 mm are supported")
                                    .arg(inMillimeters(extentMm))
                                    .arg(kLargestExtentMm));
        product *= voxelMm;
    }
    const double volume = std::abs(worldFromVoxel.determinant());
    if (!std::isfinite(volume) || volume < kFlattest * product)
        throw Failure(path, QStringLiteral("the header's orientation matrix is not usable"));
    const QVector3D first = worldFromVoxel.column(3).toVector3D();
    for (int axis = 0; axis < 3; ++axis) {
        const double mm = first[axis];
        if (!(std::abs(mm) <= kFarthestMm))
            throw Failure(path, QStringLiteral("a first voxel at %1 mm from the scanner's origin "
                                               "is implausible; up to %2 mm are supported")
                                    .arg(inMillimeters(mm))
                                    .arg(kFarthestMm));
    }
}

void checkExpansion(const QString& path, qint64 voxelBytes, qint64 fileBytes)
{
    if (voxelBytes <= kFreeVoxelBytes || voxelBytes / kMostExpansion <= fileBytes)
        return;
    throw Failure(
        path, QStringLiteral("a file of %1 bytes that stands for %2 million bytes of voxels is not "
                             "a CT; %3 times the file's size, or %4 million bytes, are supported")
                  .arg(fileBytes)
                  .arg(voxelBytes / 1'000'000)
                  .arg(kMostExpansion)
                  .arg(kFreeVoxelBytes / 1'000'000));
}

} // namespace planner
