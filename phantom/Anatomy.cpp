// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <phantom/Anatomy_p.h>

namespace phantom {

namespace {

// Thickness of the cortical shell, mm.
constexpr double kMandibleShell = 2.0;
constexpr double kMaxillaShell = 1.2;
constexpr double kOtherShell = 1.5;

template <typename Reachable>
void addReachable(Reachable& reachable, const std::vector<Ovoid>& parts, double y, double z)
{
    for (const Ovoid& part : parts) {
        if (part.reaches(y, z))
            reachable.append(&part);
    }
}

template <typename Reachable>
bool isInsideAny(const Reachable& parts, const Point& position)
{
    return std::ranges::any_of(parts, [&position](const Ovoid* part) {
        return part->reachesAlongX(position.x) && part->depthOf(position) >= 0.0;
    });
}

Tissue shellOrCore(double depth, double shell)
{
    return depth < shell ? Tissue::CorticalBone : Tissue::CancellousBone;
}

} // namespace

Anatomy::Anatomy()
    : allTeeth(growTeeth()),
      bothCanals{CanalShape(courseOfRightCanal(mandible)), CanalShape(courseOfLeftCanal(mandible))},
      bones(otherBones()),
      airSpaces(phantom::airSpaces()),
      lumps(lumpsInAirSpaces())
{}

Anatomy::Column Anatomy::columnAt(double x, double y) const
{
    return {x, mandible.columnAt(x, y), maxilla.columnAt(x, y)};
}

Anatomy::Row Anatomy::rowAt(double y, double z) const
{
    Row row{};
    row.y = y;
    row.z = z;
    row.headHalfWidth = skin.halfWidthAt(y, z);
    if (row.headHalfWidth < 0.0)
        return row;
    row.mandible = mandible.rowAt(y, z);
    for (const ToothShape& tooth : allTeeth) {
        if (tooth.reaches(y, z))
            row.teeth.append(tooth.sliceAt(z));
    }
    for (std::size_t side = 0; side < bothCanals.size(); ++side)
        bothCanals[side].addReachable(row.canals[side], y, z);
    addReachable(row.bones, bones, y, z);
    addReachable(row.airSpaces, airSpaces, y, z);
    addReachable(row.lumps, lumps, y, z);
    return row;
}

Tissue Anatomy::tissueAt(const Column& column, const Row& row) const
{
    if (std::abs(column.x - kMidlineX) > row.headHalfWidth)
        return Tissue::Air;
    for (const ToothShape::Slice& slice : row.teeth) {
        if (const auto tissue = ToothShape::tissueIn(slice, column.x, row.y))
            return *tissue;
    }
    if (const auto tissue = canalAt(column, row))
        return *tissue;
    if (const auto tissue = jawAt(column, row))
        return *tissue;
    const Point position = {column.x, row.y, row.z};
    if (isInsideAny(row.airSpaces, position))
        return isInsideAny(row.lumps, position) ? Tissue::SoftTissue : Tissue::Air;
    return otherBoneAt(position, row).value_or(Tissue::SoftTissue);
}

ToothChart::Tooth Anatomy::toothAt(const Column& column, const Row& row) const
{
    const bool isInHead = std::abs(column.x - kMidlineX) <= row.headHalfWidth;
    const auto found = std::ranges::find_if(row.teeth, [&](const ToothShape::Slice& slice) {
        return ToothShape::tissueIn(slice, column.x, row.y).has_value();
    });
    return isInHead && found != row.teeth.end() ? found->tooth->universalNumber()
                                                : ToothChart::NoTooth;
}

// Finds the nerve, and its cortical rim where it runs inside the mandible.
std::optional<Tissue> Anatomy::canalAt(const Column& column, const Row& row) const
{
    const std::size_t side = column.x < kMidlineX ? 0 : 1;
    if (row.canals[side].isEmpty())
        return std::nullopt;
    constexpr double rim = kCanalRadius + kCanalRim;
    const double squared =
        bothCanals[side].squaredDistance(row.canals[side], {column.x, row.y, row.z}, rim * rim);
    if (squared <= kCanalRadius * kCanalRadius)
        return Tissue::NerveCanal;
    if (squared < rim * rim && mandible.depthAt(column.mandible, row.mandible) >= 0.0)
        return Tissue::CorticalBone;
    return std::nullopt;
}

std::optional<Tissue> Anatomy::jawAt(const Column& column, const Row& row) const
{
    const double inMandible = mandible.depthAt(column.mandible, row.mandible);
    if (inMandible >= 0.0)
        return shellOrCore(inMandible, kMandibleShell);
    const double inMaxilla = maxilla.depthAt(column.maxilla, column.x, row.y, row.z);
    if (inMaxilla >= 0.0)
        return shellOrCore(inMaxilla, kMaxillaShell);
    return std::nullopt;
}

std::optional<Tissue> Anatomy::otherBoneAt(const Point& position, const Row& row)
{
    double deepest = -1.0;
    for (const Ovoid* bone : row.bones) {
        if (bone->reachesAlongX(position.x))
            deepest = std::max(deepest, bone->depthOf(position));
    }
    if (deepest < 0.0)
        return std::nullopt;
    return shellOrCore(deepest, kOtherShell);
}

} // namespace phantom
