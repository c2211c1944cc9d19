// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/fundamentals/CoreObject.h>
#include <CoreAlgorithms/model/patterns/Observable.h>

#include <cstddef>
#include <memory>

/// Represents an object with properties whose changes the host records for undo, unless that is
/// switched off.
class COREALGORITHMS_MODEL_EXPORT PropertyObject : public CoreObject
{
    COREALGORITHMS_TYPE(PropertyObject, CoreObject)

public:
    /// Returns true if changes are recorded for undo, as for a new object.
    virtual bool isCreateUndoEnabledForObject() const;
    /// Sets whether changes are recorded for undo. Notifies nobody.
    virtual void enableCreateUndoForObjectAndProperties(bool enable);

private:
    bool createUndoEnabled = true;
};

/// Represents an object of the plan, which is shared, edited in brackets and observed.
///
/// changed() announces a change. Between startEditing() and stopEditing(), which nest, any number
/// of changes gives one notification when the outermost bracket closes, and none if nothing
/// changed. Changes while notification is switched off are never announced.
class COREALGORITHMS_MODEL_EXPORT DataObject
    : public PropertyObject,
      public std::enable_shared_from_this<DataObject>,
      public patterns::Observable<DataObject, std::nullptr_t>
{
    COREALGORITHMS_TYPE(DataObject, PropertyObject)

public:
    /// Opens an editing bracket.
    virtual void startEditing();
    /// Closes the innermost editing bracket. Notifies the observers if it was the only one and the
    /// object changed in it. Does nothing without an open bracket.
    virtual void stopEditing();
    /// Returns true while an editing bracket is open.
    bool isEditing() const { return openBrackets > 0; }

    /// Switches notification on or off; it is on for a new object.
    virtual void setNotifyObservers(bool enable);
    /// Returns true while notification is switched on.
    bool canNotifyObservers() const override;

    /// Announces a change: notifies the observers, now or at the end of the editing bracket.
    void changed();

private:
    int openBrackets = 0;
    bool changedInBracket = false;
    bool notifyObservers = true;
};

/// Keeps an editing bracket open for a scope. The object may be null and must outlive the lock.
class COREALGORITHMS_MODEL_EXPORT EditLocker
{
public:
    /// Opens an editing bracket. Does nothing for null.
    explicit EditLocker(DataObject* objectToEdit);
    EditLocker(const EditLocker&) = delete;
    EditLocker& operator=(const EditLocker&) = delete;
    /// Closes the editing bracket.
    ~EditLocker();

private:
    DataObject* object;
};
