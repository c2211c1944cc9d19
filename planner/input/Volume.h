// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/data/VexelImage3D.h>

#include <QMatrix4x4>
#include <QString>
#include <QStringList>

namespace planner {

/// A CT volume and where it lies.
///
/// World positions, here and everywhere in the planner, are LPS millimetres: x to the patient's
/// left, y to posterior, z to superior. That is DICOM's frame; NIfTI's is RAS, with x and y the
/// other way, and the NIfTI reader turns it.
struct Volume
{
    VexelImage3D image;
    QMatrix4x4
        worldFromVoxel; ///< from a voxel's index, whole numbers at voxel centres, to the world
    bool orientationKnown =
        true;            ///< false: the file does not say where left, anterior and superior are
    QString description; ///< format, size and spacing, for the reader of the report
    QStringList remarks; ///< sentences about what had to be assumed or chosen
};

/// Returns the remark of a volume whose orientation is not known.
inline QString unknownOrientationRemark()
{
    return QStringLiteral(
        "The file does not state its orientation: right and left, front and back are "
        "assumed, not known.");
}

} // namespace planner
