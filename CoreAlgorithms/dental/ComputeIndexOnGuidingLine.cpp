// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>

#include <CoreAlgorithms/dental/NearestSample_p.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <memory>

namespace {

constexpr int kTeethPerArch = 16;

using ToothPoints = QMap<ToothChart::Tooth, std::shared_ptr<Point>>;

ToothPoints toothPointsOf(const PlanarDentalSpline* spline)
{
    ToothPoints points = spline ? spline->getObjects() : ToothPoints();
    points.removeIf([](const auto& entry) { return !entry.value(); });
    return points;
}

// Returns the opposite of a tooth of the other arch on a spline of one arch, else the tooth.
ToothChart::Tooth mappedToArchOf(const ToothPoints& points, ToothChart::Tooth tooth)
{
    const ToothChart::ArchType first = ToothChart::getArchTypeOfTooth(points.firstKey());
    const ToothChart::ArchType last = ToothChart::getArchTypeOfTooth(points.lastKey());
    if (first == last && ToothChart::getArchTypeOfTooth(tooth) != first)
        return ToothChart::getOppositeTooth(tooth);
    return tooth;
}

// Returns the tooth's place along its arch, 0 to 15 for a tooth.
float ordinalOf(ToothChart::Tooth tooth)
{
    return static_cast<float>((static_cast<long long>(tooth) - 1) % kTeethPerArch);
}

// Rounds half away from zero. Returns the nearest int beyond the range of int, which no path
// reaches.
int rounded(float value)
{
    const float moved = value >= 0.0F ? value + 0.5F : value - 0.5F;
    if (moved >= 0x1p31F)
        return std::numeric_limits<int>::max();
    if (moved <= -0x1p31F)
        return std::numeric_limits<int>::min();
    return static_cast<int>(moved);
}

int interpolated(const ToothPoints& points, ToothChart::Tooth tooth, const QList<QVector3D>& path)
{
    const auto above = points.upperBound(tooth);
    const auto upper = above != points.end() ? above : std::prev(points.end());
    const auto notBelow = points.lowerBound(tooth);
    const auto lower = notBelow != points.begin() ? std::prev(notBelow) : points.begin();

    const int lowerIndex =
        ComputeIndexOnGuidingLine::getIndexOf(lower.value()->getPosition(), path);
    const int upperIndex =
        ComputeIndexOnGuidingLine::getIndexOf(upper.value()->getPosition(), path);
    const float lowerOrdinal = ordinalOf(lower.key());
    const float upperOrdinal = ordinalOf(upper.key());
    if (lowerOrdinal == upperOrdinal)
        return lowerIndex;
    const float share = (ordinalOf(tooth) - lowerOrdinal) / (upperOrdinal - lowerOrdinal);
    return rounded(static_cast<float>(lowerIndex) +
                   static_cast<float>(upperIndex - lowerIndex) * share);
}

} // namespace

int ComputeIndexOnGuidingLine::getIndexOf(const QVector3D& point, const QList<QVector3D>& path)
{
    if (path.isEmpty())
        return -1;
    const auto size =
        static_cast<int>(std::min<qsizetype>(path.size(), std::numeric_limits<int>::max()));
    return dental::findNearestSample(point, path.constData(), size);
}

int ComputeIndexOnGuidingLine::getIndexOf(const QVector3D& point, GuidingLine* line)
{
    return line ? getIndexOf(point, line->getOriginalPath()) : -1;
}

int ComputeIndexOnGuidingLine::getIndexOfMidPoint(GuidingLine* line)
{
    if (!line)
        return -1;
    const QList<QVector3D>& path = line->getOriginalPath();
    // Intended: the middle sample is searched for, so that a path which passes there twice gives
    // the first passage; callers that look up the index of that position get the same.
    return path.isEmpty() ? -1 : getIndexOf(path[path.size() / 2], path);
}

int ComputeIndexOnGuidingLine::getToothIndex(ToothChart::Tooth tooth, PlanarDentalSpline* spline,
                                             bool mapToSplineArch)
{
    const ToothPoints points = toothPointsOf(spline);
    if (points.isEmpty())
        return -1;
    if (mapToSplineArch)
        tooth = mappedToArchOf(points, tooth);
    const QList<QVector3D>& path = spline->getOriginalPath();
    const auto own = points.constFind(tooth);
    if (own != points.cend())
        return getIndexOf(own.value()->getPosition(), path);
    return interpolated(points, tooth, path);
}

QVector3D ComputeIndexOnGuidingLine::getToothPosition(ToothChart::Tooth tooth,
                                                      PlanarDentalSpline* spline,
                                                      bool mapToSplineArch)
{
    const int index = getToothIndex(tooth, spline, mapToSplineArch);
    return index >= 0 ? spline->getOriginalPath().value(index) : QVector3D();
}

QList<int> ComputeIndexOnGuidingLine::getTeethIndices(PlanarDentalSpline* spline)
{
    QList<int> indices;
    const QList<ToothChart::Tooth> teeth = toothPointsOf(spline).keys();
    for (const ToothChart::Tooth tooth : teeth) {
        const int index = getToothIndex(tooth, spline, false);
        if (index != -1)
            indices.append(index);
    }
    return indices;
}

QMap<int, QVector3D>
ComputeIndexOnGuidingLine::calculateTeethPositions(ToothChart::ArchType /*archType*/,
                                                   PlanarDentalSpline* spline)
{
    // Intended: the arch type is ignored. Callers that need the teeth of either jaw get all teeth
    // of an arch that serves both.
    QMap<int, QVector3D> positions;
    const ToothPoints points = toothPointsOf(spline);
    for (auto tooth = points.cbegin(); tooth != points.cend(); ++tooth)
        positions.insert(tooth.key(), tooth.value()->getPosition());
    return positions;
}

std::map<ToothChart::Tooth, QVector3D>
ComputeIndexOnGuidingLine::getIntermediateTeeth(PlanarDentalSpline* spline,
                                                dataobject::Mouth* mouth)
{
    const ToothPoints points = toothPointsOf(spline);
    if (points.isEmpty())
        return {};
    std::map<ToothChart::Tooth, QVector3D> intermediate;
    for (const ToothChart::Tooth tooth :
         ToothChart::createContinuousRegion(points.firstKey(), points.lastKey())) {
        const bool isInMouth = !mouth || mouth->getToothForToothType(tooth);
        if (isInMouth && !points.contains(tooth))
            intermediate.emplace(tooth, getToothPosition(tooth, spline, false));
    }
    return intermediate;
}
