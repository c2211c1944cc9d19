// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAlgorithms/collision/Clearance.h>

#include <optional>

namespace collision {

/// A triangle of each of two surfaces, by their numbers in the meshes, the meshes of a tree one
/// after the other. -1 stands for none.
struct TrianglePair
{
    int first = -1;
    int second = -1;
};

/// Measures clearances like clearance(), for callers that measure similar pairs again and again.
class ClearanceSearch
{
public:
    /// Returns the same as clearance(). The pair of triangles that was nearest when the surfaces
    /// were measured before shortens the search, and becomes the one that is nearest now; it never
    /// changes the result.
    static std::optional<Clearance> run(const PlacedSurface& first, const PlacedSurface& second,
                                        double limit, TrianglePair& nearest);
};

} // namespace collision
