// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Tooth.h>

namespace dataobject {

Tooth::Tooth(ToothChart::Tooth toothType, Status toothStatus, Category toothCategory)
    : type(toothType), status(toothStatus), category(toothCategory)
{}

ToothChart::Tooth Tooth::getToothType() const
{
    return type;
}

Tooth::Status Tooth::getStatus() const
{
    return status;
}

void Tooth::setStatus(Status toothStatus)
{
    status = toothStatus;
    changed();
}

Tooth::Category Tooth::getCategory() const
{
    return category;
}

} // namespace dataobject
