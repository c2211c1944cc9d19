// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector3D>

#include <span>

/// Where, seen from a landmark, the two landmark regions have their boxes.
namespace greyvalue {

struct LandmarkBox
{
    int landmarkType; ///< value of landmarkDetection::LandmarkType
    QVector3D offset; ///< of the box's centre from the landmark, mm
    QVector3D halfSize;
};

/// In front of the face: air and the soft tissue of its surface.
inline constexpr LandmarkBox kFirstLandmarkBoxes[] = {
    {14, {0.0F, -10.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},  {9, {10.0F, -10.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},
    {8, {-10.0F, -10.0F, 0.0F}, {5.0F, 5.0F, 5.0F}}, {0, {0.0F, -5.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},
    {26, {0.0F, -10.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},  {5, {0.0F, -10.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},
    {4, {0.0F, -10.0F, 0.0F}, {5.0F, 5.0F, 5.0F}},
};

/// On the surface of the skull: soft tissue and dense bone.
inline constexpr LandmarkBox kSecondLandmarkBoxes[] = {
    {14, {0.0F, 4.0F, 5.0F}, {7.0F, 5.0F, 5.0F}},  {9, {0.0F, 0.0F, 0.0F}, {5.0F, 5.0F, 10.0F}},
    {8, {0.0F, 0.0F, 0.0F}, {5.0F, 5.0F, 10.0F}},  {0, {0.0F, 0.0F, 0.0F}, {5.0F, 3.0F, 5.0F}},
    {19, {0.0F, 3.0F, 3.0F}, {5.0F, 5.0F, 5.0F}},  {21, {0.0F, -3.0F, 3.0F}, {1.0F, 5.0F, 5.0F}},
    {20, {0.0F, -3.0F, 3.0F}, {1.0F, 5.0F, 5.0F}}, {26, {0.0F, 0.0F, 0.0F}, {5.0F, 3.0F, 5.0F}},
    {5, {0.0F, -1.0F, -2.0F}, {5.0F, 1.0F, 5.0F}}, {4, {0.0F, -1.0F, -2.0F}, {5.0F, 1.0F, 5.0F}},
};

} // namespace greyvalue
