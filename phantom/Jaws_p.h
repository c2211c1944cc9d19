// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <phantom/Geometry_p.h>

#include <span>
#include <vector>

/// The bones that bear the teeth. Depths are estimates in mm below the bone's surface, negative
/// outside and zero on it.
namespace phantom {

/// A cross-section of a jaw's ridge and its place. Lengths are in mm, offsets from the midline.
struct RidgeSection
{
    double offset; ///< of the ridge's crest from the midline
    double y;
    double crestZ;    ///< the end with the teeth
    double baseZ;     ///< the other end
    double halfCrest; ///< half the thickness at the crest
    double halfBase;
    double lean; ///< how far the base lies outside the crest
};

inline RidgeSection operator+(const RidgeSection& a, const RidgeSection& b)
{
    return {a.offset + b.offset,
            a.y + b.y,
            a.crestZ + b.crestZ,
            a.baseZ + b.baseZ,
            a.halfCrest + b.halfCrest,
            a.halfBase + b.halfBase,
            a.lean + b.lean};
}

inline RidgeSection operator*(double factor, const RidgeSection& a)
{
    return {factor * a.offset,    factor * a.y,        factor * a.crestZ, factor * a.baseZ,
            factor * a.halfCrest, factor * a.halfBase, factor * a.lean};
}

/// One half of a horseshoe of bone, along the arch from the midline backward. The other half is its
/// mirror image.
class Ridge
{
public:
    /// The ridge seen from a point above: the nearest section and the distance from its crest,
    /// positive outward.
    struct Column
    {
        RidgeSection section;
        double outwards;
        bool isNear; ///< false where no bone can be
    };

    explicit Ridge(std::span<const RidgeSection> sectionsFromMidline);

    Column columnAt(double offsetFromMidline, double y) const;
    static double depthAt(const Column& column, double z);

private:
    std::vector<RidgeSection> sections;
};

/// The plate that rises behind the lower teeth, with the coronoid process and the neck of the
/// condyle.
class Ramus
{
public:
    /// The plate along a line in x.
    struct Row
    {
        double insideOutline; ///< seen from the side; negative outside
        double middle;        ///< offset of the plate's middle from the midline
        double halfThickness;
    };

    Ramus();

    Row rowAt(double y, double z) const;
    static double depthAt(const Row& row, double offsetFromMidline);

private:
    std::vector<Point> outline; // x is 0
};

class Mandible
{
public:
    struct Row
    {
        Ramus::Row ramus;
        bool reachesCondyle;
        double y;
        double z;
    };
    struct Column
    {
        double offset; ///< from the midline, the patient's left side fitted to the right
        Ridge::Column body;
    };

    Mandible();

    Column columnAt(double x, double y) const;
    Row rowAt(double y, double z) const;
    double depthAt(const Column& column, const Row& row) const;
    double depthAt(const Point& position) const;

private:
    Ridge body;
    Ramus ramus;
    Ovoid condyle;
};

/// The alveolar process of the upper jaw and the hard palate.
class Maxilla
{
public:
    Maxilla();

    Ridge::Column columnAt(double x, double y) const;
    double depthAt(const Ridge::Column& column, double x, double y, double z) const;

private:
    Ridge process;
};

} // namespace phantom
