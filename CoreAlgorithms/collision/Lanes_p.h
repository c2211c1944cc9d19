// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// Computes with eight floats at once. Every operation acts on each of the eight as the scalar
// operation does, with one rounding, so that the bits do not depend on how many of them the machine
// handles at once.
//
// With gcc and clang, the eight are a vector type, which the compiler maps to the registers of a
// function's target. Other compilers use arrays. COREALGORITHMS_PORTABLE_LANES selects the arrays
// for every compiler.
namespace collision {

constexpr int kLanes = 8;
/// The alignment of every type that holds lanes. It is stated since the alignment of the vector
/// type itself depends on the target of the function that uses it.
constexpr std::size_t kLaneAlignment = 32;

#if defined(__GNUC__) && !defined(COREALGORITHMS_PORTABLE_LANES)

// The functions below are always inlined, since how a vector is passed depends on the target of the
// function, and the targets of the callers differ. -Wpsabi warns of that. The pragma turns the
// warning off here; sources that call the functions are compiled without it (see CMakeLists.txt),
// since there the compiler reports it at the end of the file.
#define COREALGORITHMS_INLINE_LANES inline __attribute__((always_inline))
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpsabi"

using Lanes = float __attribute__((vector_size(32)));
using LaneMask = std::int32_t __attribute__((vector_size(32))); // -1 where true, 0 where false

/// Returns the smaller value of each lane; `b` if either is NaN.
COREALGORITHMS_INLINE_LANES Lanes smaller(const Lanes& a, const Lanes& b)
{
    return a < b ? a : b;
}

/// Returns the larger value of each lane; `b` if either is NaN.
COREALGORITHMS_INLINE_LANES Lanes larger(const Lanes& a, const Lanes& b)
{
    return a > b ? a : b;
}

/// Returns eight times the value.
COREALGORITHMS_INLINE_LANES Lanes allLanes(float value)
{
    return Lanes{} + value;
}

/// Returns, for each lane, `whereTrue` if the mask is true and `elsewhere` if it is false.
COREALGORITHMS_INLINE_LANES Lanes select(const LaneMask& mask, const Lanes& whereTrue,
                                         const Lanes& elsewhere)
{
    return mask ? whereTrue : elsewhere;
}

/// Returns a number whose bit i is set if lane i is true.
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

inline Lanes operator+(const Lanes& a, const Lanes& b)
{
    return eachLane<Lanes>(a, b, [](float x, float y) { return x + y; });
}

inline Lanes operator-(const Lanes& a, const Lanes& b)
{
    return eachLane<Lanes>(a, b, [](float x, float y) { return x - y; });
}

inline Lanes operator*(const Lanes& a, const Lanes& b)
{
    return eachLane<Lanes>(a, b, [](float x, float y) { return x * y; });
}

inline Lanes operator/(const Lanes& a, const Lanes& b)
{
    return eachLane<Lanes>(a, b, [](float x, float y) { return x / y; });
}

inline Lanes operator-(const Lanes& a)
{
    return eachLane<Lanes>(a, a, [](float x, float) { return -x; });
}

inline Lanes operator+(const Lanes& a, float b)
{
    return a + allLanes(b);
}

inline Lanes operator*(const Lanes& a, float b)
{
    return a * allLanes(b);
}

inline Lanes smaller(const Lanes& a, const Lanes& b)
{
    return eachLane<Lanes>(a, b, [](float x, float y) { return x < y ? x : y; });
}

inline Lanes larger(const Lanes& a, const Lanes& b)
{
    return eachLane<Lanes>(a, b, [](float x, float y) { return x > y ? x : y; });
}

inline LaneMask operator<(const Lanes& a, const Lanes& b)
{
    return eachLane<LaneMask>(a, b, [](float x, float y) { return x < y ? -1 : 0; });
}

inline LaneMask operator>(const Lanes& a, const Lanes& b)
{
    return eachLane<LaneMask>(a, b, [](float x, float y) { return x > y ? -1 : 0; });
}

inline LaneMask operator<=(const Lanes& a, const Lanes& b)
{
    return eachLane<LaneMask>(a, b, [](float x, float y) { return x <= y ? -1 : 0; });
}

inline LaneMask operator>(const Lanes& a, float b)
{
    return a > allLanes(b);
}

inline LaneMask operator<(const Lanes& a, float b)
{
    return allLanes(b) > a;
}

inline LaneMask operator<=(const Lanes& a, float b)
{
    return a <= allLanes(b);
}

inline LaneMask operator>=(const Lanes& a, float b)
{
    return allLanes(b) <= a;
}

inline LaneMask operator!=(const Lanes& a, float b)
{
    return eachLane<LaneMask>(a, a, [b](float x, float) { return x != b ? -1 : 0; });
}

inline LaneMask operator&(const LaneMask& a, const LaneMask& b)
{
    return eachLane<LaneMask>(a, b, [](std::int32_t x, std::int32_t y) { return x & y; });
}

inline LaneMask operator|(const LaneMask& a, const LaneMask& b)
{
    return eachLane<LaneMask>(a, b, [](std::int32_t x, std::int32_t y) { return x | y; });
}

inline LaneMask operator~(const LaneMask& a)
{
    return eachLane<LaneMask>(a, a, [](std::int32_t x, std::int32_t) { return ~x; });
}

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
