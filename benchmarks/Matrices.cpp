// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Bench.h"

#include <KyMath/Matrix.h>
#include <KyMath/Transformation.h>

#include <limits>

using bench::load;
using bench::ours;
using bench::Values;

namespace {

template <class T>
using M = Values<T, 16>;

template <class T>
M<T> product(const M<T>& a, const M<T>& b) {
    M<T> m;
    for (int c = 0; c < 4; ++c) {
        const T* const s = b.v + 4 * c;
        for (int r = 0; r < 4; ++r) {
            m.v[4 * c + r] =
                a.v[r] * s[0] + a.v[4 + r] * s[1] + a.v[8 + r] * s[2] + a.v[12 + r] * s[3];
        }
    }
    return m;
}

template <class T>
Values<T, 4> byVector(const M<T>& m, T x, T y, T z, T w) {
    Values<T, 4> p;
    for (int r = 0; r < 4; ++r) {
        p.v[r] = m.v[r] * x + m.v[4 + r] * y + m.v[8 + r] * z + m.v[12 + r] * w;
    }
    return p;
}

/// Of three rows and three columns, by the rule of Sarrus.
template <class T>
inline T minorOf(const M<T>& m, const int (&r)[3], const int (&c)[3]) {
    const auto e = [&](int i, int j) { return m.v[4 * c[j] + r[i]]; };
    return e(0, 0) * e(1, 1) * e(2, 2) + e(1, 0) * e(2, 1) * e(0, 2) + e(2, 0) * e(0, 1) * e(1, 2) -
           e(0, 2) * e(1, 1) * e(2, 0) - e(2, 2) * e(1, 0) * e(0, 1) - e(1, 2) * e(0, 0) * e(2, 1);
}
constexpr int kOthers[4][3] = {{1, 2, 3}, {0, 2, 3}, {0, 1, 3}, {0, 1, 2}};

template <class T>
T determinant(const M<T>& m) {
    return m.v[0] * minorOf(m, kOthers[0], kOthers[0]) -
           m.v[4] * minorOf(m, kOthers[0], kOthers[1]) +
           m.v[8] * minorOf(m, kOthers[0], kOthers[2]) -
           m.v[12] * minorOf(m, kOthers[0], kOthers[3]);
}

template <class T>
M<T> inverse(const M<T>& m) {
    M<T> n;
    for (int c = 0; c < 4; ++c) {
        for (int r = 0; r < 4; ++r) {
            const T minor = minorOf(m, kOthers[c], kOthers[r]);
            n.v[4 * c + r] = (r + c) % 2 == 0 ? minor : -minor;
        }
    }
    const T det = n.v[0] * m.v[0] + n.v[4] * m.v[1] + n.v[8] * m.v[2] + n.v[12] * m.v[3];
    const T k = std::abs(det) <= std::numeric_limits<T>::epsilon() ? T(1e5) : 1 / det;
    for (T& x : n.v) x *= k;
    return n;
}

template <class T>
M<T> rigidInverse(const M<T>& m) {
    const T* const t = m.v + 12;
    M<T> n;
    for (int i = 0; i < 3; ++i) {
        const T* const c = m.v + 4 * i;
        for (int j = 0; j < 3; ++j) n.v[4 * j + i] = c[j];
        n.v[12 + i] = -(c[0] * t[0] + c[1] * t[1] + c[2] * t[2]);
        n.v[4 * i + 3] = 0;
    }
    n.v[15] = 1;
    return n;
}

template <class T>
void addAll() {
    using Matrix = KyMath::Matrix44T<T>;
    const auto inputs = bench::matrices<T>(1);
    const auto others = bench::matrices<T>(2);
    const auto rigid = bench::transforms<T>(1, 3);
    const auto points = bench::numbers<T>(4 * bench::kCount, -1, 1, 4);
    const auto* const a = load<Matrix>(inputs);
    const auto* const b = load<Matrix>(others);
    const auto* const t = load<Matrix>(rigid);
    const auto* const p = load<KyMath::Vector4T<T>>(points);
    const auto* const p3 = load<KyMath::Vector3T<T>>(points);
    const auto* const la = load<M<T>>(inputs);
    const auto* const lb = load<M<T>>(others);
    const auto* const lt = load<M<T>>(rigid);
    const auto* const lp = load<Values<T, 4>>(points);
    const auto* const lp3 = load<Values<T, 3>>(points);

    ours<T>(
        "matrix product", [=](std::size_t i) { return Matrix::multiply(a[i], b[i]); },
        [=](std::size_t i) { return product(la[i], lb[i]); });
    ours<T>(
        "matrix by vector", [=](std::size_t i) { return Matrix::multiplyWithVector(a[i], p[i]); },
        [=](std::size_t i) {
            const T* const v = lp[i].v;
            return byVector(la[i], v[0], v[1], v[2], v[3]);
        });
    ours<T>(
        "point with divide",
        [=](std::size_t i) { return KyMath::Transformation::transformPositionT(a[i], p3[i]); },
        [=](std::size_t i) {
            const T* const v = lp3[i].v;
            const Values<T, 4> h = byVector(la[i], v[0], v[1], v[2], T(1));
            return Values<T, 3>{h.v[0] / h.v[3], h.v[1] / h.v[3], h.v[2] / h.v[3]};
        });
    ours<T>(
        "general inverse", [=](std::size_t i) { return a[i].inverse(); },
        [=](std::size_t i) { return inverse(la[i]); });
    ours<T>(
        "rigid inverse", [=](std::size_t i) { return t[i].inverse_orthogonal(); },
        [=](std::size_t i) { return rigidInverse(lt[i]); });
    ours<T>(
        "determinant", [=](std::size_t i) { return a[i].determinant(); },
        [=](std::size_t i) { return determinant(la[i]); });
}

}  // namespace

void addOurs() {
    addAll<float>();
    addAll<double>();
}
