// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Limits.h"

#include <KyMath/Matrix.h>
#include <KyMath/Transformation.h>

#include <limits>

using namespace bench;

namespace {

/// m times (v, w), with a lane for each row.
template <class T>
inline void multiply(const M<T>& m, const T* v, T w, T* result) {
    typename Lanes<T>::Type a, b, c, d;
    std::memcpy(&a, m.v, sizeof a);
    std::memcpy(&b, m.v + 4, sizeof b);
    std::memcpy(&c, m.v + 8, sizeof c);
    std::memcpy(&d, m.v + 12, sizeof d);
    a = a * v[0] + b * v[1] + c * v[2] + d * w;
    std::memcpy(result, &a, sizeof a);
}

template <class T>
M<T> product(const M<T>& a, const M<T>& b) {
    M<T> m;
    for (int c = 0; c < 16; c += 4) multiply(a, b.v + c, b.v[c + 3], m.v + c);
    return m;
}

template <class T>
Values<T, 4> byVector(const M<T>& m, const T* v, T w) {
    Values<T, 4> p;
    multiply(m, v, w, p.v);
    return p;
}

template <class T>
V<T> divided(const Values<T, 4>& h) {
    typename Lanes<T>::Type p;
    std::memcpy(&p, h.v, sizeof p);
    p /= h.v[3];
    return {p[0], p[1], p[2]};
}

template <class T>
V<T> xyz(const Values<T, 4>& h) {
    return {h.v[0], h.v[1], h.v[2]};
}

/// Column c of the adjugate holds minors of the rows other than c; lane k holds the one without
/// column k.
template <class T>
M<T> inverse(const M<T>& m) {
    using Vector = typename Lanes<T>::Type;
    const Vector signs = {1, -1, 1, -1};
    // For each row, its values in the first, second and third of the other columns.
    Vector x[4], y[4], z[4];
    for (int r = 0; r < 4; ++r) {
        const T* const p = m.v + r;
        x[r] = Vector{p[4], p[0], p[0], p[0]};
        y[r] = Vector{p[8], p[8], p[4], p[4]};
        z[r] = Vector{p[12], p[12], p[12], p[8]};
    }
    M<T> n;
    for (int c = 0; c < 4; ++c) {
        const auto& [i, j, k] = kOthers[c];
        Vector minors = x[i] * y[j] * z[k] + x[j] * y[k] * z[i] + x[k] * y[i] * z[j] -
                        z[i] * y[j] * x[k] - z[k] * x[j] * y[i] - z[j] * x[i] * y[k];
        minors *= c % 2 == 0 ? signs : -signs;
        std::memcpy(n.v + 4 * c, &minors, sizeof minors);
    }
    const T det = n.v[0] * m.v[0] + n.v[4] * m.v[1] + n.v[8] * m.v[2] + n.v[12] * m.v[3];
    const T k = std::abs(det) <= std::numeric_limits<T>::epsilon() ? T(1e5) : 1 / det;
    for (T& value : n.v) value *= k;
    return n;
}

template <class T>
M<T> transpose(const M<T>& m) {
    M<T> n;
    for (int c = 0; c < 4; ++c) {
        for (int r = 0; r < 4; ++r) n.v[4 * c + r] = m.v[4 * r + c];
    }
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
    const auto [inputs, others, rigid, points] = MatricesInputs<T>();
    const auto* const a = load<Matrix>(inputs);
    const auto* const b = load<Matrix>(others);
    const auto* const t = load<Matrix>(rigid);
    const auto* const p = load<KyMath::Vector4T<T>>(points);
    const auto* const p3 = load<KyMath::Vector3T<T>>(points);
    const auto* const la = load<M<T>>(inputs);
    const auto* const lb = load<M<T>>(others);
    const auto* const lt = load<M<T>>(rigid);
    const auto* const lp = load<Values<T, 4>>(points);
    const auto* const lp3 = load<V<T>>(points);

    KY_OURS(T, "matrix product", Matrix::multiply(a[i], b[i]), product(la[i], lb[i]));
    KY_OURS(T, "matrix by vector", Matrix::multiplyWithVector(a[i], p[i]),
            byVector(la[i], lp[i].v, lp[i].v[3]));
    KY_OURS(T, "point with divide", KyMath::Transformation::transformPositionT(a[i], p3[i]),
            divided(byVector(la[i], lp3[i].v, T(1))));
    KY_OURS(T, "direction", KyMath::Transformation::transformDirectionT(a[i], p3[i]),
            xyz(byVector(la[i], lp3[i].v, T(0))));
    KY_OURS(T, "general inverse", a[i].inverse(), inverse(la[i]));
    ours<T>(
        "transpose",
        [=](std::size_t i) {
            Matrix r = a[i];
            r.transpose();
            return r;
        },
        [=](std::size_t i) { return transpose(la[i]); });
    KY_OURS(T, "rigid inverse", t[i].inverse_orthogonal(), rigidInverse(lt[i]));
    KY_OURS(T, "determinant", a[i].determinant(), determinant(la[i]));
}

}  // namespace

void addMatrices() {
    addAll<float>();
    addAll<double>();
}
