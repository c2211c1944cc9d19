// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>

#include <QVector3D>

/// Where does the occlusal plane of a scan lie: its centre, and the slice of a height?
namespace occlusalPropertiesCalculator {

/// Height of the plane as a fraction of that of the scan's centre: 1 for the definition of value 0,
/// 0.6 in single precision for any other value.
COREALGORITHMS_EXPORT float getOcclusalCenterPercentage(CTData::OcclusalPlaneDefinition definition);

/// Number of the slice at the point's z, which is in mm of natural head position, truncated, in
/// single precision. 0 below the scan; at its upper face and above, the height of the scan in mm
/// less 1, whatever the voxel size. 0 for a scan without an image volume, for NaN and for a number
/// beyond the range of int.
COREALGORITHMS_EXPORT int getOcclusalIndex(const CTData& ct, const QVector3D& point);

} // namespace occlusalPropertiesCalculator
