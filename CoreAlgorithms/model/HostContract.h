// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Describes what the algorithms require of the host's classes, as concepts in one header per
/// family of classes.
///
/// A class of the name in the comment of a concept must meet it, under the same header path below
/// CoreAlgorithms/model/. The bundled model does. A model of your own must offer these operations;
/// what they must do is documented at the bundled classes. The classes must not be aliases, because
/// headers of the library declare them forward.
///
/// Arguments may differ where they convert. Results that are floats, values or containers are
/// exactly of the stated type, by value or by reference, because their bits count and their members
/// are used. Whole numbers and booleans may differ where they convert. Shared pointers may point to
/// a derived class.

#include <CoreAlgorithms/model/contract/DisplayFunctions.h>
#include <CoreAlgorithms/model/contract/GuidingLines.h>
#include <CoreAlgorithms/model/contract/Images.h>
#include <CoreAlgorithms/model/contract/Implants.h>
#include <CoreAlgorithms/model/contract/Movements.h>
#include <CoreAlgorithms/model/contract/Observers.h>
#include <CoreAlgorithms/model/contract/PlanObjects.h>
#include <CoreAlgorithms/model/contract/Requirements.h>
#include <CoreAlgorithms/model/contract/Reslices.h>
#include <CoreAlgorithms/model/contract/Scans.h>
#include <CoreAlgorithms/model/contract/Shapes.h>
#include <CoreAlgorithms/model/contract/Surfaces.h>
#include <CoreAlgorithms/model/contract/Teeth.h>
#include <CoreAlgorithms/model/contract/Values.h>
