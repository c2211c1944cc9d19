// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// The application exports its whole model.
#define COREALGORITHMS_MODEL_EXPORT
