// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/PlanarDentalSpline.h>

QMap<ToothChart::Tooth, std::shared_ptr<Point>> PlanarDentalSpline::getObjects() const
{
    return teeth;
}

void PlanarDentalSpline::setTooth(ToothChart::Tooth tooth, const std::shared_ptr<Point>& point)
{
    if (point && !getControlPoints().contains(point))
        return;
    teeth.remove(tooth);
    if (point) {
        teeth.removeIf([&point](const auto& entry) { return entry.value() == point; });
        teeth.insert(tooth, point);
    }
    changed();
}

void PlanarDentalSpline::clear()
{
    teeth.clear();
    PlanarGuidingSpline::clear();
}

void PlanarDentalSpline::removeControlPoint(const std::shared_ptr<Point>& point)
{
    teeth.removeIf([&point](const auto& entry) { return entry.value() == point; });
    PlanarGuidingSpline::removeControlPoint(point);
}

void PlanarDentalSpline::replaceControlPoints(const QList<std::shared_ptr<Point>>& replacements)
{
    const QList<std::shared_ptr<Point>> former = getControlPoints();
    for (auto& point : teeth)
        point = replacements[former.indexOf(point)];
    PlanarGuidingSpline::replaceControlPoints(replacements);
}

int PlanarDentalSpline::getOcclusalIndex() const
{
    return occlusalIndex;
}

void PlanarDentalSpline::setOcclusalIndex(int sliceIndex)
{
    occlusalIndex = sliceIndex;
}

ToothChart::ArchType PlanarDentalSpline::getArchType() const
{
    return archType;
}

void PlanarDentalSpline::setArchType(ToothChart::ArchType arch)
{
    archType = arch;
}

CreationType PlanarDentalSpline::getCreationType() const
{
    return creationType;
}

void PlanarDentalSpline::setCreationType(CreationType type)
{
    creationType = type;
}
