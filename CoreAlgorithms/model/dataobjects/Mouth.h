// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>
#include <CoreAlgorithms/model/dataobjects/Tooth.h>
#include <CoreAlgorithms/model/fundamentals/ToothChart.h>

#include <QMap>
#include <QSet>

#include <memory>

namespace dataobject {

/// Holds all teeth of the patient, at most one for each number.
class COREALGORITHMS_MODEL_EXPORT Mouth : public DataObject
{
    COREALGORITHMS_TYPE(Mouth, DataObject)

public:
    /// Adds a tooth, which replaces one of the same number. Notifies the observers. Does nothing
    /// for null.
    virtual void addTooth(const std::shared_ptr<Tooth>& tooth);
    /// Removes a tooth. Notifies the observers. Does nothing if the tooth does not belong to the
    /// mouth.
    virtual void removeTooth(const std::shared_ptr<Tooth>& tooth);

    /// Returns true if the mouth has a tooth of this number.
    virtual bool hasTooth(ToothChart::Tooth toothType) const;
    /// Returns the tooth of this number, or null if the mouth has none.
    virtual std::shared_ptr<Tooth> getToothForToothType(ToothChart::Tooth toothType) const;
    /// Returns all teeth.
    virtual QSet<std::shared_ptr<Tooth>> getAllTeethUnsorted() const;

private:
    QMap<ToothChart::Tooth, std::shared_ptr<Tooth>> teeth;
};

} // namespace dataobject
