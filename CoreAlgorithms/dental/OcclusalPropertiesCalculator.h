// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>

#include <QVector3D>

/// Locates the occlusal plane of a scan, the plane in which the upper and lower teeth meet.
namespace occlusalPropertiesCalculator {

/// Returns the height of the plane as a fraction of the height of the scan's center: 1 for the
/// definition of value 0, 0.6 in single precision for any other value.
COREALGORITHMS_EXPORT float getOcclusalCenterPercentage(CTData::OcclusalPlaneDefinition definition);

/// Returns the number of the slice at the point's z, truncated, computed in single precision. The
/// point is in mm of natural head position, the frame in which the head is held upright.
///
/// Returns 0 below the scan. At its upper face and above, returns the height of the scan in mm less
/// 1, whatever the voxel size. Returns 0 for a scan without an image volume, for NaN and for a
/// number beyond the range of int.
COREALGORITHMS_EXPORT int getOcclusalIndex(const CTData& ct, const QVector3D& point);

} // namespace occlusalPropertiesCalculator
