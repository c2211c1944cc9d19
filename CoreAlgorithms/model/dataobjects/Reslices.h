// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

// Includes the headers of all reslices.
#include <CoreAlgorithms/model/dataobjects/CephReslice.h>
#include <CoreAlgorithms/model/dataobjects/PanoramicReslice.h>
#include <CoreAlgorithms/model/dataobjects/PlanarReslice.h>
#include <CoreAlgorithms/model/dataobjects/Reslice.h>
