// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
#include <CoreAlgorithms/dental/NearestSample_p.h>

// The compiler's own flags stay as they are: single functions are compiled for AVX2 and chosen when the program runs.
#if defined(__GNUC__) && defined(__x86_64__)
#define COREALGORITHMS_AVX2 __attribute__((target("avx2")))
#define COREALGORITHMS_AVX2_INLINE __attribute__((target("avx2"), always_inline)) inline
#include <immintrin.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <type_traits>
#endif

namespace nearestsample {

int findPlain(const QVector3D& point, const QVector3D* samples, int size)
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
constexpr int kVectors = 4; // of a block
constexpr int kBlock = kVectors * kLanes;

static_assert(sizeof(QVector3D) == 3 * sizeof(float) && std::is_standard_layout_v<QVector3D>);

// The point's coordinates, eight times each.
struct Query
{
    __m256 x;
    __m256 y;
    __m256 z;
};

COREALGORITHMS_AVX2_INLINE __m256 twoQuarters(const float* low, const float* high)
{
    return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_loadu_ps(low)), _mm_loadu_ps(high), 1);
}

// Squared distances of eight samples, in their order. The low half of each vector holds samples 0 to 3, the high half
// samples 4 to 7:
//     a = x0 y0 z0 x1   b = y1 z1 x2 y2   c = z2 x3 y3 z3
COREALGORITHMS_AVX2_INLINE __m256 squaredDistances(const float* samples, const Query& query)
{
    const __m256 a = twoQuarters(samples, samples + 12);
    const __m256 b = twoQuarters(samples + 4, samples + 16);
    const __m256 c = twoQuarters(samples + 8, samples + 20);
    const __m256 xyFrom2 = _mm256_shuffle_ps(b, c, _MM_SHUFFLE(2, 1, 3, 2)); // x2 y2 x3 y3
    const __m256 yzTo1 = _mm256_shuffle_ps(a, b, _MM_SHUFFLE(1, 0, 2, 1));   // y0 z0 y1 z1
    const __m256 x = _mm256_sub_ps(_mm256_shuffle_ps(a, xyFrom2, _MM_SHUFFLE(2, 0, 3, 0)), query.x);
    const __m256 y = _mm256_sub_ps(_mm256_shuffle_ps(yzTo1, xyFrom2, _MM_SHUFFLE(3, 1, 2, 0)), query.y);
    const __m256 z = _mm256_sub_ps(_mm256_shuffle_ps(yzTo1, c, _MM_SHUFFLE(3, 0, 3, 1)), query.z);
    const __m256 xxyy = _mm256_add_ps(_mm256_mul_ps(x, x), _mm256_mul_ps(y, y));
    return _mm256_add_ps(xxyy, _mm256_mul_ps(z, z));
}

// In each lane the smallest distance so far and the start of the block where it was first reached.
struct Lanes
{
    __m256 smallest;
    __m256i blockStart;
};

COREALGORITHMS_AVX2_INLINE void take(Lanes& lanes, const float* block, int start, const Query& query)
{
    // The minimum instruction gives its second operand if one of the two is NaN.
    __m256 smallest = lanes.smallest;
    for (int vector = 0; vector < kVectors; ++vector)
        smallest = _mm256_min_ps(squaredDistances(block + 3 * kLanes * vector, query), smallest);
    const __m256 improved = _mm256_cmp_ps(smallest, lanes.smallest, _CMP_LT_OQ);
    lanes.blockStart =
        _mm256_blendv_epi8(lanes.blockStart, _mm256_set1_epi32(start), _mm256_castps_si256(improved));
    lanes.smallest = smallest;
}

// Place in the block of the first sample at the distance.
COREALGORITHMS_AVX2_INLINE int placeInBlock(const float* block, float distance, const Query& query)
{
    unsigned places = 0;
    for (int vector = 0; vector < kVectors; ++vector) {
        const __m256 equal = _mm256_cmp_ps(squaredDistances(block + 3 * kLanes * vector, query),
                                           _mm256_set1_ps(distance), _CMP_EQ_OQ);
        places |= static_cast<unsigned>(_mm256_movemask_ps(equal)) << (kLanes * vector);
    }
    return std::countr_zero(places);
}

COREALGORITHMS_AVX2 int findAvx2(const QVector3D& point, const QVector3D* samples, int size)
{
    if (size < kBlock)
        return findPlain(point, samples, size);
    const float first = (samples[0] - point).lengthSquared();
    if (std::isnan(first))
        return 0;

    const auto* floats = reinterpret_cast<const float*>(samples);
    const Query query{_mm256_set1_ps(point.x()), _mm256_set1_ps(point.y()), _mm256_set1_ps(point.z())};
    Lanes lanes{_mm256_set1_ps(first), _mm256_setzero_si256()};
    const int lastStart = size - kBlock;
    for (int start = 0; start < lastStart; start += kBlock)
        take(lanes, floats + 3 * static_cast<std::ptrdiff_t>(start), start, query);
    // The last block may overlap the one before; a sample seen twice improves no lane in which it was seen, and
    // elsewhere the block that is earlier counts.
    take(lanes, floats + 3 * static_cast<std::ptrdiff_t>(lastStart), lastStart, query);

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
    const int start = blockStart[best];
    return start + placeInBlock(floats + 3 * static_cast<std::ptrdiff_t>(start), smallest[best], query);
}

} // namespace

int find(const QVector3D& point, const QVector3D* samples, int size)
{
    return __builtin_cpu_supports("avx2") != 0 ? findAvx2(point, samples, size)
                                               : findPlain(point, samples, size);
}

#else

int find(const QVector3D& point, const QVector3D* samples, int size)
{
    return findPlain(point, samples, size);
}

#endif

} // namespace nearestsample
