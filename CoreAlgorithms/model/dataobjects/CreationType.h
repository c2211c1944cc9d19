// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

/// Says who made an object: the application or the user.
enum CreationType : int { AutomaticallyCreated = 0, ManuallyCreated = 1 };
