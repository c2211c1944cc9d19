// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

// Includes the headers of surface scans and their alignment.
#include <CoreAlgorithms/model/dataobjects/AlignableSurface.h>
#include <CoreAlgorithms/model/dataobjects/DentalScan.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScan.h>
#include <CoreAlgorithms/model/dataobjects/SurfaceScanAlignment.h>
