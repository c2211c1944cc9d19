// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

bool PropertyObject::isCreateUndoEnabledForObject() const
{
    return createUndoEnabled;
}

void PropertyObject::enableCreateUndoForObjectAndProperties(bool enable)
{
    createUndoEnabled = enable;
}

void DataObject::startEditing()
{
    ++openBrackets;
}

void DataObject::stopEditing()
{
    if (openBrackets == 0)
        return;
    --openBrackets;
    if (openBrackets == 0 && changedInBracket) {
        changedInBracket = false;
        notify();
    }
}

void DataObject::setNotifyObservers(bool enable)
{
    notifyObservers = enable;
}

bool DataObject::canNotifyObservers() const
{
    return notifyObservers;
}

void DataObject::changed()
{
    if (!canNotifyObservers())
        return;
    if (isEditing())
        changedInBracket = true;
    else
        notify();
}

EditLocker::EditLocker(DataObject* objectToEdit) : object(objectToEdit)
{
    if (object)
        object->startEditing();
}

EditLocker::~EditLocker()
{
    if (object)
        object->stopEditing();
}
