// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_BENCHMARKS_LIMITS_H
#define KYMATH_BENCHMARKS_LIMITS_H

#include "Bench.h"

namespace bench {

/// @name Types and arithmetic that the limits of several families share
/// @{
template <class T>
using V = Values<T, 3>;
template <class T>
using M = Values<T, 16>;

/// The determinant of three rows and three columns, by the rule of Sarrus.
template <class T>
inline T minorOf(const M<T>& m, const int (&r)[3], const int (&c)[3]) {
    const auto e = [&](int i, int j) { return m.v[4 * c[j] + r[i]]; };
    return e(0, 0) * e(1, 1) * e(2, 2) + e(1, 0) * e(2, 1) * e(0, 2) + e(2, 0) * e(0, 1) * e(1, 2) -
           e(0, 2) * e(1, 1) * e(2, 0) - e(2, 2) * e(1, 0) * e(0, 1) - e(1, 2) * e(0, 0) * e(2, 1);
}
constexpr int kOthers[4][3] = {{1, 2, 3}, {0, 2, 3}, {0, 1, 3}, {0, 1, 2}};

template <class T>
inline T determinant(const M<T>& m) {
    const auto term = [&](int c) { return m.v[4 * c] * minorOf(m, kOthers[0], kOthers[c]); };
    return term(0) - term(1) + term(2) - term(3);
}
/// @}

}  // namespace bench

#endif
