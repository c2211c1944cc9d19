// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

// Includes the headers of implants and of what is checked for collisions with them.
#include <CoreAlgorithms/model/dataobjects/AnchorPin3D.h>
#include <CoreAlgorithms/model/dataobjects/Implant3D.h>
#include <CoreAlgorithms/model/dataobjects/Nerve.h>
