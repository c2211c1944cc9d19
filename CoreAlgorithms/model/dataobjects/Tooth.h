// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

namespace dataobject {

/// Represents one tooth of the patient.
class COREALGORITHMS_MODEL_EXPORT Tooth : public DataObject
{
    COREALGORITHMS_TYPE(Tooth, DataObject)

public:
    enum Status : int { Present = 0, Missing = 1, Planned = 2 };
    enum Category : int { Deciduous = 0, Permanent = 1 };

    /// Constructs a tooth. Its number and category do not change.
    Tooth(ToothChart::Tooth toothType, Status toothStatus, Category toothCategory);

    /// Returns the number of the tooth.
    virtual ToothChart::Tooth getToothType() const;
    /// Returns whether the tooth is present, missing or planned.
    virtual Status getStatus() const;
    /// Sets whether the tooth is present, missing or planned. Notifies the observers.
    virtual void setStatus(Status toothStatus);
    /// Returns whether the tooth is a deciduous or a permanent one.
    virtual Category getCategory() const;

private:
    ToothChart::Tooth type;
    Status status;
    Category category;
};

} // namespace dataobject
