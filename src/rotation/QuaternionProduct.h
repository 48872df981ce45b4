// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_ROTATION_QUATERNIONPRODUCT_H
#define KYMATH_ROTATION_QUATERNIONPRODUCT_H

#include "lanes/Lanes.h"

namespace KyMath::internal {

/// q = left right, each w first. q may be either of them.
template <class T>
static KY_INLINE void quaternionProduct(T* q, const T* left, const T* right) {
    // Lane by lane:  a0 b0 - a1 b1 - a2 b2 - a3 b3
    //                a0 b1 + a1 b0 + a2 b3 - a3 b2
    //                a0 b2 + a2 b0 + a3 b1 - a1 b3
    //                a0 b3 + a3 b0 + a1 b2 - a2 b1
    const Lanes<T> a = load(left);
    const Lanes<T> b = load(right);
    const LaneBits<T> first = {kSign<T>, 0, 0, 0};
    const Lanes<T> second =
        __builtin_shufflevector(a, a, 1, 1, 2, 3) * __builtin_shufflevector(b, b, 1, 0, 0, 0);
    const Lanes<T> third =
        __builtin_shufflevector(a, a, 2, 2, 3, 1) * __builtin_shufflevector(b, b, 2, 3, 1, 2);
    const Lanes<T> fourth =
        __builtin_shufflevector(a, a, 3, 3, 1, 2) * __builtin_shufflevector(b, b, 3, 2, 3, 1);
    store(q, a[0] * b + flip<T>(second, first) + flip<T>(third, first) - fourth);
}

}  // namespace KyMath::internal

#endif
