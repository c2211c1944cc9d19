// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

#include <memory>

class GuidingLine;

namespace dataobject {

/// Represents a jaw joint, which is drawn as a line along the condyle.
class COREALGORITHMS_MODEL_EXPORT TemporomandibularJoint : public DataObject
{
    COREALGORITHMS_TYPE(TemporomandibularJoint, DataObject)

public:
    /// Returns the line, or null until one is set.
    virtual std::shared_ptr<GuidingLine> getGuidingLine() const;
    /// Sets the line, which may be null. Notifies the observers.
    virtual void setGuidingLine(std::shared_ptr<GuidingLine> guidingLine);

private:
    std::shared_ptr<GuidingLine> line;
};

} // namespace dataobject
