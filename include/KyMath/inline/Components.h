// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_COMPONENTS_H
#define KYMATH_INLINE_COMPONENTS_H

#include <Ky/Export.h>
#include <KyMath/inline/Mode.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

// Component-wise work on the arrays in vectors, quaternions and matrices: one loop each, unrolled
// by the compiler, which must be told so where it does not optimise as it does for the library.
// Sums start with the first term and run left to right.
#ifdef KYMATH_INLINE
#define KY_UNROLL _Pragma("GCC unroll 16")
#else
#define KY_UNROLL
#endif

KY_EXACT_BEGIN
namespace KyMath {
namespace internal {

// For clients, the square root without errno: for that, compilers add a test and a call, and do not
// vectorise.
#if defined(__NO_MATH_ERRNO__) || !defined(KYMATH_INLINE)
KY_HELPER float root(float x) {
    return __builtin_sqrtf(x);
}
KY_HELPER double root(double x) {
    return __builtin_sqrt(x);
}
#elif !defined(__clang__)
KY_HELPER float root(float x) {
    if (__builtin_constant_p(x)) return __builtin_sqrtf(x);
    __asm__("%vsqrtss %0, %d0" : "+x"(x));
    return x;
}
KY_HELPER double root(double x) {
    if (__builtin_constant_p(x)) return __builtin_sqrt(x);
    __asm__("%vsqrtsd %0, %d0" : "+x"(x));
    return x;
}
#elif __has_builtin(__builtin_elementwise_sqrt)
template <class T>
KY_HELPER T root(T x) {
    return __builtin_elementwise_sqrt(x);
}
#else
KY_HELPER float root(float x) {
    typedef float Floats __attribute__((vector_size(16)));
    return __builtin_ia32_sqrtss(Floats{x, 0, 0, 0})[0];
}
KY_HELPER double root(double x) {
    typedef double Doubles __attribute__((vector_size(16)));
    return __builtin_ia32_sqrtsd(Doubles{x, 0})[0];
}
#endif
KY_HELPER float magnitude(float x) {
    return __builtin_fabsf(x);
}
KY_HELPER double magnitude(double x) {
    return __builtin_fabs(x);
}
/// The product of values, or of each value of a register and b, behind a barrier where Ky/Export.h
/// tells of a compiler that would fuse it with a sum.
template <class V, class T>
KY_HELPER V times(V a, T b) {
#ifdef KY_VECTORS_FUSE
    return __builtin_assoc_barrier(a * b);
#else
    return a * b;
#endif
}
/// As std::min and std::max, also where a value is NaN.
template <class T>
KY_HELPER T smaller(T a, T b) {
    return b < a ? b : a;
}
template <class T>
KY_HELPER T larger(T a, T b) {
    return a < b ? b : a;
}
/// Ky::KY_SMALL_REAL<T>::epsilon
template <class T>
KY_HELPER constexpr T smallReal() {
    return sizeof(T) == sizeof(float) ? T(1e-6f) : T(1e-14f);
}
/// The machine epsilon.
template <class T>
KY_HELPER constexpr T epsilon() {
    return sizeof(T) == sizeof(float) ? T(__FLT_EPSILON__) : T(__DBL_EPSILON__);
}
/// The largest finite value.
template <class T>
KY_HELPER constexpr T largest() {
    return sizeof(T) == sizeof(float) ? T(__FLT_MAX__) : T(__DBL_MAX__);
}

/// Bit i of the mask of a polytope stands for plane i.
KY_HELPER constexpr unsigned long maskBits() {
    return 8 * sizeof(unsigned int);
}
// Deliberate: planes beyond the bits of a mask are never tested. Pinned by
// PolytopeTest.PlanesBeyondThirtyTwoAreNeverTested.
KY_HELPER constexpr unsigned long maskedPlanes(unsigned long planes) {
    return planes < maskBits() ? planes : maskBits();
}

/// A register of every processor, as values in memory. Packed: Clang forgets the alignment of a
/// vector type that depends on a template.
template <class T>
struct __attribute__((packed, may_alias)) Register {
    typedef T Values __attribute__((vector_size(16)));
    static constexpr unsigned long count = 16 / sizeof(T);
    Values values;
};
template <class T>
KY_HELPER Register<T>& at(T* p) {
    return *reinterpret_cast<Register<T>*>(p);
}
template <class T>
KY_HELPER const Register<T>& at(const T* p) {
    return *reinterpret_cast<const Register<T>*>(p);
}

template <class T, unsigned long N>
KY_HELPER void copy(T (&a)[N], const T* b) {
    KY_UNROLL
    for (unsigned long i = 0; i < N; ++i) a[i] = b[i];
}
/// Of a matrix, as a whole.
template <class T>
KY_HELPER void assign(T (&a)[16], const T (&b)[16]) {
    KY_UNROLL
    for (unsigned long i = 0; i < 16; i += Register<T>::count) at(a + i).values = at(b + i).values;
}

template <class T, unsigned long N>
KY_HELPER void add(T (&a)[N], const T (&b)[N]) {
    KY_UNROLL
    for (unsigned long i = 0; i < N; ++i) a[i] += b[i];
}

template <class T, unsigned long N>
KY_HELPER void subtract(T (&a)[N], const T (&b)[N]) {
    KY_UNROLL
    for (unsigned long i = 0; i < N; ++i) a[i] -= b[i];
}

template <class T, unsigned long N>
KY_HELPER void multiplyComponents(T (&a)[N], const T (&b)[N]) {
    KY_UNROLL
    for (unsigned long i = 0; i < N; ++i) a[i] = times(a[i], b[i]);
}

template <class T, unsigned long N>
KY_HELPER void scale(T (&a)[N], T s) {
    KY_UNROLL
    for (unsigned long i = 0; i < N; ++i) a[i] = times(a[i], s);
}

template <class T>
KY_HELPER void scale(T (&a)[16], T s) {
    KY_UNROLL
    for (unsigned long i = 0; i < 16; i += Register<T>::count) at(a + i).values *= s;
}

template <class T, unsigned long N>
KY_HELPER void negate(T (&a)[N]) {
    KY_UNROLL
    for (unsigned long i = 0; i < N; ++i) a[i] = -a[i];
}

template <class T, unsigned long N>
KY_HELPER T dot(const T (&a)[N], const T (&b)[N]) {
    T sum = times(a[0], b[0]);
    KY_UNROLL
    for (unsigned long i = 1; i < N; ++i) sum += times(a[i], b[i]);
    return sum;
}

template <class T, unsigned long N>
KY_HELPER bool equal(const T (&a)[N], const T (&b)[N]) {
    KY_UNROLL
    for (unsigned long i = 0; i < N; ++i) {
        if (!(a[i] == b[i])) return false;
    }
    return true;
}

template <class T, unsigned long N>
KY_HELPER bool isZero(const T (&a)[N]) {
    KY_UNROLL
    for (unsigned long i = 0; i < N; ++i) {
        if (!(a[i] == 0)) return false;
    }
    return true;
}

template <class T, unsigned long N>
KY_HELPER bool isFinite(const T (&a)[N]) {
    KY_UNROLL
    for (unsigned long i = 0; i < N; ++i) {
        if (!(magnitude(a[i]) <= largest<T>())) return false;
    }
    return true;
}

/// Normalises by one reciprocal if the squared length is above 0.
template <class T, unsigned long N>
KY_HELPER void normalize(T (&a)[N]) {
    const T square = dot(a, a);
    if (square > 0) scale(a, 1 / root(square));
}

/// Normalises by one reciprocal if the length is above tol; otherwise *length becomes 0.
template <class T, unsigned long N>
KY_HELPER bool normalize(T (&a)[N], T tol, T* length) {
    const T norm = root(dot(a, a));
    *length = norm;
    if (norm > tol) {
        scale(a, 1 / norm);
        return true;
    }
    *length = 0;
    return false;
}

}  // namespace internal
}  // namespace KyMath
KY_EXACT_END

