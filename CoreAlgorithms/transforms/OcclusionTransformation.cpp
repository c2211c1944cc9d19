// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/transforms/OcclusionTransformation.h>

bool OcclusionTransformation::operator==(const OcclusionTransformation& other) const
{
    return upperTransformation == other.upperTransformation &&
           lowerTransformation == other.lowerTransformation &&
           vestibularTransformation == other.vestibularTransformation;
}

bool OcclusionTransformation::operator!=(const OcclusionTransformation& other) const
{
    return !(*this == other);
}
