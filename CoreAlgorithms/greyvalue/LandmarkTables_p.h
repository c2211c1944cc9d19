// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/HostValues_p.h>

#include <QVector3D>

#include <span>

/// The boxes of the two landmark regions, relative to their landmarks.
namespace greyvalue {

struct LandmarkBox
{
    int landmarkType;   ///< value of landmarkDetection::LandmarkType
    QVector3D offset;   ///< of the box's center from the landmark, mm
    QVector3D halfSize; ///< mm
};

/// The region in front of the face: air and the surface of the skin.
inline constexpr LandmarkBox kFirstLandmarkBoxes[] = {
    {hostvalues::kNasion, {0.0F, -10.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},
    {hostvalues::kGonionLeft, {10.0F, -10.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},
    {hostvalues::kGonionRight, {-10.0F, -10.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},
    {hostvalues::kSubspinalePoint, {0.0F, -5.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},
    {hostvalues::kPogonion, {0.0F, -10.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},
    {hostvalues::kInfradentalePoint, {0.0F, -10.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},
    {hostvalues::kSupramentalePoint, {0.0F, -10.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},
};

/// The region on the surface of the skull: soft tissue and dense bone.
inline constexpr LandmarkBox kSecondLandmarkBoxes[] = {
    {hostvalues::kNasion, {0.0F, 4.0F, 5.0F}, {7.0F, 5.0F, 5.0F}},
    {hostvalues::kGonionLeft, {0.0F, 0.0F, 0.0F}, {5.0F, 5.0F, 10.0F}},
    {hostvalues::kGonionRight, {0.0F, 0.0F, 0.0F}, {5.0F, 5.0F, 10.0F}},
    {hostvalues::kSubspinalePoint, {0.0F, 0.0F, 0.0F}, {5.0F, 3.0F, 5.0F}},
    {hostvalues::kSella, {0.0F, 3.0F, 3.0F}, {5.0F, 5.0F, 5.0F}},
    {hostvalues::kPorionLeft, {0.0F, -3.0F, 3.0F}, {1.0F, 5.0F, 5.0F}},
    {hostvalues::kPorionRight, {0.0F, -3.0F, 3.0F}, {1.0F, 5.0F, 5.0F}},
    {hostvalues::kPogonion, {0.0F, 0.0F, 0.0F}, {5.0F, 3.0F, 5.0F}},
    {hostvalues::kInfradentalePoint, {0.0F, -1.0F, -2.0F}, {5.0F, 1.0F, 5.0F}},
    {hostvalues::kSupramentalePoint, {0.0F, -1.0F, -2.0F}, {5.0F, 1.0F, 5.0F}},
};

} // namespace greyvalue
