// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_LANES_LANES_H
#define KYMATH_LANES_LANES_H

#include "internal/Arithmetic.h"

#include <immintrin.h>
#include <cstring>
#include <limits>

// Four values at once, in the vector types that GCC and Clang share. Lane k of a result depends
// only on lane k of the operands: with one row, column or element to a lane, each value keeps its
// own order of operations, and so its bits. The compiler uses the instructions of the including
// source: four doubles are one register of 32 bytes with AVX, two of 16 bytes without.
//
// Every function here is static and always inlined: code compiled for one processor must never be
// called by code compiled for another.

#define KY_INLINE inline __attribute__((always_inline))

namespace KyMath::internal {

template <class T>
struct LaneTypes;
template <>
struct LaneTypes<float> {
    typedef float Values __attribute__((vector_size(16)));
    typedef float Pair __attribute__((vector_size(8)));
    typedef int Bits __attribute__((vector_size(16)));
    static constexpr int kSign = std::numeric_limits<int>::min();
};
template <>
struct LaneTypes<double> {
    typedef double Values __attribute__((vector_size(32)));
    typedef double Pair __attribute__((vector_size(16)));
    typedef long Bits __attribute__((vector_size(32)));
    static constexpr long kSign = std::numeric_limits<long>::min();
};

template <class T>
using Lanes = typename LaneTypes<T>::Values;
/// A comparison sets all bits of a lane where it holds.
template <class T>
using LaneBits = typename LaneTypes<T>::Bits;
template <class T>
using LanePair = typename LaneTypes<T>::Pair;

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

// What is written differently for each set of instructions:
// - load() of doubles;
// - bitsOf(holds): bit k is set where the comparison holds in lane k;
// - WideLanes: as many floats as a register holds, in groups of four (see transformPacked()).
//   shuffle<I, J, K, L>(a, b) takes within each group lanes I and J of a, then K and L of b.
//   Group g is loaded from, and stored to, p + 12 g.

#ifdef __AVX__

// 16 bytes at a time, as compilers copy: a load that spans two recent stores stalls.
static KY_INLINE Lanes<double> load(const double* p) {
    return reinterpret_cast<Lanes<double>>(_mm256_loadu2_m128d(p + 2, p));
}

template <class Bits>
static KY_INLINE int bitsOf(Bits holds) {
    if constexpr (sizeof holds == 16) {
        return _mm_movemask_ps(reinterpret_cast<__m128>(holds));
    } else if constexpr (sizeof holds[0] == 4) {
        return _mm256_movemask_ps(reinterpret_cast<__m256>(holds));
    } else {
        return _mm256_movemask_pd(reinterpret_cast<__m256d>(holds));
    }
}

typedef float WideLanes __attribute__((vector_size(32)));

template <int I, int J, int K, int L>
static KY_INLINE WideLanes shuffle(WideLanes a, WideLanes b) {
    return __builtin_shufflevector(a, b, I, J, 8 + K, 8 + L, 4 + I, 4 + J, 12 + K, 12 + L);
}
template <class V>
static KY_INLINE V loadGroups(const float* p) {
    return __builtin_shufflevector(load(p), load(p + 12), 0, 1, 2, 3, 4, 5, 6, 7);
}
template <class V>
static KY_INLINE void storeGroups(float* p, V v) {
    store(p, __builtin_shufflevector(v, v, 0, 1, 2, 3));
    store(p + 12, __builtin_shufflevector(v, v, 4, 5, 6, 7));
}

#else

template <class Bits>
static KY_INLINE int bitsOf(Bits holds) {
    if constexpr (sizeof holds == 16) {
        return _mm_movemask_ps(reinterpret_cast<__m128>(holds));
    } else {
        const auto low = __builtin_shufflevector(holds, holds, 0, 1);
        const auto high = __builtin_shufflevector(holds, holds, 2, 3);
        return _mm_movemask_pd(reinterpret_cast<__m128d>(low)) |
               _mm_movemask_pd(reinterpret_cast<__m128d>(high)) << 2;
    }
}

using WideLanes = Lanes<float>;

template <int I, int J, int K, int L>
static KY_INLINE WideLanes shuffle(WideLanes a, WideLanes b) {
    return __builtin_shufflevector(a, b, I, J, 4 + K, 4 + L);
}
template <class V>
static KY_INLINE V loadGroups(const float* p) {
    return load(p);
}
template <class V>
static KY_INLINE void storeGroups(float* p, V v) {
    store(p, v);
}

#endif

/// The first three lanes of v and the last of w.
template <class V>
static KY_INLINE V withLast(V v, V w) {
    return __builtin_shufflevector(v, w, 0, 1, 2, 7);
}

template <class T>
static KY_INLINE Lanes<T> abs(Lanes<T> v) {
    return reinterpret_cast<Lanes<T>>(reinterpret_cast<LaneBits<T>>(v) & ~LaneTypes<T>::kSign);
}

/// Changes the sign of the lanes whose sign bit is set in signs.
template <class T>
static KY_INLINE Lanes<T> flip(Lanes<T> v, LaneBits<T> signs) {
    return reinterpret_cast<Lanes<T>>(reinterpret_cast<LaneBits<T>>(v) ^ signs);
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
