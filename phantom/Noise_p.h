// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace phantom {

/// Returns 64 well-mixed bits for a seed and a voxel index. It multiplies by odd constants and adds
/// shifted copies; both can be inverted.
inline std::uint64_t mixedBits(std::uint32_t seed, std::uint64_t voxelIndex)
{
    std::uint64_t bits =
        voxelIndex * 0x9E3779B97F4A7C15U + seed * 0xD1B54A32D192ED03U + 0x8CB92BA72F3D8DD7U;
    bits = (bits ^ (bits >> 32)) * 0xD6E8FEB86659FD93U;
    bits = (bits ^ (bits >> 32)) * 0xD6E8FEB86659FD93U;
    return bits ^ (bits >> 32);
}

/// Returns noise of mean 0 and variance 1 that is nearly normal: the sum of eight uniform bytes,
/// centered and scaled. It depends on the seed and the voxel alone, not on the order of painting,
/// and stays within 4.9 standard deviations.
inline double unitNoise(std::uint32_t seed, std::uint64_t voxelIndex)
{
    constexpr double mean = 8 * 127.5;
    constexpr double deviation = 209.02153; // square root of 8 * (256 * 256 - 1) / 12
    const std::uint64_t bits = mixedBits(seed, voxelIndex);
    int sum = 0;
    for (int byte = 0; byte < 8; ++byte)
        sum += static_cast<int>((bits >> (8 * byte)) & 0xFFU);
    return (sum - mean) * (1.0 / deviation);
}

} // namespace phantom
