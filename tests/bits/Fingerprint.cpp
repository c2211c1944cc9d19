// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Prints checksums of every operation's results, for comparison between builds.
#include <tests/bits/Fingerprints.h>

int main()
{
    bits::fingerprintModel();
    bits::fingerprintDental();
    bits::fingerprintReslice();
    bits::fingerprintCollision();
    bits::fingerprintGreyvalue();
    bits::fingerprintTransforms();
    bits::fingerprintPlan();
    return 0;
}
