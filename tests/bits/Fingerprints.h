// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// Each prints one checksum per operation over the bits of its results on random and odd input.
namespace bits {

void fingerprintModel();
void fingerprintDental();
void fingerprintReslice();
void fingerprintCollision();
void fingerprintGreyvalue();
void fingerprintTransforms();
void fingerprintPlan();

} // namespace bits
