// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace dataobject {
class AnchorPin3D;
class Implant3D;
class Nerve;
} // namespace dataobject

// Counts what is looked up in a set of objects. The hashes of the shared pointers call these
// instead of Qt's template, if they are declared first: included by force in all sources of an
// executable.
std::size_t qHash(dataobject::Implant3D* object, std::size_t seed) noexcept;
std::size_t qHash(dataobject::Nerve* object, std::size_t seed) noexcept;
std::size_t qHash(dataobject::AnchorPin3D* object, std::size_t seed) noexcept;
