// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/greyvalue/TissueLevels_p.h>

#include <CoreAlgorithms/greyvalue/SafeNumbers_p.h>

#include <cstdint>

namespace greyvalue {
namespace {

// The distances from T0 to T3, from T3 to T9 and from T3 to T7 of the default levels, in grey
// values.
constexpr float kAirToSoftTissue = 1040.0F;
constexpr float kSoftTissueToDenseBone = 1760.0F;
constexpr float kSoftTissueToDentine = 1260.0F;

float distance(int from, int to)
{
    return static_cast<float>(std::int64_t(to) - from);
}

// Places T3, and T4 to T10 on the line through it. The callers then replace T7 or T9 by a peak.
void placeAboveSoftTissue(colormap::Tissues& tissues, float scale, int softTissue)
{
    const auto start = static_cast<float>(softTissue);
    tissues.softTissue = softTissue;
    tissues.cancellousBone = roundedToInt(scale * 460.0F + start);
    tissues.boneSurface = roundedToInt(scale * 510.0F + start);
    tissues.bone = roundedToInt(scale * 960.0F + start);
    tissues.dentine = roundedToInt(scale * 1260.0F + start);
    tissues.corticalBone = roundedToInt(scale * 1460.0F + start);
    tissues.denseBone = roundedToInt(scale * 1760.0F + start);
    tissues.enamel = roundedToInt(scale * 2760.0F + start);
}

} // namespace

utility::Optional<colormap::Tissues> tissuesFromLandmarks(int air, const std::pair<int, int>& skull)
{
    const auto [softTissue, denseBone] = skull;
    if (air >= softTissue || softTissue >= denseBone)
        return {};
    const float below = distance(air, softTissue) / kAirToSoftTissue;
    const float above = distance(softTissue, denseBone) / kSoftTissueToDenseBone;
    const auto start = static_cast<float>(air);
    colormap::Tissues tissues;
    tissues.air = air;
    tissues.skin = roundedToInt(below * 500.0F + start);
    tissues.fat = roundedToInt(below * 950.0F + start);
    placeAboveSoftTissue(tissues, above, softTissue);
    tissues.denseBone = denseBone;
    return tissues;
}

utility::Optional<colormap::Tissues> tissuesFromTeeth(const std::pair<int, int>& teeth)
{
    const auto [softTissue, dentine] = teeth;
    if (softTissue >= dentine)
        return {};
    const float scale = distance(softTissue, dentine) / kSoftTissueToDentine;
    const auto start = static_cast<float>(softTissue);
    colormap::Tissues tissues;
    tissues.air = roundedToInt(start - scale * 1040.0F);
    tissues.skin = roundedToInt(start - scale * 540.0F);
    tissues.fat = roundedToInt(start - scale * 90.0F);
    placeAboveSoftTissue(tissues, scale, softTissue);
    tissues.dentine = dentine;
    return tissues;
}

} // namespace greyvalue
