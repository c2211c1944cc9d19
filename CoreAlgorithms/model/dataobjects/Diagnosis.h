// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/Anatomy.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <memory>

/// Describes the patient before any planning.
class COREALGORITHMS_MODEL_EXPORT Diagnosis : public DataObject
{
    COREALGORITHMS_TYPE(Diagnosis, DataObject)

public:
    /// Returns the anatomy, or null until one is set.
    virtual std::shared_ptr<Anatomy> getPatientAnatomy() const;
    /// Sets the anatomy, which may be null. Notifies the observers.
    virtual void setPatientAnatomy(std::shared_ptr<Anatomy> patientAnatomy);

private:
    std::shared_ptr<Anatomy> anatomy;
};
