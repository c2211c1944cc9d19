// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/PlanarDentalSplineUpdater.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

using TeethPositions = QMap<ToothChart::Tooth, QVector3D>;

bool isFuzzilyEqual(const QVector3D& a, const QVector3D& b)
{
    return qFuzzyCompare(a, b);
}

bool isExactlyEqual(const QVector3D& a, const QVector3D& b)
{
    return a.x() == b.x() && a.y() == b.y() && a.z() == b.z();
}

// Tags the point with the first tooth that has its position.
template <typename IsEqual>
void tag(PlanarDentalSpline& spline, const std::shared_ptr<Point>& point,
         const TeethPositions& teethPositions, const IsEqual& isEqual)
{
    if (!point)
        return;
    const QVector3D position = point->getPosition();
    const auto tooth = std::ranges::find_if(
        teethPositions, [&](const QVector3D& candidate) { return isEqual(candidate, position); });
    if (tooth != teethPositions.cend())
        spline.setTooth(tooth.key(), point);
}

void rebuildPoints(PlanarDentalSpline& spline, const std::vector<QVector3D>& pointPositions,
                   const TeethPositions& teethPositions)
{
    spline.clear();
    const auto last = std::prev(pointPositions.end());
    for (auto position = pointPositions.begin(); position != last; ++position)
        tag(spline, spline.appendControlPoint(*position), teethPositions, isFuzzilyEqual);
    // Intended: the last point alone is compared exactly. Arches whose last tooth is next to, but
    // not at the end of the curve rely on it: the end is not tagged.
    tag(spline, spline.appendLastControlPoint(*last), teethPositions, isExactlyEqual);
}

std::unique_ptr<math::Spline3DInterface> cloneCurveOf(const PlanarDentalSpline& spline)
{
    const math::Spline3DInterface* curve = spline.getSpline();
    return curve ? curve->clone() : nullptr;
}

} // namespace

void PlanarDentalSplineUpdater::update(PlanarDentalSpline& spline,
                                       const std::vector<QVector3D>& pointPositions,
                                       const QMap<ToothChart::Tooth, QVector3D>& teethPositions,
                                       int occlusalIndex, ToothChart::ArchType archType,
                                       std::unique_ptr<math::Spline3DInterface> curve,
                                       CreationType creationType)
{
    spline.setSpline(std::move(curve));
    const bool recordedUndo = spline.isCreateUndoEnabledForObject();
    spline.enableCreateUndoForObjectAndProperties(false);
    if (!pointPositions.empty()) {
        spline.setNotifyObservers(false);
        rebuildPoints(spline, pointPositions, teethPositions);
        spline.setNotifyObservers(true);
        spline.pointsChanged();
        spline.notifyGuidingLineObservers();
    }
    spline.setOcclusalIndex(occlusalIndex);
    spline.setArchType(archType);
    spline.setCreationType(creationType);
    spline.enableCreateUndoForObjectAndProperties(recordedUndo);
}

void PlanarDentalSplineUpdater::copy(const PlanarDentalSpline& source, PlanarDentalSpline& target,
                                     bool cloneSourceSpline)
{
    const CreationType creationType = source.getCreationType();
    const ToothChart::ArchType archType = source.getArchType();
    const int occlusalIndex = source.getOcclusalIndex();
    const TeethPositions teeth = getTeethPositions(source);
    const std::vector<QVector3D> points = getPointPositions(source);
    update(target, points, teeth, occlusalIndex, archType,
           cloneCurveOf(cloneSourceSpline ? source : target), creationType);
}

void PlanarDentalSplineUpdater::transform(PlanarDentalSpline& spline, const QMatrix4x4& matrix,
                                          int occlusalIndex)
{
    std::vector<QVector3D> points = getPointPositions(spline);
    for (QVector3D& point : points)
        point = matrix.map(point);
    TeethPositions teeth = getTeethPositions(spline);
    for (QVector3D& tooth : teeth)
        tooth = matrix.map(tooth);
    const ToothChart::ArchType archType = spline.getArchType();
    std::unique_ptr<math::Spline3DInterface> curve = cloneCurveOf(spline);
    const CreationType creationType = spline.getCreationType();
    update(spline, points, teeth, occlusalIndex, archType, std::move(curve), creationType);
}

std::vector<QVector3D>
PlanarDentalSplineUpdater::getPointPositions(const PlanarDentalSpline& spline)
{
    std::vector<QVector3D> positions;
    const QList<std::shared_ptr<Point>> points = spline.getControlPoints();
    positions.reserve(points.size());
    for (const auto& point : points) {
        if (point)
            positions.push_back(point->getPosition());
    }
    return positions;
}

QMap<ToothChart::Tooth, QVector3D>
PlanarDentalSplineUpdater::getTeethPositions(const PlanarDentalSpline& spline)
{
    TeethPositions positions;
    const auto points = spline.getObjects();
    for (auto tooth = points.cbegin(); tooth != points.cend(); ++tooth) {
        if (tooth.value())
            positions.insert(tooth.key(), tooth.value()->getPosition());
    }
    return positions;
}
