// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_LANES_ELEMENTS_H
#define KYMATH_LANES_ELEMENTS_H

#include "lanes/Arrays.h"

// Loops over arrays of vectors and quaternions, one to a lane.

namespace KyMath::internal {

namespace {

/// Points (x, y, z): one in each lane, or one of scalars.
template <class V>
struct Points {
    V x, y, z;
};
template <class T>
using WidePoints = Points<Wide<T>>;

/// Four values of each element: quaternions (w, x, y, z), or columns.
template <class V>
struct Fours {
    V v[4];
};
template <class T>
using WideFours = Fours<Wide<T>>;

/// An array whose elements have K values.
template <std::size_t K, class T>
struct Elements {
    Strided<T> s;

    KY_INLINE bool isPacked() const {
        return s.stride == K * sizeof(T);
    }
    KY_INLINE Elements packed() const {  // with a stride that the compiler knows
        return {{s.first, K * sizeof(T)}};
    }
    KY_INLINE T* operator[](std::size_t i) const {
        return at(s, i);
    }
};

}  // namespace

// Points next to each other in memory.

#ifdef __AVX512DQ__

// Value c of point k is value 3 k + c of three registers: taken from two of them at a time, with
// any value where the third has it.

template <std::size_t C, class V, std::size_t... Lane>
static KY_INLINE V everyThird(V a, V b, V c, std::index_sequence<Lane...>) {
    constexpr std::size_t n = sizeof...(Lane);
    const V ab =
        __builtin_shufflevector(a, b, (std::size_t(3 * Lane + C < 2 * n) * (3 * Lane + C))...);
    return __builtin_shufflevector(
        ab, c, (Lane + std::size_t(3 * Lane + C >= 2 * n) * (2 * Lane + C - n))...);
}
template <std::size_t R, class V, std::size_t... Lane>
static KY_INLINE V interleaved(V x, V y, V z, std::index_sequence<Lane...>) {
    constexpr std::size_t n = sizeof...(Lane);
    const V xy = __builtin_shufflevector(
        x, y, ((R * n + Lane) / 3 + std::size_t((R * n + Lane) % 3 == 1) * n)...);
    return __builtin_shufflevector(
        xy, z, (Lane + std::size_t((R * n + Lane) % 3 == 2) * (n + (R * n + Lane) / 3 - Lane))...);
}

template <class T>
static KY_INLINE WidePoints<T> loadPoints(const T* p) {
    constexpr std::make_index_sequence<kWide<T>> lanes;
    const Wide<T> a = loadWide(p), b = loadWide(p + kWide<T>), c = loadWide(p + 2 * kWide<T>);
    return {everyThird<0>(a, b, c, lanes), everyThird<1>(a, b, c, lanes),
            everyThird<2>(a, b, c, lanes)};
}
template <class T>
static KY_INLINE void storePoints(T* p, const WidePoints<T>& q) {
    constexpr std::make_index_sequence<kWide<T>> lanes;
    store(p, interleaved<0>(q.x, q.y, q.z, lanes));
    store(p + kWide<T>, interleaved<1>(q.x, q.y, q.z, lanes));
    store(p + 2 * kWide<T>, interleaved<2>(q.x, q.y, q.z, lanes));
}

#else

// Four points of floats fill three groups of lanes; the next four are in the next groups:
//
//     memory  x0 y0 z0 x1 | y1 z1 x2 y2 | z2 x3 y3 z3
//     lanes   x0 x1 x2 x3,  y0 y1 y2 y3,  z0 z1 z2 z3

static KY_INLINE Wide<float> loadGroups(const float* p) {
    return gatherParts<kWide<float>>([p](std::size_t k) { return load(p + 12 * k); });
}
static KY_INLINE void storeGroups(float* p, Wide<float> v) {
    scatterParts<4>(v, [p](std::size_t k) { return p + 12 * k; });
}

static KY_INLINE WidePoints<float> loadPoints(const float* p) {
    const Wide<float> a = loadGroups(p), b = loadGroups(p + 4), c = loadGroups(p + 8);
    return {shuffle<0, 3, 0, 2>(a, shuffle<2, 2, 1, 1>(b, c)),
            shuffle<0, 2, 0, 2>(shuffle<1, 1, 0, 0>(a, b), shuffle<3, 3, 2, 2>(b, c)),
            shuffle<0, 2, 0, 3>(shuffle<2, 2, 1, 1>(a, b), c)};
}
static KY_INLINE void storePoints(float* p, const WidePoints<float>& q) {
    const Wide<float> x = q.x, y = q.y, z = q.z;
    storeGroups(p, shuffle<0, 2, 0, 2>(shuffle<0, 0, 0, 0>(x, y), shuffle<0, 0, 1, 1>(z, x)));
    storeGroups(p + 4, shuffle<0, 2, 0, 2>(shuffle<1, 1, 1, 1>(y, z), shuffle<2, 2, 2, 2>(x, y)));
    storeGroups(p + 8, shuffle<0, 2, 0, 2>(shuffle<2, 2, 3, 3>(z, x), shuffle<3, 3, 3, 3>(y, z)));
}

// Two points of doubles fill three pairs of lanes; the next two are in the next pairs:
//
//     memory  x0 y0 | z0 x1 | y1 z1
//     lanes   x0 x1,  y0 y1,  z0 z1

static KY_INLINE Wide<double> loadPairs(const double* p) {
    return gatherParts<kWide<double>>([p](std::size_t k) { return loadPair(p + 6 * k); });
}
static KY_INLINE void storePairs(double* p, Wide<double> v) {
    scatterParts<2>(v, [p](std::size_t k) { return p + 6 * k; });
}

static KY_INLINE WidePoints<double> loadPoints(const double* p) {
    const Wide<double> a = loadPairs(p), b = loadPairs(p + 2), c = loadPairs(p + 4);
    return {shufflePairs<0, 1>(a, b), shufflePairs<1, 0>(a, c), shufflePairs<0, 1>(b, c)};
}
static KY_INLINE void storePoints(double* p, const WidePoints<double>& q) {
    storePairs(p, shufflePairs<0, 0>(q.x, q.y));
    storePairs(p + 2, shufflePairs<0, 1>(q.z, q.x));
    storePairs(p + 4, shufflePairs<1, 1>(q.y, q.z));
}

#endif

/// Column c of matrices of 16 values.
template <class T>
static KY_INLINE Elements<4, T> columnOf(const Strided<T>& matrices, std::size_t c) {
    return {{matrices.first + 4 * c, matrices.stride}};
}

// As many elements as there are lanes, from i on.

template <class T>
static KY_INLINE WidePoints<T> readLanes(Elements<3, const T> in, std::size_t i) {
    if (in.isPacked()) return loadPoints(in[i]);
    const Group<T> group = wholeGroupAt(in.s, i);
    const ValuePairs<T> xy = gatherPairs(group, 0);
    return {xy.first, xy.second, gather(group, 2)};
}
#ifdef __AVX512DQ__

/// Value First of each four of a and b, then the next value of each four.
template <std::size_t First, class V, std::size_t... Lane>
static KY_INLINE V split(V a, V b, std::index_sequence<Lane...>) {
    constexpr std::size_t kHalf = sizeof...(Lane) / 2;
    return __builtin_shufflevector(a, b, (Lane % kHalf * 4 + First + Lane / kHalf)...);
}
template <class T>
static KY_INLINE WideFours<T> loadFours(const T* p) {
    constexpr std::make_index_sequence<kWide<T>> lanes;
    constexpr std::make_index_sequence<kWide<T> / 2> half;
    const Wide<T> a = loadWide(p), b = loadWide(p + kWide<T>), c = loadWide(p + 2 * kWide<T>),
                  d = loadWide(p + 3 * kWide<T>);
    const Wide<T> e = split<0>(a, b, lanes), f = split<0>(c, d, lanes);
    const Wide<T> g = split<2>(a, b, lanes), h = split<2>(c, d, lanes);
    constexpr std::size_t kHalf = kWide<T> / 2;
    return {{joined(part<0>(e, half), part<0>(f, half), lanes),
             joined(part<kHalf>(e, half), part<kHalf>(f, half), lanes),
             joined(part<0>(g, half), part<0>(h, half), lanes),
             joined(part<kHalf>(g, half), part<kHalf>(h, half), lanes)}};
}

#endif

template <class T>
static KY_INLINE WideFours<T> readLanes(Elements<4, const T> in, std::size_t i) {
#ifdef __AVX512DQ__
    if (in.isPacked()) return loadFours(in[i]);
#endif
    const Group<T> group = wholeGroupAt(in.s, i);
    if constexpr (kWide<T> >= 4) {
        WideFours<T> q;
        for (std::size_t j = 0; j < 4; ++j) {
            q.v[j] = gatherParts<kWide<T>>([&](std::size_t k) { return load(group.p[4 * k + j]); });
        }
        transposeGroups(q.v);
        return q;
    } else {
        const ValuePairs<T> a = gatherPairs(group, 0), b = gatherPairs(group, 2);
        return {{a.first, a.second, b.first, b.second}};
    }
}

template <class T>
static KY_INLINE void writeLanes(Elements<1, T> out, std::size_t i, Wide<T> v) {
    if (out.isPacked()) {
        store(out[i], v);
    } else {
        for (std::size_t k = 0; k < kWide<T>; ++k) *out[i + k] = v[k];
    }
}
template <class T>
static KY_INLINE void writeLanes(Elements<3, T> out, std::size_t i, const WidePoints<T>& p) {
    if (out.isPacked()) {
        storePoints(out[i], p);
    } else {
        scatterPairs<T>({p.x, p.y}, [&](std::size_t k) { return out[i + k]; });
        for (std::size_t k = 0; k < kWide<T>; ++k) out[i + k][2] = p.z[k];
    }
}
template <class T>
static KY_INLINE void writeLanes(Elements<4, T> out, std::size_t i, WideFours<T> q) {
    if constexpr (kWide<T> >= 4) {
        transposeGroups(q.v);
        for (std::size_t j = 0; j < 4; ++j) {
            scatterParts<4>(q.v[j], [&](std::size_t k) { return out[i + 4 * k + j]; });
        }
    } else {
        scatterPairs<T>({q.v[0], q.v[1]}, [&](std::size_t k) { return out[i + k]; });
        scatterPairs<T>({q.v[2], q.v[3]}, [&](std::size_t k) { return out[i + k] + 2; });
    }
}

// One element.

template <class T>
static KY_INLINE Points<T> readOne(Elements<3, const T> in, std::size_t i) {
    return {in[i][0], in[i][1], in[i][2]};
}
template <class T>
static KY_INLINE Fours<T> readOne(Elements<4, const T> in, std::size_t i) {
    return {{in[i][0], in[i][1], in[i][2], in[i][3]}};
}
template <class T>
static KY_INLINE void writeOne(Elements<1, T> out, std::size_t i, T v) {
    *out[i] = v;
}
template <class T>
static KY_INLINE void writeOne(Elements<3, T> out, std::size_t i, const Points<T>& p) {
    T* const q = out[i];
    q[0] = p.x;
    q[1] = p.y;
    q[2] = p.z;
}
template <class T>
static KY_INLINE void writeOne(Elements<4, T> out, std::size_t i, const Fours<T>& p) {
    std::memcpy(out[i], p.v, sizeof p.v);
}

/// Results i to n - 1 are op(elements...): by as many as there are lanes, and the rest one by one.
/// What is packed needs fewer registers in a loop of its own.
template <std::size_t K, class T, class Op, class... In>
static KY_INLINE void forEach(std::size_t i, std::size_t n, Elements<K, T> out, Op op, In... in) {
    const std::size_t whole = n - (n - i) % kWide<T>;
    if (out.isPacked() && (in.isPacked() && ...)) {
        for (; i < whole; i += kWide<T>) {
            writeLanes(out.packed(), i, op(readLanes(in.packed(), i)...));
        }
    }
    for (; i < whole; i += kWide<T>) writeLanes(out, i, op(readLanes(in, i)...));
    for (; i < n; ++i) {
        writeOne(out, i, op(readOne(in, i)...));
        __asm__("" ::: "memory");  // the compiler needs no groups of its own
    }
}

template <class V>
static KY_INLINE V dotOf(const Points<V>& a, const Points<V>& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
template <class V>
static KY_INLINE Points<V> crossOf(const Points<V>& a, const Points<V>& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

}  // namespace KyMath::internal

#endif
