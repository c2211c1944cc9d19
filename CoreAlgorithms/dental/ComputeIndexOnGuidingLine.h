// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QList>
#include <QMap>
#include <QVector3D>

#include <map>

class GuidingLine;
class PlanarDentalSpline;

namespace dataobject {
class Mouth;
}

/// At which sample of a guiding line's path does a point lie, and at which a tooth?
///
/// A path index counts the samples of GuidingLine::getOriginalPath() from 0; -1 says that there is
/// none. Points are in world mm. A tooth that has a point on the spline lies at the sample nearest
/// to that point. Any other lies between its neighbours on the spline, in proportion to the ordinal
/// places in the arch, (tooth - 1) % 16; neither arc length nor distance plays a part.
///
/// (1) The index of a point is that of the first sample i for which no sample j has d(j) < d(i), d
/// being the squared
///     distance x * x + y * y + z * z in single precision.
/// (2) The index has the same value on every machine, whichever instructions it offers.
/// (3) A tooth on the spline has the index of its point, with and without mapToSplineArch.
///
/// A sample whose distance is NaN is never nearer than another, but the first sample stays if its
/// own is NaN: a point with NaN lies at sample 0. A null spline or line is one without path and
/// points; a tooth point that is null counts as none. Nothing is changed.
class COREALGORITHMS_EXPORT ComputeIndexOnGuidingLine
{
public:
    /// Of the sample nearest to the point, the first if several are equally near; -1 for an empty
    /// path. One pass over the samples; those beyond 2^31 - 1 are not looked at.
    static int getIndexOf(const QVector3D& point, const QList<QVector3D>& path);
    static int getIndexOf(const QVector3D& point, GuidingLine* line);

    /// The first sample that stands where sample size / 2 stands; -1 for an empty path.
    static int getIndexOfMidPoint(GuidingLine* line);

    /// Exact or interpolated. -1 if the spline has no tooth points or no path. Below the first and
    /// beyond the last tooth of the spline it is the index of that tooth.
    ///
    /// With `mapToSplineArch`, on a spline whose first and last tooth are of one arch, a tooth of
    /// the other arch is answered as its opposite. Interpolation over both arches extrapolates: the
    /// index may be negative or beyond the path.
    static int getToothIndex(ToothChart::Tooth tooth, PlanarDentalSpline* spline,
                             bool mapToSplineArch);

    /// The sample at getToothIndex(); (0, 0, 0) for an index outside the path.
    static QVector3D getToothPosition(ToothChart::Tooth tooth, PlanarDentalSpline* spline,
                                      bool mapToSplineArch);

    /// Index of every tooth point, by ascending tooth.
    static QList<int> getTeethIndices(PlanarDentalSpline* spline);

    /// Position of every tooth point, by tooth number, whatever the arch type.
    static QMap<int, QVector3D> calculateTeethPositions(ToothChart::ArchType archType,
                                                        PlanarDentalSpline* spline);

    /// Interpolated positions of the teeth that lie between the first and the last tooth of the
    /// spline, have no point of their own and are in the mouth; with a null mouth all of them.
    static std::map<ToothChart::Tooth, QVector3D> getIntermediateTeeth(PlanarDentalSpline* spline,
                                                                       dataobject::Mouth* mouth);
};
