// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <phantom/Geometry_p.h>
#include <phantom/Phantom.h>

#include <QVarLengthArray>

#include <optional>
#include <span>
#include <vector>

namespace phantom {

/// Measures of a kind of tooth; mm unless said otherwise.
struct ToothForm
{
    enum Kind { Incisor, Canine, Premolar, LowerMolar, UpperMolar };

    Kind kind;
    double width;       ///< of the crown, along the arch
    double thickness;   ///< of the crown, across the arch
    double crownLength; ///< occlusal point to neck
    double wholeLength; ///< occlusal point to apex, along z
    /// How far the long axis moves toward the inside of the arch from occlusal point to apex.
    double lean;
    double occlusalZ; ///< height of the occlusal point in the patient's frame
};

/// The place of a tooth, seen from above.
struct ToothPlace
{
    double x; ///< of the occlusal point
    double y;
    Point mesial; ///< unit vector along the arch toward the midline
    Point out;    ///< unit vector across the arch to lip and cheek
};

/// A tooth: crown, root and their insides.
///
/// Cross-sections are horizontal, and a leaning tooth is a sheared upright one. All that depends on
/// the height is computed once for a Slice.
class ToothShape
{
public:
    /// A round or squarish outline in the axes of the tooth.
    struct Section
    {
        double mesial = 0.0; ///< center, from the long axis
        double out = 0.0;
        double semiMesial = 0.0;
        double semiOut = 0.0;
        double squareness = 0.0; ///< 0 an ellipse, 1 a rectangle

        bool contains(double alongMesial, double alongOut) const;
    };

    struct Slice
    {
        const ToothShape* tooth;
        double axisX; ///< where the long axis meets the slice
        double axisY;
        double reach; ///< half side of a square around the axis that holds the whole section
        double belowOcclusal; ///< positive toward the root
        Section outline;      ///< of the crown
        Section core;         ///< of the dentine in the crown
        Section chamber;      ///< of the pulp in the crown
        QVarLengthArray<Section, 4> roots;
        QVarLengthArray<Section, 4> rootCanals;
    };

    ToothShape(ToothChart::Tooth toothNumber, const ToothForm& toothForm,
               const ToothPlace& toothPlace);

    ToothChart::Tooth universalNumber() const { return number; }
    Tooth description() const;
    /// Returns the middle of the section between crown and root.
    Point neck() const;
    double width() const { return form.width; }

    bool reaches(double y, double z) const;
    Slice sliceAt(double z) const;
    /// Returns Enamel, Dentine or Pulp, or nothing outside the tooth.
    static std::optional<Tissue> tissueIn(const Slice& slice, double x, double y);

private:
    struct Root;

    std::span<const Root> roots() const;
    bool isMolar() const
    {
        return form.kind == ToothForm::LowerMolar || form.kind == ToothForm::UpperMolar;
    }
    // Direction along z from the root to the crown: 1 in the lower jaw, -1 in the upper.
    double crownwards() const { return ToothChart::isUpperTooth(number) ? -1.0 : 1.0; }
    double highestZ() const;
    double lowestZ() const;
    Point onLongAxis(double belowOcclusal) const;
    Point apex() const;
    double riseOfSurface(double alongMesial, double alongOut) const;
    void sliceCrown(Slice& slice) const;
    void sliceRoots(Slice& slice) const;
    Section neckSection() const;
    static std::optional<Tissue> tissueInCrown(const Slice& slice, double alongMesial,
                                               double alongOut);
    static std::optional<Tissue> tissueInRoots(const Slice& slice, double alongMesial,
                                               double alongOut);

    ToothChart::Tooth number;
    ToothForm form;
    ToothPlace place;
};

/// Returns the 28 teeth in ascending number.
std::vector<ToothShape> growTeeth();

/// Returns a curve through the necks of one arch's teeth from right to left, longer by the last
/// tooth's width at both ends.
std::vector<Point> archThroughNecks(const std::vector<ToothShape>& teeth,
                                    ToothChart::ArchType arch);

} // namespace phantom
