// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace dataobject {
class AnchorPin3D;
class Implant3D;
class Nerve;
} // namespace dataobject

// These count what is looked up in a set of objects. The hashes of shared pointers call them
// instead of Qt's template if they are declared first, so every source of the program includes this
// header before any other.
std::size_t qHash(dataobject::Implant3D* object, std::size_t seed) noexcept;
std::size_t qHash(dataobject::Nerve* object, std::size_t seed) noexcept;
std::size_t qHash(dataobject::AnchorPin3D* object, std::size_t seed) noexcept;
