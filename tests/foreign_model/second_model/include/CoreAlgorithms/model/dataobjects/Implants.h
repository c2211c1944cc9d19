// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

namespace dataobject {

/// Represents an implant of the catalog as plain data without a base class.
struct Implant3D
{
    struct Measures
    {
        float diameter;
        float length;
    };
    Measures measures;

    const Measures& getDimensions() const { return measures; }
};

} // namespace dataobject
