// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Nerve.h>

#include <utility>

namespace dataobject {

std::shared_ptr<GuidingSpline> Nerve::getGuidingLine() const
{
    return line;
}

void Nerve::setGuidingLine(std::shared_ptr<GuidingSpline> guidingLine)
{
    line = std::move(guidingLine);
    changed();
}

} // namespace dataobject
