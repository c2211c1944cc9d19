// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>

#include <QString>

/// Root of every object of the model. Each class publishes an identifier through its static
/// getClassTypeId() and answers isOfType() for its own identifier and for those of its bases.
/// Objects have identity and are not copied.
class COREALGORITHMS_MODEL_EXPORT CoreObject
{
public:
    CoreObject() = default;
    CoreObject(const CoreObject&) = delete;
    CoreObject& operator=(const CoreObject&) = delete;
    virtual ~CoreObject();

    static QString getClassTypeId();

    /// True if the object is of the class with this identifier, or of one derived from it.
    virtual bool isOfType(const QString& classTypeId) const;
};
