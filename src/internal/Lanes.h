// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INTERNAL_LANES_H
#define KYMATH_INTERNAL_LANES_H

#include "internal/Arithmetic.h"

#include <immintrin.h>
#include <cstring>
#include <limits>

// Four values computed with at once, by the vector types that GCC and Clang share. Lane k of a
// result depends on lane k of the operands alone: with one row or column to a lane, each element
// keeps its own order of operations, and so its bits. The compiler makes of it what the source that
// includes this is compiled for: two halves of 16 bytes, or one register.

#define KY_INLINE static inline __attribute__((always_inline))

namespace KyMath {
namespace internal {

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
/// A comparison has all bits of a lane set where it holds.
template <class T>
using LaneBits = typename LaneTypes<T>::Bits;
template <class T>
using LanePair = typename LaneTypes<T>::Pair;

template <class T>
KY_INLINE LanePair<T> loadPair(const T* p) {
    LanePair<T> v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
template <class T>
KY_INLINE Lanes<T> load(const T* p) {
    Lanes<T> v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
#ifdef __AVX__
// By 16 bytes, as compilers copy: a load that spans two stores waits until both are in the cache.
KY_INLINE Lanes<double> load(const double* p) {
    return reinterpret_cast<Lanes<double>>(_mm256_loadu2_m128d(p + 2, p));
}
#endif
template <class T, class V>
KY_INLINE void store(T* p, V v) {
    std::memcpy(p, &v, sizeof v);
}

/// The first three lanes of v and the last of w.
template <class V>
KY_INLINE V withLast(V v, V w) {
    return __builtin_shufflevector(v, w, 0, 1, 2, 7);
}

template <class T>
KY_INLINE Lanes<T> abs(Lanes<T> v) {
    return reinterpret_cast<Lanes<T>>(reinterpret_cast<LaneBits<T>>(v) & ~LaneTypes<T>::kSign);
}

/// Changes the sign of the lanes whose sign bit is set in signs.
template <class T>
KY_INLINE Lanes<T> flip(Lanes<T> v, LaneBits<T> signs) {
    return reinterpret_cast<Lanes<T>>(reinterpret_cast<LaneBits<T>>(v) ^ signs);
}

/// Bit k is set where the comparison holds in lane k.
template <class Bits>
KY_INLINE int bitsOf(Bits holds) {
    if constexpr (sizeof holds == 16) {
        return _mm_movemask_ps(reinterpret_cast<__m128>(holds));
    } else {
#ifdef __AVX__
        if constexpr (sizeof holds[0] == 4) {
            return _mm256_movemask_ps(reinterpret_cast<__m256>(holds));
        } else {
            return _mm256_movemask_pd(reinterpret_cast<__m256d>(holds));
        }
#else
        const auto low = __builtin_shufflevector(holds, holds, 0, 1);
        const auto high = __builtin_shufflevector(holds, holds, 2, 3);
        return _mm_movemask_pd(reinterpret_cast<__m128d>(low)) |
               _mm_movemask_pd(reinterpret_cast<__m128d>(high)) << 2;
#endif
    }
}

/// Of four columns their rows.
template <class V>
KY_INLINE void transpose(V (&c)[4]) {
    const V a = __builtin_shufflevector(c[0], c[1], 0, 4, 2, 6);
    const V b = __builtin_shufflevector(c[0], c[1], 1, 5, 3, 7);
    const V d = __builtin_shufflevector(c[2], c[3], 0, 4, 2, 6);
    const V e = __builtin_shufflevector(c[2], c[3], 1, 5, 3, 7);
    c[0] = __builtin_shufflevector(a, d, 0, 1, 4, 5);
    c[1] = __builtin_shufflevector(b, e, 0, 1, 4, 5);
    c[2] = __builtin_shufflevector(a, d, 2, 3, 6, 7);
    c[3] = __builtin_shufflevector(b, e, 2, 3, 6, 7);
}

}  // namespace internal
}  // namespace KyMath

#endif
