// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/Occlusions.h>

const std::map<QString, QMatrix4x4>& OcclusionBase::getTransformations() const
{
    return transformations;
}

void OcclusionBase::setTransformations(const std::map<QString, QMatrix4x4>& matrices)
{
    transformations = matrices;
    changed();
}

bool OcclusionBase::isSegmental() const
{
    return segmental;
}

void OcclusionBase::setSegmental(bool isCut)
{
    segmental = isCut;
    changed();
}
