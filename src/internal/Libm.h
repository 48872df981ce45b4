// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INTERNAL_LIBM_H
#define KYMATH_INTERNAL_LIBM_H

#include "internal/Arithmetic.h"

#include <math.h>  // sincos, an extension of the C library

namespace KyMath::internal {

/// Returns x and hides its value from the compiler, which would evaluate calls of libm with
/// constant arguments at compile time: the result could differ in the last bit from a call at run
/// time.
template <class T>
inline T opaque(T x) {
    __asm__("" : "+x"(x));
    return x;
}

// All calls of libm go through these, except sqrt, which is exact.

inline float sin(float x) {
    return ::sinf(opaque(x));
}
inline double sin(double x) {
    return ::sin(opaque(x));
}
inline double tan(double x) {
    return ::tan(opaque(x));
}
inline float asin(float x) {
    return ::asinf(opaque(x));
}
inline double asin(double x) {
    return ::asin(opaque(x));
}
inline float acos(float x) {
    return ::acosf(opaque(x));
}
inline double acos(double x) {
    return ::acos(opaque(x));
}
inline float atan2(float y, float x) {
    return ::atan2f(opaque(y), opaque(x));
}
inline double atan2(double y, double x) {
    return ::atan2(opaque(y), opaque(x));
}

template <class T>
struct SinCos {
    T s, c;
};

/// Sine and cosine of an angle in one call.
inline SinCos<float> sinCos(float x) {
    SinCos<float> r;
    ::sincosf(opaque(x), &r.s, &r.c);
    return r;
}
inline SinCos<double> sinCos(double x) {
    SinCos<double> r;
    ::sincos(opaque(x), &r.s, &r.c);
    return r;
}

}  // namespace KyMath::internal

#endif
