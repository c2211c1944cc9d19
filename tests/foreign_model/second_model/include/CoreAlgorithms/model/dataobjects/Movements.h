// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

struct MovementModes
{
    inline static const QString OCCLUSION_PATIENT_SCAN_MODE = "by scan";
};
