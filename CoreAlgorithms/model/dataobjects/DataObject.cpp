// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/DataObject.h>

QString PropertyObject::getClassTypeId()
{
    return QStringLiteral("PropertyObject");
}

bool PropertyObject::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || CoreObject::isOfType(classTypeId);
}

bool PropertyObject::isCreateUndoEnabledForObject() const
{
    return createUndoEnabled;
}

void PropertyObject::enableCreateUndoForObjectAndProperties(bool enable)
{
    createUndoEnabled = enable;
}

QString DataObject::getClassTypeId()
{
    return QStringLiteral("DataObject");
}

bool DataObject::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId() || PropertyObject::isOfType(classTypeId);
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
