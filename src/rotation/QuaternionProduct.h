// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_ROTATION_QUATERNIONPRODUCT_H
#define KYMATH_ROTATION_QUATERNIONPRODUCT_H

#include "lanes/Lanes.h"

namespace KyMath::internal {

/// a b in each group of four lanes, w first.
template <class T, class V>
static KY_INLINE V productOf(V a, V b) {
    // Lane by lane:  a0 b0 - a1 b1 - a2 b2 - a3 b3
    //                a0 b1 + a1 b0 + a2 b3 - a3 b2
    //                a0 b2 + a2 b0 + a3 b1 - a1 b3
    //                a0 b3 + a3 b0 + a1 b2 - a2 b1
    const V second = shuffle<1, 1, 2, 3>(a, a) * shuffle<1, 0, 0, 0>(b, b);
    const V third = shuffle<2, 2, 3, 1>(a, a) * shuffle<2, 3, 1, 2>(b, b);
    const V fourth = shuffle<3, 3, 1, 2>(a, a) * shuffle<3, 2, 3, 1>(b, b);
    return shuffle<0, 0, 0, 0>(a, a) * b + flipFirst<T>(second) + flipFirst<T>(third) - fourth;
}
/// q = left right. q may be either of them.
template <class T>
static KY_INLINE void quaternionProduct(T* q, const T* left, const T* right) {
    store(q, productOf<T>(load(left), load(right)));
}

}  // namespace KyMath::internal

#endif