/// Subscripts of a class template with its components in v_. The usual types of loop counters match
/// exactly: v[i] would otherwise be ambiguous with a subscript of the pointer that V converts to.
#define KY_DEFINE_SUBSCRIPT(Class, Index)                   \
    template <class T>                                      \
    KY_SMALL T& Class<T>::operator[](Index i) {             \
        return v_[i];                                       \
    }                                                       \
    template <class T>                                      \
    KY_SMALL const T& Class<T>::operator[](Index i) const { \
        return v_[i];                                       \
    }
#define KY_DEFINE_SUBSCRIPTS(Class)          \
    KY_DEFINE_SUBSCRIPT(Class, int)          \
    KY_DEFINE_SUBSCRIPT(Class, unsigned int) \
    KY_DEFINE_SUBSCRIPT(Class, long)         \
    KY_DEFINE_SUBSCRIPT(Class, unsigned long)

/// Subscripts of a class with a matrix in v_, column by column: a pointer to column c.
#define KY_DEFINE_COLUMN_SUBSCRIPT(Prefix, Class, T, Index) \
    Prefix T* Class::operator[](Index c) {                  \
        return v_ + 4 * c;                                  \
    }                                                       \
    Prefix const T* Class::operator[](Index c) const {      \
        return v_ + 4 * c;                                  \
    }
#define KY_DEFINE_COLUMN_SUBSCRIPTS(Prefix, Class, T)          \
    KY_DEFINE_COLUMN_SUBSCRIPT(Prefix, Class, T, int)          \
    KY_DEFINE_COLUMN_SUBSCRIPT(Prefix, Class, T, unsigned int) \
    KY_DEFINE_COLUMN_SUBSCRIPT(Prefix, Class, T, long)         \
    KY_DEFINE_COLUMN_SUBSCRIPT(Prefix, Class, T, unsigned long)

#endif
