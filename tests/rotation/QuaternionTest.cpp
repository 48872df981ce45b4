// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// == and areEqualTol are in ToleranceTest.cpp, with those of the other types.
#include "Support.h"

namespace KyMath {
namespace test {
namespace {

static_assert(
    kRefuses<Quaternionf, Vector3f, Vector4f, Matrix44f, int, std::nullptr_t, Quaterniond>);
static_assert(
    kRefuses<Quaterniond, Vector3d, Vector4d, Matrix44d, int, std::nullptr_t, Quaternionf>);
static_assert(kRefuses<Quaterniond, Ky::KyTransform>);
static_assert(!IsStreamable<Quaternionf>::value && !IsStreamable<Quaterniond>::value);

template <class T>
class QuaternionTest : public ::testing::Test {};
TYPED_TEST_SUITE(QuaternionTest, Scalars, );

// Deliberate: the constant is a half turn about z, the default the identity rotation.
TYPED_TEST(QuaternionTest, EveryAccessPutsWFirstAndTheConstantIdentityHasNone) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const T numbers[] = {1, 2, 3, 4};
    Q k(1, 2, 3, 4);
    expectSubscripts(k);
    EXPECT_BITS(k, Q(numbers));
    EXPECT_TRUE(k.w() == 1 && k.x() == 2 && k.y() == 3 && k.z() == 4);
    T a[4], w, x, y, z;
    k.get(a);
    EXPECT_BITS(k, Q(a));
    k.get(&w, &x, &y, &z);
    EXPECT_BITS(k, Q(w, x, y, z));
    EXPECT_BITS(k, after(Q(), [&](Q& q) { k.get(q); }));
    EXPECT_BITS(k, after(Q(), [](Q& q) { q.set(1, 2, 3, 4); }));
    expectInPlace(k, Q(), [&](Q& q) -> Q& { return q = k; });
    expectInPlace(k, Q(), [&](Q& q) -> Q& { return q = numbers; });
    EXPECT_BITS(Q(0, 0, 0, 1), Q::kIdentity);
    EXPECT_BITS(Q(1, 0, 0, 0), Q());
}

TYPED_TEST(QuaternionTest, ArithmeticIsByComponentWithTrueDivision) {
    using Q = QuaternionT<TypeParam>;
    forCorpus<Q>(101, [](const Q& a, const Q& b, TypeParam x) {
        const TypeParam s = std::abs(x) <= TypeParam(1e-3) ? 2 : x;
        expectComponentwise(a, b, s, each<Q>([&](int i) { return a[i] / s; }));
        EXPECT_BITS(dot(a, b), a.dot(b));
        EXPECT_BITS(std::sqrt(dot(a, a)), a.norm());
    });
}

TYPED_TEST(QuaternionTest, DivisionByNothingSaysSoAndGivesTheIdentityOrNoChange) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const T eps = Ky::KY_SMALL_REAL<T>::epsilon;
    const Q q(1, 2, 3, 4);
    for (const T s : {T(0), -T(0), eps, -eps, above(eps), below(-eps), kNaN<T>}) {
        const bool divides = !(std::abs(s) <= eps);
        const Q quotient(1 / s, 2 / s, 3 / s, 4 / s);
        const std::string said = divides ? "" : "QuaternionT<T>::attempt to divide by zero.";
        ::testing::internal::CaptureStdout();
        EXPECT_BITS(divides ? quotient : Q(), q / s) << s;
        expectInPlace(divides ? quotient : q, q, [s](Q& p) -> Q& { return p /= s; });
        EXPECT_EQ(said + said, ::testing::internal::GetCapturedStdout()) << s;
    }
}

TYPED_TEST(QuaternionTest, ProductsAndRotationsAreActiveAndTheInverseTheConjugate) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    forCorpus<Q>(102, [](const Q& a, const Q& b, T) {
        const T w = a[0];
        const V u(&a[1]), v(&b[1]), c = crossed(u, v);
        const Q product(w * b[0] - a[1] * b[1] - a[2] * b[2] - a[3] * b[3],
                        w * b[1] + a[1] * b[0] + a[2] * b[3] - a[3] * b[2],
                        w * b[2] + a[2] * b[0] + a[3] * b[1] - a[1] * b[3],
                        w * b[3] + a[3] * b[0] + a[1] * b[2] - a[2] * b[1]);
        EXPECT_BITS(product, a * b);
        expectInPlace(product, a, [&](Q& q) -> Q& { return q *= b; });
        expectInPlace(a * a, a, [](Q& q) -> Q& { return q *= q; });
        const V rotated = each<V>([&](int i) {
            return (w * w - dot(u, u)) * v[i] + 2 * dot(u, v) * u[i] + 2 * w * c[i];
        });
        EXPECT_BITS(rotated, a.rotate(v));
        EXPECT_BITS(rotated, a * v);
        const Q conjugate(w, -a[1], -a[2], -a[3]);
        EXPECT_BITS(conjugate, a.getInverse());
        EXPECT_BITS(conjugate, after(a, [](Q& q) { q.invert(); }));
        EXPECT_BITS(conjugate, after(b, [&](Q& q) { q.setInverse(a); }));
        EXPECT_BITS(conjugate, after(a, [](Q& q) { q.setInverse(q); }));
    });
}

