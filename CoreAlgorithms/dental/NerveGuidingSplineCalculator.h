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

/// Holds two landmarks, and how the nerve runs next to the straight line between them. Positions
/// and distances are in world mm, angles in degrees.
///
/// A foramen is an opening in the bone through which the nerve passes.
struct NerveGuidingSplineCalculatorSettings
{
    /// Marks a foramen that has not been placed, in all three coordinates.
    static constexpr float NOT_PLACED = std::numeric_limits<float>::lowest();

    /// Where the nerve leaves the lower jaw at the front.
    QVector3D mental_foramen{NOT_PLACED, NOT_PLACED, NOT_PLACED};
    /// Where the nerve enters the lower jaw at the back.
    QVector3D mandibular_foramen{NOT_PLACED, NOT_PLACED, NOT_PLACED};
    /// Distance of the middle point from the middle between the foramina, along the perpendicular.
    float middle_point_distance = 0.0F;
    /// Distance of the start point from the mental foramen.
    float start_point_distance = 0.0F;
    /// Direction of the start point: 0 is along the nerve, 90 along the perpendicular.
    float start_point_angle = 0.0F;
    /// Distance of the end point from the mandibular foramen.
    float end_point_distance = 0.0F;
    /// Direction of the end point, as for the start point.
    float end_point_angle = 0.0F;
    /// Reverses the perpendicular if it is 1, for the other half of the jaw.
    std::int32_t side = 0;
};

// NOLINTEND(readability-identifier-naming)

/// Proposes the course of the mandibular nerve, the nerve in the lower jaw, between its two
/// foramina.
///
/// The proposal is a first guess for the surgeon to edit, so that planning software can keep
/// implants away from the nerve. It has five points at the height z midway between the foramina.
/// Let d be the unit vector in x and y from the mandibular (N) towards the mental foramen (M),
/// p = (d.y, -d.x), or (-d.y, d.x) on side 1, and a and b the angles over 90 degrees. The points
/// are
///
///     start        M + (a p + (1 - a) d) start_point_distance
///     mental       M
///     middle       (M + N) / 2 + p middle_point_distance
///     mandibular   N
///     end          N - (b p + (1 - b) d) end_point_distance
///
/// The share of the perpendicular is subtracted at the end too: a start and an end of 90 degrees
/// are on opposite sides of the nerve. For foramina at the same x and y, d and p are (0, 0). All
/// computations are in single precision. Distances may be negative; numbers that are not finite
/// give points that are not finite.
///
/// Example (examples/propose_a_nerve.cpp):
/// \code
/// NerveGuidingSplineCalculatorSettings settings;
/// settings.mandibular_foramen = mandibularForamen;
/// settings.mental_foramen = mentalForamen;
/// settings.middle_point_distance = -1.5F;
/// settings.start_point_distance = 10.0F;
/// settings.start_point_angle = 90.0F;
/// settings.end_point_distance = 10.0F;
/// settings.end_point_angle = 90.0F;
/// NerveGuidingSplineCalculator calculator(settings);
/// GuidingSpline nerve;
/// if (calculator.fillSpline(&nerve))
///     std::cout << "the nerve runs at z = " << calculator.getZValue() << " mm\n";
/// \endcode
class COREALGORITHMS_EXPORT NerveGuidingSplineCalculator
{
public:
    /// Stores a copy of the settings.
    explicit NerveGuidingSplineCalculator(
        const NerveGuidingSplineCalculatorSettings& nerveSettings);
    NerveGuidingSplineCalculator(const NerveGuidingSplineCalculator&) = default;
    NerveGuidingSplineCalculator& operator=(const NerveGuidingSplineCalculator&) = default;
    virtual ~NerveGuidingSplineCalculator();

    /// Computes the points and replaces those of the spline by them. Returns false and leaves the
    /// spline unchanged if it is null, or, with a warning, if a foramen is not placed. Angles
    /// outside [0, 90] are clamped in the stored settings, with a warning.
    bool fillSpline(GuidingSpline* spline);

    /// Returns the points of the last computation, in the order above; empty before the first one.
    QList<QVector3D> getPoints();
    /// Returns the height of the last computation in mm, or 0 before the first one.
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
