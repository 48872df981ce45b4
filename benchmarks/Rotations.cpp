// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Limits.h"

#include <Ky/Ky.h>
#include <KyMath/Quaternion.h>
#include <KyMath/Transformation.h>

#include <math.h>  // sincos, an extension of the C library
#include <algorithm>

using namespace bench;

namespace {

template <class T>
using Q = Values<T, 4>;

void sinCos(double x, double& s, double& c) {
    ::sincos(x, &s, &c);
}
void sinCos(float x, float& s, float& c) {
    ::sincosf(x, &s, &c);
}

template <class T>
T dot(const Q<T>& a, const Q<T>& b) {
    return a.v[0] * b.v[0] + a.v[1] * b.v[1] + a.v[2] * b.v[2] + a.v[3] * b.v[3];
}

/// The matrix with these first three columns.
template <class T>
M<T> rotation(const V<T>& x, const V<T>& y, const V<T>& z) {
    return {x.v[0], x.v[1], x.v[2], 0, y.v[0], y.v[1], y.v[2], 0,
            z.v[0], z.v[1], z.v[2], 0, 0,      0,      0,      1};
}

template <class T>
M<T> eulerToMatrix(const V<T>& angles) {
    T sx, cx, sy, cy, sz, cz;
    sinCos(angles.v[2], sz, cz);
    sinCos(angles.v[1], sy, cy);
    sinCos(angles.v[0], sx, cx);
    return rotation<T>({cy * cz, sx * sy * cz + cx * sz, sx * sz - cx * sy * cz},
                       {-cy * sz, cx * cz - sx * sy * sz, sx * cz + cx * sy * sz},
                       {sy, -sx * cy, cx * cy});
}

template <class T>
V<T> matrixToEuler(const M<T>& m) {
    return {std::atan2(-m.v[9], m.v[10]), std::asin(m.v[8]), std::atan2(-m.v[4], m.v[0])};
}

/// What decomposeT() writes.
template <class T, class Vector = V<T>>
struct Parts {
    Vector scale, rotation, translation;
    T sign;
};

template <class T>
Parts<T> composeAndDecompose(const V<T>& scale, const V<T>& rotation, const V<T>& translation) {
    M<T> m = eulerToMatrix(rotation);
    for (int c = 0; c < 3; ++c) {
        for (int r = 0; r < 4; ++r) m.v[4 * c + r] *= scale.v[c] * 1;
        m.v[12 + c] = translation.v[c];
    }
    Parts<T> p;
    p.sign = determinant(m) >= 0 ? T(1) : T(-1);
    p.translation = {m.v[12], m.v[13], m.v[14]};
    for (int c = 0; c < 3; ++c) {
        T* const x = m.v + 4 * c;
        const T square = x[0] * x[0] + x[1] * x[1] + x[2] * x[2] + x[3] * x[3];
        p.scale.v[c] = std::sqrt(square);
        const T k = 1 / std::sqrt(square);
        for (int r = 0; r < 4; ++r) x[r] *= k;
    }
    p.rotation = matrixToEuler(m);  // the angles are away from the pole
    return p;
}

template <class T>
Q<T> product(const Q<T>& p, const Q<T>& q) {
    const T* const a = p.v;
    const T* const b = q.v;
    return {a[0] * b[0] - a[1] * b[1] - a[2] * b[2] - a[3] * b[3],
            a[0] * b[1] + a[1] * b[0] + a[2] * b[3] - a[3] * b[2],
            a[0] * b[2] + a[2] * b[0] + a[3] * b[1] - a[1] * b[3],
            a[0] * b[3] + a[3] * b[0] + a[1] * b[2] - a[2] * b[1]};
}

template <class T>
V<T> rotate(const Q<T>& q, const V<T>& p) {
    const T w = q.v[0], x = q.v[1], y = q.v[2], z = q.v[3];
    const T* const v = p.v;
    const T a = w * w - (x * x + y * y + z * z);
    const T b = 2 * (x * v[0] + y * v[1] + z * v[2]);
    const T c = 2 * w;
    return {v[0] * a + x * b + (y * v[2] - z * v[1]) * c,
            v[1] * a + y * b + (z * v[0] - x * v[2]) * c,
            v[2] * a + z * b + (x * v[1] - y * v[0]) * c};
}

template <class T>
Q<T> slerp(const Q<T>& p, Q<T> q, T t) {
    T cosine = dot(p, q);
    if (cosine < 0) {
        cosine = -cosine;
        for (T& x : q.v) x = -x;
    }
    T a = 1 - t;
    T b = t;
    if (1 - cosine > T(1e-7)) {
        const T omega = std::acos(cosine);
        const T k = 1 / std::sin(omega);
        a = std::sin(a * omega) * k;
        b = std::sin(b * omega) * k;
    }
    Q<T> r;
    for (int i = 0; i < 4; ++i) r.v[i] = p.v[i] * a + q.v[i] * b;
    return r;
}

template <class T>
Q<T> fromDirections(const T* a, const T* b) {  // neither equal nor opposite
    const double d = double(a[0] * b[0] + a[1] * b[1] + a[2] * b[2]);
    const double m = 0.5 * std::min(std::max(d, -1.0), 1.0);
    T x = a[1] * b[2] - a[2] * b[1], y = a[2] * b[0] - a[0] * b[2], z = a[0] * b[1] - a[1] * b[0];
    const T k = 1 / std::sqrt(x * x + y * y + z * z);
    const T s = std::sqrt(T(0.5 - m));
    return {std::sqrt(T(0.5 + m)), x * k * s, y * k * s, z * k * s};
}

template <class T>
M<T> quaternionToMatrix(const Q<T>& q) {
    typename Lanes<T>::Type unit;
    std::memcpy(&unit, q.v, sizeof unit);
    unit /= std::sqrt(dot(q, q));
    const T w = unit[0], x = unit[1], y = unit[2], z = unit[3];
    const auto diagonal = [](T sum) { return T(1.0 - double(2 * sum)); };
    return rotation<T>({diagonal(y * y + z * z), 2 * (x * y + z * w), 2 * (x * z - y * w)},
                       {2 * (x * y - z * w), diagonal(x * x + z * z), 2 * (y * z + x * w)},
                       {2 * (x * z + y * w), 2 * (y * z - x * w), diagonal(x * x + y * y)});
}

template <class T>
Q<T> matrixToQuaternion(const M<T>& m) {
    const auto a = [&](int r, int c) { return m.v[4 * c + r]; };
    T squares = 0;
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c) squares += a(r, c) * a(r, c);
    }
    const T k = std::sqrt(3 / squares);
    const T trace = a(0, 0) + a(1, 1) + a(2, 2);
    if (trace > 0) {
        const T r = std::sqrt(k * trace + 1);
        const T f = k / (2 * r);
        return {r / 2, (a(2, 1) - a(1, 2)) * f, (a(0, 2) - a(2, 0)) * f, (a(1, 0) - a(0, 1)) * f};
    }
    int i = a(1, 1) > a(0, 0) ? 1 : 0;
    if (a(2, 2) > a(i, i)) i = 2;
    const int j = (i + 1) % 3;
    const int n = (i + 2) % 3;
    const T r = std::sqrt((a(i, i) - a(j, j) - a(n, n)) * k + 1);
    const T f = r != 0 ? k / (2 * r) : T(0);
    Q<T> q;
    q.v[0] = (a(n, j) - a(j, n)) * f;
    q.v[i + 1] = r / 2;
    q.v[j + 1] = (a(j, i) + a(i, j)) * f;
    q.v[n + 1] = (a(n, i) + a(i, n)) * f;
    return q;
}

