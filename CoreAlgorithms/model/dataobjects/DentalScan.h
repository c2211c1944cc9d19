// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/model/Export.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScan.h>

/// Represents a surface scan of the teeth of one jaw, from which bites are set up.
class COREALGORITHMS_MODEL_EXPORT DentalScan : public SurfaceScan
{
    COREALGORITHMS_TYPE(DentalScan, SurfaceScan)
};
