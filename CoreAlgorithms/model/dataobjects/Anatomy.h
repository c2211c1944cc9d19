// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/Mouth.h>

#include <memory>

class Surface3DModel;

/// Holds what is known of the patient's body.
class COREALGORITHMS_MODEL_EXPORT Anatomy : public DataObject
{
    COREALGORITHMS_TYPE(Anatomy, DataObject)

public:
    /// Returns the mouth, or null until one is set.
    virtual std::shared_ptr<dataobject::Mouth> getMouth() const;
    /// Sets the mouth, which may be null. Notifies the observers.
    virtual void setMouth(std::shared_ptr<dataobject::Mouth> patientMouth);

    /// Returns the skull before any surgery, or null until one is set.
    virtual std::shared_ptr<Surface3DModel> getOriginalCranium() const;
    /// Returns the lower jaw before any surgery, or null until one is set.
    virtual std::shared_ptr<Surface3DModel> getOriginalMandible() const;
    /// Sets skull and lower jaw before any surgery, each of which may be null. Notifies the
    /// observers.
    virtual void setOriginalModels(std::shared_ptr<Surface3DModel> originalCranium,
                                   std::shared_ptr<Surface3DModel> originalMandible);

private:
    std::shared_ptr<dataobject::Mouth> mouth;
    std::shared_ptr<Surface3DModel> cranium;
    std::shared_ptr<Surface3DModel> mandible;
};
