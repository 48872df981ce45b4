// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_LANES_LANES_H
#define KYMATH_LANES_LANES_H

#include "internal/Arithmetic.h"

#include <immintrin.h>
#include <cstddef>
#include <cstring>
#include <limits>
#include <utility>

// Four values at once or more, in the vector types that GCC and Clang share. Lane k of a result
// depends only on lane k of the operands: with one row, column or element to a lane, each value
// keeps its own order of operations, and so its bits. The compiler uses the instructions of the
// including source: four doubles are one register of 32 bytes with AVX, two of 16 bytes without.
//
// Every function here is static and always inlined: code compiled for one processor must never be
// called by code compiled for another.

#define KY_INLINE inline __attribute__((always_inline))

namespace KyMath::internal {

template <class T>
struct BitsOf;
template <>
struct BitsOf<float> {
    using Type = int;
};
template <>
struct BitsOf<double> {
    using Type = long;
};
template <class T, std::size_t N>
struct LaneTypes {
    typedef T Values __attribute__((vector_size(N * sizeof(T))));
    typedef typename BitsOf<T>::Type Bits __attribute__((vector_size(N * sizeof(T))));
};
template <class T>
constexpr auto kSign = std::numeric_limits<typename BitsOf<T>::Type>::min();

template <class T>
using Lanes = typename LaneTypes<T, 4>::Values;
/// A comparison sets all bits of a lane where it holds.
template <class T>
using LaneBits = typename LaneTypes<T, 4>::Bits;
template <class T>
using LanePair = typename LaneTypes<T, 2>::Values;

template <class T>
static KY_INLINE LanePair<T> loadPair(const T* p) {
    LanePair<T> v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
template <class T>
static KY_INLINE Lanes<T> load(const T* p) {
    Lanes<T> v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
template <class T, class V>
static KY_INLINE void store(T* p, V v) {
    std::memcpy(p, &v, sizeof v);
}

#ifdef __AVX__
// 16 bytes at a time, as compilers copy: a load that spans two recent stores stalls.
static KY_INLINE Lanes<double> load(const double* p) {
    return reinterpret_cast<Lanes<double>>(_mm256_loadu2_m128d(p + 2, p));
}
#endif

// As many lanes as a register holds.

namespace {

#if defined(__AVX512DQ__)
constexpr std::size_t kRegister = 64;
#elif defined(__AVX__)
constexpr std::size_t kRegister = 32;
#else
constexpr std::size_t kRegister = 16;
#endif
template <class T>
constexpr std::size_t kWide = kRegister / sizeof(T);

}  // namespace

template <class T>
using Wide = typename LaneTypes<T, kWide<T>>::Values;
template <class T>
using WideBits = typename LaneTypes<T, kWide<T>>::Bits;

template <class T>
static KY_INLINE Wide<T> loadWide(const T* p) {
    Wide<T> v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

template <class V, std::size_t... I>
static KY_INLINE auto joined(V a, V b, std::index_sequence<I...>) {
    return __builtin_shufflevector(a, b, I...);
}
template <std::size_t First, class V, std::size_t... I>
static KY_INLINE auto part(V v, std::index_sequence<I...>) {
    return __builtin_shufflevector(v, v, (First + I)...);
}

/// N lanes from parts of equal size: part(k), part(k + 1) and so on.
template <std::size_t N, class Part>
static KY_INLINE auto gatherParts(Part part, std::size_t k = 0) {
    using V = decltype(part(k));
    constexpr std::size_t kHalf = N / 2;
    constexpr std::size_t kLanes = sizeof(V) / sizeof(V{}[0]);
    if constexpr (N == kLanes) {
        return part(k);
    } else {
        return joined(gatherParts<kHalf>(part, k), gatherParts<kHalf>(part, k + kHalf / kLanes),
                      std::make_index_sequence<N>());
    }
}
/// The four values at p in each group of four lanes. GCC does not find the one instruction.
template <class T>
static KY_INLINE Wide<T> loadInEachGroup(const T* p) {
    static_assert(kWide<T> >= 4, "has a group");
#if defined(__AVX512DQ__)
    if constexpr (sizeof(T) == sizeof(float)) {
        return reinterpret_cast<Wide<T>>(_mm512_maskz_broadcast_f32x4(0xffff, _mm_loadu_ps(p)));
    } else {
        return reinterpret_cast<Wide<T>>(_mm512_maskz_broadcast_f64x4(0xff, _mm256_loadu_pd(p)));
    }
#elif defined(__AVX__)
    if constexpr (sizeof(T) == sizeof(float)) {
        return reinterpret_cast<Wide<T>>(_mm256_broadcast_ps(reinterpret_cast<const __m128*>(p)));
    } else {
        return load(p);
    }
#else
    return loadWide(p);
#endif
}
/// Stores each N lanes of v: part k at address(k).
template <std::size_t N, class V, class Address>
static KY_INLINE void scatterParts(V v, Address address, std::size_t k = 0) {
    constexpr std::size_t kHalf = sizeof v / sizeof v[0] / 2;
    if constexpr (N == 2 * kHalf) {
        store(address(k), v);
    } else {
        constexpr std::make_index_sequence<kHalf> half;
        scatterParts<N>(part<0>(v, half), address, k);
        scatterParts<N>(part<kHalf>(v, half), address, k + kHalf / N);
    }
}

template <int I, int J, int K, int L, class V, std::size_t... Lane>
static KY_INLINE V shuffle(V a, V b, std::index_sequence<Lane...>) {
    constexpr std::size_t kTaken[] = {I, J, sizeof...(Lane) + K, sizeof...(Lane) + L};
    return __builtin_shufflevector(a, b, (Lane / 4 * 4 + kTaken[Lane % 4])...);
}
/// Takes within each group of four lanes I and J of a, then K and L of b.
template <int I, int J, int K, int L, class V>
static KY_INLINE V shuffle(V a, V b) {
    return shuffle<I, J, K, L>(a, b, std::make_index_sequence<sizeof a / sizeof a[0]>());
}

template <int I, int J, class V, std::size_t... Lane>
static KY_INLINE V shufflePairs(V a, V b, std::index_sequence<Lane...>) {
    return __builtin_shufflevector(a, b,
                                   (Lane / 2 * 2 + (Lane % 2 == 0 ? I : sizeof...(Lane) + J))...);
}
/// Takes within each group of two lane I of a, then J of b.
template <int I, int J, class V>
static KY_INLINE V shufflePairs(V a, V b) {
    return shufflePairs<I, J>(a, b, std::make_index_sequence<sizeof a / sizeof a[0]>());
}

template <std::size_t First, class V, std::size_t... Lane>
static KY_INLINE V zip(V a, V b, std::index_sequence<Lane...>) {
    constexpr std::size_t kLanes = sizeof...(Lane), kGroup = 16 / sizeof a[0];
    return __builtin_shufflevector(
        a, b, (Lane / kGroup * kGroup + First + Lane % kGroup / 2 + Lane % 2 * kLanes)...);
}
/// Takes within each group of 16 bytes lanes of a and b in turn, from lane First on.
template <std::size_t First, class V>
static KY_INLINE V zip(V a, V b) {
    return zip<First>(a, b, std::make_index_sequence<sizeof a / sizeof a[0]>());
}

/// Bit k is set where the comparison, of one register, holds in lane k.
template <class Bits>
static KY_INLINE unsigned int bitsOf(Bits holds) {
    constexpr bool kFloats = sizeof holds[0] == 4;
    int bits;
    if constexpr (sizeof holds == 16 && kFloats) {
        bits = _mm_movemask_ps(reinterpret_cast<__m128>(holds));
    } else if constexpr (sizeof holds == 16) {
        bits = _mm_movemask_pd(reinterpret_cast<__m128d>(holds));
    }
#ifdef __AVX__
    else if constexpr (sizeof holds == 32 && kFloats) {
        bits = _mm256_movemask_ps(reinterpret_cast<__m256>(holds));
    } else if constexpr (sizeof holds == 32) {
        bits = _mm256_movemask_pd(reinterpret_cast<__m256d>(holds));
    }
#endif
#ifdef __AVX512DQ__
    else if constexpr (kFloats) {
        bits = _mm512_movepi32_mask(reinterpret_cast<__m512i>(holds));
    } else {
        bits = _mm512_movepi64_mask(reinterpret_cast<__m512i>(holds));
    }
#endif
    return static_cast<unsigned int>(bits);
}

/// Bit k is set where a < b in lane k of a register.
template <class V>
static KY_INLINE unsigned int bitsBelow(V a, V b) {
#ifdef __AVX512DQ__
    if constexpr (sizeof a == 64 && sizeof a[0] == 4) {
        return _mm512_cmp_ps_mask(reinterpret_cast<__m512>(a), reinterpret_cast<__m512>(b),
                                  _CMP_LT_OS);
    } else if constexpr (sizeof a == 64) {
        return _mm512_cmp_pd_mask(reinterpret_cast<__m512d>(a), reinterpret_cast<__m512d>(b),
                                  _CMP_LT_OS);
    }
#endif
    return bitsOf(a < b);
}

static KY_INLINE float squareRoot(float v) {
    return _mm_cvtss_f32(_mm_sqrt_ss(_mm_set_ss(v)));
}
static KY_INLINE double squareRoot(double v) {
    return _mm_cvtsd_f64(_mm_sqrt_pd(_mm_set1_pd(v)));
}
/// The square root in each lane of a register.
template <class V>
static KY_INLINE V squareRoot(V v) {
    constexpr bool kFloats = sizeof v[0] == 4;
    if constexpr (sizeof v == 16 && kFloats) {
        return reinterpret_cast<V>(_mm_sqrt_ps(reinterpret_cast<__m128>(v)));
    } else if constexpr (sizeof v == 16) {
        return reinterpret_cast<V>(_mm_sqrt_pd(reinterpret_cast<__m128d>(v)));
    }
#ifdef __AVX__
    else if constexpr (sizeof v == 32 && kFloats) {
        return reinterpret_cast<V>(_mm256_sqrt_ps(reinterpret_cast<__m256>(v)));
    } else if constexpr (sizeof v == 32) {
        return reinterpret_cast<V>(_mm256_sqrt_pd(reinterpret_cast<__m256d>(v)));
    }
#endif
#ifdef __AVX512DQ__
    else if constexpr (kFloats) {
        return reinterpret_cast<V>(_mm512_maskz_sqrt_ps(0xffff, reinterpret_cast<__m512>(v)));
    } else {
        return reinterpret_cast<V>(_mm512_maskz_sqrt_pd(0xff, reinterpret_cast<__m512d>(v)));
    }
#endif
}

/// The first three lanes of v and the last of w.
template <class V>
static KY_INLINE V withLast(V v, V w) {
    return __builtin_shufflevector(v, w, 0, 1, 2, 7);
}

template <class T>
static KY_INLINE Lanes<T> abs(Lanes<T> v) {
    return reinterpret_cast<Lanes<T>>(reinterpret_cast<LaneBits<T>>(v) & ~kSign<T>);
}

/// Changes the sign of the lanes whose sign bit is set in signs.
template <class T>
static KY_INLINE Lanes<T> flip(Lanes<T> v, LaneBits<T> signs) {
    return reinterpret_cast<Lanes<T>>(reinterpret_cast<LaneBits<T>>(v) ^ signs);
}

/// Changes the sign of the first lane of each group of four.
template <class T, class V, std::size_t... Lane>
static KY_INLINE V flipFirst(V v, std::index_sequence<Lane...>) {
    typedef typename LaneTypes<T, sizeof...(Lane)>::Bits Bits;
    constexpr Bits signs = {(Lane % 4 == 0 ? kSign<T> : 0)...};
    return reinterpret_cast<V>(reinterpret_cast<Bits>(v) ^ signs);
}
template <class T, class V>
static KY_INLINE V flipFirst(V v) {
    return flipFirst<T>(v, std::make_index_sequence<sizeof v / sizeof v[0]>());
}

/// A matrix of sixteen values, element (r, c) at 4c + r: row r of each column is in lane r.
template <class T>
struct Columns {
    Lanes<T> c[4];
};

template <class T>
static KY_INLINE Columns<T> loadColumns(const T* m) {
    return {{load(m), load(m + 4), load(m + 8), load(m + 12)}};
}
template <class T>
static KY_INLINE void storeColumns(T* m, const Columns<T>& a) {
    for (int c = 0; c < 4; ++c) store(m + 4 * c, a.c[c]);
}

/// Columns become rows.
template <class T>
static KY_INLINE void transpose(Columns<T>& m) {
    const Lanes<T> a = __builtin_shufflevector(m.c[0], m.c[1], 0, 4, 2, 6);
    const Lanes<T> b = __builtin_shufflevector(m.c[0], m.c[1], 1, 5, 3, 7);
    const Lanes<T> d = __builtin_shufflevector(m.c[2], m.c[3], 0, 4, 2, 6);
    const Lanes<T> e = __builtin_shufflevector(m.c[2], m.c[3], 1, 5, 3, 7);
    m.c[0] = __builtin_shufflevector(a, d, 0, 1, 4, 5);
    m.c[1] = __builtin_shufflevector(b, e, 0, 1, 4, 5);
    m.c[2] = __builtin_shufflevector(a, d, 2, 3, 6, 7);
    m.c[3] = __builtin_shufflevector(b, e, 2, 3, 6, 7);
}

/// The same in each group of four lanes.
template <class V>
static KY_INLINE void transposeGroups(V (&v)[4]) {
    const V a = shuffle<0, 1, 0, 1>(v[0], v[1]), b = shuffle<0, 1, 0, 1>(v[2], v[3]);
    const V c = shuffle<2, 3, 2, 3>(v[0], v[1]), d = shuffle<2, 3, 2, 3>(v[2], v[3]);
    v[0] = shuffle<0, 2, 0, 2>(a, b);
    v[1] = shuffle<1, 3, 1, 3>(a, b);
    v[2] = shuffle<0, 2, 0, 2>(c, d);
    v[3] = shuffle<1, 3, 1, 3>(c, d);
}

// The product of a matrix and a vector, in its one order of terms. One vector at a time has row r
// in lane r; several at a time have a vector to a lane.

/// The first three columns of m times v: row r in lane r.
template <class T, class V>
static KY_INLINE Lanes<T> times3(const Columns<T>& m, const V& v) {
    return m.c[0] * v[0] + m.c[1] * v[1] + m.c[2] * v[2];
}
/// m (v, w)
template <class T, class V>
static KY_INLINE Lanes<T> times4(const Columns<T>& m, const V& v, T w) {
    return times3(m, v) + m.c[3] * w;
}
/// Row r of the first three columns of m, times (x, y, z) of each lane, or of one vector.
template <class T, class V>
static KY_INLINE V rowTimes3(const T* m, int r, V x, V y, V z) {
    return m[r] * x + m[4 + r] * y + m[8 + r] * z;
}

}  // namespace KyMath::internal

#endif
