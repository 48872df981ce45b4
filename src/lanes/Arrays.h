// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_LANES_ARRAYS_H
#define KYMATH_LANES_ARRAYS_H

#include "lanes/Kernels.h"
#include "lanes/Lanes.h"

#include <type_traits>

// Elements of arrays, and four of them at once: one element to a lane.

namespace KyMath::internal {

template <class T>
static KY_INLINE T* at(const Strided<T>& s, std::size_t i) {
    using Byte = std::conditional_t<std::is_const_v<T>, const char, char>;
    return reinterpret_cast<T*>(reinterpret_cast<Byte*>(s.first) + i * s.stride);
}

/// Elements begin to end - 1, four or fewer. Where there are fewer, the last is repeated: nothing
/// beyond the array is read.
template <class T>
struct Group {
    const T* p[4];
    std::size_t begin, end;
};

/// The elements of s, which has n, from i on.
template <class T>
static KY_INLINE Group<T> groupAt(Strided<const T> s, std::size_t i, std::size_t n) {
    const std::size_t last = n - 1;
    return {{at(s, i), at(s, i + 1 < n ? i + 1 : last), at(s, i + 2 < n ? i + 2 : last),
             at(s, i + 3 < n ? i + 3 : last)},
            i,
            i + 4 < n ? i + 4 : n};
}

/// Value k of each element.
template <class T>
static KY_INLINE Lanes<T> gather(const Group<T>& group, std::size_t k) {
    return Lanes<T>{group.p[0][k], group.p[1][k], group.p[2][k], group.p[3][k]};
}

/// Writes values 0, 1 and 2 of each element.
template <class T>
static KY_INLINE void scatter(Strided<T> out, const Group<T>& group, Lanes<T> x, Lanes<T> y,
                              Lanes<T> z) {
    for (std::size_t i = group.begin, k = 0; i < group.end; ++i, ++k) {
        T* const p = at(out, i);
        p[0] = x[k];
        p[1] = y[k];
        p[2] = z[k];
    }
}

}  // namespace KyMath::internal

#endif
