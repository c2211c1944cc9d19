// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Teeth.h>

#include <CoreAlgorithms/model/dataobjects/SurfaceModels.h>

#include <utility>

namespace dataobject {

Tooth::Tooth(ToothChart::Tooth toothType, Status toothStatus, Category toothCategory)
    : type(toothType), status(toothStatus), category(toothCategory)
{}

ToothChart::Tooth Tooth::getToothType() const
{
    return type;
}

Tooth::Status Tooth::getStatus() const
{
    return status;
}

void Tooth::setStatus(Status toothStatus)
{
    status = toothStatus;
    changed();
}

Tooth::Category Tooth::getCategory() const
{
    return category;
}

void Mouth::addTooth(const std::shared_ptr<Tooth>& tooth)
{
    if (!tooth)
        return;
    teeth.insert(tooth->getToothType(), tooth);
    changed();
}

void Mouth::removeTooth(const std::shared_ptr<Tooth>& tooth)
{
    if (teeth.removeIf([&tooth](const auto& entry) { return entry.value() == tooth; }) > 0)
        changed();
}

bool Mouth::hasTooth(ToothChart::Tooth toothType) const
{
    return teeth.contains(toothType);
}

std::shared_ptr<Tooth> Mouth::getToothForToothType(ToothChart::Tooth toothType) const
{
    return teeth.value(toothType);
}

QSet<std::shared_ptr<Tooth>> Mouth::getAllTeethUnsorted() const
{
    return {teeth.cbegin(), teeth.cend()};
}

} // namespace dataobject

std::shared_ptr<dataobject::Mouth> Anatomy::getMouth() const
{
    return mouth;
}

void Anatomy::setMouth(std::shared_ptr<dataobject::Mouth> patientMouth)
{
    mouth = std::move(patientMouth);
    changed();
}

std::shared_ptr<Surface3DModel> Anatomy::getOriginalCranium() const
{
    return cranium;
}

std::shared_ptr<Surface3DModel> Anatomy::getOriginalMandible() const
{
    return mandible;
}

void Anatomy::setOriginalModels(std::shared_ptr<Surface3DModel> originalCranium,
                                std::shared_ptr<Surface3DModel> originalMandible)
{
    cranium = std::move(originalCranium);
    mandible = std::move(originalMandible);
    changed();
}

std::shared_ptr<Anatomy> Diagnosis::getPatientAnatomy() const
{
    return anatomy;
}

void Diagnosis::setPatientAnatomy(std::shared_ptr<Anatomy> patientAnatomy)
{
    anatomy = std::move(patientAnatomy);
    changed();
}

ToothChart::Tooth ToothAnnotation3D::getToothType() const
{
    return tooth ? tooth->getToothType() : typeWithoutTooth;
}

void ToothAnnotation3D::setToothType(ToothChart::Tooth toothType)
{
    typeWithoutTooth = toothType;
    changed();
}

std::shared_ptr<dataobject::Tooth> ToothAnnotation3D::getTooth() const
{
    return tooth;
}

void ToothAnnotation3D::setTooth(const std::shared_ptr<dataobject::Tooth>& linkedTooth)
{
    tooth = linkedTooth;
    if (tooth)
        typeWithoutTooth = tooth->getToothType();
    changed();
}

QVector3D ToothAnnotation3D::getPosition() const
{
    return position;
}

void ToothAnnotation3D::setPosition(const QVector3D& positionMm)
{
    position = positionMm;
    changed();
}

QVector3D ToothAnnotation3D::getDirection() const
{
    return direction;
}

void ToothAnnotation3D::setDirection(const QVector3D& alongArch)
{
    direction = alongArch;
    changed();
}

CreationType ToothAnnotation3D::getCreationType() const
{
    return creationType;
}

void ToothAnnotation3D::setCreationType(CreationType type)
{
    creationType = type;
    changed();
}

void ToothAnnotation3D::applyTransform(const QMatrix4x4& matrix)
{
    position = matrix.map(position);
    direction = matrix.mapVector(direction);
    changed();
}
