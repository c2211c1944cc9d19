// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/fundamentals/CoreObject.h>

CoreObject::~CoreObject() = default;

QString CoreObject::getClassTypeId()
{
    return QStringLiteral("CoreObject");
}

bool CoreObject::isOfType(const QString& classTypeId) const
{
    return classTypeId == getClassTypeId();
}
