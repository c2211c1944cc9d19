// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/NearestSample_p.h>

// The flags of the compiler do not change: single functions are compiled for AVX2 and chosen when
// the program runs.
#if defined(__GNUC__) && defined(__x86_64__)
#define COREALGORITHMS_AVX2 __attribute__((target("avx2")))
#define COREALGORITHMS_AVX2_INLINE __attribute__((target("avx2"), always_inline)) inline
#include <immintrin.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <type_traits>
#endif

namespace dental {

int findNearestSamplePlain(const QVector3D& point, const QVector3D* samples, int size)
{
    int nearest = 0;
    float smallest = (samples[0] - point).lengthSquared();
    for (int i = 1; i < size; ++i) {
        const float distance = (samples[i] - point).lengthSquared();
        if (smallest > distance) {
            smallest = distance;
            nearest = i;
        }
    }
    return nearest;
}

#ifdef COREALGORITHMS_AVX2

namespace {

constexpr int kLanes = 8;
constexpr int kVectors = 4; // in a block
constexpr int kBlock = kVectors * kLanes;
constexpr std::ptrdiff_t kVectorFloats = std::ptrdiff_t{3} * kLanes;
constexpr std::ptrdiff_t kBlockFloats = kVectors * kVectorFloats;

static_assert(sizeof(QVector3D) == 3 * sizeof(float) && std::is_standard_layout_v<QVector3D>);

// Holds the point's coordinates in the order of those of eight samples.
struct Query
{
    __m256 first;  // x y z x   y z x y
    __m256 second; // z x y z   x y z x
    __m256 third;  // y z x y   z x y z
};

COREALGORITHMS_AVX2_INLINE Query makeQuery(const QVector3D& point)
{
    const float x = point.x();
    const float y = point.y();
    const float z = point.z();
    return {_mm256_setr_ps(x, y, z, x, y, z, x, y), _mm256_setr_ps(z, x, y, z, x, y, z, x),
            _mm256_setr_ps(y, z, x, y, z, x, y, z)};
}

// Subtracts the sample's coordinates from the point's: in this order the subtraction reads them
// from memory, and the squares are equal.
COREALGORITHMS_AVX2_INLINE __m256 squaredDifferences(const __m256& coordinates,
                                                     const float* samples)
{
    const __m256 difference = _mm256_sub_ps(coordinates, _mm256_loadu_ps(samples));
    return _mm256_mul_ps(difference, difference);
}

// Returns the squared distances of eight samples. The squares are in the order of memory,
//     first   x0 y0 z0 x1 y1 z1 x2 y2
//     second  z2 x3 y3 z3 x4 y4 z4 x5
//     third   y5 z5 x6 y6 z6 x7 y7 z7
// so that the eight x are in eight different places, and likewise y and z. The blended x has the
// samples in the order 0 3 6 1 4 7 2 5; y is rotated to that order by one place and z by two.
COREALGORITHMS_AVX2_INLINE __m256 squaredDistances(const float* samples, const Query& query)
{
    const __m256 first = squaredDifferences(query.first, samples);
    const __m256 second = squaredDifferences(query.second, samples + kLanes);
    const __m256 third = squaredDifferences(query.third, samples + kLanes + kLanes);
    const __m256 x = _mm256_blend_ps(_mm256_blend_ps(first, second, 0b10010010), third, 0b00100100);
    const __m256 y = _mm256_blend_ps(_mm256_blend_ps(first, second, 0b00100100), third, 0b01001001);
    const __m256 z = _mm256_blend_ps(_mm256_blend_ps(first, second, 0b01001001), third, 0b10010010);
    const __m256 rotatedY = _mm256_permutevar8x32_ps(y, _mm256_setr_epi32(1, 2, 3, 4, 5, 6, 7, 0));
    const __m256 rotatedZ = _mm256_permutevar8x32_ps(z, _mm256_setr_epi32(2, 3, 4, 5, 6, 7, 0, 1));
    return _mm256_add_ps(_mm256_add_ps(x, rotatedY), rotatedZ);
}

// Holds, for each lane, the smallest distance so far and the start of the block where it was first
// reached.
struct Lanes
{
    __m256 smallest;
    __m256i blockStart;
};

COREALGORITHMS_AVX2_INLINE void compareBlock(Lanes& lanes, const float* block, const __m256i& start,
                                             const Query& query)
{
    // The minimum instruction returns its second operand if one of the two is NaN.
    __m256 smallest = lanes.smallest;
    for (int vector = 0; vector < kVectors; ++vector)
        smallest = _mm256_min_ps(squaredDistances(block + kVectorFloats * vector, query), smallest);
    const __m256 improved = _mm256_cmp_ps(smallest, lanes.smallest, _CMP_LT_OQ);
    lanes.blockStart = _mm256_blendv_epi8(lanes.blockStart, start, _mm256_castps_si256(improved));
    lanes.smallest = smallest;
}

COREALGORITHMS_AVX2_INLINE const float* blockAt(const float* samples, int start)
{
    return samples + 3 * static_cast<std::ptrdiff_t>(start);
}

// Returns the place in the block of the first sample at the distance.
COREALGORITHMS_AVX2_INLINE int placeInBlock(const float* block, float distance, const Query& query)
{
    unsigned places = 0;
    for (int vector = 0; vector < kVectors; ++vector) {
        const __m256 distances =
            _mm256_permutevar8x32_ps(squaredDistances(block + kVectorFloats * vector, query),
                                     _mm256_setr_epi32(0, 3, 6, 1, 4, 7, 2, 5));
        const __m256 equal = _mm256_cmp_ps(distances, _mm256_set1_ps(distance), _CMP_EQ_OQ);
        places |= static_cast<unsigned>(_mm256_movemask_ps(equal)) << (kLanes * vector);
    }
    return std::countr_zero(places);
}

COREALGORITHMS_AVX2 int findAvx2(const QVector3D& point, const QVector3D* samples, int size)
{
    if (size < kBlock)
        return findNearestSamplePlain(point, samples, size);
    const float first = (samples[0] - point).lengthSquared();
    if (std::isnan(first))
        return 0;

    const auto* floats = reinterpret_cast<const float*>(samples);
    const Query query = makeQuery(point);
    Lanes lanes{_mm256_set1_ps(first), _mm256_setzero_si256()};
    const int lastStart = size - kBlock;
    __m256i start = _mm256_setzero_si256();
    for (const float *block = floats, *end = blockAt(floats, lastStart); block < end;
         block += kBlockFloats) {
        compareBlock(lanes, block, start, query);
        start = _mm256_add_epi32(start, _mm256_set1_epi32(kBlock));
    }
    // The last block may overlap the one before. Samples of both count with the earlier one, as the
    // lanes below show.
    compareBlock(lanes, blockAt(floats, lastStart), _mm256_set1_epi32(lastStart), query);

    alignas(32) float smallest[kLanes];
    alignas(32) int blockStart[kLanes];
    _mm256_store_ps(smallest, lanes.smallest);
    _mm256_store_si256(reinterpret_cast<__m256i*>(blockStart), lanes.blockStart);
    int best = 0;
    for (int lane = 1; lane < kLanes; ++lane) {
        if (smallest[lane] < smallest[best] ||
            (smallest[lane] == smallest[best] && blockStart[lane] < blockStart[best]))
            best = lane;
    }
    return blockStart[best] +
           placeInBlock(blockAt(floats, blockStart[best]), smallest[best], query);
}

} // namespace

int findNearestSample(const QVector3D& point, const QVector3D* samples, int size)
{
    return __builtin_cpu_supports("avx2") != 0 ? findAvx2(point, samples, size)
                                               : findNearestSamplePlain(point, samples, size);
}

#else

int findNearestSample(const QVector3D& point, const QVector3D* samples, int size)
{
    return findNearestSamplePlain(point, samples, size);
}

#endif

} // namespace dental
