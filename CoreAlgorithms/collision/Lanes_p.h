// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// Eight floats side by side. Every operation acts on each of the eight as the scalar operation
// does, with one rounding, so that the bits do not depend on how many the machine handles at once.
//
// With gcc and clang these are vector types, which the compiler maps to the registers that a
// function's target has; elsewhere arrays. COREALGORITHMS_PORTABLE_LANES chooses the arrays
// everywhere.
namespace collision {

constexpr int kLanes = 8;
/// What holds lanes is aligned to this by name: the alignment of the vector type alone depends on
/// the target of the function that looks at it.
constexpr std::size_t kLaneAlignment = 32;

#if defined(__GNUC__) && !defined(COREALGORITHMS_PORTABLE_LANES)

// Always inlined: how a vector is passed depends on the target of the function, and callers differ
// in that. -Wpsabi warns of just that. The pragma covers the functions below. Sources that call
// them are compiled without the warning, since it comes at their end (see CMakeLists.txt).
#define COREALGORITHMS_INLINE_LANES inline __attribute__((always_inline))
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpsabi"

using Lanes = float __attribute__((vector_size(32)));
using LaneMask = std::int32_t __attribute__((vector_size(32))); // -1 where true, 0 where false

COREALGORITHMS_INLINE_LANES Lanes smaller(const Lanes& a, const Lanes& b)
{
    return a < b ? a : b;
}

COREALGORITHMS_INLINE_LANES Lanes larger(const Lanes& a, const Lanes& b)
{
    return a > b ? a : b;
}

COREALGORITHMS_INLINE_LANES Lanes allLanes(float value)
{
    return Lanes{} + value;
}

COREALGORITHMS_INLINE_LANES Lanes select(const LaneMask& mask, const Lanes& whereTrue,
                                         const Lanes& elsewhere)
{
    return mask ? whereTrue : elsewhere;
}

/// Bit i for every lane i that is true.
COREALGORITHMS_INLINE_LANES unsigned bitsOf(const LaneMask& mask)
{
#if defined(__SSE2__)
    __m128 halves[2];
    std::memcpy(halves, &mask, sizeof(halves));
    return static_cast<unsigned>(_mm_movemask_ps(halves[0])) |
           static_cast<unsigned>(_mm_movemask_ps(halves[1])) << 4;
#else
    unsigned bits = 0;
    for (int lane = 0; lane < kLanes; ++lane)
        bits |= static_cast<unsigned>(mask[lane] & 1) << lane;
    return bits;
#endif
}

#pragma GCC diagnostic pop

#else

#define COREALGORITHMS_INLINE_LANES inline

struct alignas(kLaneAlignment) LaneMask
{
    std::int32_t lane[kLanes];
};

struct alignas(kLaneAlignment) Lanes
{
    float lane[kLanes];
    float& operator[](int i) { return lane[i]; }
    float operator[](int i) const { return lane[i]; }
};

template <typename Result, typename Operand, typename Operation>
Result eachLane(const Operand& a, const Operand& b, Operation operation)
{
    Result result;
    for (int i = 0; i < kLanes; ++i)
        result.lane[i] = operation(a.lane[i], b.lane[i]);
    return result;
}

inline Lanes allLanes(float value)
{
    Lanes lanes;
    for (float& lane : lanes.lane)
        lane = value;
    return lanes;
}

// clang-format off
inline Lanes operator+(const Lanes& a, const Lanes& b) { return eachLane<Lanes>(a, b, [](float x, float y) { return x + y; }); }
inline Lanes operator-(const Lanes& a, const Lanes& b) { return eachLane<Lanes>(a, b, [](float x, float y) { return x - y; }); }
inline Lanes operator*(const Lanes& a, const Lanes& b) { return eachLane<Lanes>(a, b, [](float x, float y) { return x * y; }); }
inline Lanes operator-(const Lanes& a) { return eachLane<Lanes>(a, a, [](float x, float) { return -x; }); }
inline Lanes operator/(const Lanes& a, const Lanes& b) { return eachLane<Lanes>(a, b, [](float x, float y) { return x / y; }); }
inline Lanes operator+(const Lanes& a, float b) { return a + allLanes(b); }
inline Lanes operator*(const Lanes& a, float b) { return a * allLanes(b); }
inline Lanes smaller(const Lanes& a, const Lanes& b) { return eachLane<Lanes>(a, b, [](float x, float y) { return x < y ? x : y; }); }
inline Lanes larger(const Lanes& a, const Lanes& b) { return eachLane<Lanes>(a, b, [](float x, float y) { return x > y ? x : y; }); }
inline LaneMask operator<(const Lanes& a, const Lanes& b) { return eachLane<LaneMask>(a, b, [](float x, float y) { return x < y ? -1 : 0; }); }
inline LaneMask operator>(const Lanes& a, const Lanes& b) { return eachLane<LaneMask>(a, b, [](float x, float y) { return x > y ? -1 : 0; }); }
inline LaneMask operator<=(const Lanes& a, const Lanes& b) { return eachLane<LaneMask>(a, b, [](float x, float y) { return x <= y ? -1 : 0; }); }
inline LaneMask operator>(const Lanes& a, float b) { return a > allLanes(b); }
inline LaneMask operator<(const Lanes& a, float b) { return allLanes(b) > a; }
inline LaneMask operator<=(const Lanes& a, float b) { return a <= allLanes(b); }
inline LaneMask operator>=(const Lanes& a, float b) { return allLanes(b) <= a; }
inline LaneMask operator!=(const Lanes& a, float b) { return eachLane<LaneMask>(a, a, [b](float x, float) { return x != b ? -1 : 0; }); }
inline LaneMask operator&(const LaneMask& a, const LaneMask& b) { return eachLane<LaneMask>(a, b, [](std::int32_t x, std::int32_t y) { return x & y; }); }
inline LaneMask operator|(const LaneMask& a, const LaneMask& b) { return eachLane<LaneMask>(a, b, [](std::int32_t x, std::int32_t y) { return x | y; }); }
inline LaneMask operator~(const LaneMask& a) { return eachLane<LaneMask>(a, a, [](std::int32_t x, std::int32_t) { return ~x; }); }
// clang-format on

inline Lanes select(const LaneMask& mask, const Lanes& whereTrue, const Lanes& elsewhere)
{
    Lanes result;
    for (int i = 0; i < kLanes; ++i)
        result.lane[i] = mask.lane[i] != 0 ? whereTrue.lane[i] : elsewhere.lane[i];
    return result;
}

inline unsigned bitsOf(const LaneMask& mask)
{
    unsigned bits = 0;
    for (int lane = 0; lane < kLanes; ++lane)
        bits |= static_cast<unsigned>(mask.lane[lane] & 1) << lane;
    return bits;
}

#endif

} // namespace collision