TYPED_TEST(QuaternionTest, NormalizeComparesTheSquaredLengthWithTheTolerance) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const T eps = Ky::KY_SMALL_REAL<T>::epsilon, w = std::sqrt(eps) * T(0.99);
    const auto check = [eps](const Q& q, const Q&, T) {
        const T n = dot(q, q);
        const Q expected = n <= eps ? Q() : scaled(q, 1 / std::sqrt(n));
        EXPECT_BITS(expected, after(q, [](Q& p) { p.normalize(); })) << n;
    };
    forCorpus<Q>(104, check);
    check(Q(0, 0, 0, 0), Q(), 0);
    check(Q(T(0.5), T(-0.5), T(0.5), T(0.5)), Q(), 0);
    for (const T square : {below(eps), eps, above(eps)}) {
        const Q q(w, 0, std::sqrt(square - w * w), 0);
        ASSERT_EQ(square, dot(q, q));
        check(q, Q(), 0);
    }
}

TYPED_TEST(QuaternionTest, AxisAngleTakesTheAxisAsGivenTheConstructorNormalizes) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    const auto check = [](const V& axis, const V&, T angle) {
        T s, c;
        sinCos(angle / 2, s, c);
        const Q expected(c, s * axis[0], s * axis[1], s * axis[2]);
        const auto fromScalars = [&](Q& q) { q.fromAxisAngle(axis[0], axis[1], axis[2], angle); };
        EXPECT_BITS(expected, after(Q(), fromScalars));
        EXPECT_BITS(expected, after(Q(), [&](Q& q) { q.fromAxisAngle(axis, angle); }));
        const V unit = after(axis, [](V& v) { v.normalize(); });
        EXPECT_BITS(Q(c, s * unit[0], s * unit[1], s * unit[2]), Q(axis, angle));
    };
    forCorpus<V>(105, check);
    check(V(), V(), 2);
}

// Deliberate: without an axis, it is y.
TYPED_TEST(QuaternionTest, ToAxisAngleDividesTrulyOrFallsBackToTheYAxis) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    const T eps = Ky::KY_SMALL_REAL<T>::epsilon;
    const auto check = [eps](const Q& q) {
        const V u(&q[1]);
        const T s = std::sqrt(dot(u, u));
        const bool found = s > eps && !(q[0] > 1);
        T x = 7, y = 7, z = 7, angle = 7, same = 7;
        q.toAxisAngle(&x, &y, &z, &angle);
        EXPECT_BITS(found ? V(q[1] / s, q[2] / s, q[3] / s) : V(0, 1, 0), V(x, y, z)) << q[0];
        EXPECT_BITS(found ? 2 * std::acos(runtime(q[0])) : T(0), angle) << q[0];
        EXPECT_BITS(V(x, y, z), after(V(), [&](V& axis) { q.toAxisAngle(&axis, &same); }));
        EXPECT_BITS(angle, same);
    };
    Corpus<T> corpus(106);
    for (int n = 0; n < 500; ++n) check(corpus.unitQuaternion());
    for (const T w : {T(0.5), T(1), above(T(1)), T(-1), below(T(-1)), kNaN<T>}) {
        for (const T z : {T(0), -eps, above(eps), T(2)}) check(Q(w, 0, 0, z));
    }
}

// Deliberate: the argument of asin is not clamped, and gives NaN past +-1.
TYPED_TEST(QuaternionTest, EulerAnglesTurnAboutTheFixedXThenYThenZ) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    Corpus<T> corpus(107);
    for (int n = 0; n < 500; ++n) {
        const V r = corpus.template anyOf<V>();
        T sX, cX, sY, cY, sZ, cZ;
        sinCos(r[0] / 2, sX, cX);
        sinCos(r[1] / 2, sY, cY);
        sinCos(r[2] / 2, sZ, cZ);
        EXPECT_BITS(Q(cX * cY * cZ + sX * sY * sZ, sX * cY * cZ - cX * sY * sZ,
                      cX * sY * cZ + sX * cY * sZ, cX * cY * sZ - sX * sY * cZ),
                    after(Q(), [&](Q& q) { q.fromEulerXYZ(r[0], r[1], r[2]); }));

        const Q q = n % 4 != 0 ? corpus.unitQuaternion() : corpus.template anyOf<Q>();
        const T w = q[0], x = q[1], y = q[2], z = q[3];
        const V angles(
            std::atan2(runtime(2 * (y * z + w * x)), runtime(w * w - x * x - y * y + z * z)),
            std::asin(runtime(-2 * (x * z - w * y))),
            std::atan2(runtime(2 * (x * y + w * z)), runtime(w * w + x * x - y * y - z * z)));
        EXPECT_BITS(angles, after(V(), [&](V& v) { q.toEulerXYZ(&v); }));
        T a = 7, b = 7, c = 7;
        q.toEulerXYZ(&a, &b, &c);
        EXPECT_BITS(angles, V(a, b, c));
        q.toEulerXYZ(&a, &b, &a);  // z is written first, then x, then y
        q.toEulerXYZ(&c, &c, &b);
        EXPECT_BITS(angles, V(a, c, b));
    }
}

