// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_ROTATION_ROTATIONTOQUATERNION_H
#define KYMATH_ROTATION_ROTATIONTOQUATERNION_H

#include "internal/Arithmetic.h"

#include <KyMath/Quaternion.h>

#include <cmath>

namespace KyMath::internal {

/// The case where diagonal element I is the largest, and the trace is not above 0.
template <int I, class T>
inline QuaternionT<T> quaternionByDiagonal(const T* m, T k) {
    constexpr int J = (I + 1) % 3, N = (I + 2) % 3;
    const auto a = [m](int r, int c) { return m[4 * c + r]; };
    const T r = std::sqrt((a(I, I) - a(J, J) - a(N, N)) * k + 1);
    const T f = r != 0 ? k / (2 * r) : T(0);
    T q[4];
    q[0] = (a(N, J) - a(J, N)) * f;
    q[I + 1] = r / 2;
    q[J + 1] = (a(J, I) + a(I, J)) * f;
    q[N + 1] = (a(N, I) + a(I, N)) * f;
    return QuaternionT<T>(q);
}

/// The unit quaternion of the 3x3 block of m, which has element (r, c) at 4c + r. The block may be
/// scaled uniformly: squares is the sum of the squares of its nine elements, in the caller's order.
template <class T>
inline QuaternionT<T> rotationToQuaternion(const T* m, T squares) {
    const T k = std::sqrt(3 / squares);  // 1 for a rotation, 1 / s for one scaled by s
    const T trace = m[0] + m[5] + m[10];
    if (trace > 0) {
        const T r = std::sqrt(k * trace + 1);
        const T f = k / (2 * r);
        return QuaternionT<T>(r / 2, (m[6] - m[9]) * f, (m[8] - m[2]) * f, (m[1] - m[4]) * f);
    }
    const bool second = m[5] > m[0];
    if (m[10] > (second ? m[5] : m[0])) return quaternionByDiagonal<2>(m, k);
    return second ? quaternionByDiagonal<1>(m, k) : quaternionByDiagonal<0>(m, k);
}

}  // namespace KyMath::internal

#endif
