// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/fundamentals/TypeIdentity.h>

#include <QString>

/// Is the root of all objects of the model. A class that derives from it publishes its type
/// identifier with COREALGORITHMS_TYPE. Objects have identity and are not copied.
class COREALGORITHMS_MODEL_EXPORT CoreObject
{
public:
    CoreObject() = default;
    CoreObject(const CoreObject&) = delete;
    CoreObject& operator=(const CoreObject&) = delete;
    virtual ~CoreObject();

    /// Returns the type identifier of the class.
    static QString getClassTypeId();

    /// Returns true if the object is of the class with this identifier, or of one derived from it.
    virtual bool isOfType(const QString& classTypeId) const;
};
