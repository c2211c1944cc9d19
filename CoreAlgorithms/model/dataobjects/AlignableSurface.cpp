// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/model/dataobjects/AlignableSurface.h>

AlignableSurface::~AlignableSurface() = default;
