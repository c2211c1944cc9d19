// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QMap>
#include <QVector3D>

#include <utility>

class PlanarDentalSpline;

/// Between which teeth does a point near a dental arch lie, and at which height do the labels of a
/// jaw's teeth stand?
///
/// Points are in world mm, path indices those of ComputeIndexOnGuidingLine. A tooth identifier
/// between two teeth is a number between theirs.
///
/// (1) The first of the nearest teeth is the rounded identifier at the point, the second the one on
/// the other side of
///     it; both are the tooth itself where the identifier is whole.
///
/// A null spline, one without tooth points or without a path has no teeth: (0, 0), identifier 0.
/// Without a CT behind the plane of the spline the tooth height is 0. A point with NaN lies at the
/// first sample of the path.
class COREALGORITHMS_EXPORT ToothLocator
{
public:
    ToothLocator() = default;
    ToothLocator(const ToothLocator&) = default;
    ToothLocator& operator=(const ToothLocator&) = default;
    virtual ~ToothLocator();

    /// The nearest tooth along the arch, and its neighbour on the other side of the point, which
    /// does not leave the range of the spline's teeth. Of two teeth at one sample the higher
    /// counts. A search of the path for every tooth of the spline and one for the point.
    static std::pair<ToothChart::Tooth, ToothChart::Tooth>
    getNearestToothIds(PlanarDentalSpline* spline, const QVector3D& point);

    /// Linear between the teeth at the entries next to the index, in double precision; that of the
    /// first or last entry outside them.
    static double calculateToothIdByInterpolation(const QMap<int, ToothChart::Tooth>& indexToTooth,
                                                  int index);

    /// Height in mm of the teeth of a jaw: that of the occlusal slice, 7 mm lower for the lower jaw
    /// (value 1) and 7 mm higher for any other value. Single precision.
    static float getToothHeight(PlanarDentalSpline* spline, JawType jaw);
};
