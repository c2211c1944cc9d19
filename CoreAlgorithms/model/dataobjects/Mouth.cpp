// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Mouth.h>

namespace dataobject {

void Mouth::addTooth(const std::shared_ptr<Tooth>& tooth)
{
    if (!tooth)
        return;
    teeth.insert(tooth->getToothType(), tooth);
    changed();
}

void Mouth::removeTooth(const std::shared_ptr<Tooth>& tooth)
{
    if (teeth.removeIf([&tooth](const auto& entry) { return entry.value() == tooth; }) > 0)
        changed();
}

bool Mouth::hasTooth(ToothChart::Tooth toothType) const
{
    return teeth.contains(toothType);
}

std::shared_ptr<Tooth> Mouth::getToothForToothType(ToothChart::Tooth toothType) const
{
    return teeth.value(toothType);
}

QSet<std::shared_ptr<Tooth>> Mouth::getAllTeethUnsorted() const
{
    return {teeth.cbegin(), teeth.cend()};
}

} // namespace dataobject
