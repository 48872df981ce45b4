// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INTERNAL_COMPONENTS_H
#define KYMATH_INTERNAL_COMPONENTS_H

#include "internal/Arithmetic.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

// Component-wise work on the arrays in vectors, quaternions and matrices: one loop each, unrolled
// by the compiler. Sums start with the first term and run left to right.

namespace KyMath::internal {

template <class T, std::size_t N>
inline void copy(T (&a)[N], const T* b) {
    for (std::size_t i = 0; i < N; ++i) a[i] = b[i];
}

template <class T, std::size_t N>
inline void add(T (&a)[N], const T (&b)[N]) {
    for (std::size_t i = 0; i < N; ++i) a[i] += b[i];
}

template <class T, std::size_t N>
inline void subtract(T (&a)[N], const T (&b)[N]) {
    for (std::size_t i = 0; i < N; ++i) a[i] -= b[i];
}

template <class T, std::size_t N>
inline void multiplyComponents(T (&a)[N], const T (&b)[N]) {
    for (std::size_t i = 0; i < N; ++i) a[i] *= b[i];
}

template <class T, std::size_t N>
inline void scale(T (&a)[N], T s) {
    for (std::size_t i = 0; i < N; ++i) a[i] *= s;
}

template <class T, std::size_t N>
inline void negate(T (&a)[N]) {
    for (std::size_t i = 0; i < N; ++i) a[i] = -a[i];
}

template <class T, std::size_t N>
inline T dot(const T (&a)[N], const T (&b)[N]) {
    T sum = a[0] * b[0];
    for (std::size_t i = 1; i < N; ++i) sum += a[i] * b[i];
    return sum;
}

template <class T, std::size_t N>
inline bool equal(const T (&a)[N], const T (&b)[N]) {
    for (std::size_t i = 0; i < N; ++i) {
        if (!(a[i] == b[i])) return false;
    }
    return true;
}

template <class T, std::size_t N>
inline bool isZero(const T (&a)[N]) {
    for (std::size_t i = 0; i < N; ++i) {
        if (!(a[i] == 0)) return false;
    }
    return true;
}

template <class T, std::size_t N>
inline bool isFinite(const T (&a)[N]) {
    for (std::size_t i = 0; i < N; ++i) {
        if (!(std::abs(a[i]) <= std::numeric_limits<T>::max())) return false;
    }
    return true;
}

/// The mixed rule of every tolerant comparison, for two numbers of magnitudes absA and absB that
/// differ by d: absolute if either is within tol of zero, otherwise relative to each of the two.
/// False for NaN.
template <class T>
inline bool withinTolerance(T d, T absA, T absB, T tol) {
    if (absA <= tol || absB <= tol) return d <= tol;
    return d / absA <= tol && d / absB <= tol;
}

/// The mixed rule for each pair of components, in the precision of tol: differences are formed in T
/// and then widened, as are the magnitudes.
template <class T, class Tol, std::size_t N>
inline bool areEqualTol(const T (&a)[N], const T (&b)[N], Tol tol) {
    for (std::size_t i = 0; i < N; ++i) {
        const T d = std::abs(a[i] - b[i]);
        if (!withinTolerance(Tol(d), Tol(std::abs(a[i])), Tol(std::abs(b[i])), tol)) return false;
    }
    return true;
}

/// Normalises by one reciprocal if the squared length is above 0.
template <class T, std::size_t N>
inline void normalize(T (&a)[N]) {
    const T square = dot(a, a);
    if (square > 0) scale(a, 1 / std::sqrt(square));
}

/// Normalises by one reciprocal if the length is above tol; otherwise *length becomes 0.
template <class T, std::size_t N>
inline bool normalize(T (&a)[N], T tol, T* length) {
    const T norm = std::sqrt(dot(a, a));
    *length = norm;
    if (norm > tol) {
        scale(a, 1 / norm);
        return true;
    }
    *length = 0;
    return false;
}

/// Whether V has the given size and standard layout: clients view it as an array of its values.
template <class V, std::size_t Bytes>
constexpr bool kIsPlain = sizeof(V) == Bytes&& std::is_standard_layout_v<V>;
/// The same for both instances of a class template with N values.
template <template <class> class V, std::size_t N>
constexpr bool kArePlain =
    kIsPlain<V<float>, N * sizeof(float)>&& kIsPlain<V<double>, N * sizeof(double)>;

}  // namespace KyMath::internal

/// Constants are built before initialisers of ordinary priority, including those of clients that
/// link the static archive. In the shared library they are ready before any client code anyway.
#define KY_EARLY_CONSTANT __attribute__((init_priority(101)))

/// Subscripts of a class template with its components in v_. The usual types of loop counters match
/// exactly: v[i] would otherwise be ambiguous with a subscript of the pointer that V converts to.
#define KY_DEFINE_SUBSCRIPT(Class, Index)          \
    template <class T>                             \
    T& Class<T>::operator[](Index i) {             \
        return v_[i];                              \
    }                                              \
    template <class T>                             \
    const T& Class<T>::operator[](Index i) const { \
        return v_[i];                              \
    }
#define KY_DEFINE_SUBSCRIPTS(Class)          \
    KY_DEFINE_SUBSCRIPT(Class, int)          \
    KY_DEFINE_SUBSCRIPT(Class, unsigned int) \
    KY_DEFINE_SUBSCRIPT(Class, long)         \
    KY_DEFINE_SUBSCRIPT(Class, unsigned long)

/// Subscripts of a class with a matrix in v_, column by column: a pointer to column c.
#define KY_DEFINE_COLUMN_SUBSCRIPT(Template, Class, T, Index) \
    Template T* Class::operator[](Index c) {                  \
        return v_ + 4 * c;                                    \
    }                                                         \
    Template const T* Class::operator[](Index c) const {      \
        return v_ + 4 * c;                                    \
    }
#define KY_DEFINE_COLUMN_SUBSCRIPTS(Template, Class, T)          \
    KY_DEFINE_COLUMN_SUBSCRIPT(Template, Class, T, int)          \
    KY_DEFINE_COLUMN_SUBSCRIPT(Template, Class, T, unsigned int) \
    KY_DEFINE_COLUMN_SUBSCRIPT(Template, Class, T, long)         \
    KY_DEFINE_COLUMN_SUBSCRIPT(Template, Class, T, unsigned long)

#endif
