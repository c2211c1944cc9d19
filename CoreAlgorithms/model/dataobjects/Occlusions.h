// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <QMatrix4x4>
#include <QString>

#include <map>

/// What a bite records: for each jaw part, by its class type identifier, the matrix that places it
/// in the bite. In a segmental bite the upper jaw is cut into segments with a matrix each.
class COREALGORITHMS_MODEL_EXPORT OcclusionBase : public DataObject
{
    COREALGORITHMS_TYPE(OcclusionBase, DataObject)

public:
    virtual const std::map<QString, QMatrix4x4>& getTransformations() const;
    virtual void setTransformations(const std::map<QString, QMatrix4x4>& matrices);
    virtual bool isSegmental() const;
    virtual void setSegmental(bool isCut);

private:
    std::map<QString, QMatrix4x4> transformations;
    bool segmental = false;
};

/// A bite that was recorded on the patient or on plaster casts.
class COREALGORITHMS_MODEL_EXPORT Occlusion : public OcclusionBase
{
    COREALGORITHMS_TYPE(Occlusion, OcclusionBase)
};

namespace dataobject {

/// A bite that was found on the screen.
class COREALGORITHMS_MODEL_EXPORT VirtualOcclusion : public OcclusionBase
{
    COREALGORITHMS_TYPE(VirtualOcclusion, OcclusionBase)
};

} // namespace dataobject
