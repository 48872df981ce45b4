// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Limits.h"

#include <KyMath/BoundingBox.h>
#include <KyMath/Frustum.h>
#include <KyMath/Matrix.h>
#include <KyMath/Plane.h>
#include <KyMath/Transformation.h>

#include <algorithm>
#include <limits>

using namespace bench;

namespace {

template <class T>
using Box = Values<T, 6>;

template <class T>
Box<T> transformed(const Box<T>& b, const M<T>& matrix) {
    const T* const min = b.v;
    const T* const max = b.v + 3;
    const T* const m = matrix.v;
    if (!(max[0] >= min[0] && max[1] >= min[1] && max[2] >= min[2])) return b;
    T c[3], e[3], h[4];
    for (int i = 0; i < 3; ++i) {
        c[i] = (min[i] + max[i]) * T(0.5);
        e[i] = (max[i] - min[i]) * T(0.5);
    }
    for (int i = 0; i < 4; ++i) {
        h[i] = m[i] * c[0] + m[4 + i] * c[1] + m[8 + i] * c[2] + m[12 + i];
    }
    Box<T> r;
    for (int i = 0; i < 3; ++i) {
        const T half =
            std::abs(m[i]) * e[0] + std::abs(m[4 + i]) * e[1] + std::abs(m[8 + i]) * e[2];
        const T center = h[i] / h[3];
        r.v[i] = center - half;
        r.v[3 + i] = center + half;
    }
    return r;
}

template <class T>
Box<T> merged(const Box<T>& a, const Box<T>& b) {
    Box<T> r;
    for (int i = 0; i < 3; ++i) {
        r.v[i] = a.v[i] > b.v[i] ? b.v[i] : a.v[i];
        r.v[3 + i] = b.v[3 + i] > a.v[3 + i] ? b.v[3 + i] : a.v[3 + i];
    }
    return r;
}

template <class T>
bool overlap(const Box<T>& a, const Box<T>& b) {
    bool valid = true;
    for (int i = 0; i < 3; ++i) {
        valid &= std::min(a.v[3 + i], b.v[3 + i]) >= std::max(a.v[i], b.v[i]);
    }
    return valid;
}

template <class T>
bool hit(const Box<T>& b, const V<T>& origin, const V<T>& direction) {
    T near = -std::numeric_limits<T>::infinity();
    T far = std::numeric_limits<T>::infinity();
    for (int i = 0; i < 3; ++i) {
        const T d = direction.v[i];
        const T r = d == 0 ? std::numeric_limits<T>::max() : 1 / d;
        const T t1 = r * (b.v[i] - origin.v[i]);
        const T t2 = r * (b.v[3 + i] - origin.v[i]);
        near = std::max(near, std::min(t1, t2));
        far = std::min(far, std::max(t1, t2));
    }
    return far > near;
}

template <class T>
struct Plane {
    T v[4];
    unsigned int upper, lower;

