// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/ToothLocator.h>

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/dental/ToothLocator_p.h>
#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>

namespace {

// The distance in mm from the occlusal plane to the middle of the crowns.
constexpr float kToothLevelOffset = 7.0F;

constexpr auto kNoTooth = static_cast<ToothChart::Tooth>(hostvalues::kNoTooth);
constexpr std::pair kNobody(kNoTooth, kNoTooth);

std::shared_ptr<CTData> scanBehind(PlanarDentalSpline* spline)
{
    const std::shared_ptr<PlanarReslice> plane = spline ? spline->getPlane() : nullptr;
    return plane ? plane->getCTData() : nullptr;
}

} // namespace

std::pair<ToothChart::Tooth, ToothChart::Tooth>
dental::teethAround(double toothId, ToothChart::Tooth smallest, ToothChart::Tooth largest)
{
    const double nearest = std::trunc(toothId >= 0.0 ? toothId + 0.5 : toothId - 0.5);
    if (!(std::abs(nearest) < 0x1p31))
        return kNobody;
    double neighbor = nearest;
    if (nearest > toothId)
        neighbor -= 1.0;
    else if (nearest < toothId)
        neighbor += 1.0;
    // Intended: only the neighbor is clamped to the spline's teeth; callers get the nearest tooth
    // as it was found.
    neighbor = std::clamp(neighbor, static_cast<double>(smallest), static_cast<double>(largest));
    return {static_cast<ToothChart::Tooth>(static_cast<int>(nearest)),
            static_cast<ToothChart::Tooth>(static_cast<int>(neighbor))};
}

ToothLocator::~ToothLocator() = default;

std::pair<ToothChart::Tooth, ToothChart::Tooth>
ToothLocator::getNearestToothIds(PlanarDentalSpline* spline, const QVector3D& point)
{
    if (!spline)
        return kNobody;
    const auto points = spline->getObjects();
    QMap<int, ToothChart::Tooth> indexToTooth;
    for (auto tooth = points.cbegin(); tooth != points.cend(); ++tooth) {
        if (tooth.value())
            indexToTooth.insert(
                ComputeIndexOnGuidingLine::getIndexOf(tooth.value()->getPosition(), spline),
                tooth.key());
    }
    const int index = ComputeIndexOnGuidingLine::getIndexOf(point, spline);
    if (indexToTooth.isEmpty() || index == -1)
        return kNobody;
    return dental::teethAround(calculateToothIdByInterpolation(indexToTooth, index),
                               points.firstKey(), points.lastKey());
}

double
ToothLocator::calculateToothIdByInterpolation(const QMap<int, ToothChart::Tooth>& indexToTooth,
                                              int index)
{
    if (indexToTooth.isEmpty())
        return 0.0;
    const auto upper = indexToTooth.upperBound(index);
    if (upper == indexToTooth.cend())
        return static_cast<double>(indexToTooth.last());
    if (upper == indexToTooth.cbegin())
        return static_cast<double>(upper.value());
    const auto lower = std::prev(upper);
    const double share = (static_cast<double>(index) - lower.key()) /
                         (static_cast<double>(upper.key()) - lower.key());
    return static_cast<double>(lower.value()) * (1.0 - share) +
           static_cast<double>(upper.value()) * share;
}

float ToothLocator::getToothHeight(PlanarDentalSpline* spline, JawType jaw)
{
    const std::shared_ptr<CTData> scan = scanBehind(spline);
    const std::shared_ptr<ImageVolume> volume = scan ? scan->getImageVolume() : nullptr;
    if (!volume)
        return 0.0F;
    const float height =
        static_cast<float>(spline->getOcclusalIndex()) * volume->getImage().voxelSize().z();
    return static_cast<int>(jaw) == hostvalues::kLowerJaw ? height - kToothLevelOffset
                                                          : height + kToothLevelOffset;
}
