// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Gives a class that derives from CoreObject its type identifier, which is its name without the
/// namespace. Stands first in the class, in the manner of Q_OBJECT; the members that follow are
/// private until the next access specifier.
///
/// \code
/// class Implant3D : public DataObject
/// {
///     COREALGORITHMS_TYPE(Implant3D, DataObject)
///
/// public:
///     ...
/// };
/// \endcode
///
/// Defines `static QString getClassTypeId()`, which returns the identifier, and overrides
/// CoreObject::isOfType(), which returns true for this identifier and for those of the base and of
/// its bases.
#define COREALGORITHMS_TYPE(Class, Base)                                                           \
public:                                                                                            \
    static QString getClassTypeId()                                                                \
    {                                                                                              \
        return QStringLiteral(#Class);                                                             \
    }                                                                                              \
    bool isOfType(const QString& classTypeId) const override                                       \
    {                                                                                              \
        return classTypeId == getClassTypeId() || Base::isOfType(classTypeId);                     \
    }                                                                                              \
                                                                                                   \
private:
