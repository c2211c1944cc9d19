// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

// Includes the headers of teeth, of what they belong to, and of their labels.
#include <CoreAlgorithms/model/dataobjects/Anatomy.h>
#include <CoreAlgorithms/model/dataobjects/Diagnosis.h>
#include <CoreAlgorithms/model/dataobjects/Mouth.h>
#include <CoreAlgorithms/model/dataobjects/Tooth.h>
#include <CoreAlgorithms/model/dataobjects/ToothAnnotation3D.h>
