// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_LANES_ARRAYS_H
#define KYMATH_LANES_ARRAYS_H

#include "lanes/Kernels.h"
#include "lanes/Lanes.h"

// Elements of arrays, and several of them at once: one element to a lane.

namespace KyMath::internal {

namespace {

/// Elements begin to end - 1, as many as there are lanes or fewer. Where there are fewer, the last
/// is repeated: nothing beyond the array is read.
template <class T>
struct Group {
    const T* p[kWide<T>];
    std::size_t begin, end;
};

/// Two values of each element.
template <class T>
struct ValuePairs {
    Wide<T> first, second;
};

}  // namespace

/// Elements i, i + 1 and so on of s, as many as there are lanes.
template <class T>
static KY_INLINE Group<T> wholeGroupAt(Strided<const T> s, std::size_t i) {
    Group<T> group = {{}, i, i + kWide<T>};
    s.first = at(s, i);
    for (std::size_t k = 0; k < kWide<T>; ++k) {
        group.p[k] = at(s, k % 4);
        if (k % 4 == 3) {
            s.first = at(s, 4);
            __asm__("" : "+r"(s.first));  // a register for each four, not for each element
        }
    }
    return group;
}
/// The same where s has n elements, and fewer may be left.
template <class T>
static KY_INLINE Group<T> groupAt(Strided<const T> s, std::size_t i, std::size_t n) {
    constexpr std::size_t kLanes = kWide<T>;
    const Strided<const T> rest = {at(s, i), s.stride};
    const bool whole = n - i >= kLanes;
    Group<T> group = {{}, i, whole ? i + kLanes : n};
    if (whole) {
        for (std::size_t k = 0; k < kLanes; ++k) group.p[k] = at(rest, k);
    } else {
        for (std::size_t k = 0; k < kLanes; ++k) group.p[k] = at(rest, k < n - i ? k : n - i - 1);
    }
    return group;
}

/// Value k of each element.
template <class T>
static KY_INLINE Wide<T> gather(const Group<T>& group, std::size_t k) {
    Wide<T> v = {};
    for (std::size_t i = 0; i < kWide<T>; ++i) v[i] = group.p[i][k];
    return v;
}

/// Values k and k + 1 of each element.
template <class T>
static KY_INLINE ValuePairs<T> gatherPairs(const Group<T>& group, std::size_t k) {
    const auto pair = [&](std::size_t i) { return loadPair(group.p[i] + k); };
    if constexpr (sizeof(T) == sizeof(float)) {
        const auto low = gatherParts<kWide<T>>([&](std::size_t i) { return pair(i + i / 2 * 2); });
        const auto high =
            gatherParts<kWide<T>>([&](std::size_t i) { return pair(i + i / 2 * 2 + 2); });
        return {shuffle<0, 2, 0, 2>(low, high), shuffle<1, 3, 1, 3>(low, high)};
    } else {
        const auto even = gatherParts<kWide<T>>([&](std::size_t i) { return pair(2 * i); });
        const auto odd = gatherParts<kWide<T>>([&](std::size_t i) { return pair(2 * i + 1); });
        return {shufflePairs<0, 0>(even, odd), shufflePairs<1, 1>(even, odd)};
    }
}

/// Stores two values of each element: those of lane k at address(k).
template <class T, class Address>
static KY_INLINE void scatterPairs(const ValuePairs<T>& v, Address address) {
    constexpr std::size_t kPairs = 8 / sizeof(T);  // in 16 bytes
    scatterParts<2>(zip<0>(v.first, v.second),
                    [&](std::size_t k) { return address(k + k / kPairs * kPairs); });
    scatterParts<2>(zip<kPairs>(v.first, v.second),
                    [&](std::size_t k) { return address(k + k / kPairs * kPairs + kPairs); });
}

}  // namespace KyMath::internal

#endif
