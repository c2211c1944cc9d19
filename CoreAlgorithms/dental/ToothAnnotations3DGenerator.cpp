// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/ToothAnnotations3DGenerator.h>

#include <CoreAlgorithms/dental/ComputeIndexOnGuidingLine.h>
#include <CoreAlgorithms/dental/OcclusalPropertiesCalculator.h>
#include <CoreAlgorithms/model/HostValues_p.h>
#include <CoreAlgorithms/model/dataobjects/CTData.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>
#include <CoreAlgorithms/model/dataobjects/Reslices.h>
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <algorithm>

namespace {

using Annotations = QList<std::shared_ptr<ToothAnnotation3D>>;

// The distance in mm of a label from the occlusal height, into the tooth's own jaw.
constexpr float kLabelOffset = 9.0F;

constexpr auto kUpperArch = static_cast<ToothChart::ArchType>(hostvalues::kUpperArch);
constexpr auto kLowerArch = static_cast<ToothChart::ArchType>(hostvalues::kLowerArch);

float labelOffset(ToothChart::ArchType archType)
{
    return archType == kUpperArch ? kLabelOffset : -kLabelOffset;
}

QList<ToothChart::Tooth> regionOf(const PlanarDentalSpline& spline)
{
    const auto points = spline.getObjects();
    return points.isEmpty()
               ? QList<ToothChart::Tooth>()
               : ToothChart::createContinuousRegion(points.firstKey(), points.lastKey());
}

} // namespace

Annotations ToothAnnotations3DGenerator::generate(const QList<PlanarDentalSpline*>& splines,
                                                  const QList<ToothChart::Tooth>& teeth,
                                                  dataobject::Mouth* mouth)
{
    if (splines.size() == 1)
        return generate(splines.first(), teeth, mouth);
    if (splines.size() != 2)
        return {};
    Annotations annotations;
    for (PlanarDentalSpline* spline : splines) {
        if (spline)
            annotations += generate(
                spline, ToothChart::filterTeethForArchType(teeth, spline->getArchType()), mouth);
    }
    return annotations;
}

std::shared_ptr<ToothAnnotation3D> ToothAnnotations3DGenerator::generate(
    const QList<PlanarDentalSpline*>& splines, const QList<ToothChart::Tooth>& teeth,
    // NOLINTNEXTLINE(performance-unnecessary-value-param): the header takes a copy
    std::shared_ptr<dataobject::Tooth> tooth)
{
    if (!tooth || !teeth.contains(tooth->getToothType()))
        return nullptr;
    const ToothChart::Tooth type = tooth->getToothType();
    const ToothChart::ArchType archType = ToothChart::getArchTypeOfTooth(type);
    const auto ofArch = std::ranges::find_if(splines, [archType](PlanarDentalSpline* spline) {
        return spline && spline->getArchType() == archType;
    });
    const bool found = ofArch != splines.end();
    const auto chosen =
        found ? ofArch
              : std::ranges::find_if(splines, [](auto* spline) { return spline != nullptr; });
    if (chosen == splines.end())
        return nullptr;
    QVector3D position = ComputeIndexOnGuidingLine::getToothPosition(
        found ? type : ToothChart::getOppositeTooth(type), *chosen, false);
    position.setZ(occlusalHeightOfSpline(*chosen, position.z()));
    return makeToothAnnotation(tooth, position, labelOffset(archType),
                               getDirection(*chosen, position));
}

Annotations ToothAnnotations3DGenerator::generate(PlanarDentalSpline* spline,
                                                  const QList<ToothChart::Tooth>& teeth,
                                                  dataobject::Mouth* mouth)
{
    if (!spline || !mouth)
        return {};
    const bool bothArches = !ToothChart::filterTeethForArchType(teeth, kUpperArch).isEmpty() &&
                            !ToothChart::filterTeethForArchType(teeth, kLowerArch).isEmpty();
    const ToothChart::ArchType archType = spline->getArchType();
    Annotations annotations;
    for (const ToothChart::Tooth toothType : regionOf(*spline)) {
        const std::shared_ptr<dataobject::Tooth> tooth = mouth->getToothForToothType(toothType);
        if (!tooth)
            continue;
        QVector3D position = ComputeIndexOnGuidingLine::getToothPosition(toothType, spline, false);
        position.setZ(occlusalHeightOfSpline(spline, position.z()));
        annotations +=
            createToothAnnotation(tooth, archType, position, labelOffset(archType),
                                  getDirection(spline, position), teeth, bothArches, mouth);
    }
    return annotations;
}

Annotations ToothAnnotations3DGenerator::createToothAnnotation(
    // NOLINTNEXTLINE(performance-unnecessary-value-param): the header takes a copy
    std::shared_ptr<dataobject::Tooth> tooth, ToothChart::ArchType archType, QVector3D position,
    float offset, QVector3D direction, const QList<ToothChart::Tooth>& teeth, bool bothArches,
    dataobject::Mouth* mouth)
{
    Annotations annotations;
    if (!tooth || !mouth)
        return annotations;
    const ToothChart::Tooth ownType = tooth->getToothType();
    const ToothChart::Tooth type = getToothFromArchType(ownType, archType);
    if (mouth->hasTooth(type))
        annotations.append(
            makeToothAnnotation(mouth->getToothForToothType(type), position, offset, direction));
    if (bothArches) {
        const ToothChart::Tooth opposite = ToothChart::getOppositeTooth(ownType);
        const ToothChart::ArchType ownArch = ToothChart::getArchTypeOfTooth(ownType);
        const ToothChart::ArchType otherArch = ownArch == kUpperArch ? kLowerArch : kUpperArch;
        // Intended: the opposing label does not depend on whether the mouth has the tooth; a
        // requested tooth that is missing gets its label for the tooth that is to be created.
        if (ToothChart::filterTeethForArchType(teeth, otherArch).contains(opposite))
            annotations.append(makeToothAnnotation(mouth->getToothForToothType(opposite), position,
                                                   labelOffset(ToothChart::getOppositeJaw(ownArch)),
                                                   direction));
    }
    return annotations;
}

std::shared_ptr<ToothAnnotation3D>
ToothAnnotations3DGenerator::makeToothAnnotation(const std::shared_ptr<dataobject::Tooth>& tooth,
                                                 QVector3D position, float offset,
                                                 const QVector3D& direction)
{
    position.setZ(position.z() + offset);
    auto annotation = std::make_shared<ToothAnnotation3D>();
    annotation->setPosition(position);
    annotation->setTooth(tooth);
    annotation->setDirection(direction);
    return annotation;
}

float ToothAnnotations3DGenerator::occlusalHeightOfSpline(PlanarDentalSpline* spline, float height)
{
    const std::shared_ptr<PlanarReslice> plane = spline->getPlane();
    const std::shared_ptr<CTData> scan = plane ? plane->getCTData() : nullptr;
    if (!scan)
        return height;
    return occlusalPropertiesCalculator::getOcclusalCenterPercentage(
               scan->getOcclusalPlaneDefinition()) *
           scan->getBoundingBox().center().z();
}

QVector3D ToothAnnotations3DGenerator::getDirection(PlanarDentalSpline* spline, QVector3D position)
{
    return spline->getDirection(ComputeIndexOnGuidingLine::getIndexOf(position, spline));
}

ToothChart::Tooth ToothAnnotations3DGenerator::getToothFromArchType(ToothChart::Tooth tooth,
                                                                    ToothChart::ArchType archType)
{
    return ToothChart::getArchTypeOfTooth(tooth) == archType ? tooth
                                                             : ToothChart::getOppositeTooth(tooth);
}