TYPED_TEST(QuaternionTest, FiniteRotationMultipliesFromTheLeft) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    const auto check = [](const Q& q, const V& omega, T dt) {
        const T length = std::sqrt(dot(omega, omega));
        const V u = scaled(omega, 1 / (length + T(1e-14))), v(&q[1]), x = crossed(u, v);
        T s, c;
        sinCos(length * dt / 2, s, c);
        Q expected(c * q[0] - s * dot(u, v), 0, 0, 0);
        for (int i = 0; i < 3; ++i) expected[i + 1] = c * v[i] + s * q[0] * u[i] + s * x[i];
        EXPECT_BITS(expected, after(q, [&](Q& p) { p.finiteRotation(omega, dt); }));
    };
    forCorpus<Q>(109, [&](const Q& q, const Q& p, T dt) {
        check(q, V(&p[1]), dt);
        check(q, V(&p[1]) * T(1e-14), dt * T(1e14));  // where the added 1e-14 counts
        check(q, V(), dt);
    });
}

template <class T>
QuaternionT<T> interpolated(const QuaternionT<T>& p, const QuaternionT<T>& q, T t) {
    const T cosine = std::abs(dot(p, q)), sign = dot(p, q) < 0 ? T(-1) : T(1);
    T a = 1 - t, b = t;
    if (1 - cosine > T(1e-7)) {
        const T omega = std::acos(runtime(cosine)), k = 1 / std::sin(runtime(omega));
        a = std::sin(runtime((1 - t) * omega)) * k;
        b = std::sin(runtime(t * omega)) * k;
    }
    return each<QuaternionT<T>>([&](int i) { return p[i] * a + sign * q[i] * b; });
}

TYPED_TEST(QuaternionTest, SlerpTakesTheShorterArcAndTheLineWhenNearlyParallel) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const auto check = [](const Q& p, const Q& q) {
        // At 40.25, far out, arc and line part visibly.
        for (const T t : {T(-0.5), T(0), T(0.3), T(1), T(40.25)}) {
            EXPECT_BITS(interpolated(p, q, t), p.slerp(q, t)) << dot(p, q) << ", " << t;
        }
    };
    Corpus<T> corpus(110);
    for (int n = 0; n < 200; ++n) {
        const Q p = corpus.unitQuaternion();
        check(p, corpus.unitQuaternion());
        check(p, p * T(-1));
    }
    for (const T w : {T(0), -T(0), kNaN<T>, T(-3), T(3)}) check(Q(), Q(w, 1, 0, 0));
    // 1 - cosine in steps of kEps / 2 below 1: the last within 1e-7 and the first beyond it.
    const int last = static_cast<int>(2e-7 / static_cast<double>(kEps<T>));
    for (int steps = last - 1; steps <= last + 2; ++steps) {
        const T cosine = 1 - T(steps) * (kEps<T> / 2), sine = std::sqrt(1 - cosine * cosine);
        for (const T w : {cosine, -cosine}) check(Q(), Q(w, sine, 0, 0));
    }
}

TYPED_TEST(QuaternionTest, FromRotationWorksInDoubleFromTheDotProductOn) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    const auto check = [](const V& from, const V& to) {
        const double d = static_cast<double>(dot(from, to));
        const double m = d > 1 ? 0.5 : d < -1 ? -0.5 : 0.5 * d;
        const bool parallel = Ky::KY_ARE_EQUAL(d, 1.0) || Ky::KY_ARE_EQUAL(d, -1.0);
        V axis = parallel ? from.getOrthogonal() : crossed(from, to);
        if (!parallel) axis.normalize();
        const T s = std::sqrt(static_cast<T>(0.5 - m)), w = std::sqrt(static_cast<T>(0.5 + m));
        const Q actual = after(Q(), [&](Q& q) { q.fromRotation(from, to); });
        EXPECT_BITS(Q(w, axis[0] * s, axis[1] * s, axis[2] * s), actual) << d;
    };
    Corpus<T> corpus(111);
    for (int n = 0; n < 300; ++n) {
        V from = corpus.vector(), to = corpus.vector();
        check(from * T(0.125), to * T(0.125));  // not of unit length: the dot product is clamped
        from.normalize();
        to.normalize();
        for (const V& v : {to, from, -from}) check(from, v);
    }
    // On both sides of equality with 1 and -1: for double, 90 half steps count as equal. Any second
    // component tells the two axes apart.
    for (const int steps : {0, 1, 2, 45, 46, 90, 91}) {
        const T d = 1 - T(steps) * (kEps<T> / 2), e = 1 + T(steps) * kEps<T>;
        for (const T x : {d, -d, e, -e}) check(V(1, 0, 0), V(x, 0, T(0.01)));
    }
}

}  // namespace
}  // namespace test
}  // namespace KyMath
