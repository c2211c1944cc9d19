// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QMatrix4x4>
#include <QString>

#include <map>

/// Holds what a bite records: for each jaw part, by its type identifier, the matrix that places the
/// part in the bite. In a segmental bite the upper jaw is cut into segments with a matrix each.
class COREALGORITHMS_MODEL_EXPORT OcclusionBase : public DataObject
{
    COREALGORITHMS_TYPE(OcclusionBase, DataObject)

public:
    /// Returns the matrices by the type identifiers of the jaw parts.
    virtual const std::map<QString, QMatrix4x4>& getTransformations() const;
    /// Replaces all matrices. Notifies the observers.
    virtual void setTransformations(const std::map<QString, QMatrix4x4>& matrices);
    /// Returns true if the upper jaw is cut into segments; false at first.
    virtual bool isSegmental() const;
    /// Sets whether the upper jaw is cut into segments. Notifies the observers.
    virtual void setSegmental(bool isCut);

private:
    std::map<QString, QMatrix4x4> transformations;
    bool segmental = false;
};

/// Represents a bite that was recorded on the patient or on plaster casts.
class COREALGORITHMS_MODEL_EXPORT Occlusion : public OcclusionBase
{
    COREALGORITHMS_TYPE(Occlusion, OcclusionBase)
};

namespace dataobject {

/// Represents a bite that was found on the screen.
class COREALGORITHMS_MODEL_EXPORT VirtualOcclusion : public OcclusionBase
{
    COREALGORITHMS_TYPE(VirtualOcclusion, OcclusionBase)
};

} // namespace dataobject