    void setCorners() {
        upper = 0;
        for (int i = 0; i < 3; ++i) {
            upper |= !(std::numeric_limits<T>::epsilon() > v[i]) ? 1u << i : 0u;
        }
        lower = ~upper & 7u;
    }
};

template <class T>
Plane<T> throughPoints(const V<T>& a, const V<T>& b, const V<T>& c) {
    T u[3], w[3];
    for (int i = 0; i < 3; ++i) {
        u[i] = b.v[i] - a.v[i];
        w[i] = c.v[i] - b.v[i];
    }
    T n[] = {u[1] * w[2] - u[2] * w[1], u[2] * w[0] - u[0] * w[2], u[0] * w[1] - u[1] * w[0]};
    const T length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
    const T k = double(length) > 1e-6 ? 1 / length : T(0);
    for (T& x : n) x *= k;
    Plane<T> p;
    p.v[0] = n[0];
    p.v[1] = n[1];
    p.v[2] = n[2];
    p.v[3] = -(n[0] * b.v[0] + n[1] * b.v[1] + n[2] * b.v[2]);
    p.setCorners();
    return p;
}

struct FrustumPlanes {
    Plane<float> p[6];
};

FrustumPlanes frustumPlanes(const M<float>& view, const M<float>& projection) {
    static constexpr float kClip[6][4] = {{1, 0, 0, 1},  {-1, 0, 0, 1}, {0, 1, 0, 1},
                                          {0, -1, 0, 1}, {0, 0, -1, 1}, {0, 0, 1, 0}};
    float rows[4][4];  // of projection times view
    for (int c = 0; c < 4; ++c) {
        const float* const s = view.v + 4 * c;
        const float* const p = projection.v;
        for (int r = 0; r < 4; ++r) {
            rows[r][c] = p[r] * s[0] + p[4 + r] * s[1] + p[8 + r] * s[2] + p[12 + r] * s[3];
        }
    }
    FrustumPlanes f;
    for (int k = 0; k < 6; ++k) {
        const float* const q = kClip[k];
        float* const v = f.p[k].v;
        for (int c = 0; c < 4; ++c) {
            v[c] = rows[0][c] * q[0] + rows[1][c] * q[1] + rows[2][c] * q[2] + rows[3][c] * q[3];
        }
        f.p[k].setCorners();
        const float s = 1 / std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
        for (int c = 0; c < 4; ++c) v[c] *= s;
    }
    return f;
}

void addFrustum() {
    using KyMath::Matrix44f;
    const Matrix44f projection =
        KyMath::Transformation::createFrustumT<float>(-1, 1.5f, -0.5f, 1, 1, 100);
    const M<float>* const lp =
        load<M<float>>(std::vector<float>(projection[0], projection[0] + 16));
    const auto views = frustumViews();
    const auto* const view = load<Matrix44f>(views);
    const auto* const lv = load<M<float>>(views);
    ours<float>(
        "frustum planes",
        [=, f = KyMath::Frustum()](std::size_t i) mutable -> const KyMath::Frustum& {
            f.setToWorldSpaceFrustum(view[i], projection);
            return f;
        },
        [=](std::size_t i) { return frustumPlanes(lv[i], *lp); });
}

template <class T>
void addAll() {
    using KyBox = KyMath::BoundingBoxT<T>;
    using Vector = KyMath::Vector3T<T>;
    const auto [inputs, others, moves, origins, directions] = BoundsInputs<T>();
    const auto* const a = load<KyBox>(inputs);
    const auto* const b = load<KyBox>(others);
    const auto* const m = load<KyMath::Matrix44T<T>>(moves);
    const auto* const o = load<Vector>(origins);
    const auto* const d = load<Vector>(directions);
    const auto* const la = load<Box<T>>(inputs);
    const auto* const lb = load<Box<T>>(others);
    const auto* const lm = load<M<T>>(moves);
    const auto* const lo = load<V<T>>(origins);
    const auto* const ld = load<V<T>>(directions);

    ours<T>(
        "box transform",
        [=](std::size_t i) {
            KyBox r = a[i];
            r.transform(m[i]);
            return r;
        },
        [=](std::size_t i) { return transformed(la[i], lm[i]); });
    KY_OURS(T, "box merge", a[i] + b[i], merged(la[i], lb[i]));
    KY_OURS(T, "box overlap", a[i].intersects(b[i]), overlap(la[i], lb[i]));
    KY_OURS(T, "line against box", a[i].intersect(o[i], d[i]), hit(la[i], lo[i], ld[i]));
    KY_OURS(T, "plane through points", KyMath::PlaneT<T>(o[i], d[i], o[(i + 1) % kCount]),
            throughPoints(lo[i], ld[i], lo[(i + 1) % kCount]));
}

}  // namespace

void addBounds() {
    addAll<float>();
    addAll<double>();
    addFrustum();
}
