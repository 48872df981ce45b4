// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INTERNAL_LIBM_H
#define KYMATH_INTERNAL_LIBM_H

#include "internal/Arithmetic.h"

#include <math.h>  // sincos, an extension of the C library

namespace KyMath {
namespace internal {

/// Returns x, as a value that the compiler knows nothing about. A call of libm with a constant
/// argument would otherwise be evaluated at compile time, and differ in the last bit from the same
/// call at run time.
template <class T>
inline T opaque(T x) {
    __asm__("" : "+x"(x));
    return x;
}

// Every call of libm beyond sqrt, which is exact, goes through these.

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

/// Sine and cosine of one angle by one call.
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

}  // namespace internal
}  // namespace KyMath

#endif
