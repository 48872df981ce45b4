// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_ROTATION_ROTATIONTOQUATERNION_H
#define KYMATH_ROTATION_ROTATIONTOQUATERNION_H

#include "internal/Arithmetic.h"

#include <KyMath/Quaternion.h>

#include <cmath>

namespace KyMath::internal {

/// The unit quaternion of the 3x3 block of m, which has element (r, c) at 4c + r. The block may be
/// scaled uniformly: squares is the sum of the squares of its nine elements, in the caller's order.
template <class T>
QuaternionT<T> rotationToQuaternion(const T* m, T squares) {
    const auto a = [m](int r, int c) { return m[4 * c + r]; };
    const T k = std::sqrt(3 / squares);  // 1 for a rotation, 1 / s for one scaled by s

    QuaternionT<T> q;
    const T trace = a(0, 0) + a(1, 1) + a(2, 2);
    if (trace > 0) {
        const T r = std::sqrt(k * trace + 1);
        const T f = k / (2 * r);
        q.set(r / 2, (a(2, 1) - a(1, 2)) * f, (a(0, 2) - a(2, 0)) * f, (a(1, 0) - a(0, 1)) * f);
        return q;
    }
    int i = 0;
    if (a(1, 1) > a(0, 0)) i = 1;
    if (a(2, 2) > a(i, i)) i = 2;
    const int j = (i + 1) % 3;
    const int n = (i + 2) % 3;
    const T r = std::sqrt((a(i, i) - a(j, j) - a(n, n)) * k + 1);
    const T f = r != 0 ? k / (2 * r) : T(0);
    q[0] = (a(n, j) - a(j, n)) * f;
    q[i + 1] = r / 2;
    q[j + 1] = (a(j, i) + a(i, j)) * f;
    q[n + 1] = (a(n, i) + a(i, n)) * f;
    return q;
}

}  // namespace KyMath::internal

#endif
