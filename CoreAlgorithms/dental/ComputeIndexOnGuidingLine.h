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

/// Finds the sample of a guiding line's path at which a point or a tooth is.
///
/// A guiding line is a curve that other objects are laid along, for instance the dental arch. Its
/// path are its samples, GuidingLine::getOriginalPath(), in world mm. A path index counts them from
/// 0; -1 means that there is none. A tooth that has a point on the spline is at the sample nearest
/// to that point. Any other tooth is interpolated between its neighbors on the spline by the
/// ordinal places in the arch, (tooth - 1) % 16; neither arc length nor distance is used. Nothing
/// is changed.
///
/// Example (examples/find_teeth_on_an_arch.cpp):
/// \code
/// const int sample = ComputeIndexOnGuidingLine::getIndexOf(click, &arch);
/// std::cout << "the click is at sample " << sample << '\n';
/// const int index = ComputeIndexOnGuidingLine::getToothIndex(ToothChart::Tooth(5), &arch, false);
/// std::cout << "tooth 5 is at sample " << index << '\n';
/// const auto between = ComputeIndexOnGuidingLine::getIntermediateTeeth(&arch, nullptr);
/// for (const auto& [tooth, position] : between)
///     std::cout << "tooth " << tooth << " has no point; it is at x = " << position.x() << " mm\n";
/// \endcode
///
/// (1) The index of a point is that of the first sample i for which no sample j has d(j) < d(i),
///     where d is the squared distance x * x + y * y + z * z in single precision.
/// (2) The index has the same value on every machine, whichever instructions it offers.
/// (3) A tooth on the spline has the index of its point, with and without mapToSplineArch.
///
/// A sample whose distance is NaN is never nearer than another, but the first sample stays if its
/// own distance is NaN: a point with NaN is at sample 0. A null spline or line counts as one
/// without path and points; tooth points that are null are skipped.
class COREALGORITHMS_EXPORT ComputeIndexOnGuidingLine
{
public:
    /// Returns the index of the sample nearest to the point, the first if several are equally near;
    /// -1 for an empty path. Takes one pass over the samples; those beyond 2^31 - 1 are skipped.
    static int getIndexOf(const QVector3D& point, const QList<QVector3D>& path);
    /// Does the same for the path of a line.
    static int getIndexOf(const QVector3D& point, GuidingLine* line);

    /// Returns the index of the first sample whose position is that of sample size / 2; -1 for an
    /// empty path.
    static int getIndexOfMidPoint(GuidingLine* line);

    /// Returns the exact or interpolated index of a tooth; -1 if the spline has no tooth points or
    /// no path. A tooth below the first or beyond the last of the spline gets the index of that
    /// one.
    ///
    /// With `mapToSplineArch`, on a spline whose first and last tooth are of one arch, a tooth of
    /// the other arch gets the index of its opposite. Interpolation over both arches extrapolates:
    /// the index may be negative or beyond the path.
    static int getToothIndex(ToothChart::Tooth tooth, PlanarDentalSpline* spline,
                             bool mapToSplineArch);

    /// Returns the sample at getToothIndex(); (0, 0, 0) for an index outside the path.
    static QVector3D getToothPosition(ToothChart::Tooth tooth, PlanarDentalSpline* spline,
                                      bool mapToSplineArch);

    /// Returns the index of every tooth point, by ascending tooth.
    static QList<int> getTeethIndices(PlanarDentalSpline* spline);

    /// Returns the position of every tooth point, by tooth number. The arch type is ignored.
    static QMap<int, QVector3D> calculateTeethPositions(ToothChart::ArchType archType,
                                                        PlanarDentalSpline* spline);

    /// Returns the interpolated positions of the teeth that are between the first and the last
    /// tooth of the spline, have no point of their own and are in the mouth. With a null mouth,
    /// returns those of all such teeth.
    static std::map<ToothChart::Tooth, QVector3D> getIntermediateTeeth(PlanarDentalSpline* spline,
                                                                       dataobject::Mouth* mouth);
};
