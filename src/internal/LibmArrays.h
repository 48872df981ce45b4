// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INTERNAL_LIBM_ARRAYS_H
#define KYMATH_INTERNAL_LIBM_ARRAYS_H

#include "internal/Libm.h"
#ifdef KY_LOCKSTEP
#include "lanes/Kernels.h"

#include <algorithm>
#include <cstddef>

namespace KyMath::internal {

/// Values for the functions of Libm.h, some of them in use: as many as fill any register.
constexpr std::size_t kBlock = 16;
template <class T>
using Block = T[kBlock];

/// Calls part(begin, n) for the elements begin to begin + n - 1, until all were in such a part.
template <class Part>
void inBlocks(std::size_t count, Part part) {
    for (std::size_t begin = 0; begin < count; begin += kBlock) {
        part(begin, std::min(kBlock, count - begin));
    }
}

// The first n values, with the bits of single calls. Results replace the arguments.

/// Gives the values that are not in use one for which all functions are defined. The number of all.
template <class T>
std::size_t filled(Block<T>& x, std::size_t n) {
    std::fill(x + n, x + kBlock, T(0.5));
    return kBlock;
}

/// As `kernel`, and as `single` where Libm.h does not call SLEEF.
template <class T, class Kernel, class Single>
void patched(Block<T>& x, std::size_t n, Kernel kernel, Single single) {
    const auto isAside = [](T v) { return isTiny(v) || std::abs(v) == 1; };
    Block<T> given;
    for (std::size_t i = 0; i < n; ++i) {
        given[i] = x[i];
        if (isAside(x[i])) x[i] = T(0.5);
    }
    kernel(x, filled(x, n));
    for (std::size_t i = 0; i < n; ++i) {
        if (isAside(given[i])) x[i] = single(given[i]);
    }
}

template <class T>
void sin(Block<T>& x, std::size_t n) {
    KY_WIDE_KERNEL(sines<T>(x, filled(x, n)));
}
template <class T>
void sinCos(Block<T>& x, Block<T>& cosines, std::size_t n) {
    KY_WIDE_KERNEL(sineCosines<T>(x, cosines, filled(x, n)));
}
template <class T>
void asin(Block<T>& x, std::size_t n) {
    patched(
        x, n, [](T* v, std::size_t end) { KY_WIDE_KERNEL(arcSines<T>(v, end)); },
        [](T v) { return asin(v); });
}
template <class T>
void acos(Block<T>& x, std::size_t n) {
    patched(
        x, n, [](T* v, std::size_t end) { KY_WIDE_KERNEL(arcCosines<T>(v, end)); },
        [](T v) { return acos(v); });
}
template <class T>
void atan2(Block<T>& y, Block<T>& x, std::size_t n) {
    Block<T> given;
    for (std::size_t i = 0; i < n; ++i) {
        given[i] = x[i];
        if (x[i] == 0 && y[i] == 0) x[i] = 1;
    }
    filled(x, n);
    Block<T> result;
    std::copy(y, y + n, result);
    KY_WIDE_KERNEL(arcTangents<T>(result, x, filled(result, n)));
    for (std::size_t i = 0; i < n; ++i) {
        y[i] = given[i] == 0 && y[i] == 0 ? atan2(y[i], given[i]) : result[i];
    }
}

}  // namespace KyMath::internal

#endif
#endif