/// The rigid transform that applies a, then b.
M<double> compound(const M<double>& a, const M<double>& b) {
    M<double> m;
    for (int c = 0; c < 4; ++c) {
        const double* const v = a.v + 4 * c;
        for (int r = 0; r < 3; ++r) {
            m.v[4 * c + r] = v[0] * b.v[r] + v[1] * b.v[4 + r] + v[2] * b.v[8 + r];
        }
        m.v[4 * c + 3] = 0;
    }
    for (int r = 0; r < 3; ++r) m.v[12 + r] += b.v[12 + r];
    m.v[15] = 1;
    return m;
}

/// From order XYZ to ZYX, both static.
V<double> reorder(const V<double>& angles) {
    double si, ci, sj, cj, sh, ch;
    sinCos(-angles.v[0], si, ci);
    sinCos(-angles.v[1], sj, cj);
    sinCos(-angles.v[2], sh, ch);
    const double cc = ci * ch, cs = ci * sh, sc = si * ch, ss = si * sh;
    const double m00 = cj * ch, m01 = sj * sc - cs, m02 = sj * cc + ss;
    const double m12 = sj * cs - sc, m22 = cj * ci;
    const double cy = std::sqrt(m22 * m22 + m12 * m12);  // the angles are away from the pole
    return {std::atan2(m01, m00), std::atan2(-m02, cy), std::atan2(m12, m22)};
}

