// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <planner/input/Case.h>

#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>
#include <CoreAlgorithms/model/math/BoundingBox.h>

#include <QList>
#include <QMatrix4x4>
#include <QVector3D>

#include <memory>
#include <utility>
#include <vector>

namespace planner {

/// What the estimation of tissues needs of a case.
struct GreyScan
{
    std::shared_ptr<CTData> ct; ///< its landmarks are those of the skull
    std::vector<std::pair<ToothChart::Tooth, QVector3D>> teeth; ///< occlusal points in the world
    QMatrix4x4 worldFromVolume;
};

/// Returns a scan of the case's voxels, which are not copied: the case must outlive the scan.
/// Natural head position is the world. Only the built-in patient has landmarks of the skull.
GreyScan scanOf(const Case& planned);

/// Returns the same scan with other voxels of the same geometry, shared, and with or without its
/// landmarks.
GreyScan scanWith(const GreyScan& scan, std::shared_ptr<const VexelImage3D> image,
                  bool withLandmarks);

/// Returns the boxes of a region in the world, for drawing: 0 in front of the face, 1 on the
/// surface of the skull, 2 at the teeth.
QList<primitives::BoundingBox> boxesOf(const GreyScan& scan, int region);

/// Returns the voxels as a scanner with another gain and offset would give them; null if they are
/// not 16-bit integers.
std::shared_ptr<VexelImage3D> miscalibrated(const VexelImage3D& image, float gain, float offset);

} // namespace planner
