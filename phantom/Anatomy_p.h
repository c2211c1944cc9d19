// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <phantom/Canals_p.h>
#include <phantom/Geometry_p.h>
#include <phantom/Head_p.h>
#include <phantom/Jaws_p.h>
#include <phantom/Phantom.h>
#include <phantom/Teeth_p.h>

#include <QVarLengthArray>

#include <array>
#include <optional>
#include <vector>

namespace phantom {

/// All parts of the patient together.
///
/// A tissue is found where a Column (all that depends on x and y) crosses a Row (all that depends
/// on y and z). An image shares them between its voxels. A single position makes its own, and so
/// gives exactly the tissue of the image.
class Anatomy
{
public:
    struct Column
    {
        double x;
        Mandible::Column mandible;
        Ridge::Column maxilla;
    };

    struct Row
    {
        double y;
        double z;
        /// Negative where the line misses the head; the members below are then not filled in.
        double headHalfWidth;
        Mandible::Row mandible;
        QVarLengthArray<ToothShape::Slice, 8> teeth;
        std::array<CanalShape::Row, 2> canals;
        QVarLengthArray<const Ovoid*, 24> bones;
        QVarLengthArray<const Ovoid*, 12> airSpaces;
        QVarLengthArray<const Ovoid*, 12> lumps;
    };

    Anatomy();

    const std::vector<ToothShape>& teeth() const { return allTeeth; }
    /// Returns the canals on the patient's right and left.
    const std::array<CanalShape, 2>& canals() const { return bothCanals; }

    Column columnAt(double x, double y) const;
    Row rowAt(double y, double z) const;
    /// Returns the tissue where the two cross. Both must have the same y.
    Tissue tissueAt(const Column& column, const Row& row) const;
    /// Returns the tooth where the two cross, or NoTooth.
    ToothChart::Tooth toothAt(const Column& column, const Row& row) const;

private:
    std::optional<Tissue> canalAt(const Column& column, const Row& row) const;
    std::optional<Tissue> jawAt(const Column& column, const Row& row) const;
    static std::optional<Tissue> otherBoneAt(const Point& position, const Row& row);

    Skin skin;
    Mandible mandible;
    Maxilla maxilla;
    std::vector<ToothShape> allTeeth;
    std::array<CanalShape, 2> bothCanals;
    std::vector<Ovoid> bones;
    std::vector<Ovoid> airSpaces;
    std::vector<Ovoid> lumps;
};

} // namespace phantom
