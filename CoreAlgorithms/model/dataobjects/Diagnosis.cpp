// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Diagnosis.h>

#include <utility>

std::shared_ptr<Anatomy> Diagnosis::getPatientAnatomy() const
{
    return anatomy;
}

void Diagnosis::setPatientAnatomy(std::shared_ptr<Anatomy> patientAnatomy)
{
    anatomy = std::move(patientAnatomy);
    changed();
}
