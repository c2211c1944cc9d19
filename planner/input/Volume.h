// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/VexelImage3D.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QMatrix4x4>
#include <QString>
#include <QStringList>
#include <QVector3D>

#include <array>

namespace planner {

/// A CT volume with its place in the world.
///
/// World positions, here and everywhere in the planner, are LPS millimeters: x to the patient's
/// left, y to posterior, z to superior. That is DICOM's frame; NIfTI's is RAS, with x and y the
/// other way, and the NIfTI reader turns it.
struct Volume
{
    VexelImage3D image;
    /// Maps a voxel's index, whole numbers at voxel centers, to the world.
    QMatrix4x4 worldFromVoxel;
    bool orientationKnown = true; ///< the file says where left, anterior and superior are
    QString description;          ///< format, size and spacing, for the reader of the report
    QStringList remarks;          ///< sentences about what had to be assumed or chosen

    /// Returns the number of voxels along each axis.
    QVector3D counts() const;
    /// Returns the outer corners of the voxels at the corners of the volume, in the world.
    std::array<QVector3D, 8> corners() const;
    /// Returns the middle of the volume in the world.
    QVector3D center() const;
    /// Returns the box around the corners.
    primitives::BoundingBox extent() const;
};

/// Returns the remark of a volume whose orientation is not known.
QString unknownOrientationRemark();

} // namespace planner
