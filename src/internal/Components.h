// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INTERNAL_COMPONENTS_H
#define KYMATH_INTERNAL_COMPONENTS_H

#include "internal/Arithmetic.h"

#include <KyMath/inline/Components.h>

#include <cmath>
#include <cstddef>
#include <type_traits>

// What only the library does with the arrays in vectors, quaternions and matrices; most is in
// KyMath/inline/Components.h.

namespace KyMath::internal {

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

#endif
