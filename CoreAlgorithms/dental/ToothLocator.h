// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QMap>
#include <QVector3D>

#include <utility>

class PlanarDentalSpline;

/// Finds the teeth next to a point near a dental arch, and the height of the labels of a jaw's
/// teeth.
///
/// Points are in world mm, path indices those of ComputeIndexOnGuidingLine. The tooth identifier of
/// a place between two teeth is a number between theirs.
///
/// (1) The first of the nearest teeth is the rounded identifier at the point, the second the one on
///     the other side of the point; both are the tooth itself where the identifier is whole.
class COREALGORITHMS_EXPORT ToothLocator
{
public:
    ToothLocator() = default;
    ToothLocator(const ToothLocator&) = default;
    ToothLocator& operator=(const ToothLocator&) = default;
    virtual ~ToothLocator();

    /// Returns the nearest tooth along the arch, and its neighbor on the other side of the point,
    /// which does not leave the range of the spline's teeth. Of two teeth at one sample the higher
    /// counts. (0, 0) for a null spline and for one without tooth points or without a path. A point
    /// with NaN is at the first sample of the path. Searches the path once for every tooth of the
    /// spline and once for the point.
    static std::pair<ToothChart::Tooth, ToothChart::Tooth>
    getNearestToothIds(PlanarDentalSpline* spline, const QVector3D& point);

    /// Returns the identifier at a path index: linear between the teeth at the entries next to the
    /// index, in double precision; outside the entries, that of the first or last; 0 without
    /// entries.
    static double calculateToothIdByInterpolation(const QMap<int, ToothChart::Tooth>& indexToTooth,
                                                  int index);

    /// Returns the height in mm of the teeth of a jaw: the height of the occlusal slice, less 7 mm
    /// for the lower jaw (value 1), plus 7 mm for any other value, in single precision. 0 without a
    /// CT behind the plane of the spline.
    static float getToothHeight(PlanarDentalSpline* spline, JawType jaw);
};
