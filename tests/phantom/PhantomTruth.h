// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <phantom/Phantom.h>

#include <array>
#include <limits>
#include <ostream>
#include <vector>

namespace phantom {

/// Prints the name of a tissue; GoogleTest looks for a function of this name.
inline void PrintTo(Tissue tissue, std::ostream* out)
{
    constexpr std::array<const char*, kTissueCount> names = {
        "Air",     "SoftTissue", "CancellousBone", "CorticalBone",
        "Dentine", "Enamel",     "Pulp",           "NerveCanal"};
    *out << names.at(int(tissue));
}

} // namespace phantom

namespace test {

inline constexpr float kMidlineX = 75.0F;
inline constexpr float kInfinity = std::numeric_limits<float>::infinity();
inline constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

/// Returns the patient with standard settings, the same at every call.
inline const phantom::Patient& patient()
{
    static const phantom::Patient standard;
    return standard;
}

/// Returns a tooth that the patient has, by its Universal number.
inline phantom::Tooth toothOf(int number)
{
    return patient().tooth(number).value();
}

inline bool isBone(phantom::Tissue tissue)
{
    return tissue == phantom::Tissue::CorticalBone || tissue == phantom::Tissue::CancellousBone;
}

/// Returns the tissues from one point to another in steps of 0.1 mm. Equal neighbors are returned
/// once.
inline std::vector<phantom::Tissue> tissuesBetween(const QVector3D& from, const QVector3D& to)
{
    std::vector<phantom::Tissue> met;
    const int steps = static_cast<int>((to - from).length() / 0.1F);
    for (int i = 0; i <= steps; ++i) {
        const phantom::Tissue tissue =
            patient().tissueAt(from + (to - from) * (float(i) / float(steps)));
        if (met.empty() || met.back() != tissue)
            met.push_back(tissue);
    }
    return met;
}

/// Returns settings for a volume without noise.
inline phantom::Settings noiseless(float voxelSizeMm)
{
    phantom::Settings settings;
    settings.voxelSizeMm = voxelSizeMm;
    settings.noiseSigma = 0.0F;
    return settings;
}

} // namespace test