void addRigid() {
    using Ky::KyEulerAngles;
    using Ky::KyTransform;
    const auto [inputs, others, angles] = RigidInputs();
    const auto* const a = load<KyTransform>(inputs);
    const auto* const b = load<KyTransform>(others);
    const auto* const e = load<KyMath::Vector3d>(angles);
    const auto* const la = load<M<double>>(inputs);
    const auto* const lb = load<M<double>>(others);
    const auto* const le = load<V<double>>(angles);

    ours<double>(
        "rigid compound",
        [=, t = KyTransform()](std::size_t i) mutable -> const KyTransform& {
            return t.compound(a[i], b[i]);
        },
        [=](std::size_t i) { return compound(la[i], lb[i]); });
    // A chain of calls on one object: each waits for its predecessor.
    ours<double>(
        "rigid compound chain",
        [=, t = KyTransform()](std::size_t i) mutable -> const KyTransform& {
            if (i == 0) t = a[0];
            return t.postCompound(b[i]);
        },
        [=, t = M<double>()](std::size_t i) mutable -> const M<double>& {
            if (i == 0) t = la[0];
            return t = compound(t, lb[i]);
        });
    KY_OURS(double, "Euler order change",
            KyEulerAngles::getEulerAngles(e[i], KyEulerAngles::eXYZs, KyEulerAngles::eZYXs),
            reorder(le[i]));
}

template <class T>
void addAll() {
    namespace Transformation = KyMath::Transformation;
    using Vector = KyMath::Vector3T<T>;
    using Quaternion = KyMath::QuaternionT<T>;
    using Matrix = KyMath::Matrix44T<T>;
    const auto [angles, scales, points, times, inputs, others, turns, otherTurns] =
        RotationsInputs<T>();
    const auto* const e = load<Vector>(angles);
    const auto* const n = load<T>(angles);
    const auto* const s = load<Vector>(scales);
    const auto* const p = load<Vector>(points);
    const auto* const t = load<T>(times);
    const auto* const a = load<Quaternion>(inputs);
    const auto* const b = load<Quaternion>(others);
    const auto* const m = load<Matrix>(turns);
    const auto direction = [](const T* turn) { return Vector(turn[0], turn[1], turn[2]); };
    const auto* const from = load<Vector>(turns, 16, direction);
    const auto* const to = load<Vector>(otherTurns, 16, direction);
    const auto* const le = load<V<T>>(angles);
    const auto* const ls = load<V<T>>(scales);
    const auto* const lp = load<V<T>>(points);
    const auto* const la = load<Q<T>>(inputs);
    const auto* const lb = load<Q<T>>(others);
    const auto* const lm = load<M<T>>(turns);
    const auto* const lto = load<M<T>>(otherTurns);

    KY_OURS(T, "Euler to matrix",
            Transformation::createRotationT(n[3 * i], n[3 * i + 1], n[3 * i + 2]),
            eulerToMatrix(le[i]));
    KY_OURS(T, "matrix to Euler", Transformation::getRotationT(m[i], false), matrixToEuler(lm[i]));
    ours<T>(
        "compose and decompose",
        [=](std::size_t i) {
            Parts<T, Vector> r;
            Transformation::decomposeT(Transformation::composeT(s[i], e[i], p[i], T(1)), r.scale,
                                       r.rotation, r.translation, r.sign);
            return r;
        },
        [=](std::size_t i) { return composeAndDecompose(ls[i], le[i], lp[i]); });
    KY_OURS(T, "quaternion product", a[i] * b[i], product(la[i], lb[i]));
    KY_OURS(T, "quaternion rotate", a[i].rotate(p[i]), rotate(la[i], lp[i]));
    KY_OURS(T, "slerp", a[i].slerp(b[i], t[i]), slerp(la[i], lb[i], t[i]));
    ours<T>(
        "quaternion from directions",
        [=](std::size_t i) {
            Quaternion r;
            r.fromRotation(from[i], to[i]);
            return r;
        },
        [=](std::size_t i) { return fromDirections(lm[i].v, lto[i].v); });
    KY_OURS(T, "quaternion to matrix", Transformation::createRotationT(a[i]),
            quaternionToMatrix(la[i]));
    KY_OURS(T, "matrix to quaternion", Transformation::getRotationAsQuaternionT(m[i], false),
            matrixToQuaternion(lm[i]));
}

}  // namespace

void addRotations() {
    addAll<float>();
    addAll<double>();
    addRigid();
}
