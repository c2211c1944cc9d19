// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/Export.h>

#include <QList>
#include <QVector2D>
#include <QVector3D>

#include <cstdint>
#include <limits>

class GuidingSpline;

// The names of the fields are those of the application's settings.
// NOLINTBEGIN(readability-identifier-naming)

/// Two landmarks, and how the nerve runs beside the straight line between them. World mm, degrees.
struct NerveGuidingSplineCalculatorSettings
{
    /// Marks a foramen that has not been placed, in all three coordinates.
    static constexpr float NOT_PLACED = std::numeric_limits<float>::lowest();

    /// Where the nerve leaves the jaw at the front.
    QVector3D mental_foramen{NOT_PLACED, NOT_PLACED, NOT_PLACED};
    /// Where it enters at the back.
    QVector3D mandibular_foramen{NOT_PLACED, NOT_PLACED, NOT_PLACED};
    /// From the middle between the foramina along the perpendicular.
    float middle_point_distance = 0.0F;
    /// Of the start point from the mental foramen.
    float start_point_distance = 0.0F;
    /// 0: along the nerve, 90: along the perpendicular.
    float start_point_angle = 0.0F;
    /// Of the end point from the mandibular foramen.
    float end_point_distance = 0.0F;
    float end_point_angle = 0.0F;
    /// 1 turns the perpendicular round, for the other half of the jaw.
    std::int32_t side = 0;
};

// NOLINTEND(readability-identifier-naming)

/// Which way does the mandibular nerve run between its two foramina, as a first proposal to be
/// edited?
///
/// Five points at the height z midway between the foramina. With d the unit vector from the
/// mandibular (N) towards the mental foramen (M), p = (d.y, -d.x), or (-d.y, d.x) on side 1, a and
/// b the angles over 90 degrees:
///
///     start        M + (a p + (1 - a) d) start_point_distance
///     mental       M
///     middle       (M + N) / 2 + p middle_point_distance
///     mandibular   N
///     end          N - (b p + (1 - b) d) end_point_distance
///
/// The share of the perpendicular is subtracted at the end too: a start and an end of 90 degrees
/// lie on opposite sides of the nerve. For foramina at the same x and y, d and p are (0, 0). Single
/// precision throughout.
///
/// Numbers that are not finite give points that are not; distances are used as they are, negative
/// ones included.
class COREALGORITHMS_EXPORT NerveGuidingSplineCalculator
{
public:
    explicit NerveGuidingSplineCalculator(
        const NerveGuidingSplineCalculatorSettings& nerveSettings);
    NerveGuidingSplineCalculator(const NerveGuidingSplineCalculator&) = default;
    NerveGuidingSplineCalculator& operator=(const NerveGuidingSplineCalculator&) = default;
    virtual ~NerveGuidingSplineCalculator();

    /// Computes the points and puts them in place of those of the spline. False, the spline
    /// untouched, if a foramen is not placed, which is told in the warning log, or for a null
    /// spline. Angles outside [0, 90] are clamped for good, with a warning.
    bool fillSpline(GuidingSpline* spline);

    /// Of the last computation, in the order above; empty before the first.
    QList<QVector3D> getPoints();
    /// Height of the last computation, mm; 0 before the first.
    float getZValue() const;

private:
    bool validateSettings();
    void calculateZValue();
    void generatePoints();
    QVector3D generateStartPoint() const;
    QVector3D generateMentalPoint() const;
    QVector3D generateMiddlePoint() const;
    QVector3D generateMandibularPoint() const;
    QVector3D generateEndPoint() const;
    QVector2D getDirection() const;
    QVector2D getPerpendicular() const;
    float toLerpValue(float angle) const;

    NerveGuidingSplineCalculatorSettings settings;
    float zValue = 0.0F;
    QList<QVector3D> points;
};
