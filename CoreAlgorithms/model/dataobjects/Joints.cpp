// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Joints.h>

#include <CoreAlgorithms/model/dataobjects/GuidingLines.h>

#include <utility>

namespace dataobject {

std::shared_ptr<GuidingLine> TemporomandibularJoint::getGuidingLine() const
{
    return line;
}

void TemporomandibularJoint::setGuidingLine(std::shared_ptr<GuidingLine> guidingLine)
{
    line = std::move(guidingLine);
    changed();
}

} // namespace dataobject
