// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INTERNAL_LIBM_H
#define KYMATH_INTERNAL_LIBM_H

#include "internal/Arithmetic.h"

#ifdef KY_LOCKSTEP
#include <sleef.h>

#include <cmath>
#else
#include <math.h>  // sincos, an extension of the C library
#endif

namespace KyMath::internal {

template <class T>
struct SinCos {
    T s, c;
};

// All calls of libm go through these, except sqrt, which is exact.

#ifdef KY_LOCKSTEP

// SLEEF's functions that give the same bits on every processor: cinz_ is without fused operations,
// purec and sse2 without a choice when the program starts. They give the same bits as each other;
// for some functions that for vectors takes less time, even for one value. Where they would divide
// by zero on the way to a good result, which a program may trap, the result is returned without
// them.

constexpr double kPi = 3.141592653589793, kHalfPi = 1.5707963267948966;

/// Whether tan(x) and asin(x) are x to the last bit, and acos(x) is that of 0.
template <class T>
inline bool isTiny(T x) {
    return std::abs(x) < T(1e-17);
}

inline float sin(float x) {
    return _mm_cvtss_f32(Sleef_cinz_sinf4_u10sse2(_mm_set1_ps(x)));
}
inline double sin(double x) {
    return _mm_cvtsd_f64(Sleef_cinz_sind2_u10sse2(_mm_set1_pd(x)));
}
inline double tan(double x) {
    return isTiny(x) ? x : Sleef_cinz_tand1_u10purec(x);  // the tangent of the smallest would be 0
}
inline float asin(float x) {
    if (std::abs(x) == 1) return float(x < 0 ? -kHalfPi : kHalfPi);
    return isTiny(x) ? x : Sleef_cinz_asinf1_u10purec(x);
}
inline double asin(double x) {
    if (std::abs(x) == 1) return x < 0 ? -kHalfPi : kHalfPi;
    return isTiny(x) ? x : Sleef_cinz_asind1_u10purec(x);
}
inline float acos(float x) {
    if (std::abs(x) == 1) return float(x < 0 ? kPi : 0);
    return isTiny(x) ? float(kHalfPi) : Sleef_cinz_acosf1_u10purec(x);
}
inline double acos(double x) {
    if (std::abs(x) == 1) return x < 0 ? kPi : 0;
    return isTiny(x) ? kHalfPi : Sleef_cinz_acosd1_u10purec(x);
}
inline float atan2(float y, float x) {
    if (x == 0 && y == 0) return std::signbit(x) ? float(std::signbit(y) ? -kPi : kPi) : y;
    return _mm_cvtss_f32(Sleef_cinz_atan2f4_u10sse2(_mm_set1_ps(y), _mm_set1_ps(x)));
}
inline double atan2(double y, double x) {
    if (x == 0 && y == 0) return std::signbit(x) ? (std::signbit(y) ? -kPi : kPi) : y;
    return _mm_cvtsd_f64(Sleef_cinz_atan2d2_u10sse2(_mm_set1_pd(y), _mm_set1_pd(x)));
}

/// Sine and cosine of an angle in one call.
inline SinCos<float> sinCos(float x) {
    const auto r = Sleef_cinz_sincosf4_u10sse2(_mm_set1_ps(x));
    return {_mm_cvtss_f32(r.x), _mm_cvtss_f32(r.y)};
}
inline SinCos<double> sinCos(double x) {
    const auto r = Sleef_cinz_sincosd2_u10sse2(_mm_set1_pd(x));
    return {_mm_cvtsd_f64(r.x), _mm_cvtsd_f64(r.y)};
}

#else

/// Returns x and hides its value from the compiler, which would evaluate calls of libm with
/// constant arguments at compile time: the result could differ in the last bit from a call at run
/// time.
template <class T>
inline T opaque(T x) {
    __asm__("" : "+x"(x));
    return x;
}

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

#endif

}  // namespace KyMath::internal

#endif
