// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

struct Maxilla
{
    static QString getClassTypeId() { return "jaw/upper"; }
};
struct Mandibula
{
    static QString getClassTypeId() { return "jaw/lower"; }
};
struct FrontSegment
{
    static QString getClassTypeId() { return "jaw/upper/front"; }
};
struct LeftSegment
{
    static QString getClassTypeId() { return "jaw/upper/left"; }
};
struct RightSegment
{
    static QString getClassTypeId() { return "jaw/upper/right"; }
};
