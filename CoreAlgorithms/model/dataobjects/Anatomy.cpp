// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Anatomy.h>

#include <utility>

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
