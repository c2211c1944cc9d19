// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

// Includes the headers of guiding lines, splines and their control points.
#include <CoreAlgorithms/model/dataobjects/CreationType.h>
#include <CoreAlgorithms/model/dataobjects/GuidingLine.h>
#include <CoreAlgorithms/model/dataobjects/GuidingSpline.h>
#include <CoreAlgorithms/model/dataobjects/PlanarDentalSpline.h>
#include <CoreAlgorithms/model/dataobjects/PlanarGuidingSpline.h>
#include <CoreAlgorithms/model/dataobjects/Point.h>
