// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>

namespace planner {

class Failure;

/// Does work in a child process first, to see whether it comes to an end there. Libraries that read
/// files end the program on some damaged ones, or reserve whatever these state; a child that does
/// so does no harm. If it does, throws `otherwise`; if the work throws a Failure, throws that.
/// Returns if the work succeeded and may be repeated in this process.
void rehearse(const std::function<void()>& work, const Failure& otherwise);

/// Limits the bytes that a rehearsal may reserve from here on. Does nothing outside a rehearsal.
void allowMemory(qint64 bytes);

} // namespace planner
