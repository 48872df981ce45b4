// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Chains of all small members, as user code writes them, which compilers inline and then optimise
// as a whole. Prints a digest of the results of each type. Only sums are computed here, so that
// flags of this source can only change what is inlined.
#include "Values.h"

#include <cstdio>

using namespace KyMath;
using namespace KyMath::test;

namespace {

struct Run {
    Inputs in{1};
    Digest digest;

    template <class V>
    V draw() {
        V v;
        in.draw(v);
        return v;
    }
    template <class V>
    void add(const V& v) {
        digest.add(v);
    }
};

// What vectors of three and four values share.
template <class V, class T>
void addShared(Run& run, V a, V b, T s) {
    run.add((a + b * s - -a / s) * (b - a)), run.add(-(a * T(0)));
    run.add(a == b || a != b || (a < b) != (a > b) || a.isZero() || a.isFinite());
    run.add(a.normSquare()), run.add(b.lengthSqr()), run.add(a.norm()), run.add((a - b).length());
    V c(a);
    (((c += b) -= a * s) *= s) /= a[0];
    run.add(c);
    c.normalize();
    T length;
    run.add(b.normalize(s, &length)), run.add(length);
    a[1u] = b[1], a[0l] = b.y(), a.x() = c[1ul], a.y() = s, a.z() = c.z();
    const V& constant = a;
    run.add(constant[0]), run.add(constant[1u]), run.add(constant[1l]), run.add(constant[2ul]);
    const T* p = constant;
    T* q = a;
    run.add(V(p)), run.add(p[1]), run.add(q[2]), run.add(a), run.add(b), run.add(c), run.add(V());
}

template <class T>
void vectors(Run& run) {
    using V = Vector3T<T>;
    V a = run.draw<Vector3T<T>>(), b = run.draw<Vector3T<T>>(), c = run.draw<Vector3T<T>>();
    const T s = run.draw<T>(), t = run.draw<T>();
    addShared(run, a, b, s);
    Vector4T<T> k = run.draw<Vector4T<T>>(), h(a, s);
    addShared(run, h, k, s);
    const V n = (b - a).cross(c - a);
    run.add(n * (a + b)), run.add(V::distance(a, n)), run.add(V::distanceSqr(n, b));
    run.add(n.maxComponentIndex());
    V u = V::multComp(a, n), v = n;
    u.multComp(b), u.addMultiple(s, c), v.setLinear(s, u, t, b), u.postCross(c), v.preCross(a);
    c.setCross(u, v), a.orthogonalize(b), n.project(b, &u, &v);
    double wide[3];
    V::set(wide, c);
    run.digest.add(wide, 3);
    b.set(u.x(), V::constCast(&a.x())->y(), V::cast(&c.x())->z());
    run.add(a), run.add(b), run.add(c), run.add(u), run.add(v);

    h.w() = k.w(), h.set(k), k.set(s, t, h.dot(k), h.w()), h = &k[0];
    run.add(h), run.add((h = k).xyz()), run.add(k);

    T xy[] = {s, t};
    Vector2T<T> d(xy), e(s, b[0]), f;
    f = d + e - d / t, f += e, f -= d, f /= s, f.x() = e.y(), f.y() = d[1u], f[0l] = e[1ul];
    run.add(d.dot(e)), run.add(d.cross(f)), run.add(f.normSquare()), run.add(d.norm());
    run.add(e.length()), run.add(e.lengthSqr()), run.add(d == e || d != f || d < e || e > f);
    e.set(f.x(), d.y()), d.normalize(), run.add(f.normalize(t, &xy[0]));
    run.add(static_cast<const T*>(d)[1]), run.add(static_cast<T*>(e)[0]), run.add(f);
}

// Differences beside sums, which GCC 12.0 to 12.2 fuse where they vectorise.
template <class T>
__attribute__((noinline)) void firstPair(T* out, QuaternionT<T> a, const QuaternionT<T>& b) {
    a *= b;
    out[0] = a.w();
    out[1] = a.x();
}
template <class T>
void pairs(Run& run) {
    constexpr int kCount = 64;
    Vector2T<T> a[kCount], b[kCount], c[kCount];
    T out[2 * kCount];
    for (int i = 0; i < kCount; ++i) {
        for (Vector2T<T>* v : {a, b, c}) v[i].set(run.draw<T>(), run.draw<T>());
    }
    for (int i = 0; i < kCount; ++i) {
        out[2 * i] = a[i].cross(b[i]);
        out[2 * i + 1] = a[i].dot(b[i]);
    }
    run.digest.add(out, 2 * kCount);
    for (int i = 0; i < kCount; ++i) {
        const Vector2T<T> p = a[i] / c[i].x(), q = b[i] / c[i].y();
        c[i].set(p.x() - q.y(), p.y() + q.x());
    }
    for (const Vector2T<T>& v : c) run.add(v);
    firstPair(out, run.draw<QuaternionT<T>>(), run.draw<QuaternionT<T>>());
    run.digest.add(out, 2);
}

template <class T>
void rotations(Run& run) {
    using Q = QuaternionT<T>;
    const Vector3T<T> v = run.draw<Vector3T<T>>();
    T x[] = {run.draw<T>(), run.draw<T>(), run.draw<T>(), run.draw<T>()}, y[4];
    Q q(x), p(x[3], x[0], x[2], x[1]), r;
    run.add(q.rotate(v) + p * v), run.add(r), run.add(q * p * q);
    r = q + p * x[0] - q, r += p, r -= q, r *= p, r *= x[1], r.invert(), p.setInverse(q);
    run.add(r.getInverse()), run.add(q.dot(p)), run.add(r.norm()), run.add(q == p || q != r);
    q.get(y), p.get(r), r.get(&y[1], &y[0], &y[3], &y[2]), r.normalize(), q = y, p = q;
    q[0] = p.w(), q[1u] = p.x(), q[2l] = p.y(), q[3ul] = p.z(), p.set(y[1], y[2], y[0], q[2]);
    const Q& constant = q;
    run.add(static_cast<const T*>(q)[1]), run.add(constant[2]), run.add(static_cast<T*>(q)[1]);
    run.add(constant[1u]), run.add(constant[2l]), run.add(constant[3ul]), run.add(p), run.add(q),
        run.add(r);
}

template <class T>
void matrices(Run& run) {
    using M = Matrix44T<T>;
    M m = run.draw<Matrix44T<T>>(), n(&m[0][0]), i;
    const Vector4T<T> v = run.draw<Vector4T<T>>();
    const T s = v.w();
    run.add(M::multiplyWithVector(m, M::multiplyWithVector(n, v) + v)), run.add(m.row(1)),
        run.add(i);
    m(1, 2) = s, m[2u][1] = s, m[1l][0] = m(2, 3), m[3ul][1] = m.column(1)[2], n /= s, i = m;
    const M& c = m;
    run.add(c.column(2)), run.add(c(0, 3)), run.add(c[1][2]), run.add(c[2u][1]), run.add(c[1l][0]),
        run.add(c[2ul][1]);
    run.add(m == n || m != i), run.add(static_cast<const T*>(c)[5]);
    run.add(M(reinterpret_cast<const T(*)[4]>(static_cast<T*>(m))));
    run.add(M::multiply(m, s)), run.add(M::divide(i, s)), run.add(n *= s), run.add(M(i) == i);
    Transformation::setTranslationT(n, Transformation::getTranslationT(m) * s);
    run.add(n), run.add(M(s, 1, 2, 3, 4, s, 5, 6, 7, 8, s, 9, 1, 2, 3, s));
}

template <class T>
void bounds(Run& run) {
    using B = BoundingBoxT<T>;
    const Vector3T<T> p = run.draw<Vector3T<T>>(), q = run.draw<Vector3T<T>>();
    B a = run.draw<BoundingBoxT<T>>(), b = run.draw<BoundingBoxT<T>>(), c,
      d(p[0], p[1], p[2], q[0], q[1], q[2]);
    c += a, c += b, d.expandBy(q[0], p[1], q[2]), d.expandBy(p - q);
    run.add((a + d).center()), run.add(c.getBBSize()), run.add(a.radius()), run.add(b.radius2());
    run.add(c.contains(p)), run.add(a.intersect(p, q)), run.add(B::isBetween(p[0], q[0], p[1]));
    run.add(c.valid()), run.add(c.corner(5) + a.corner(2)), a.init();
    a.set(p, b.getMax()), b.set(p[1], q[0], p[2], q[1], p[0], q[2]);
    a.xMin() = b.xMax(), a.yMin() = b.yMax(), a.zMin() = b.zMax(), a.getMin() += b.getMin();
    a.xMax() = b.xMin(), a.yMax() = b.yMin(), a.zMax() = b.zMin(), a.getMax() -= c.getMax();
    const B& constant = a;
    run.add(constant.getMin()), run.add(constant.getMax()), run.add(constant.xMin());
    run.add(constant.xMax()), run.add(constant.yMin()), run.add(constant.zMin());
    run.add(constant.yMax()), run.add(constant.zMax()), run.add(c.getMin()), run.add(d.getMin());

    using P = PlaneT<T>;
    P plane(p, q), other(q[0], p[1], q[2], p[0]), third(other.getAsVector4()), copy(third), empty;
    run.add(plane.intersect(c)), run.add(other.intersect(d)), run.add(plane.distance(q));
    run.add(plane.intersectBoundingSphere(q, p[0])), run.add(plane == third || copy != other);
    plane.makeUnitLength(), copy.set(q[1], q[2], p[0], p[1]), empty.set(plane.getAsVector4());
    run.add(plane.getNormal()), run.add(copy.upperBBCorner()), run.add(empty.lowerBBCorner());
    run.add(third.calculateUpperLowerBBCorners()), run.add(copy.getAsVector4());
}

void others(Run& run) {
    const Vector3d p = run.draw<Vector3T<double>>(), q = run.draw<Vector3T<double>>(),
                   r = run.draw<Vector3T<double>>();
    Vector6 a(p, q), b(p[0], p[1], p[2], q[0], q[1], r[0]);
    a.add(b), b.sub(a), a.scale(r[1]), a[2] = b[1], b = a, b.set(q, r);
    run.add(a.dot(b)), run.add(b.norm()), run.add(static_cast<const Vector6&>(a)[2]), run.add(a);

    BoundingSphere s(p, q[0]), empty;
    s.center() += empty.center(), s.radius() = r[0], empty.init(), empty.set(q, p[1]);
    const BoundingSphere& constant = s;
    run.add(constant.center()), run.add(constant.radius()), run.add(s.valid() || empty.valid());

    Polytope& region = run.in.polytope();
    for (int i = 0; i < 2; ++i) {
        run.add(region.contains(run.draw<BoundingBoxT<double>>())), region.pushCurrentMask();
    }
    region.popCurrentMask(), run.add(region.contains(run.draw<BoundingBoxT<double>>()));
    run.add(region.getCurrentMask()), run.add(region.getMaskStack().size());
    run.add(region.getPlanes().size());

    const Line3 line(p, q), null;
    const Segment3 segment(q, r), nothing;
    run.add(line.isValid() || null.isValid() || nothing.isValid()),
        run.add(line.isParallel(segment));
    run.add(line.closestPointFactor(r));

    const Matrix44d m = run.draw<Matrix44T<double>>();
    Ky::KyTransform t(1, 2, 3, p[0], 4, 5, 6, p[1], 7, 8, 9, p[2], 1, 2, 3, 4), u;
    u.set(&m[0][0]), u.setTranslation(t.getTranslation() + p);
    run.add(u.transformPoint(q) - u.transformDirection(r)), run.add(t == u || t != u);
    t(1, 2) = u(2, 3), t[1][1] = u[2u][0], t[2l][2] = u[0ul][3];
    const Ky::KyTransform& view = t;
    run.add(view(1, 2)), run.add(view[1][2]), run.add(view[1u][1]), run.add(view[2l][0]),
        run.add(view[3ul][0]);
    t.set(static_cast<const Ky::KyReal4*>(view)), u.set(static_cast<Ky::KyReal4*>(u));
    const float narrow[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    run.add(static_cast<const double*>(view)[3]), run.add(static_cast<double*>(u)[1]), run.add(t);
    u.set(narrow), run.add(u), run.add(Ky::KyTransform());
}

void print(const char* name, void (*chains)(Run&)) {
    Run run;
    for (int i = 0; i < 2000; ++i) {
        run.in.nextCall();
        chains(run);
    }
    std::printf("%s %016llx\n", name, static_cast<unsigned long long>(run.digest.value()));
}

}  // namespace

int main() {
    print("vectors of float", vectors<float>);
    print("vectors of double", vectors<double>);
    print("pairs of float", pairs<float>);
    print("pairs of double", pairs<double>);
    print("quaternions of float", rotations<float>);
    print("quaternions of double", rotations<double>);
    print("matrices of float", matrices<float>);
    print("matrices of double", matrices<double>);
    print("boxes and planes of float", bounds<float>);
    print("boxes and planes of double", bounds<double>);
    print("other types", others);
}
