// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/fundamentals/CoreObject.h>
#include <CoreAlgorithms/model/patterns/Observable.h>

#include <cstddef>
#include <memory>

/// An object with properties whose changes the host records for undo, unless that is switched off.
class COREALGORITHMS_MODEL_EXPORT PropertyObject : public CoreObject
{
    COREALGORITHMS_TYPE(PropertyObject, CoreObject)

public:
    /// True for a new object.
    virtual bool isCreateUndoEnabledForObject() const;
    virtual void enableCreateUndoForObjectAndProperties(bool enable);

private:
    bool createUndoEnabled = true;
};

/// An object of the plan: shared, edited in brackets, observed.
///
/// Changes are announced by changed(). Inside startEditing() .. stopEditing(), which nest, any
/// number of changes ends in one notification when the outermost bracket closes, and none if
/// nothing changed. While notification is switched off (setNotifyObservers), changes are told to
/// nobody, also not later.
class COREALGORITHMS_MODEL_EXPORT DataObject
    : public PropertyObject,
      public std::enable_shared_from_this<DataObject>,
      public patterns::Observable<DataObject, std::nullptr_t>
{
    COREALGORITHMS_TYPE(DataObject, PropertyObject)

public:
    virtual void startEditing();
    /// Closes the innermost bracket; without an open one it does nothing.
    virtual void stopEditing();
    bool isEditing() const { return openBrackets > 0; }

    virtual void setNotifyObservers(bool enable);
    bool canNotifyObservers() const override;

    /// Notifies the observers now, or once at the end of the editing bracket.
    void changed();

private:
    int openBrackets = 0;
    bool changedInBracket = false;
    bool notifyObservers = true;
};

/// The editing bracket of a scope. A null object is allowed and does nothing; the object must
/// outlive the lock.
class COREALGORITHMS_MODEL_EXPORT EditLocker
{
public:
    explicit EditLocker(DataObject* objectToEdit);
    EditLocker(const EditLocker&) = delete;
    EditLocker& operator=(const EditLocker&) = delete;
    ~EditLocker();

private:
    DataObject* object;
};
